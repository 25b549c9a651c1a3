#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <set>

#include "resources/script_fixture.h"

using testing::ElementsAre;
using testing::HasSubstr;
using testing::Not;

namespace {

struct ExpectedControl {
    const char* dialog;
    int id;
    const char* kind;
    const char* text;  // as shown, without the access key
};

}  // namespace

static constexpr ExpectedControl kControls[] = {
    {"WORDSEARCH", 10, "COMBOBOX", "Word(s):"},
    {"WORDSEARCH", 11, "BS_AUTORADIOBUTTON", "all"},
    {"WORDSEARCH", 12, "BS_AUTORADIOBUTTON", "at least one"},
    {"WORDSEARCH", 13, "BS_AUTORADIOBUTTON", "only one"},
    {"WORDSEARCH", 14, "BS_AUTOCHECKBOX", "Case sensitive"},
    {"WORDSEARCH", 15, "BS_AUTOCHECKBOX", "Substring matches"},
    {"WORDSEARCH", 1, "DEFPUSHBUTTON", "OK"},
    {"WORDSEARCH", 2, "PUSHBUTTON", "Cancel"},
    {"WORDSEARCH", 20, "PUSHBUTTON", "Range..."},
    {"WORDSEARCH", 9, "PUSHBUTTON", "Help"},
    {"WORDLISTSEARCH", 10, "COMBOBOX", "Word(s):"},
    {"WORDLISTSEARCH", 11, "BS_AUTORADIOBUTTON", "all"},
    {"WORDLISTSEARCH", 12, "BS_AUTORADIOBUTTON", "at least one"},
    {"WORDLISTSEARCH", 13, "BS_AUTORADIOBUTTON", "only one"},
    {"WORDLISTSEARCH", 14, "BS_AUTOCHECKBOX", "Case sensitive"},
    {"WORDLISTSEARCH", 15, "BS_AUTOCHECKBOX", "Substring matches"},
    {"WORDLISTSEARCH", 19, "COMBOBOX", "Word list:"},
    {"WORDLISTSEARCH", 18, "PUSHBUTTON", "<< Add"},
    {"WORDLISTSEARCH", 1, "DEFPUSHBUTTON", "OK"},
    {"WORDLISTSEARCH", 2, "PUSHBUTTON", "Cancel"},
    {"WORDLISTSEARCH", 20, "PUSHBUTTON", "Range..."},
    {"WORDLISTSEARCH", 9, "PUSHBUTTON", "Help"},
    {"PHRASESEARCH", 10, "COMBOBOX", "Phrase:"},
    {"PHRASESEARCH", 14, "BS_AUTOCHECKBOX", "Case sensitive"},
    {"PHRASESEARCH", 1, "DEFPUSHBUTTON", "OK"},
    {"PHRASESEARCH", 2, "PUSHBUTTON", "Cancel"},
    {"PHRASESEARCH", 20, "PUSHBUTTON", "Range..."},
    {"PHRASESEARCH", 9, "PUSHBUTTON", "Help"},
    {"NEARSEARCH", 10, "COMBOBOX", "Words (* stands for any letters, ? for one letter):"},
    {"NEARSEARCH", 101, "LTEXT", ""},
    {"NEARSEARCH", 102, "BS_AUTORADIOBUTTON", "N words of each other"},
    {"NEARSEARCH", 103, "BS_AUTORADIOBUTTON", "one verse"},
    {"NEARSEARCH", 104, "BS_AUTORADIOBUTTON", "N verses of each other"},
    {"NEARSEARCH", 105, "EDITTEXT", "N, up to 50 words or 10 verses:"},
    {"NEARSEARCH", 106, "BS_AUTOCHECKBOX", "In the order typed"},
    {"NEARSEARCH", 14, "BS_AUTOCHECKBOX", "Case sensitive"},
    {"NEARSEARCH", 15, "BS_AUTOCHECKBOX", "Substring matches"},
    {"NEARSEARCH", 1, "DEFPUSHBUTTON", "OK"},
    {"NEARSEARCH", 2, "PUSHBUTTON", "Cancel"},
    {"NEARSEARCH", 20, "PUSHBUTTON", "Range..."},
    {"NEARSEARCH", 9, "PUSHBUTTON", "Help"},
    {"SETRANGE", 20, "EDITTEXT", "Range:"},
    {"SETRANGE", 21, "LTEXT", ""},
    {"SETRANGE", 101, "PUSHBUTTON", "O. T."},
    {"SETRANGE", 102, "PUSHBUTTON", "N. T."},
    {"SETRANGE", 103, "PUSHBUTTON", "Entire"},
    {"SETRANGE", 1, "DEFPUSHBUTTON", "OK"},
    {"SETRANGE", 2, "PUSHBUTTON", "Cancel"},
    {"SETRANGE", 9, "PUSHBUTTON", "Help"},
    {"GOTOVERSE", 10, "EDITTEXT", "Verse:"},
    {"GOTOVERSE", 21, "LTEXT", ""},
    {"GOTOVERSE", 1, "DEFPUSHBUTTON", "OK"},
    {"GOTOVERSE", 2, "PUSHBUTTON", "Cancel"},
    {"GOTOVERSE", 9, "PUSHBUTTON", "Help"},
    {"COPYVERSE", 20, "EDITTEXT", "Verse:"},
    {"COPYVERSE", 21, "LTEXT", ""},
    {"COPYVERSE", 1, "DEFPUSHBUTTON", "OK"},
    {"COPYVERSE", 2, "PUSHBUTTON", "Cancel"},
    {"COPYVERSE", 10, "PUSHBUTTON", "Format..."},
    {"COPYVERSE", 9, "PUSHBUTTON", "Help"},
    {"COPYRANGE", 20, "EDITTEXT", "Range:"},
    {"COPYRANGE", 21, "LTEXT", ""},
    {"COPYRANGE", 1, "DEFPUSHBUTTON", "OK"},
    {"COPYRANGE", 2, "PUSHBUTTON", "Cancel"},
    {"COPYRANGE", 10, "PUSHBUTTON", "Format..."},
    {"COPYRANGE", 9, "PUSHBUTTON", "Help"},
    {"SAVERANGE", 20, "EDITTEXT", "Range:"},
    {"SAVERANGE", 21, "LTEXT", ""},
    {"SAVERANGE", 11, "BS_AUTOCHECKBOX", "Include notes:"},
    {"SAVERANGE", 12, "COMBOBOX", "from set"},
    {"SAVERANGE", 1, "DEFPUSHBUTTON", "OK"},
    {"SAVERANGE", 2, "PUSHBUTTON", "Cancel"},
    {"SAVERANGE", 10, "PUSHBUTTON", "Format..."},
    {"SAVERANGE", 9, "PUSHBUTTON", "Help"},
    {"PRINTRANGE", 20, "EDITTEXT", "Range:"},
    {"PRINTRANGE", 21, "LTEXT", ""},
    {"PRINTRANGE", 11, "BS_AUTOCHECKBOX", "Include notes:"},
    {"PRINTRANGE", 12, "COMBOBOX", "from set"},
    {"PRINTRANGE", 1, "DEFPUSHBUTTON", "OK"},
    {"PRINTRANGE", 2, "PUSHBUTTON", "Cancel"},
    {"PRINTRANGE", 10, "PUSHBUTTON", "Format..."},
    {"PRINTRANGE", 9, "PUSHBUTTON", "Help"},
    {"ABORTDLG", 110, "DEFPUSHBUTTON", "Cancel"},
    {"ABORTDLG", 101, "CTEXT", ""},
    {"FORMAT", 10, "BS_AUTORADIOBUTTON", "Full (Eph 6:17 And take the helmet...)"},
    {"FORMAT", 11, "BS_AUTORADIOBUTTON", "Partial (6:17 And take the helmet...)"},
    {"FORMAT", 12, "BS_AUTORADIOBUTTON", "None (And take the helmet...)"},
    {"FORMAT", 13, "BS_AUTORADIOBUTTON", "Full (Eph 6:17 And take the helmet...)"},
    {"FORMAT", 14, "BS_AUTORADIOBUTTON", "Partial (17 And take the helmet...)"},
    {"FORMAT", 15, "BS_AUTORADIOBUTTON", "None (And take the helmet...)"},
    {"FORMAT", 16, "BS_AUTORADIOBUTTON", "Before Verse"},
    {"FORMAT", 17, "BS_AUTORADIOBUTTON", "After Verse"},
    {"FORMAT", 18, "BS_AUTOCHECKBOX", "Linebreaks between verses"},
    {"FORMAT", 19, "BS_AUTOCHECKBOX", "Include paragraph marks (¶)"},
    {"FORMAT", 101, "BS_AUTOCHECKBOX", "Include brackets ([])"},
    {"FORMAT", 102, "LTEXT", ""},
    {"FORMAT", 1, "DEFPUSHBUTTON", "OK"},
    {"FORMAT", 2, "PUSHBUTTON", "Cancel"},
    {"FORMAT", 9, "PUSHBUTTON", "Help"},
    {"GOTONOTE", 10, "EDITTEXT", "Verse:"},
    {"GOTONOTE", 21, "LTEXT", ""},
    {"GOTONOTE", 1, "DEFPUSHBUTTON", "OK"},
    {"GOTONOTE", 2, "PUSHBUTTON", "Cancel"},
    {"GOTONOTE", 9, "PUSHBUTTON", "Help"},
    {"CREATENOTESET", 10, "EDITTEXT", "Name:"},
    {"CREATENOTESET", 1, "DEFPUSHBUTTON", "OK"},
    {"CREATENOTESET", 2, "PUSHBUTTON", "Cancel"},
    {"CREATENOTESET", 9, "PUSHBUTTON", "Help"},
    {"RENAMENOTESET", 10, "EDITTEXT", "New name:"},
    {"RENAMENOTESET", 1, "DEFPUSHBUTTON", "OK"},
    {"RENAMENOTESET", 2, "PUSHBUTTON", "Cancel"},
    {"RENAMENOTESET", 9, "PUSHBUTTON", "Help"},
    {"MERGESETS", 10, "COMBOBOX", "Merge:"},
    {"MERGESETS", 12, "COMBOBOX", "into:"},
    {"MERGESETS", 101, "LISTBOX",
     "Notes that are not equal, what becomes of them, and their texts in the set and in the copy:"},
    {"MERGESETS", 102, "EDITTEXT", "Text in the set:"},
    {"MERGESETS", 103, "EDITTEXT", "Text in the copy:"},
    {"MERGESETS", 104, "LTEXT", ""},
    {"MERGESETS", 1, "DEFPUSHBUTTON", "Merge"},
    {"MERGESETS", 2, "PUSHBUTTON", "Cancel"},
    {"MERGESETS", 9, "PUSHBUTTON", "Help"},
    {"SEARCHNOTES", 102, "EDITTEXT", "Find What:"},
    {"SEARCHNOTES", 14, "BS_AUTOCHECKBOX", "Case sensitive"},
    {"SEARCHNOTES", 15, "BS_AUTOCHECKBOX", "Substring Matches"},
    {"SEARCHNOTES", 1, "DEFPUSHBUTTON", "Find First"},
    {"SEARCHNOTES", 101, "PUSHBUTTON", "Find Next"},
    {"SEARCHNOTES", 20, "PUSHBUTTON", "Range..."},
    {"SEARCHNOTES", 2, "PUSHBUTTON", "Cancel"},
    {"SEARCHNOTES", 9, "PUSHBUTTON", "Help"},
    {"LISTNOTES", 10, "EDITTEXT", "Notes with these words (none: all notes):"},
    {"LISTNOTES", 15, "BS_AUTOCHECKBOX", "Substring matches"},
    {"LISTNOTES", 11, "BS_AUTORADIOBUTTON", "in the current set"},
    {"LISTNOTES", 12, "BS_AUTORADIOBUTTON", "in all sets"},
    {"LISTNOTES", 13, "BS_AUTOCHECKBOX", "only in the search range"},
    {"LISTNOTES", 1, "DEFPUSHBUTTON", "List"},
    {"LISTNOTES", 2, "PUSHBUTTON", "Cancel"},
    {"LISTNOTES", 20, "PUSHBUTTON", "Range..."},
    {"LISTNOTES", 9, "PUSHBUTTON", "Help"},
    {"EXPORTNOTES", 10, "COMBOBOX", "Notes of the set:"},
    {"EXPORTNOTES", 11, "COMBOBOX", "Format of the file:"},
    {"EXPORTNOTES", 12, "BS_AUTOCHECKBOX", "With the text of the verses"},
    {"EXPORTNOTES", 1, "DEFPUSHBUTTON", "OK"},
    {"EXPORTNOTES", 2, "PUSHBUTTON", "Cancel"},
    {"EXPORTNOTES", 9, "PUSHBUTTON", "Help"},
    {"IMPORTNOTES", 10, "EDITTEXT", "Notes from the file or folder:"},
    {"IMPORTNOTES", 11, "PUSHBUTTON", "File..."},
    {"IMPORTNOTES", 12, "PUSHBUTTON", "Folder..."},
    {"IMPORTNOTES", 13, "COMBOBOX", "into the set:"},
    {"IMPORTNOTES", 14, "EDITTEXT", "Name of the new set:"},
    {"IMPORTNOTES", 101, "LISTBOX", "Notes, what becomes of them, and their texts in the set and to import:"},
    {"IMPORTNOTES", 102, "ES_MULTILINE", "Text to import of the selected note:"},
    {"IMPORTNOTES", 103, "LTEXT", ""},
    {"IMPORTNOTES", 104, "BS_AUTORADIOBUTTON", "keep the set's"},
    {"IMPORTNOTES", 105, "BS_AUTORADIOBUTTON", "take the imported one"},
    {"IMPORTNOTES", 106, "BS_AUTORADIOBUTTON", "keep both"},
    {"IMPORTNOTES", 107, "PUSHBUTTON", "All Alike"},
    {"IMPORTNOTES", 1, "DEFPUSHBUTTON", "Import"},
    {"IMPORTNOTES", 2, "PUSHBUTTON", "Cancel"},
    {"IMPORTNOTES", 9, "PUSHBUTTON", "Help"},
    {"EARLIERNOTES", 101, "LISTBOX", "Earlier texts, latest first:"},
    {"EARLIERNOTES", 102, "ES_MULTILINE", "Text of the selected one:"},
    {"EARLIERNOTES", 1, "DEFPUSHBUTTON", "Restore"},
    {"EARLIERNOTES", 103, "PUSHBUTTON", "Copy"},
    {"EARLIERNOTES", 2, "PUSHBUTTON", "Close"},
    {"EARLIERNOTES", 9, "PUSHBUTTON", "Help"},
    {"EARLIERSTATES", 101, "LISTBOX", "Earlier states, latest first:"},
    {"EARLIERSTATES", 104, "LISTBOX", "Notes of the selected state that differ from today: then, and now"},
    {"EARLIERSTATES", 102, "ES_MULTILINE", "Text of the selected note then:"},
    {"EARLIERSTATES", 10, "EDITTEXT", "Restore the set as:"},
    {"EARLIERSTATES", 105, "PUSHBUTTON", "Restore Set"},
    {"EARLIERSTATES", 1, "DEFPUSHBUTTON", "Restore Note"},
    {"EARLIERSTATES", 2, "PUSHBUTTON", "Close"},
    {"EARLIERSTATES", 9, "PUSHBUTTON", "Help"},
    {"SEARCHPROGRESS", 101, "PBS_SMOOTH", "Progress"},
    {"LISTPROGRESS", 101, "PBS_SMOOTH", "Progress"},
    {"LISTPROGRESS", 2, "DEFPUSHBUTTON", "Cancel"},
    {"ABOUT", 101, "LTEXT", ""},
    {"ABOUT", 102, "LTEXT", ""},
    {"ABOUT", 103, "LTEXT", ""},
    {"ABOUT", 1, "DEFPUSHBUTTON", "OK"},
    {"SPLASHSCREEN", 111, "CTEXT", ""},
};

namespace {

struct ExpectedTitle {
    const char* dialog;
    const char* title;
};

}  // namespace

static constexpr ExpectedTitle kTitles[] = {
    {"WORDSEARCH", "Word Search"},
    {"WORDLISTSEARCH", "Word Search"},
    {"PHRASESEARCH", "Phrase Search"},
    {"NEARSEARCH", "Words Near Each Other"},
    {"SETRANGE", "Set Search Range"},
    {"GOTOVERSE", "Go To Verse"},
    {"COPYVERSE", "Copy Verse"},
    {"COPYRANGE", "Copy Range"},
    {"SAVERANGE", "Save Range"},
    {"PRINTRANGE", "Print Range"},
    {"ABORTDLG", "Printing..."},
    {"FORMAT", "Copy/Save Format"},
    {"GOTONOTE", "Go to Note for Verse"},
    {"CREATENOTESET", "Create New Note Set"},
    {"RENAMENOTESET", "Change name of note set"},
    {"MERGESETS", "Merge Sets"},
    {"SEARCHNOTES", "Search Note Set"},
    {"LISTNOTES", "List Notes"},
    {"EXPORTNOTES", "Export Notes"},
    {"IMPORTNOTES", "Import Notes"},
    {"EARLIERNOTES", "Earlier Notes"},
    {"EARLIERSTATES", "Earlier States of Note Sets"},
    {"SEARCHPROGRESS", "Searching..."},
    {"LISTPROGRESS", "Searching..."},
    {"ABOUT", "About Versewell97"},
    {"SPLASHSCREEN", ""},
};

static const DialogScript& Dialog(const std::string& name) {
    for (const DialogScript& dialog : Script().dialogs)
        if (dialog.name == name) return dialog;
    throw std::runtime_error("no dialog " + name);
}

static bool IsField(const DialogControl& control) {
    return control.kind == "COMBOBOX" || control.kind == "EDITTEXT" || control.kind == "LISTBOX" ||
           control.kind == "ES_MULTILINE";
}

static std::string WithoutAccessKey(std::string text) {
    std::erase(text, '&');
    return text;
}

// The text of a field is that of the label before it.
static std::string ShownText(const DialogScript& dialog, std::size_t place) {
    const DialogControl& control = dialog.controls[place];
    if (!IsField(control)) return WithoutAccessKey(control.text);
    if (place == 0 || dialog.controls[place - 1].kind != "LTEXT") return "(no label)";
    return WithoutAccessKey(dialog.controls[place - 1].text);
}

// A closed drop-down list is only as high as its field.
static int ClosedHeight(const DialogControl& control) {
    return control.styles.find("CBS_DROPDOWN") != std::string::npos ? 14 : control.height;
}

static bool Surrounds(const DialogControl& box, const DialogControl& control) {
    const bool isBox = box.kind == "GROUPBOX" || box.kind == "SS_ETCHEDFRAME";
    return isBox && box.x < control.x && box.y < control.y && control.x + control.width < box.x + box.width &&
           control.y + control.height < box.y + box.height;
}

static bool Overlap(const DialogControl& a, const DialogControl& b) {
    if (Surrounds(a, b)) return false;
    return a.x < b.x + b.width && b.x < a.x + a.width && a.y < b.y + ClosedHeight(b) && b.y < a.y + ClosedHeight(a);
}

TEST(Dialogs, HaveTheExpectedTitles) {
    for (const ExpectedTitle& expected : kTitles) EXPECT_EQ(Dialog(expected.dialog).title, expected.title);
}

TEST(Dialogs, HaveTheSystemsFontForDialogs) {
    const std::string text = FileText(VERSEWELL_SOURCE_DIR "/resources/dialogs.rc");
    std::size_t fonts = 0;
    for (std::size_t at = text.find("\nFONT "); at != std::string::npos; at = text.find("\nFONT ", at + 1), ++fonts)
        EXPECT_EQ(text.substr(at + 1, 22), "FONT 8, \"MS Shell Dlg\"");
    EXPECT_EQ(fonts, Script().dialogs.size());
    for (const DialogScript& dialog : Script().dialogs) EXPECT_THAT(dialog.styles, HasSubstr("DS_SHELLFONT"));
}

TEST(Dialogs, HaveTheExpectedControls) {
    for (const ExpectedControl& expected : kControls) {
        const DialogScript& dialog = Dialog(expected.dialog);
        int found = 0;
        for (std::size_t place = 0; place < dialog.controls.size(); ++place) {
            if (dialog.controls[place].id != expected.id) continue;
            ++found;
            EXPECT_EQ(dialog.controls[place].kind, expected.kind) << expected.dialog << " " << expected.id;
            EXPECT_EQ(ShownText(dialog, place), expected.text) << expected.dialog << " " << expected.id;
        }
        EXPECT_EQ(found, 1) << expected.dialog << " " << expected.id;
    }
}

TEST(Dialogs, SearchOptionsReadAsASentence) {
    for (const char* name : {"WORDSEARCH", "WORDLISTSEARCH"}) {
        std::vector<std::string> texts;
        const DialogScript& dialog = Dialog(name);
        for (std::size_t place = 2; place < 7; ++place) texts.push_back(WithoutAccessKey(dialog.controls[place].text));
        EXPECT_THAT(texts, ElementsAre("Find verses with", "all", "at least one", "only one", "of these words"));
    }
}

TEST(Dialogs, AccessKeysAreUnique) {
    for (const DialogScript& dialog : Script().dialogs) {
        std::set<char> taken;
        for (const DialogControl& control : dialog.controls) {
            const char key = AccessKey(control.text);
            if (key != 0) {
                EXPECT_TRUE(taken.insert(key).second) << dialog.name << ": " << control.text;
            }
        }
    }
}

TEST(Dialogs, AccessKeysReachEveryFieldAndChoice) {
    for (const DialogScript& dialog : Script().dialogs)
        for (std::size_t place = 0; place < dialog.controls.size(); ++place) {
            const DialogControl& control = dialog.controls[place];
            if (control.id <= 2 || control.kind == "DEFPUSHBUTTON") continue;  // statics, and Enter and Esc
            const std::string& text = IsField(control) ? dialog.controls.at(place - 1).text : control.text;
            if (control.kind != "CTEXT" && control.kind != "LTEXT" && control.kind != "PBS_SMOOTH") {
                EXPECT_NE(AccessKey(text), 0) << dialog.name << " " << control.id;
            }
        }
}

TEST(Dialogs, SearchOptionsAreOneGroup) {
    for (const char* name : {"WORDSEARCH", "WORDLISTSEARCH"}) {
        for (const DialogControl& control : Dialog(name).controls) {
            if (control.id == 11 || control.id == 14) {
                EXPECT_THAT(control.styles, HasSubstr("WS_GROUP"));
            }
            if (control.id == 12 || control.id == 13) {
                EXPECT_THAT(control.styles, Not(HasSubstr("WS_GROUP")));
            }
        }
    }
}

TEST(Dialogs, DistancesOfNearWordsAreOneGroup) {
    for (const DialogControl& control : Dialog("NEARSEARCH").controls) {
        if (control.id < 102 || control.id > 106) continue;
        const bool beginsGroup = control.id == 102 || control.id == 106;
        EXPECT_EQ(control.styles.find("WS_GROUP") != std::string::npos, beginsGroup) << control.text;
    }
}

// Two groups for the parts of the labels and one for their location, in one group box.
TEST(Dialogs, FormatOptionsAreThreeGroups) {
    const DialogScript& format = Dialog("FORMAT");
    const auto preview = std::ranges::find(format.controls, "SS_ETCHEDFRAME", &DialogControl::kind);
    ASSERT_NE(preview, format.controls.end());
    EXPECT_TRUE(Surrounds(*preview, *std::next(preview))) << "with a margin";
    const DialogControl& box = format.controls.at(0);
    EXPECT_EQ(box.kind, "GROUPBOX");
    EXPECT_EQ(box.text, "Verse Labels");
    for (const DialogControl& control : format.controls) {
        if (control.id < 10) continue;
        const bool isLabel = control.id <= 17;
        const bool beginsGroup = control.id == 10 || control.id == 13 || control.id == 16 || control.id == 18;
        EXPECT_EQ(Surrounds(box, control), isLabel) << control.text;
        EXPECT_EQ(control.styles.find("WS_GROUP") != std::string::npos, beginsGroup) << control.text;
    }
}

TEST(Dialogs, NoteSetListsDoNotAllowTyping) {
    for (const char* name : {"SAVERANGE", "PRINTRANGE", "MERGESETS", "EXPORTNOTES", "IMPORTNOTES"})
        for (const DialogControl& control : Dialog(name).controls) {
            if (control.kind != "COMBOBOX") continue;
            EXPECT_THAT(control.styles, HasSubstr("CBS_DROPDOWNLIST"));
            EXPECT_THAT(control.styles, HasSubstr("WS_VSCROLL"));
            EXPECT_THAT(control.styles, Not(HasSubstr("CBS_SORT")));  // in the order of the tabs
        }
}

TEST(Dialogs, ComboBoxesHaveTheRightStyle) {
    for (const char* name : {"WORDSEARCH", "WORDLISTSEARCH", "PHRASESEARCH", "NEARSEARCH"})
        for (const DialogControl& control : Dialog(name).controls) {
            if (control.kind != "COMBOBOX") continue;
            EXPECT_THAT(control.styles, HasSubstr(control.id == 19 ? "CBS_SIMPLE" : "CBS_DROPDOWN "));
            EXPECT_THAT(control.styles, HasSubstr("WS_VSCROLL"));
            EXPECT_THAT(control.styles, Not(HasSubstr("CBS_SORT")));  // in the order of the file, or newest first
        }
}

TEST(Dialogs, HaveMarginsAndNoOverlappingControls) {
    for (const DialogScript& dialog : Script().dialogs) {
        if (dialog.name == "SPLASHSCREEN") continue;  // its picture extends to the edges
        for (std::size_t i = 0; i < dialog.controls.size(); ++i) {
            const DialogControl& control = dialog.controls[i];
            EXPECT_GE(control.x, 7) << dialog.name << " " << control.text;
            EXPECT_GE(control.y, 7) << dialog.name << " " << control.text;
            EXPECT_LE(control.x + control.width, dialog.width - 7) << dialog.name << " " << control.text;
            EXPECT_LE(control.y + ClosedHeight(control), dialog.height - 7) << dialog.name << " " << control.text;
            for (std::size_t j = i + 1; j < dialog.controls.size(); ++j)
                EXPECT_FALSE(Overlap(control, dialog.controls[j])) << dialog.name << ": " << i << " and " << j;
        }
    }
}

TEST(Dialogs, ButtonsHaveTheSameSize) {
    for (const DialogScript& dialog : Script().dialogs)
        for (const DialogControl& control : dialog.controls)
            if (control.kind.ends_with("PUSHBUTTON")) {
                const bool isLong = control.text == "&Restore Note" || control.text == "Restore &Set";
                EXPECT_EQ(control.width, isLong ? 56 : 50) << dialog.name << " " << control.text;
                EXPECT_EQ(control.height, 14) << dialog.name << " " << control.text;
            }
}

TEST(Dialogs, SplashScreenHasNoCaption) {
    const DialogScript& splash = Dialog("SPLASHSCREEN");
    EXPECT_THAT(splash.styles, HasSubstr("WS_POPUP"));
    EXPECT_THAT(splash.styles, HasSubstr("DS_MODALFRAME"));
    EXPECT_THAT(splash.styles, HasSubstr("DS_CENTER"));
    EXPECT_THAT(splash.styles, Not(HasSubstr("WS_CAPTION")));
    EXPECT_EQ(splash.controls.at(0).text, "Title_BMP");
    EXPECT_LE(splash.controls[0].y + splash.controls[0].height, splash.controls.at(1).y);
}
