#include "notes/note_saving.h"

#include <algorithm>
#include <cassert>
#include <limits>
#include <new>
#include <optional>
#include <span>
#include <vector>

#include "notes/joined_texts.h"
#include "notes/note_backup.h"
#include "notes/note_keeping.h"
#include "notes/note_lock.h"
#include "notes/note_places.h"
#include "notes/note_refresh.h"

static constexpr std::size_t kCopyPiece = std::size_t{1} << 20;

static std::string WithName(std::string_view before, const std::string& name, std::string_view after) {
    return std::string(before) + name + std::string(after);
}

static std::string TextOf(SaveNotice notice, const NoteSet& set) {
    const std::string& file = set.dataFileName;
    switch (notice) {
        case SaveNotice::kCannotOpen:
            return WithName("There was an error opening the file \"", file,
                            "\". Please make sure this file is not being used by any other program.");
        case SaveNotice::kCannotCreate: return "Failure saving note (file creation error)";
        case SaveNotice::kNoMemory: return "Failure saving note (memory alloc error)";
        case SaveNotice::kCannotWrite: return "Failure writing. Disk may be full!";
        case SaveNotice::kCannotDelete:
            return "Faliure Saving Note (delete old failure):\nYou should exit Versewell and restart.";  // (sic)
        case SaveNotice::kCannotRename:
            return WithName("The note is saved in \"", file + kTempEnding,
                            "\", but that file cannot be renamed now. You should exit Versewell and restart: it will "
                            "then be put in its place.");
        case SaveNotice::kChangedOnDisk:
            return WithName("The files of the note set \"", NoteSetName(set),
                            "\" are not as they were when they were read: another program may have changed them. They "
                            "have been read again.\n\nChoose OK to save your note into them as they are now, or Cancel "
                            "to go back to the editor.");
        case SaveNotice::kNotWhole:
            return WithName(
                "The file \"", file,
                "\" is damaged: it does not hold one note for each verse. Its notes can be read, but nothing "
                "can be saved in it, so that what it holds can be rescued.");
        case SaveNotice::kMerged:
            return WithName("This note of the set \"", NoteSetName(set),
                            "\" was also changed elsewhere since you opened it. Both texts are now in the editor, the "
                            "other one behind yours.\n\nNeither is lost, and nothing has been saved yet: change the "
                            "text as you want it, and save it.");
        case SaveNotice::kTooLong:
            return WithName("This note of the set \"", NoteSetName(set),
                            "\" was also changed elsewhere since you opened it, and both texts together are too long "
                            "for one note. The other text is now kept among the earlier notes of the verse.\n\nChoose "
                            "OK to save your note in its place, or Cancel to go back to the editor.");
        case SaveNotice::kCannotKeep:
            return WithName("This note of the set \"", NoteSetName(set),
                            "\" was also changed elsewhere since you opened it. Both texts together are too long for "
                            "one note, and the other one cannot be kept among the earlier notes: the disk may be full. "
                            "Nothing has been saved. Copy your text to another place before you cancel.");
        case SaveNotice::kNoBackup:
            return WithName(
                "The note is saved. But before the first save of a day the note set \"", NoteSetName(set),
                "\" is copied into the folder \"backup\", and that was not possible: the disk may be full, "
                "or the folder cannot be written to. Each further save tries it again; if it fails, you are "
                "not told before the next start.");
    }
    return "";
}

namespace {

// The state of a save in progress.
struct Save {
    const NoteFiles& files;
    const SaveVoice& voice;
    NoteSet& set;
    std::size_t verse;
    const NoteTime& now;
    NoteEdit& edit;
    std::string_view text;  // what will be the note
    OwnedNoteFile data{}, temp{};
    std::vector<unsigned char> piece{};  // copy buffer
    NotePlaces found{};                  // notes in the part of the data file read so far
    bool isReadAgain = false;            // the offsets are those of the open data file
    std::string replaced{};              // the note's old bytes, with its NUL; at most kCopyPiece of them
    bool hasAgreed = false;              // the user, to save into the files although they have changed
    bool isStoredKept = false;           // they are among the earlier notes already
    bool hasBackup = false;              // there is a copy of the day
    NoteLock lock{};
};

enum class Step { kDone, kStopped, kMerged, kCannotKeep, kCannotCreate, kNoMemory, kCannotWrite, kMisfit };

}  // namespace

// Other programs can save while the user reads, who may take long.
static bool Tell(Save& save, SaveNotice notice) {
    save.lock = {};
    return save.voice.tell(save.voice.device, notice, TextOf(notice, save.set));
}

static void Lock(Save& save) {
    save.lock = {};
    save.lock = LockNoteFiles(save.files, save.set.dataStamp.size);
}

// Tells what the save may go on after. Whatever others have changed meanwhile is noticed before the old data file is
// deleted.
static bool Ask(Save& save, SaveNotice notice) {
    const bool goesOn = Tell(save, notice);
    if (goesOn) Lock(save);
    return goesOn;
}

static void CloseBoth(Save& save) {
    save.data.reset();
    save.temp.reset();
}

static std::string TempName(const NoteSet& set) {
    return set.dataFileName + kTempEnding;
}

// Runs `work`; a save allocates memory only inside of it. False if there is not enough memory.
template <typename Work>
static bool WithMemory(Work work) {
    try {
        work();
        return true;
    } catch (const std::bad_alloc&) {
        return false;
    }
}

// ---- The data file --------------------------------------------------------------------------------------------------

// An earlier save may have failed. Its temporary file is about to be written over and may be the only place that holds
// some notes: another program can have put its own data file in the place of the one that was deleted. False if these
// notes cannot be kept.
static bool PutAwayLeftOver(Save& save) {
    if (PutTwinInPlace(save.files, save.set.dataFileName)) StampFiles(save.files, save.set);
    return !KeepLeftOver(save.files, NoteSetName(save.set), save.now.seconds).isFailed;
}

// False if the user cancels.
static bool OpenData(Save& save) {
    save.data = OpenNoteFile(save.files, save.set.dataFileName);
    return save.data || Ask(save, SaveNotice::kCannotOpen);
}

static bool HasChangedOnDisk(const Save& save) {
    const NoteFiles& files = save.files;
    return save.set.offsets.size() != kVerseCount ||
           files.stamp(files.device, save.set.dataFileName) != save.set.dataStamp ||
           files.stamp(files.device, IndexFileName(save.set)) != save.set.indexStamp;
}

static bool ReadAgain(Save& save) {
    ReadSetAgain(save.files, save.set, save.data.get());
    save.isReadAgain = true;
    return !save.set.readOnly;
}

// ---- The note as it is stored ---------------------------------------------------------------------------------------

// From the open data file, according to the offsets.
static std::string StoredText(const Save& save) {
    const StoredNote stored = StoredNoteOf(save.set, static_cast<int>(save.verse));
    const auto limit = static_cast<std::size_t>(std::min<std::uint64_t>(stored.length, kNoteBufferSize - 1));
    std::vector<unsigned char> bytes(limit);
    bytes.resize(save.files.readAt(save.files.device, save.data.get(), stored.offset, bytes));
    return {bytes.begin(), std::find(bytes.begin(), bytes.end(), '\0')};
}

static bool IsWhereItWas(const Save& save) {
    return save.isReadAgain || FitsPlaces(save.set.offsets, ScanNotes(save.files, save.data.get()));
}

static Step KeepStored(Save& save, const std::string& stored) {
    const EarlierNote other{save.now.seconds, static_cast<int>(save.verse), KeptReason::kReplaced, stored};
    if (!KeepEarlierNotes(save.files, NoteSetName(save.set), {&other, 1})) return Step::kCannotKeep;
    save.isStoredKept = true;
    return Ask(save, SaveNotice::kTooLong) ? Step::kDone : Step::kStopped;
}

static Step Merge(Save& save, std::string stored) {
    std::optional<std::string> both = JoinedNotes(save.files.codePage, save.text, stored);
    if (!both || both->size() > kNoteTextLimit) return KeepStored(save, stored);
    save.edit = {std::move(*both), std::move(stored)};
    return Step::kMerged;
}

// Asked once in a save: others who save all the time would come between again while the box is open.
static bool AgreesToChanges(Save& save) {
    if (!save.hasAgreed) save.hasAgreed = Ask(save, SaveNotice::kChangedOnDisk);
    return save.hasAgreed;
}

// Compares the stored note with the one that was opened. If only other notes have changed, the user decides whether to
// go on.
static Step CheckNote(Save& save) {
    std::string stored = StoredText(save);
    if (stored != save.edit.openedOn && !IsWhereItWas(save)) {
        if (!ReadAgain(save)) return Step::kMisfit;
        stored = StoredText(save);
    }
    if (stored == save.text) return Step::kDone;
    if (stored != save.edit.openedOn && !stored.empty()) return Merge(save, std::move(stored));
    return !save.isReadAgain || AgreesToChanges(save) ? Step::kDone : Step::kStopped;
}

// ---- The temporary file ---------------------------------------------------------------------------------------------

static bool WriteToTemp(const Save& save, std::span<const unsigned char> bytes) {
    return save.files.write(save.files.device, save.temp.get(), bytes);
}

static void AddReplaced(Save& save, std::span<const unsigned char> bytes) {
    const std::size_t room = kCopyPiece - save.replaced.size();
    for (const unsigned char byte : bytes.first(std::min(room, bytes.size())))
        save.replaced.push_back(static_cast<char>(byte));
}

// Continues reading the data file up to `end` or to its own end. If `isKept`, the bytes are copied to the temporary
// file; otherwise they are the note that is replaced.
static Step ReadOn(Save& save, std::uint64_t end, bool isKept) {
    save.piece.resize(kCopyPiece);
    while (save.found.size < end) {
        const auto wanted = static_cast<std::size_t>(std::min<std::uint64_t>(kCopyPiece, end - save.found.size));
        const std::span<unsigned char> piece = std::span(save.piece).first(wanted);
        const std::size_t read = save.files.readAt(save.files.device, save.data.get(), save.found.size, piece);
        AddPlaces(save.found, piece.first(read));
        if (!isKept)
            AddReplaced(save, piece.first(read));
        else if (read > 0 && !WriteToTemp(save, piece.first(read)))
            return Step::kCannotWrite;
        if (read < wanted) break;
    }
    return Step::kDone;
}

static Step WriteNote(const Save& save) {
    std::vector<unsigned char> note(save.text.begin(), save.text.end());
    note.push_back(0);
    return WriteToTemp(save, note) ? Step::kDone : Step::kCannotWrite;
}

static std::uint64_t EndOfNote(const Save& save) {
    return save.verse + 1 < save.set.offsets.size() ? save.set.offsets[save.verse + 1]
                                                    : std::numeric_limits<std::uint64_t>::max();
}

// Writes all notes, with the new one in its place. Fails beyond 4 GB, which offsets cannot address.
static Step WriteNotes(Save& save) {
    save.found = {};
    save.replaced.clear();
    Step step = ReadOn(save, save.set.offsets[save.verse], true);
    if (step == Step::kDone) step = WriteNote(save);
    if (step == Step::kDone) step = ReadOn(save, EndOfNote(save), false);
    if (step == Step::kDone) step = ReadOn(save, std::numeric_limits<std::uint64_t>::max(), true);
    if (step != Step::kDone) return step;
    if (!FitsPlaces(save.set.offsets, save.found)) return Step::kMisfit;
    if (save.found.size + save.text.size() > std::numeric_limits<std::uint32_t>::max()) return Step::kCannotWrite;
    return save.files.flush(save.files.device, save.temp.get()) ? Step::kDone : Step::kCannotWrite;
}

static void ShiftOffsets(Save& save) {
    std::vector<std::uint32_t>& offsets = save.set.offsets;
    ++save.set.timesChanged;
    if (save.verse + 1 >= offsets.size()) return;
    const std::uint32_t before = offsets[save.verse + 1] - offsets[save.verse];
    const auto after = static_cast<std::uint32_t>(save.text.size() + 1);
    for (std::size_t verse = save.verse + 1; verse < offsets.size(); ++verse)
        offsets[verse] = offsets[verse] - before + after;
}

// ---- The end --------------------------------------------------------------------------------------------------------

// A write failure is reported while the files are still open. Other failures are reported after the files are closed,
// and a write failure is reported after them.
static NoteSaveResult Fail(Save& save, SaveNotice notice) {
    if (notice != SaveNotice::kCannotWrite) {
        CloseBoth(save);
        Tell(save, notice);
    }
    Tell(save, SaveNotice::kCannotWrite);
    CloseBoth(save);
    return NoteSaveResult::kFailed;
}

// Other programs may change the files while the box is open.
static NoteSaveResult StopWith(Save& save, SaveNotice notice, NoteSaveResult result) {
    CloseBoth(save);
    Tell(save, notice);
    return result;
}

static void KeepReplaced(Save& save) {
    save.replaced.resize(std::min(save.replaced.find('\0'), save.replaced.size()));
    if (save.isStoredKept || save.replaced.empty() || save.replaced == save.text) return;
    const EarlierNote note{save.now.seconds, static_cast<int>(save.verse), KeptReason::kReplaced,
                           std::move(save.replaced)};
    save.isStoredKept = KeepEarlierNotes(save.files, NoteSetName(save.set), {&note, 1});
}

// The last steps before the old data file is deleted. A failure of the history is ignored, one of the backup told
// later. False if another program has meanwhile put another file in its place, which must not be deleted unread, or has
// taken the temporary file away.
static bool IsReadyToReplace(Save& save) {
    save.data.reset();
    WithMemory([&] { save.hasBackup = KeepBackup(save.files, save.set, save.now.day); });
    WithMemory([&] { KeepReplaced(save); });
    return !HasChangedOnDisk(save) && save.files.stamp(save.files.device, TempName(save.set)).exists;
}

static void DropTemp(Save& save) {
    save.temp.reset();
    save.files.remove(save.files.device, TempName(save.set));
    save.isReadAgain = false;
}

// A failure to write the index is ignored: the next start rebuilds it. The temporary file is held open up to the last
// moment, so that the start of another copy of the program takes it for what it is.
static NoteSaveResult PutInPlace(Save& save) {
    const NoteFiles& files = save.files;
    NoteSet& set = save.set;
    save.temp.reset();
    if (!files.remove(files.device, set.dataFileName) || files.stamp(files.device, set.dataFileName).exists) {
        set.dataStamp = {};  // the offsets are already those of the temporary file: read the set again
        Tell(save, SaveNotice::kCannotDelete);
        return NoteSaveResult::kFailed;
    }
    if (!files.rename(files.device, TempName(set), set.dataFileName)) {
        Tell(save, SaveNotice::kCannotRename);
        return NoteSaveResult::kFailed;
    }
    WithMemory([&] { WriteIndex(files, IndexFileName(set), set.offsets); });
    StampFiles(files, set);
    return NoteSaveResult::kSaved;
}

static Step WriteTemp(Save& save) {
    save.temp.reset();
    save.temp = CreateNoteFileAnew(save.files, TempName(save.set));
    return save.temp ? WriteNotes(save) : Step::kCannotCreate;
}

// After Retry for a data file that could not be opened. A temporary file that is there may hold the only copy of notes.
static Step FailWithoutData(Save& save) {
    const bool hasTemp = save.files.stamp(save.files.device, TempName(save.set)).exists;
    if (!hasTemp) save.temp = CreateNoteFileAnew(save.files, TempName(save.set));
    return Step::kCannotCreate;
}

static Step CheckAndWrite(Save& save) {
    const Step step = CheckNote(save);
    return step == Step::kDone ? WriteTemp(save) : step;
}

// Everything before the old data file is touched. A data file that does not match the offsets is read again, once.
static Step MakeTemp(Save& save) {
    if (!PutAwayLeftOver(save)) return Step::kCannotWrite;
    if (!OpenData(save)) return Step::kStopped;
    if (!save.data) return FailWithoutData(save);
    Step step = HasChangedOnDisk(save) ? Step::kMisfit : CheckAndWrite(save);
    if (step == Step::kMisfit && !save.isReadAgain && ReadAgain(save)) step = CheckAndWrite(save);
    if (step != Step::kMisfit) return step;
    Tell(save, SaveNotice::kNotWhole);  // or its contents are different at every read
    return Step::kStopped;
}

static NoteSaveResult EndWithout(Save& save, Step step) {
    switch (step) {
        case Step::kCannotCreate: return Fail(save, SaveNotice::kCannotCreate);
        case Step::kNoMemory: return Fail(save, SaveNotice::kNoMemory);
        case Step::kCannotWrite: return Fail(save, SaveNotice::kCannotWrite);
        case Step::kCannotKeep: return StopWith(save, SaveNotice::kCannotKeep, NoteSaveResult::kStopped);
        case Step::kMerged: return StopWith(save, SaveNotice::kMerged, NoteSaveResult::kMerged);
        default: CloseBoth(save); return NoteSaveResult::kStopped;  // the text stays in the editor
    }
}

static NoteSaveResult SaveInto(Save& save) {
    static constexpr int kTries = 3;  // other programs may replace the data file meanwhile
    for (int tries = 0; tries < kTries; ++tries) {
        Step step = Step::kNoMemory;
        WithMemory([&] { step = MakeTemp(save); });
        if (step != Step::kDone) return EndWithout(save, step);
        if (IsReadyToReplace(save)) {
            ShiftOffsets(save);
            return PutInPlace(save);
        }
        DropTemp(save);
    }
    Tell(save, SaveNotice::kNotWhole);
    return NoteSaveResult::kStopped;
}

static std::string_view CutToNote(std::string_view text) {
    return text.substr(0, std::min(text.find('\0'), kNoteTextLimit));
}

NoteSaveResult SaveNote(const NoteFiles& files, const SaveVoice& voice, NoteSets& notes, NoteEdit& edit,
                        const NoteTime& now) {
    assert(CurrentSet(notes) != nullptr);
    NoteSet& set = *CurrentSet(notes);
    const auto verse = static_cast<std::size_t>(ClampVerse(notes.currentVerse));
    Save save{files, voice, set, verse, now, edit, CutToNote(edit.text)};
    Lock(save);
    if (set.readOnly) RefreshSet(files, set);
    if (set.readOnly) {
        Tell(save, SaveNotice::kNotWhole);
        return NoteSaveResult::kStopped;
    }
    const NoteSaveResult result = SaveInto(save);
    save.lock = {};
    if (result != NoteSaveResult::kSaved) return result;
    WithMemory([&] { notes.noteText = save.text; });
    if (!save.hasBackup) Tell(save, SaveNotice::kNoBackup);
    return result;
}

// ---- Text on its way into a note ------------------------------------------------------------------------------------

// Length of the line end at the start of `text`; 0 if there is none.
static std::size_t LineEndLength(std::string_view text) {
    if (text.starts_with("\r\n")) return 2;
    return text.front() == '\r' || text.front() == '\n' ? 1 : 0;
}

std::string TextForNote(std::string_view text, std::size_t room) {
    text = text.substr(0, text.find('\0'));
    std::string lines;
    lines.reserve(std::min(text.size(), room));
    while (!text.empty()) {
        const std::size_t lineEnd = LineEndLength(text);
        const std::string_view next = lineEnd ? "\r\n" : text.substr(0, 1);
        if (lines.size() + next.size() > room) break;
        lines += next;
        text.remove_prefix(std::max<std::size_t>(lineEnd, 1));
    }
    return lines;
}
