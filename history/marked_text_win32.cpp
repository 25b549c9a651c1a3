#include "history/marked_text_win32.h"

#include <cstdlib>
#include <initializer_list>

#include "history/text_difference.h"
#include "notes/note_files_win32.h"
#include "notes/notes_window.h"
#include "win32/plain_text.h"

static int Brightness(int color) {
    const COLORREF rgb = GetSysColor(color);
    return (2 * GetRValue(rgb) + 5 * GetGValue(rgb) + GetBValue(rgb)) / 8;
}

// The first of the system's colours that can be read on a window. Not every scheme sets those for links and for greyed
// text so that they can.
static int ReadableColor(std::initializer_list<int> colors) {
    static constexpr int kLeastDifference = 90;  // of 255
    for (const int color : colors)
        if (std::abs(Brightness(color) - Brightness(COLOR_WINDOW)) >= kLeastDifference) return color;
    return COLOR_WINDOWTEXT;
}

static void SetFormat(HWND richEdit, WPARAM range, DWORD effects, int color) {
    CHARFORMATA format{};
    format.cbSize = sizeof format;
    format.dwMask = CFM_UNDERLINE | CFM_STRIKEOUT | CFM_COLOR;
    format.dwEffects = effects;
    format.crTextColor = GetSysColor(color);
    SendMessageA(richEdit, EM_SETCHARFORMAT, range, reinterpret_cast<LPARAM>(&format));
}

static void Select(HWND richEdit, LONG begin, LONG end) {
    CHARRANGE range{begin, end};
    SendMessageA(richEdit, EM_EXSETSEL, 0, reinterpret_cast<LPARAM>(&range));
}

static void Mark(HWND richEdit, RunKind kind, LONG begin, LONG end) {
    if (kind == RunKind::kKept) return;
    const bool isGone = kind == RunKind::kRemoved;
    Select(richEdit, begin, end);
    SetFormat(richEdit, SCF_SELECTION, isGone ? CFE_STRIKEOUT : CFE_UNDERLINE,
              isGone ? ReadableColor({COLOR_GRAYTEXT}) : ReadableColor({COLOR_HOTLIGHT, COLOR_HIGHLIGHT}));
}

void ShowMarkedText(HWND richEdit, std::string_view note, std::string_view other) {
    const CodePage& page = TheNoteFiles().codePage;
    const std::string before = Utf8OfNote(page, other), after = Utf8OfNote(page, note);
    const std::vector<TextRun> runs = TextDifference(before, after);
    std::u16string shown;
    std::vector<LONG> ends;
    for (const TextRun& run : runs) {
        shown += LettersOfUtf8(run.text);
        ends.push_back(static_cast<LONG>(shown.size()));
    }
    SendMessageA(richEdit, WM_SETREDRAW, FALSE, 0);
    UseNotesFont(richEdit);
    SetPlainText(richEdit, shown);
    SetFormat(richEdit, SCF_ALL, 0, COLOR_WINDOWTEXT);
    LONG begin = 0;
    for (std::size_t run = 0; run < runs.size(); ++run) {
        Mark(richEdit, runs[run].kind, begin, ends[run]);
        begin = ends[run];
    }
    Select(richEdit, 0, 0);
    SendMessageA(richEdit, EM_SCROLLCARET, 0, 0);
    SendMessageA(richEdit, WM_SETREDRAW, TRUE, 0);
    InvalidateRect(richEdit, nullptr, TRUE);
}
