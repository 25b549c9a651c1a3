// Memory use of a benchmark program, counted by its operators new and delete.
#pragma once

#include <cstddef>

// Starts a new measurement.
void ForgetMostHeld();

// Peak number of bytes since then, minus those in use when it was called.
std::size_t MostBytesHeld();
