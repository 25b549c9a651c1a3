#include "notes/note_recovery.h"

#include <algorithm>
#include <optional>

#include "notes/note_layout.h"

static constexpr std::string_view kDataEnding = ".nmd";

static void Report(OpenedSets& opened, const std::string& line) {
    if (!opened.report.empty()) opened.report += "\n\n";
    opened.report += line;
}

static std::string Quoted(const std::string& name) {
    return '"' + name + '"';
}

// ---- Names ----------------------------------------------------------------------------------------------------------

static char InLowerCase(char c) {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

static bool IsSameName(std::string_view one, std::string_view other) {
    return std::equal(one.begin(), one.end(), other.begin(), other.end(),
                      [](char a, char b) { return InLowerCase(a) == InLowerCase(b); });
}

// Names of the files that end in `ending` exactly, without it.
static std::vector<std::string> NamesBefore(const NoteFiles& files, std::string_view ending) {
    std::vector<std::string> names;
    for (const std::string& file : files.list(files.device, "*" + std::string(ending))) {
        if (file.size() < ending.size()) continue;
        const std::size_t end = file.size() - ending.size();
        if (IsSameName(std::string_view(file).substr(end), ending)) names.push_back(file.substr(0, end));
    }
    return names;
}

// ---- What was left behind -------------------------------------------------------------------------------------------

static void PutTwinsInPlace(const NoteFiles& files, OpenedSets& opened) {
    for (const std::string& name : NamesBefore(files, std::string(kDataEnding) + kTempEnding)) {
        if (PutTwinInPlace(files, name + std::string(kDataEnding)))
            Report(opened, "The data file of the note set " + Quoted(name) +
                               " was missing. Its temporary file is whole and has taken its place.");
    }
}

static std::optional<NoteLayout> LayoutOf(const NoteFiles& files, const std::string& dataFileName) {
    void* const file = files.open(files.device, dataFileName);
    if (file == nullptr) return std::nullopt;
    NoteLayout layout = ScanNotes(files, file);
    files.close(files.device, file);
    return layout;
}

static void MakeIndexAgain(const NoteFiles& files, NoteSet& set, const char* fault, OpenedSets& opened) {
    const bool written = WriteIndex(files, IndexFileName(set), set.offsets);
    StampFiles(files, set);
    Report(opened, "The index file of the note set " + Quoted(NoteSetName(set)) + fault +
                       " It has been made again from the notes, which are all there." +
                       (written ? "" : " It could not be written to the disk: this will be tried at the next start."));
}

// Sets whose index file is lost get it back before they are looked for. Those that are not whole are given: they have
// no index that could be trusted.
static std::vector<NoteSet> MakeLostIndexes(const NoteFiles& files, OpenedSets& opened) {
    const std::vector<std::string> indexes = files.list(files.device, "*.nmi");
    std::vector<NoteSet> damaged;
    for (const std::string& name : NamesBefore(files, kDataEnding)) {
        NoteSet set{name + std::string(kDataEnding)};
        const bool isListed = std::any_of(indexes.begin(), indexes.end(), [&](const std::string& index) {
            return IsSameName(std::string_view(index).substr(0, index.rfind('.')), name);
        });
        if (isListed || files.stamp(files.device, IndexFileName(set)).exists) continue;
        std::optional<NoteLayout> layout = LayoutOf(files, set.dataFileName);
        if (!layout) continue;
        const bool isWhole = IsWhole(*layout);
        set.offsets = std::move(layout->offsets);
        if (isWhole)
            MakeIndexAgain(files, set, " was missing.", opened);
        else
            damaged.push_back(std::move(set));
    }
    return damaged;
}

// ---- The sets that were found ---------------------------------------------------------------------------------------

// Where the notes of a set that is not whole may be read: an index in good order knows more than the ends that are
// left. What stands behind the last end is the note after it.
static std::vector<std::uint32_t> BestOffsets(std::vector<std::uint32_t> index, NoteLayout layout) {
    if (index.size() == kVerseCount && index.front() == 0 && std::is_sorted(index.begin(), index.end())) return index;
    if (layout.offsets.size() < kVerseCount && !layout.endsWithNul)
        layout.offsets.push_back(static_cast<std::uint32_t>(layout.size));
    return layout.offsets;
}

static void ReportDamage(const NoteFiles& files, const NoteSet& set, const NoteLayout& layout, OpenedSets& opened) {
    const std::string twin = set.dataFileName + kTempEnding;
    const bool hasTwin =
        files.stamp(files.device, twin).exists && IsWhole(LayoutOf(files, twin).value_or(NoteLayout{}));
    opened.hasDamaged = true;
    Report(opened, "The data file " + Quoted(set.dataFileName) + " is damaged: it should hold " +
                       std::to_string(kVerseCount) + " notes, but it has " + std::to_string(layout.ends) +
                       ". It is left as it is, so that you can rescue what it holds: the set can be read, but no note "
                       "can be saved in it." +
                       (hasTwin ? " A whole copy of the set is in " + Quoted(twin) + "." : ""));
}

static void Examine(const NoteFiles& files, NoteSet& set, bool isReported, OpenedSets& opened) {
    std::optional<NoteLayout> layout = LayoutOf(files, set.dataFileName);
    if (!layout || FitsLayout(set.offsets, *layout)) return;
    set.readOnly = !IsWhole(*layout);
    if (set.readOnly) {
        if (isReported) ReportDamage(files, set, *layout, opened);
        set.offsets = BestOffsets(std::move(set.offsets), std::move(*layout));
        return;
    }
    set.offsets = std::move(layout->offsets);
    MakeIndexAgain(files, set, " did not match its notes.", opened);
}

OpenedSets OpenNoteSets(const NoteFiles& files, NoteSets& notes) {
    OpenedSets opened;
    PutTwinsInPlace(files, opened);
    const std::vector<NoteSet> damaged = MakeLostIndexes(files, opened);
    opened.created = FindNoteSets(files, notes);
    for (const NoteSet& set : damaged) {
        const bool isThere = std::any_of(notes.sets.begin(), notes.sets.end(), [&](const NoteSet& found) {
            return IsSameName(found.dataFileName, set.dataFileName);
        });
        if (!isThere && notes.sets.size() < kNoteSetLimit) notes.sets.push_back(set);
    }
    for (std::size_t i = 0; i < notes.sets.size(); ++i) {
        // The first set that could not be created is told of by that.
        Examine(files, notes.sets[i], opened.created || i > 0, opened);
    }
    return opened;
}
