// A session file of any bytes. The first byte of the input tells whether the rest is a whole file or what follows a
// header, which is then made with the right size and checksum: no input would have them by chance.
#include <vector>

#include "app/session.h"
#include "notes/note_saving.h"
#include "scripture/little_endian.h"
#include "tests/fuzz/fuzz.h"
#include "tests/support/fake_note_files.h"

using Bytes = std::vector<unsigned char>;

static std::uint32_t Checksum(std::span<const unsigned char> bytes) {
    std::uint32_t sum = 0xFFFFFFFF;
    for (const unsigned char byte : bytes) {
        sum ^= byte;
        for (int bit = 0; bit < 8; ++bit) sum = (sum & 1) != 0 ? (sum >> 1) ^ 0xEDB88320 : sum >> 1;
    }
    return sum ^ 0xFFFFFFFF;
}

static Bytes WithHeader(std::span<const unsigned char> content) {
    Bytes file = {'V', 'W', 'S', 'E', 1, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0};
    StoreLittleEndian32(static_cast<std::uint32_t>(content.size()), file.data() + 8);
    StoreLittleEndian32(Checksum(content), file.data() + 12);
    file.insert(file.end(), content.begin(), content.end());
    return file;
}

static void ExpectNotes(const Session& session) {
    for (const NoteDraft& draft : session.drafts) {
        Expect(draft.verse >= 0 && draft.verse < kVerseCount, "a note has a verse");
        Expect(draft.text.size() <= kNoteTextLimit && draft.openedOn.size() <= kNoteTextLimit, "a note fits");
        Expect(draft.text.find('\0') == std::string::npos, "a note has no NUL");
        Expect(draft.setName.find_first_of("\\/:") == std::string::npos, "a set is in the working directory");
    }
}

// Texts lose a pair of quotes each time that they are read.
static bool IsText(const SettingText& setting) {
    return setting.key.starts_with("PreviousSearch") || setting.key.ends_with("FontName");
}

// The settings are used like those of a file.
static void ExpectSettings(Session& session) {
    const Settings settings = LoadSettings(ProfileOver(session.settings), 0);
    Expect(settings.ReadVerse >= 0 && settings.ReadVerse < kVerseCount, "the passage begins with a verse");
    SettingTexts written;
    SaveSettings(ProfileOver(written), settings, nullptr);
    SettingTexts again;
    SaveSettings(ProfileOver(again), LoadSettings(ProfileOver(written), 0), nullptr);
    for (std::size_t i = 0; i < written.size(); ++i)
        Expect(IsText(written[i]) || again[i] == written[i], "a number that was read and written stays");
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size == 0) return 0;
    const std::span<const unsigned char> rest(data + 1, size - 1);
    const Bytes file = data[0] % 2 == 0 ? WithHeader(rest) : Bytes(rest.begin(), rest.end());
    FakeNoteFiles files;
    files.contents[kSessionFile] = file;
    Session session;
    const LastSession found = ReadLastSession(DeviceOver(files), session);
    if (found == LastSession::kDamaged) {
        Expect(files.contents[kDamagedSessionFile] == file, "a damaged file is kept aside");
        Expect(session.settings.empty() && session.drafts.empty(), "nothing of a damaged file is used");
        return 0;
    }
    Expect(found == LastSession::kLeft, "a file is read or damaged");
    Expect(SessionBytes(session) == file, "the same session is the same file");
    ExpectNotes(session);
    ExpectSettings(session);
    return 0;
}
