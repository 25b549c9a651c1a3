#include "data/devotional_table.h"

#include <map>
#include <sstream>

#include "output/rendering.h"

static constexpr int kDays[] = {31, 29, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
static constexpr std::string_view kNewLine = "\r\n";

// ---- The table ------------------------------------------------------------------------------------------------------

// A morning and an evening for every day, in order, without their verses.
static std::vector<DailyReading> Calendar() {
    std::vector<DailyReading> readings;
    for (int month = 1; month <= 12; ++month)
        for (int day = 1; day <= kDays[month - 1]; ++day)
            for (const bool isEvening : {false, true}) readings.push_back({month, day, isEvening, 0});
    return readings;
}

static std::string RowBeginning(const DailyReading& reading) {
    return std::to_string(reading.month) + "," + std::to_string(reading.day) +
           (reading.isEvening ? ",evening," : ",morning,");
}

// The number after the last comma; kNoVerse if it is not a number or out of range.
static int VerseAtEnd(const std::string& row) {
    const std::string number = row.substr(row.rfind(',') + 1);
    if (number.empty() || number.size() > 5 || number.find_first_not_of("0123456789") != std::string::npos)
        return kNoVerse;
    const int verse = std::stoi(number);
    return verse <= kLastVerse ? verse : kNoVerse;
}

Complaint ReadReadings(std::string_view rows, std::vector<DailyReading>& readings) {
    readings = Calendar();
    std::istringstream lines{std::string(rows)};
    std::string row;
    std::getline(lines, row);  // the column names
    int line = 1;
    for (DailyReading& reading : readings) {
        ++line;
        if (!std::getline(lines, row)) row.clear();
        reading.verse = VerseAtEnd(row);
        if (!row.starts_with(RowBeginning(reading)) || reading.verse == kNoVerse)
            return "line " + std::to_string(line) + " should be \"" + RowBeginning(reading) + "reference,verse index\"";
    }
    if (std::getline(lines, row)) return "line " + std::to_string(line + 1) + " is one too many";
    return {};
}

DevotionalTable TableOf(const std::vector<DailyReading>& readings) {
    DevotionalTable table{};
    for (const DailyReading& reading : readings)
        table[ReadingSlot(reading.month, reading.day, reading.isEvening)] = reading.verse;
    return table;
}

// ---- The notes ------------------------------------------------------------------------------------------------------

namespace {

// When a verse is read: a morning, an evening, or a whole day.
struct Occasion {
    std::string day;
    const char* times = "";
    const char* otherTime = "";
    int otherVerse = 0;
};

}  // namespace

// The occasions of a day with their verses: one if both readings have the same verse, otherwise two.
static std::vector<std::pair<int, Occasion>> OccasionsOf(const DailyReading& morning, const DailyReading& evening) {
    const std::string day = DayName(morning.month, morning.day);
    if (morning.verse == evening.verse)
        return {{morning.verse, {day, "Morning and Evening", "same verse, morning and evening", evening.verse}}};
    return {{morning.verse, {day, "Morning", "evening's reading", evening.verse}},
            {evening.verse, {day, "Evening", "morning's reading", morning.verse}}};
}

static std::string Headings(const std::vector<Occasion>& occasions) {
    std::string lines;
    for (const Occasion& occasion : occasions)
        lines.append(occasion.day).append(", ").append(occasion.times) += kNewLine;
    return lines;
}

static std::string VerseInFull(const Scripture& scripture, int verse) {
    std::string_view words = VerseText(scripture, verse);
    if (BeginsParagraph(words)) words.remove_prefix(1);
    return WithoutBrackets(words).append(kNewLine).append(ReferenceText(scripture.records, verse, BookForm::kName)) +=
           kNewLine;
}

// The day is added only if there are several. The links use abbreviations, because in a cross-reference line a name
// such as "1 John" would be read as verse 1.
static std::string Links(const std::vector<Occasion>& occasions, const VerseRecords& records) {
    std::string lines;
    for (const Occasion& occasion : occasions) {
        lines.append(lines.empty() ? "" : kNewLine).append("The ").append(occasion.otherTime);
        if (occasions.size() > 1) lines.append(" of ").append(occasion.day);
        lines.append(":").append(kNewLine).append("# ");
        lines += ReferenceText(records, occasion.otherVerse, BookForm::kAbbreviation);
    }
    return lines;
}

NoteTexts NotesOf(const std::vector<DailyReading>& readings, const Scripture& scripture) {
    std::map<int, std::vector<Occasion>> occasions;
    for (std::size_t i = 0; i + 1 < readings.size(); i += 2)
        for (const auto& [verse, occasion] : OccasionsOf(readings[i], readings[i + 1]))
            occasions[verse].push_back(occasion);
    NoteTexts notes;
    for (const auto& [verse, itsOccasions] : occasions)
        notes[verse] = Headings(itsOccasions) + std::string(kNewLine) + VerseInFull(scripture, verse) +
                       std::string(kNewLine) + Links(itsOccasions, scripture.records);
    return notes;
}
