#include "print/print_range_dialog.h"

#include "resources/help_topics.h"

static constexpr RangeDialog kPrintRange{"PRINTRANGE", kTopicPrintRange, Asked::kRange, BookForm::kName};

std::optional<AskedRange> AskRangeToPrint(HWND frame, int currentVerse, const OfferedNoteSets& noteSets) {
    return AskRange(frame, kPrintRange, currentVerse, &noteSets);
}
