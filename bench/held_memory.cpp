#include "bench/held_memory.h"

#include <malloc.h>

#include <algorithm>
#include <cstdlib>
#include <new>

static std::size_t heldBytes = 0, heldBefore = 0, mostBytes = 0;

void ForgetMostHeld() {
    heldBefore = mostBytes = heldBytes;
}

std::size_t MostBytesHeld() {
    return mostBytes - heldBefore;
}

void* operator new(std::size_t size) {
    void* block = std::malloc(size);
    if (!block) throw std::bad_alloc();
    heldBytes += malloc_usable_size(block);
    mostBytes = std::max(mostBytes, heldBytes);
    return block;
}

void operator delete(void* block) noexcept {
    heldBytes -= malloc_usable_size(block);
    std::free(block);
}

void operator delete(void* block, std::size_t) noexcept {
    operator delete(block);
}
