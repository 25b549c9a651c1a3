// Memory in the program for structures that messages to its controls point to. Windows copies such structures between
// processes only for its oldest messages, not for those of the common controls.
#pragma once

#include <string>

#include <windows.h>

struct Program;

// `size` zero bytes in the program's memory, freed on destruction.
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

// Sends the message and returns its result; ends the test when the program does not answer for a long time.
LRESULT Ask(const Program& program, HWND window, UINT message, WPARAM wParam = 0, LPARAM lParam = 0);

// The same with a pointer to `value` as lParam: copies it into the program before and back after the message.
template <typename Value>
LRESULT AskAbout(const Program& program, HWND window, UINT message, WPARAM wParam, Value& value) {
    const RemoteMemory memory(program, sizeof value);
    WriteRemote(memory, &value, sizeof value);
    const LRESULT result = Ask(program, window, message, wParam, reinterpret_cast<LPARAM>(memory.address));
    ReadRemote(memory, &value, sizeof value);
    return result;
}
