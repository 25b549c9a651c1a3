// Memory that a benchmark program holds: its operator new and delete keep count.
#pragma once

#include <cstddef>

// Forgets the most that was held so far.
void ForgetMostHeld();

// Most bytes held at a time since then, beyond those held when it was called.
std::size_t MostBytesHeld();
