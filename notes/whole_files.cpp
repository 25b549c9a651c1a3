#include "notes/whole_files.h"

static constexpr std::size_t kCopyPiece = std::size_t{1} << 20;

bool ReadWholeFile(const NoteFiles& files, const std::string& name, std::size_t limit,
                   std::vector<unsigned char>& bytes) {
    const auto size = static_cast<std::size_t>(files.stamp(files.device, name).size);
    return files.read(files.device, name, 0, size < limit ? size : limit, bytes);
}

static bool WriteTemp(const NoteFiles& files, const std::string& temp, std::span<const unsigned char> bytes) {
    const OwnedNoteFile file = CreateNoteFileAnew(files, temp);
    return file && files.write(files.device, file.get(), bytes) && files.flush(files.device, file.get());
}

bool WriteWholeFile(const NoteFiles& files, const std::string& name, std::span<const unsigned char> bytes) {
    const std::string temp = name + kTempEnding;
    if (WriteTemp(files, temp, bytes) && files.replace(files.device, temp, name)) return true;
    files.remove(files.device, temp);
    return false;
}

// A failed read ends the source, too.
static FileCopy CopyBytes(const NoteFiles& from, void* source, std::uint64_t size, const NoteFiles& to, void* target) {
    std::vector<unsigned char> piece(kCopyPiece);
    std::uint64_t place = 0;
    for (std::size_t read = kCopyPiece; read == kCopyPiece; place += read) {
        read = from.readAt(from.device, source, place, piece);
        if (!to.write(to.device, target, std::span(piece).first(read))) return FileCopy::kCannotWrite;
    }
    if (place != size) return FileCopy::kCannotRead;
    return to.flush(to.device, target) ? FileCopy::kCopied : FileCopy::kCannotWrite;
}

FileCopy CopyFileFrom(const NoteFiles& from, const std::string& name, const NoteFiles& to, const std::string& copy) {
    const NoteFileStamp stamp = from.stamp(from.device, name);
    OwnedNoteFile source = OpenNoteFile(from, name);
    if (!source) return FileCopy::kCannotRead;
    OwnedNoteFile target = CreateNoteFileAnew(to, copy);
    if (!target) return FileCopy::kCannotWrite;
    FileCopy result = CopyBytes(from, source.get(), stamp.size, to, target.get());
    source.reset();
    target.reset();
    if (result == FileCopy::kCopied && from.stamp(from.device, name) != stamp) result = FileCopy::kCannotRead;
    if (result != FileCopy::kCopied) to.remove(to.device, copy);
    return result;
}

bool CopyWholeFile(const NoteFiles& files, const std::string& from, const std::string& to) {
    const std::string unfinished = to + kTempEnding;
    if (CopyFileFrom(files, from, files, unfinished) != FileCopy::kCopied) return false;
    if (files.rename(files.device, unfinished, to)) return true;
    files.remove(files.device, unfinished);
    return false;
}
