#include "data/scripture_writer.h"

#include <gmock/gmock.h>

static std::string Bytes(std::initializer_list<int> values) {
    std::string bytes;
    for (const int value : values) bytes += static_cast<char>(value);
    return bytes;
}

TEST(ScriptureWriter, EncodesTheFiveFiles) {
    const Verses verses = {{1, 1, 1,
                            "\xB6"
                            "In"},
                           {1, 1, 2, "And"},
                           {66, 22, 21, "in A"}};
    WordLists words = {{"a", {2}}, {"and", {1}}, {"in", {0, 2, 0x1234}}};
    const std::vector<DataFile> files = EncodeScripture(verses, words);
    ASSERT_EQ(files.size(), 5u);
    EXPECT_EQ(files[0].name, "_avvidx.dat");
    EXPECT_EQ(files[0].bytes, Bytes({1, 1, 1, 0, 0, 0, 0, 1, 1, 2, 4, 0, 0, 0, 66, 22, 21, 8, 0, 0, 0}));
    EXPECT_EQ(files[1].name, "_avtext.dat");
    EXPECT_EQ(files[1].bytes, Bytes({0xB6, 'I', 'n', 0, 'A', 'n', 'd', 0, 'i', 'n', ' ', 'A', 0}));
    EXPECT_EQ(files[2].name, "_avwrds.dat");
    EXPECT_EQ(files[2].bytes, Bytes({'a', 0, 'a', 'n', 'd', 0, 'i', 'n', 0}));
    EXPECT_EQ(files[3].name, "_avwptr.dat");
    EXPECT_EQ(files[3].bytes, Bytes({0, 0, 0, 0, 1, 0, 0, 0, 2, 0, 0, 0}));
    EXPECT_EQ(files[4].name, "_avwidx.dat");
    EXPECT_EQ(files[4].bytes, Bytes({2, 0, 1, 0, 0, 0, 2, 0, 0x34, 0x12}));
}

TEST(ScriptureWriter, EncodesOffsetsBeyondSixteenBits) {
    const Verses verses = {{1, 1, 1, std::string(0x12344, 'a')}, {1, 1, 2, "b"}};
    EXPECT_EQ(EncodeScripture(verses, {})[0].bytes.substr(7), Bytes({1, 1, 2, 0x45, 0x23, 0x01, 0}));
}
