#include "data/note_set_writer.h"

#include <cassert>
#include <string_view>

#include "notes/note_letters.h"
#include "notes/note_saving.h"
#include "scripture/verse_records.h"

static constexpr std::string_view kParagraphEnd = "\r\n\r\n";

static constexpr const char* kMonths[] = {"January", "February", "March",     "April",   "May",      "June",
                                          "July",    "August",   "September", "October", "November", "December"};

std::size_t ReadingSlot(int month, int day, bool isEvening) {
    assert(month >= 1 && month <= 12 && day >= 1 && day <= 31);
    return static_cast<std::size_t>(((month - 1) * 31 + day - 1) * 2 + (isEvening ? 1 : 0));
}

std::string DayName(int month, int day) {
    assert(month >= 1 && month <= 12);
    return kMonths[month - 1] + (" " + std::to_string(day));
}

static void EncodeNotes(const NoteTexts& notes, std::string& index, std::string& data) {
    for (int verse = 0; verse < kVerseCount; ++verse) {
        AppendNumber(index, data.size(), 4);
        const auto note = notes.find(verse);
        if (note != notes.end()) data += note->second;
        data += '\0';
    }
}

std::vector<DataFile> EncodeNoteSet(const std::string& name, const NoteTexts& notes, const DevotionalTable* readings) {
    DataFile index{name + kIndexEnding, {}}, data{name + kDataEnding, {}}, table{name + kTableEnding, {}};
    EncodeNotes(notes, index.bytes, data.bytes);
    if (readings == nullptr) return {data, index};
    for (const int verse : *readings) AppendNumber(table.bytes, static_cast<unsigned>(verse), 4);
    return {data, table, index};
}

// `end`, or the place before it where the letter begins that `end` would divide.
static std::size_t BeforeLetter(const std::string& note, std::size_t end) {
    if (IsInUtf8(note))
        while ((static_cast<unsigned char>(note[end]) & 0xC0) == 0x80) --end;
    return end;
}

bool CutToNote(std::string& note) {
    if (note.size() <= kNoteTextLimit) return false;
    const std::size_t room = kNoteTextLimit - kParagraphEnd.size() - (sizeof(kRestIsMissing) - 1);
    std::size_t end = note.rfind(kParagraphEnd, room);
    if (end == std::string::npos || end == 0) end = note.find_last_of(" \r\n", room);
    if (end == std::string::npos || end == 0) end = BeforeLetter(note, room);
    note.resize(end);
    note.resize(note.find_last_not_of(" \r\n") + 1);
    note.append(kParagraphEnd).append(kRestIsMissing);
    return true;
}
