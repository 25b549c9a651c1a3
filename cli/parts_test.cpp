// The parts of the program: letters, lines, places, digests.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <fstream>
#include <iterator>

#include "cli/asked_verses.h"
#include "cli/sha256.h"
#include "cli/styled_text.h"
#include "cli/utf8.h"
#include "tests/support/fake_surroundings.h"

using testing::ElementsAre;
using testing::Pair;

TEST(StyledText, KnowsItsMarks) {
    StyledText text;
    AppendStyled(text, "\x01Ge 1:2\x03 \xB6{{And}} [the {earth}] [was\r\n", ShownBrackets::kNo);
    EXPECT_EQ(Utf8Of(text.letters),
              "Ge 1:2 \xC2\xB6"
              "And the earth was\n");
    EXPECT_THAT(StretchesOf(text, kReference), ElementsAre(Pair(0, 6)));
    EXPECT_THAT(StretchesOf(text, kKeyWord), ElementsAre(Pair(8, 11), Pair(16, 21)));
    EXPECT_THAT(StretchesOf(text, kSupplied), ElementsAre(Pair(12, 21), Pair(22, 26)));
    AppendStyled(text, "was] {a}}", ShownBrackets::kYes);
    EXPECT_EQ(Utf8Of(text.letters).substr(27), "was] a");
    EXPECT_THAT(StretchesOf(text, kSupplied), ElementsAre(Pair(12, 21), Pair(22, 26)));
}

TEST(StyledText, IsTheSameWithoutStyles) {
    for (const char* marked : {"\x01Ge 1:2\x03 \xB6{{And}} [the {earth}] [was\r\n", "", "[", "a", "\xB6", "{}[]\r"})
        for (const ShownBrackets brackets : {ShownBrackets::kNo, ShownBrackets::kYes}) {
            StyledText text;
            AppendStyled(text, marked, brackets);
            std::string plain;
            AppendPlain(plain, marked, brackets);
            EXPECT_EQ(plain, Utf8Of(text.letters));
        }
}

TEST(StyledText, TakesUtf8) {
    StyledText text;
    AppendUtf8Styled(text, "\xE4\xB8\xAD\r\n\xFFz", kSupplied);
    EXPECT_EQ(text.letters, U"\u4E2D\n\uFFFDz");
    EXPECT_THAT(StretchesOf(text, kSupplied), ElementsAre(Pair(0, 4)));
}

static std::string Broken(const char* words, int width) {
    FakeSurroundings fake;
    const Surroundings surroundings = SurroundingsOver(fake);
    Printer printer{surroundings};
    printer.width = width;
    StyledText text;
    AppendStyled(text, words, kPlain);
    PrintStyled(printer, text);
    Flush(printer);
    return fake.output;
}

TEST(Printer, BreaksLines) {
    EXPECT_EQ(Broken("In the beginning God", 0), "In the beginning God");
    EXPECT_EQ(Broken("In the beginning God", 10), "In the\nbeginning\nGod");
    EXPECT_EQ(Broken("In the beginning God", 13), "In the\nbeginning God");
    EXPECT_EQ(Broken("In the beginning God", 3), "In\nthe\nbeginning\nGod");
    EXPECT_EQ(Broken("beginning", 3), "beginning");
    EXPECT_EQ(Broken("a\n\nIn the\n", 2), "a\n\nIn\nthe\n");
    EXPECT_EQ(Broken("", 5), "");
}

TEST(Letters, OfArgumentsBecomePlain) {
    EXPECT_EQ(AsciiOf("LORD\xE2\x80\x99s"), "LORD's");
    EXPECT_EQ(AsciiOf("8:1\xE2\x80\x93"
                      "11"),
              "8:1-11");
    EXPECT_EQ(AsciiOf("a\xC2\xA0\xC3\xA4\xFF"), "a   ");
}

TEST(References, AreTakenFromWords) {
    EXPECT_THAT(ReferencesIn({"Rom", "8:1-11"}), ElementsAre("Rom 8:1-11"));
    EXPECT_THAT(ReferencesIn({"Ro 8", "Jude"}), ElementsAre("Ro 8", "Jude"));
    EXPECT_THAT(ReferencesIn({"Ge", "1", "-", "Ex", "2"}), ElementsAre("Ge 1 - Ex 2"));
    EXPECT_THAT(ReferencesIn({"1", "John", "1:9", "2", "John", "5"}), ElementsAre("1 John 1:9", "2 John 5"));
    EXPECT_THAT(ReferencesIn({"Jude", "1 John 2"}), ElementsAre("Jude", "1 John 2"));
    EXPECT_THAT(ReferencesIn({"John", "3:16", "Acts", "2:1"}), ElementsAre("John 3:16", "Acts 2:1"));
    EXPECT_THAT(ReferencesIn({"", "-", "x"}), testing::SizeIs(2));
    EXPECT_THAT(ReferencesIn({}), testing::IsEmpty());
}

static std::string DigestOf(const std::string& text) {
    return Sha256Digits({reinterpret_cast<const unsigned char*>(text.data()), text.size()});
}

// The examples of the standard, and the lengths around a block, whose digests sha256sum gives.
TEST(Sha256, IsThatOfTheStandard) {
    EXPECT_EQ(DigestOf(""), "e3b0c44298fc1c149afbf4c8996fb92427ae41e4649b934ca495991b7852b855");
    EXPECT_EQ(DigestOf("abc"), "ba7816bf8f01cfea414140de5dae2223b00361a396177a9cb410ff61f20015ad");
    EXPECT_EQ(DigestOf("abcdbcdecdefdefgefghfghighijhijkijkljklmklmnlmnomnopnopq"),
              "248d6a61d20638b8e5c026930c3e6039a33ce45964ff2167f6ecedd419db06c1");
    EXPECT_EQ(DigestOf(std::string(1000000, 'a')), "cdc76e5c9914fb9281a1c7e284d73e67f1809a48a497200e046d39ccc7112cd0");
    EXPECT_EQ(DigestOf(std::string(64, 'a')), "ffe054fe7ae0cb6dc65c3af9b61d5209f439851db43d0ba5997337df154668eb");
}

TEST(Sha256, IsThatOfTheBuild) {
    std::ifstream list(VERSEWELL_DATA_DIR "/scripture.sha256");
    std::string digest, name;
    int files = 0;
    for (; list >> digest >> name; ++files) {
        std::ifstream file(VERSEWELL_DATA_DIR "/" + name, std::ios::binary);
        EXPECT_EQ(DigestOf({std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()}), digest);
    }
    EXPECT_EQ(files, 5);
}
