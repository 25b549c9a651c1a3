// Separate from the saving and the merging of notes, which both join texts.
#include "notes/joined_texts.h"

#include <algorithm>
#include <vector>

static constexpr std::string_view kBetween =
    "\r\n----------------------------------------\r\nAlso written elsewhere:\r\n";

static std::vector<std::string_view> PartsOf(std::string_view text) {
    std::vector<std::string_view> parts;
    for (std::size_t end = text.find(kBetween); end != std::string_view::npos; end = text.find(kBetween)) {
        parts.push_back(text.substr(0, end));
        text.remove_prefix(end + kBetween.size());
    }
    parts.push_back(text);
    return parts;
}

std::string JoinedTexts(std::string_view mine, std::string_view other) {
    if (mine.empty()) return std::string(other);
    std::string joined(mine);
    std::vector<std::string_view> parts = PartsOf(mine);
    for (const std::string_view part : PartsOf(other)) {
        if (part.empty() || std::ranges::find(parts, part) != parts.end()) continue;
        parts.push_back(part);
        joined += kBetween;
        joined += part;
    }
    return joined;
}

std::optional<std::string> JoinedNotes(const CodePage& page, std::string_view mine, std::string_view other) {
    if (!IsInUtf8(mine) && !IsInUtf8(other)) return JoinedTexts(mine, other);
    if (!HasExactLetters(page, mine) || !HasExactLetters(page, other)) return std::nullopt;
    const std::u16string joined = LettersOfUtf8(JoinedTexts(Utf8OfNote(page, mine), Utf8OfNote(page, other)));
    if (joined == LettersOfNote(page, mine)) return std::string(mine);
    return NoteOfLetters(page, joined, other);
}
