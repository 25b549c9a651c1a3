#include "notes/taken_sets.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <set>
#include <string_view>

#include "notes/conflict_copies.h"
#include "notes/file_names.h"
#include "notes/note_backup.h"
#include "notes/note_history.h"
#include "notes/note_lock.h"
#include "notes/note_places.h"
#include "notes/note_sets.h"
#include "notes/whole_files.h"
#include "scripture/letters.h"

static const std::string kTempDataEnding = std::string(kDataEnding) + kTempEnding;
static const std::string kStagedStart = std::string(kTakenList) + '-';
static constexpr std::size_t kListLimit = std::size_t{1} << 24;

static bool Exists(const NoteFiles& files, const std::string& name) {
    return files.stamp(files.device, name).exists;
}

// ---- Looking --------------------------------------------------------------------------------------------------------

static bool LessIgnoringCase(const std::string& one, const std::string& other) {
    return LowerCased(one) < LowerCased(other);
}

// The names with a data file, or with the temporary one of a save that was stopped.
static std::vector<std::string> SetsIn(const NoteFiles& files) {
    std::vector<std::string> names = NamesWithEnding(files, "", kDataEnding);
    for (std::string& name : NamesWithEnding(files, "", kTempDataEnding)) names.push_back(std::move(name));
    std::ranges::sort(names, LessIgnoringCase);
    const auto isSame = [](const std::string& one, const std::string& other) { return EqualIgnoringCase(one, other); };
    names.erase(std::unique(names.begin(), names.end(), isSame), names.end());
    return names;
}

bool HasNoSets(const NoteFiles& files) {
    const auto hasNone = [&](const std::string& ending) { return NamesWithEnding(files, "", ending).empty(); };
    return hasNone(kIndexEnding) && hasNone(kDataEnding) && hasNone(kTempDataEnding);
}

// The contents of a file of the first set as the start makes it; empty for other files.
static std::vector<unsigned char> FirstContents(const std::string& name) {
    const NoteSet set = EmptyNoteSet(kFirstSetName);
    if (name == set.dataFileName) return std::vector<unsigned char>(kVerseCount, 0);
    return name == IndexFileName(set) ? IndexBytes(set.offsets) : std::vector<unsigned char>();
}

// Is it such a file? Then nothing is lost with it.
static bool IsAsFirstMade(const NoteFiles& files, const std::string& name) {
    const std::vector<unsigned char> made = FirstContents(name);
    std::vector<unsigned char> bytes;
    return !made.empty() && ReadWholeFile(files, name, made.size(), bytes) && bytes == made;
}

// Is the first set as it was made, without a note of before?
static bool IsFirstSetNew(const NoteFiles& files) {
    const std::string name = kFirstSetName;
    return IsAsFirstMade(files, name + kDataEnding) && IsAsFirstMade(files, name + kIndexEnding) &&
           !Exists(files, name + kTempDataEnding) && !Exists(files, name + kTableEnding) &&
           !Exists(files, HistoryFileName(name)) && BackupsOf(files, name).empty();
}

static std::vector<std::string> FilesOfSet(const std::string& name) {
    return {name + kDataEnding, name + kTempDataEnding, name + kTableEnding, name + kIndexEnding};
}

// Has the working directory a file of the set that is to stay?
static bool IsPresent(const NoteFiles& files, const std::string& set) {
    const auto exists = [&](const std::string& name) { return Exists(files, name); };
    return std::ranges::any_of(FilesOfSet(set), exists) && (set != kFirstSetName || !IsFirstSetNew(files));
}

// Names of files in the folder of backups that belong to sets of which there is none in `to`.
static std::vector<std::string> BackupsToTake(const NoteFiles& from, const NoteFiles& to) {
    std::vector<std::string> names;
    for (const SetBackup& backup : AllBackups(from)) {
        if (IsPresent(to, backup.setName)) continue;
        for (const char* ending : {kIndexEnding, kTableEnding, kDataEnding})
            names.push_back(BackupName(backup) + ending);
    }
    for (const std::string& set : NamesWithEnding(from, std::string(kBackupFolder) + '/', kHistoryEnding))
        if (!IsPresent(to, set)) names.push_back(HistoryFileName(set));
    return names;
}

SetsToTake FindSetsToTake(const NoteFiles& from, const NoteFiles& to, std::span<const std::string> others) {
    SetsToTake found;
    for (const std::string& set : SetsIn(from)) (IsPresent(to, set) ? found.present : found.sets).push_back(set);
    const bool takesFirst = std::ranges::find(found.sets, kFirstSetName) != found.sets.end();
    found.replacesFirstSet = takesFirst && Exists(to, std::string(kFirstSetName) + kDataEnding);
    found.here = SetsIn(to).size() - (found.replacesFirstSet ? 1 : 0);
    if (found.sets.empty()) return found;
    const auto add = [&](const std::string& name) {
        const bool isFree = !Exists(to, name) || (found.replacesFirstSet && !FirstContents(name).empty());
        if (Exists(from, name) && isFree) found.files.push_back(name);
    };
    for (const std::string& name : BackupsToTake(from, to)) add(name);
    for (const std::string& set : found.sets)
        for (const std::string& name : FilesOfSet(set)) add(name);
    for (const std::string& name : others) add(name);
    return found;
}

static std::u16string Number(std::size_t number) {
    return LettersOfUtf8(std::to_string(number));
}

std::u16string WithoutMiddle(std::u16string_view text, std::size_t limit) {
    static constexpr std::u16string_view kPoints = u"...";
    if (text.size() <= limit) return std::u16string(text);
    const std::size_t atEnd = (limit - kPoints.size()) / 2, before = limit - kPoints.size() - atEnd;
    return std::u16string(text.substr(0, before)).append(kPoints).append(text.substr(text.size() - atEnd));
}

// A paragraph of `text`: a heading and the names below it. Nothing if there are none. A message box grows with its
// longest word, so long names are shortened.
static void AddNames(std::u16string& text, std::u16string_view heading, std::span<const std::u16string> names) {
    static constexpr std::size_t kMostLines = 31, kMostLetters = 60;
    if (names.empty()) return;
    if (!text.empty()) text += u"\n\n";
    text += heading;
    for (std::size_t i = 0; i < std::min(names.size(), kMostLines); ++i)
        text += u"\n    " + WithoutMiddle(names[i], kMostLetters);
    if (names.size() > kMostLines) text += u"\n    and " + Number(names.size() - kMostLines) + u" more";
}

static std::vector<std::u16string> LettersOfNames(const CodePage& page, std::span<const std::string> names) {
    std::vector<std::u16string> letters;
    for (const std::string& name : names) letters.push_back(page.lettersOf(page.device, name));
    return letters;
}

// All of the sets are opened in the order of the folder, so those that are left out may be any.
static void AddLimit(std::u16string& text, std::size_t sets) {
    if (sets <= kNoteSetLimit) return;
    text += u"\n\nVersewell shows " + Number(kNoteSetLimit) + u" note sets. There would be " + Number(sets) +
            u", and the last ones in the order of the folder would not be shown, also of those that are here.";
}

std::u16string TextOfSetsToTake(const CodePage& page, const SetsToTake& found) {
    std::u16string text;
    AddNames(text, u"Note sets that can be taken over:", LettersOfNames(page, found.sets));
    if (found.replacesFirstSet)
        text += u"\n\nThe empty set \"" + LettersOfUtf8(kFirstSetName) + u"\" that is here is replaced.";
    AddNames(text, u"Left out, because there are note sets of these names already:",
             LettersOfNames(page, found.present));
    if (!found.present.empty()) text += u"\nTo take one over, first rename the one that is here.";
    AddNames(text,
             u"Left out, because the names are those of devices, or have letters that this system's code page lacks. "
             u"Rename the files first:",
             found.unnamed);
    AddLimit(text, found.sets.empty() ? 0 : found.here + found.sets.size());
    return text;
}

std::u16string TextOfTakenSets(const SetsToTake& found) {
    const std::size_t count = found.sets.size();
    std::u16string text = Number(count) + (count == 1 ? u" note set" : u" note sets") + u" taken over";
    for (const std::u16string& name : found.unnamed)
        text += (&name == &found.unnamed.front() ? u". Left out for the name: " : u", ") + name;
    return text;
}

// ---- Taking ---------------------------------------------------------------------------------------------------------

static std::string StagedName(std::size_t number) {
    std::array<char, 24> digits{};
    std::snprintf(digits.data(), digits.size(), "%03zu", number + 1);
    return kStagedStart + digits.data() + kTempEnding;
}

static void RemoveStaged(const NoteFiles& files) {
    for (const std::string& name : NamesWithEnding(files, "", kTempEnding))
        if (name == kTakenList || name.starts_with(kStagedStart)) files.remove(files.device, name + kTempEnding);
}

static std::vector<std::string> Lines(std::string_view text) {
    std::vector<std::string> lines;
    for (std::size_t end = text.find('\n'); end != std::string_view::npos; end = text.find('\n')) {
        lines.emplace_back(text.substr(0, end));
        text.remove_prefix(end + 1);
    }
    return lines;
}

static bool IsNameToTake(std::string_view name) {
    static const std::string kEndings[] = {kDataEnding,  kTempDataEnding, kIndexEnding,
                                           kTableEnding, kHistoryEnding,  ".ini"};
    return StaysInFolder(name) && std::ranges::any_of(kEndings, [&](const std::string& ending) {
               return name.size() >= ending.size() &&
                      EqualIgnoringCase(name.substr(name.size() - ending.size()), ending);
           });
}

// Gives one of the copies its name. Whatever has got that name meanwhile stays, and the copy goes, unless it is a file
// of the empty first set.
static bool Settle(const NoteFiles& files, const std::string& staged, const std::string& name) {
    if (!Exists(files, staged)) return true;  // by a former run
    if (!IsNameToTake(name)) return files.remove(files.device, staged);
    if (!Exists(files, name)) return files.rename(files.device, staged, name);
    return IsAsFirstMade(files, name) ? files.replace(files.device, staged, name) : files.remove(files.device, staged);
}

bool FinishTaking(const NoteFiles& files) {
    if (!Exists(files, kTakenList)) return RemoveStaged(files), true;
    std::vector<unsigned char> bytes;
    const NoteLock lock = LockNoteFiles(files);
    if (!ReadWholeFile(files, kTakenList, kListLimit, bytes)) return false;
    const std::vector<std::string> names = Lines({reinterpret_cast<const char*>(bytes.data()), bytes.size()});
    const auto isBackup = [](const std::string& name) { return name.starts_with(kBackupFolder); };
    bool isSettled = std::ranges::none_of(names, isBackup) || files.makeFolder(files.device, kBackupFolder);
    for (std::size_t i = 0; i < names.size(); ++i) isSettled &= Settle(files, StagedName(i), names[i]);
    return isSettled && files.remove(files.device, kTakenList);
}

static SetTaking CopyAll(const NoteFiles& from, const NoteFiles& to, std::span<const std::string> names) {
    for (std::size_t i = 0; i < names.size(); ++i) {
        switch (CopyFileFrom(from, names[i], to, StagedName(i))) {
            case FileCopy::kCopied: break;
            case FileCopy::kCannotRead: return SetTaking::kCannotRead;
            case FileCopy::kCannotWrite: return SetTaking::kCannotWrite;
        }
    }
    return SetTaking::kTaken;
}

static bool WriteList(const NoteFiles& files, std::span<const std::string> names) {
    std::string text;
    for (const std::string& name : names) text += name + '\n';
    return WriteWholeFile(files, kTakenList, {reinterpret_cast<const unsigned char*>(text.data()), text.size()});
}

SetTaking TakeSets(const NoteFiles& from, const NoteFiles& to, const SetsToTake& found) {
    if (!FinishTaking(to)) return SetTaking::kNotFinished;
    SetTaking result = CopyAll(from, to, found.files);
    if (result == SetTaking::kTaken && !WriteList(to, found.files)) result = SetTaking::kCannotWrite;
    if (result == SetTaking::kTaken) return FinishTaking(to) ? SetTaking::kTaken : SetTaking::kNotFinished;
    RemoveStaged(to);
    return result;
}
