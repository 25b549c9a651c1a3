// `vw notes edit`, which must never lose what was typed.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "cli/vw.h"
#include "notes/note_history.h"
#include "notes/note_saving.h"
#include "tests/support/fake_note_files.h"
#include "tests/support/fake_surroundings.h"

using testing::EndsWith;
using testing::HasSubstr;
using testing::IsEmpty;

static constexpr int kVerse = 0;  // Genesis 1:1

namespace {

struct NotesEditTest : testing::Test {
    FakeNoteFiles disk;
    NoteFiles files = DeviceOver(disk);
    FakeSurroundings fake;
    int turns = 0;  // of the editor

    NotesEditTest() {
        AddFakeSet(disk, "Mine", {{kVerse, "one"}});
        fake.noteFiles = &files;
    }

    int Edit(const std::function<bool(std::string& bytes)>& type) {
        fake.edit = [&, type](std::string& bytes) {
            ++turns;
            return type(bytes);
        };
        return RunVw({"notes", "edit", "Ge 1:1"}, SurroundingsOver(fake));
    }

    int EditTo(const std::string& text) {
        return Edit([text](std::string& bytes) {
            bytes = text;
            return true;
        });
    }

    // As the window would, while the editor is open.
    void SaveElsewhere(int verse, const std::string& text) {
        NoteSets notes;
        FindNoteSets(files, notes);
        notes.currentVerse = verse;
        NoteEdit edit{text, Stored(verse)};
        SaveNote(files, {nullptr, [](void*, SaveNotice, const std::string&) { return true; }}, notes, edit, {});
    }

    std::string Stored(int verse = kVerse) {
        NoteSets notes;
        std::string text;
        FindNoteSets(files, notes);
        notes.currentVerse = verse;
        ReadStoredNote(files, notes, text);
        return text;
    }

    // The text is not in the set, but in the editor's file, whose name was told.
    void ExpectKept(int code, const std::string& typed) {
        EXPECT_EQ(code, 3);
        ASSERT_EQ(fake.drafts.size(), 1u) << fake.errors;
        EXPECT_EQ(fake.drafts.begin()->second, typed);
        EXPECT_THAT(fake.errors, EndsWith("; what was typed is in " + fake.drafts.begin()->first + "\n"));
    }
};

}  // namespace

TEST_F(NotesEditTest, StoresLinesAsTheWindow) {
    EXPECT_EQ(EditTo("two\nlines\n"), 0) << fake.errors;
    EXPECT_EQ(Stored(), "two\r\nlines");
    EXPECT_THAT(fake.drafts, IsEmpty());
    EXPECT_EQ(EditTo("two\r\nlines\r\n\r\n"), 0);
    EXPECT_EQ(Stored(), "two\r\nlines\r\n");
    EXPECT_EQ(EditTo("old\rends\r"), 0);
    EXPECT_EQ(Stored(), "old\r\nends");
}

TEST_F(NotesEditTest, StoresOtherLettersInUtf8) {
    EXPECT_EQ(EditTo("Gr\xC3\xBC\xC3\x9F"
                     "e\n"),
              0);
    EXPECT_EQ(Stored(),
              "Gr\xFC\xDF"
              "e");
    EXPECT_EQ(EditTo("λόγος\n"), 0);
    EXPECT_EQ(Stored(), "\xEF\xBB\xBFλόγος");
    std::string shown;
    Edit([&](std::string& bytes) {
        shown = bytes;
        return true;
    });
    EXPECT_EQ(shown, "λόγος\n");
}

TEST_F(NotesEditTest, GivesEditorsOfWindowsTheirLines) {
    fake.draftsAreOfWindows = true;
    EXPECT_EQ(Edit([](std::string& bytes) {
                  EXPECT_EQ(bytes, "\xEF\xBB\xBFone\r\n");
                  bytes += "zwei\r\n";
                  return true;
              }),
              0);
    EXPECT_EQ(Stored(), "one\r\nzwei");
    EXPECT_EQ(Edit([](std::string&) { return true; }), 1);
    EXPECT_THAT(fake.drafts, IsEmpty());
}

TEST_F(NotesEditTest, ChangesNothingWithoutAChange) {
    const auto before = disk.contents;
    EXPECT_EQ(Edit([](std::string&) { return true; }), 1);
    EXPECT_EQ(EditTo("one"), 1);
    EXPECT_EQ(Edit([](std::string&) { return false; }), 3);
    EXPECT_EQ(fake.errors, "vw: EDITOR: no editor, or it failed; the note is as it was\n");
    EXPECT_EQ(disk.contents, before);
    EXPECT_THAT(fake.drafts, IsEmpty()) << "nothing was typed";
}

TEST_F(NotesEditTest, KeepsWhatWasTypedIfTheEditorFails) {
    const int code = Edit([](std::string& bytes) {
        bytes = "typed";
        return false;
    });
    ExpectKept(code, "typed");
    EXPECT_EQ(Stored(), "one");
}

TEST_F(NotesEditTest, KeepsWhatIsNoNote) {
    for (const std::string& typed :
         {std::string("no \xFF UTF-8"), std::string("a zero \0 byte", 13), std::string(65534, 'x')}) {
        fake.drafts.clear();
        ExpectKept(EditTo(typed), typed);
        EXPECT_EQ(Stored(), "one");
    }
    fake.drafts.clear();
    EXPECT_EQ(EditTo(std::string(65533, 'x')), 0);
}

TEST_F(NotesEditTest, KeepsWhatCannotBeSaved) {
    disk.uncreatable.insert("Mine.nmd.temp");  // as in a folder that can only be read
    ExpectKept(EditTo("typed"), "typed");
    disk.uncreatable.clear();
    fake.drafts.clear();
    const int code = Edit([&](std::string& bytes) {
        disk.room = 100;
        bytes = "typed";
        return true;
    });
    ExpectKept(code, "typed");
    disk.room = -1;
    EXPECT_EQ(Stored(), "one");
}

TEST_F(NotesEditTest, KeepsWhatWasTypedIfTheSetVanishes) {
    const int code = Edit([&](std::string& bytes) {
        disk.contents.clear();
        bytes = "typed";
        return true;
    });
    ExpectKept(code, "typed");
}

TEST_F(NotesEditTest, GoesOnIfOtherNotesHaveChanged) {
    const int code = Edit([&](std::string& bytes) {
        SaveElsewhere(7, "seven");
        bytes = "typed";
        return true;
    });
    EXPECT_EQ(code, 0) << fake.errors;
    EXPECT_EQ(Stored(), "typed");
    EXPECT_EQ(Stored(7), "seven");
}

TEST_F(NotesEditTest, ShowsBothTextsOfANoteThatHasChanged) {
    const int code = Edit([&](std::string& bytes) {
        if (turns > 1) return true;
        SaveElsewhere(kVerse, "elsewhere");
        bytes = "typed";
        return true;
    });
    EXPECT_EQ(code, 0);
    EXPECT_EQ(turns, 2);
    EXPECT_EQ(Stored(), "typed\r\n----------------------------------------\r\nAlso written elsewhere:\r\nelsewhere");
    EXPECT_THAT(fake.drafts, IsEmpty());
}

// What was typed first is in the file, with or without the other text.
TEST_F(NotesEditTest, KeepsWhatWasTypedIfTheSecondTurnFails) {
    const auto typeAndFail = [&](std::string& bytes) {
        if (turns > 1) return false;
        SaveElsewhere(kVerse, "elsewhere " + std::to_string(disk.log.size()));
        bytes = "typed";
        return true;
    };
    EXPECT_EQ(Edit(typeAndFail), 3);
    ASSERT_EQ(fake.drafts.size(), 1u);
    EXPECT_THAT(fake.drafts.begin()->second, testing::StartsWith("typed\n-----"));
    EXPECT_THAT(fake.errors, EndsWith("; what was typed is in " + fake.drafts.begin()->first + "\n"));
    fake.drafts.clear();
    fake.canWriteDrafts = false;
    turns = 0;
    ExpectKept(Edit(typeAndFail), "typed");
}

TEST_F(NotesEditTest, KeepsBothTextsThatAreTooLongForOneNote) {
    const std::string elsewhere(40000, 'e'), typed(40000, 't');
    const int code = Edit([&](std::string& bytes) {
        SaveElsewhere(kVerse, elsewhere);
        bytes = typed;
        return true;
    });
    ExpectKept(code, typed);
    EXPECT_THAT(fake.errors, HasSubstr("together are too long for one note. The other text stays"));
    EXPECT_EQ(Stored(), elsewhere);
    const auto earlier = EarlierNotesOf(files, "Mine", kVerse);
    ASSERT_FALSE(earlier.empty());
    EXPECT_EQ(earlier.front().text, elsewhere);
}
