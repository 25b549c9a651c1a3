// Lines that Wine's rich-edit control lays out slowly. It measures stretches of letters and blanks, up to the next
// digit or mark; and for each row that it breaks off a stretch, it measures the rest anew. With 65,000 letters this
// takes 15 seconds, and again for each key. A letter whose format differs, even if nothing of that is seen, ends a
// stretch, too.
#pragma once

#include <cstddef>
#include <string_view>
#include <vector>

inline constexpr std::size_t kLongStretch = 3000;         // letters of the longest one that is laid out soon enough
inline constexpr std::size_t kPieceOfLongStretch = 1500;  // letters between those that are to end a stretch

// The places of the letters in `text`, in ascending order, that are to get another format. Empty if no stretch is long.
std::vector<std::size_t> EndsInLongStretches(std::string_view text);
