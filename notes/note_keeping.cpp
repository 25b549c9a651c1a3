#include "notes/note_keeping.h"

#include <algorithm>
#include <optional>
#include <set>
#include <utility>

#include "notes/note_source.h"

static constexpr std::size_t kKeptAtOnce = std::size_t{4} << 20;  // bytes of text

namespace {

// Texts on their way to the history of a set, written many at a time.
struct Keeper {
    const NoteFiles& files;
    const std::string& setName;
    KeptReason reason;
    std::int64_t time;
    std::vector<EarlierNote> waiting{};
    std::size_t waitingSize = 0;
    bool isFailed = false;
};

}  // namespace

static void WriteWaiting(Keeper& keeper) {
    keeper.isFailed |= !KeepEarlierNotes(keeper.files, keeper.setName, keeper.waiting);
    keeper.waiting.clear();
    keeper.waitingSize = 0;
}

static void KeepNote(Keeper& keeper, int verse, std::string text) {
    keeper.waitingSize += text.size();
    keeper.waiting.push_back({keeper.time, verse, keeper.reason, std::move(text)});
    if (keeper.waitingSize >= kKeptAtOnce) WriteWaiting(keeper);
}

static std::string TextOf(const NoteSource& source, int verse) {
    std::string text;
    source.noteOf(source.device, verse, text);
    return text;
}

bool KeepAllNotes(const NoteFiles& files, const std::string& setName, NoteSet set, KeptReason reason,
                  std::int64_t time) {
    NoteReader reader{files, set};
    const NoteSource notes = SourceOf(reader);
    Keeper keeper{files, setName, reason, time};
    for (int verse = 0; verse < kVerseCount; ++verse) {
        std::string text = TextOf(notes, verse);
        if (!text.empty()) KeepNote(keeper, verse, std::move(text));
    }
    WriteWaiting(keeper);
    return !keeper.isFailed;
}

// The notes that an earlier call has kept.
static std::set<std::pair<int, std::string>> KeptBefore(const NoteFiles& files, const std::string& setName) {
    std::set<std::pair<int, std::string>> kept;
    for (EarlierNote& note : AllEarlierNotes(files, setName))
        if (note.reason == KeptReason::kLeftOver) kept.emplace(note.verse, std::move(note.text));
    return kept;
}

LeftOverNotes KeepLeftOver(const NoteFiles& files, const std::string& setName, std::int64_t time) {
    const std::string twin = setName + kDataEnding + kTempEnding;
    if (!files.stamp(files.device, twin).exists) return {};
    std::optional<NoteSet> left = ReadWholeSet(files, twin);
    std::optional<NoteSet> set = left ? ReadWholeSet(files, setName + kDataEnding) : std::nullopt;
    if (!set) return {};
    NoteReader leftReader{files, *left}, reader{files, *set};
    const std::set<std::pair<int, std::string>> before = KeptBefore(files, setName);
    Keeper keeper{files, setName, KeptReason::kLeftOver, time};
    LeftOverNotes result;
    for (int verse = 0; verse < kVerseCount; ++verse) {
        std::string text = TextOf(SourceOf(leftReader), verse);
        if (text.empty() || text == TextOf(SourceOf(reader), verse) || before.contains({verse, text})) continue;
        KeepNote(keeper, verse, std::move(text));
        ++result.kept;
    }
    WriteWaiting(keeper);
    result.isFailed = keeper.isFailed;
    if (!result.isFailed) files.remove(files.device, twin);
    return result;
}
