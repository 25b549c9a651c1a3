#include "notes/note_backup.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <string_view>
#include <tuple>

#include "notes/note_places.h"
#include "notes/whole_files.h"
#include "scripture/letters.h"

static constexpr std::size_t kBackupDays = 10;
static constexpr std::size_t kBackupsWithTime = 10;
static constexpr const char* kEndings[] = {kIndexEnding, kTableEnding, kDataEnding};

// ---- Names ----------------------------------------------------------------------------------------------------------

static constexpr std::string_view kDateForm = "dddd-dd-dd";
static constexpr std::string_view kClockForm = "dddddd";

// If `text` ends in a blank and a text of `form`, in which "d" stands for a digit, cuts them off and returns the text.
static std::optional<std::string> CutForm(std::string& text, std::string_view form) {
    if (text.size() <= form.size()) return std::nullopt;
    const std::size_t begin = text.size() - form.size();
    const bool isOfForm = std::equal(form.begin(), form.end(), text.begin() + static_cast<std::ptrdiff_t>(begin),
                                     [](char f, char c) { return f == 'd' ? IsDigit(c) : c == f; });
    if (!isOfForm || text[begin - 1] != ' ') return std::nullopt;
    const std::string cut = text.substr(begin);
    text.resize(begin - 1);
    return cut;
}

// What a data file of the folder is a copy of.
static std::optional<SetBackup> BackupOf(const std::string& fileName) {
    static const std::string ending = kDataEnding;
    if (!fileName.ends_with(ending)) return std::nullopt;
    SetBackup backup{fileName.substr(0, fileName.size() - ending.size()), "", ""};
    if (const auto clock = CutForm(backup.setName, kClockForm)) backup.clock = *clock;
    const auto day = CutForm(backup.setName, kDateForm);
    if (!day) return std::nullopt;
    backup.day = *day;
    return backup;
}

std::string BackupName(const SetBackup& backup) {
    const std::string name = std::string(kBackupFolder) + '/' + backup.setName + ' ' + backup.day;
    return backup.clock.empty() ? name : name + ' ' + backup.clock;
}

// ---- Lists ----------------------------------------------------------------------------------------------------------

std::vector<SetBackup> AllBackups(const NoteFiles& files) {
    std::vector<SetBackup> backups;
    for (const std::string& name : files.list(files.device, std::string(kBackupFolder) + "/*" + kDataEnding))
        if (const auto backup = BackupOf(name)) backups.push_back(*backup);
    std::ranges::sort(backups, [](const SetBackup& a, const SetBackup& b) {
        return std::tie(a.setName, b.day, b.clock) < std::tie(b.setName, a.day, a.clock);
    });
    return backups;
}

std::vector<SetBackup> BackupsOf(const NoteFiles& files, const std::string& setName) {
    std::vector<SetBackup> backups = AllBackups(files);
    std::erase_if(backups, [&](const SetBackup& backup) { return !EqualIgnoringCase(backup.setName, setName); });
    return backups;
}

std::optional<NoteSet> OpenBackup(const NoteFiles& files, const SetBackup& backup) {
    std::optional<NoteSet> set = ReadWholeSet(files, BackupName(backup) + kDataEnding);
    if (set) set->readOnly = true;
    return set;
}

// ---- Copies ---------------------------------------------------------------------------------------------------------

void RemoveBackup(const NoteFiles& files, const SetBackup& backup) {
    for (const char* ending : {kDataEnding, kIndexEnding, kTableEnding})
        if (files.stamp(files.device, BackupName(backup) + ending).exists)
            files.remove(files.device, BackupName(backup) + ending);
}

// Removes the set's copies with a time, or those without one, except for the last `count`.
static void RemoveAllBut(const NoteFiles& files, const std::string& setName, bool hasTime, std::size_t count) {
    std::vector<SetBackup> backups = BackupsOf(files, setName);
    std::erase_if(backups, [&](const SetBackup& backup) { return backup.clock.empty() == hasTime; });
    for (std::size_t i = count; i < backups.size(); ++i) RemoveBackup(files, backups[i]);
}

// The index file is copied, not linked, because saves overwrite it in place. It is copied before the data file, because
// a copy that has a data file is taken to be complete.
static bool CopySet(const NoteFiles& files, const NoteSet& set, const SetBackup& backup) {
    const std::string name = BackupName(backup);
    files.remove(files.device, name + kIndexEnding);
    if (!CopyWholeFile(files, IndexFileName(set), name + kIndexEnding)) return false;
    if (files.link(files.device, set.dataFileName, name + kDataEnding) ||
        CopyWholeFile(files, set.dataFileName, name + kDataEnding))
        return true;
    files.remove(files.device, name + kIndexEnding);
    return false;
}

// Older copies of the program left a data file without an index when the disk was full.
static void MakeIndexOf(const NoteFiles& files, const SetBackup& backup) {
    const std::string name = BackupName(backup);
    if (files.stamp(files.device, name + kIndexEnding).exists) return;
    if (const std::optional<NoteSet> set = OpenBackup(files, backup))
        WriteWholeFile(files, name + kIndexEnding, IndexBytes(set->offsets));
}

bool KeepBackup(const NoteFiles& files, const NoteSet& set, const std::string& today) {
    const SetBackup backup{NoteSetName(set), today, ""};
    if (files.stamp(files.device, BackupName(backup) + kDataEnding).exists) return MakeIndexOf(files, backup), true;
    if (!files.makeFolder(files.device, kBackupFolder)) return false;
    const bool isCopied = CopySet(files, set, backup);
    RemoveAllBut(files, backup.setName, false, kBackupDays);
    return isCopied;
}

static bool IsTaken(const NoteFiles& files, const SetBackup& backup) {
    return std::ranges::any_of(
        kEndings, [&](const char* ending) { return files.stamp(files.device, BackupName(backup) + ending).exists; });
}

// Gives the copy the first free time of its day from `second` on. False if there is none.
static bool FindTime(const NoteFiles& files, SetBackup& backup, int second) {
    static constexpr int kSecondsOfDay = 86400;
    for (; second >= 0 && second < kSecondsOfDay; ++second) {
        std::array<char, 16> clock{};
        std::snprintf(clock.data(), clock.size(), "%02d%02d%02d", second / 3600, second / 60 % 60, second % 60);
        backup.clock = clock.data();
        if (!IsTaken(files, backup)) return true;
    }
    return false;
}

std::optional<SetBackup> KeepBackupWithTime(const NoteFiles& files, const NoteSet& set, const NoteTime& now) {
    SetBackup backup{NoteSetName(set), now.day, ""};
    if (!files.makeFolder(files.device, kBackupFolder) || !FindTime(files, backup, now.secondOfDay))
        return std::nullopt;
    const std::string table = NoteSetName(set) + kTableEnding;
    const bool hasTable = files.stamp(files.device, table).exists;
    if ((hasTable && !CopyWholeFile(files, table, BackupName(backup) + kTableEnding)) || !CopySet(files, set, backup)) {
        RemoveBackup(files, backup);
        return std::nullopt;
    }
    RemoveAllBut(files, backup.setName, true, kBackupsWithTime);
    return backup;
}

// ---- Another name ---------------------------------------------------------------------------------------------------

void MoveBackups(const NoteFiles& files, const std::string& from, const std::string& to) {
    for (const SetBackup& backup : BackupsOf(files, from)) {
        SetBackup moved{to, backup.day, backup.clock};
        // Names that differ in case only are those of the same files.
        if (!EqualIgnoringCase(from, to) && IsTaken(files, moved) && !FindTime(files, moved, 0)) continue;
        for (const char* ending : kEndings)
            files.rename(files.device, BackupName(backup) + ending, BackupName(moved) + ending);
    }
}
