// The verses that the user has gone to by a reference, the last one first: what the taskbar offers.
#pragma once

#include <string>
#include <string_view>
#include <vector>

inline constexpr std::size_t kLastVerseCount = 10;

// Puts `verse` first. The oldest one is dropped if there are too many.
void AddLastVerse(std::vector<int>& verses, int verse);

// Verse indexes with a blank between two of them, as a setting has them. What is no verse index is left out.
std::string TextOfLastVerses(const std::vector<int>& verses);
std::vector<int> LastVersesOf(std::string_view text);
