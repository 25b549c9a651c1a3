#include "output/copy_range_dialog.h"

#include "resources/help_topics.h"

static constexpr RangeDialog kCopyVerse{"COPYVERSE", kTopicCopyVerse, Asked::kVerse};
static constexpr RangeDialog kCopyRange{"COPYRANGE", kTopicCopyRange, Asked::kRange};
static constexpr RangeDialog kSaveRange{"SAVERANGE", kTopicSaveRange, Asked::kRange, BookForm::kAbbreviation, true};

static std::optional<ParsedRange> AskToCopy(HWND frame, const RangeDialog& kind, int currentVerse) {
    const std::optional<AskedRange> answer = AskRange(frame, kind, currentVerse, nullptr);
    if (!answer) return std::nullopt;
    return answer->range;
}

std::optional<ParsedRange> AskVerseToCopy(HWND frame, int currentVerse) {
    return AskToCopy(frame, kCopyVerse, currentVerse);
}

std::optional<ParsedRange> AskRangeToCopy(HWND frame, int currentVerse) {
    return AskToCopy(frame, kCopyRange, currentVerse);
}

std::optional<AskedRange> AskRangeToSave(HWND frame, int currentVerse, const OfferedNoteSets& noteSets) {
    return AskRange(frame, kSaveRange, currentVerse, &noteSets);
}
