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

static bool CopyBytes(const NoteFiles& files, void* from, void* to) {
    std::vector<unsigned char> piece(kCopyPiece);
    std::uint64_t place = 0;
    for (std::size_t read = kCopyPiece; read == kCopyPiece; place += read) {
        read = files.readAt(files.device, from, place, piece);
        if (!files.write(files.device, to, std::span(piece).first(read))) return false;
    }
    return files.flush(files.device, to);
}

bool CopyWholeFile(const NoteFiles& files, const std::string& from, const std::string& to) {
    const std::string unfinished = to + kTempEnding;
    OwnedNoteFile source = OpenNoteFile(files, from);
    if (!source) return false;
    OwnedNoteFile target = CreateNoteFileAnew(files, unfinished);
    if (!target) return false;
    const bool copied = CopyBytes(files, source.get(), target.get());
    source.reset();
    target.reset();
    if (copied && files.rename(files.device, unfinished, to)) return true;
    files.remove(files.device, unfinished);
    return false;
}
