// The note sets of the window's folder, for the commands of `vw notes`.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "cli/command.h"
#include "notes/note_recovery.h"
#include "notes/read_only_files.h"
#include "notes/text_sweep.h"
#include "scripture/verse_records.h"

struct OpenedNotes {
    std::string folder;
    std::string argument;                  // what named it, for messages
    std::unique_ptr<ReadOnlyFiles> trial;  // over the files, so that reading changes none
    NoteFiles files;
    NoteSets notes;
    OpenedSets opened;  // what is wrong with them, or was mended
};

// kWrite mends what the window mends at its start, and says so on the stream of errors; without any set it makes the
// first one. kMend only mends. kRead changes no file: all notes are checked, what kMend would mend is mended in memory,
// and sets that are damaged beyond that are told on the stream of errors. kExamine is for those who check and tell
// everything themselves.
enum class NoteAccess { kRead, kExamine, kMend, kWrite };

// The sets of the folder that --folder names, or the usual one. Complains if there is no such folder.
OpenedNotes OpenNotes(const Vw& vw, NoteAccess access);

// The sets with this name in UTF-8, or all of them if it is empty; exactly one. Complain of --set.
std::vector<NoteSet*> SetsNamed(OpenedNotes& notes, const std::string& name);
NoteSet& OneSetNamed(OpenedNotes& notes, const std::string& name);

// The name in UTF-8, and the text of a note in UTF-8 with lines that end in LF.
std::string Utf8Name(const OpenedNotes& notes, const NoteSet& set);
std::string PlainNote(const OpenedNotes& notes, const std::string& note);

// What is typed in UTF-8, as notes have it.
std::string AsNote(const OpenedNotes& notes, const std::string& utf8);

// Complain of a set that cannot be read; if it cannot be.
[[noreturn]] void ComplainOfReading(const OpenedNotes& notes, const NoteSet& set);
void CheckReadable(const OpenedNotes& notes, NoteSet& set);

// How many notes a set has that can be read.
int CountNotes(const OpenedNotes& notes, const NoteSet& set);

// The note of a verse; empty if there is none. Complains if the set cannot be read.
std::string NoteOf(OpenedNotes& notes, NoteSet& set, int verse);

// Capitals, and letters and digits, of the code page. As the window's searches take them, so far as Unicode and the
// system agree.
LetterTable LettersOfPage(const CodePage& page);

// "Romans 8:28, My Notes" in the style of references, then the text of the note, and an empty line.
void PrintNote(Vw& vw, const std::string& heading, const std::string& text);
