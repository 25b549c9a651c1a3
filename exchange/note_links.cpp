// Separate from the writing of web pages, which need not know how references are written.
#include "exchange/note_links.h"

#include <algorithm>
#include <string>

#include "notes/cross_references.h"
#include "notes/note_letters.h"
#include "notes/references_in_text.h"

static void DropOverlaps(std::vector<TextReference>& references) {
    std::ranges::stable_sort(references, {}, &TextReference::begin);
    std::uint32_t end = 0;
    std::erase_if(references, [&](const TextReference& reference) {
        if (reference.begin < end) return true;
        end = reference.begin + reference.size;
        return false;
    });
}

// They are looked for in the note as it would be stored in UTF-8.
std::vector<TextReference> LinksOfNote(const VerseRecords& records, const Chapters& chapters, int verse,
                                       std::string_view text) {
    const std::string note = std::string(kUtf8Mark).append(text);
    std::vector<TextReference> links;
    FindReferences(chapters, RecordOf(records, verse), note, links);
    const std::vector<TextReference> listed = ListedReferences(records, note, verse);
    links.insert(links.end(), listed.begin(), listed.end());
    DropOverlaps(links);
    for (TextReference& link : links) link.begin -= static_cast<std::uint32_t>(kUtf8Mark.size());
    return links;
}
