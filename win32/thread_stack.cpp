// Separate from what starts threads, because the main thread calls it as well.
#include "win32/thread_stack.h"

#include <cstdint>

#include "win32/wine.h"

// Below the caller's frame so much stays, because the next calls use it. The pages are not protected or released: the
// system is told that what they hold does not matter.
void GiveBackUnusedStack() {
    static constexpr std::uintptr_t kKept = 0x10000;
    if (!IsWine()) return;
    const char here = 0;
    void* const lowest = reinterpret_cast<const NT_TIB*>(NtCurrentTeb())->StackLimit;
    const auto begin = reinterpret_cast<std::uintptr_t>(lowest);
    const std::uintptr_t end = (reinterpret_cast<std::uintptr_t>(&here) & ~(kKept - 1)) - kKept;
    if (begin < end) VirtualAlloc(lowest, end - begin, MEM_RESET, PAGE_READWRITE);
}
