#include "notes/save_note_win32.h"

#include <array>
#include <cstdio>

#include "notes/notes_window.h"
#include "win32/controls.h"

struct Waiting {
    HWND frame;
    HCURSOR before;
};

static UINT BoxOf(SaveNotice notice) {
    switch (notice) {
        case SaveNotice::kCannotOpen: return MB_RETRYCANCEL | MB_ICONSTOP;
        case SaveNotice::kChangedOnDisk: return MB_OKCANCEL | MB_ICONEXCLAMATION;
        case SaveNotice::kCannotDelete: return MB_OK;
        default: return MB_OK | MB_ICONSTOP;
    }
}

// The mouse is free while the box is open.
static bool Tell(void* device, SaveNotice notice, const std::string& text) {
    Waiting& waiting = *static_cast<Waiting*>(device);
    EndWait(waiting.before);
    const int answer = MessageBoxA(waiting.frame, text.c_str(), kErrorCaption, BoxOf(notice));
    waiting.before = BeginWait(waiting.frame);
    return answer != IDCANCEL;
}

static std::string Today() {
    SYSTEMTIME now{};
    GetLocalTime(&now);
    std::array<char, 16> text{};
    std::snprintf(text.data(), text.size(), "%04u-%02u-%02u", now.wYear % 10000u, now.wMonth % 100u, now.wDay % 100u);
    return text.data();
}

NoteSaveResult SaveCurrentNote(HWND frame, std::string_view text) {
    Waiting waiting{frame, BeginWait(frame)};
    const NoteSaveResult result = SaveNote(TheNoteFiles(), {&waiting, Tell}, theNotes.sets, text, Today());
    EndWait(waiting.before);
    return result;
}
