#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <map>
#include <sstream>

#include "resources/resource_script.h"
#include "resources/script_fixture.h"

namespace {

struct ReadingRow {
    const char* month;
    const char* day;
    const char* reading;
    int command;
};

}  // namespace

static constexpr const char* kMonths[] = {"January", "February", "March",     "April",   "May",      "June",
                                          "July",    "August",   "September", "October", "November", "December"};
static constexpr int kDays[] = {31, 29, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};

static std::vector<MenuItem> Readings() {
    std::vector<MenuItem> readings;
    for (const MenuItem& item : Script().menu)
        if (item.command >= 2000) readings.push_back(item);
    return readings;
}

static std::string Place(const MenuItem& item) {
    return item.popups.at(1) + " " + item.popups.at(2) + " " + item.text;
}

TEST(DevotionalMenu, HasAMorningAndAnEveningForEveryDay) {
    std::vector<std::string> expected;
    for (std::size_t month = 0; month < std::size(kMonths); ++month)
        for (int day = 1; day <= kDays[month]; ++day)
            for (const char* reading : {" Morning", " Evening"})
                expected.push_back(kMonths[month] + (" " + std::to_string(day)) + reading);
    ASSERT_EQ(expected.size(), 732u);

    std::vector<std::string> shown;
    for (const MenuItem& item : Readings()) {
        EXPECT_EQ(item.popups.size(), 3u);
        EXPECT_EQ(item.popups[0], "&Devotional");
        shown.push_back(Place(item));
    }
    EXPECT_EQ(shown, expected);
}

TEST(DevotionalMenu, ItemsOpenTheReadingOfTheirDay) {
    static constexpr ReadingRow kRows[] = {
        {"January", "1", "Morning", 7946},    {"January", "1", "Evening", 19541},   {"January", "2", "Morning", 31544},
        {"January", "2", "Evening", 20452},   {"January", "5", "Morning", 2003},    {"January", "5", "Evening", 2003},
        {"December", "31", "Morning", 28365}, {"December", "31", "Evening", 21173},
    };
    std::map<std::string, int> commands;
    for (const MenuItem& item : Readings()) commands[Place(item)] = item.command;
    for (const ReadingRow& row : kRows) {
        const std::string place = std::string(row.month) + " " + row.day + " " + row.reading;
        EXPECT_EQ(commands[place], row.command) << place;
    }
}

TEST(DevotionalMenu, MatchesTheTableOfReadings) {
    std::istringstream rows(FileText(VERSEWELL_SOURCE_DIR "/resources/devotional.csv"));
    std::string row;
    std::getline(rows, row);  // the column names

    int first = 40000, last = 0;
    for (const MenuItem& item : Readings()) {
        ASSERT_TRUE(std::getline(rows, row));
        std::istringstream fields(row);
        std::string month, day, reading, reference, verse;
        for (std::string* field : {&month, &day, &reading, &reference, &verse}) std::getline(fields, *field, ',');
        EXPECT_EQ(item.popups.at(1), kMonths[std::stoi(month) - 1]) << row;
        EXPECT_EQ(item.popups.at(2), day) << row;
        EXPECT_EQ(item.text, reading == "morning" ? "Morning" : "Evening") << row;
        EXPECT_EQ(item.command, 2000 + std::stoi(verse)) << row;
        first = std::min(first, item.command);
        last = std::max(last, item.command);
    }
    EXPECT_FALSE(std::getline(rows, row));
    EXPECT_EQ(first, 2003);
    EXPECT_EQ(last, 33097);
}
