// Apart from the panes, so that lists that are not shown can be changed, too.
#include "verselist/list_content.h"

#include <algorithm>
#include <utility>

static std::vector<int> EntriesWithoutSet(const EntrySets& sets, const RemainingNotes& remaining) {
    std::vector<bool> hasGone;
    for (const EntrySets::Set& set : sets.sets) hasGone.push_back(!remaining.hasSet(set.name));
    std::vector<int> gone;
    for (std::size_t entry = 0; entry < sets.ofEntries.size(); ++entry)
        if (hasGone[sets.ofEntries[entry]]) gone.push_back(static_cast<int>(entry));
    return gone;
}

std::vector<int> GoneEntries(const std::vector<std::int32_t>& verses, const EntrySets& sets,
                             const ListedQuestion& question, const RemainingNotes& remaining) {
    if (!sets.sets.empty()) return EntriesWithoutSet(sets, remaining);
    const std::vector<std::int32_t> still = remaining.stillListed(question, verses);
    std::vector<int> gone;
    for (std::size_t entry = 0; entry < verses.size(); ++entry)
        if (!std::ranges::binary_search(still, verses[entry])) gone.push_back(static_cast<int>(entry));
    return gone;
}

bool DropGoneEntries(ListContent& content, const RemainingNotes& remaining) {
    if (!content.isOfNotes) return false;
    const std::vector<int> gone = GoneEntries(content.verses, content.sets, content.question, remaining);
    if (gone.empty()) return false;
    VerseList list;
    list.ListEntries = std::move(content.verses);
    list.sets = std::move(content.sets);
    DeleteEntries(list, gone);
    content.verses = std::move(list.ListEntries);
    content.sets = std::move(list.sets);
    content.deletions.clear();
    return true;
}
