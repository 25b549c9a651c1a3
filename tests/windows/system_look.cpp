#include "tests/windows/system_look.h"

#include "tests/driver/look_probe.h"
#include "tests/driver/probe.h"
#include "tests/driver/remote_memory.h"
#include "tests/windows/note_set_files.h"
#include "tests/windows/search_steps.h"

ScratchFolder FolderWithTwoLines() {
    const ScratchFolder folder = FolderWithScripture();
    WriteNoteSet(folder, "Mine", {{0, "A note of the beginning.\r\nIts second line.\r\n"}});
    return folder;
}

Program StartWithList(const ScratchFolder& folder) {
    Program program = StartProgram(folder);
    SearchFor(program, {"grace"});
    ReleaseMouse(program);
    return program;
}

static constexpr COLORREF kBlack = RGB(0, 0, 0), kWhite = RGB(255, 255, 255), kGrey = RGB(128, 128, 128);

const ColorScheme kContrastBlack = {
    {COLOR_WINDOW, kBlack},
    {COLOR_WINDOWTEXT, kWhite},
    {COLOR_BTNFACE, kBlack},
    {COLOR_BTNTEXT, kWhite},
    {COLOR_HIGHLIGHT, RGB(26, 235, 255)},
    {COLOR_HIGHLIGHTTEXT, kBlack},
    {COLOR_GRAYTEXT, RGB(63, 242, 63)},
    {COLOR_HOTLIGHT, RGB(255, 255, 0)},
    {COLOR_MENU, kBlack},
    {COLOR_MENUBAR, kBlack},
    {COLOR_MENUTEXT, kWhite},
    {COLOR_SCROLLBAR, kBlack},
    {COLOR_BTNSHADOW, kGrey},
    {COLOR_BTNHIGHLIGHT, RGB(192, 192, 192)},
    {COLOR_3DLIGHT, kWhite},
    {COLOR_3DDKSHADOW, kWhite},
    {COLOR_INFOBK, kBlack},
    {COLOR_INFOTEXT, RGB(255, 255, 0)},
};

const ColorScheme kContrastWhite = {
    {COLOR_WINDOW, kWhite},
    {COLOR_WINDOWTEXT, kBlack},
    {COLOR_BTNFACE, kWhite},
    {COLOR_BTNTEXT, kBlack},
    {COLOR_HIGHLIGHT, RGB(55, 0, 110)},
    {COLOR_HIGHLIGHTTEXT, kWhite},
    {COLOR_GRAYTEXT, RGB(96, 0, 0)},
    {COLOR_HOTLIGHT, RGB(0, 0, 159)},
    {COLOR_MENU, kWhite},
    {COLOR_MENUBAR, kWhite},
    {COLOR_MENUTEXT, kBlack},
    {COLOR_SCROLLBAR, kWhite},
    {COLOR_BTNSHADOW, kGrey},
    {COLOR_BTNHIGHLIGHT, RGB(192, 192, 192)},
    {COLOR_3DLIGHT, kBlack},
    {COLOR_3DDKSHADOW, kBlack},
    {COLOR_INFOBK, kWhite},
    {COLOR_INFOTEXT, kBlack},
};

std::uint32_t InPicture(COLORREF color) {
    return static_cast<std::uint32_t>(GetRValue(color)) << 16 | static_cast<std::uint32_t>(GetGValue(color)) << 8 |
           GetBValue(color);
}

// ---- Colours --------------------------------------------------------------------------------------------------------

static SystemColorTable TableOf(const ColorScheme& scheme) {
    SystemColorTable table;
    for (const auto& [element, color] : scheme) {
        table.elements[table.count] = element;
        table.colors[table.count++] = color;
    }
    return table;
}

// Under Wine this process and programs that are started later have them then.
static void SetColors(const ColorScheme& scheme) {
    const SystemColorTable table = TableOf(scheme);
    SetSysColors(table.count, table.elements, table.colors);
}

static ColorScheme ColorsNow(const ColorScheme& scheme) {
    ColorScheme now;
    for (const auto& row : scheme) now.emplace_back(row.first, GetSysColor(row.first));
    return now;
}

SystemColors::SystemColors(const ColorScheme& scheme) : before(ColorsNow(scheme)) {
    SetColors(scheme);
}

SystemColors::SystemColors(const Program& program, const ColorScheme& scheme) : SystemColors(scheme) {
    const SystemColorTable table = TableOf(scheme);
    const RemoteMemory memory(program, sizeof table);
    WriteRemote(memory, &table, sizeof table);
    Probe probe;
    probe.question = ProbeQuestion::SetSystemColors;
    probe.memory = memory.address;
    if (AskProbe(program, probe).result == 0) Fail(&program, "the colours cannot be set");
    Settle(program);
}

SystemColors::~SystemColors() {
    SetColors(before);
}

// ---- Themes ---------------------------------------------------------------------------------------------------------

void TellSettingChange(const Program& program, WPARAM number, const char* name) {
    Ask(program, program.frame, WM_SETTINGCHANGE, number,
        reinterpret_cast<LPARAM>(name));  // the system copies the name
    Settle(program);
}

int ChooseMessageFont(const Program& program, int height) {
    Probe probe;
    probe.question = ProbeQuestion::MessageFont;
    probe.item = static_cast<UINT>(height);
    const int before = static_cast<int>(AskProbe(program, probe).result);
    Settle(program);
    return before;
}

void SetHighContrast(const Program& program, bool isOn) {
    Probe probe;
    probe.question = ProbeQuestion::HighContrast;
    probe.item = isOn;
    if (AskProbe(program, probe).result == 0) Fail(&program, "high contrast cannot be told");
    TellSettingChange(program, SPI_SETHIGHCONTRAST, "");
}

int DarkTitle(const Program& program) {
    Probe probe;
    probe.question = ProbeQuestion::DarkTitle;
    return static_cast<int>(AskProbe(program, probe).result);
}

static constexpr char kPersonalize[] = "Software\\Microsoft\\Windows\\CurrentVersion\\Themes\\Personalize";
static constexpr char kLightTheme[] = "AppsUseLightTheme";

PreferenceForApps::PreferenceForApps(bool isDark) {
    const DWORD light = !isDark;
    RegSetKeyValueA(HKEY_CURRENT_USER, kPersonalize, kLightTheme, REG_DWORD, &light, sizeof light);
}

PreferenceForApps::~PreferenceForApps() {
    RegDeleteKeyValueA(HKEY_CURRENT_USER, kPersonalize, kLightTheme);
}
