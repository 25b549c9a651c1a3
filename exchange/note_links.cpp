// Separate from the writing of web pages, which need not know how references are written.
#include "exchange/note_links.h"

#include <algorithm>

#include "notes/cross_references.h"

void FindListLinks(void*, const VerseRecords& records, int verse, std::string_view text, std::vector<NoteLink>& links) {
    for (const TextReference& item : ListedReferences(records, text, verse))
        links.push_back({item.begin, item.size, item.first, item.first});
}

static bool IsSound(const NoteLink& link, std::size_t size) {
    return link.size > 0 && link.place <= size && link.size <= size - link.place && link.verse >= 0 &&
           link.last >= link.verse && link.last < kVerseCount;
}

void FindNoteLinks(const LinkFinder& finder, const VerseRecords& records, int verse, std::string_view text,
                   std::vector<NoteLink>& links) {
    links.clear();
    (finder.find != nullptr ? finder.find : FindListLinks)(finder.device, records, verse, text, links);
    std::erase_if(links, [&](const NoteLink& link) { return !IsSound(link, text.size()); });
    std::ranges::stable_sort(links, {}, &NoteLink::place);
    std::size_t end = 0;
    std::erase_if(links, [&](const NoteLink& link) {
        if (link.place < end) return true;
        end = link.place + link.size;
        return false;
    });
}
