#include "notes/read_only_files.h"

#include <algorithm>
#include <utility>

using Bytes = std::vector<unsigned char>;

namespace {

// One of the two.
struct OpenedFile {
    Bytes* created = nullptr;
    void* file = nullptr;
};

}  // namespace

static ReadOnlyFiles& ReadOnlyOf(void* device) {
    return *static_cast<ReadOnlyFiles*>(device);
}

static const NoteFiles& FilesOf(void* device) {
    return ReadOnlyOf(device).files;
}

static bool IsRemoved(void* device, const std::string& name) {
    return ReadOnlyOf(device).removed.contains(name);
}

static Bytes* CreatedFile(void* device, const std::string& name) {
    auto& created = ReadOnlyOf(device).created;
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
    std::erase_if(names, [&](const std::string& name) {  // those in memory follow
        return IsRemoved(device, name) || CreatedFile(device, name) != nullptr;
    });
    for (const auto& [name, bytes] : ReadOnlyOf(device).created)
        if (pattern.starts_with('*') && name.ends_with(pattern.substr(1))) names.push_back(name);
    return names;
}

static std::size_t CountUnnamed(void* device, const std::string& pattern) {
    return FilesOf(device).countUnnamed(FilesOf(device).device, pattern);
}

static bool Read(void* device, const std::string& name, std::uint64_t offset, std::size_t limit, Bytes& bytes) {
    const Bytes* created = CreatedFile(device, name);
    if (IsRemoved(device, name)) return false;
    if (created == nullptr) return FilesOf(device).read(FilesOf(device).device, name, offset, limit, bytes);
    const std::span<const unsigned char> part = Part(*created, offset, limit);
    bytes.assign(part.begin(), part.end());
    return true;
}

static std::uint64_t Size(void* device, const std::string& name) {
    const Bytes* created = CreatedFile(device, name);
    if (IsRemoved(device, name)) return 0;
    return created != nullptr ? created->size() : FilesOf(device).size(FilesOf(device).device, name);
}

static NoteFileStamp Stamp(void* device, const std::string& name) {
    const Bytes* created = CreatedFile(device, name);
    if (IsRemoved(device, name)) return {};
    if (created == nullptr) return FilesOf(device).stamp(FilesOf(device).device, name);
    return {.exists = true, .size = created->size()};
}

static bool Create(void* device, const std::string& name, std::span<const unsigned char> bytes) {
    if (Stamp(device, name).exists) return false;
    ReadOnlyOf(device).removed.erase(name);
    ReadOnlyOf(device).created[name].assign(bytes.begin(), bytes.end());
    return true;
}

// ---- Open files -----------------------------------------------------------------------------------------------------

static void* OpenBy(void* (*open)(void* device, const std::string& name), void* device, const std::string& name) {
    if (Bytes* created = CreatedFile(device, name)) return new OpenedFile{.created = created};
    if (IsRemoved(device, name)) return nullptr;
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

// Only in a trial, and there all of them succeed.

// The file in memory, with its bytes; null if there is none.
static Bytes* TakenIntoMemory(void* device, const std::string& name) {
    if (Bytes* created = CreatedFile(device, name)) return created;
    const NoteFileStamp stamp = Stamp(device, name);
    Bytes bytes;
    if (!stamp.exists || !Read(device, name, 0, static_cast<std::size_t>(stamp.size), bytes)) return nullptr;
    return &(ReadOnlyOf(device).created[name] = std::move(bytes));
}

static bool Remove(void* device, const std::string& name) {
    if (!ReadOnlyOf(device).isTrial || !Stamp(device, name).exists) return false;
    ReadOnlyOf(device).created.erase(name);
    ReadOnlyOf(device).removed.insert(name);
    return true;
}

static bool Replace(void* device, const std::string& from, const std::string& to) {
    Bytes* const taken = ReadOnlyOf(device).isTrial ? TakenIntoMemory(device, from) : nullptr;
    if (taken == nullptr) return false;
    Bytes bytes = std::move(*taken);
    Remove(device, from);
    ReadOnlyOf(device).removed.erase(to);
    ReadOnlyOf(device).created[to] = std::move(bytes);
    return true;
}

static bool Rename(void* device, const std::string& from, const std::string& to) {
    return !Stamp(device, to).exists && Replace(device, from, to);
}

static bool Link(void* device, const std::string& from, const std::string& to) {
    const Bytes* const taken = ReadOnlyOf(device).isTrial ? TakenIntoMemory(device, from) : nullptr;
    return taken != nullptr && Create(device, to, *taken);
}

static bool MakeFolder(void* device, const std::string&) {
    return ReadOnlyOf(device).isTrial;
}

static void* CreateAnew(void* device, const std::string& name) {
    if (!ReadOnlyOf(device).isTrial) return nullptr;
    ReadOnlyOf(device).removed.erase(name);
    Bytes& bytes = ReadOnlyOf(device).created[name];
    bytes.clear();
    return new OpenedFile{.created = &bytes};
}

static bool Write(void* device, void* opened, std::span<const unsigned char> bytes) {
    Bytes* const created = static_cast<OpenedFile*>(opened)->created;
    if (created == nullptr || !ReadOnlyOf(device).isTrial) return false;
    created->insert(created->end(), bytes.begin(), bytes.end());
    return true;
}

static bool Append(void* device, const std::string& name, std::span<const unsigned char> bytes) {
    if (!ReadOnlyOf(device).isTrial) return false;
    Bytes* created = TakenIntoMemory(device, name);
    if (created == nullptr) return Create(device, name, bytes);
    created->insert(created->end(), bytes.begin(), bytes.end());
    return true;
}

static bool Flush(void* device, void*) {
    return ReadOnlyOf(device).isTrial;
}

static NoteLocking NeedsNoLock(void*, int) {
    return NoteLocking::kImpossible;
}

static void NeedsNoUnlock(void*) {}

NoteFiles DeviceOver(ReadOnlyFiles& readOnly) {
    return {
        .device = &readOnly,
        .list = List,
        .countUnnamed = CountUnnamed,
        .read = Read,
        .size = Size,
        .stamp = Stamp,
        .create = Create,
        .remove = Remove,
        .rename = Rename,
        .replace = Replace,
        .append = Append,
        .link = Link,
        .makeFolder = MakeFolder,
        .open = Open,
        .openShared = OpenShared,
        .createAnew = CreateAnew,
        .readAt = ReadAt,
        .write = Write,
        .flush = Flush,
        .close = Close,
        .lock = NeedsNoLock,
        .unlock = NeedsNoUnlock,
        .codePage = readOnly.files.codePage,
    };
}
