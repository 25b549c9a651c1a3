#include "notes/note_layout.h"

#include <cstring>
#include <limits>

#include "scripture/little_endian.h"
#include "scripture/verse_records.h"

static constexpr std::size_t kScanPiece = std::size_t{1} << 18;  // stays in the processor's cache

// Notes have their one NUL after hundreds of characters: most blocks have none, and eight bytes are tested at once.
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

// A note ends with the byte before `next`, where the note of the next verse begins.
static void AddEnd(NoteLayout& layout, std::uint64_t next) {
    ++layout.ends;
    if (layout.offsets.size() < kVerseCount && next <= std::numeric_limits<std::uint32_t>::max())
        layout.offsets.push_back(static_cast<std::uint32_t>(next));
}

static void AddEndsByteByByte(NoteLayout& layout, std::span<const unsigned char> bytes, std::uint64_t place) {
    for (const unsigned char byte : bytes) {
        ++place;
        if (byte == 0) AddEnd(layout, place);
    }
}

void AddToLayout(NoteLayout& layout, std::span<const unsigned char> bytes) {
    if (bytes.empty()) return;
    if (layout.size == 0) layout.offsets.push_back(0);
    std::size_t done = 0;
    for (; done + kBlock <= bytes.size(); done += kBlock)
        if (HasNul(bytes.data() + done)) AddEndsByteByByte(layout, bytes.subspan(done, kBlock), layout.size + done);
    AddEndsByteByByte(layout, bytes.subspan(done), layout.size + done);
    layout.size += bytes.size();
    layout.endsWithNul = bytes.back() == 0;
}

NoteLayout ScanNotes(const NoteFiles& files, void* file) {
    NoteLayout layout;
    layout.offsets.reserve(kVerseCount);
    std::vector<unsigned char> piece(kScanPiece);
    for (std::size_t read = kScanPiece; read == kScanPiece;) {
        read = files.readAt(files.device, file, layout.size, piece);
        AddToLayout(layout, std::span(piece).first(read));
    }
    return layout;
}

bool IsWhole(const NoteLayout& layout) {
    return layout.ends == kVerseCount && layout.endsWithNul && layout.size <= std::numeric_limits<std::uint32_t>::max();
}

bool FitsLayout(std::span<const std::uint32_t> offsets, const NoteLayout& layout) {
    return IsWhole(layout) && offsets.size() >= kVerseCount &&
           std::memcmp(offsets.data(), layout.offsets.data(), std::size_t{kVerseCount} * 4) == 0;
}

std::vector<std::uint32_t> OffsetsOf(std::span<const unsigned char> bytes) {
    std::vector<std::uint32_t> offsets(bytes.size() / 4);
    for (std::size_t i = 0; i < offsets.size(); ++i) offsets[i] = LittleEndian32(bytes.data() + 4 * i);
    return offsets;
}

std::vector<unsigned char> IndexBytes(std::span<const std::uint32_t> offsets) {
    std::vector<unsigned char> bytes(offsets.size() * 4);
    auto byte = bytes.begin();
    for (const std::uint32_t offset : offsets)
        for (int shift = 0; shift < 32; shift += 8) *byte++ = static_cast<unsigned char>(offset >> shift & 0xFF);
    return bytes;
}

bool WriteIndex(const NoteFiles& files, const std::string& indexFileName, std::span<const std::uint32_t> offsets) {
    void* const file = files.createAnew(files.device, indexFileName);
    if (file == nullptr) return false;
    const bool written = files.write(files.device, file, IndexBytes(offsets)) && files.flush(files.device, file);
    files.close(files.device, file);
    return written;
}

static bool IsWholeFile(const NoteFiles& files, const std::string& name) {
    void* const file = files.open(files.device, name);
    if (file == nullptr) return false;
    const bool whole = IsWhole(ScanNotes(files, file));
    files.close(files.device, file);
    return whole;
}

bool PutTwinInPlace(const NoteFiles& files, const std::string& dataFileName) {
    const std::string twin = dataFileName + kTempEnding;
    return !files.stamp(files.device, dataFileName).exists && files.stamp(files.device, twin).exists &&
           IsWholeFile(files, twin) && files.rename(files.device, twin, dataFileName);
}
