// The library that answers the probe's questions inside the program.

#include "tests/driver/accessible_probe.h"
#include "tests/driver/alt_gr.h"
#include "tests/driver/file_operations.h"
#include "tests/driver/look_probe.h"
#include "tests/driver/probe.h"
#include "tests/driver/taskbar_probe.h"

static void DescribeItem(Probe& probe, UINT by) {
    probe.result = GetMenuState(probe.menu, probe.item, by);
    probe.id = by == MF_BYPOSITION ? GetMenuItemID(probe.menu, static_cast<int>(probe.item)) : probe.item;
    GetMenuStringA(probe.menu, probe.item, probe.text, sizeof probe.text, by);
}

static void AnswerAccessible(Probe& probe) {
    const int child = static_cast<int>(probe.item);
    const auto result = [&probe](HRESULT value) { probe.result = static_cast<UINT>(value); };
    switch (probe.question) {
        case ProbeQuestion::AccessibleWindow: AskWindow(probe.window, *static_cast<ToldWindow*>(probe.memory)); break;
        case ProbeQuestion::AccessibleChild:
            result(AskChild(probe.window, child, *static_cast<ToldChild*>(probe.memory)));
            break;
        case ProbeQuestion::AccessibleAction: result(ActOn(probe.window, child)); break;
        case ProbeQuestion::AccessibleFocus: result(GiveFocusTo(probe.window, child)); break;
        case ProbeQuestion::HearEvents: HearEvents(); break;
        case ProbeQuestion::TakeEvents: TakeEvents(*static_cast<ToldEvents*>(probe.memory)); break;
        default: break;
    }
}

static void MeasureText(Probe& probe) {
    const HDC dc = GetDC(probe.window);
    auto* font = reinterpret_cast<HFONT>(SendMessageA(probe.window, WM_GETFONT, 0, 0));
    const HGDIOBJ before = SelectObject(dc, font != nullptr ? font : GetStockObject(SYSTEM_FONT));
    RECT room{0, 0, probe.size.cx, 0};
    const UINT lines = probe.size.cx == 0 ? DT_SINGLELINE : DT_WORDBREAK;
    DrawTextA(dc, probe.text, -1, &room, DT_CALCRECT | lines | probe.item);
    SelectObject(dc, before);
    ReleaseDC(probe.window, dc);
    probe.size = {room.right, room.bottom};
}

static void Answer(Probe& probe) {
    switch (probe.question) {
        case ProbeQuestion::QueueState:
            probe.result = HIWORD(GetQueueStatus(QS_INPUT | QS_POSTMESSAGE | QS_PAINT));
            break;
        case ProbeQuestion::MenuBar: probe.menu = GetMenu(probe.window); break;
        case ProbeQuestion::SubMenu: probe.menu = GetSubMenu(probe.menu, static_cast<int>(probe.item)); break;
        case ProbeQuestion::MenuCount: probe.result = static_cast<UINT>(GetMenuItemCount(probe.menu)); break;
        case ProbeQuestion::MenuItemByPlace: DescribeItem(probe, MF_BYPOSITION); break;
        case ProbeQuestion::MenuItemById: DescribeItem(probe, MF_BYCOMMAND); break;
        case ProbeQuestion::VerticalScroll:
            probe.scroll.cbSize = sizeof probe.scroll;
            probe.scroll.fMask = SIF_ALL;
            GetScrollInfo(probe.window, SB_VERT, &probe.scroll);
            break;
        case ProbeQuestion::EndAtFileOperation: EndAtFileOperation(probe.item); break;
        case ProbeQuestion::FillDisk: FillDiskAtFileOperation(probe.item); break;
        case ProbeQuestion::SizeOfText: MeasureText(probe); break;
        case ProbeQuestion::TypeWithAltGr: TypeWithAltGr(probe.item, static_cast<wchar_t>(probe.id)); break;
        case ProbeQuestion::SetSystemColors:
            probe.result = SetColorsHere(*static_cast<const SystemColorTable*>(probe.memory));
            break;
        case ProbeQuestion::MessageFont:
            probe.result = static_cast<UINT>(SetMessageFontHere(static_cast<int>(probe.item)));
            break;
        case ProbeQuestion::HighContrast: probe.result = TellHighContrast(probe.item != 0); break;
        case ProbeQuestion::DarkTitle: probe.result = static_cast<UINT>(DarkTitleSet()); break;
        case ProbeQuestion::RecordTaskbarList: probe.result = RecordTaskbarList(probe.text); break;
        case ProbeQuestion::RemoveFromTaskbarList: probe.result = RemoveFromTaskbarList(probe.text); break;
        default: AnswerAccessible(probe); break;
    }
    probe.answered = 1;
}

// Found by its name by the test driver.
extern "C" __declspec(dllexport) LRESULT CALLBACK WatchSentMessages(int code, WPARAM wParam, LPARAM lParam);

extern "C" __declspec(dllexport) LRESULT CALLBACK WatchSentMessages(int code, WPARAM wParam, LPARAM lParam) {
    static const UINT probeMessage = RegisterWindowMessageA(kProbeMessageName);
    const auto* sent = reinterpret_cast<const CWPSTRUCT*>(lParam);
    if (code == HC_ACTION && sent->message == probeMessage && sent->wParam == kProbeMark)
        Answer(*reinterpret_cast<Probe*>(sent->lParam));
    return CallNextHookEx(nullptr, code, wParam, lParam);
}
