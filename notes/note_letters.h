// The letters of notes.
//
// A note is stored in the code page of the system. One with a letter that the code page lacks is stored in UTF-8 behind
// the mark EF BB BF. Neither has a zero byte, so both are the same to everything that only copies notes. A note that
// begins with the mark and is not valid UTF-8 behind it is one in the code page: such notes may be older than the mark.
// So is one of the mark alone, because it would be a note that is marked and counted, and shows nothing.
//
// Where letters count, for example in the editor, a note is UTF-16 in which every letter has its place.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

inline constexpr std::string_view kUtf8Mark = "\xEF\xBB\xBF";

// Latin 1: each byte is the letter of that number.
std::u16string LatinLetters(void* device, std::string_view bytes);
bool LatinBytes(void* device, std::u16string_view letters, std::string& bytes);

// The code page of the system. The program implements it with Windows; natively it is Latin 1.
struct CodePage {
    void* device = nullptr;  // passed to both

    // Every byte that is no letter in the code page becomes some other letter.
    std::u16string (*lettersOf)(void* device, std::string_view bytes) = LatinLetters;

    // Stores the letters as bytes; false if the code page lacks one of them.
    bool (*bytesOf)(void* device, std::u16string_view letters, std::string& bytes) = LatinBytes;
};

// Is the note stored in UTF-8?
bool IsInUtf8(std::string_view note);

std::u16string LettersOfNote(const CodePage& page, std::string_view note);

// The note with these letters as it is to be stored: in the code page if it has all of them. Half of a letter that
// UTF-16 writes in two becomes U+FFFD.
std::string NoteOfLetters(const CodePage& page, std::u16string_view letters);

// The same, but the bytes of `before` if these are its letters: a note that is not changed stays as it is stored.
std::string NoteOfLetters(const CodePage& page, std::u16string_view letters, std::string_view before);

// False if a byte of the note is no letter in the code page, so that the note cannot be stored again from its letters.
bool HasExactLetters(const CodePage& page, std::string_view note);

// The text of the note in UTF-8, without the mark.
std::string Utf8OfNote(const CodePage& page, std::string_view note);

// ---- Places in a note -----------------------------------------------------------------------------------------------

// How many letters (units of UTF-16) are before a place, given in bytes of the note.
std::size_t LettersBefore(const CodePage& page, std::string_view note, std::size_t place);

// The place behind so many letters, in bytes of the note. Never inside a letter of a UTF-8 note.
std::size_t PlaceBehind(const CodePage& page, std::string_view note, std::size_t letters);

// ---- Room -----------------------------------------------------------------------------------------------------------

// As much of the beginning of `letters` as leaves the note `before` + `letters` + `behind` at most `limit` bytes long.
// A letter of two units and a line end CR LF are not divided.
std::u16string_view FittingLetters(const CodePage& page, std::u16string_view before, std::u16string_view letters,
                                   std::u16string_view behind, std::size_t limit);

// ---- UTF-8 ----------------------------------------------------------------------------------------------------------

// The letter at the start of `text`, which is removed from it; nullopt if that is no valid UTF-8. `text` must not be
// empty.
std::optional<char32_t> TakeLetter(std::string_view& text);

// Half a letter becomes U+FFFD.
std::string Utf8Of(std::u16string_view letters);

// `utf8` must be valid.
std::u16string LettersOfUtf8(std::string_view utf8);
