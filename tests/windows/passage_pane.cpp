#include "tests/windows/passage_pane.h"

#include "resources/ids.h"

HWND PassageOf(const Program& program) {
    return Child(program.frame, {IDC_PASSAGE_TABS, IDC_PASSAGE});
}

HWND VerseListOf(const Program& program) {
    return Child(program.frame, {IDC_LIST_TABS, IDC_VERSE_LIST});
}

HWND NoteViewOf(const Program& program) {
    return Child(program.frame, {IDC_NOTE_TABS, IDC_NOTES, IDC_NOTE_VIEW});
}

ScratchFolder FolderOnlyPassage(int verse) {
    const ScratchFolder folder = FolderWithScripture();
    WriteSetting(folder, "VIEW", "VerseListWindow", "0");
    WriteSetting(folder, "VIEW", "NotesWindow", "0");
    WriteSetting(folder, "MISC", "ReadVerse", std::to_string(verse));
    for (const auto& [key, value] : {std::pair{"XPos", "20"}, {"YPos", "20"}, {"Width", "1200"}, {"Height", "600"}})
        WriteSetting(folder, "MISC", key, value);
    return folder;
}

std::string Top(const Program& program) {
    return StatusPart(program, 3);
}

void GoTo(const Program& program, std::string_view reference) {
    PostMessageA(program.frame, WM_COMMAND, IDM_GOTO_VERSE, 0);
    const HWND dialog = WaitForDialog(program, "Go To Verse");
    SetDlgItemTextA(dialog, IDC_REFERENCE, std::string(reference).c_str());
    PostMessageA(dialog, WM_COMMAND, IDOK, 0);
    WaitForNoDialog(program);
    Settle(program);
}

void ScrollPassage(const Program& program, UINT code, int thumb) {
    PostMessageA(PassageOf(program), WM_VSCROLL, MAKEWPARAM(code, thumb), 0);
    Settle(program);
}

int Thumb(const Program& program) {
    Settle(program);
    return VerticalScroll(program, PassageOf(program)).position;
}
