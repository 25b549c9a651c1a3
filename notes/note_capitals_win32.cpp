// Separate, because two dialogs look for texts in notes.
#include "notes/note_capitals_win32.h"

#include "notes/note_files_win32.h"
#include "win32/code_page.h"
#include "win32/windows_api.h"

LetterTable SystemLetters() {
    LetterTable letters = AsciiLetters();
    for (std::size_t code = 0; code < letters.capitals.size(); ++code) {
        letters.capitals[code] = static_cast<char>(code);
        CharUpperBuffA(&letters.capitals[code], 1);
        letters.inWords[code] = IsCharAlphaNumericA(static_cast<char>(code)) != 0;
    }
    return letters;
}

std::string TextInCapitals(const LetterTable& letters, const std::string& text) {
    const CodePage& page = TheNoteFiles().codePage;
    if (!IsInUtf8(text)) return InCapitals(letters, text);
    std::wstring capitals = Wide(LettersOfNote(page, text));
    CharUpperBuffW(capitals.data(), static_cast<DWORD>(capitals.size()));
    return NoteOfLetters(page, LettersOf(capitals), text);
}
