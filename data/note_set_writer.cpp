#include "data/note_set_writer.h"

#include <cassert>
#include <string_view>

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

bool CutToNote(std::string& text) {
    if (text.size() <= kNoteTextLimit) return false;
    const std::size_t room = kNoteTextLimit - kParagraphEnd.size() - (sizeof(kRestIsMissing) - 1);
    std::size_t end = text.rfind(kParagraphEnd, room);
    if (end == std::string::npos || end == 0) end = text.find_last_of(" \r\n", room);
    if (end == std::string::npos || end == 0) end = room;
    text.resize(end);
    text.resize(text.find_last_not_of(" \r\n") + 1);
    text.append(kParagraphEnd).append(kRestIsMissing);
    return true;
}
