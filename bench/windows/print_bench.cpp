// Benchmarks printing a book on a printer of the system's own driver against a bare program that has the places of all
// words at hand and sends the same words to the same printer. The driver takes nearly all of the time, which differs
// much from run to run: the two print in turns, and the best run of each counts. Must be started in the folder of the
// scripture files.

#include <cstdio>
#include <numeric>

#include "bench/contest.h"
#include "bench/outcomes.h"
#include "print/printer_win32.h"
#include "print/printing_win32.h"
#include "scripture/scripture_win32.h"
#include "tests/windows/test_printer.h"
#include "win32/controls.h"

static constexpr int kRounds = 15;
static constexpr double kMostTimesFloor = 1.3;
static constexpr int kBook = 20;  // Proverbs, which is so short that many rounds can be made
static constexpr RECT kMargins{1000, 1000, 1000, 1000};
static constexpr wchar_t kPrinterName[] = L"Bench Printer";
static constexpr char kDocumentName[] = "Proverbs";

static LOGFONTA VerseFont() {
    LOGFONTA font{};
    font.lfHeight = 16;
    font.lfWeight = FW_NORMAL;
    lstrcpyA(font.lfFaceName, "Times New Roman");
    return font;
}

static std::vector<std::int32_t> Verses() {
    const int first = VerseLookup(theScripture.records, kBook, 0, 0);
    const int last = VerseLookup(theScripture.records, kBook, kLast, kLast);
    std::vector<std::int32_t> verses(static_cast<std::size_t>(last - first) + 1);
    std::iota(verses.begin(), verses.end(), first);
    return verses;
}

static OwnedDc PrinterDc() {
    return OwnedDc(CreateDCW(L"WINSPOOL", kPrinterName, nullptr, nullptr));
}

// ---- The program ----------------------------------------------------------------------------------------------------

// In place of the program's message box, which would wait for a user.
void Complain(HWND, const char* text, const char*) {
    Fail(nullptr, text);
}

static PrintedDocument Document() {
    return {kDocumentName, theScripture, Verses(), RangePrinting({}, {}, {}, nullptr), VerseFont(), VerseFont()};
}

static void PrintByProgram() {
    const HWND frame = CreateWindowA("STATIC", "", WS_POPUP, 0, 0, 100, 100, nullptr, nullptr, nullptr, nullptr);
    PrintDocument(frame, PrinterDc(), kMargins, Document());
    DestroyWindow(frame);
}

// ---- The floor ------------------------------------------------------------------------------------------------------

namespace {

// Words that stand side by side in one face, with the width of each letter.
struct PlacedRun {
    PrintFace face;
    int x, y, end;
    std::string text;
    std::vector<int> advances;
};

using PlacedPage = std::vector<PlacedRun>;

// A page that is not printed, but kept.
struct Placer {
    Printer printer;      // only for its faces
    PrinterPage measure;  // of the printer
    std::vector<PlacedPage> pages;
};

}  // namespace

static Placer& PlacerOf(void* device) {
    return *static_cast<Placer*>(device);
}

static int WidthIn(void* device, PrintFace face, std::string_view text) {
    const PrinterPage& measure = PlacerOf(device).measure;
    return measure.width(measure.device, face, text);
}

static int HeightOf(void* device, PrintFace face) {
    const PrinterPage& measure = PlacerOf(device).measure;
    return measure.height(measure.device, face);
}

static void Place(void* device, PrintFace face, int x, int y, int width, std::string_view text) {
    PlacedPage& page = PlacerOf(device).pages.back();
    const bool goesOn = !page.empty() && page.back().face == face && page.back().y == y && page.back().end == x;
    if (!goesOn) page.push_back({face, x, y, x, {}, {}});
    PlacedRun& run = page.back();
    run.text += text;
    run.end = x + width;
    for (const char letter : text) run.advances.push_back(WidthIn(device, face, {&letter, 1}));
}

static bool StartPlacing(void* device) {
    PlacerOf(device).pages.emplace_back();
    return true;
}

static bool EndPlacing(void* device) {
    std::ranges::stable_sort(PlacerOf(device).pages.back(), {}, &PlacedRun::face);
    return true;
}

static bool GoOn(void*) {
    return true;
}

static std::vector<PlacedPage> PlacedPages() {
    Placer placer;
    placer.printer.dc = PrinterDc();
    placer.measure = PageOf(placer.printer);
    MakeFaces(placer.printer, VerseFont(), VerseFont());
    const PrintedDocument document = Document();
    const PageMargins margins{kMargins.left, kMargins.top, kMargins.right, kMargins.bottom};
    const PageBox box = PageBoxFor(ResolutionOf(placer.printer.dc.get()), margins);
    PrintVerses(theScripture, document.verses, RangePrinting(box, {}, {}, nullptr),
                {&placer, WidthIn, HeightOf, Place, StartPlacing, EndPlacing, GoOn});
    return placer.pages;
}

using BareFonts = std::array<OwnedFont, kPrintFaceCount>;

static BareFonts MakeFonts(HDC dc) {
    BareFonts fonts;
    LOGFONTA record = VerseFont();
    record.lfHeight = PrinterFontHeight(record.lfHeight, 96, GetDeviceCaps(dc, LOGPIXELSY));
    for (int face = 0; face < kPrintFaceCount; ++face) {
        record.lfWeight = face == static_cast<int>(PrintFace::kBold) ? FW_BOLD : FW_NORMAL;
        record.lfItalic = face == static_cast<int>(PrintFace::kItalic);
        fonts[static_cast<std::size_t>(face)].reset(CreateFontIndirectA(&record));
    }
    return fonts;
}

static void PrintPage(HDC dc, const BareFonts& fonts, const PlacedPage& page) {
    StartPage(dc);
    SetBkMode(dc, TRANSPARENT);
    HFONT selected = nullptr;
    for (const PlacedRun& run : page) {
        const HFONT font = fonts[static_cast<std::size_t>(run.face)].get();
        if (selected != font) SelectObject(dc, selected = font);
        ExtTextOutA(dc, run.x, run.y, 0, nullptr, run.text.data(), static_cast<UINT>(run.text.size()),
                    run.advances.data());
    }
    EndPage(dc);
}

static void PrintBare(const std::vector<PlacedPage>& pages) {
    const OwnedDc dc = PrinterDc();
    DOCINFOA info{};
    info.cbSize = sizeof info;
    info.lpszDocName = kDocumentName;
    const BareFonts fonts = MakeFonts(dc.get());
    StartDocA(dc.get(), &info);
    for (const PlacedPage& page : pages) PrintPage(dc.get(), fonts, page);
    EndDoc(dc.get());
    SelectObject(dc.get(), GetStockObject(SYSTEM_FONT));
}

// ---- The rows -------------------------------------------------------------------------------------------------------

// What the printer was given.
template <typename Print>
static std::string BytesOf(const TestPrinter& printer, Print print) {
    std::filesystem::remove(printer.folder.path / kPrintedBytes);
    print();
    WaitUntil(Program{}, "the printed bytes", [&] { return HasFile(printer.folder, kPrintedBytes); });
    return ReadFile(printer.folder, kPrintedBytes);
}

static std::size_t PagesIn(const std::string& bytes) {
    static constexpr std::string_view kPage = "\n%%Page:";
    std::size_t count = 0;
    for (std::size_t at = bytes.find(kPage); at != bytes.npos; at = bytes.find(kPage, at + 1)) ++count;
    return count;
}

int main() {
    if (!LoadScripture(ScriptureDataFiles(), theScripture)) {
        std::fprintf(stderr, "print_bench: no scripture files in the current folder\n");
        return 1;
    }
    const ScratchFolder folder = EmptyFolder();
    const TestPrinter printer(folder, PortToBytes(folder), kPrinterName);
    const double start = Now();
    const std::vector<PlacedPage> pages = PlacedPages();
    const double placing = Now() - start;
    const auto bare = [&] { PrintBare(pages); };
    const std::string bytes = BytesOf(printer, PrintByProgram);
    const bool same = PagesIn(bytes) == pages.size() && !pages.empty() && bytes == BytesOf(printer, bare);
    const std::vector<double> times = BestTimesInTurns(kRounds, {PrintByProgram, bare});
    Print({.what = "printing the Proverbs, " + std::to_string(pages.size()) + " pages: a bare program",
           .time = times[0],
           .floor = times[1],
           .mostTimesFloor = kMostTimesFloor,
           .sameAnswer = same});
    PrintAmount("of it placing the words: the rest is the printer driver's", placing, "ms");
    return ExitCode();
}
