#include "notes/note_letters.h"

#include <gtest/gtest.h>

#include <random>

static const std::string kMark(kUtf8Mark);

// A code page with letters of two bytes: 0x80 or 0x81 and any byte from 0x40 on are the letters from U+4E00 on. A byte
// from 0x82 on, or one of these two alone, is no letter.
static std::u16string WideLetters(void*, std::string_view bytes) {
    std::u16string letters;
    for (std::size_t i = 0; i < bytes.size(); ++i) {
        const auto byte = static_cast<unsigned char>(bytes[i]);
        const bool isLead = byte == 0x80 || byte == 0x81;
        const bool isPair = isLead && i + 1 < bytes.size() && static_cast<unsigned char>(bytes[i + 1]) >= 0x40;
        if (isPair) {
            letters += static_cast<char16_t>(0x4E00 + (byte - 0x80) * 0x100 + static_cast<unsigned char>(bytes[++i]));
        } else {
            letters += byte < 0x80 ? static_cast<char16_t>(byte) : u'?';
        }
    }
    return letters;
}

static bool WideBytes(void*, std::u16string_view letters, std::string& bytes) {
    bytes.clear();
    for (const char16_t letter : letters) {
        const bool isWide = letter >= 0x4E40 && letter < 0x5000 && (letter & 0xFF) >= 0x40;
        if (letter >= 0x80 && !isWide) return false;
        if (isWide) bytes += static_cast<char>(0x80 + (letter - 0x4E00) / 0x100);
        bytes += static_cast<char>(letter & 0xFF);
    }
    return true;
}

static constexpr CodePage kLatin{};
static constexpr CodePage kWide{nullptr, WideLetters, WideBytes};

// ---- What is stored -------------------------------------------------------------------------------------------------

TEST(NoteLetters, AreStoredInTheCodePageIfItHasThem) {
    for (const std::u16string letters : {u"", u"plain\r\ntext", u"caf\u00E9 \u00B6", u"\u00FF"}) {
        const std::string note = NoteOfLetters(kLatin, letters);
        EXPECT_EQ(note, std::string(letters.begin(), letters.end()));
        EXPECT_EQ(LettersOfNote(kLatin, note), letters);
    }
    EXPECT_EQ(NoteOfLetters(kWide, u"a\u4E41\u4F42"), "a\x80\x41\x81\x42");
}

TEST(NoteLetters, AreStoredInUtf8IfTheCodePageLacksOne) {
    static const struct {
        std::u16string letters;
        std::string behindMark;
    } kRows[] = {
        {u"\u03B1", "\xCE\xB1"},
        {u"caf\u00E9 \u03B1", "caf\xC3\xA9 \xCE\xB1"},
        {u"\u05D1\u05BC\u05B0", "\xD7\x91\xD6\xBC\xD6\xB0"},
        {u"\u2014\r\n\u2019", "\xE2\x80\x94\r\n\xE2\x80\x99"},
        {u"\xD83D\xDE00", "\xF0\x9F\x98\x80"},
        {u"\uFEFF", "\xEF\xBB\xBF"},
        {u"a\xD83D", "a\xEF\xBF\xBD"},  // half a letter is none
        {u"\xDE00z", "\xEF\xBF\xBDz"},
    };
    for (const auto& [letters, behindMark] : kRows) EXPECT_EQ(NoteOfLetters(kLatin, letters), kMark + behindMark);
}

TEST(NoteLetters, ComeBackAsTheyWere) {
    std::mt19937 random(1);
    for (int round = 0; round < 2000; ++round) {
        std::u16string letters;
        for (auto i = random() % 40; i > 0; --i) {
            static constexpr char16_t kFrom[] = {' ', 0xA0, 0x370, 0x590, 0x1F00, 0x2010, 0x4E40, 0xFB20};
            letters += static_cast<char16_t>(kFrom[random() % 8] + random() % 0x40);
            if (random() % 16 == 0)
                letters += {static_cast<char16_t>(0xD800 + random() % 0x400),
                            static_cast<char16_t>(0xDC00 + random() % 0x400)};
        }
        for (const CodePage& page : {kLatin, kWide}) {
            const std::string note = NoteOfLetters(page, letters);
            EXPECT_EQ(LettersOfNote(page, note), letters);
            EXPECT_EQ(note.find('\0'), std::string::npos);
            EXPECT_EQ(LettersOfUtf8(Utf8OfNote(page, note)), letters);
            EXPECT_TRUE(HasExactLetters(page, note));
        }
    }
}

// Such a note is older than the mark, or was never meant to have it.
TEST(NoteLetters, OfANoteThatOnlyBeginsLikeUtf8AreThoseOfTheCodePage) {
    static const std::string kNotes[] = {
        kMark + "caf\xE9",               // a byte that is not UTF-8
        kMark + "\xCE",                  // half a letter
        kMark + "\xC0\x80",              // longer than need be
        kMark + "\xE0\x9F\xBF",          // the same
        kMark + "\xF0\x8F\xBF\xBF",      // the same
        kMark + "\xED\xA0\x80",          // a half of UTF-16
        kMark + "\xF4\x90\x80\x80",      // beyond the last letter
        kMark + "\xF8\x88\x80\x80\x80",  // no letter has five bytes
        kMark + "\x80",
        kMark,  // without any letter, a note of no letters that would be marked as one and show nothing
        "\xEF\xBB",
        " " + kMark,
        "",
    };
    for (const std::string& note : kNotes) {
        EXPECT_FALSE(IsInUtf8(note)) << note;
        const std::u16string letters = LettersOfNote(kLatin, note);
        EXPECT_EQ(letters.size(), note.size());
        EXPECT_EQ(NoteOfLetters(kLatin, letters), note);
        EXPECT_EQ(NoteOfLetters(kLatin, letters, note), note);
    }
}

// The three letters of Latin 1 that are the mark, before text that is plain: only as UTF-8 they come back as letters.
TEST(NoteLetters, ThatLookLikeTheMarkAreStoredInUtf8) {
    const std::u16string letters = u"\u00EF\u00BB\u00BFplain";
    const std::string note = NoteOfLetters(kLatin, letters);
    EXPECT_EQ(note, kMark + "\xC3\xAF\xC2\xBB\xC2\xBFplain");
    EXPECT_EQ(LettersOfNote(kLatin, note), letters);
}

TEST(NoteLetters, ThatAreNotChangedKeepTheirBytes) {
    const std::string marked = kMark + "plain";  // although the code page has all of it
    EXPECT_TRUE(IsInUtf8(marked));
    EXPECT_EQ(LettersOfNote(kLatin, marked), u"plain");
    EXPECT_EQ(NoteOfLetters(kLatin, u"plain", marked), marked);
    EXPECT_EQ(NoteOfLetters(kLatin, u"plainer", marked), "plainer");
    EXPECT_EQ(NoteOfLetters(kLatin, u"plain", "plain"), "plain");
    EXPECT_EQ(NoteOfLetters(kLatin, LettersOfNote(kLatin, kMark), kMark), kMark);
    EXPECT_EQ(NoteOfLetters(kLatin, u"", kMark), "") << "it can be emptied";
}

TEST(NoteLetters, AreExactOnlyWhereEachByteIsInTheCodePage) {
    EXPECT_TRUE(HasExactLetters(kWide, "a\x80\x41"));
    EXPECT_FALSE(HasExactLetters(kWide, "a\x80"));
    EXPECT_FALSE(HasExactLetters(kWide, "\xE9"));
    EXPECT_TRUE(HasExactLetters(kWide, kMark + "\xC3\xA9"));
}

// ---- Places ---------------------------------------------------------------------------------------------------------

TEST(NoteLetters, HaveTheirPlaces) {
    static const struct {
        const CodePage& page;
        std::string note;
        std::size_t letters, place;
    } kRows[] = {
        {kLatin, "caf\xE9!", 4, 4},
        {kLatin, kMark + "\xCE\xB1z", 0, 3},
        {kLatin, kMark + "\xCE\xB1z", 1, 5},
        {kLatin, kMark + "\xCE\xB1z", 2, 6},
        {kWide,
         "a\x80\x41"
         "b",
         2, 3},
        {kWide,
         "a\x80\x41"
         "b",
         3, 4},
        {kLatin, kMark + "\xF0\x9F\x98\x80z", 2, 7},
    };
    for (const auto& [page, note, letters, place] : kRows) {
        EXPECT_EQ(PlaceBehind(page, note, letters), place) << note;
        EXPECT_EQ(LettersBefore(page, note, place), letters) << note;
    }
    EXPECT_EQ(PlaceBehind(kLatin, kMark + "\xF0\x9F\x98\x80z", 1), 3u) << "between the halves of a letter";
    EXPECT_EQ(PlaceBehind(kLatin, "abc", 9), 3u);
    EXPECT_EQ(PlaceBehind(kLatin, kMark + "\xCE\xB1", 9), 5u);
    EXPECT_EQ(LettersBefore(kLatin, kMark + "\xCE\xB1", 1), 0u);
    EXPECT_EQ(PlaceBehind(kWide, "a\xE9z", 2), 2u) << "bytes that are no letters";
}

// ---- Room -----------------------------------------------------------------------------------------------------------

TEST(NoteLetters, FitAsFarAsThereIsRoom) {
    static const struct {
        std::u16string before, letters, behind;
        std::size_t limit;
        std::u16string fitting;
    } kRows[] = {
        {u"ab", u"cde", u"f", 6, u"cde"},
        {u"ab", u"cde", u"f", 5, u"cd"},
        {u"ab", u"cde", u"f", 3, u""},
        {u"ab", u"cde", u"f", 1, u""},
        {u"", u"\u03B1\u03B2", u"", 7, u"\u03B1\u03B2"},
        {u"", u"\u03B1\u03B2", u"", 6, u"\u03B1"},
        {u"", u"x\u03B1", u"", 5, u"x"},                     // the letter and the mark
        {u"\u00E9\u00E9\u00E9", u"x\u03B1", u"", 11, u"x"},  // and each letter beyond ASCII takes another byte then
        {u"\u00E9\u00E9\u00E9", u"x\u03B1", u"", 12, u"x\u03B1"},
        {u"", u"a\r\nb", u"", 2, u"a"},
        {u"", u"a\xD83D\xDE00", u"", 7, u"a"},
        {u"", u"a\xD83D\xDE00", u"", 8, u"a\xD83D\xDE00"},
    };
    for (const auto& row : kRows)
        EXPECT_EQ(FittingLetters(kLatin, row.before, row.letters, row.behind, row.limit), row.fitting) << row.limit;
}

TEST(NoteLetters, FitExactlyUpToTheLimit) {
    std::mt19937 random(2);
    for (int round = 0; round < 3000; ++round) {
        std::u16string texts[3];
        for (std::u16string& text : texts)
            for (auto i = random() % 12; i > 0; --i)
                text += random() % 4 ? u'a' : random() % 2 ? u'\u00E9' : static_cast<char16_t>(0x3B1 + random() % 20);
        const std::size_t limit = random() % 60;
        const auto sizeWith = [&](std::size_t count) {
            return NoteOfLetters(kLatin, texts[0] + texts[1].substr(0, count) + texts[2]).size();
        };
        std::size_t most = 0;
        for (std::size_t count = 1; count <= texts[1].size(); ++count)
            if (sizeWith(count) <= limit) most = count;
        EXPECT_EQ(FittingLetters(kLatin, texts[0], texts[1], texts[2], limit).size(), most);
    }
}
