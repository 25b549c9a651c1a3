// Where the tests run.
#pragma once

#include <string>

// Told by the environment of the test process (see tests/README.md); paths are Windows paths.
struct TestSurroundings {
    std::string program;     // VERSEWELL_PROGRAM: the program's file
    std::string data;        // VERSEWELL_DATA: folder of the scripture files
    std::string help;        // VERSEWELL_HELP: folder of the help as it lies beside the program
    std::string pictures;    // VERSEWELL_PICTURES: folder for pictures, the current one when not given
    std::string dater;       // VERSEWELL_AT_DATE: tests/at_date, which starts a program on another date
    std::string localizer;   // VERSEWELL_IN_LOCALE: tests/in_locale, which starts a program with another code page
    std::string pageReader;  // VERSEWELL_PAGE_TEXT: tests/page_text, which takes what a printer is given
    std::string fullDisk;    // VERSEWELL_FULL_DISK: a file that can be opened and takes no byte
};
const TestSurroundings& Surroundings();
