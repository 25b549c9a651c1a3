#include "tests/windows/test_printer.h"

#include <fstream>
#include <sstream>
#include <stdexcept>

#include <windows.h>

#include <winspool.h>

#include "notes/note_letters.h"
#include "resources/ids.h"

static constexpr wchar_t kDriverName[] = L"Test Printer";

// The printer description for the system's PostScript driver.
static constexpr char kDescription[] = R"PPD(*PPD-Adobe: "4.3"
*FormatVersion: "4.3"
*FileVersion: "1.0"
*LanguageVersion: English
*LanguageEncoding: ISOLatin1
*PCFileName: "TEST.PPD"
*Manufacturer: "Test"
*Product: "(Test)"
*ModelName: "Test Printer"
*ShortNickName: "Test Printer"
*NickName: "Test Printer"
*PSVersion: "(3010.000) 0"
*LanguageLevel: "2"
*ColorDevice: False
*DefaultColorSpace: Gray
*FileSystem: False
*TTRasterizer: Type42
*FreeVM: "8388608"
*DefaultResolution: 600dpi
*OpenUI *PageSize: PickOne
*OrderDependency: 10 AnySetup *PageSize
*DefaultPageSize: Letter
*PageSize Letter/Letter: "<</PageSize[612 792]/ImagingBBox null>>setpagedevice"
*PageSize A4/A4: "<</PageSize[595 842]/ImagingBBox null>>setpagedevice"
*CloseUI: *PageSize
*OpenUI *PageRegion: PickOne
*OrderDependency: 10 AnySetup *PageRegion
*DefaultPageRegion: Letter
*PageRegion Letter/Letter: "<</PageSize[612 792]/ImagingBBox null>>setpagedevice"
*PageRegion A4/A4: "<</PageSize[595 842]/ImagingBBox null>>setpagedevice"
*CloseUI: *PageRegion
*DefaultImageableArea: Letter
*ImageableArea Letter/Letter: "18 36 594 756"
*ImageableArea A4/A4: "18 36 577 806"
*DefaultPaperDimension: Letter
*PaperDimension Letter/Letter: "612 792"
*PaperDimension A4/A4: "595 842"
*DefaultFont: Courier
*Font Courier: Standard "(002.004S)" Standard ROM
)PPD";

static void Expect(bool done, const char* what) {
    if (!done) Fail(nullptr, std::string(what) + ", error " + std::to_string(GetLastError()));
}

static wchar_t* Text(const wchar_t* text) {
    return const_cast<wchar_t*>(text);  // the system's structures have no const pointers
}

static void AddDriver(const ScratchFolder& folder) {
    WriteFile(folder, "printer.ppd", kDescription);
    const std::wstring description = (folder.path / "printer.ppd").wstring();
    DRIVER_INFO_3W driver{};
    driver.cVersion = 3;
    driver.pName = Text(kDriverName);
    driver.pDriverPath = Text(L"wineps.drv");
    driver.pDataFile = Text(description.c_str());
    driver.pConfigFile = Text(L"wineps.drv");
    driver.pDefaultDataType = Text(L"RAW");
    Expect(
        AddPrinterDriverExW(nullptr, 3, reinterpret_cast<BYTE*>(&driver), APD_COPY_NEW_FILES | APD_COPY_FROM_DIRECTORY),
        "no printer driver");
}

TestPrinter::TestPrinter(const ScratchFolder& where, const std::string& port, const std::wstring& called)
    : folder(where), name(called) {
    AddDriver(folder);
    const std::wstring widePort(port.begin(), port.end());
    PRINTER_INFO_2W printer{};
    printer.pPrinterName = Text(name.c_str());
    printer.pPortName = Text(widePort.c_str());
    printer.pDriverName = Text(kDriverName);
    printer.pPrintProcessor = Text(L"WinPrint");
    printer.pDatatype = Text(L"RAW");
    const HANDLE added = AddPrinterW(nullptr, 2, reinterpret_cast<BYTE*>(&printer));
    Expect(added != nullptr, "no printer");
    ClosePrinter(added);
    Expect(SetDefaultPrinterW(name.c_str()), "no default printer");
}

TestPrinter::~TestPrinter() {
    HANDLE printer = nullptr;
    if (OpenPrinterW(Text(name.c_str()), &printer, nullptr)) {
        DeletePrinter(printer);
        ClosePrinter(printer);
    }
    WriteProfileStringA("windows", "device", nullptr);
}

// ---- Ports ----------------------------------------------------------------------------------------------------------

// Path of a file on Wine's host.
static std::string HostPath(const std::filesystem::path& path) {
    using UnixFileName = char*(CDECL*)(const wchar_t*);
    const auto unixFileName = reinterpret_cast<UnixFileName>(
        reinterpret_cast<void*>(GetProcAddress(GetModuleHandleA("kernel32.dll"), "wine_get_unix_file_name")));
    Expect(unixFileName != nullptr, "the tests of printing need Wine");
    char* name = unixFileName(path.c_str());
    const std::string host = name != nullptr ? name : "";
    HeapFree(GetProcessHeap(), 0, name);
    return host;
}

std::string PortToPages(const ScratchFolder& folder) {
    return "|" + HostPath(Surroundings().pageReader) + " " + HostPath(folder.path);
}

std::string PortToPageCount(const ScratchFolder& folder) {
    const std::string host = HostPath(folder.path);
    return "|grep -c '^%%Page:' >" + host + "/pages.new; mv " + host + "/pages.new " + host + "/pages.count";
}

std::string PortToBytes(const ScratchFolder& folder) {
    const std::string host = HostPath(folder.path);
    return "|cat >" + host + "/pages.new; mv " + host + "/pages.new " + host + "/" + kPrintedBytes;
}

// ---- Printed pages --------------------------------------------------------------------------------------------------

static std::string WithSingleBlanks(const std::string& text) {
    std::istringstream words(text);
    std::string line;
    for (std::string word; words >> word;) line += (line.empty() ? "" : " ") + word;
    return line;
}

std::vector<std::string> PrintedPagesInUtf8(const Program& program) {
    WaitUntil(program, "the printed pages", [&] { return HasFile(program.folder, "pages.txt"); });
    const std::string text = ReadFile(program.folder, "pages.txt");
    std::vector<std::string> pages;
    for (std::size_t start = 0; start < text.size();) {
        const std::size_t end = std::min(text.find('\f', start), text.size());
        pages.push_back(WithSingleBlanks(text.substr(start, end - start)));
        start = end + 1;
    }
    return pages;
}

std::vector<std::string> PrintedPages(const Program& program) {
    std::vector<std::string> pages = PrintedPagesInUtf8(program);
    for (std::string& page : pages) {
        const std::u16string letters = LettersOfUtf8(page);
        Expect(LatinBytes(nullptr, letters, page), "letters outside Latin-1 on the printed pages");
    }
    return pages;
}

int PrintedPageCount(const Program& program) {
    WaitUntil(program, "the number of pages", [&] { return HasFile(program.folder, "pages.count"); });
    return std::stoi(ReadFile(program.folder, "pages.count"));
}

std::vector<PrintedWord> PrintedWords(const Program& program) {
    PrintedPagesInUtf8(program);
    std::istringstream lines(ReadFile(program.folder, "pages.html"));
    std::vector<PrintedWord> words;
    for (std::string line; std::getline(lines, line);) {
        PrintedWord word;
        char text[200];
        if (std::sscanf(line.c_str(), " <word xMin=\"%lf\" yMin=\"%lf\" xMax=\"%lf\" yMax=\"%lf\">%199[^<]", &word.left,
                        &word.top, &word.right, &word.bottom, text) != 5)
            continue;
        word.text = text;
        words.push_back(word);
    }
    return words;
}

HWND OpenPrintRange(const Program& program) {
    Command(program, IDM_PRINT_RANGE);
    return WaitForDialog(program, "Print Range");
}

void AskForRange(const Program& program, const char* range) {
    SetDlgItemTextA(OpenPrintRange(program), IDC_RANGE, range);
    Press(program, "Enter");
}

HWND BeginPrinting(const Program& program, const char* range) {
    AskForRange(program, range);
    WaitForDialog(program, "Print");
    Press(program, "Enter");
    return WaitForDialog(program, "Printing...");
}

void AcceptPrinter(const Program& program) {
    WaitForDialog(program, "Print");
    Press(program, "Enter");
    WaitForNoDialog(program);
}
