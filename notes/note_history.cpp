#include "notes/note_history.h"

#include <algorithm>
#include <chrono>
#include <map>
#include <new>
#include <optional>
#include <string_view>
#include <utility>

#include "notes/note_lock.h"
#include "notes/whole_files.h"
#include "scripture/crc32.h"
#include "scripture/letters.h"
#include "scripture/little_endian.h"
#include "scripture/verse_records.h"

using Bytes = std::vector<unsigned char>;
using BytesView = std::span<const unsigned char>;

static constexpr std::string_view kMagic = "VWNH";
static constexpr std::uint32_t kVersion = 1;
static constexpr std::size_t kFileHeaderSize = 8;
static constexpr std::size_t kChecksummedFrom = 8;  // in a record, behind its size and checksum
static constexpr std::size_t kRecordHeaderSize = 24;
static constexpr std::size_t kLongestText = 65533;
static constexpr std::size_t kPiece = std::size_t{1} << 20;
static constexpr std::size_t kMovedAtOnce = std::size_t{4} << 20;

std::string HistoryFileName(const std::string& setName) {
    return std::string(kBackupFolder) + '/' + setName + kHistoryEnding;
}

// ---- Records --------------------------------------------------------------------------------------------------------

static void AddRecord(Bytes& bytes, const EarlierNote& note, std::string_view text) {
    const std::size_t begin = bytes.size();
    bytes.resize(begin + kRecordHeaderSize);
    bytes.insert(bytes.end(), text.begin(), text.end());
    unsigned char* const record = bytes.data() + begin;
    const auto time = static_cast<std::uint64_t>(note.time);
    StoreLittleEndian32(static_cast<std::uint32_t>(kRecordHeaderSize - 4 + text.size()), record);
    StoreLittleEndian32(static_cast<std::uint32_t>(time), record + 8);
    StoreLittleEndian32(static_cast<std::uint32_t>(time >> 32), record + 12);
    StoreLittleEndian32(static_cast<std::uint32_t>(note.verse), record + 16);
    StoreLittleEndian32(static_cast<std::uint32_t>(note.reason), record + 20);
    StoreLittleEndian32(Crc32(std::span(bytes).subspan(begin + kChecksummedFrom)), record + 4);
}

static Bytes RecordsOf(std::span<const EarlierNote> notes) {
    Bytes bytes;
    for (const EarlierNote& note : notes) {
        std::string_view text = std::string_view(note.text).substr(0, note.text.find('\0'));
        for (; text.size() > kLongestText; text.remove_prefix(kLongestText))
            AddRecord(bytes, note, text.substr(0, kLongestText));
        AddRecord(bytes, note, text);
    }
    return bytes;
}

// Length of the record at the start of `bytes`; 0 if there is no whole one.
static std::size_t RecordLength(BytesView bytes) {
    if (bytes.size() < kRecordHeaderSize) return 0;
    const std::size_t length = std::size_t{LittleEndian32(bytes.data())} + 4;
    if (length < kRecordHeaderSize || length > kRecordHeaderSize + kLongestText || length > bytes.size()) return 0;
    if (LittleEndian32(bytes.data() + 16) >= std::uint32_t{kVerseCount}) return 0;
    const bool isRight =
        LittleEndian32(bytes.data() + 4) == Crc32(bytes.subspan(kChecksummedFrom, length - kChecksummedFrom));
    return isRight ? length : 0;
}

static std::int64_t TimeOf(BytesView record) {
    return static_cast<std::int64_t>(std::uint64_t{LittleEndian32(record.data() + 12)} << 32 |
                                     LittleEndian32(record.data() + 8));
}

static int VerseOf(BytesView record) {
    return static_cast<int>(LittleEndian32(record.data() + 16));
}

static KeptReason ReasonOf(BytesView record) {
    return static_cast<KeptReason>(LittleEndian32(record.data() + 20));
}

static EarlierNote NoteOf(BytesView record) {
    const BytesView text = record.subspan(kRecordHeaderSize);
    return {TimeOf(record), VerseOf(record), ReasonOf(record), {text.begin(), std::ranges::find(text, 0)}};
}

// ---- Reading --------------------------------------------------------------------------------------------------------

enum class HistoryKind { kMissing, kReadable, kNewer, kForeign, kClosed };

// A file without any bytes is as good as missing.
static HistoryKind KindOf(const NoteFiles& files, const std::string& name) {
    const NoteFileStamp stamp = files.stamp(files.device, name);
    if (!stamp.exists) return HistoryKind::kMissing;
    Bytes header;
    if (!files.read(files.device, name, 0, kFileHeaderSize, header)) return HistoryKind::kClosed;
    if (header.empty() && stamp.size == 0) return HistoryKind::kMissing;
    if (header.size() < kFileHeaderSize || !std::equal(kMagic.begin(), kMagic.end(), header.begin()))
        return HistoryKind::kForeign;
    const std::uint32_t version = LittleEndian32(header.data() + kMagic.size());
    if (version > kVersion) return HistoryKind::kNewer;
    return version == kVersion ? HistoryKind::kReadable : HistoryKind::kForeign;
}

// Calls `visit` with each record of a readable file and its place, in the order of the file. Returns the number of
// bytes that could be read.
template <typename Visit>
static std::uint64_t ForEachRecord(const NoteFiles& files, const std::string& name, Visit visit) {
    Bytes window, piece;
    std::uint64_t begin = kFileHeaderSize;  // of the window, in the file
    std::size_t at = 0;                     // in the window
    bool isAtEnd = false;
    while (true) {
        if (!isAtEnd && window.size() - at < kRecordHeaderSize + kLongestText) {
            window.erase(window.begin(), window.begin() + static_cast<std::ptrdiff_t>(at));
            begin += std::exchange(at, 0);
            if (!files.read(files.device, name, begin + window.size(), kPiece, piece)) piece.clear();
            window.insert(window.end(), piece.begin(), piece.end());
            isAtEnd = piece.size() < kPiece;
        }
        if (window.size() - at < kRecordHeaderSize) return begin + window.size();
        const BytesView rest = BytesView(window).subspan(at);
        const std::size_t length = RecordLength(rest);
        if (length > 0) visit(begin + at, rest.first(length));
        at += std::max<std::size_t>(length, 1);
    }
}

template <typename IsWanted>
static std::vector<EarlierNote> NotesIn(const NoteFiles& files, const std::string& setName, IsWanted isWanted) {
    const std::string name = HistoryFileName(setName);
    std::vector<EarlierNote> notes;
    if (KindOf(files, name) != HistoryKind::kReadable) return notes;
    ForEachRecord(files, name, [&](std::uint64_t, BytesView record) {
        if (isWanted(record)) notes.push_back(NoteOf(record));
    });
    // A clock that was put back and a history that was added to another one leave records that are not in order.
    std::ranges::stable_sort(notes, {}, &EarlierNote::time);
    return notes;
}

std::vector<EarlierNote> EarlierNotesOf(const NoteFiles& files, const std::string& setName, int verse) {
    std::vector<EarlierNote> notes =
        NotesIn(files, setName, [verse](BytesView record) { return VerseOf(record) == verse; });
    std::ranges::reverse(notes);
    return notes;
}

std::vector<EarlierNote> AllEarlierNotes(const NoteFiles& files, const std::string& setName) {
    return NotesIn(files, setName, [](BytesView) { return true; });
}

// ---- Dropping old texts ---------------------------------------------------------------------------------------------

namespace {

struct Entry {
    std::uint64_t place;
    std::size_t length;
    std::int64_t time;
    int verse;
    bool isOfDeletedSet;
    bool isKept = true;
};

}  // namespace

// Months since 1970. Times that no calendar has count as its first or last month.
static int MonthOf(std::int64_t time) {
    using namespace std::chrono;
    static constexpr std::int64_t kEndOf9999 = 253402300799;
    const sys_seconds point{seconds{std::clamp<std::int64_t>(time, 0, kEndOf9999)}};
    const year_month_day date{floor<days>(point)};
    return (static_cast<int>(date.year()) - 1970) * 12 + static_cast<int>(static_cast<unsigned>(date.month())) - 1;
}

static void DropAllButTheLastOfEachMonth(std::vector<Entry>& entries, std::int64_t before) {
    std::map<std::pair<int, int>, Entry*> last;  // of month and verse
    for (Entry& entry : entries) {
        if (entry.time >= before) continue;
        const auto [place, isFirst] = last.try_emplace({MonthOf(entry.time), entry.verse}, &entry);
        if (isFirst) continue;
        Entry& dropped = entry.time < place->second->time ? entry : *std::exchange(place->second, &entry);
        dropped.isKept = false;
    }
}

static std::uint64_t KeptSize(const std::vector<Entry>& entries) {
    std::uint64_t size = 0;
    for (const Entry& entry : entries)
        if (entry.isKept) size += entry.length;
    return size;
}

static void DropOldest(std::vector<Entry>& entries, std::uint64_t room) {
    std::vector<Entry*> order;
    for (Entry& entry : entries)
        if (entry.isKept) order.push_back(&entry);
    std::ranges::stable_sort(order, {}, [](const Entry* e) { return std::pair(!e->isOfDeletedSet, e->time); });
    std::uint64_t size = KeptSize(entries);
    for (std::size_t i = 0; size > room && i < order.size(); ++i) {
        order[i]->isKept = false;
        size -= order[i]->length;
    }
}

// The file's records, or nullopt if it could not be read to its end: those that were not read must not be lost.
static std::optional<std::vector<Entry>> EntriesOf(const NoteFiles& files, const std::string& name,
                                                   std::uint64_t size) {
    std::vector<Entry> entries;
    const std::uint64_t read = ForEachRecord(files, name, [&](std::uint64_t place, BytesView record) {
        entries.push_back(
            {place, record.size(), TimeOf(record), VerseOf(record), ReasonOf(record) == KeptReason::kDeleted});
    });
    return read == size ? std::optional(std::move(entries)) : std::nullopt;
}

static Bytes FileHeader() {
    Bytes header(kFileHeaderSize);
    std::ranges::copy(kMagic, header.begin());
    StoreLittleEndian32(kVersion, header.data() + kMagic.size());
    return header;
}

static Bytes KeptBytes(const NoteFiles& files, const std::string& name, const std::vector<Entry>& entries) {
    Bytes bytes = FileHeader();
    bytes.reserve(static_cast<std::size_t>(bytes.size() + KeptSize(entries)));
    auto entry = entries.begin();
    ForEachRecord(files, name, [&](std::uint64_t place, BytesView record) {
        if (entry == entries.end() || entry->place != place) return;
        if (entry++->isKept) bytes.insert(bytes.end(), record.begin(), record.end());
    });
    return bytes;
}

// Rewrites the file with `records` behind what is kept of it. False if that is not worth while or failed: the file is
// unchanged.
static bool RewriteWith(const NoteFiles& files, const std::string& name, BytesView records, std::int64_t now) {
    static constexpr std::int64_t kDaysKept = 90;
    static constexpr std::int64_t kSecondsPerDay = 86400;
    const std::uint64_t size = files.stamp(files.device, name).size;
    std::optional<std::vector<Entry>> entries = EntriesOf(files, name, size);
    if (!entries) return false;
    DropAllButTheLastOfEachMonth(*entries, now - kDaysKept * kSecondsPerDay);
    const std::uint64_t added = kFileHeaderSize + records.size();
    if (added + KeptSize(*entries) > kHistoryLimit) {
        const std::uint64_t aim = kHistoryLimit / 4 * 3;
        DropOldest(*entries, aim > added ? aim - added : 0);
    }
    if (added + KeptSize(*entries) > (size + records.size()) / 4 * 3) return false;
    Bytes bytes = KeptBytes(files, name, *entries);
    if (bytes.size() != kFileHeaderSize + KeptSize(*entries)) return false;  // it was changed meanwhile
    bytes.insert(bytes.end(), records.begin(), records.end());
    return WriteWholeFile(files, name, bytes);
}

// ---- Writing --------------------------------------------------------------------------------------------------------

static bool PutAside(const NoteFiles& files, const std::string& name) {
    static constexpr int kTries = 100;
    const std::string aside = name + ".damaged";
    if (files.rename(files.device, name, aside)) return true;
    for (int number = 2; number < kTries; ++number)
        if (files.rename(files.device, name, aside + ' ' + std::to_string(number))) return true;
    return false;
}

static bool BeginWith(const NoteFiles& files, const std::string& name, BytesView records) {
    Bytes bytes = FileHeader();
    bytes.insert(bytes.end(), records.begin(), records.end());
    return WriteWholeFile(files, name, bytes);
}

// What stands in the place of a missing file and is none, such as a folder, is put aside, too.
static bool BeginAnew(const NoteFiles& files, const std::string& name, BytesView records) {
    if (BeginWith(files, name, records)) return true;
    return !files.stamp(files.device, name).exists && PutAside(files, name) && BeginWith(files, name, records);
}

static bool AddTo(const NoteFiles& files, const std::string& name, BytesView records, std::int64_t now) {
    const std::uint64_t size = files.stamp(files.device, name).size;
    const std::uint64_t sizeAfter = size + records.size();
    const bool mayDrop = size / kHistoryStep != sizeAfter / kHistoryStep || sizeAfter > kHistoryLimit;
    if (mayDrop && RewriteWith(files, name, records, now)) return true;
    return files.append(files.device, name, records);
}

static std::int64_t LatestTime(std::span<const EarlierNote> texts) {
    return std::max<std::int64_t>(0, std::ranges::max(texts, {}, &EarlierNote::time).time);
}

static bool Keep(const NoteFiles& files, const std::string& setName, std::span<const EarlierNote> texts) {
    const std::string name = HistoryFileName(setName);
    const Bytes records = RecordsOf(texts);
    if (!files.makeFolder(files.device, kBackupFolder)) return false;
    switch (KindOf(files, name)) {
        case HistoryKind::kMissing: return BeginAnew(files, name, records);
        case HistoryKind::kReadable: return AddTo(files, name, records, LatestTime(texts));
        case HistoryKind::kForeign: return PutAside(files, name) && BeginWith(files, name, records);
        case HistoryKind::kNewer:
        case HistoryKind::kClosed: break;
    }
    return false;
}

bool KeepEarlierNotes(const NoteFiles& files, const std::string& setName, std::span<const EarlierNote> texts) {
    if (texts.empty()) return true;
    const NoteLock lock = LockNoteFiles(files);
    try {
        return Keep(files, setName, texts);
    } catch (const std::bad_alloc&) {
        return false;
    }
}

// ---- Another name ---------------------------------------------------------------------------------------------------

static bool AddAllTo(const NoteFiles& files, const std::string& from, const std::string& to) {
    std::vector<EarlierNote> notes;
    std::size_t size = 0;
    bool isKept = true;
    const auto keep = [&] {
        isKept = isKept && KeepEarlierNotes(files, to, notes);
        notes.clear();
        size = 0;
    };
    const std::string name = HistoryFileName(from);
    const std::uint64_t sizeBefore = files.stamp(files.device, name).size;
    const std::uint64_t read = ForEachRecord(files, name, [&](std::uint64_t, BytesView record) {
        notes.push_back(NoteOf(record));
        size += record.size();
        if (size >= kMovedAtOnce) keep();
    });
    keep();
    return isKept && read == sizeBefore;
}

bool MoveEarlierNotes(const NoteFiles& files, const std::string& from, const std::string& to) {
    const std::string name = HistoryFileName(from);
    if (!files.stamp(files.device, name).exists) return true;
    if (files.rename(files.device, name, HistoryFileName(to))) return true;
    if (EqualIgnoringCase(from, to) || KindOf(files, name) != HistoryKind::kReadable) return false;
    return AddAllTo(files, from, to) && files.remove(files.device, name);
}
