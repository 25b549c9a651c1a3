// `vw notes edit`, `history` and `restore`.
#include "cli/asked_verses.h"
#include "cli/command_table.h"
#include "cli/draft.h"
#include "cli/note_objects.h"
#include "cli/notes_commands.h"
#include "cli/opened_notes.h"
#include "cli/text_folder.h"
#include "history/state_lines.h"
#include "notes/note_saving.h"

// ---- Saving ---------------------------------------------------------------------------------------------------------

namespace {

struct Voice {
    const Vw& vw;
    const OpenedNotes& notes;
};

}  // namespace

// Where the window's message speaks of its own buttons.
static std::string TextOfNotice(SaveNotice notice, const std::string& text) {
    static constexpr char kTooLong[] =
        "The note was also changed elsewhere meanwhile, and both texts together are too long for one note.";
    switch (notice) {
        case SaveNotice::kTooLong:
            return std::string(kTooLong) + " The other text stays, and it is among the earlier notes, too.";
        case SaveNotice::kCannotKeep: return kTooLong;
        default: return text;
    }
}

// If only other notes of the set have changed, the save goes on. Otherwise Retry would only try the same again, and a
// text that is too long to be put below the one that was saved elsewhere does not take its place.
static bool TellNotice(void* device, SaveNotice notice, const std::string& text) {
    if (notice == SaveNotice::kChangedOnDisk) return true;
    const Voice& voice = *static_cast<const Voice*>(device);
    Tell(voice.vw, Utf8OfNote(voice.notes.files.codePage, TextOfNotice(notice, text)));
    return false;
}

static NoteSaveResult Save(const Vw& vw, OpenedNotes& notes, const NoteSet& set, int verse, NoteEdit& edit) {
    SelectSet(notes.notes, static_cast<int>(&set - notes.notes.sets.data()));
    notes.notes.currentVerse = verse;
    Voice voice{vw, notes};
    return SaveNote(notes.files, {&voice, TellNotice}, notes.notes, edit, vw.surroundings.now(vw.surroundings.device));
}

// ---- Edit -----------------------------------------------------------------------------------------------------------

static std::string AsEdited(const OpenedNotes& notes, const std::string& text) {
    std::string lines;
    for (const char c : text) lines += c == '\n' ? "\r\n" : std::string(1, c);
    std::string note = AsNote(notes, lines);
    if (note.size() > kNoteTextLimit)
        throw Complaint{kFileTrouble,
                        "REF: a note has at most " + std::to_string(kNoteTextLimit) + " bytes; the note is as it was"};
    return note;
}

static std::string DraftText(const OpenedNotes& notes, const std::string& note) {
    const std::string text = PlainNote(notes, note);
    return text.empty() ? text : text + '\n';
}

// A note that was also changed elsewhere comes back to the editor with both texts, as in the window.
static ExitCode EditInto(const Vw& vw, OpenedNotes& notes, const NoteSet& set, int verse, NoteEdit& edit,
                         const Draft& draft) {
    const std::string plain = PlainNote(notes, edit.openedOn), text = EditDraft(vw, draft);
    if (text == plain) return kNothingFound;
    edit.text = AsEdited(notes, text);
    for (;;) {
        const NoteSaveResult result = Save(vw, notes, set, verse, edit);
        if (result == NoteSaveResult::kSaved) return kFound;
        if (result != NoteSaveResult::kMerged) throw Complaint{kFileTrouble, "REF: the note was not saved"};
        WriteDraft(vw, draft, DraftText(notes, edit.text));
        edit.text = AsEdited(notes, EditDraft(vw, draft));
    }
}

// Whatever goes wrong, what was typed stays in the editor's file.
static ExitCode EditInDraft(const Vw& vw, OpenedNotes& notes, const NoteSet& set, int verse, NoteEdit& edit) {
    const Draft draft = MakeDraft(vw, DraftText(notes, edit.openedOn));
    try {
        const ExitCode code = EditInto(vw, notes, set, verse, edit, draft);
        RemoveDraft(vw, draft);
        return code;
    } catch (const Complaint& complaint) {
        if (HasChanged(vw, draft))
            throw Complaint{complaint.code, complaint.text + "; what was typed is in " + draft.path};
        RemoveDraft(vw, draft);
        throw;
    }
}

ExitCode EditNote(Vw& vw, const NoteSavingOptions& options) {
    const Scripture scripture = TextOf(vw);
    const int verse = OneAskedVerse(vw, scripture.records, options.words, {options.strict});
    OpenedNotes notes = OpenNotes(vw, NoteAccess::kWrite);
    NoteSet& set = OneSetNamed(notes, options.set);
    NoteEdit edit{"", NoteOf(notes, set, verse)};
    if (set.readOnly) throw Complaint{kFileTrouble, "--set: the data file is damaged, so no note can be saved in it"};
    if (!HasExactLetters(notes.files.codePage, edit.openedOn))
        throw Complaint{kFileTrouble, "REF: the note has bytes that are no letters, which an editor would lose"};
    return EditInDraft(vw, notes, set, verse, edit);
}

// ---- History and restore --------------------------------------------------------------------------------------------

static std::vector<EarlierNote> TextsOf(const OpenedNotes& notes, const NoteSet& set, int verse) {
    return EarlierNotesOf(notes.files, NoteSetName(set), verse);
}

ExitCode ShowNoteHistory(Vw& vw, const NoteSavingOptions& options) {
    const Scripture scripture = TextOf(vw);
    const int verse = OneAskedVerse(vw, scripture.records, options.words, {options.strict});
    OpenedNotes notes = OpenNotes(vw, NoteAccess::kRead);
    const NoteSet& set = OneSetNamed(notes, options.set);
    const std::vector<EarlierNote> texts = TextsOf(notes, set, verse);
    StartPager(vw);
    for (std::size_t i = 0; i < texts.size(); ++i) {
        const EarlierNote& text = texts[i];
        if (vw.options.json)
            PrintEarlierObject(vw, notes, i + 1, text);
        else
            PrintNote(vw, std::to_string(i + 1) + ", " + ReasonText(text.reason), PlainNote(notes, text.text));
    }
    return texts.empty() ? kNothingFound : kFound;
}

ExitCode RestoreNote(Vw& vw, const NoteSavingOptions& options) {
    const Scripture scripture = TextOf(vw);
    const int verse = OneAskedVerse(vw, scripture.records, options.words, {options.strict});
    OpenedNotes notes = OpenNotes(vw, NoteAccess::kWrite);
    NoteSet& set = OneSetNamed(notes, options.set);
    const std::vector<EarlierNote> texts = TextsOf(notes, set, verse);
    if (static_cast<std::size_t>(options.number) > texts.size())
        throw Complaint{kNothingFound, "--number: there are " + std::to_string(texts.size()) + " earlier notes"};
    NoteEdit edit{texts[static_cast<std::size_t>(options.number) - 1].text, NoteOf(notes, set, verse)};
    if (Save(vw, notes, set, verse, edit) != NoteSaveResult::kSaved)
        throw Complaint{kFileTrouble, "REF: the note was not saved"};
    return kFound;
}
