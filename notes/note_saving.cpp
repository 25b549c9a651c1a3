#include "notes/note_saving.h"

#include <algorithm>
#include <cassert>
#include <limits>
#include <new>
#include <span>
#include <vector>

#include "notes/note_backup.h"
#include "notes/note_places.h"

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
    std::string_view text;
    OwnedNoteFile data{}, temp{};
    std::vector<unsigned char> piece{};  // copy buffer
    NotePlaces found{};                  // notes in the part of the data file read so far
};

enum class Step { kDone, kStopped, kCannotCreate, kNoMemory, kCannotWrite, kMisfit };

}  // namespace

static bool Tell(const Save& save, SaveNotice notice) {
    return save.voice.tell(save.voice.device, notice, TextOf(notice, save.set));
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

// False if the user cancels.
static bool OpenData(Save& save) {
    if (PutTwinInPlace(save.files, save.set.dataFileName)) StampFiles(save.files, save.set);  // an earlier save failed
    save.data = OpenNoteFile(save.files, save.set.dataFileName);
    return save.data || Tell(save, SaveNotice::kCannotOpen);
}

static bool HasChangedOnDisk(const Save& save) {
    const NoteFiles& files = save.files;
    return save.set.offsets.size() != kVerseCount ||
           files.stamp(files.device, save.set.dataFileName) != save.set.dataStamp ||
           files.stamp(files.device, IndexFileName(save.set)) != save.set.indexStamp;
}

// Reads the offsets of the open data file again and tells the user. False if the save must not continue.
static bool ReadAgain(Save& save) {
    NotePlaces places = ScanNotes(save.files, save.data.get());
    save.set.readOnly = !IsWhole(places);
    if (!save.set.readOnly) {
        save.set.offsets = std::move(places.offsets);
        StampFiles(save.files, save.set);
    }
    return Tell(save, save.set.readOnly ? SaveNotice::kNotWhole : SaveNotice::kChangedOnDisk) && !save.set.readOnly;
}

// ---- The temporary file ---------------------------------------------------------------------------------------------

// A temporary file without a data file may be the only copy of the notes.
static bool HasOnlyTemp(const Save& save) {
    return !save.files.stamp(save.files.device, save.set.dataFileName).exists &&
           save.files.stamp(save.files.device, TempName(save.set)).exists;
}

static bool WriteToTemp(const Save& save, std::span<const unsigned char> bytes) {
    return save.files.write(save.files.device, save.temp.get(), bytes);
}

// Continues reading the data file up to `end` or to its own end. If `isKept`, the bytes are copied to the temporary
// file; otherwise they are only scanned.
static Step ReadOn(Save& save, std::uint64_t end, bool isKept) {
    save.piece.resize(kCopyPiece);
    while (save.found.size < end) {
        const auto wanted = static_cast<std::size_t>(std::min<std::uint64_t>(kCopyPiece, end - save.found.size));
        const std::span<unsigned char> piece = std::span(save.piece).first(wanted);
        const std::size_t read = save.files.readAt(save.files.device, save.data.get(), save.found.size, piece);
        AddPlaces(save.found, piece.first(read));
        if (isKept && read > 0 && !WriteToTemp(save, piece.first(read))) return Step::kCannotWrite;
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

// Failures of the backup and the index are ignored: the next start rebuilds the index.
static NoteSaveResult PutInPlace(Save& save, const NoteTime& now) {
    const NoteFiles& files = save.files;
    NoteSet& set = save.set;
    WithMemory([&] { KeepBackup(files, set, now.day); });
    if (!files.remove(files.device, set.dataFileName)) {
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

// After Retry for a data file that could not be opened.
static Step FailWithoutData(Save& save) {
    if (!HasOnlyTemp(save)) save.temp = CreateNoteFileAnew(save.files, TempName(save.set));
    return Step::kCannotCreate;
}

// Everything before the old data file is touched. A data file that does not match the offsets is read again, once.
static Step MakeTemp(Save& save) {
    if (!OpenData(save)) return Step::kStopped;
    if (!save.data) return FailWithoutData(save);
    if (HasChangedOnDisk(save) && !ReadAgain(save)) return Step::kStopped;
    Step step = WriteTemp(save);
    if (step != Step::kMisfit) return step;
    if (!ReadAgain(save)) return Step::kStopped;
    step = WriteTemp(save);
    if (step != Step::kMisfit) return step;
    Tell(save, SaveNotice::kNotWhole);  // its contents are different at every read
    return Step::kStopped;
}

static NoteSaveResult SaveInto(Save& save, const NoteTime& now) {
    Step step = Step::kNoMemory;
    WithMemory([&] { step = MakeTemp(save); });
    switch (step) {
        case Step::kCannotCreate: return Fail(save, SaveNotice::kCannotCreate);
        case Step::kNoMemory: return Fail(save, SaveNotice::kNoMemory);
        case Step::kCannotWrite: return Fail(save, SaveNotice::kCannotWrite);
        case Step::kMisfit:
        case Step::kStopped: CloseBoth(save); return NoteSaveResult::kStopped;  // the text stays in the editor
        case Step::kDone: break;
    }
    ShiftOffsets(save);
    CloseBoth(save);
    return PutInPlace(save, now);
}

static std::string_view CutToNote(std::string_view text) {
    return text.substr(0, std::min(text.find('\0'), kNoteTextLimit));
}

NoteSaveResult SaveNote(const NoteFiles& files, const SaveVoice& voice, NoteSets& notes, std::string_view text,
                        const NoteTime& now) {
    assert(CurrentSet(notes) != nullptr);
    NoteSet& set = *CurrentSet(notes);
    Save save{files, voice, set, static_cast<std::size_t>(ClampVerse(notes.currentVerse)), CutToNote(text)};
    if (set.readOnly) {
        Tell(save, SaveNotice::kNotWhole);
        return NoteSaveResult::kStopped;
    }
    const NoteSaveResult result = SaveInto(save, now);
    if (result == NoteSaveResult::kSaved) WithMemory([&] { notes.noteText = save.text; });
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
