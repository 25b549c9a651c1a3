#include "notes/note_places.h"

#include <algorithm>
#include <cstring>
#include <limits>

#include "scripture/little_endian.h"
#include "scripture/verse_records.h"

static constexpr std::size_t kScanPiece = std::size_t{1} << 18;  // fits into the processor's cache

// A note has a single NUL after hundreds of characters, so most blocks have none; eight bytes are tested at once.
static constexpr std::size_t kBlock = 64;

static bool HasNul(const unsigned char* block) {
    std::uint64_t found = 0;
    for (std::size_t i = 0; i < kBlock; i += 8) {
        std::uint64_t eight;
        std::memcpy(&eight, block + i, 8);
        found |= (eight - 0x0101010101010101u) & ~eight & 0x8080808080808080u;
    }
    return found != 0;
}

// Records that a note ends before offset `next`, where the next verse's note begins.
static void AddEnd(NotePlaces& places, std::uint64_t next) {
    ++places.ends;
    if (places.offsets.size() < kVerseCount && next <= std::numeric_limits<std::uint32_t>::max())
        places.offsets.push_back(static_cast<std::uint32_t>(next));
}

static void AddEndsByteByByte(NotePlaces& places, std::span<const unsigned char> bytes, std::uint64_t place) {
    for (const unsigned char byte : bytes) {
        ++place;
        if (byte == 0) AddEnd(places, place);
    }
}

void AddPlaces(NotePlaces& places, std::span<const unsigned char> bytes) {
    if (bytes.empty()) return;
    if (places.size == 0) places.offsets.push_back(0);
    std::size_t done = 0;
    for (; done + kBlock <= bytes.size(); done += kBlock)
        if (HasNul(bytes.data() + done)) AddEndsByteByByte(places, bytes.subspan(done, kBlock), places.size + done);
    AddEndsByteByByte(places, bytes.subspan(done), places.size + done);
    places.size += bytes.size();
    places.endsWithNul = bytes.back() == 0;
}

NotePlaces ScanNotes(const NoteFiles& files, void* file) {
    NotePlaces places;
    places.offsets.reserve(kVerseCount);
    std::vector<unsigned char> piece(kScanPiece);
    for (std::size_t read = kScanPiece; read == kScanPiece;) {
        read = files.readAt(files.device, file, places.size, piece);
        AddPlaces(places, std::span(piece).first(read));
    }
    return places;
}

std::optional<NotePlaces> PlacesOf(const NoteFiles& files, const std::string& dataFileName) {
    const OwnedNoteFile file = OpenNoteFile(files, dataFileName);
    return file ? std::optional(ScanNotes(files, file.get())) : std::nullopt;
}

bool IsWhole(const NotePlaces& places) {
    return places.ends == kVerseCount && places.endsWithNul && places.size <= std::numeric_limits<std::uint32_t>::max();
}

bool FitsPlaces(std::span<const std::uint32_t> offsets, const NotePlaces& places) {
    return IsWhole(places) && offsets.size() >= kVerseCount &&
           std::memcmp(offsets.data(), places.offsets.data(), std::size_t{kVerseCount} * 4) == 0;
}

std::vector<std::uint32_t> OffsetsOf(std::span<const unsigned char> bytes) {
    std::vector<std::uint32_t> offsets(bytes.size() / 4);
    for (std::size_t i = 0; i < offsets.size(); ++i) offsets[i] = LittleEndian32(bytes.data() + 4 * i);
    return offsets;
}

std::vector<unsigned char> IndexBytes(std::span<const std::uint32_t> offsets) {
    std::vector<unsigned char> bytes(offsets.size() * 4);
    for (std::size_t i = 0; i < offsets.size(); ++i) StoreLittleEndian32(offsets[i], bytes.data() + 4 * i);
    return bytes;
}

bool ReadIndex(const NoteFiles& files, const std::string& indexFileName, std::vector<std::uint32_t>& offsets) {
    std::vector<unsigned char> bytes;
    if (!files.read(files.device, indexFileName, 0, std::size_t{kVerseCount} * 4, bytes)) return false;
    offsets = OffsetsOf(bytes);
    return true;
}

std::vector<std::uint32_t> ReadableOffsets(std::vector<std::uint32_t> index, NotePlaces places) {
    if (index.size() == kVerseCount && index.front() == 0 && std::is_sorted(index.begin(), index.end())) return index;
    if (places.offsets.size() < kVerseCount && !places.endsWithNul)
        places.offsets.push_back(static_cast<std::uint32_t>(places.size));
    return places.offsets;
}

bool WriteIndex(const NoteFiles& files, const std::string& indexFileName, std::span<const std::uint32_t> offsets) {
    const OwnedNoteFile file = CreateNoteFileAnew(files, indexFileName);
    return file && files.write(files.device, file.get(), IndexBytes(offsets)) && files.flush(files.device, file.get());
}

static bool IsWholeFile(const NoteFiles& files, const std::string& name) {
    const OwnedNoteFile file = OpenNoteFile(files, name);
    return file && IsWhole(ScanNotes(files, file.get()));
}

bool PutTwinInPlace(const NoteFiles& files, const std::string& dataFileName) {
    const std::string twin = dataFileName + kTempEnding;
    return !files.stamp(files.device, dataFileName).exists && files.stamp(files.device, twin).exists &&
           IsWholeFile(files, twin) && files.rename(files.device, twin, dataFileName);
}
