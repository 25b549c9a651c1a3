#include "tests/windows/note_steps.h"

#include <windows.h>

#include <richedit.h>

#include "resources/ids.h"
#include "tests/driver/remote_memory.h"
#include "tests/windows/note_set_files.h"
#include "tests/windows/passage_pane.h"

POINT PointOfCharacter(const Program& program, HWND richEdit, std::size_t offset) {
    const RemoteMemory memory(program, sizeof(POINTL));
    Ask(program, richEdit, EM_POSFROMCHAR, reinterpret_cast<WPARAM>(memory.address), static_cast<LPARAM>(offset));
    POINTL place{};
    ReadRemote(memory, &place, sizeof place);
    static constexpr LONG kWithinLine = 6;
    return {place.x + 1, place.y + kWithinLine};
}

HWND NoteEditorOf(const Program& program) {
    const HWND editor = FindWindowExA(program.frame, nullptr, "NOTEEDIT", nullptr);
    if (!editor) Fail(&program, "there is no note editor");
    return editor;
}

HWND NoteEditOf(const Program& program) {
    return Child(NoteEditorOf(program), {IDC_NOTE_EDIT});
}

void OpenNoteEditor(const Program& program) {
    Press(program, "Alt+e");
    if (!IsShown(NoteEditorOf(program))) Fail(&program, "the note editor does not open");
}

ScratchFolder FolderToEdit(const std::string& note) {
    const ScratchFolder folder = FolderWithScripture();
    WriteNoteSet(folder, "Mine", {{kEditedVerse, note}, {115, "Of another verse."}});
    for (const char* place : {"NoteVerse", "ReadVerse"})
        WriteSetting(folder, "MISC", place, std::to_string(kEditedVerse));
    return folder;
}

Program ProgramInEditor(const std::string& note) {
    Program program = StartProgram(FolderToEdit(note));
    OpenNoteEditor(program);
    return program;
}

std::string TextInEditor(const Program& program) {
    return TextOf(NoteEditOf(program));
}

std::string StoredEdit(const Program& program) {
    const std::string data = ReadFile(program.folder, "Mine.nmd");
    return data.substr(kEditedVerse, data.find('\0', kEditedVerse) - kEditedVerse);  // all notes before it are empty
}

std::wstring LettersOnClipboard() {
    if (!OpenClipboard(nullptr)) Fail(nullptr, "the clipboard is held by another");
    std::wstring text;
    if (const HANDLE block = GetClipboardData(CF_UNICODETEXT)) {
        text = static_cast<const wchar_t*>(GlobalLock(block));
        GlobalUnlock(block);
    }
    CloseClipboard();
    return text;
}

void ClickEditorButton(const Program& program, int button) {
    Click(program, Child(NoteEditorOf(program), {button}));
}

void DoubleClickNote(const Program& program, std::string_view text) {
    const HWND view = NoteViewOf(program);
    const std::size_t offset = TextOf(view).find(text);
    if (offset == std::string::npos) Fail(&program, "no \"" + std::string(text) + "\" in the note");
    DoubleClick(program, view, PointOfCharacter(program, view, offset));
}

void SaveRangeWithNotes(const Program& program, const char* range, const std::wstring& file) {
    Command(program, IDM_SAVE_RANGE);
    const HWND dialog = WaitForDialog(program, "Save Range");
    SetDlgItemTextA(dialog, IDC_RANGE, range);
    CheckDlgButton(dialog, IDC_INCLUDE_NOTES, BST_CHECKED);
    Press(program, "Enter");
    WaitForDialog(program, "Save As");
    SendMessageW(FocusOf(program), WM_SETTEXT, 0, reinterpret_cast<LPARAM>(file.c_str()));
    Press(program, "Enter");
    WaitForNoDialog(program);
}
