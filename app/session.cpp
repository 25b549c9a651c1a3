#include "app/session.h"

#include <algorithm>
#include <array>

#include "notes/file_names.h"
#include "notes/note_saving.h"
#include "notes/whole_files.h"
#include "scripture/crc32.h"
#include "scripture/little_endian.h"
#include "scripture/verse_records.h"

static constexpr std::array<unsigned char, 4> kMark = {'V', 'W', 'S', 'E'};
static constexpr std::uint32_t kVersion = 1;
static constexpr std::size_t kHeaderSize = 16;
static constexpr std::size_t kFileLimit = std::size_t{1} << 24;

// ---- Writing --------------------------------------------------------------------------------------------------------

using Bytes = std::vector<unsigned char>;

static void Put(Bytes& bytes, std::uint32_t number) {
    bytes.resize(bytes.size() + sizeof number);
    StoreLittleEndian32(number, bytes.data() + bytes.size() - sizeof number);
}

static void PutCount(Bytes& bytes, std::size_t count) {
    Put(bytes, static_cast<std::uint32_t>(count));
}

static void Put(Bytes& bytes, const std::string& text) {
    PutCount(bytes, text.size());
    bytes.insert(bytes.end(), text.begin(), text.end());
}

static void Put(Bytes& bytes, const SettingText& setting) {
    Put(bytes, setting.section);
    Put(bytes, setting.key);
    Put(bytes, setting.text);
}

static void Put(Bytes& bytes, const NoteDraft& draft) {
    Put(bytes, draft.setName);
    Put(bytes, static_cast<std::uint32_t>(draft.verse));
    Put(bytes, draft.openedOn);
    Put(bytes, draft.text);
}

template <typename Item>
static void PutAll(Bytes& bytes, const std::vector<Item>& items) {
    PutCount(bytes, items.size());
    for (const Item& item : items) Put(bytes, item);
}

std::vector<unsigned char> SessionBytes(const Session& session) {
    Bytes bytes(kMark.begin(), kMark.end());
    Put(bytes, kVersion);
    bytes.resize(kHeaderSize);
    PutAll(bytes, session.settings);
    PutAll(bytes, session.drafts);
    const std::span<const unsigned char> content = std::span(bytes).subspan(kHeaderSize);
    StoreLittleEndian32(static_cast<std::uint32_t>(content.size()), bytes.data() + 8);
    StoreLittleEndian32(Crc32(content), bytes.data() + 12);
    return bytes;
}

// ---- Reading --------------------------------------------------------------------------------------------------------

namespace {

struct Reader {
    std::span<const unsigned char> rest;
    bool isWhole = true;  // nothing was missing so far
};

}  // namespace

static std::span<const unsigned char> Take(Reader& reader, std::size_t count) {
    if (count > reader.rest.size()) {
        reader = {{}, false};
        return {};
    }
    const std::span<const unsigned char> taken = reader.rest.first(count);
    reader.rest = reader.rest.subspan(count);
    return taken;
}

static std::uint32_t TakeNumber(Reader& reader) {
    const std::span<const unsigned char> bytes = Take(reader, sizeof(std::uint32_t));
    return bytes.empty() ? 0 : LittleEndian32(bytes.data());
}

static std::string TakeText(Reader& reader) {
    const std::span<const unsigned char> bytes = Take(reader, TakeNumber(reader));
    if (std::ranges::find(bytes, 0) != bytes.end()) reader = {{}, false};
    return {bytes.begin(), bytes.end()};
}

static void Take(Reader& reader, SettingText& setting) {
    setting.section = TakeText(reader);
    setting.key = TakeText(reader);
    setting.text = TakeText(reader);
}

static void Take(Reader& reader, NoteDraft& draft) {
    draft.setName = TakeText(reader);
    const std::uint32_t verse = TakeNumber(reader);
    draft.verse = static_cast<int>(verse);
    draft.openedOn = TakeText(reader);
    draft.text = TakeText(reader);
    const bool isNote = verse < kVerseCount && draft.openedOn.size() <= kNoteTextLimit &&
                        draft.text.size() <= kNoteTextLimit && !draft.setName.empty() && IsSetName(draft.setName);
    if (!isNote) reader = {{}, false};
}

// What follows a missing byte is empty, so a false count ends there.
template <typename Item>
static std::vector<Item> TakeAll(Reader& reader) {
    std::vector<Item> items;
    for (std::uint32_t left = TakeNumber(reader); left > 0 && reader.isWhole; --left)
        Take(reader, items.emplace_back());
    return items;
}

bool ParseSession(std::span<const unsigned char> bytes, Session& session) {
    Reader reader{bytes};
    const std::span<const unsigned char> mark = Take(reader, kMark.size());
    const std::uint32_t version = TakeNumber(reader);
    const std::uint32_t size = TakeNumber(reader);
    const std::uint32_t checksum = TakeNumber(reader);
    if (!reader.isWhole || !std::ranges::equal(mark, kMark) || version != kVersion) return false;
    if (size != reader.rest.size() || checksum != Crc32(reader.rest)) return false;
    session.settings = TakeAll<SettingText>(reader);
    session.drafts = TakeAll<NoteDraft>(reader);
    return reader.isWhole && reader.rest.empty();
}

// ---- The file -------------------------------------------------------------------------------------------------------

LastSession ReadLastSession(const NoteFiles& files, Session& session) {
    std::vector<unsigned char> bytes;
    if (!files.stamp(files.device, kSessionFile).exists) return LastSession::kNone;
    if (ReadWholeFile(files, kSessionFile, kFileLimit, bytes) && ParseSession(bytes, session))
        return LastSession::kLeft;
    session = {};
    const bool isMoved = files.replace(files.device, kSessionFile, kDamagedSessionFile);
    return isMoved ? LastSession::kDamaged : LastSession::kInTheWay;
}

std::vector<NoteDraft> DraftsIn(const NoteFiles& files) {
    std::vector<unsigned char> bytes;
    Session session;
    const bool isRead = ReadWholeFile(files, kSessionFile, kFileLimit, bytes) && ParseSession(bytes, session);
    return isRead ? session.drafts : std::vector<NoteDraft>();
}

bool IsSessionOutdated(const NoteFiles& files) {
    return files.stamp(files.device, kSettingsFile).time > files.stamp(files.device, kSessionFile).time;
}
