#include "notes/read_only_files.h"

#include <algorithm>

using Bytes = std::vector<unsigned char>;

namespace {

// One of the two.
struct OpenedFile {
    const Bytes* created = nullptr;
    void* file = nullptr;
};

}  // namespace

static const NoteFiles& FilesOf(void* device) {
    return static_cast<const ReadOnlyFiles*>(device)->files;
}

static const Bytes* CreatedFile(void* device, const std::string& name) {
    const auto& created = static_cast<const ReadOnlyFiles*>(device)->created;
    const auto found = created.find(name);
    return found != created.end() ? &found->second : nullptr;
}

// The part of `bytes` from `offset` on, at most `limit` of them.
static std::span<const unsigned char> Part(const Bytes& bytes, std::uint64_t offset, std::size_t limit) {
    const auto begin = static_cast<std::size_t>(std::min<std::uint64_t>(offset, bytes.size()));
    return std::span(bytes).subspan(begin, std::min(limit, bytes.size() - begin));
}

// ---- Whole files ----------------------------------------------------------------------------------------------------

// Patterns are a star and an ending.
static std::vector<std::string> List(void* device, const std::string& pattern) {
    std::vector<std::string> names = FilesOf(device).list(FilesOf(device).device, pattern);
    for (const auto& [name, bytes] : static_cast<const ReadOnlyFiles*>(device)->created)
        if (pattern.starts_with('*') && name.ends_with(pattern.substr(1))) names.push_back(name);
    return names;
}

static std::size_t CountUnnamed(void* device, const std::string& pattern) {
    return FilesOf(device).countUnnamed(FilesOf(device).device, pattern);
}

static bool Read(void* device, const std::string& name, std::uint64_t offset, std::size_t limit, Bytes& bytes) {
    const Bytes* created = CreatedFile(device, name);
    if (created == nullptr) return FilesOf(device).read(FilesOf(device).device, name, offset, limit, bytes);
    const std::span<const unsigned char> part = Part(*created, offset, limit);
    bytes.assign(part.begin(), part.end());
    return true;
}

static std::uint64_t Size(void* device, const std::string& name) {
    const Bytes* created = CreatedFile(device, name);
    return created != nullptr ? created->size() : FilesOf(device).size(FilesOf(device).device, name);
}

static NoteFileStamp Stamp(void* device, const std::string& name) {
    const Bytes* created = CreatedFile(device, name);
    if (created == nullptr) return FilesOf(device).stamp(FilesOf(device).device, name);
    return {.exists = true, .size = created->size()};
}

static bool Create(void* device, const std::string& name, std::span<const unsigned char> bytes) {
    if (Stamp(device, name).exists) return false;
    static_cast<ReadOnlyFiles*>(device)->created[name].assign(bytes.begin(), bytes.end());
    return true;
}

// ---- Open files -----------------------------------------------------------------------------------------------------

static void* OpenBy(void* (*open)(void* device, const std::string& name), void* device, const std::string& name) {
    if (const Bytes* created = CreatedFile(device, name)) return new OpenedFile{.created = created};
    void* file = open(FilesOf(device).device, name);
    return file != nullptr ? new OpenedFile{.file = file} : nullptr;
}

static void* Open(void* device, const std::string& name) {
    return OpenBy(FilesOf(device).open, device, name);
}

static void* OpenShared(void* device, const std::string& name) {
    return OpenBy(FilesOf(device).openShared, device, name);
}

static std::size_t ReadAt(void* device, void* opened, std::uint64_t offset, std::span<unsigned char> bytes) {
    const OpenedFile& file = *static_cast<const OpenedFile*>(opened);
    if (file.created == nullptr) return FilesOf(device).readAt(FilesOf(device).device, file.file, offset, bytes);
    const std::span<const unsigned char> part = Part(*file.created, offset, bytes.size());
    std::copy(part.begin(), part.end(), bytes.begin());
    return part.size();
}

static void Close(void* device, void* opened) {
    const std::unique_ptr<OpenedFile> file(static_cast<OpenedFile*>(opened));
    if (file->file != nullptr) FilesOf(device).close(FilesOf(device).device, file->file);
}

// ---- What changes files ---------------------------------------------------------------------------------------------

static bool CannotChange(void*, const std::string&) {
    return false;
}

static bool CannotMove(void*, const std::string&, const std::string&) {
    return false;
}

static bool CannotAppend(void*, const std::string&, std::span<const unsigned char>) {
    return false;
}

static void* CannotCreateAnew(void*, const std::string&) {
    return nullptr;
}

static bool CannotWrite(void*, void*, std::span<const unsigned char>) {
    return false;
}

static bool CannotFlush(void*, void*) {
    return false;
}

NoteFiles DeviceOver(ReadOnlyFiles& readOnly) {
    return {
        .device = &readOnly,
        .list = List,
        .countUnnamed = CountUnnamed,
        .read = Read,
        .size = Size,
        .stamp = Stamp,
        .create = Create,
        .remove = CannotChange,
        .rename = CannotMove,
        .replace = CannotMove,
        .append = CannotAppend,
        .link = CannotMove,
        .makeFolder = CannotChange,
        .open = Open,
        .openShared = OpenShared,
        .createAnew = CannotCreateAnew,
        .readAt = ReadAt,
        .write = CannotWrite,
        .flush = CannotFlush,
        .close = Close,
        .codePage = readOnly.files.codePage,
    };
}
