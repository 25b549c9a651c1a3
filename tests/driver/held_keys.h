// Keys that are held down.
#pragma once

#include "tests/driver/driver.h"

// Holds keys like those of Press down until the keyboard has repeated the last of them `repetitions` times, and then
// waits.
void HoldKeys(const Program& program, std::string_view keys, int repetitions);

// Holds keys like those of Press down until LetKeysGo, as for a click with Ctrl.
void HoldKeysDown(const Program& program, std::string_view keys);
void LetKeysGo(const Program& program, std::string_view keys);
