#include "app/profile_section.h"

#include <gtest/gtest.h>

#include <string>

using namespace std::string_view_literals;

TEST(ProfileSection, HasTheFirstValueOfAKey) {
    static constexpr std::wstring_view kSection = L"a=1\0 B = two = 2 \0;c=3\0no value\0b=4\0d=\0"sv;
    EXPECT_EQ(ValueIn(kSection, L"A"), L"1");
    EXPECT_EQ(ValueIn(kSection, L"b"), L" two = 2 ");
    EXPECT_EQ(ValueIn(kSection, L"c"), std::nullopt);
    EXPECT_EQ(ValueIn(kSection, L"no value"), std::nullopt);
    EXPECT_EQ(ValueIn(kSection, L"d"), L"");
    EXPECT_EQ(ValueIn(kSection, L"dd"), std::nullopt);
    EXPECT_EQ(ValueIn(kSection, L""), std::nullopt);
    EXPECT_EQ(ValueIn(L"", L"a"), std::nullopt);
    EXPECT_EQ(ValueIn(L"last=one", L"last"), L"one");
}

TEST(ProfileSection, HasPlainTexts) {
    for (const wchar_t* text : {L"", L"x", L"Times New Roman", L"in the \"beginning\" was"})
        EXPECT_TRUE(IsPlainText(text));
    for (const wchar_t* text : {L" x", L"x ", L"\tx", L"\"x\"", L"'x", L"x'", L" "}) EXPECT_FALSE(IsPlainText(text));
}

TEST(ProfileSection, HasPlainNumbers) {
    EXPECT_EQ(PlainNumber(L"0"), 0);
    EXPECT_EQ(PlainNumber(L"-0"), 0);
    EXPECT_EQ(PlainNumber(L"31101"), 31101);
    EXPECT_EQ(PlainNumber(L"-16"), -16);
    EXPECT_EQ(PlainNumber(L"999999999"), 999999999);
    for (const wchar_t* text :
         {L"", L"-", L"+3", L"007", L"-07", L"0x10", L"12 ", L" 12", L"1.5", L"--1", L"1234567890"})
        EXPECT_EQ(PlainNumber(text), std::nullopt);
}
