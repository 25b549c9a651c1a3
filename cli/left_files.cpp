#include "cli/left_files.h"

#include <algorithm>

#include "cli/utf8.h"
#include "notes/conflict_copies.h"
#include "notes/taken_sets.h"

static const std::string kTwinEnding = std::string(kDataEnding) + kTempEnding;  // beside a data file

// Of settings that are being saved on Windows (win32/replacing_file.h).
static constexpr char kSavingStart[] = "~save", kSavingEnding[] = ".tmp";

static std::string Utf8FileName(const NoteFiles& files, const std::string& name) {
    return Utf8Of(files.codePage.lettersOf(files.codePage.device, name));
}

static std::string QuotedName(const NoteFiles& files, const std::string& name) {
    return '"' + Utf8FileName(files, name) + '"';
}

static bool IsKept(const Diagnosis& diagnosis, const std::string& name) {
    return std::ranges::find(diagnosis.kept, name, &KeptFile::name) != diagnosis.kept.end();
}

static void Keep(const NoteFiles& files, const std::string& name, const std::string& meaning, Diagnosis& diagnosis) {
    diagnosis.kept.push_back({Utf8FileName(files, name), files.stamp(files.device, name).size, meaning});
}

// ---- Temporary files ------------------------------------------------------------------------------------------------

// The mending has put it in place of the data file, or its notes among the earlier ones; of that the troubles tell. Or
// it had no note that is not in its set.
static void TellOfMended(const ExaminedFiles& examined, const std::string& name, Diagnosis& diagnosis) {
    const std::string set = name.substr(0, name.size() - std::min(name.size(), kTwinEnding.size()));
    if (IsTold(diagnosis, QuotedName(examined.files, set))) return;
    diagnosis.troubles.push_back(
        {QuotedName(examined.files, name) +
             " was left by a save that was stopped. It has no note of its own, and is deleted.",
         examined.command});
}

static void TellOfLeft(const NoteFiles& files, const std::string& name, Diagnosis& diagnosis) {
    const std::string quoted = QuotedName(files, name);
    if (IsTold(diagnosis, quoted)) return;  // as a whole copy of a damaged data file
    if (name.ends_with(kTwinEnding))
        diagnosis.troubles.push_back(
            {quoted + " was left by a save that was stopped, and is not whole. Look into it before you delete it: it "
                      "may have the note that was to be saved."});
    else
        diagnosis.troubles.push_back({quoted + " was left by a program that was stopped. It may be deleted."});
}

static void LookAtTemporary(const ExaminedFiles& examined, const std::string& name, Diagnosis& diagnosis) {
    Keep(examined.files, name, "left by a program that was stopped", diagnosis);
    if (examined.mended.stamp(examined.mended.device, name).exists)
        TellOfLeft(examined.files, name, diagnosis);
    else
        TellOfMended(examined, name, diagnosis);
}

// The temporary files of notes that are being taken over are needed as long as their list is there.
static void LookForTemporaries(const ExaminedFiles& examined, Diagnosis& diagnosis) {
    const NoteFiles& files = examined.files;
    const bool isTaking = files.stamp(files.device, kTakenList).exists;
    for (const std::string& folder : {std::string(), std::string(kBackupFolder) + '/'})
        for (const std::string& name : NamesWithEnding(files, folder, kTempEnding))
            if (!isTaking || !name.starts_with(kTakenList))
                LookAtTemporary(examined, folder + name + kTempEnding, diagnosis);
    for (const std::string& name : NamesWithEnding(files, "", kSavingEnding))
        if (name.starts_with(kSavingStart)) LookAtTemporary(examined, name + kSavingEnding, diagnosis);
    if (!isTaking) return;
    Keep(files, kTakenList, "notes of another copy that are being taken over", diagnosis);
    diagnosis.troubles.push_back(
        {"The taking over of notes from another copy was stopped. The next start of the window goes on with it."});
}

// ---- Conflict copies ------------------------------------------------------------------------------------------------

// A user may have chosen the name of a copy that is only likely.
static void LookForCopies(const NoteFiles& files, Diagnosis& diagnosis) {
    for (const ConflictCopy& copy : FindConflictCopies(files)) {
        const std::string set = QuotedName(files, copy.of.set);
        Keep(files, copy.name + kDataEnding,
             (copy.of.isCertain ? "a conflict copy of the set " : "perhaps a conflict copy of the set ") + set,
             diagnosis);
        if (copy.of.isCertain)
            diagnosis.troubles.push_back({QuotedName(files, copy.name + kDataEnding) + " was left because the set " +
                                          set +
                                          " was changed on two machines. Merge it in the window by Notes, Note Sets, "
                                          "Merge Sets."});
    }
}

static void TellOfHalf(const NoteFiles& files, const std::string& name, const char* what, Diagnosis& diagnosis) {
    if (IsKept(diagnosis, Utf8FileName(files, name))) return;
    Keep(files, name, "half of a conflict copy", diagnosis);
    diagnosis.troubles.push_back({QuotedName(files, name) + what});
}

static void LookForHalves(const NoteFiles& files, Diagnosis& diagnosis) {
    const HalfCopyNames halves = FindHalfCopies(files);
    const std::string folder = std::string(kBackupFolder) + '/';
    for (const std::string& set : NamesWithEnding(files, "", kDataEnding)) {
        for (const std::string& name : LoneIndexesOf(files, halves, set))
            TellOfHalf(files, name + kIndexEnding,
                       " is the index of a conflict copy whose notes are not there. The window puts it away.",
                       diagnosis);
        for (const std::string& name : HistoryCopiesOf(halves, set))
            TellOfHalf(files, folder + name + kHistoryEnding,
                       " has earlier notes of another machine. The window adds them to those of their set.", diagnosis);
    }
}

// ---- All of them ----------------------------------------------------------------------------------------------------

void LookForLeftFiles(const ExaminedFiles& examined, Diagnosis& diagnosis) {
    LookForTemporaries(examined, diagnosis);
    LookForCopies(examined.files, diagnosis);
    LookForHalves(examined.files, diagnosis);
}
