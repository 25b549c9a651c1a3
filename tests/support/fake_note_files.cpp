#include "tests/support/fake_note_files.h"

#include <algorithm>
#include <array>
#include <new>

#include "scripture/verse_records.h"
#include "tests/support/tries.h"

static FakeNoteFiles& FilesOf(void* device) {
    return *static_cast<FakeNoteFiles*>(device);
}

// A change, which is the last thing in the log.
static void TakeStep(FakeNoteFiles& files) {
    if (files.locks == 0 && !files.log.empty()) files.unlockedChanges.push_back(files.log.back());
    if (files.steps == 0) throw ProgramStopped{};
    if (files.steps > 0) --files.steps;
}

static void Touch(FakeNoteFiles& files, const std::string& name) {
    files.times[name] = ++files.now;
}

// ---- Whole files ----------------------------------------------------------------------------------------------------

static std::vector<std::string> List(void* device, const std::string& pattern) {
    FakeNoteFiles& files = FilesOf(device);
    ++files.listings;
    const std::size_t star = pattern.find('*');
    const std::string folder = pattern.substr(0, star);
    const std::string ending = pattern.substr(star + 1);
    std::vector<std::string> names;
    if (pattern == "*.nmi") {
        std::copy_if(files.listed.begin(), files.listed.end(), std::back_inserter(names),
                     [&](const std::string& name) { return files.contents.contains(name); });
    }
    for (const auto& [name, bytes] : files.contents) {
        if (!name.starts_with(folder) || !name.ends_with(ending)) continue;
        const std::string inFolder = name.substr(folder.size());
        if (inFolder.find('/') == std::string::npos && std::find(names.begin(), names.end(), inFolder) == names.end())
            names.push_back(inFolder);
    }
    return names;
}

static std::size_t CountUnnamed(void* device, const std::string& pattern) {
    const FakeNoteFiles& files = FilesOf(device);
    const auto found = files.unnamed.find(pattern);
    return found == files.unnamed.end() ? 0 : found->second;
}

static std::size_t BytesAt(const std::vector<unsigned char>& whole, std::uint64_t offset,
                           std::span<unsigned char> bytes) {
    const std::size_t begin = static_cast<std::size_t>(std::min<std::uint64_t>(offset, whole.size()));
    const std::size_t count = std::min(bytes.size(), whole.size() - begin);
    std::copy_n(whole.begin() + static_cast<std::ptrdiff_t>(begin), count, bytes.begin());
    return count;
}

static bool IsReadable(const FakeNoteFiles& files, const std::string& name) {
    return files.contents.contains(name) && !files.unreadable.contains(name);
}

static bool Read(void* device, const std::string& name, std::uint64_t offset, std::size_t limit,
                 std::vector<unsigned char>& bytes) {
    FakeNoteFiles& files = FilesOf(device);
    files.log.push_back("read " + name);
    if (!IsReadable(files, name)) return false;
    bytes.resize(limit);
    bytes.resize(BytesAt(files.contents[name], offset, bytes));
    return true;
}

static std::uint64_t Size(void* device, const std::string& name) {
    FakeNoteFiles& files = FilesOf(device);
    files.log.push_back("size " + name);
    return IsReadable(files, name) ? files.contents[name].size() : 0;
}

static NoteFileStamp Stamp(void* device, const std::string& name) {
    FakeNoteFiles& files = FilesOf(device);
    if (!files.contents.contains(name)) return {};
    return {true, files.contents[name].size(), files.times[name]};
}

static bool Create(void* device, const std::string& name, std::span<const unsigned char> bytes) {
    FakeNoteFiles& files = FilesOf(device);
    files.log.push_back("create " + name);
    if (files.contents.contains(name) || files.uncreatable.contains(name)) return false;
    TakeStep(files);
    files.contents[name].assign(bytes.begin(), bytes.end());
    Touch(files, name);
    return true;
}

static bool Remove(void* device, const std::string& name) {
    FakeNoteFiles& files = FilesOf(device);
    files.log.push_back("remove " + name);
    if (!files.contents.contains(name) || files.undeletable.contains(name)) return false;
    TakeStep(files);
    files.contents.erase(name);
    files.unflushed.erase(name);
    return true;
}

static void GiveName(FakeNoteFiles& files, const std::string& from, const std::string& to) {
    files.contents[to] = files.contents[from];
    files.times[to] = files.times[from];
    if (const auto flushed = files.unflushed.find(from); flushed != files.unflushed.end())
        files.unflushed[to] = flushed->second;
}

static bool Rename(void* device, const std::string& from, const std::string& to) {
    FakeNoteFiles& files = FilesOf(device);
    files.log.push_back("rename " + from + " to " + to);
    if (!files.contents.contains(from) || files.contents.contains(to) || files.unrenamable.contains(from)) return false;
    TakeStep(files);
    GiveName(files, from, to);
    files.contents.erase(from);
    files.unflushed.erase(from);
    return true;
}

static bool Replace(void* device, const std::string& from, const std::string& to) {
    FakeNoteFiles& files = FilesOf(device);
    files.log.push_back("replace " + to + " by " + from);
    if (!files.contents.contains(from) || files.unrenamable.contains(from) || files.undeletable.contains(to))
        return false;
    TakeStep(files);
    files.unflushed.erase(to);
    GiveName(files, from, to);
    files.contents.erase(from);
    files.unflushed.erase(from);
    return true;
}

static bool Link(void* device, const std::string& from, const std::string& to) {
    FakeNoteFiles& files = FilesOf(device);
    files.log.push_back("link " + from + " to " + to);
    if (!files.knowsLinks || !files.contents.contains(from) || files.contents.contains(to)) return false;
    TakeStep(files);
    GiveName(files, from, to);
    return true;
}

static bool MakeFolder(void* device, const std::string& name) {
    FakeNoteFiles& files = FilesOf(device);
    files.log.push_back("folder " + name);
    TakeStep(files);
    return !files.uncreatable.contains(name);
}

// ---- Open files: a handle is the name -------------------------------------------------------------------------------

static const std::string& NameOf(void* file) {
    return *static_cast<const std::string*>(file);
}

static void* HandleOf(FakeNoteFiles& files, const std::string& name) {
    ++files.openFiles;
    return const_cast<std::string*>(&*files.handles.insert(name).first);
}

static void* Open(void* device, const std::string& name) {
    FakeNoteFiles& files = FilesOf(device);
    files.log.push_back("open " + name);
    return IsReadable(files, name) ? HandleOf(files, name) : nullptr;
}

static void* CreateAnew(void* device, const std::string& name) {
    FakeNoteFiles& files = FilesOf(device);
    files.log.push_back("create anew " + name);
    if (files.uncreatable.contains(name)) return nullptr;
    TakeStep(files);
    files.contents[name].clear();
    files.unflushed[name] = 0;
    Touch(files, name);
    return HandleOf(files, name);
}

static std::size_t ReadAt(void* device, void* file, std::uint64_t offset, std::span<unsigned char> bytes) {
    if (!FilesOf(device).hasMemory) throw std::bad_alloc();
    return BytesAt(FilesOf(device).contents[NameOf(file)], offset, bytes);
}

static void AddBytes(FakeNoteFiles& files, const std::string& name, std::span<const unsigned char> bytes) {
    files.unflushed.try_emplace(name, files.contents[name].size());
    files.contents[name].insert(files.contents[name].end(), bytes.begin(), bytes.end());
    Touch(files, name);
}

// The program may stop before the first byte, after it, half-way and before the last byte.
static bool WriteBehind(FakeNoteFiles& files, const std::string& name, std::span<const unsigned char> bytes) {
    const auto fitting = files.room < 0 ? bytes.size() : std::min(bytes.size(), static_cast<std::size_t>(files.room));
    if (files.room >= 0) files.room -= static_cast<std::int64_t>(fitting);
    std::size_t written = 0;
    for (const std::size_t stop :
         {std::size_t{0}, std::size_t{1}, fitting / 2, fitting - std::min<std::size_t>(1, fitting), fitting}) {
        if (stop > fitting || stop < written) continue;
        AddBytes(files, name, bytes.subspan(written, stop - written));
        written = stop;
        TakeStep(files);
    }
    return fitting == bytes.size();
}

static bool Write(void* device, void* file, std::span<const unsigned char> bytes) {
    FakeNoteFiles& files = FilesOf(device);
    files.log.push_back("write " + NameOf(file) + " " + std::to_string(bytes.size()));
    return WriteBehind(files, NameOf(file), bytes);
}

static bool FlushFile(FakeNoteFiles& files, const std::string& name) {
    TakeStep(files);
    if (files.isFlushable) files.unflushed.erase(name);
    return files.isFlushable;
}

static bool Flush(void* device, void* file) {
    FilesOf(device).log.push_back("flush " + NameOf(file));
    return FlushFile(FilesOf(device), NameOf(file));
}

static bool Append(void* device, const std::string& name, std::span<const unsigned char> bytes) {
    FakeNoteFiles& files = FilesOf(device);
    files.log.push_back("append " + name + " " + std::to_string(bytes.size()));
    if (files.unreadable.contains(name) || (!files.contents.contains(name) && files.uncreatable.contains(name)))
        return false;
    return WriteBehind(files, name, bytes) && FlushFile(files, name);
}

static void Close(void* device, void* file) {
    FilesOf(device).log.push_back("close " + NameOf(file));
    --FilesOf(device).openFiles;
}

static NoteLocking Lock(void* device, int milliseconds) {
    FakeNoteFiles& files = FilesOf(device);
    files.patience.push_back(milliseconds);
    ++files.locks;
    return files.locking;
}

static void Unlock(void* device) {
    --FilesOf(device).locks;
}

NoteFiles DeviceOver(FakeNoteFiles& files) {
    return {.device = &files,
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
            .openShared = Open,
            .createAnew = CreateAnew,
            .readAt = ReadAt,
            .write = Write,
            .flush = Flush,
            .close = Close,
            .lock = Lock,
            .unlock = Unlock};
}

// ---- Power cuts and other programs ----------------------------------------------------------------------------------

void CutPower(FakeNoteFiles& files, PowerCut cut) {
    if (cut == PowerCut::kNone) return;
    for (const auto& [name, flushed] : files.unflushed) {
        std::vector<unsigned char>& bytes = files.contents[name];
        const auto lost = bytes.begin() + static_cast<std::ptrdiff_t>(flushed);
        switch (cut) {
            case PowerCut::kLosesAll: bytes.erase(lost, bytes.end()); break;
            case PowerCut::kLeavesZeros: std::fill(lost, bytes.end(), static_cast<unsigned char>(0)); break;
            case PowerCut::kLeavesHalf: bytes.erase(lost + (bytes.end() - lost) / 2, bytes.end()); break;
            case PowerCut::kNone: break;
        }
    }
    files.unflushed.clear();
}

void ChangeFile(FakeNoteFiles& files, const std::string& name, std::vector<unsigned char> bytes) {
    files.contents[name] = std::move(bytes);
    Touch(files, name);
}

// ---- Sets -----------------------------------------------------------------------------------------------------------

std::vector<unsigned char> LittleEndianBytes(const std::vector<std::uint32_t>& numbers) {
    std::vector<unsigned char> bytes;
    for (const std::uint32_t number : numbers)
        for (int shift = 0; shift < 32; shift += 8) bytes.push_back(static_cast<unsigned char>(number >> shift & 0xFF));
    return bytes;
}

FakeSet FakeSetOf(const std::map<int, std::string>& notes) {
    std::vector<std::uint32_t> offsets;
    FakeSet set;
    for (int verse = 0; verse < kVerseCount; ++verse) {
        offsets.push_back(static_cast<std::uint32_t>(set.data.size()));
        const auto note = notes.find(verse);
        if (note != notes.end()) set.data.insert(set.data.end(), note->second.begin(), note->second.end());
        set.data.push_back(0);
    }
    set.index = LittleEndianBytes(offsets);
    return set;
}

void AddFakeSet(FakeNoteFiles& files, const std::string& name, const std::map<int, std::string>& notes) {
    const FakeSet set = FakeSetOf(notes);
    files.contents[name + ".nmi"] = set.index;
    files.contents[name + ".nmd"] = set.data;
    files.listed.push_back(name + ".nmi");
}

std::span<const PowerCut> PowerCutsAfter(std::int64_t step) {
    static constexpr std::array kAll = {PowerCut::kNone, PowerCut::kLosesAll, PowerCut::kLeavesZeros,
                                        PowerCut::kLeavesHalf};
    const std::span<const PowerCut> all(kAll);
    return TriesAll() ? all : all.subspan(static_cast<std::size_t>(step) % all.size(), 1);
}
