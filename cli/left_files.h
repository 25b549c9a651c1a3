// Files that programs have left in the folder of the notes: by saves that were stopped, and by programs that keep a
// folder in step between machines.
#pragma once

#include <string>

#include "cli/diagnosis.h"

struct ExaminedFiles {
    const NoteFiles& files;   // on the disk
    const NoteFiles& mended;  // as they would be if they were mended
    std::string command;      // that mends them
};

// Adds them to what is kept, and to the troubles if something should become of them. The troubles already tell what is
// wrong with sets.
void LookForLeftFiles(const ExaminedFiles& examined, Diagnosis& diagnosis);
