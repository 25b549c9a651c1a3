// Keys that are held down.
#pragma once

#include "tests/driver/driver.h"

// Holds keys like those of Press down until the keyboard has repeated the last of them `repetitions` times, and then
// waits.
void HoldKeys(const Program& program, std::string_view keys, int repetitions);
