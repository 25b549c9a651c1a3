// A printer that a test adds to the system and removes again, and the pages it printed.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "tests/driver/driver.h"

// The system's default printer while it exists: 600 dpi, Letter and A4, unprintable margins of a quarter inch left and
// right and half an inch above and below.
struct TestPrinter {
    TestPrinter(const ScratchFolder& folder, const std::string& port, const std::wstring& name = L"Test Printer");
    ~TestPrinter();
    TestPrinter(const TestPrinter&) = delete;
    TestPrinter& operator=(const TestPrinter&) = delete;

    ScratchFolder folder;
    std::wstring name;
};

// Ports: the first keeps the pages for the procedures below; the second only counts them, which is faster; the third
// fails, so that EndDoc returns an error.
std::string PortToPages(const ScratchFolder& folder);
std::string PortToPageCount(const ScratchFolder& folder);
inline constexpr char kFailingPort[] = "nul:";

// For benchmarks: a port that keeps what it is given, unread, as this file.
std::string PortToBytes(const ScratchFolder& folder);
inline constexpr char kPrintedBytes[] = "pages.ps";

// The words of each page in order, separated by single blanks. Waits for the pages of the last job. The first fails if
// a letter is not in Latin-1, which the text of the scripture is in.
std::vector<std::string> PrintedPages(const Program& program);
std::vector<std::string> PrintedPagesInUtf8(const Program& program);

// Number of pages of the last job on PortToPageCount. Waits for the number.
int PrintedPageCount(const Program& program);

// Words of the pages with their positions on the paper, in points from the upper left corner.
struct PrintedWord {
    double left = 0, top = 0, right = 0, bottom = 0;
    std::string text;  // with XML entities
};
std::vector<PrintedWord> PrintedWords(const Program& program);

// Opens Print Range; also presses OK for this range; also OK in the print dialog, and returns the dialog that is shown
// while it prints.
HWND OpenPrintRange(const Program& program);
void AskForRange(const Program& program, const char* range);
HWND BeginPrinting(const Program& program, const char* range);

// Presses OK in the print dialog and waits until the job is finished.
void AcceptPrinter(const Program& program);
