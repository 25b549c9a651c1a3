// Separate from the view of the notes, because it needs no Windows.
#include "notes/beginning_of_note.h"

#include <algorithm>

static std::size_t EndOfLine(std::string_view note, std::size_t place) {
    const std::size_t end = note.find('\n', place);
    return end == std::string_view::npos ? note.size() : end + 1;
}

std::string_view BeginningOfNote(std::string_view note, const TextRoom& room) {
    const std::size_t columns = std::max<std::size_t>(room.columns, 1);
    std::size_t end = 0, rows = 0;
    while (end < note.size() && rows < room.rows) {
        const std::size_t next = EndOfLine(note, end);
        rows += (next - end + columns - 1) / columns;
        end = next;
    }
    return note.size() - end < end ? note : note.substr(0, end);
}
