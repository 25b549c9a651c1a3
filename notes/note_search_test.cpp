#include "notes/note_search.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <random>

#include "tests/support/fake_note_files.h"
#include "tests/support/tries.h"

using testing::ElementsAre;

// A note set in memory and the search in it.
struct SearchedSet {
    FakeNoteFiles fakes;
    NoteFiles files;
    NoteSets notes;
    std::vector<int> reached;
};

static void Open(SearchedSet& set, const std::map<int, std::string>& notes) {
    AddFakeSet(set.fakes, "Mine", notes);
    set.files = DeviceOver(set.fakes);
    ASSERT_TRUE(FindNoteSets(set.files, set.notes));
    set.fakes.log.clear();
}

static NoteMatch Find(SearchedSet& set, const NoteQuery& query, ResumePoint resume = {}) {
    const SearchProgress progress{
        &set.reached, [](void* device, int verse) { static_cast<std::vector<int>*>(device)->push_back(verse); }};
    set.reached.clear();
    return FindInNotes(set.files, set.notes.sets[0], AsciiLetters(), query, resume, progress);
}

// "verse:offset", "not found" or "unreadable".
static std::string Told(const NoteMatch& match) {
    switch (match.end) {
        case NoteSearchEnd::kFound: return std::to_string(match.verse) + ":" + std::to_string(match.offset);
        case NoteSearchEnd::kNotFound: return "not found";
        case NoteSearchEnd::kUnreadable: break;
    }
    return "unreadable";
}

static NoteQuery Capitals(const std::string& text, bool substrings = false) {
    return {InCapitals(AsciiLetters(), text), false, substrings, {}};
}

TEST(NoteSearch, DistinguishesWordsFromSubstrings) {
    static constexpr struct {
        const char* note;
        const char* text;
        const char* asWord;
        const char* anywhere;
    } kRows[] = {
        {"beloved", "love", "not found", "7:2"},
        {"love", "love", "7:0", "7:0"},
        {"Beloved, let us love.", "love", "7:16", "7:2"},
        {"love2 2love love_", "love", "7:12", "7:0"},  // digits count as letters, an underscore does not
        {"glove love's", "love", "7:6", "7:1"},
        {"\xE9love\xE9", "love", "7:1", "7:1"},
        {"aaaa aa", "aa", "7:5", "7:0"},
        {"aaa", "aa", "not found", "7:0"},
        {"one\r\nlove\r\n", "love", "7:5", "7:5"},
        {"so (love) it", "(love)", "7:3", "7:3"},
        {"so(love)it", "(love)", "not found", "7:2"},
        {"let us love one", "us love", "7:4", "7:4"},
        {"let us\r\nlove", "us love", "not found", "not found"},
        {"", "love", "not found", "not found"},
        {"lov", "love", "not found", "not found"},
    };
    for (const auto& row : kRows) {
        SCOPED_TRACE(row.note);
        SearchedSet set;
        Open(set, {{7, row.note}});
        EXPECT_EQ(Told(Find(set, Capitals(row.text))), row.asWord);
        EXPECT_EQ(Told(Find(set, Capitals(row.text, true))), row.anywhere);
    }
}

// Deliberate: after a match that is not a whole word, the search skips the length of the text, so it does not find a
// match that begins inside it.
TEST(NoteSearch, SkipsTheWholeTextAfterAMismatch) {
    SearchedSet set;
    Open(set, {{7, "xa a a"}});
    EXPECT_EQ(Told(Find(set, Capitals("a a"))), "not found");
    EXPECT_EQ(Told(Find(set, Capitals("a"))), "7:3");
}

TEST(NoteSearch, IgnoresCaseUnlessCaseSensitive) {
    static constexpr struct {
        const char* text;
        bool caseSensitive;
        const char* found;
    } kRows[] = {{"LOVE", false, "3:0"}, {"love", true, "3:6"}, {"LOVE", true, "not found"}, {"Love", true, "3:0"}};
    SearchedSet set;
    Open(set, {{3, "Love, love."}});
    for (const auto& row : kRows) EXPECT_EQ(Told(Find(set, {row.text, row.caseSensitive, false, {}})), row.found);
}

TEST(NoteSearch, StaysInTheRange) {
    static constexpr struct {
        int first, last;
        const char* found;
    } kRows[] = {
        {0, kLastVerse, "0:0"},
        {1, kLastVerse, "500:4"},
        {1, 500, "500:4"},
        {1, 499, "not found"},
        {500, 500, "500:4"},
        {501, kLastVerse, "31101:4"},
        {501, kLastVerse - 1, "not found"},
        {kLastVerse, kLastVerse, "31101:4"},
        {200, 300, "not found"},
    };
    SearchedSet set;
    Open(set, {{0, "grace"}, {250, "truth"}, {500, "the grace"}, {kLastVerse, "The grace of"}});
    for (const auto& row : kRows) {
        NoteQuery query = Capitals("grace");
        query.range = {row.first, row.last};
        EXPECT_EQ(Told(Find(set, query)), row.found) << row.first << "-" << row.last;
        EXPECT_TRUE(std::ranges::is_sorted(set.reached));
        for (const int verse : set.reached) EXPECT_TRUE(verse >= row.first && verse <= row.last) << verse;
    }
}

TEST(NoteSearch, ContinuesAfterTheLastMatch) {
    static constexpr struct {
        ResumePoint resume;
        const char* found;
    } kRows[] = {
        {{4, 0}, "4:0"},
        {{4, 5}, "4:10"},  // the second match of the same note
        {{4, 10}, "4:10"},
        {{4, 11}, "9:3"},  // the next note is searched from its beginning
        {{4, 15}, "9:3"},
        {{4, 16}, "9:3"},
        {{4, 5000}, "9:3"},
        {{9, 8}, "not found"},
        {{10, 0}, "not found"},
        {{0, 0}, "4:0"},
        {{0, 3}, "4:10"},  // the offset is kept until the next verse with a
                           // note
        {{5, 5}, "not found"},
    };
    SearchedSet set;
    Open(set, {{4, "grace and grace"}, {9, "of grace"}});
    for (const auto& row : kRows) {
        EXPECT_EQ(Told(Find(set, Capitals("grace"), row.resume)), row.found)
            << row.resume.verse << ":" << row.resume.offset;
    }
}

TEST(NoteSearch, StartsAtTheRangeIfItIsLater) {
    NoteQuery query = Capitals("grace");
    query.range = {4, 20};
    SearchedSet set;
    Open(set, {{2, "grace"}, {4, "grace"}, {9, "grace"}});
    EXPECT_EQ(Told(Find(set, query, {2, 3})), "4:0");  // with offset 0
    EXPECT_EQ(Told(Find(set, query, {4, 3})), "9:0");
    EXPECT_EQ(Told(Find(set, query, {21, 0})), "not found");  // stops immediately after the end of the range
    EXPECT_THAT(set.reached, ElementsAre());
}

TEST(NoteSearch, ReadsTheFileInLargeBlocks) {
    std::map<int, std::string> notes;
    for (int verse = 0; verse < kLastVerse; ++verse) notes[verse] = "a note of some twenty letters";
    notes[30000] += " found";
    SearchedSet set;
    Open(set, notes);
    EXPECT_EQ(Told(Find(set, Capitals("found"))), "30000:30");
    EXPECT_THAT(set.fakes.log, ElementsAre("open Mine.nmd", "close Mine.nmd"));
    EXPECT_EQ(set.fakes.openFiles, 0);
}

TEST(NoteSearch, DoesNotOpenTheFileWithoutNotes) {
    SearchedSet set;
    Open(set, {});
    NoteQuery query = Capitals("grace");
    query.range.EndVerse = kLastVerse - 1;
    EXPECT_EQ(Told(Find(set, query)), "not found");
    EXPECT_TRUE(set.fakes.log.empty());
}

TEST(NoteSearch, StopsWhenTheFileCannotBeOpened) {
    SearchedSet set;
    Open(set, {{100, "grace"}});
    set.fakes.unreadable = {"Mine.nmd"};
    EXPECT_EQ(Told(Find(set, Capitals("grace"))), "unreadable");
    EXPECT_EQ(set.reached.back(), 100);
}

TEST(NoteSearch, SearchesOnlyTheShownPartOfANote) {
    SearchedSet set;
    Open(set, {{kLastVerse, std::string(65530, '-') + "grace more"}});
    EXPECT_EQ(Told(Find(set, Capitals("grace", true))), "31101:65530");
    EXPECT_EQ(Told(Find(set, Capitals("grace m", true))), "not found");
}

TEST(NoteSearch, SurvivesADamagedIndex) {
    SearchedSet set;
    Open(set, {{3, "grace"}});
    std::vector<std::uint32_t>& offsets = set.notes.sets[0].offsets;
    for (std::size_t verse = 0; verse < offsets.size(); ++verse)
        offsets[verse] = static_cast<std::uint32_t>(verse * 2654435761U);
    Find(set, Capitals("grace"));
    offsets.resize(2);
    EXPECT_EQ(Told(Find(set, Capitals("grace"))), "not found");
    offsets.clear();
    EXPECT_EQ(Told(Find(set, Capitals("grace"))), "not found");
}

// ---- Against a search note by note ----------------------------------------------------------------------------------

// What the view shows of a note.
static std::string ShownNote(const std::string& data, const NoteSet& set, int verse) {
    const StoredNote stored = StoredNoteOf(set, verse);
    const auto length = static_cast<std::size_t>(std::min<std::uint64_t>(stored.length, kNoteBufferSize - 1));
    const std::string note = data.substr(std::min<std::size_t>(stored.offset, data.size()), length);
    return note.substr(0, note.find('\0'));
}

static NoteMatch FindNoteByNote(const std::string& data, const SearchedSet& searched, const NoteQuery& query,
                                ResumePoint resume) {
    const LetterTable letters = AsciiLetters();
    const NoteSet& set = searched.notes.sets[0];
    if (resume.verse < query.range.StartVerse) resume = {query.range.StartVerse, 0};
    for (int verse = resume.verse; verse <= query.range.EndVerse; ++verse) {
        if (!NoteExists(searched.files, set, verse)) continue;
        std::string note = ShownNote(data, set, verse);
        if (!query.caseSensitive) note = InCapitals(letters, note);
        const auto isInWord = [&](std::size_t at) {
            return at < note.size() && letters.inWords[static_cast<unsigned char>(note[at])];
        };
        std::size_t place = note.find(query.text, resume.offset);
        resume.offset = 0;
        while (place != std::string::npos) {
            const std::size_t end = place + query.text.size();
            if (query.substrings || !((place > 0 && isInWord(place - 1)) || isInWord(end)))
                return {NoteSearchEnd::kFound, verse, place};
            place = note.find(query.text, end);
        }
    }
    return {};
}

// A data file of `size` bytes, with a NUL now and then.
static std::vector<unsigned char> RandomData(std::mt19937& random, std::size_t size) {
    std::vector<unsigned char> data(size);
    for (unsigned char& byte : data) byte = static_cast<unsigned char>("aAbB ,2\xE9"[random() % 8]);
    for (std::size_t i = 0; i < size / 20; ++i) data[random() % size] = 0;
    return data;
}

// Offsets that are in order; some of them may lie anywhere: shared, overlapping, unordered notes, and beyond the end.
static std::vector<std::uint32_t> RandomOffsets(std::mt19937& random, std::size_t size, std::size_t odd) {
    std::vector<std::uint32_t> offsets(random() % 9 == 0 ? random() % kVerseCount : kVerseCount);
    for (std::uint32_t& offset : offsets) offset = static_cast<std::uint32_t>(random() % (size + 1));
    std::ranges::sort(offsets);
    for (std::size_t i = 0; i < odd && !offsets.empty(); ++i)
        offsets[random() % offsets.size()] = static_cast<std::uint32_t>(random() % (size + size / 8 + 1));
    return offsets;
}

static NoteQuery RandomQuery(std::mt19937& random) {
    std::string text;
    const std::size_t length = 1 + random() % 9;
    while (text.size() < length) text.push_back("AAABB ,2ab\xE9"[random() % 11]);
    const int first = random() % 2 == 0 ? 0 : static_cast<int>(random() % kVerseCount);
    const int last = first + static_cast<int>(random() % static_cast<unsigned>(kVerseCount - first));
    return {text, random() % 2 == 0, random() % 2 == 0, {first, random() % 2 == 0 ? kLastVerse : last}};
}

TEST(NoteSearch, FindsWhatASearchNoteByNoteFinds) {
    static constexpr std::size_t kSizes[] = {1000, 60000, 1'500'000};
    static constexpr std::size_t kOdd[] = {0, 5, 2000, 40000};
    std::mt19937 random(7);
    int found = 0;
    for (int round = 0; round < Tried(12, 9); ++round) {
        const std::size_t size = kSizes[round / 4];
        SearchedSet searched;
        searched.fakes.contents["odd.nmd"] = RandomData(random, size);
        searched.files = DeviceOver(searched.fakes);
        searched.notes.sets = {NoteSet{"odd.nmd", RandomOffsets(random, size, kOdd[round % 4])}};
        StampFiles(searched.files, searched.notes.sets[0]);
        const std::vector<unsigned char>& bytes = searched.fakes.contents["odd.nmd"];
        const std::string data(bytes.begin(), bytes.end());
        for (int i = 0; i < 3; ++i) {
            const NoteQuery query = RandomQuery(random);
            ResumePoint resume{static_cast<int>(random() % kVerseCount), random() % 12};
            if (i % 2 == 0) resume = {};
            for (int matches = 0; matches < 4; ++matches) {
                const NoteMatch match = Find(searched, query, resume);
                ASSERT_EQ(Told(match), Told(FindNoteByNote(data, searched, query, resume)))
                    << round << " " << query.text;
                if (match.end != NoteSearchEnd::kFound) break;
                ++found;
                resume = {match.verse, match.offset + 1};
            }
        }
    }
    EXPECT_GT(found, 20);
}

// ---- Files that change or fail meanwhile ----------------------------------------------------------------------------

namespace {

// Called at the second part of the file.
struct Meanwhile {
    FakeNoteFiles* fakes;
    std::function<void(FakeNoteFiles&)> change;
    int parts = 0;
};

}  // namespace

static NoteMatch FindWhile(SearchedSet& set, const NoteQuery& query, std::function<void(FakeNoteFiles&)> change) {
    Meanwhile meanwhile{&set.fakes, std::move(change)};
    const SearchProgress progress{&meanwhile, [](void* device, int) {
                                      auto& now = *static_cast<Meanwhile*>(device);
                                      if (++now.parts == 2) now.change(*now.fakes);
                                  }};
    return FindInNotes(set.files, set.notes.sets[0], AsciiLetters(), query, {}, progress);
}

// Of two megabytes.
static std::map<int, std::string> ManyNotes() {
    std::map<int, std::string> notes;
    for (int verse = 0; verse < kLastVerse; ++verse) notes[verse] = std::string(70, 'n');
    return notes;
}

TEST(NoteSearch, GoesOnInASetThatChangesMeanwhile) {
    SearchedSet set;
    Open(set, ManyNotes());
    std::map<int, std::string> changed = ManyNotes();
    changed[0] = "grace before the part that is searched";
    changed[30000] += " grace";
    EXPECT_EQ(Told(FindWhile(set, Capitals("grace"),
                             [&](FakeNoteFiles& fakes) {
                                 const FakeSet now = FakeSetOf(changed);
                                 ChangeFile(fakes, "Mine.nmd", now.data);
                                 ChangeFile(fakes, "Mine.nmi", now.index);
                             })),
              "30000:71");
    EXPECT_EQ(set.fakes.openFiles, 0);
}

TEST(NoteSearch, EndsWhenTheChangedSetCannotBeRead) {
    SearchedSet set;
    Open(set, ManyNotes());
    EXPECT_EQ(Told(FindWhile(set, Capitals("grace"),
                             [](FakeNoteFiles& fakes) {
                                 ChangeFile(fakes, "Mine.nmd", {1, 2, 3});
                                 fakes.unreadable = {"Mine.nmd"};
                             })),
              "unreadable");
    EXPECT_EQ(set.fakes.openFiles, 0);
}

TEST(NoteSearch, FindsNothingBeyondTheEndOfTheFile) {
    SearchedSet set;
    std::map<int, std::string> notes = ManyNotes();
    notes[100] = "grace";
    notes[30000] = "truth";
    Open(set, notes);
    set.fakes.contents["Mine.nmd"].resize(8000);  // without another stamp, as if the rest could not be read
    StampFiles(set.files, set.notes.sets[0]);
    EXPECT_EQ(Told(Find(set, Capitals("grace"))), "100:0");
    EXPECT_EQ(Told(Find(set, Capitals("truth"))), "not found");
}

// ---- Notes in UTF-8 -------------------------------------------------------------------------------------------------

static std::string Marked(std::u16string_view letters) {
    return std::string(kUtf8Mark) + Utf8Of(letters);
}

static std::string ToldWithSize(const NoteMatch& match) {
    return match.end == NoteSearchEnd::kFound ? Told(match) + "+" + std::to_string(match.size) : Told(match);
}

TEST(NoteSearch, FindsLettersInNotesOfBothKinds) {
    SearchedSet set;
    Open(set, {{1, "caf\xE9 grace"},
               {2, Marked(u"caf\u00E9 \u03B1\u03B3\u03AC\u03C0\u03B7")},
               {3, std::string(kUtf8Mark) + "caf\xE9 \xCE\xB1 truth"},  // none in UTF-8, whatever it begins with
               {4, Marked(u"\u05D1\u05BC\u05B0\u05E8 truth")},
               {kLastVerse, Marked(u"grace \u03B1\u03B3\u03AC\u03C0\u03B7")}});
    static const struct {
        std::string text;
        ResumePoint resume;
        std::string found;
    } kRows[] = {
        {"GRACE", {}, "1:5+5"},
        {"GRACE", {1, 10}, "31101:3+5"},
        {"CAF\xE9", {}, "1:0+4"},
        {"CAF\xE9", {1, 4}, "2:3+5"},
        {"CAF\xE9", {2, 8}, "3:3+4"},
        {Marked(u"\u0391\u0393\u0386\u03A0\u0397"), {}, "2:9+10"},
        {Marked(u"\u0391\u0393\u0386\u03A0\u0397"), {2, 19}, "31101:9+10"},
        {Marked(u"\u0391\u0393\u0386\u03A0\u0397"), {kLastVerse, 19}, "not found"},
        {Marked(u"\u05D1\u05E8"), {}, "4:3+8"},
        {"\xCE\xB1", {}, "3:8+2"},  // two letters of the code page
        {"TRUTH", {}, "3:11+5"},
        {"TRUTH", {3, 16}, "4:12+5"},
        {"\xEF\xBB\xBF", {}, "not found"},  // the mark is no text where it is one
        {Marked(u"\u03C9"), {}, "not found"},
    };
    for (const auto& row : kRows)
        EXPECT_EQ(ToldWithSize(Find(set, {row.text, false, false, {}}, row.resume)), row.found) << row.text;
}

// Against a search of each note by itself, over sets with notes of both kinds in any order.
TEST(NoteSearch, FindsTheFirstOfManyNotesOfBothKinds) {
    std::mt19937 random(3);
    for (int round = 0; round < 6; ++round) {
        std::map<int, std::string> notes;
        for (int verse = 0; verse < 40; ++verse) {
            std::u16string letters;
            for (auto i = random() % 12; i > 0; --i)
                letters += static_cast<char16_t>(random() % 3 ? u'a' + random() % 2 : u' ');
            if (random() % 3 == 0) letters.insert(random() % (letters.size() + 1), 1, u'\u03B1');
            notes[verse * 7] = NoteOfLetters({}, letters);
        }
        SearchedSet set;
        Open(set, notes);
        for (const char* text : {"A", "AB", "A B", "BAB"})
            for (const bool isSubstring : {false, true}) {
                std::string expected = "not found";
                for (const auto& [verse, note] : notes) {
                    SearchedSet alone;
                    Open(alone, {{verse, note}});
                    expected = ToldWithSize(Find(alone, {text, false, isSubstring, {}}));
                    if (expected != "not found") break;
                }
                EXPECT_EQ(ToldWithSize(Find(set, {text, false, isSubstring, {}})), expected) << text << round;
            }
    }
}
