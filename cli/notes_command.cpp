// `vw notes`: the rows of the commands below it, and the options that they take.
#include <CLI/CLI.hpp>

#include "cli/arguments.h"
#include "cli/command_table.h"
#include "cli/notes_commands.h"

// ---- Options that several have --------------------------------------------------------------------------------------

static void AddStrict(CLI::App& app, bool& strict, const char* argument) {
    app.add_flag("--strict", strict, std::string("understand ") + argument + " only as the window does");
}

static void AddOneSet(CLI::App& app, std::string& set, const char* help) {
    AddText(app, "--set", set, std::string(help) + "; needed if there are several")->type_name("NAME");
}

static void AddSomeSets(CLI::App& app, std::string& set) {
    AddText(app, "--set", set, "only of this note set")->type_name("NAME");
}

static void AddFormat(CLI::App& app, std::string& format) {
    app.add_option("--format", format, "of the file (default: by the end of its name)")
        ->type_name("html|md|txt|csv")
        ->check(CLI::IsMember({"html", "md", "txt", "csv"}).description(""));
}

// ---- Reading --------------------------------------------------------------------------------------------------------

static RunCommand PrepareSets(CLI::App&) {
    return [](Vw& vw) { return ListNoteSets(vw); };
}

static constexpr Command kSetsCommand = {
    .name = "sets",
    .help = "list the note sets",
    .prepare = PrepareSets,
};

static RunCommand PrepareShow(CLI::App& app) {
    const auto options = std::make_shared<NoteReadingOptions>();
    app.add_option("REF", options->words, "verses or ranges: \"Rom 8:28\", \"Rom 8\"")->required()->type_name("");
    AddSomeSets(app, options->set);
    AddStrict(app, options->strict, "REF");
    return [options](Vw& vw) { return ShowNotes(vw, *options); };
}

static constexpr Command kShowCommand = {
    .name = "show",
    .help = "show the notes of verses",
    .prepare = PrepareShow,
};

static void AddListing(CLI::App& app, NoteReadingOptions& options) {
    AddSomeSets(app, options.set);
    AddText(app, "--range", options.range, "only of these verses: \"Ge - Mal\", Ro, \"Mt 5 - 7\"")
        ->type_name("REF-REF");
    AddStrict(app, options.strict, "--range");
    app.add_flag("--part", options.part, "parts of words, too");
    app.add_flag("--refs", options.refs, "only the references, each once");
    app.add_flag("--full", options.full, "the whole notes");
}

static RunCommand PrepareList(CLI::App& app) {
    const auto options = std::make_shared<NoteReadingOptions>();
    app.add_option("--words", options->words, "only notes with all of these words")
        ->type_name("WORDS")
        ->expected(1, -1);
    AddListing(app, *options);
    return [options, &app](Vw& vw) {
        AllowOnlyOne(app, {"--refs", "--full"});
        return ListNotes(vw, *options);
    };
}

static constexpr Command kListCommand = {
    .name = "list",
    .help = "list verses with notes",
    .prepare = PrepareList,
    .details = "Each line has the verse, the set and the first line of the note.",
};

static RunCommand PrepareSearch(CLI::App& app) {
    const auto options = std::make_shared<NoteReadingOptions>();
    app.add_option("TEXT", options->words, "words in sequence, as the notes have them")->required()->type_name("");
    AddListing(app, *options);
    app.add_flag("--case", options->caseSensitive, "capitals matter");
    return [options, &app](Vw& vw) {
        AllowOnlyOne(app, {"--refs", "--full"});
        return SearchNotes(vw, *options);
    };
}

static constexpr Command kSearchCommand = {
    .name = "search",
    .help = "list notes with a text",
    .prepare = PrepareSearch,
    .details =
        "Finds what the window's Search Notes finds, but all of it at once. Each line has the verse, the set and a "
        "line "
        "of the note with the text in it, which is marked on a terminal.",
};

static RunCommand PrepareAbout(CLI::App& app) {
    const auto options = std::make_shared<NoteReadingOptions>();
    app.add_option("REF", options->words, "the verse: \"Rom 8:28\"")->required()->type_name("");
    AddSomeSets(app, options->set);
    AddStrict(app, options->strict, "REF");
    return [options](Vw& vw) { return ShowNotesAbout(vw, *options); };
}

static constexpr Command kAboutCommand = {
    .name = "about",
    .help = "list the notes that name a verse",
    .prepare = PrepareAbout,
    .details =
        "Finds what the window's Notes About This Verse finds: references in running text and in lists of references, "
        "also those to more verses. Each line has the set, the verse of the note and the line with the first such "
        "reference, which is marked on a terminal.",
};

// ---- Saving ---------------------------------------------------------------------------------------------------------

static void AddVerse(CLI::App& app, NoteSavingOptions& options) {
    app.add_option("REF", options.words, "the verse: \"Rom 8:28\"")->required()->type_name("");
    AddOneSet(app, options.set, "the note set");
    AddStrict(app, options.strict, "REF");
}

static RunCommand PrepareEdit(CLI::App& app) {
    const auto options = std::make_shared<NoteSavingOptions>();
    AddVerse(app, *options);
    return [options](Vw& vw) { return EditNote(vw, *options); };
}

static constexpr Command kEditCommand = {
    .name = "edit",
    .help = "edit the note of a verse in $VISUAL or $EDITOR",
    .prepare = PrepareEdit,
    .details =
        "The note is saved as the window saves it: its set has a backup of the day, and the text before stays among "
        "the earlier notes. If the note was changed elsewhere meanwhile, the editor opens again with both texts. What "
        "cannot be saved stays in the editor's file, whose name is told. The exit code is 1 if the text was not "
        "changed.",
};

static RunCommand PrepareHistory(CLI::App& app) {
    const auto options = std::make_shared<NoteSavingOptions>();
    AddVerse(app, *options);
    return [options](Vw& vw) { return ShowNoteHistory(vw, *options); };
}

static constexpr Command kHistoryCommand = {
    .name = "history",
    .help = "show the earlier notes of a verse",
    .prepare = PrepareHistory,
    .details = "The latest is the first.",
};

static RunCommand PrepareRestore(CLI::App& app) {
    const auto options = std::make_shared<NoteSavingOptions>();
    AddVerse(app, *options);
    app.add_option("--number", options->number, "of the earlier note, as history shows it (default: 1)")
        ->type_name("N")
        ->check(CLI::Range(1, 1000000).description(""));
    return [options](Vw& vw) { return RestoreNote(vw, *options); };
}

static constexpr Command kRestoreCommand = {
    .name = "restore",
    .help = "bring back an earlier note of a verse",
    .prepare = PrepareRestore,
    .details = "What it replaces becomes an earlier note itself.",
};

// ---- Exchange -------------------------------------------------------------------------------------------------------

static RunCommand PrepareExport(CLI::App& app) {
    const auto options = std::make_shared<NoteExchangeOptions>();
    AddText(app, "FILE", options->file, "the file to write; - for the output")->required()->type_name("");
    AddOneSet(app, options->set, "the note set");
    AddFormat(app, options->format);
    app.add_flag("--verse-texts", options->verseTexts, "in a web page, the text of each verse above its note");
    return [options](Vw& vw) { return ExportNotes(vw, *options); };
}

static constexpr Command kExportCommand = {
    .name = "export",
    .help = "write the notes of a set into a file for other programs",
    .prepare = PrepareExport,
    .details = "What is written can be imported again, byte for byte. A file that exists is replaced in one step.",
};

static RunCommand PrepareImport(CLI::App& app) {
    const auto options = std::make_shared<NoteExchangeOptions>();
    AddText(app, "FILE", options->file, "the file, or a folder of text files that are named by verses")
        ->required()
        ->type_name("");
    AddOneSet(app, options->set, "the note set that gets the notes");
    AddText(app, "--new", options->newSet, "a new note set that gets the notes")->type_name("NAME");
    AddFormat(app, options->format);
    app.add_option("--conflicts", options->conflicts,
                   "notes that were changed in both: both texts, keep the set's, take the file's (default: both)")
        ->type_name("both|keep|take")
        ->check(CLI::IsMember({"both", "keep", "take"}).description(""));
    app.add_flag("--dry-run", options->dryRun, "only tell what would be done");
    return [options, &app](Vw& vw) {
        AllowOnlyOne(app, {"--set", "--new"});
        return ImportNotes(vw, *options);
    };
}

static constexpr Command kImportCommand = {
    .name = "import",
    .help = "take notes from a file into a set",
    .prepare = PrepareImport,
    .details =
        "All notes are replaced in one step, and what they replace stays among the earlier notes. What is in the file "
        "and is no note of a verse is told on the stream of errors.",
};

// ---- Verifying ------------------------------------------------------------------------------------------------------

static RunCommand PrepareVerify(CLI::App& app) {
    const auto mends = std::make_shared<bool>(false);
    app.add_flag("--mend", *mends, "mend what can be mended, as the window does at its start");
    return [mends](Vw& vw) { return VerifyNotes(vw, *mends); };
}

static constexpr Command kVerifyCommand = {
    .name = "verify",
    .help = "examine the files of the note sets",
    .prepare = PrepareVerify,
    .details =
        "Tells what the window would tell at its start. Without --mend nothing is changed. The exit code is 3 if "
        "something is wrong and was not mended.",
};

// ---- All of them ----------------------------------------------------------------------------------------------------

static constexpr const Command* kNotesCommands[] = {
    &kSetsCommand,    &kListCommand,    &kShowCommand,   &kSearchCommand, &kAboutCommand,  &kEditCommand,
    &kHistoryCommand, &kRestoreCommand, &kExportCommand, &kImportCommand, &kVerifyCommand,
};

const Command kNotesCommand = {
    .name = "notes",
    .help = "read, search, edit and exchange notes",
    .details =
        "The notes are those of the window, which may be open meanwhile: what one saves, the other shows. "
        "Commands that only read change no file.",
    .commands = kNotesCommands,
};
