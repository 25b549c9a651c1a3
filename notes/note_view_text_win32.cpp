#include "notes/note_view_text_win32.h"

#include <algorithm>
#include <utility>

#include "notes/beginning_of_note.h"
#include "notes/note_files_win32.h"
#include "win32/plain_text.h"

namespace {

struct NoteViewText {
    bool isIncomplete = false;
    std::u16string whole;          // if the view is incomplete
    bool isRemovedSlowly = false;  // what the view has
};

}  // namespace

static NoteViewText theText;

static TEXTMETRICA LettersOf(HWND view, HFONT font) {
    TEXTMETRICA letters{};
    const HDC dc = GetDC(view);
    const HGDIOBJ before = SelectObject(dc, font);
    GetTextMetricsA(dc, &letters);
    SelectObject(dc, before);
    ReleaseDC(view, dc);
    return letters;
}

static RECT ClientOf(HWND view) {
    RECT client{};
    GetClientRect(view, &client);
    return client;
}

// Rather too much: few texts have letters that are half as wide as the average.
static TextRoom RoomIn(HWND view, HFONT font) {
    const RECT client = ClientOf(view);
    const TEXTMETRICA letters = LettersOf(view, font);
    const LONG height = std::max<LONG>(letters.tmHeight, 1), width = std::max<LONG>(letters.tmAveCharWidth / 2, 1);
    return {static_cast<std::size_t>(client.bottom / height + 4), static_cast<std::size_t>(client.right / width)};
}

// Then it looks the same as the beginning of a longer text, and has a scroll bar like that.
static bool ReachesBelowView(HWND view, std::size_t length) {
    POINTL end{};
    SendMessageA(view, EM_POSFROMCHAR, reinterpret_cast<WPARAM>(&end), static_cast<LPARAM>(length));
    return end.y > ClientOf(view).bottom;
}

void ShowInNoteView(HWND view, HFONT font, const std::string& note) {
    const CodePage& page = TheNoteFiles().codePage;
    std::u16string text = LettersOfNote(page, note);
    theText = {false, {}, IsRemovedSlowly(text)};
    const std::size_t begun = BeginningOfNote(note, RoomIn(view, font)).size();
    const std::size_t shown = begun == note.size() ? text.size() : LettersBefore(page, note, begun);
    const std::u16string_view beginning = std::u16string_view(text).substr(0, shown);
    if (shown == text.size() || IsRemovedSlowly(beginning)) return SetPlainText(view, text);
    SetPlainText(view, beginning);
    if (ReachesBelowView(view, shown))
        theText = {true, std::move(text), false};
    else
        SetPlainText(view, text);
}

bool IsNoteRemovedSlowly() {
    return theText.isRemovedSlowly;
}

// The same text and selection, so it is no change that the frame should be told of.
bool CompleteNoteView(HWND view) {
    if (!theText.isIncomplete) return false;
    const NoteViewText text = std::exchange(theText, {false, {}, IsRemovedSlowly(theText.whole)});
    const LRESULT events = SendMessageA(view, EM_SETEVENTMASK, 0, ENM_NONE);
    SetPlainText(view, text.whole);
    SendMessageA(view, EM_SETEVENTMASK, 0, events);
    return true;
}

void PrepareNoteView(HWND view, UINT message) {
    switch (message) {
        case WM_PAINT:
        case WM_NCPAINT:
        case WM_ERASEBKGND:
        case WM_NCHITTEST:
        case WM_SETCURSOR:
        case WM_MOUSEMOVE: break;
        default: CompleteNoteView(view);
    }
}
