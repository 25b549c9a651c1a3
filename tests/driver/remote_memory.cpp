#include "tests/driver/remote_memory.h"

#include "tests/driver/driver.h"

RemoteMemory::RemoteMemory(const Program& program, std::size_t size)
    : process(program.process.get()),
      address(VirtualAllocEx(process, nullptr, size, MEM_COMMIT | MEM_RESERVE, PAGE_READWRITE)) {
    if (address == nullptr) Fail(&program, "no memory to be had in the program; did it end?");
}

RemoteMemory::~RemoteMemory() {
    VirtualFreeEx(process, address, 0, MEM_RELEASE);
}

void WriteRemote(const RemoteMemory& memory, const void* from, std::size_t size) {
    WriteProcessMemory(memory.process, memory.address, from, size, nullptr);
}

void ReadRemote(const RemoteMemory& memory, void* to, std::size_t size) {
    ReadProcessMemory(memory.process, memory.address, to, size, nullptr);
}

LRESULT Ask(const Program& program, HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    DWORD_PTR result = 0;
    constexpr UINT kLongestAnswer = 60000;  // a long search may run before the answer
    if (SendMessageTimeoutA(window, message, wParam, lParam, SMTO_NORMAL, kLongestAnswer, &result) != 0)
        return static_cast<LRESULT>(result);
    Fail(&program, IsRunning(program) ? "the program does not answer message " + std::to_string(message)
                                      : "the program ended while it was asked message " + std::to_string(message));
}
