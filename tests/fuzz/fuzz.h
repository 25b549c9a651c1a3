// What the fuzz targets share. Each target is a program of libFuzzer: it changes inputs of the corpus in many ways,
// gives each to LLVMFuzzerTestOneInput, and goes on with those that reached code which none had reached before.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

// Gives an input to the code under test, which must come back whatever it is. Always 0.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

// Ends the run where something that must be so is not.
void Expect(bool isSo, const char* what);

inline std::string_view TextOfInput(const std::uint8_t* data, std::size_t size) {
    return {reinterpret_cast<const char*>(data), size};
}

// Takes the first line from `text`, without its "\n"; the last one may have none.
std::string_view TakeLine(std::string_view& text);

// Takes the next decimal number from `line`, with all that stands before it, and brings it into `least`..`most`. Where
// there is none, it is `least`.
int TakeNumber(std::string_view& line, int least, int most);
