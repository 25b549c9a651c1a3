#include "app/session.h"

#include <gtest/gtest.h>

#include "tests/support/fake_note_files.h"

using Bytes = std::vector<unsigned char>;

static Session Sample() {
    return {{{"MISC", "Note", "2"}, {"SEARCH", "PreviousSearch0", ""}},
            {{"My Notes", 26136, "as it was\r\n", "as it is \xB6"}, {"Mine", 31101, "", "new"}}};
}

static bool IsSame(const NoteDraft& left, const NoteDraft& right) {
    return left.setName == right.setName && left.verse == right.verse && left.openedOn == right.openedOn &&
           left.text == right.text;
}

static void ExpectSame(const Session& left, const Session& right) {
    EXPECT_EQ(left.settings, right.settings);
    ASSERT_EQ(left.drafts.size(), right.drafts.size());
    for (std::size_t i = 0; i < left.drafts.size(); ++i) EXPECT_TRUE(IsSame(left.drafts[i], right.drafts[i])) << i;
}

TEST(SessionFile, TellsItsNotesAndStays) {
    FakeNoteFiles fakes;
    const NoteFiles files = DeviceOver(fakes);
    EXPECT_TRUE(DraftsIn(files).empty());
    const NoteDraft draft{"Mine", 31101, "before", "text"};
    fakes.contents[kSessionFile] = SessionBytes({{}, {draft}});
    const auto before = fakes.contents;
    ASSERT_EQ(DraftsIn(files).size(), 1u);
    EXPECT_EQ(DraftsIn(files)[0].setName, draft.setName);
    EXPECT_EQ(DraftsIn(files)[0].text, draft.text);
    EXPECT_EQ(fakes.contents, before);
    fakes.contents[kSessionFile].pop_back();
    EXPECT_TRUE(DraftsIn(files).empty());
    EXPECT_EQ(fakes.contents.size(), 1u);
}

// The file of the comment in the header, byte by byte; the checksum was calculated by zlib.
TEST(SessionBytes, HaveTheFormat) {
    const Session session = {{{"A", "b", "cd"}}, {{"S", 258, "o", "tt"}}};
    const std::string expected(
        "VWSE\1\0\0\0\x2C"
        "\0\0\0"
        "\x33\x25\xE4\x96"
        "\1\0\0\0\1\0\0\0A\1\0\0\0b\2\0\0\0cd"
        "\1\0\0\0\1\0\0\0S\2\1\0\0\1\0\0\0o\2\0\0\0tt",
        60);
    const Bytes bytes = SessionBytes(session);
    EXPECT_EQ(std::string(bytes.begin(), bytes.end()), expected);
}

TEST(SessionBytes, AreReadAgain) {
    for (const Session& session : {Sample(), Session{}}) {
        Session read = Sample();
        ASSERT_TRUE(ParseSession(SessionBytes(session), read));
        ExpectSame(read, session);
    }
}

TEST(SessionBytes, AreRefusedWhenCutOrLonger) {
    const Bytes whole = SessionBytes(Sample());
    Session read;
    for (std::size_t size = 0; size < whole.size(); ++size)
        EXPECT_FALSE(ParseSession(std::span(whole).first(size), read)) << size;
    Bytes longer = whole;
    longer.push_back(0);
    EXPECT_FALSE(ParseSession(longer, read));
}

TEST(SessionBytes, AreRefusedWhenAnyByteIsDamaged) {
    const Bytes whole = SessionBytes(Sample());
    Session read;
    for (std::size_t i = 0; i < whole.size(); ++i) {
        Bytes damaged = whole;
        damaged[i] = static_cast<unsigned char>(damaged[i] ^ 0x10);
        EXPECT_FALSE(ParseSession(damaged, read)) << i;
    }
}

// Their checksums are right, but no version of the program wrote them.
TEST(SessionBytes, AreRefusedWhenTheirNotesCannotBe) {
    const NoteDraft good = {"Mine", 0, std::string(65533, 'o'), std::string(65533, 't')};
    static const struct {
        const char* what;
        NoteDraft draft;
        bool isGood;
    } kRows[] = {
        {"the longest texts", good, true},
        {"the last verse", {"Mine", 31101, "", "t"}, true},
        {"no verse", {"Mine", 31102, "", "t"}, false},
        {"a negative verse", {"Mine", -1, "", "t"}, false},
        {"too long a note", {"Mine", 0, std::string(65534, 'o'), "t"}, false},
        {"too long a text", {"Mine", 0, "", std::string(65534, 't')}, false},
        {"no set", {"", 0, "", "t"}, false},
        {"another folder", {"..\\Mine", 0, "", "t"}, false},
        {"another folder", {"a/b", 0, "", "t"}, false},
        {"a stream", {"a:b", 0, "", "t"}, false},
        {"a device", {"con", 0, "", "t"}, false},
        {"a device with an ending", {"com1.x", 0, "", "t"}, false},
        {"a NUL in a name", {std::string("a\0b", 3), 0, "", "t"}, false},
        {"a NUL in a text", {"Mine", 0, "", std::string("a\0b", 3)}, false},
    };
    for (const auto& [what, draft, isGood] : kRows) {
        Session read;
        EXPECT_EQ(ParseSession(SessionBytes({{}, {draft}}), read), isGood) << what;
    }
}

TEST(LastSession, IsNoneAfterAProperExit) {
    FakeNoteFiles files;
    Session session;
    EXPECT_EQ(ReadLastSession(DeviceOver(files), session), LastSession::kNone);
}

TEST(LastSession, IsReadAndStays) {
    FakeNoteFiles files;
    files.contents[kSessionFile] = SessionBytes(Sample());
    Session session;
    EXPECT_EQ(ReadLastSession(DeviceOver(files), session), LastSession::kLeft);
    ExpectSame(session, Sample());
    EXPECT_EQ(files.contents[kSessionFile], SessionBytes(Sample()));
}

TEST(LastSession, IsKeptAsideWhenItIsDamaged) {
    FakeNoteFiles files;
    Bytes damaged = SessionBytes(Sample());
    damaged.pop_back();
    files.contents[kSessionFile] = damaged;
    files.contents[kDamagedSessionFile] = {1, 2};
    Session session = Sample();
    EXPECT_EQ(ReadLastSession(DeviceOver(files), session), LastSession::kDamaged);
    ExpectSame(session, {});
    EXPECT_FALSE(files.contents.contains(kSessionFile));
    EXPECT_EQ(files.contents[kDamagedSessionFile], damaged);
}

TEST(LastSession, IsKeptAsideWhenItCannotBeOpened) {
    FakeNoteFiles files;
    files.contents[kSessionFile] = SessionBytes(Sample());
    files.unreadable.insert(kSessionFile);
    Session session;
    EXPECT_EQ(ReadLastSession(DeviceOver(files), session), LastSession::kDamaged);
    EXPECT_EQ(files.contents[kDamagedSessionFile], SessionBytes(Sample()));
}

TEST(LastSession, IsInTheWayWhenItCannotBeMovedEither) {
    FakeNoteFiles files;
    files.contents[kSessionFile] = {1};
    files.unrenamable.insert(kSessionFile);
    Session session;
    EXPECT_EQ(ReadLastSession(DeviceOver(files), session), LastSession::kInTheWay);
    EXPECT_EQ(files.contents[kSessionFile], Bytes{1});
}

TEST(LastSession, IsOutdatedWhenTheSettingsFileIsNewer) {
    static constexpr struct {
        std::uint64_t settings, session;
        bool isOutdated;
    } kRows[] = {{5, 5, false}, {6, 5, true}, {5, 6, false}, {0, 5, false}};
    for (const auto& [settings, session, isOutdated] : kRows) {
        FakeNoteFiles files;
        files.contents[kSessionFile] = {1};
        files.times[kSessionFile] = session;
        if (settings != 0) files.contents[kSettingsFile] = {1};
        if (settings != 0) files.times[kSettingsFile] = settings;
        EXPECT_EQ(IsSessionOutdated(DeviceOver(files)), isOutdated) << settings << ' ' << session;
    }
}
