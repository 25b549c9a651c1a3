#include "tests/windows/menu_steps.h"

#include <algorithm>

static std::string Described(const MenuLine& line) {
    if (line.command == -1) return "> " + line.text;
    if (line.text.empty()) return "---";
    const char* state = line.state & MF_GRAYED ? " (greyed)" : line.state & MF_CHECKED ? " (ticked)" : "";
    return std::to_string(line.command) + " " + line.text + state;
}

std::vector<std::string> Described(const std::vector<MenuLine>& lines) {
    std::vector<std::string> described;
    for (const MenuLine& line : lines) described.push_back(Described(line));
    return described;
}

static std::vector<HWND> OpenMenus(const Program& program) {
    std::vector<HWND> menus = TopLevelWindows(program);
    std::erase_if(menus, [](HWND window) { return ClassOf(window) != "#32768"; });
    return menus;
}

int CountOpenMenus(const Program& program) {
    return static_cast<int>(OpenMenus(program).size());
}

RECT PlaceOfMenu(const Program& program) {
    const std::vector<HWND> menus = OpenMenus(program);
    if (menus.size() != 1) Fail(&program, std::to_string(menus.size()) + " menus are open");
    return RectOnScreen(menus[0]);
}

void LeaveMenu(const Program& program) {
    while (IsInMenu(program)) Press(program, "Esc");
}

static int LineIn(const Program& program, const std::vector<MenuLine>& lines, std::string_view text) {
    const auto found =
        std::ranges::find_if(lines, [text](const MenuLine& line) { return line.text.starts_with(text); });
    if (found == lines.end()) Fail(&program, "the open menu has no row \"" + std::string(text) + "\"");
    return static_cast<int>(found - lines.begin());
}

int LineOf(const Program& program, std::string_view text) {
    return LineIn(program, OpenMenuLines(program), text);
}

int LineOf(const Program& program, int submenu, std::string_view text) {
    return LineIn(program, OpenMenuLines(program, submenu), text);
}

// The arrow keys skip separators.
static void WalkDownTo(const Program& program, const std::vector<MenuLine>& lines, int line, int from) {
    for (int place = from; place <= line; ++place)
        if (!lines[static_cast<std::size_t>(place)].text.empty()) Press(program, "Down");
}

void ChooseRow(const Program& program, std::string_view text) {
    WalkDownTo(program, OpenMenuLines(program), LineOf(program, text), 0);
    Press(program, "Enter");
}

void ChooseRow(const Program& program, std::string_view submenu, std::string_view text) {
    const int place = LineOf(program, submenu);
    const int line = LineOf(program, place, text);
    WalkDownTo(program, OpenMenuLines(program), place, 0);
    Press(program, "Right");
    WalkDownTo(program, OpenMenuLines(program, place), line, 1);  // the submenu opens on its first row
    Press(program, "Enter");
}

void KeepPictureOfMenu(const Program& program, const std::string& name) {
    RECT area = RectOnScreen(program.frame);
    for (const HWND window : TopLevelWindows(program)) {
        const RECT place = RectOnScreen(window);
        UnionRect(&area, &area, &place);
    }
    SavePicture(PictureOfScreen(area), name);
}
