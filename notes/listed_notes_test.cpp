#include "notes/listed_notes.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <random>

#include "tests/support/fake_note_files.h"

using testing::ElementsAre;
using testing::IsEmpty;

using NotesOfSet = std::map<int, std::string>;

namespace {

struct ListedSets {
    FakeNoteFiles fakes;
    NoteFiles files;
    NoteSets notes;
    std::vector<int> reached;
    int stopsAfter = -1;  // steps; -1: never
};

}  // namespace

static void Open(ListedSets& sets, const std::map<std::string, NotesOfSet>& notes) {
    for (const auto& [name, texts] : notes) AddFakeSet(sets.fakes, name, texts);
    sets.files = DeviceOver(sets.fakes);
    ASSERT_TRUE(FindNoteSets(sets.files, sets.notes));
}

static ListedNotes List(ListedSets& sets, const ListedNotesQuery& query) {
    sets.reached.clear();
    const SearchProgress progress{
        &sets, [](void* device, int step) { static_cast<ListedSets*>(device)->reached.push_back(step); },
        [](void* device) {
            const auto& each = *static_cast<ListedSets*>(device);
            return each.stopsAfter < 0 || static_cast<int>(each.reached.size()) <= each.stopsAfter;
        }};
    return ListNotes(sets.files, sets.notes.sets, AsciiLetters(), query, progress);
}

static std::string InUtf8(std::u16string_view letters) {
    return std::string(kUtf8Mark) + Utf8Of(letters);
}

TEST(ListedNotes, AreStillThereOrNot) {
    ListedSets sets;
    Open(sets, {{"A", {{7, "grace"}, {500, "truth"}}}, {"B", {{7, "peace"}, {900, "graceful"}, {901, "peace"}}}});
    const auto still = [&](const ListedQuestion& question, const std::vector<std::int32_t>& verses) {
        return StillListed(sets.files, sets.notes.sets, AsciiLetters(), question, verses);
    };
    EXPECT_THAT(still({}, {3, 7, 500, 901}), ElementsAre(7, 500, 901));
    EXPECT_THAT(still({"B"}, {7, 500, 900}), ElementsAre(7, 900));
    EXPECT_THAT(still({"", {"GRACE"}, true}, {7, 500, 900}), ElementsAre(7, 900));
    EXPECT_THAT(still({"Gone"}, {7, 500}), IsEmpty());
    EXPECT_THAT(still({}, {}), IsEmpty());
    sets.fakes.contents.erase("A.nmd");
    EXPECT_THAT(still({}, {3, 7, 500, 901}), ElementsAre(3, 7, 500, 901)) << "what is in A is not known";
}

TEST(ListedNotes, AreThoseOfAllSetsInTheOrderOfTheBible) {
    ListedSets sets;
    Open(sets, {{"A", {{7, "one"}, {500, "two"}, {kLastVerse, "three"}}},
                {"B", {{3, "four"}, {500, "five"}}},
                {"C", {}},
                {"D", {{0, "six"}}}});
    const ListedNotes all = List(sets, {});
    EXPECT_THAT(all.verses, ElementsAre(0, 3, 7, 500, kLastVerse));
    EXPECT_EQ(ListedNotesSummary(all), "5 verses with notes in 3 sets");
    const ListedNotes some = List(sets, {{}, false, {3, 499}});
    EXPECT_THAT(some.verses, ElementsAre(3, 7));
    EXPECT_EQ(ListedNotesSummary(some), "2 verses with notes in 2 sets");
    EXPECT_EQ(ListedNotesSummary(List(sets, {{}, false, {0, 2}})), "1 verse with a note in 1 set");
    EXPECT_THAT(List(sets, {{}, false, {8, 499}}).verses, IsEmpty());
    EXPECT_EQ(sets.fakes.openFiles, 0);
}

TEST(ListedNotes, ThatNameAVerseAreCounted) {
    EXPECT_EQ(NamingNotesSummary(12, 0, "Romans 8:28"), "12 notes about Romans 8:28");
    EXPECT_EQ(NamingNotesSummary(1, 2, "Romans 8:28"), "1 note about Romans 8:28; 2 sets cannot be read");
    EXPECT_EQ(NamingNotesSummary(0, 0, "Romans 8:28"), "No notes about Romans 8:28");
    EXPECT_EQ(NamingNotesSummary(0, 1, "Romans 8:28"), "No notes about Romans 8:28; 1 set cannot be read");
}

TEST(ListedNotes, HaveAllWordsInAnyOrder) {
    ListedSets sets;
    const NotesOfSet a = {{1, "Grace and truth"}, {2, "the TRUTH of grace"},
                          {3, "graceful truth"},  {4, InUtf8(u"Truth, grace \u03B1\u03B3\u03AC\u03C0\u03B7")},
                          {5, "grace"},           {kLastVerse, "truth grace"}};
    Open(sets, {{"A", a}, {"B", {{2, "grace"}, {9, InUtf8(u"\u05D1\u05BC\u05B0\u05E8 truth")}}}});
    static const struct {
        ListedNotesQuery query;
        std::vector<std::int32_t> verses;
        int sets;
    } kRows[] = {
        {{{"GRACE", "TRUTH"}, false, {}}, {1, 2, 4, kLastVerse}, 1},
        {{{"TRUTH", "GRACE"}, false, {}}, {1, 2, 4, kLastVerse}, 1},
        {{{"GRACE", "TRUTH"}, true, {}}, {1, 2, 3, 4, kLastVerse}, 1},
        {{{"GRACE"}, false, {}}, {1, 2, 4, 5, kLastVerse}, 2},
        {{{"TRUTH"}, false, {2, 9}}, {2, 3, 4, 9}, 2},
        {{{"RACE"}, false, {}}, {}, 0},
        {{{"GRACE", "NOWHERE"}, false, {}}, {}, 0},
        {{{InUtf8(u"\u0391\u0393\u0386\u03A0\u0397")}, false, {}}, {4}, 1},
        {{{InUtf8(u"\u05D1\u05E8")}, false, {}}, {9}, 1},
        {{{InUtf8(u"\u05D1\u05E8"), "TRUTH"}, false, {}}, {9}, 1},
    };
    for (const auto& row : kRows) {
        const ListedNotes listed = List(sets, row.query);
        EXPECT_EQ(listed.verses, row.verses) << row.query.words.front();
        EXPECT_EQ(listed.sets, row.sets) << row.query.words.front();
    }
    EXPECT_EQ(sets.fakes.openFiles, 0);
}

// Against a search that begins anew behind each note that it has found.
TEST(ListedNotes, AreThoseThatRepeatedSearchesFind) {
    std::mt19937 random(5);
    for (int round = 0; round < 4; ++round) {
        NotesOfSet texts;
        for (int verse = 0; verse <= kLastVerse; verse += 1 + static_cast<int>(random() % 60)) {
            std::string text(random() % 300, ' ');
            for (char& letter : text) letter = "aabb ,\n2"[random() % 8];
            texts[verse] = random() % 5 == 0 ? std::string(kUtf8Mark) + "\xCE\xB1 " + text : text;
        }
        ListedSets sets;
        Open(sets, {{"A", texts}});
        const NoteQuery query{"ABA", false, round % 2 == 0, {100, 31000}};
        const SearchProgress quiet{nullptr, [](void*, int) {}};
        std::vector<std::int32_t> expected;
        for (ResumePoint from{}; from.verse <= kLastVerse; from = {expected.back() + 1, 0}) {
            const NoteMatch match = FindInNotes(sets.files, sets.notes.sets[0], AsciiLetters(), query, from, quiet);
            if (match.end != NoteSearchEnd::kFound) break;
            expected.push_back(match.verse);
        }
        ASSERT_GT(expected.size(), 20u);
        EXPECT_EQ(List(sets, {{"ABA"}, query.substrings, query.range}).verses, expected);
    }
}

// ---- Files that change or fail --------------------------------------------------------------------------------------

TEST(ListedNotes, AreThoseOfTheFilesAsTheyAreNow) {
    ListedSets sets;
    Open(sets, {{"A", {{7, "one"}}}});
    const FakeSet now = FakeSetOf({{9, "another"}});
    ChangeFile(sets.fakes, "A.nmd", now.data);
    ChangeFile(sets.fakes, "A.nmi", now.index);
    EXPECT_THAT(List(sets, {}).verses, ElementsAre(9));
    EXPECT_THAT(List(sets, {{"ANOTHER"}, false, {}}).verses, ElementsAre(9));
}

TEST(ListedNotes, LeaveOutSetsThatCannotBeRead) {
    ListedSets sets;
    Open(sets, {{"A", {{7, "one"}}}, {"B", {{8, "one"}}}});
    ChangeFile(sets.fakes, "A.nmd", {1, 2, 3});
    sets.fakes.unreadable = {"A.nmd"};
    for (const ListedNotesQuery& query : {ListedNotesQuery{}, ListedNotesQuery{{"ONE"}, false, {}}}) {
        const ListedNotes listed = List(sets, query);
        EXPECT_THAT(listed.verses, ElementsAre(8));
        EXPECT_EQ(ListedNotesSummary(listed), "1 verse with a note in 1 set; 1 set cannot be read");
    }
}

TEST(ListedNotes, AreReadForTheFirstTime) {
    ListedSets sets;
    Open(sets, {{"A", {{7, "one"}}}, {"B", {{8, "one"}}}});
    for (NoteSet& set : sets.notes.sets) set.isUnchecked = true;
    EXPECT_THAT(List(sets, {}).verses, ElementsAre(7, 8));
    for (const NoteSet& set : sets.notes.sets) EXPECT_FALSE(set.isUnchecked);
}

TEST(ListedNotes, TellHowFarTheSearchIsAndCanBeStopped) {
    ListedSets sets;
    NotesOfSet many;
    for (int verse = 0; verse < kLastVerse; ++verse) many[verse] = "grace and truth " + std::string(70, 'n');
    Open(sets, {{"A", many}, {"B", many}});
    const ListedNotesQuery query{{"GRACE", "TRUTH"}, false, {}};
    const ListedNotes all = List(sets, query);
    EXPECT_EQ(all.verses.size(), static_cast<std::size_t>(kLastVerse));
    EXPECT_FALSE(all.isStopped);
    EXPECT_TRUE(std::ranges::is_sorted(sets.reached));
    EXPECT_GT(sets.reached.back(), ListingSteps(sets.notes.sets, query) - kVerseCount);
    EXPECT_LT(sets.reached.back(), ListingSteps(sets.notes.sets, query));
    const auto steps = static_cast<int>(sets.reached.size());
    for (sets.stopsAfter = 0; sets.stopsAfter < steps; ++sets.stopsAfter) {
        EXPECT_TRUE(List(sets, query).isStopped);
        EXPECT_EQ(static_cast<int>(sets.reached.size()), sets.stopsAfter + 1) << "it stops at once";
    }
    EXPECT_EQ(sets.fakes.openFiles, 0);
}

// ---- Words and sets -------------------------------------------------------------------------------------------------

TEST(ListedNotes, HaveTheWordsBetweenBlanks) {
    EXPECT_THAT(WordsTyped(u""), IsEmpty());
    EXPECT_THAT(WordsTyped(u"  \t"), IsEmpty());
    EXPECT_THAT(WordsTyped(u" grace  \u03B1\u03B3 truth"), ElementsAre(u"grace", u"\u03B1\u03B3", u"truth"));
}

TEST(ListedNotes, AreShownFromASetThatHasTheWords) {
    ListedSets sets;
    const NotesOfSet c = {{7, "Grace and truth"}, {8, InUtf8(u"truth \u03B1\u03B3\u03AC\u03C0\u03B7 grace")}};
    Open(sets, {{"A", {{7, "grace"}, {8, "truth"}}}, {"B", {{7, "truth"}, {9, "graceful truths"}}}, {"C", c}});
    const auto setFor = [&](const ListedQuestion& question, int verse) {
        return SetWithListedNote(sets.files, sets.notes, AsciiLetters(), question, verse);
    };
    EXPECT_EQ(setFor({"", {"GRACE", "TRUTH"}}, 7), 2);
    EXPECT_EQ(setFor({"", {"GRACE"}}, 7), 0);
    EXPECT_EQ(setFor({"", {"TRUTH"}}, 7), 1);
    EXPECT_EQ(setFor({"", {InUtf8(u"\u0391\u0393\u0386\u03A0\u0397")}}, 8), 2);
    EXPECT_EQ(setFor({"", {"GRACE", "TRUTH"}}, 9), 0) << "in no note any more";
    EXPECT_EQ(setFor({"", {"GRACE", "TRUTH"}, true}, 9), 1);
    EXPECT_EQ(setFor({"B", {"TRUTH"}}, 8), 0) << "the list is of another set";
    SelectSet(sets.notes, 2);
    EXPECT_EQ(setFor({"", {"TRUTH"}}, 7), 2) << "the current set has it, too";
    EXPECT_EQ(sets.fakes.openFiles, 0);
}

TEST(ListedNotes, AreShownFromTheCurrentSetIfItHasOne) {
    ListedSets sets;
    Open(sets, {{"A", {{7, "one"}}}, {"B", {{7, "one"}, {8, "one"}}}, {"C", {{7, "one"}, {8, "one"}}}});
    const auto setFor = [&](const ListedQuestion& question, int verse) {
        return SetWithListedNote(sets.files, sets.notes, AsciiLetters(), question, verse);
    };
    EXPECT_EQ(setFor({}, 7), 0);
    EXPECT_EQ(setFor({}, 8), 1);
    SelectSet(sets.notes, 2);
    EXPECT_EQ(setFor({}, 8), 2);
    EXPECT_EQ(setFor({}, 9), 2) << "no set has one";
    EXPECT_EQ(setFor({"B"}, 8), 1) << "the list is of one set";
    EXPECT_EQ(setFor({"A"}, 8), 2) << "its note has gone";
    EXPECT_EQ(setFor({"Gone"}, 8), 2);
    sets.notes.sets.clear();
    EXPECT_EQ(setFor({}, 8), 2);
}
