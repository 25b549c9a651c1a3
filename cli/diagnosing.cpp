#include "cli/diagnosing.h"

#include <string_view>

#include "app/session.h"
#include "app/settings.h"
#include "cli/folder_checks.h"
#include "cli/left_files.h"
#include "cli/set_findings.h"
#include "cli/text_files.h"
#include "cli/text_folder.h"
#include "notes/note_backup.h"
#include "notes/note_lock.h"
#include "notes/note_source.h"

// ---- The text -------------------------------------------------------------------------------------------------------

static void LookAtText(const Vw& vw, Diagnosis& diagnosis) {
    try {
        diagnosis.textFolder = TextFolder(vw);
    } catch (const Complaint& complaint) {
        diagnosis.troubles.push_back({complaint.text, "", true});
        return;
    }
    const std::vector<FileDigest> built = BuiltFiles();
    diagnosis.textFiles = TextFilesIn(vw, diagnosis.textFolder);
    for (std::size_t i = 0; i < built.size(); ++i) {
        const FileDigest& file = diagnosis.textFiles[i];
        const std::string path = '"' + PathIn(diagnosis.textFolder, file.name) + '"';
        if (file.digest.empty())
            diagnosis.troubles.push_back({"The scripture file " + path + " cannot be read.", "", true});
        else if (file != built[i])
            diagnosis.troubles.push_back({"The scripture file " + path + " is not the one of this program."});
    }
}

// ---- The sets -------------------------------------------------------------------------------------------------------

// As it has to be typed for the same folder.
static std::string MendingCommand(const Vw& vw) {
    const std::string& folder = vw.options.workingFolder;
    return "vw notes verify --mend" + (folder.empty() ? "" : " --folder \"" + folder + '"');
}

// What the mending would leave is seen by opening the sets once more: all changes of the first time are in memory.
static Findings FindingsBehind(const Vw& vw, const OpenedNotes& notes, const Findings& found) {
    if (found.empty()) return {};
    NoteSets again;
    const OpenedSets opened = OpenNoteSets(notes.files, again, vw.surroundings.now(vw.surroundings.device));
    return CheckSets(notes.files, again, opened);
}

static void LookForFaults(const Vw& vw, Diagnosis& diagnosis) {
    OpenedNotes& notes = *diagnosis.notes;
    const Findings found = CheckSets(notes.files, notes.notes, notes.opened);
    const Findings left = FindingsBehind(vw, notes, found);
    for (const std::string& finding : found) {
        const bool isMended = IsMended(finding, found, left);
        diagnosis.troubles.push_back({finding, isMended ? MendingCommand(vw) : "", !isMended});
    }
    if (const std::string more = NotShownText(notes.notes); !more.empty())
        diagnosis.troubles.push_back({Utf8OfNote(notes.files.codePage, more)});
}

static void CountSets(Diagnosis& diagnosis) {
    OpenedNotes& notes = *diagnosis.notes;
    for (NoteSet& set : notes.notes.sets) {
        const std::string name = Utf8Name(notes, set);
        if (CanReadNotes(notes.files, set))
            diagnosis.sets.push_back({&set, CountNotes(notes, set)});
        else if (!IsTold(diagnosis, name))
            diagnosis.troubles.push_back({"The note set \"" + name + "\" cannot be read.", "", true});
    }
}

// ---- The lock -------------------------------------------------------------------------------------------------------

// The file of the lock is not made if it is missing.
static const char* LockOf(const NoteFiles& files) {
    if (!files.stamp(files.device, kLockFile).exists) return "none";
    switch (LockNoteFiles(files).state) {
        case NoteLocking::kLocked: return "free";
        case NoteLocking::kBusy: return "held";
        case NoteLocking::kImpossible: break;
    }
    return "impossible";
}

static void LookAtLock(const NoteFiles& files, Diagnosis& diagnosis) {
    diagnosis.lock = LockOf(files);
    if (std::string_view(diagnosis.lock) == "held")
        diagnosis.troubles.push_back(
            {"Another program has locked the note sets for more than two seconds. It is saving large sets, or has "
             "stopped while it did: its lock ends with it."});
}

// ---- Other files ----------------------------------------------------------------------------------------------------

static void MeasureBackups(const NoteFiles& files, Diagnosis& diagnosis) {
    const std::vector<SetBackup> backups = AllBackups(files);
    diagnosis.backups = backups.size();
    for (const SetBackup& backup : backups)
        for (const char* ending : {kDataEnding, kIndexEnding, kTableEnding})
            diagnosis.backupSize += files.stamp(files.device, BackupName(backup) + ending).size;
    const std::string folder = std::string(kBackupFolder) + '/';
    for (const std::string& name : files.list(files.device, folder + '*' + kHistoryEnding))
        diagnosis.earlierSize += files.stamp(files.device, folder + name).size;
}

static void LookForSettings(const NoteFiles& files, Diagnosis& diagnosis) {
    static constexpr struct {
        const char* name;
        const char* meaning;
    } kFiles[] = {
        {kSettingsFile, "settings of the window"},
        {kMoreSettingsFile, "more settings of the window"},
        {kSessionFile, "what the window had open; it is running, or was stopped"},
        {kDamagedSessionFile, "the same of an earlier time, damaged and put aside"},
    };
    for (const auto& [name, meaning] : kFiles)
        if (const NoteFileStamp stamp = files.stamp(files.device, name); stamp.exists)
            diagnosis.kept.push_back({name, stamp.size, meaning});
}

// ---- All of it ------------------------------------------------------------------------------------------------------

// Before the first note is saved there is no folder, unless the user has named one.
static bool IsNotYetThere(const Vw& vw, const std::string& folder) {
    const bool isNamed = !vw.options.workingFolder.empty() || VariableOf(vw, "VERSEWELL_FOLDER");
    return !isNamed && vw.surroundings.noteFiles(vw.surroundings.device, folder) == nullptr;
}

// The files are those on the disk, while the notes are read as they would be when they are mended.
static void LookAtNotes(const Vw& vw, Diagnosis& diagnosis) {
    diagnosis.notesFolder = WorkingFolder(vw);
    if (IsNotYetThere(vw, diagnosis.notesFolder)) return;
    try {
        diagnosis.notes = OpenNotes(vw, NoteAccess::kExamine);
    } catch (const Complaint& complaint) {
        diagnosis.troubles.push_back({complaint.text, "", true});
        return;
    }
    if (!CanReadFolder(vw, diagnosis)) return;
    const NoteFiles& files = diagnosis.notes->trial->files;
    CheckFolders(vw, diagnosis);
    LookAtLock(files, diagnosis);
    LookForFaults(vw, diagnosis);
    CountSets(diagnosis);
    MeasureBackups(files, diagnosis);
    LookForSettings(files, diagnosis);
    LookForLeftFiles({files, diagnosis.notes->files, MendingCommand(vw)}, diagnosis);
}

Diagnosis Diagnose(const Vw& vw) {
    Diagnosis diagnosis;
    LookAtText(vw, diagnosis);
    LookAtNotes(vw, diagnosis);
    return diagnosis;
}
