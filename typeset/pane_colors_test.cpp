#include "typeset/pane_colors.h"

#include <gtest/gtest.h>

#include <ostream>

static constexpr std::uint32_t kWhite = 0xFFFFFF, kBlack = 0x000000, kBlue = 0xD77800, kRed = 0x0000FF;

static void PrintTo(const PaneColors& colors, std::ostream* out) {
    *out << std::hex << colors.paper << ' ' << colors.text << ' ' << colors.keyWord << ' ' << colors.underlinesKeyWords
         << colors.isDark;
}

namespace {

struct ColorRow {
    const char* what;
    SystemLook system;
    ColorWishes wishes;
    PaneColors expected;
};

constexpr SystemLook kLight{kWhite, kBlack, kBlue};
constexpr SystemLook kLightPrefersDark{kWhite, kBlack, kBlue, false, true};
constexpr SystemLook kContrastBlack{kBlack, kWhite, 0xFFFF00, true};
constexpr SystemLook kContrastPrefersDark{kWhite, kBlack, kBlue, true, true};
constexpr PaneColors kDarkWithBlue{0x1E1E1E, 0xE5E5E5, 0xD98A26, false, true};

}  // namespace

TEST(PaneColors, AreChosenFromTheSystemAndTheWishes) {
    const ColorRow kRows[] = {
        {"the system's", kLight, {}, {kWhite, kBlack, kBlue}},
        {"chosen colour", kLight, {kDarkOff, true, kRed}, {kWhite, kBlack, kRed}},
        {"not chosen", kLight, {kDarkOff, false, kRed}, {kWhite, kBlack, kBlue}},
        {"chosen, not readable on light", kLight, {kDarkOff, true, kWhite}, {kWhite, kBlack, kWhite}},
        {"other scheme", {0x123456, 0xABCDEF, 0x777777}, {}, {0x123456, 0xABCDEF, 0x777777}},
        {"system prefers dark, but off", kLightPrefersDark, {}, {kWhite, kBlack, kBlue}},
        {"as the system, light", kLight, {kDarkAsSystem}, {kWhite, kBlack, kBlue}},
        {"unknown choice", kLightPrefersDark, {7}, {kWhite, kBlack, kBlue}},
        {"as the system, dark", kLightPrefersDark, {kDarkAsSystem}, kDarkWithBlue},
        {"on", kLight, {kDarkOn}, kDarkWithBlue},
        {"on, window dark already", {0x201000, 0xE0E0E0, kWhite}, {kDarkOn}, {0x201000, 0xE0E0E0, kWhite, false, true}},
        {"contrast", kContrastBlack, {}, {kBlack, kWhite, kWhite, true}},
        {"contrast and chosen colour", kContrastBlack, {kDarkOff, true, kRed}, {kBlack, kWhite, kWhite, true}},
        {"contrast wins over dark", kContrastPrefersDark, {kDarkOn}, {kWhite, kBlack, kBlack, true}},
        {"contrast wins over the system's", kContrastPrefersDark, {kDarkAsSystem}, {kWhite, kBlack, kBlack, true}},
    };
    for (const ColorRow& row : kRows) EXPECT_EQ(PaneColorsFor(row.system, row.wishes), row.expected) << row.what;
}

TEST(PaneColors, CanBeReadInTheDarkWhateverIsChosen) {
    for (const SystemLook& system :
         {kLight, SystemLook{0xE0F0F8, 0x402010, kBlue}, SystemLook{0xD0D0D0, 0x101010, 0}}) {
        for (std::uint32_t chosen = 0; chosen <= kWhite; chosen += 0x0F1319) {
            const PaneColors colors = PaneColorsFor(system, {kDarkOn, true, chosen});
            EXPECT_GE(ContrastOf(colors.text, colors.paper), 7.0);
            ASSERT_GE(ContrastOf(colors.keyWord, colors.paper), kReadableContrast) << std::hex << chosen;
            if (ContrastOf(chosen, colors.paper) >= kReadableContrast) {
                EXPECT_EQ(colors.keyWord, chosen);
            }
        }
    }
}

// Colours that are too alike for a difference of 7 stay as far apart as the user has them.
TEST(PaneColors, OfASchemeWithLittleContrastAreAsClearAsPossible) {
    const SystemLook pale{0xC0C0C0, 0x707070, kBlue};
    const PaneColors colors = PaneColorsFor(pale, {kDarkOn});
    EXPECT_EQ(colors.text, pale.window);
    EXPECT_TRUE(colors.isDark);
}

TEST(PaneColors, KeepTheHueOfAKeyWord) {
    const PaneColors colors = PaneColorsFor(kLight, {kDarkOn, true, 0x0000A0});  // dark red
    const std::uint32_t red = colors.keyWord & 0xFF, green = colors.keyWord >> 8 & 0xFF, blue = colors.keyWord >> 16;
    EXPECT_GT(red, green + 64);
    EXPECT_EQ(green, blue);
}

TEST(BarColor, IsThatOfKeyWordsIfItCanBeSeen) {
    EXPECT_EQ(BarColorOf({kWhite, kBlack, kBlue}), kBlue);
    EXPECT_EQ(BarColorOf({kWhite, kBlack, kWhite}), kBlack);
    EXPECT_EQ(BarColorOf({kWhite, kBlack, 0x00FFFF}), kBlack) << "yellow on white";
    EXPECT_EQ(BarColorOf({kBlack, kWhite, 0x00FFFF}), 0x00FFFFu);
    EXPECT_EQ(BarColorOf({kBlack, kWhite, kWhite, true}), kWhite) << "a contrast theme";
}

TEST(Contrast, IsThatOfTheGuidelines) {
    EXPECT_DOUBLE_EQ(ContrastOf(kBlack, kWhite), 21.0);
    EXPECT_DOUBLE_EQ(ContrastOf(kWhite, kBlack), 21.0);
    EXPECT_DOUBLE_EQ(ContrastOf(kRed, kRed), 1.0);
    EXPECT_NEAR(ContrastOf(0x767676, kWhite), 4.54, 0.01);
    EXPECT_NEAR(ContrastOf(0x0000FF, kWhite), 4.0, 0.01);   // red
    EXPECT_NEAR(ContrastOf(0x00FF00, kWhite), 1.37, 0.01);  // green
    EXPECT_NEAR(ContrastOf(0xFF0000, kWhite), 8.59, 0.01);  // blue
}

TEST(Contrast, TellsDarkColorsByWhatCanBeReadOnThem) {
    for (const std::uint32_t color : {kBlack, 0x0000A0u, 0x800000u, 0x606060u, 0x757575u})
        EXPECT_TRUE(IsDarkColor(color)) << std::hex << color;
    for (const std::uint32_t color : {kWhite, 0xF0F0F0u, 0x00FFFFu, 0x767676u, 0xC0C0C0u})
        EXPECT_FALSE(IsDarkColor(color)) << std::hex << color;
    for (std::uint32_t grey = 0; grey <= kWhite; grey += 0x010101)
        EXPECT_EQ(IsDarkColor(grey), ContrastOf(grey, kWhite) > ContrastOf(grey, kBlack));
}

TEST(KeyColor, IsChosenUnlessItIsKnownToBeTheSystems) {
    static constexpr struct {
        std::uint32_t stored;
        const char* from;
        std::uint32_t system;
        bool expected;
    } kRows[] = {
        {kBlue, "", kBlue, false},                // a first start, or an older version that stored the system's
        {kRed, "", kBlue, true},                  // chosen in an older version
        {kBlue, "system 14120960", kRed, false},  // the system's has changed
        {kRed, "system 14120960", kBlue, true},   // chosen in an older version since
        {kRed, "system 14120960", kRed, false},   // no colour was stored any more
        {kBlue, "user", kBlue, true},             // the same, but chosen
        {kBlue, "user", kRed, true},
        {kBlue, "nonsense", kRed, true},
        {0xFFFFFFFF, "system 4294967295", kRed, false},
    };
    for (const auto& row : kRows)
        EXPECT_EQ(IsKeyColorChosen(row.stored, row.from, row.system), row.expected) << row.stored << ' ' << row.from;
}

TEST(KeyColor, IsKnownAgainAsItWasStored) {
    for (const std::uint32_t color : {kBlack, kBlue, 0xFFFFFFFFu}) {
        EXPECT_FALSE(IsKeyColorChosen(color, KeyColorFromOf(false, color), color ^ 1));
        EXPECT_TRUE(IsKeyColorChosen(color, KeyColorFromOf(true, color), color));
    }
    EXPECT_EQ(KeyColorFromOf(true, kBlue), "user");
    EXPECT_EQ(KeyColorFromOf(false, kBlue), "system 14120960");
}
