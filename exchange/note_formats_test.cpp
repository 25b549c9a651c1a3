#include "exchange/note_formats.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <cstdint>
#include <functional>
#include <utility>
#include <vector>

#include "tests/support/exchange_samples.h"
#include "tests/support/tries.h"

using testing::IsEmpty;

static ExchangedNotes ThroughFormat(const NoteFormat& format, const ExchangeContext& context,
                                    const ExchangedNotes& notes, const ExportOptions& options = {}) {
    return format.read(context, format.write(context, notes, options));
}

static void ExpectTheSame(const ExchangedNotes& before, const ExchangedNotes& after) {
    EXPECT_EQ(after.error, "");
    EXPECT_THAT(after.unplaced, IsEmpty());
    ASSERT_EQ(after.notes.size(), before.notes.size());
    for (std::size_t i = 0; i < before.notes.size(); ++i) {
        EXPECT_EQ(after.notes[i].verse, before.notes[i].verse);
        EXPECT_EQ(after.notes[i].note, before.notes[i].note) << i;
        EXPECT_EQ(after.notes[i].digest, before.notes[i].digest);
    }
}

static const CodePage kPages[] = {{}, kOddPage};

TEST(NoteFormats, GiveHardNotesBack) {
    const ExchangedNotes notes = Exported(HardNotes());
    for (const CodePage& page : kPages)
        for (const NoteFormat& format : NoteFormats()) {
            SCOPED_TRACE(format.name);
            const ExchangedNotes after = ThroughFormat(format, TestContext(page), notes, {.hasVerseTexts = true});
            ExpectTheSame(notes, after);
            EXPECT_EQ(after.setName, "My Notes");
        }
}

// Also as the only note of a file, and as the first and the last one.
TEST(NoteFormats, GiveEachHardNoteBackAlone) {
    for (const std::string& note : HardNotes())
        for (const NoteFormat& format : NoteFormats()) {
            SCOPED_TRACE(testing::Message() << format.name << ": " << note.substr(0, 100));
            const ExchangedNotes notes = Exported({note});
            ExpectTheSame(notes, ThroughFormat(format, TestContext(), notes));
        }
}

TEST(NoteFormats, GiveRandomNotesBack) {
    const unsigned tries = Tried(30000u, 3000u);
    for (unsigned seed = 0; seed < tries; seed += 100) {
        std::vector<std::string> texts;
        for (unsigned i = 0; i < 100; ++i) texts.push_back(RandomNote(seed + i));
        const ExchangedNotes notes = Exported(texts);
        for (const NoteFormat& format : NoteFormats()) {
            SCOPED_TRACE(testing::Message() << format.name << " from " << seed);
            ExpectTheSame(notes, ThroughFormat(format, TestContext(kPages[seed / 100 % 2]), notes));
            if (HasFailure()) return;
        }
    }
}

TEST(NoteFormats, KeepTheNameOfTheSet) {
    for (const char* name :
         {"a", "Romans 8", "My, 'Notes'", "=== x", "# x", "caf\xE9", "&amp;", "Notes; a_b", "=1", "'-1", ""})
        for (const NoteFormat& format : NoteFormats()) {
            SCOPED_TRACE(testing::Message() << format.name << ": " << name);
            const ExchangedNotes notes = Exported({"x", "y"}, name);
            const ExchangedNotes after = ThroughFormat(format, TestContext(), notes);
            ExpectTheSame(notes, after);
            EXPECT_EQ(after.setName, name);
        }
}

// It comes from a file that anyone may have made.
TEST(NoteFormats, HaveNoNameThatNoSetCanHave) {
    for (const char* name : {"../a", "con", "a\\b", "a*"})
        for (const NoteFormat& format : NoteFormats())
            EXPECT_EQ(ThroughFormat(format, TestContext(), Exported({"x"}, name)).setName, "") << format.name;
}

TEST(NoteFormats, HaveNotesOfEveryVerse) {
    std::vector<std::string> texts;
    for (int verse = 0; verse < kVerseCount; ++verse) texts.push_back("n" + std::to_string(verse));
    const ExchangedNotes notes = Exported(texts);
    for (const NoteFormat& format : NoteFormats()) ExpectTheSame(notes, ThroughFormat(format, TestContext(), notes));
}

TEST(NoteFormats, AreFilesWithoutNotes) {
    for (const NoteFormat& format : NoteFormats()) {
        const ExchangedNotes after = ThroughFormat(format, TestContext(), Exported({}));
        EXPECT_THAT(after.notes, IsEmpty());
        EXPECT_EQ(after.error, "There are no notes in this file.") << format.name;
    }
}

// ---- Other editors --------------------------------------------------------------------------------------------------

static std::string Replaced(std::string text, std::string_view what, std::string_view with) {
    for (std::size_t at = text.find(what); at != std::string::npos; at = text.find(what, at + with.size()))
        text.replace(at, what.size(), with);
    return text;
}

static std::string InUtf16(std::string_view text) {
    std::string bytes = "\xFF\xFE";
    for (const char16_t unit : LettersOfUtf8(text.starts_with(kUtf8Mark) ? text.substr(3) : text)) {
        bytes += static_cast<char>(unit & 0xFF);
        bytes += static_cast<char>(unit >> 8);
    }
    return bytes;
}

TEST(NoteFormats, AreReadWithOtherLineEndsAndEncodings) {
    const ExchangedNotes notes = Exported({"two\r\nlines", "caf\xE9\r\n", std::string(kUtf8Mark) + "\xCE\xB1"});
    for (const NoteFormat& format : NoteFormats()) {
        SCOPED_TRACE(format.name);
        const std::string file = format.write(TestContext(), notes, {});
        const std::string withLf = Replaced(file, "\r\n", "\n");
        for (const std::string& changed :
             {withLf, Replaced(withLf, "\n", "\r\n"), Replaced(withLf, "\n", "\r"), InUtf16(file),
              file.starts_with(kUtf8Mark) ? file.substr(3) : std::string(kUtf8Mark) + file})
            ExpectTheSame(notes, format.read(TestContext(), changed));
    }
}

TEST(NoteFormats, AreReadInTheCodePage) {
    const ExchangedNotes notes = Exported({"caf\xE9 and \xFC"});
    for (const NoteFormat& format : NoteFormats()) {
        const std::string file = format.write(TestContext(), notes, {});
        std::string inPage;
        const std::string_view text = file.starts_with(kUtf8Mark) ? std::string_view(file).substr(3) : file;
        ASSERT_TRUE(LatinBytes(nullptr, LettersOfUtf8(text), inPage));
        ExpectTheSame(notes, format.read(TestContext(), inPage));
    }
}

// Any part of a file is read without a fault, and what is complete in it is there.
TEST(NoteFormats, AreReadAsFarAsTheyGo) {
    const ExchangedNotes notes = Exported({"first\r\nnote", "second, \"note\" <b>", "third"});
    for (const NoteFormat& format : NoteFormats()) {
        const std::string file = format.write(TestContext(), notes, {});
        for (std::size_t size = 0; size < file.size(); ++size) {
            const ExchangedNotes part = format.read(TestContext(), std::string_view(file).substr(0, size));
            for (const ExchangedNote& note : part.notes)
                if (note != part.notes.back()) {
                    EXPECT_EQ(note.note, notes.notes[static_cast<std::size_t>(note.verse)].note) << format.name;
                }
            EXPECT_TRUE(!part.notes.empty() || !part.unplaced.empty() || !part.error.empty());
        }
    }
}

static bool IsToldToBeCut(const ExchangedNotes& notes) {
    return std::ranges::any_of(notes.unplaced, [](const UnplacedText& text) {
        return text.reason == "The file ends before its end mark. It may have been cut, so that notes are missing.";
    });
}

TEST(NoteFormats, WithAnEndMarkTellThatTheyAreCut) {
    const ExchangedNotes notes =
        Exported({"first\r\nnote", "=== End ===\r\n<!-- end mark -->", " === End ===\r\n  <!-- end mark -->", "third"});
    for (const char* name : {"a.md", "a.txt"}) {
        const NoteFormat& format = *FormatNamed(name);
        const std::string file = format.write(TestContext(), notes, {});
        for (std::size_t size = file.find("Genesis"); size < file.size(); ++size) {
            const std::string_view part = std::string_view(file).substr(0, size);
            const bool isWhole = size + 2 >= file.size();  // without its last line end
            EXPECT_EQ(IsToldToBeCut(format.read(TestContext(), part)), !isWhole) << name << ": " << part;
        }
    }
}

// Notes that were added at the end of the file are read, but not other texts.
TEST(NoteFormats, MayGoOnBehindTheirEndMark) {
    for (const auto& [name, added] :
         {std::pair("a.md", "\n\n## Genesis 1:9\nnew\n"), std::pair("a.txt", "more\n=== Genesis 1:9 ===\nnew\n")}) {
        const NoteFormat& format = *FormatNamed(name);
        const ExchangedNotes after =
            format.read(TestContext(), format.write(TestContext(), Exported({"x"}), {}) + added);
        ASSERT_EQ(after.notes.size(), 2U);
        EXPECT_EQ(after.notes[0].note, "x");
        EXPECT_EQ(after.notes[1].note, "new");
        const bool hasMore = std::string_view(added).starts_with("more");
        ASSERT_EQ(after.unplaced.size(), hasMore ? 1U : 0U);
        if (hasMore) {
            EXPECT_EQ(after.unplaced[0].text, "more");
            EXPECT_EQ(after.unplaced[0].reason, "This stands behind the end of the notes.");
        }
    }
}

namespace {

struct ToldSteps {
    std::vector<int> steps;
    std::size_t most = SIZE_MAX;  // after which it is ended
};

}  // namespace

static ExchangeContext TellingContext(ToldSteps& told) {
    ExchangeContext context = TestContext();
    context.progress = {&told, [](void* device, int step) { static_cast<ToldSteps*>(device)->steps.push_back(step); },
                        [](void* device) {
                            const auto& each = *static_cast<ToldSteps*>(device);
                            return each.steps.size() < each.most;
                        }};
    return context;
}

TEST(NoteFormats, TellHowFarTheyAre) {
    const ExchangedNotes notes = Exported(std::vector<std::string>(3000, "a note"));
    for (const NoteFormat& format : NoteFormats()) {
        SCOPED_TRACE(format.name);
        ToldSteps writing, reading;
        const std::string file = format.write(TellingContext(writing), notes, {});
        ExpectTheSame(notes, format.read(TellingContext(reading), file));
        for (const std::vector<int>& steps : {writing.steps, reading.steps}) {
            EXPECT_GT(steps.size(), std::size_t{kExchangeSteps} * 9 / 10);
            EXPECT_EQ(steps.front(), 0);
            EXPECT_LT(steps.back(), kExchangeSteps);
            EXPECT_TRUE(std::ranges::is_sorted(steps, std::ranges::less_equal()));
        }
    }
}

TEST(NoteFormats, EndWhenTheUserWants) {
    const ExchangedNotes notes = Exported(std::vector<std::string>(3000, "a note"));
    for (const NoteFormat& format : NoteFormats()) {
        SCOPED_TRACE(format.name);
        const std::string file = format.write(TestContext(), notes, {});
        ToldSteps writing{{}, 10}, reading{{}, 10};
        format.write(TellingContext(writing), notes, {});
        const ExchangedNotes part = format.read(TellingContext(reading), file);
        EXPECT_EQ(writing.steps.size(), 10U);
        EXPECT_EQ(reading.steps.size(), 10U);
        EXPECT_LT(part.notes.size(), 100U);
    }
}

// ---- The table ------------------------------------------------------------------------------------------------------

TEST(NoteFormats, AreKnownByTheEndingsOfNames) {
    EXPECT_STREQ(FormatNamed("a.html")->name, "Web page");
    EXPECT_STREQ(FormatNamed("a.HTM")->name, "Web page");
    EXPECT_STREQ(FormatNamed("a.b.md")->name, "Markdown");
    EXPECT_STREQ(FormatNamed("a.markdown")->name, "Markdown");
    EXPECT_STREQ(FormatNamed("a.txt")->name, "Plain text");
    EXPECT_STREQ(FormatNamed("a.csv")->name, "Comma-separated values");
    EXPECT_EQ(FormatNamed("a"), nullptr);
    EXPECT_EQ(FormatNamed("html"), nullptr);
    EXPECT_EQ(FormatNamed(""), nullptr);
}
