#include "output/brackets.h"

void RemoveBrackets(std::string& text) {
    std::erase_if(text, [](char c) { return c == '[' || c == ']'; });
}
