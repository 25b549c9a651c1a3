// A printer that a test adds to the system and takes away again, and what came out of it.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "tests/driver/driver.h"

// The system's default printer as long as it lives: 600 dots an inch, Letter and A4, a quarter of an inch left and
// right and half an inch above and below that cannot be printed on.
struct TestPrinter {
    TestPrinter(const ScratchFolder& folder, const std::string& port);
    ~TestPrinter();
    TestPrinter(const TestPrinter&) = delete;
    TestPrinter& operator=(const TestPrinter&) = delete;

    ScratchFolder folder;
};

// Ports: pages come out as files for the procedures below; are only counted, which is quick; or go nowhere, so that the
// document cannot be ended.
std::string PortToPages(const ScratchFolder& folder);
std::string PortToPageCount(const ScratchFolder& folder);
inline constexpr char kFailingPort[] = "nul:";

// The words of each page in their order, one blank between them. Waits for the pages of the last job.
std::vector<std::string> PrintedPages(const Program& program);

// How many pages the last job had, where they are only counted. Waits for the number.
int PrintedPageCount(const Program& program);

// Words of the pages with their places on the paper, in points from the upper left corner.
struct PrintedWord {
    double left = 0, top = 0, right = 0, bottom = 0;
    std::string text;  // as XML has it
};
std::vector<PrintedWord> PrintedWords(const Program& program);

// Presses OK in the print dialog and waits until the job is over.
void AcceptPrinter(const Program& program);
