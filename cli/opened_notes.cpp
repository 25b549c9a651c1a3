#include "cli/opened_notes.h"

#include <algorithm>
#include <array>
#include <utility>

#include "cli/set_findings.h"
#include "cli/text_folder.h"
#include "cli/utf8.h"
#include "notes/letter_search.h"
#include "notes/note_lock.h"
#include "notes/note_source.h"

// ---- Opening --------------------------------------------------------------------------------------------------------

static bool HasSets(const NoteFiles& files) {
    static constexpr const char* kPatterns[] = {"*.nmd", "*.nmi", "*.nmd.temp"};
    return std::ranges::any_of(kPatterns,
                               [&](const char* pattern) { return !files.list(files.device, pattern).empty(); });
}

// Who reads what is left of them must not take it for all.
static void TellOfDamagedSets(const Vw& vw, const OpenedNotes& notes) {
    for (const NoteSet& set : notes.notes.sets)
        if (set.readOnly)
            Tell(vw,
                 "the note set \"" + Utf8Name(notes, set) + "\" is damaged: notes may be missing (vw notes verify)");
}

// Another program may just make the first set, or replace an index, which are there a moment later: it has the lock.
static OpenedSets OpenSets(const Surroundings& surroundings, const NoteFiles& files, OpenedNotes& notes,
                           NoteAccess access) {
    const auto open = [&] { return OpenNoteSets(notes.files, notes.notes, surroundings.now(surroundings.device)); };
    if (access != NoteAccess::kWrite) return open();
    NoteLock lock;
    if (files.list(files.device, "*.nmi").empty()) lock = LockNoteFiles(files);
    const OpenedSets opened = open();
    if (opened.created || lock.files) return opened;
    lock = LockNoteFiles(files);
    return open();
}

OpenedNotes OpenNotes(const Vw& vw, NoteAccess access) {
    const Surroundings& surroundings = vw.surroundings;
    OpenedNotes notes{WorkingFolder(vw), FolderArgument(vw), std::make_unique<ReadOnlyFiles>(), {}, {}, {}};
    const NoteFiles* const files = surroundings.noteFiles(surroundings.device, notes.folder);
    if (files == nullptr) throw Complaint{kFileTrouble, notes.argument + ": there is no folder " + notes.folder};
    notes.trial->files = *files;
    notes.trial->isTrial = true;
    const bool isTrial = access == NoteAccess::kRead || access == NoteAccess::kExamine;
    notes.files = isTrial ? DeviceOver(*notes.trial) : *files;
    if (access != NoteAccess::kWrite && !HasSets(*files)) return notes;
    notes.opened = OpenSets(surroundings, *files, notes, access);
    // Where only an index could not be made, the sets are there all the same.
    if (!notes.opened.created && access == NoteAccess::kWrite)
        throw Complaint{kFileTrouble, notes.argument + ": cannot create note sets in " + notes.folder};
    if (access == NoteAccess::kWrite && !notes.opened.report.empty())
        Tell(vw, Utf8OfNote(notes.files.codePage, notes.opened.report));
    if (access == NoteAccess::kRead) {
        CheckSets(notes.files, notes.notes, notes.opened);
        TellOfDamagedSets(vw, notes);
    }
    return notes;
}

// ---- Sets -----------------------------------------------------------------------------------------------------------

std::string Utf8Name(const OpenedNotes& notes, const NoteSet& set) {
    const CodePage& page = notes.files.codePage;
    return Utf8Of(page.lettersOf(page.device, NoteSetName(set)));
}

static std::string NamesOf(const OpenedNotes& notes) {
    std::string names;
    for (const NoteSet& set : notes.notes.sets) names += (names.empty() ? "" : ", ") + Utf8Name(notes, set);
    return names;
}

// Capitals do not count in names of files.
static NoteSet& SetNamed(OpenedNotes& notes, const std::string& name) {
    const CodePage& page = notes.files.codePage;
    std::string known;
    const bool isName = page.bytesOf(page.device, LettersOfUtf8(name), known);
    const int number = isName ? SetNamed(notes.notes, known) : kNoSet;
    if (number == kNoSet)
        throw Complaint{kBadUse, "--set: there is no note set \"" + name + "\", but " + NamesOf(notes)};
    return notes.notes.sets[static_cast<std::size_t>(number)];
}

std::vector<NoteSet*> SetsNamed(OpenedNotes& notes, const std::string& name) {
    if (!name.empty()) return {&SetNamed(notes, name)};
    std::vector<NoteSet*> sets;
    for (NoteSet& set : notes.notes.sets) sets.push_back(&set);
    return sets;
}

NoteSet& OneSetNamed(OpenedNotes& notes, const std::string& name) {
    if (!name.empty()) return SetNamed(notes, name);
    if (notes.notes.sets.empty())
        throw Complaint{kFileTrouble, notes.argument + ": there are no note sets in " + notes.folder};
    if (notes.notes.sets.size() > 1) throw Complaint{kBadUse, "--set: which one of " + NamesOf(notes) + '?'};
    return notes.notes.sets.front();
}

// ---- Notes ----------------------------------------------------------------------------------------------------------

std::string PlainNote(const OpenedNotes& notes, const std::string& note) {
    return WithPlainLineEnds(Utf8OfNote(notes.files.codePage, note));
}

static std::string ValidUtf8(std::string_view typed) {
    std::u32string letters;
    while (!typed.empty()) {
        const auto letter = TakeLetter(typed);
        if (!letter) typed.remove_prefix(1);
        letters += letter.value_or(0xFFFD);
    }
    return Utf8Of(letters);
}

std::string AsNote(const OpenedNotes& notes, const std::string& utf8) {
    return NoteOfLetters(notes.files.codePage, LettersOfUtf8(ValidUtf8(utf8)));
}

void ComplainOfReading(const OpenedNotes& notes, const NoteSet& set) {
    throw Complaint{kFileTrouble, notes.argument + ": cannot read the note set \"" + Utf8Name(notes, set) + '"'};
}

void CheckReadable(const OpenedNotes& notes, NoteSet& set) {
    if (!CanReadNotes(notes.files, set)) ComplainOfReading(notes, set);
}

int CountNotes(const OpenedNotes& notes, const NoteSet& set) {
    int count = 0;
    for (int verse = 0; verse <= kLastVerse; ++verse) count += NoteExists(notes.files, set, verse) ? 1 : 0;
    return count;
}

std::string NoteOf(OpenedNotes& notes, NoteSet& set, int verse) {
    NoteReader reader{notes.files, set};
    const NoteSource source = SourceOf(reader);
    std::string note;
    if (source.noteOf(source.device, verse, note) == NoteFound::kUnreadable) ComplainOfReading(notes, set);
    return note;
}

// ---- Letters --------------------------------------------------------------------------------------------------------

static char16_t LetterOf(const CodePage& page, std::size_t code) {
    const char byte = static_cast<char>(code);
    const std::u16string letters = page.lettersOf(page.device, {&byte, 1});
    return letters.size() == 1 ? letters.front() : u'\0';
}

LetterTable LettersOfPage(const CodePage& page) {
    std::array<char16_t, 256> all{};
    for (std::size_t code = 0; code < all.size(); ++code) all[code] = LetterOf(page, code);
    LetterTable letters = AsciiLetters();
    for (std::size_t code = 0x80; code < all.size(); ++code) {
        if (all[code] == 0) continue;
        letters.inWords[code] = IsInWordLetter(all[code]);
        for (std::size_t capital = 0x80; capital < all.size(); ++capital)
            if (capital != code && SmallLetter(all[capital]) == all[code])
                letters.capitals[code] = static_cast<char>(capital);
    }
    return letters;
}

// ---- Output ---------------------------------------------------------------------------------------------------------

void PrintNote(Vw& vw, const std::string& heading, const std::string& text) {
    StyledText styled;
    AppendUtf8Styled(styled, heading, kReference);
    AppendUtf8Styled(styled, "\n" + text + "\n\n", kPlain);
    PrintStyled(vw.printer, styled);
}
