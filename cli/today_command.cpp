// `vw today`: the readings of a day, and its chapter of Proverbs.
#include <CLI/CLI.hpp>
#include <array>
#include <charconv>
#include <memory>
#include <nlohmann/json.hpp>

#include "cli/arguments.h"
#include "cli/command_table.h"
#include "cli/readings.h"
#include "cli/text_folder.h"
#include "cli/verse_output.h"

// The folder of the readings in what users download.
static constexpr char kDeliveredSet[] = "Morning and Evening";

namespace {

struct TodayOptions {
    std::string date;
    bool morning = false, evening = false, proverb = false;
};

}  // namespace

// ---- The date -------------------------------------------------------------------------------------------------------

// The numbers of "2026-11-23"; empty if it is something else.
static std::vector<int> NumbersOf(std::string_view text) {
    std::vector<int> numbers;
    while (true) {
        int number = 0;
        const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
        if (error != std::errc() || number < 0) return {};
        numbers.push_back(number);
        text.remove_prefix(static_cast<std::size_t>(end - text.data()));
        if (text.empty()) return numbers;
        if (text[0] != '-') return {};
        text.remove_prefix(1);
    }
}

static bool IsLeapYear(int year) {
    return year % 4 == 0 && (year % 100 != 0 || year % 400 == 0);
}

static int DaysIn(int year, int month) {
    static constexpr std::array<int, 12> kDays = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
    return month == 2 && IsLeapYear(year) ? 29 : kDays[static_cast<std::size_t>(month) - 1];
}

// A date without a year may be the last of February.
static Date DateOf(const Vw& vw, const std::string& text) {
    static constexpr int kAnyLeapYear = 2000;
    const Day today = vw.surroundings.today(vw.surroundings.device);
    if (text.empty()) return {today.month, today.day};
    std::vector<int> numbers = NumbersOf(text);
    if (numbers.size() == 2) numbers.insert(numbers.begin(), kAnyLeapYear);
    const bool isDate = numbers.size() == 3 && numbers[1] >= 1 && numbers[1] <= 12 && numbers[2] >= 1 &&
                        numbers[2] <= DaysIn(numbers[0], numbers[1]);
    if (!isDate) throw Complaint{kBadUse, "DATE: \"" + text + "\" is no date such as 2026-11-23 or 11-23"};
    return {numbers[1], numbers[2]};
}

// ---- The texts ------------------------------------------------------------------------------------------------------

static std::string NameOf(Date date) {
    static constexpr const char* kMonths[] = {"January", "February", "March",     "April",   "May",      "June",
                                              "July",    "August",   "September", "October", "November", "December"};
    return std::string(kMonths[date.month - 1]) + ' ' + std::to_string(date.day);
}

static void PrintReading(Vw& vw, const Scripture& scripture, const DayReadings& readings, const Reading& reading,
                         const char* time) {
    if (vw.options.json) {
        nlohmann::ordered_json object =
            VerseObject(scripture, reading.verse, VerseText(scripture, reading.verse), false);
        object["kind"] = "reading";
        object["time"] = time;
        object["set"] = readings.set;
        object["note"] = reading.note;
        return PrintObject(vw.printer, object);
    }
    PrintMarked(vw.printer,
                MarkedListLine(scripture.records, reading.verse, VerseText(scripture, reading.verse)) + "\n",
                ShownBrackets::kNo);
    StyledText note;
    AppendUtf8Styled(note, reading.note, kPlain);
    PrintStyled(vw.printer, note);
    Print(vw.printer, note.letters.ends_with(U'\n') ? "\n" : "\n\n");
}

static void PrintProverb(Vw& vw, const Scripture& scripture, Date date) {
    const int first = TodaysProverb(scripture.records, date);
    const int end = NextChapter(scripture.records, first);
    for (int verse = first; verse < end; ++verse) {
        const std::string_view words = VerseText(scripture, verse);
        if (!vw.options.json) {
            PrintMarked(vw.printer, MarkedListLine(scripture.records, verse, words), ShownBrackets::kNo);
            continue;
        }
        nlohmann::ordered_json object = VerseObject(scripture, verse, words, false);
        object["kind"] = "proverb";
        PrintObject(vw.printer, object);
    }
}

static void PrintReadings(Vw& vw, const Scripture& scripture, const DayReadings& readings,
                          const TodayOptions& options) {
    if (options.morning) PrintReading(vw, scripture, readings, readings.morning, "morning");
    if (options.evening) PrintReading(vw, scripture, readings, readings.evening, "evening");
}

static ExitCode ShowDay(Vw& vw, TodayOptions options) {
    if (!options.morning && !options.evening && !options.proverb)
        options.morning = options.evening = options.proverb = true;
    const Date date = DateOf(vw, options.date);
    const Scripture scripture = TextOf(vw);
    const std::string text = TextFolder(vw);
    const std::string folders[] = {WorkingFolder(vw), text, PathIn(text, kDeliveredSet)};
    const auto readings = ReadingsOf(vw.surroundings, folders, date);
    StartPager(vw);
    if (!vw.options.json) Print(vw.printer, NameOf(date) + "\n\n");
    if (readings) PrintReadings(vw, scripture, *readings, options);
    if (options.proverb) PrintProverb(vw, scripture, date);
    const bool lacksReadings = !readings && (options.morning || options.evening);
    if (lacksReadings) Tell(vw, "--folder: there is no note set with a table of readings (.dti) in " + folders[0]);
    return lacksReadings ? kNothingFound : kFound;
}

static RunCommand PrepareToday(CLI::App& app) {
    const auto options = std::make_shared<TodayOptions>();
    AddText(app, "DATE", options->date, "another day: 2026-11-23 or 11-23")->type_name("");
    app.add_flag("--morning", options->morning, "only the reading of the morning");
    app.add_flag("--evening", options->evening, "only the reading of the evening");
    app.add_flag("--proverb", options->proverb, "only the chapter of Proverbs");
    return [options](Vw& vw) { return ShowDay(vw, *options); };
}

const Command kTodayCommand = {
    .name = "today",
    .help = "show the readings of the day and its chapter of Proverbs",
    .prepare = PrepareToday,
    .details =
        "The readings are those of the window: notes of the set that has a table of readings, in --folder, or "
        "beside the scripture files.",
};
