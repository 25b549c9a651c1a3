// Separate from the procedures that look at the disk, so that it can be tested natively.
#include "output/own_files.h"

#include <algorithm>

#include "notes/note_files.h"
#include "scripture/letters.h"

static constexpr std::string_view kEndings[] = {kDataEnding, kIndexEnding, kTableEnding, kHistoryEnding, kTempEnding};
static constexpr std::string_view kNames[] = {"Versewell.INI", "Versewell.more.ini", "Versewell.session"};
static constexpr std::string_view kScriptureBeginning = "_av";
static constexpr std::string_view kScriptureEnding = ".dat";

static bool BeginsWith(std::string_view name, std::string_view beginning) {
    return EqualIgnoringCase(name.substr(0, beginning.size()), beginning);
}

static bool EndsWith(std::string_view name, std::string_view ending) {
    return name.size() >= ending.size() && EqualIgnoringCase(name.substr(name.size() - ending.size()), ending);
}

// The name that Windows takes for it.
static std::string_view TakenName(std::string_view name) {
    name = name.substr(0, name.find(':'));
    const std::size_t last = name.find_last_not_of(". ");
    return last == std::string_view::npos ? name : name.substr(0, last + 1);
}

bool IsOwnFileName(std::string_view name) {
    const std::string_view taken = TakenName(name);
    return std::any_of(std::begin(kEndings), std::end(kEndings), [&](auto end) { return EndsWith(taken, end); }) ||
           std::any_of(std::begin(kNames), std::end(kNames), [&](auto own) { return EqualIgnoringCase(taken, own); }) ||
           (BeginsWith(taken, kScriptureBeginning) && EndsWith(taken, kScriptureEnding));
}
