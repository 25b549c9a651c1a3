// What the commands below `vw notes` do, and the options that they take. The options are declared in
// cli/notes_command.cpp, so that only that file has to read the library of the arguments.
#pragma once

#include <string>
#include <vector>

#include "cli/command.h"

// ---- Reading (cli/notes_reading.cpp) --------------------------------------------------------------------------------

struct NoteReadingOptions {
    std::vector<std::string> words;  // references, or what is looked for
    std::string set;                 // empty: all
    std::string range;
    bool strict = false;
    bool part = false, caseSensitive = false;
    bool refs = false, full = false;
};

ExitCode ListNoteSets(Vw& vw);
ExitCode ShowNotes(Vw& vw, const NoteReadingOptions& options);
ExitCode ListNotes(Vw& vw, const NoteReadingOptions& options);
ExitCode SearchNotes(Vw& vw, const NoteReadingOptions& options);
ExitCode ShowNotesAbout(Vw& vw, const NoteReadingOptions& options);  // (cli/notes_about.cpp)

// ---- Saving (cli/notes_saving.cpp) ----------------------------------------------------------------------------------

struct NoteSavingOptions {
    std::vector<std::string> words;  // one reference
    std::string set;                 // needed if there are several
    int number = 1;                  // of the earlier note
    bool strict = false;
};

ExitCode EditNote(Vw& vw, const NoteSavingOptions& options);
ExitCode ShowNoteHistory(Vw& vw, const NoteSavingOptions& options);
ExitCode RestoreNote(Vw& vw, const NoteSavingOptions& options);

// ---- Exchange (cli/notes_exchange.cpp) ------------------------------------------------------------------------------

struct NoteExchangeOptions {
    std::string file;
    std::string set, newSet;
    std::string format;
    std::string conflicts = "both";
    bool verseTexts = false;
    bool dryRun = false;
};

ExitCode ExportNotes(Vw& vw, const NoteExchangeOptions& options);
ExitCode ImportNotes(Vw& vw, const NoteExchangeOptions& options);

// ---- Verifying (cli/notes_verifying.cpp) ----------------------------------------------------------------------------

ExitCode VerifyNotes(Vw& vw, bool mends);
