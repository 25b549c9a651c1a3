// What a user may do with note sets, whatever their files hold.
#pragma once

#include "tests/fuzz/fuzz.h"
#include "tests/fuzz/seeds.h"
#include "tests/support/fake_note_files.h"

// Finds the sets as they are, without mending them, and reads, walks and follows their notes.
void ReadAsFound(FakeNoteFiles files);

// Opens the sets as the program does, reads them and saves `note`, which holds no NUL and is not too long, into them. A
// set that was whole before is whole afterwards, with all its other notes; one that was not has the bytes that it had.
void OpenReadAndSave(FakeNoteFiles files, const std::string& note = "a new note");
