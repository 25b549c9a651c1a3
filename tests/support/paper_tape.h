// A printer that records what is printed on it, and what tests print.
#pragma once

#include <string>
#include <vector>

#include "print/print_flow.h"
#include "tests/support/hand_made_scripture.h"
#include "tests/support/notes_by_verse.h"

// A printer with letters ten wide and lines twenty high, or thirteen in the note face. It records its output: "(" and
// ")" for the beginning and end of a page, "b10,20:text|" for a text in the bold face.
struct PaperTape {
    std::string tape;
    int pages = 0;
    int failingPage = 0;     // counted from 1; 0: no page fails
    int patience = 1000000;  // number of verses after which the user cancels
    int italicHeight = 20;
};

PrinterPage PageOver(PaperTape& tape);

// What a test prints. The default page is so wide that nothing wraps.
struct PrintJob {
    std::vector<HandMadeVerse> verses;
    PageBox box{100, 1000, 10000, 9000};
    FormatOptions format;
    ReadingOptions reading;
    NotesByVerse notes;
    bool withNotes = false;
    bool asList = false;
    int tabDistance = 300;
};

PrintResult Print(const PrintJob& job, PaperTape& tape);

// What the tape has in the end. Expects the job to succeed.
std::string Printed(const PrintJob& job);

PrintJob RangeJob(std::vector<HandMadeVerse> verses, FormatOptions format = {});

// The format with these styles of the first label and the later ones.
FormatOptions LabelStyles(int first, int later);
