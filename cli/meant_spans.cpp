#include "cli/meant_spans.h"

#include <string_view>

#include "notes/references_in_text.h"

static std::vector<TextReference> ReferencesOf(const VerseRecords& records, const std::string& typed, int noteVerse) {
    std::vector<TextReference> references;
    FindReferences(ChaptersOf(records), RecordOf(records, noteVerse), typed, references);
    return references;
}

// "v. 5" would be a verse of the note in whose text it stands, and there is none.
static bool NeedsNote(const VerseRecords& records, const std::string& typed,
                      const std::vector<TextReference>& references) {
    const std::vector<TextReference> others = ReferencesOf(records, typed, kLastVerse);
    if (others.size() != references.size()) return true;
    for (std::size_t i = 0; i < others.size(); ++i)
        if (others[i].first != references[i].first || others[i].last != references[i].last) return true;
    return false;
}

static bool Separates(std::string_view between) {
    while (!between.empty()) {
        if (between.starts_with("and"))
            between.remove_prefix(3);
        else if (std::string_view(" ,;.&").find(between.front()) != std::string_view::npos)
            between.remove_prefix(1);
        else
            return false;
    }
    return true;
}

static bool AreAllOf(const std::vector<TextReference>& references, std::string_view typed) {
    std::size_t end = 0;
    for (const TextReference& reference : references) {
        if (!Separates(typed.substr(end, reference.begin - end))) return false;
        end = std::size_t{reference.begin} + reference.size;
    }
    return !references.empty() && Separates(typed.substr(end));
}

std::vector<VerseSpan> MeantSpans(const VerseRecords& records, const std::string& typed) {
    if (const auto meant = MeantVerses(records, typed)) return {*meant};
    const std::vector<TextReference> references = ReferencesOf(records, typed, 0);
    std::vector<VerseSpan> spans;
    if (!AreAllOf(references, typed) || NeedsNote(records, typed, references)) return spans;
    for (const TextReference& reference : references) spans.push_back({reference.first, reference.last});
    return spans;
}

std::string SpanNames(const VerseRecords& records, const std::vector<VerseSpan>& spans) {
    std::string names;
    for (const VerseSpan& span : spans) names += (names.empty() ? "" : "; ") + SpanName(records, span);
    return names;
}
