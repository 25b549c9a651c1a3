// Memory in the program that holds what a message to one of its controls points to: Windows carries only the parameters
// of its own old messages from one process to another, not those of the common controls.
#pragma once

#include <string>

#include <windows.h>

struct Program;

// Room of `size` zero bytes in the program; it goes with this.
struct RemoteMemory {
    HANDLE process = nullptr;
    void* address = nullptr;

    RemoteMemory(const Program& program, std::size_t size);
    ~RemoteMemory();
    RemoteMemory(const RemoteMemory&) = delete;
    RemoteMemory& operator=(const RemoteMemory&) = delete;
};

void WriteRemote(const RemoteMemory& memory, const void* from, std::size_t size);
void ReadRemote(const RemoteMemory& memory, void* to, std::size_t size);

// Sends the message and gives its result, but ends the test when the program does not answer for a long time.
LRESULT Ask(const Program& program, HWND window, UINT message, WPARAM wParam = 0, LPARAM lParam = 0);

// The same with a value that lies in the program while the message runs: carried in, and what became of it carried out.
template <typename Value>
LRESULT AskAbout(const Program& program, HWND window, UINT message, WPARAM wParam, Value& value) {
    const RemoteMemory memory(program, sizeof value);
    WriteRemote(memory, &value, sizeof value);
    const LRESULT result = Ask(program, window, message, wParam, reinterpret_cast<LPARAM>(memory.address));
    ReadRemote(memory, &value, sizeof value);
    return result;
}
