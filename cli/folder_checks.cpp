#include "cli/folder_checks.h"

#include <initializer_list>

#include "app/session.h"
#include "app/settings.h"
#include "cli/text_folder.h"
#include "notes/note_lock.h"

static void TellOfFiles(const std::string& text, Diagnosis& diagnosis) {
    diagnosis.troubles.push_back({text, "", true});
}

static FolderUse UseOf(const Vw& vw, const std::string& folder) {
    return vw.surroundings.useOf(vw.surroundings.device, folder);
}

static FileKind KindOf(const Vw& vw, const std::string& path) {
    return vw.surroundings.kindOf(vw.surroundings.device, path);
}

bool CanReadFolder(const Vw& vw, Diagnosis& diagnosis) {
    if (UseOf(vw, diagnosis.notesFolder) != FolderUse::kNothing) return true;
    TellOfFiles("The folder \"" + diagnosis.notesFolder + "\" cannot be read by this user.", diagnosis);
    return false;
}

// ---- Where there should be a file -----------------------------------------------------------------------------------

static void CheckFile(const Vw& vw, const std::string& name, Diagnosis& diagnosis) {
    if (KindOf(vw, PathIn(diagnosis.notesFolder, name)) == FileKind::kFolder)
        TellOfFiles("\"" + name + "\" is a folder, but its place is that of a file.", diagnosis);
}

static void CheckFilesWith(const Vw& vw, const std::string& folder, const char* ending, Diagnosis& diagnosis) {
    const Surroundings& surroundings = vw.surroundings;
    const std::string path = folder.empty() ? diagnosis.notesFolder : PathIn(diagnosis.notesFolder, folder);
    for (const std::string& name : surroundings.list(surroundings.device, path, ending))
        CheckFile(vw, folder.empty() ? name : PathIn(folder, name), diagnosis);
}

// ---- The folder of the backups --------------------------------------------------------------------------------------

static void CheckBackupFolder(const Vw& vw, Diagnosis& diagnosis) {
    const std::string path = PathIn(diagnosis.notesFolder, kBackupFolder);
    const FileKind kind = KindOf(vw, path);
    if (kind == FileKind::kFile)
        TellOfFiles("\"backup\" is a file, so backups and earlier notes cannot be kept in a folder of that name.",
                    diagnosis);
    else if (kind == FileKind::kFolder && UseOf(vw, path) != FolderUse::kChange)
        TellOfFiles("Backups and earlier notes cannot be kept: this user may not change the folder \"backup\".",
                    diagnosis);
}

void CheckFolders(const Vw& vw, Diagnosis& diagnosis) {
    if (UseOf(vw, diagnosis.notesFolder) == FolderUse::kRead)
        TellOfFiles("No note can be saved: this user may not change the folder \"" + diagnosis.notesFolder + "\".",
                    diagnosis);
    CheckBackupFolder(vw, diagnosis);
    for (const char* ending : {kDataEnding, kIndexEnding, kTableEnding}) CheckFilesWith(vw, "", ending, diagnosis);
    CheckFilesWith(vw, kBackupFolder, kHistoryEnding, diagnosis);
    for (const char* name : {kLockFile, kSettingsFile, kMoreSettingsFile, kSessionFile}) CheckFile(vw, name, diagnosis);
}
