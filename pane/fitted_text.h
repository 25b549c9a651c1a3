// Text that is cut to the room for it.
#pragma once

#include <string>
#include <string_view>

// Measures texts on some device.
struct TextRuler {
    void* device = nullptr;                                  // passed to the procedure
    int (*width)(void* device, std::string_view) = nullptr;  // pixels; not smaller for a longer text
};

// `text` if it is at most `room` pixels wide; otherwise as many of its first letters as fit with "..." behind them,
// without blanks before it. If not even that fits, "...".
std::string FittedText(std::string_view text, int room, const TextRuler& ruler);
