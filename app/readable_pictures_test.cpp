#include "app/readable_pictures.h"

#include <gtest/gtest.h>

#include <cstring>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

#include "typeset/pane_colors.h"

static constexpr std::uint32_t kBlackFace = 0x000000, kDarkFace = 0x302820, kGreyFace = 0xC8D0D4, kWhiteFace = 0xFFFFFF;

static std::vector<std::uint32_t> Fitted(std::vector<std::uint32_t> pixels, std::uint32_t face) {
    FitToFace(pixels, face);
    return pixels;
}

TEST(FitToFace, SwapsLightAndDarkOnlyOnADarkFace) {
    const std::vector<std::uint32_t> pixels{0xFF000000, 0xFFFFFFFF, 0x80FFFFFF, 0xFF3F5068, 0xFF2F6FCA, 0x00000000};
    EXPECT_EQ(Fitted(pixels, kGreyFace), pixels);
    EXPECT_EQ(Fitted(pixels, kWhiteFace), pixels);
    const std::vector<std::uint32_t> fitted{0xFFFFFFFF, 0xFF000000, 0x80000000, 0xFF97A8C0, 0xFF3575D0, 0x00FFFFFF};
    EXPECT_EQ(Fitted(pixels, kBlackFace), fitted);
    EXPECT_EQ(Fitted(pixels, kDarkFace), fitted);
    EXPECT_EQ(Fitted(fitted, kBlackFace), pixels);
}

// ---- The program's pictures -----------------------------------------------------------------------------------------

namespace {

struct ToolbarStrip {
    int size = 0;                       // of each picture
    std::vector<std::uint32_t> pixels;  // rows of all pictures, from either end
};

}  // namespace

static int NumberAt(const std::string& bytes, std::size_t place) {
    int number = 0;
    std::memcpy(&number, bytes.data() + place, sizeof number);
    return number;
}

static ToolbarStrip StripOf(int size) {
    std::ifstream file(VERSEWELL_PICTURES_FOLDER "/toolbar" + std::to_string(size) + ".bmp", std::ios::binary);
    const std::string bytes(std::istreambuf_iterator<char>(file), {});
    if (bytes.size() < 54) return {};
    ToolbarStrip strip{size, {}};
    for (auto at = static_cast<std::size_t>(NumberAt(bytes, 10)); at + 4 <= bytes.size(); at += 4)
        strip.pixels.push_back(static_cast<std::uint32_t>(NumberAt(bytes, at)));
    return strip;
}

static int CountOf(const ToolbarStrip& strip) {
    return strip.size == 0 ? 0 : static_cast<int>(strip.pixels.size()) / strip.size / strip.size;
}

static std::uint32_t ColorOf(std::uint32_t pixel) {
    return (pixel & 0xFF) << 16 | (pixel & 0xFF00) | (pixel >> 16 & 0xFF);
}

// How much of what is drawn in a picture stands out from the face, of 1. Objects that are no text need a contrast of 3
// (WCAG 2, "non-text contrast").
static double ClearShare(const ToolbarStrip& strip, int picture, std::uint32_t face) {
    static constexpr double kContrast = 3;
    int drawn = 0, clear = 0;
    const int width = CountOf(strip) * strip.size;
    for (int y = 0; y < strip.size; ++y) {
        for (int x = picture * strip.size; x < (picture + 1) * strip.size; ++x) {
            const std::uint32_t pixel = strip.pixels[static_cast<std::size_t>(y * width + x)];
            if (pixel >> 24 < 0x80) continue;
            ++drawn;
            clear += ContrastOf(ColorOf(pixel), face) >= kContrast;
        }
    }
    return drawn == 0 ? 0 : static_cast<double>(clear) / drawn;
}

TEST(FitToFace, MakesEachPictureOfTheToolbarReadableOnADarkFace) {
    static constexpr int kPictures = 24;
    static constexpr double kEnough = 0.25;  // the lines around a sheet of paper
    for (const int size : {16, 20, 24, 28, 32, 40, 48}) {
        const ToolbarStrip strip = StripOf(size);
        ASSERT_EQ(CountOf(strip), kPictures) << size;
        for (const std::uint32_t face : {kBlackFace, kDarkFace}) {
            const ToolbarStrip fitted{size, Fitted(strip.pixels, face)};
            for (int picture = 0; picture < kPictures; ++picture)
                EXPECT_GE(ClearShare(fitted, picture, face), kEnough)
                    << size << ' ' << picture << ' ' << std::hex << face;
        }
    }
}
