#include "resources/picture_files.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <set>

#include "resources/resource_script.h"

static constexpr Pixel kRed = {.blue = 10, .green = 20, .red = 200, .alpha = 255};
static constexpr Pixel kHalf = {.blue = 1, .green = 2, .red = 3, .alpha = 128};

static Picture Filled(int width, int height, Pixel pixel) {
    return {.width = width,
            .height = height,
            .pixels = std::vector<Pixel>(static_cast<std::size_t>(width * height), pixel)};
}

static int ByteAt(const std::string& bytes, std::size_t at) {
    return static_cast<unsigned char>(bytes.at(at));
}

static int NumberAt(const std::string& bytes, std::size_t at) {
    return ByteAt(bytes, at) | ByteAt(bytes, at + 1) << 8 | ByteAt(bytes, at + 2) << 16 | ByteAt(bytes, at + 3) << 24;
}

TEST(PictureFiles, BitmapsHaveTheirHeaders) {
    struct Row {
        std::string bytes;
        int width, height, bits, size;
    };
    const Row rows[] = {
        {BitmapWithAlpha(Filled(3, 2, kRed)), 3, 2, 32, 54 + 24},
        {PlainBitmap(Filled(3, 2, kRed)), 3, 2, 24, 54 + 24},  // 9 bytes per row, padded to 12
        {PlainBitmap(Filled(4, 1, kRed)), 4, 1, 24, 54 + 12},
    };
    for (const Row& row : rows) {
        EXPECT_EQ(row.bytes.substr(0, 2), "BM");
        EXPECT_EQ(NumberAt(row.bytes, 2), row.size);
        EXPECT_EQ(static_cast<int>(row.bytes.size()), row.size);
        EXPECT_EQ(NumberAt(row.bytes, 10), 54);
        EXPECT_EQ(NumberAt(row.bytes, 18), row.width);
        EXPECT_EQ(NumberAt(row.bytes, 22), row.height);
        EXPECT_EQ(NumberAt(row.bytes, 26), 1 | row.bits << 16);
    }
}

TEST(PictureFiles, PackedBitmapsHaveAPaletteAndRuns) {
    Picture picture = Filled(300, 2, kRed);
    picture.pixels[600 - 1] = kHalf;  // the last one of the bottom row
    const std::string bytes = PackedBitmap(picture);
    EXPECT_EQ(NumberAt(bytes, 2), static_cast<int>(bytes.size()));
    EXPECT_EQ(NumberAt(bytes, 10), 54 + 1024);
    EXPECT_EQ(NumberAt(bytes, 26), 1 | 8 << 16);
    EXPECT_EQ(NumberAt(bytes, 30), 1) << "runs";
    EXPECT_EQ(NumberAt(bytes, 34), static_cast<int>(bytes.size()) - 54 - 1024);
    EXPECT_EQ(bytes.substr(54, 12), std::string("\x0A\x14\xC8\0\x01\x02\x03\0\0\0\0\0", 12))
        << "the frequent one first";
    EXPECT_EQ(bytes.substr(54 + 1024), std::string("\xFF\0\x2C\0\x01\x01\0\0\xFF\0\x2D\0\0\0\0\x01", 16));
}

TEST(PictureFiles, PackedBitmapsKeepTheMostFrequentColours) {
    Picture picture = Filled(256, 2, kRed);
    for (int i = 0; i < 256; ++i) picture.pixels[static_cast<std::size_t>(i)] = {.green = static_cast<std::uint8_t>(i)};
    const std::string bytes = PackedBitmap(picture);
    EXPECT_EQ(bytes.substr(54, 4), std::string("\x0A\x14\xC8\0", 4));
    // Of the shades the last one, green 255, has become 254, which is number 255.
    EXPECT_EQ(bytes.substr(bytes.size() - 6), std::string("\x02\xFF\0\0\0\x01", 6));
}

TEST(PictureFiles, RowsAreStoredBottomUp) {
    Picture picture = Filled(1, 2, kRed);
    picture.pixels[1] = kHalf;
    EXPECT_EQ(BitmapWithAlpha(picture).substr(54), std::string("\x01\x02\x03\x80\x0A\x14\xC8\xFF"));
}

TEST(PictureFiles, TransparentPixelsAreGrey) {
    EXPECT_EQ(BitmapWithAlpha(Filled(1, 1, Pixel{})).substr(54), std::string("\xC0\xC0\xC0\0", 4));
}

TEST(PictureFiles, StripPutsPicturesSideBySide) {
    const Picture pictures[] = {Filled(2, 2, kRed), Filled(1, 2, kHalf)};
    const Picture strip = Strip(pictures);
    EXPECT_EQ(strip.width, 3);
    EXPECT_EQ(strip.height, 2);
    EXPECT_EQ(strip.pixels, (std::vector<Pixel>{kRed, kRed, kHalf, kRed, kRed, kHalf}));
    EXPECT_EQ(Strip({}).width, 0);
}

TEST(PictureFiles, IconListsItsImages) {
    const Picture images[] = {Filled(16, 16, kRed), Filled(256, 256, kRed)};
    const std::string packed[] = {"", "packed"};
    const std::string icon = IconFile(images, packed);
    const int firstSize = 40 + 16 * 16 * 4 + 16 * 4;  // a mask row of 2 bytes is padded to 4
    EXPECT_EQ(NumberAt(icon, 0), 1 << 16);
    EXPECT_EQ(ByteAt(icon, 4), 2);
    EXPECT_EQ(ByteAt(icon, 6), 16);
    EXPECT_EQ(NumberAt(icon, 6 + 8), firstSize);
    EXPECT_EQ(NumberAt(icon, 6 + 12), 6 + 32);
    EXPECT_EQ(ByteAt(icon, 22), 0);  // 256
    EXPECT_EQ(NumberAt(icon, 22 + 8), 6);
    EXPECT_EQ(NumberAt(icon, 22 + 12), 6 + 32 + firstSize);
    EXPECT_EQ(NumberAt(icon, 38 + 8), 32);  // twice the height, including the mask
    EXPECT_EQ(icon.substr(icon.size() - 6), "packed");
}

TEST(PictureFiles, IconMaskMarksTransparentPixels) {
    Picture image = Filled(16, 16, kRed);
    image.pixels[15 * 16 + 1] = {};  // second pixel of the bottom row, which is stored first
    const std::string icon = IconFile(std::span(&image, 1), std::vector<std::string>{""});
    const std::size_t pixels = 6 + 16 + 40;
    EXPECT_EQ(NumberAt(icon, pixels + 4), 0);
    EXPECT_EQ(ByteAt(icon, pixels + 16 * 16 * 4), 0x40);
}

// The strips from the build must have 24 pictures that are not nearly empty and all different.
TEST(ToolbarPictures, AreTwentyFourInEachSize) {
    for (int size : {16, 24, 32}) {
        const std::string strip =
            FileText(VERSEWELL_SOURCE_DIR "/build/pictures/toolbar" + std::to_string(size) + ".bmp");
        ASSERT_EQ(NumberAt(strip, 18), 24 * size);
        ASSERT_EQ(NumberAt(strip, 22), size);
        std::set<std::string> seen;
        for (int picture = 0; picture < 24; ++picture) {
            std::string cell;
            for (int row = 0; row < size; ++row)
                cell += strip.substr(static_cast<std::size_t>(54 + (row * 24 + picture) * size * 4),
                                     static_cast<std::size_t>(size * 4));
            EXPECT_TRUE(seen.insert(cell).second) << size << ": picture " << picture;
            int drawn = 0;
            for (std::size_t at = 3; at < cell.size(); at += 4) drawn += ByteAt(cell, at) > 128;
            EXPECT_GT(drawn, size * size / 5) << size << ": picture " << picture;
        }
    }
}
