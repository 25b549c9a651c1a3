// What differs between two states of a note, by words.
#pragma once

#include <string_view>
#include <vector>

enum class RunKind { kKept, kRemoved, kAdded };

struct TextRun {
    RunKind kind = RunKind::kKept;
    std::string_view text;  // kept and removed: part of the text before; added: part of the text after
    bool operator==(const TextRun&) const = default;
};

// The difference of the two texts, which must outlive the runs. The kept and removed runs together are `before`, the
// kept and added ones are `after`. No run is empty, and between two kept runs there is at most one removed run, and
// behind it at most one added run. Words are never divided; spaces alone between changed words count as changed.
//
// Few changes are found exactly. In texts with more than a thousand changed words, unchanged lines are looked for first
// and then unchanged words between them; what still has too many changes is removed and added as a whole. So the time
// for two notes of 65,533 bytes is a fraction of a second whatever is in them.
std::vector<TextRun> TextDifference(std::string_view before, std::string_view after);
