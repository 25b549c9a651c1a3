// Helpers for tests of notes: positions in a note, and the note editor.
#pragma once

#include <string>
#include <string_view>

#include "tests/driver/driver.h"

// Position of the character at `offset` in a rich edit, at half the height of its line.
POINT PointOfCharacter(const Program& program, HWND richEdit, std::size_t offset);

// The note editor and its edit control, whether shown or hidden.
HWND NoteEditorOf(const Program& program);
HWND NoteEditOf(const Program& program);

// A folder whose set "Mine" has this note of Genesis 3:2, where the notes and the Passage open, and one of another
// verse.
constexpr int kEditedVerse = 57;
ScratchFolder FolderToEdit(const std::string& note);

// The program on such a folder, with the note in the editor.
Program ProgramInEditor(const std::string& note);

// The text in the editor, and that note as it is stored.
std::string TextInEditor(const Program& program);
std::string StoredEdit(const Program& program);

// The clipboard's CF_UNICODETEXT, "" when there is none: the letters of a copied note.
std::wstring LettersOnClipboard();

// Saves the verses of `range` with their notes in the first set to the file with this name or path.
void SaveRangeWithNotes(const Program& program, const char* range, const std::wstring& file);

// Opens the editor for the current note with its key.
void OpenNoteEditor(const Program& program);

// Clicks one of the editor's buttons and waits until the program has processed it or shows a message box.
void ClickEditorButton(const Program& program, int button);

// Double clicks on the first occurrence of `text` in the note that is shown.
void DoubleClickNote(const Program& program, std::string_view text);
