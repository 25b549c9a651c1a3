#include "notes/note_backup.h"

#include <algorithm>
#include <functional>

#include "notes/whole_files.h"
#include "scripture/letters.h"

static constexpr std::size_t kBackupDays = 10;

static bool IsDate(const std::string& text) {
    static constexpr char kForm[] = "dddd-dd-dd";
    if (text.size() != sizeof kForm - 1) return false;
    return std::equal(text.begin(), text.end(), kForm,
                      [](char c, char form) { return form == 'd' ? IsDigit(c) : c == form; });
}

// Days with a backup of the set, latest first. Backups of a set "a 2024-12-31" do not count for a set "a".
static std::vector<std::string> BackupDays(const NoteFiles& files, const std::string& setName) {
    static const std::string ending = kDataEnding;
    std::vector<std::string> days;
    for (const std::string& name : files.list(files.device, std::string(kBackupFolder) + "/*" + kDataEnding)) {
        if (!name.starts_with(setName + ' ') || !name.ends_with(ending)) continue;
        const std::size_t begin = setName.size() + 1;
        const std::size_t end = name.size() - ending.size();
        if (begin < end && IsDate(name.substr(begin, end - begin))) days.push_back(name.substr(begin, end - begin));
    }
    std::sort(days.begin(), days.end(), std::greater());
    return days;
}

static std::string BackupName(const std::string& setName, const std::string& day) {
    return std::string(kBackupFolder) + '/' + setName + ' ' + day;
}

static void RemoveOldBackups(const NoteFiles& files, const std::string& setName) {
    const std::vector<std::string> days = BackupDays(files, setName);
    for (std::size_t i = kBackupDays; i < days.size(); ++i)
        for (const char* ending : {kDataEnding, kIndexEnding})
            files.remove(files.device, BackupName(setName, days[i]) + ending);
}

void KeepBackup(const NoteFiles& files, const NoteSet& set, const std::string& today) {
    const std::string setName = NoteSetName(set);
    const std::string name = BackupName(setName, today);
    if (files.stamp(files.device, name + kDataEnding).exists || !files.makeFolder(files.device, kBackupFolder)) return;
    // The index file is copied, not linked, because saves overwrite it in place. It is copied before the data file,
    // because a backup that has a data file is taken to be complete.
    files.remove(files.device, name + kIndexEnding);
    CopyWholeFile(files, IndexFileName(set), name + kIndexEnding);
    if (!files.link(files.device, set.dataFileName, name + kDataEnding))
        CopyWholeFile(files, set.dataFileName, name + kDataEnding);
    RemoveOldBackups(files, setName);
}
