#include "notes/note_saving.h"

#include <algorithm>
#include <cassert>
#include <limits>
#include <memory>

#include "notes/note_backup.h"
#include "notes/note_layout.h"

static constexpr std::size_t kCopyPiece = std::size_t{1} << 20;

static std::string WithName(std::string_view before, const std::string& name, std::string_view after) {
    return std::string(before) + name + std::string(after);
}

std::string SaveNoticeText(SaveNotice notice, const NoteSet& set) {
    const std::string& file = set.dataFileName;
    switch (notice) {
        case SaveNotice::kCannotOpen:
            return WithName("There was an error opening the file \"", file,
                            "\". Please make sure this file is not being used by any other program.");
        case SaveNotice::kCannotCreate: return "Failure saving note (file creation error)";
        case SaveNotice::kNoMemory: return "Failure saving note (memory alloc error)";
        case SaveNotice::kCannotWrite: return "Failure writing. Disk may be full!";
        case SaveNotice::kCannotDelete:
            return "Faliure Saving Note (delete old failure):\nYou should exit Versewell and restart.";
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
    }
    return "";
}

// A save at work.
struct FreeMemory {
    void operator()(void* memory) const { std::free(memory); }
};
struct Save {
    const NoteFiles& files;
    const SaveVoice& voice;
    NoteSet& set;
    std::size_t verse;
    std::string_view text;
    void* data = nullptr;
    void* temp = nullptr;
    std::unique_ptr<unsigned char, FreeMemory> piece{};  // what is being copied: kCopyPiece bytes
    NoteLayout found{};                                  // of the data file, as far as it has been read
};

enum class Step { kDone, kCannotCreate, kNoMemory, kCannotWrite, kMisfit };

static bool Tell(const Save& save, SaveNotice notice) {
    return save.voice.tell(save.voice.device, notice, SaveNoticeText(notice, save.set));
}

static void Close(const Save& save, void*& file) {
    if (file != nullptr) save.files.close(save.files.device, file);
    file = nullptr;
}

static void CloseBoth(Save& save) {
    Close(save, save.data);
    Close(save, save.temp);
}

static std::string TempName(const NoteSet& set) {
    return set.dataFileName + kTempEnding;
}

// ---- The data file --------------------------------------------------------------------------------------------------

// False when the user gives up.
static bool OpenData(Save& save) {
    if (PutTwinInPlace(save.files, save.set.dataFileName)) StampFiles(save.files, save.set);  // an earlier save failed
    save.data = save.files.open(save.files.device, save.set.dataFileName);
    return save.data != nullptr || Tell(save, SaveNotice::kCannotOpen);
}

static bool HasChangedOnDisk(const Save& save) {
    const NoteFiles& files = save.files;
    return save.set.offsets.size() != kVerseCount ||
           files.stamp(files.device, save.set.dataFileName) != save.set.dataStamp ||
           files.stamp(files.device, IndexFileName(save.set)) != save.set.indexStamp;
}

// Takes the layout that the open data file has now, and says so. False when the save is not to go on.
static bool ReadAgain(Save& save) {
    NoteLayout layout = ScanNotes(save.files, save.data);
    save.set.readOnly = !IsWhole(layout);
    if (!save.set.readOnly) {
        save.set.offsets = std::move(layout.offsets);
        StampFiles(save.files, save.set);
    }
    return Tell(save, save.set.readOnly ? SaveNotice::kNotWhole : SaveNotice::kChangedOnDisk) && !save.set.readOnly;
}

// ---- The temporary file ---------------------------------------------------------------------------------------------

// A temporary file without a data file may be all that there is of the notes.
static bool HasOnlyTemp(const Save& save) {
    return !save.files.stamp(save.files.device, save.set.dataFileName).exists &&
           save.files.stamp(save.files.device, TempName(save.set)).exists;
}

// Reads the data file from where the last reading ended up to `end`, or to its own end. What `isKept` goes into the
// temporary file.
static Step Pass(Save& save, std::uint64_t end, bool isKept) {
    if (save.found.size >= end) return Step::kDone;
    if (!save.piece) save.piece.reset(static_cast<unsigned char*>(save.voice.takeMemory(kCopyPiece)));
    if (!save.piece) return Step::kNoMemory;
    while (save.found.size < end) {
        const auto wanted = static_cast<std::size_t>(std::min<std::uint64_t>(kCopyPiece, end - save.found.size));
        const std::span<unsigned char> piece(save.piece.get(), wanted);
        const std::size_t read = save.files.readAt(save.files.device, save.data, save.found.size, piece);
        AddToLayout(save.found, piece.first(read));
        if (isKept && read > 0 && !save.files.write(save.files.device, save.temp, piece.first(read)))
            return Step::kCannotWrite;
        if (read < wanted) break;
    }
    return Step::kDone;
}

static Step WriteNote(const Save& save) {
    std::vector<unsigned char> note(save.text.begin(), save.text.end());
    note.push_back(0);
    return save.files.write(save.files.device, save.temp, note) ? Step::kDone : Step::kCannotWrite;
}

static std::uint64_t EndOfNote(const Save& save) {
    return save.verse + 1 < save.set.offsets.size() ? save.set.offsets[save.verse + 1]
                                                    : std::numeric_limits<std::uint64_t>::max();
}

// All notes, with the new one in its place. Beyond 4 GB no offset would reach.
static Step WriteNotes(Save& save) {
    save.found = {};
    Step step = Pass(save, save.set.offsets[save.verse], true);
    if (step == Step::kDone) step = WriteNote(save);
    if (step == Step::kDone) step = Pass(save, EndOfNote(save), false);
    if (step == Step::kDone) step = Pass(save, std::numeric_limits<std::uint64_t>::max(), true);
    if (step != Step::kDone) return step;
    if (!FitsLayout(save.set.offsets, save.found)) return Step::kMisfit;
    if (save.found.size + save.text.size() > std::numeric_limits<std::uint32_t>::max()) return Step::kCannotWrite;
    return save.files.flush(save.files.device, save.temp) ? Step::kDone : Step::kCannotWrite;
}

static void ShiftOffsets(Save& save) {
    std::vector<std::uint32_t>& offsets = save.set.offsets;
    if (save.verse + 1 >= offsets.size()) return;
    const std::uint32_t before = offsets[save.verse + 1] - offsets[save.verse];
    const auto after = static_cast<std::uint32_t>(save.text.size() + 1);
    for (std::size_t verse = save.verse + 1; verse < offsets.size(); ++verse)
        offsets[verse] = offsets[verse] - before + after;
}

// ---- The end --------------------------------------------------------------------------------------------------------

// A writing failure is told while the files are still open; the others, which lead to one, when they are closed.
static NoteSaveResult Fail(Save& save, SaveNotice notice) {
    if (notice != SaveNotice::kCannotWrite) {
        CloseBoth(save);
        Tell(save, notice);
    }
    Tell(save, SaveNotice::kCannotWrite);
    CloseBoth(save);
    return NoteSaveResult::kFailed;
}

static NoteSaveResult PutInPlace(Save& save, const std::string& today) {
    const NoteFiles& files = save.files;
    NoteSet& set = save.set;
    KeepBackup(files, set, today);
    if (!files.remove(files.device, set.dataFileName)) {
        Tell(save, SaveNotice::kCannotDelete);
        return NoteSaveResult::kFailed;
    }
    if (!files.rename(files.device, TempName(set), set.dataFileName)) {
        Tell(save, SaveNotice::kCannotRename);
        return NoteSaveResult::kFailed;
    }
    WriteIndex(files, IndexFileName(set), set.offsets);  // where it fails, the next start makes it
    StampFiles(files, set);
    return NoteSaveResult::kSaved;
}

static Step WriteTemp(Save& save) {
    Close(save, save.temp);
    save.temp = save.files.createAnew(save.files.device, TempName(save.set));
    return save.temp == nullptr ? Step::kCannotCreate : WriteNotes(save);
}

// Nothing is written, and the text stays with the editor.
static NoteSaveResult Stop(Save& save) {
    CloseBoth(save);
    return NoteSaveResult::kStopped;
}

static NoteSaveResult SaveInto(Save& save, const std::string& today) {
    if (!OpenData(save)) return Stop(save);
    if (save.data == nullptr) {
        if (!HasOnlyTemp(save)) save.temp = save.files.createAnew(save.files.device, TempName(save.set));
        return Fail(save, SaveNotice::kCannotCreate);
    }
    if (HasChangedOnDisk(save) && !ReadAgain(save)) return Stop(save);
    Step step = WriteTemp(save);
    if (step == Step::kMisfit) {
        if (!ReadAgain(save)) return Stop(save);
        step = WriteTemp(save);
    }
    switch (step) {
        case Step::kCannotCreate: return Fail(save, SaveNotice::kCannotCreate);
        case Step::kNoMemory: return Fail(save, SaveNotice::kNoMemory);
        case Step::kCannotWrite: return Fail(save, SaveNotice::kCannotWrite);
        case Step::kMisfit: Tell(save, SaveNotice::kNotWhole); return Stop(save);  // it cannot be read twice alike
        case Step::kDone: break;
    }
    ShiftOffsets(save);
    CloseBoth(save);
    return PutInPlace(save, today);
}

static std::string_view CutToNote(std::string_view text) {
    return text.substr(0, std::min(text.find('\0'), kNoteTextLimit));
}

NoteSaveResult SaveNote(const NoteFiles& files, const SaveVoice& voice, NoteSets& notes, std::string_view text,
                        const std::string& today) {
    assert(notes.currentSet >= 0 && notes.currentSet < static_cast<int>(notes.sets.size()));
    NoteSet& set = notes.sets[static_cast<std::size_t>(notes.currentSet)];
    Save save{files, voice, set, static_cast<std::size_t>(ClampVerse(notes.currentVerse)), CutToNote(text)};
    if (set.readOnly) {
        Tell(save, SaveNotice::kNotWhole);
        return NoteSaveResult::kStopped;
    }
    const NoteSaveResult result = SaveInto(save, today);
    if (result == NoteSaveResult::kSaved) notes.noteText = save.text;
    return result;
}
