#include "tests/driver/accessible.h"

#include "tests/driver/probe.h"
#include "tests/driver/remote_memory.h"

// Asks about `answer`, which is copied into the program and back.
template <typename Answer>
static HRESULT AskFor(const Program& program, ProbeQuestion question, HWND window, int child, Answer& answer) {
    Settle(program);
    const RemoteMemory memory(program, sizeof answer);
    WriteRemote(memory, &answer, sizeof answer);
    Probe probe;
    probe.question = question;
    probe.window = window;
    probe.item = static_cast<UINT>(child);
    probe.memory = memory.address;
    const Probe answered = AskProbe(program, probe);
    ReadRemote(memory, &answer, sizeof answer);
    return static_cast<HRESULT>(answered.result);
}

std::unique_ptr<ToldWindow> Told(const Program& program, HWND window) {
    auto told = std::make_unique<ToldWindow>();
    AskFor(program, ProbeQuestion::AccessibleWindow, window, 0, *told);
    if (told->result != S_OK) Fail(&program, "a window tells nothing: " + std::to_string(told->result));
    return told;
}

ToldOfChild ToldOf(const Program& program, HWND window, int child) {
    ToldOfChild answer;
    answer.result = AskFor(program, ProbeQuestion::AccessibleChild, window, child, answer.told);
    return answer;
}

HRESULT ActOnChild(const Program& program, HWND window, int child) {
    int nothing = 0;
    const HRESULT result = AskFor(program, ProbeQuestion::AccessibleAction, window, child, nothing);
    Settle(program);
    return result;
}

HRESULT FocusChild(const Program& program, HWND window, int child) {
    int nothing = 0;
    const HRESULT result = AskFor(program, ProbeQuestion::AccessibleFocus, window, child, nothing);
    Settle(program);
    return result;
}

void ListenToEvents(const Program& program) {
    int nothing = 0;
    AskFor(program, ProbeQuestion::HearEvents, nullptr, 0, nothing);
}

std::vector<ToldEvent> Heard(const Program& program, HWND window) {
    ToldEvents told;
    AskFor(program, ProbeQuestion::TakeEvents, nullptr, 0, told);
    if (told.count < 0) Fail(&program, "events cannot be heard");
    std::vector<ToldEvent> events(told.events, told.events + told.count);
    std::erase_if(events, [window](const ToldEvent& event) { return event.window != window; });
    return events;
}
