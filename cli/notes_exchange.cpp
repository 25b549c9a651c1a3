// `vw notes export` and `vw notes import`.
#include <algorithm>

#include "cli/command_table.h"
#include "cli/note_objects.h"
#include "cli/notes_commands.h"
#include "cli/opened_notes.h"
#include "cli/text_folder.h"
#include "exchange/import_lines.h"
#include "exchange/new_set_import.h"
#include "exchange/note_folder.h"
#include "exchange/note_formats.h"
#include "notes/note_lock.h"
#include "notes/note_set_changes.h"

static ExchangeContext ContextOf(const Scripture& scripture, const OpenedNotes& notes) {
    return {scripture, notes.files.codePage};
}

// ---- Export ---------------------------------------------------------------------------------------------------------

static const NoteFormat& FormatOf(const NoteExchangeOptions& options) {
    const std::string name = options.format.empty() ? options.file : "." + options.format;
    if (const NoteFormat* format = FormatNamed(name)) return *format;
    if (options.file == "-") throw Complaint{kBadUse, "--format: needed where the notes go to the output"};
    throw Complaint{kBadUse, "FILE: \"" + options.file + "\" ends in none of .html, .md, .txt, .csv (--format)"};
}

static void WriteExported(Vw& vw, const NoteExchangeOptions& options, const std::string& bytes) {
    if (options.file == "-") return Print(vw.printer, bytes);
    if (!vw.surroundings.writeFile(vw.surroundings.device, options.file, bytes))
        throw Complaint{kFileTrouble, "FILE: cannot write " + options.file};
}

// What is left of a damaged set does not replace a file that may have all of it.
static void CheckWhole(const OpenedNotes& notes, const NoteSet& set, const NoteExchangeOptions& options) {
    if (set.readOnly && options.file != "-")
        throw Complaint{kFileTrouble, "--set: the note set \"" + Utf8Name(notes, set) + "\" is damaged, and " +
                                          options.file + " was not written; with - as FILE what is left goes to the " +
                                          "output"};
}

ExitCode ExportNotes(Vw& vw, const NoteExchangeOptions& options) {
    const NoteFormat& format = FormatOf(options);
    if (options.verseTexts && !format.canHaveVerseTexts)
        throw Complaint{kBadUse, "--verse-texts: only in a web page (.html)"};
    const Scripture scripture = TextOf(vw);
    OpenedNotes notes = OpenNotes(vw, NoteAccess::kRead);
    NoteSet& set = OneSetNamed(notes, options.set);
    CheckWhole(notes, set, options);
    const auto exported = NotesToExport(notes.files, set);
    if (!exported) ComplainOfReading(notes, set);
    if (exported->notes.empty()) {
        Tell(vw, "There are no notes in this set.");
        return kNothingFound;
    }
    WriteExported(vw, options,
                  format.write(ContextOf(scripture, notes), *exported, {.hasVerseTexts = options.verseTexts}));
    if (options.file == "-") return set.readOnly ? kFileTrouble : kFound;
    if (vw.options.json)
        PrintExportedObject(vw, notes, set, exported->notes.size());
    else
        Print(vw.printer, ExportedText(*exported) + "\n");
    return kFound;
}

// ---- What is imported -----------------------------------------------------------------------------------------------

static bool EndsWith(const std::string& name, const char* pattern) {
    return name.ends_with(std::string_view(pattern).substr(1));
}

static ExchangedNotes ReadFolder(const Vw& vw, const ExchangeContext& context, const std::string& folder) {
    const Surroundings& surroundings = vw.surroundings;
    std::vector<NamedText> texts;
    for (const char* pattern : {"*.txt", "*.md"})
        for (const std::string& name : surroundings.list(surroundings.device, folder, pattern + 1)) {
            const auto bytes = surroundings.readFile(surroundings.device, PathIn(folder, name));
            if (!bytes) throw Complaint{kFileTrouble, "FILE: cannot read " + PathIn(folder, name)};
            if (EndsWith(name, pattern)) texts.push_back({name, *bytes});
        }
    if (texts.empty()) throw Complaint{kFileTrouble, "FILE: " + folder + " has no files that end in .txt or .md"};
    return ReadNoteFolder(context, texts);
}

static ExchangedNotes ReadFile(const Vw& vw, const ExchangeContext& context, const NoteExchangeOptions& options) {
    const Surroundings& surroundings = vw.surroundings;
    const NoteFormat& format = FormatOf(options);
    const auto bytes = surroundings.readFile(surroundings.device, options.file);
    if (!bytes) throw Complaint{kFileTrouble, "FILE: cannot read " + options.file};
    if (bytes->size() > kExchangeLimit) throw Complaint{kFileTrouble, "FILE: " + options.file + " is too large"};
    return format.read(context, *bytes);
}

static ExchangedNotes ReadAsked(const Vw& vw, const ExchangeContext& context, const NoteExchangeOptions& options) {
    const bool isFolder = vw.surroundings.noteFiles(vw.surroundings.device, options.file) != nullptr;
    ExchangedNotes read = isFolder ? ReadFolder(vw, context, options.file) : ReadFile(vw, context, options);
    if (!read.error.empty()) throw Complaint{kFileTrouble, "FILE: " + options.file + ": " + read.error};
    return read;
}

// ---- The plan -------------------------------------------------------------------------------------------------------

static ImportPlan PlanForNew(const OpenedNotes& notes, const NoteExchangeOptions& options, const ExchangedNotes& read) {
    const std::u16string typed = LettersOfNote(notes.files.codePage, AsNote(notes, options.newSet));
    const auto name = SetNameOf(notes.files, typed);
    const std::string inUse = NameInUse(notes.files, typed);
    const std::string problem = !inUse.empty() ? inUse
                                : name         ? ReasonAgainstNewSet(notes.files, notes.notes, *name)
                                               : kNameNotInCodePage;
    if (!problem.empty()) throw Complaint{kBadUse, "--new: " + Utf8OfNote(notes.files.codePage, problem)};
    return PlanForNewSet(*name, read);
}

static ImportPlan PlanFor(OpenedNotes& notes, const NoteExchangeOptions& options, const ExchangedNotes& read) {
    if (!options.newSet.empty()) return PlanForNew(notes, options, read);
    NoteSet& set = OneSetNamed(notes, options.set);
    auto plan = PlanImport(notes.files, set, read);
    if (!plan)
        throw Complaint{kFileTrouble,
                        "--set: the files of \"" + Utf8Name(notes, set) + "\" cannot be read, or they are damaged"};
    ChooseForAll(*plan, ImportKind::kConflict,
                 options.conflicts == "keep"   ? ImportChoice::kKeep
                 : options.conflicts == "take" ? ImportChoice::kTake
                                               : ImportChoice::kBoth);
    return *plan;
}

static void PrintPlan(Vw& vw, const OpenedNotes& notes, const VerseRecords& records, const ImportPlan& plan) {
    for (const PlannedNote& note : plan.notes) {
        if (vw.options.json)
            PrintImportedObject(vw, notes, records, note);
        else
            Print(vw.printer, ReferenceText(records, note.verse, BookForm::kAbbreviation) + ": " + KindText(note.kind) +
                                  ", " + ChoiceText(note) + "\n");
    }
    for (const UnplacedText& unplaced : plan.unplaced) Tell(vw, UnplacedLine(unplaced));
}

// ---- Import ---------------------------------------------------------------------------------------------------------

static ImportResult CarryOut(Vw& vw, OpenedNotes& notes, const NoteExchangeOptions& options, const ImportPlan& plan) {
    const NoteTime now = vw.surroundings.now(vw.surroundings.device);
    if (options.newSet.empty()) return ImportNotes(notes.files, notes.notes, plan, now);
    const NewSetImport done = ImportIntoNewSet(notes.files, notes.notes, plan, now);
    if (!done.problem.empty())
        throw Complaint{kFileTrouble, "--new: " + Utf8OfNote(notes.files.codePage, done.problem)};
    return done.result;
}

ExitCode ImportNotes(Vw& vw, const NoteExchangeOptions& options) {
    const Scripture scripture = TextOf(vw);
    OpenedNotes notes = OpenNotes(vw, options.dryRun ? NoteAccess::kRead : NoteAccess::kWrite);
    const ExchangedNotes read = ReadAsked(vw, ContextOf(scripture, notes), options);
    // Nobody is asked between the plan and the import, so other programs can wait for both.
    const NoteLock lock = options.dryRun ? NoteLock{} : LockNoteFiles(notes.files);
    const ImportPlan plan = PlanFor(notes, options, read);
    PrintPlan(vw, notes, scripture.records, plan);
    std::string report = PlanSummary(plan) + ".";
    if (!options.dryRun && ChangesOf(plan) > 0) {
        const ImportResult result = CarryOut(vw, notes, options, plan);
        report = Utf8OfNote(notes.files.codePage, ResultText(plan, result));
        if (result.end != ImportEnd::kImported) throw Complaint{kFileTrouble, "--set: " + report};
    }
    if (!vw.options.json) Print(vw.printer, report + "\n");
    return ChangesOf(plan) > 0 ? kFound : kNothingFound;
}
