#include "history/state_lines.h"

#include <algorithm>

const char* ReasonText(KeptReason reason) {
    switch (reason) {
        case KeptReason::kReplaced: return "replaced by a save";
        case KeptReason::kNotSaved: return "could not be saved";
        case KeptReason::kCancelled: return "edit was cancelled";
        case KeptReason::kInterrupted: return "edit was interrupted";
        case KeptReason::kDeleted: return "set was deleted";
        case KeptReason::kLeftOver: return "left by a failed save";
        case KeptReason::kMerged: return "replaced by a merge";
        case KeptReason::kRestored: return "replaced by an earlier state of the set";
        case KeptReason::kImported: return "replaced by an import";
    }
    return "";
}

std::u16string FirstWords(std::u16string_view note, std::size_t size) {
    static constexpr std::u16string_view kRest = u"...";
    std::u16string words;
    for (const char16_t c : note) {
        if (c > u' ') {
            words += c;
        } else if (!words.empty() && words.back() != u' ') {
            words += u' ';
        }
        if (words.size() > size + 1) break;  // a space at the end may still go
    }
    if (words.ends_with(u' ')) words.pop_back();
    if (words.empty()) return u"(empty)";
    if (words.size() <= size) return words;
    words.resize(size - kRest.size());
    const std::size_t lastSpace = words.rfind(u' ');
    if (lastSpace != std::u16string::npos) words.resize(lastSpace);
    return words.append(kRest);
}

std::string DifferenceText(std::size_t notes) {
    if (notes == 0) return "as today";
    return notes == 1 ? "1 note differs from today" : std::to_string(notes) + " notes differ from today";
}
