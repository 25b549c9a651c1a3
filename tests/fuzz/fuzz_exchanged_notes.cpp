// Files of any bytes read as notes, and notes of any bytes written and read again. The first line of an input says
// which it is: the number of a format, a folder of one file whose name is the next line, or, beyond these, a note.
#include <algorithm>
#include <string>

#include "exchange/note_folder.h"
#include "exchange/note_formats.h"
#include "notes/note_saving.h"
#include "tests/fuzz/fuzz.h"
#include "tests/support/native_scripture.h"

static bool AreInOrder(const ExchangedNotes& notes) {
    const auto isNotBefore = [](const ExchangedNote& a, const ExchangedNote& b) { return a.verse >= b.verse; };
    return std::ranges::adjacent_find(notes.notes, isNotBefore) == notes.notes.end();
}

static void CheckNotes(const ExchangedNotes& notes) {
    Expect(AreInOrder(notes), "each verse has one note");
    for (const ExchangedNote& note : notes.notes) {
        Expect(note.verse >= 0 && note.verse < kVerseCount, "the verse exists");
        Expect(note.note.size() <= kNoteTextLimit && note.note.find('\0') == std::string::npos, "a set can store it");
    }
    for (const UnplacedText& text : notes.unplaced) Expect(!text.reason.empty(), "there is a reason");
    Expect(!notes.notes.empty() || !notes.unplaced.empty() || !notes.error.empty(), "nothing is passed over silently");
}

// What was read is an export from now on.
static void CheckWriting(const ExchangeContext& context, ExchangedNotes notes) {
    for (ExchangedNote& note : notes.notes) note.digest = DigestOf(note.note);
    for (const NoteFormat& format : NoteFormats()) {
        const std::string file = format.write(context, notes, {.hasVerseTexts = true});
        const ExchangedNotes again = format.read(context, file);
        Expect(again.unplaced.empty(), "all that is written has its place");
        Expect(std::ranges::equal(again.notes, notes.notes, {}, &ExchangedNote::note, &ExchangedNote::note),
               "what is written and read again is the same");
        Expect(std::ranges::equal(again.notes, notes.notes, {}, &ExchangedNote::verse, &ExchangedNote::verse) &&
                   std::ranges::equal(again.notes, notes.notes, {}, &ExchangedNote::digest, &ExchangedNote::digest),
               "so are its verse and its digest");
    }
}

static ExchangedNotes NotesOf(const ExchangeContext& context, std::string_view input) {
    const std::span<const NoteFormat> formats = NoteFormats();
    const int formatCount = static_cast<int>(formats.size());
    std::string_view line = TakeLine(input);
    const int kind = TakeNumber(line, 0, formatCount + 1);
    if (kind < formatCount) return formats[static_cast<std::size_t>(kind)].read(context, input);
    if (kind == formatCount) {
        const std::string name(TakeLine(input));
        const NamedText file[] = {{name, std::string(input)}};
        return ReadNoteFolder(context, file);
    }
    const std::string note(input.substr(0, std::min(input.find('\0'), kNoteTextLimit)));
    return {"set", {{0, note}, {kLastVerse, note}}};
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const ExchangeContext context{TheRealScripture()};
    const ExchangedNotes notes = NotesOf(context, TextOfInput(data, size));
    CheckNotes(notes);
    CheckWriting(context, notes);
    return 0;
}
