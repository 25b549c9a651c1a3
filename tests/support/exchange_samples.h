// Notes for the tests of the formats.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "exchange/exchanged_notes.h"
#include "tests/support/native_scripture.h"

inline ExchangeContext TestContext(const CodePage& page = {}) {
    return {TheRealScripture(), page};
}

inline int VerseAt(std::string_view book, int chapter, int verse) {
    for (int number = 1; number <= 66; ++number) {
        const int found = VerseLookup(TheRealScripture().records, number, chapter, verse);
        if (ReferenceText(TheRealScripture().records, found, BookForm::kName).starts_with(book)) return found;
    }
    return kNoVerse;
}

// The notes as an export has them, one below the other from Genesis 1:1 on.
inline ExchangedNotes Exported(const std::vector<std::string>& texts, const std::string& setName = "My Notes") {
    ExchangedNotes notes{setName, {}};
    for (const std::string& text : texts)
        notes.notes.push_back({static_cast<int>(notes.notes.size()), text, DigestOf(text)});
    return notes;
}

// Verse and text of each note.
using PlacedTexts = std::vector<std::pair<int, std::string>>;

inline PlacedTexts PlacedIn(const ExchangedNotes& notes) {
    PlacedTexts texts;
    for (const ExchangedNote& note : notes.notes) texts.emplace_back(note.verse, note.note);
    return texts;
}

// A code page in which 9D is no letter, 81 40 is one letter, and which has no others above 7F than those of Latin 1.
std::u16string LettersOfOddPage(void*, std::string_view bytes);
bool BytesOfOddPage(void*, std::u16string_view letters, std::string& bytes);
inline constexpr CodePage kOddPage = {nullptr, LettersOfOddPage, BytesOfOddPage};

// Notes that are hard to carry: the syntax of all formats, odd line ends, control characters, and bytes that are no
// letters.
std::vector<std::string> HardNotes();

// A text of pieces that mean something in one of the formats.
std::string RandomNote(unsigned seed);
