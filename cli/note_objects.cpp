#include "cli/note_objects.h"

#include <nlohmann/json.hpp>

#include "cli/utf8.h"
#include "cli/verse_output.h"
#include "history/state_lines.h"

static nlohmann::ordered_json NoteObject(const char* kind, const OpenedNotes& notes, const NoteSet& set,
                                         const VerseRecords& records, int verse, const StyledText& text) {
    nlohmann::ordered_json object = {{"kind", kind},
                                     {"set", Utf8Name(notes, set)},
                                     {"reference", ReferenceText(records, verse, BookForm::kName)},
                                     {"index", verse},
                                     {"note", Utf8Of(text.letters)}};
    if (const auto marks = StretchesOf(text, kKeyWord); !marks.empty()) object["marks"] = marks;
    return object;
}

void PrintNoteObject(Vw& vw, const OpenedNotes& notes, const NoteSet& set, const VerseRecords& records, int verse,
                     const StyledText& text) {
    PrintObject(vw.printer, NoteObject("note", notes, set, records, verse, text));
}

void PrintAboutObject(Vw& vw, const OpenedNotes& notes, const NoteSet& set, const VerseRecords& records, int verse,
                      const StyledText& text, const VerseSpan& reference) {
    nlohmann::ordered_json object = NoteObject("about", notes, set, records, verse, text);
    object["names"] = SpanObject(records, reference);
    PrintObject(vw.printer, object);
}

void PrintReferenceObject(Vw& vw, const VerseRecords& records, int verse) {
    const std::string reference = ReferenceText(records, verse, BookForm::kAbbreviation);
    PrintObject(vw.printer, {{"kind", "reference"}, {"reference", reference}, {"index", verse}});
}

void PrintSetObject(Vw& vw, const OpenedNotes& notes, const NoteSet& set, int count) {
    PrintObject(vw.printer, {{"kind", "set"},
                             {"set", Utf8Name(notes, set)},
                             {"notes", count},
                             {"bytes", set.dataStamp.size},
                             {"damaged", set.readOnly}});
}

void PrintEarlierObject(Vw& vw, const OpenedNotes& notes, std::size_t number, const EarlierNote& text) {
    PrintObject(vw.printer, {{"kind", "earlier"},
                             {"number", number},
                             {"time", text.time},
                             {"reason", ReasonText(text.reason)},
                             {"note", PlainNote(notes, text.text)}});
}

void PrintExportedObject(Vw& vw, const OpenedNotes& notes, const NoteSet& set, std::size_t count) {
    PrintObject(vw.printer, {{"kind", "exported"}, {"set", Utf8Name(notes, set)}, {"notes", count}});
}

void PrintImportedObject(Vw& vw, const OpenedNotes& notes, const VerseRecords& records, const PlannedNote& note) {
    PrintObject(vw.printer, {{"kind", "imported"},
                             {"reference", ReferenceText(records, note.verse, BookForm::kAbbreviation)},
                             {"index", note.verse},
                             {"state", KindText(note.kind)},
                             {"change", ChoiceText(note)},
                             {"before", PlainNote(notes, note.mine)},
                             {"note", PlainNote(notes, note.imported)}});
}

void PrintFaultObject(Vw& vw, const std::string& text, bool isMended) {
    PrintObject(vw.printer, {{"kind", "fault"}, {"text", text}, {"mended", isMended}});
}
