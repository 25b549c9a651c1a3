// Separate from what starts threads, because the main thread calls it as well.
#include "win32/thread_stack.h"

#include <cstdint>

#include "win32/wine.h"

// Of the stack that `here` is on. Below it are pages that are only reserved, and a guard page.
static char* LowestPage(const char* here) {
    MEMORY_BASIC_INFORMATION pages{};
    if (VirtualQuery(here, &pages, sizeof pages) == 0) return nullptr;
    auto* page = static_cast<char*>(pages.AllocationBase);
    while (VirtualQuery(page, &pages, sizeof pages) != 0 &&
           (pages.State != MEM_COMMIT || (pages.Protect & PAGE_GUARD) != 0))
        page = static_cast<char*>(pages.BaseAddress) + pages.RegionSize;
    return page;
}

// Below the caller's frame so much stays, because the next calls use it. The pages are not protected or released: the
// system is told that what they hold does not matter.
void GiveBackUnusedStack() {
    static constexpr std::uintptr_t kKept = 0x10000;
    if (!IsWine()) return;
    const char here = 0;
    char* const lowest = LowestPage(&here);
    const auto begin = reinterpret_cast<std::uintptr_t>(lowest);
    const std::uintptr_t end = (reinterpret_cast<std::uintptr_t>(&here) & ~(kKept - 1)) - kKept;
    if (lowest != nullptr && begin < end) VirtualAlloc(lowest, end - begin, MEM_RESET, PAGE_READWRITE);
}
