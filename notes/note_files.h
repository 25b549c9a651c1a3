// The few file operations that note sets need. The program gives them on Windows' files in the working directory, a
// test on a scratch folder or on files that fail.
//
// A file's name is taken in the working directory; it may begin with a folder and a slash ("backup/a.nmd").
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <vector>

// The files of a set named NAME: NAME.nmd and so on (notes/note_sets.h), and NAME.nmd.temp, a data file in the making.
inline constexpr char kDataEnding[] = ".nmd";
inline constexpr char kIndexEnding[] = ".nmi";
inline constexpr char kTableEnding[] = ".dti";
inline constexpr char kTempEnding[] = ".temp";

// What tells whether a file changed: its size in bytes and the time of its last write, in units of the device.
struct NoteFileStamp {
    bool exists = false;
    std::uint64_t size = 0;
    std::uint64_t time = 0;
    bool operator==(const NoteFileStamp&) const = default;
};

struct NoteFiles {
    void* device = nullptr;  // handed back to all

    // ---- Whole files

    // Names, without a folder, of the files that fit `pattern` ("*.nmi", "backup/*.nmd"), in the order in which the
    // directory lists them. Windows gives files with a longer extension too.
    std::vector<std::string> (*list)(void* device, const std::string& pattern) = nullptr;

    // Reads at most `limit` bytes of `name` from `offset` on into `bytes`, as many as there are. False when the file
    // cannot be opened for reading (shared for reading).
    bool (*read)(void* device, const std::string& name, std::uint64_t offset, std::size_t limit,
                 std::vector<unsigned char>& bytes) = nullptr;

    // Size of `name` in bytes; 0 when it cannot be opened.
    std::uint64_t (*size)(void* device, const std::string& name) = nullptr;

    // Stamp of `name`, which need not be free to be opened.
    NoteFileStamp (*stamp)(void* device, const std::string& name) = nullptr;

    // Creates `name` with `bytes`, on the disk when this returns. False when it exists or cannot be made; then nothing
    // was written.
    bool (*create)(void* device, const std::string& name, std::span<const unsigned char> bytes) = nullptr;

    bool (*remove)(void* device, const std::string& name) = nullptr;

    // False when there is no `from` or there is a `to`.
    bool (*rename)(void* device, const std::string& from, const std::string& to) = nullptr;

    // Gives the file `from` a second name. False when `to` exists or the disk knows no second names.
    bool (*link)(void* device, const std::string& from, const std::string& to) = nullptr;

    // True when the folder is there afterwards.
    bool (*makeFolder)(void* device, const std::string& name) = nullptr;

    // ---- Open files: a handle of the device, to be closed; nullptr where the file could not be opened

    // For reading, unshared; it must exist.
    void* (*open)(void* device, const std::string& name) = nullptr;

    // For writing, unshared; what was there before is gone.
    void* (*createAnew)(void* device, const std::string& name) = nullptr;

    // Fills `bytes` from `offset` on; the number of bytes that there were, fewer at the end of the file or where it
    // cannot be read.
    std::size_t (*readAt)(void* device, void* file, std::uint64_t offset, std::span<unsigned char> bytes) = nullptr;

    // Adds `bytes` at the end. False when not all of them were written.
    bool (*write)(void* device, void* file, std::span<const unsigned char> bytes) = nullptr;

    // False unless all that was written is on the disk now.
    bool (*flush)(void* device, void* file) = nullptr;

    void (*close)(void* device, void* file) = nullptr;
};

// An open file, closed where this goes.
struct CloseNoteFile {
    const NoteFiles* files = nullptr;  // must outlive the handle
    void operator()(void* file) const { files->close(files->device, file); }
};
using OwnedNoteFile = std::unique_ptr<void, CloseNoteFile>;

// `open` and `createAnew` with an owner; null where the file could not be opened.
inline OwnedNoteFile OpenNoteFile(const NoteFiles& files, const std::string& name) {
    return {files.open(files.device, name), {&files}};
}
inline OwnedNoteFile CreateNoteFileAnew(const NoteFiles& files, const std::string& name) {
    return {files.createAnew(files.device, name), {&files}};
}
