#include "notes/conflict_copies.h"

#include <algorithm>

#include "scripture/letters.h"

static constexpr std::size_t kLongestMachineName = 15;  // of NetBIOS, which Windows keeps to

static bool IsMachineLetter(char c) {
    return (c >= 'A' && c <= 'Z') || IsDigit(c) || c == '-';
}

static bool IsAllDigits(std::string_view text) {
    return !text.empty() && std::ranges::all_of(text, IsDigit);
}

// "DESKTOP1", "DESKTOP-AB12", and with a number behind it: "DESKTOP1-2".
static bool IsMachineName(std::string_view text) {
    const std::size_t hyphen = text.rfind('-');
    if (hyphen != std::string_view::npos && IsAllDigits(text.substr(hyphen + 1))) text = text.substr(0, hyphen);
    const bool hasCapital = std::ranges::any_of(text, [](char c) { return c >= 'A' && c <= 'Z'; });
    return hasCapital && text.size() <= kLongestMachineName && std::ranges::all_of(text, IsMachineLetter);
}

static bool Contains(std::string_view text, std::string_view part) {
    return LowerCased(std::string(text)).find(part) != std::string::npos;
}

// `rest` is what stands behind the set's name.
static bool IsCertainRest(std::string_view rest) {
    if (rest.starts_with(".sync-conflict-") || rest.starts_with("_conflict-")) return true;
    return rest.starts_with(" (") && rest.ends_with(')') &&
           (Contains(rest, "conflicted copy") || Contains(rest, "(sfconflict "));
}

static bool IsLikelyRest(std::string_view rest) {
    if (rest.starts_with('-')) return IsMachineName(rest.substr(1));
    return rest.starts_with(" (") && rest.ends_with(')') && IsAllDigits(rest.substr(2, rest.size() - 3));
}

static bool IsConflictName(std::string_view name, std::string_view set, bool isCertain) {
    if (name.size() <= set.size() || !EqualIgnoringCase(name.substr(0, set.size()), set)) return false;
    const std::string_view rest = name.substr(set.size());
    return isCertain ? IsCertainRest(rest) : IsLikelyRest(rest);
}

static bool IsCopyOfAny(std::string_view name, std::span<const std::string> sets) {
    return std::ranges::any_of(sets, [&](const std::string& set) { return IsConflictName(name, set, true); });
}

static bool IsMergedName(std::string_view name) {
    const std::size_t space = name.rfind(' ');
    if (space != std::string_view::npos && IsAllDigits(name.substr(space + 1))) name = name.substr(0, space);
    return name.ends_with(kMergedEnding);
}

std::optional<ConflictName> ConflictNameOf(std::string_view name, std::span<const std::string> sets) {
    std::optional<ConflictName> found;
    if (IsMergedName(name)) return found;
    for (const bool isCertain : {true, false}) {
        for (const std::string& set : sets) {
            const bool isLonger = !found || set.size() > found->set.size();
            if (isLonger && IsConflictName(name, set, isCertain) && !IsCopyOfAny(set, sets))
                found = ConflictName{set, isCertain};
        }
        if (found) return found;
    }
    return std::nullopt;
}

// ---- Files ----------------------------------------------------------------------------------------------------------

std::vector<std::string> NamesWithEnding(const NoteFiles& files, const std::string& folder, const std::string& ending) {
    std::vector<std::string> names;
    for (const std::string& file : files.list(files.device, folder + '*' + ending)) {
        if (file.size() < ending.size()) continue;
        const std::size_t end = file.size() - ending.size();
        if (EqualIgnoringCase(std::string_view(file).substr(end), ending)) names.push_back(file.substr(0, end));
    }
    return names;
}

std::vector<ConflictCopy> FindConflictCopies(const NoteFiles& files) {
    return ConflictCopiesAmong(NamesWithEnding(files, "", kDataEnding));
}

std::vector<ConflictCopy> ConflictCopiesAmong(std::span<const std::string> sets) {
    std::vector<ConflictCopy> copies;
    for (const std::string& name : sets)
        if (const std::optional<ConflictName> found = ConflictNameOf(name, sets)) copies.push_back({name, *found});
    std::ranges::sort(copies, {}, &ConflictCopy::name);
    return copies;
}

std::optional<ConflictName> ConflictCopyOf(const NoteFiles& files, std::string_view name) {
    return ConflictNameOf(name, NamesWithEnding(files, "", kDataEnding));
}

static std::vector<std::string> CopiesAmong(std::span<const std::string> names, const std::string& set,
                                            bool isCertain) {
    const std::string sets[] = {set};
    std::vector<std::string> copies;
    for (const std::string& name : names)
        if (const auto found = ConflictNameOf(name, sets); found && (found->isCertain || !isCertain))
            copies.push_back(name);
    std::ranges::sort(copies);
    return copies;
}

HalfCopyNames FindHalfCopies(const NoteFiles& files) {
    return {NamesWithEnding(files, "", kIndexEnding),
            NamesWithEnding(files, std::string(kBackupFolder) + '/', kHistoryEnding)};
}

std::vector<std::string> LoneIndexesOf(const NoteFiles& files, const HalfCopyNames& found, const std::string& set) {
    std::vector<std::string> names = CopiesAmong(found.indexes, set, false);
    std::erase_if(names, [&](const std::string& name) { return files.stamp(files.device, name + kDataEnding).exists; });
    return names;
}

std::vector<std::string> HistoryCopiesOf(const HalfCopyNames& found, const std::string& set) {
    return CopiesAmong(found.histories, set, true);
}
