// `vw read`: verses as the window copies them.
#include <CLI/CLI.hpp>
#include <memory>
#include <nlohmann/json.hpp>

#include "app/navigation.h"
#include "app/profile_text.h"
#include "cli/asked_verses.h"
#include "cli/command_table.h"
#include "cli/text_folder.h"
#include "cli/verse_output.h"
#include "output/rendering.h"

namespace {

struct ReadOptions {
    std::vector<std::string> words;
    std::string labels = "full,partial";
    bool labelsAfter = false;
    bool lines = true;
    bool paragraphs = true;
    bool brackets = false;
    bool strict = false;
};

}  // namespace

static std::int8_t StyleOf(const std::string& label) {
    static constexpr std::int8_t kNoLabel = 2;
    if (label == "full") return kFullLabel;
    if (label == "partial") return kPartialLabel;
    if (label == "none") return kNoLabel;
    throw Complaint{kBadUse, "--labels: \"" + label + "\" is not full, partial or none"};
}

// One label is that of all verses.
static FormatOptions FormatOf(const ReadOptions& options) {
    const std::size_t comma = options.labels.find(',');
    return {
        .FirstVerseStyle = StyleOf(options.labels.substr(0, comma)),
        .SubsequentVerseStyle = StyleOf(comma == std::string::npos ? options.labels : options.labels.substr(comma + 1)),
        .Location = static_cast<std::int8_t>(options.labelsAfter ? kLabelAfter : kLabelBefore),
        .LineBreaks = options.lines ? 1 : 0,
        .ParagraphMarks = options.paragraphs ? 1 : 0,
        .Brackets = options.brackets ? 1 : 0,
    };
}

// The verse at the top of the Passage window when its settings were saved, to the end of its chapter.
static VerseSpan WhereTheWindowLeftOff(const Vw& vw, const VerseRecords& records) {
    const std::string path = PathIn(WorkingFolder(vw), kSettingsFile);
    ProfileText file{vw.surroundings.readFile(vw.surroundings.device, path).value_or("")};
    const int verse = LoadSettings(DeviceOver(file), 0).ReadVerse;
    const int next = NextChapter(records, verse);
    const bool isLastChapter = RecordOf(records, next).verse != 1 || next <= verse;
    return {verse, isLastChapter ? kLastVerse : next - 1};
}

static std::vector<VerseSpan> SpansToRead(const Vw& vw, const VerseRecords& records, const ReadOptions& options) {
    if (options.words.empty()) return {WhereTheWindowLeftOff(vw, records)};
    return SpansOfWords(vw, records, options.words, {options.strict});
}

// Each piece begins with a blank, which separates it from the one before: it is left out at the beginning of a line.
static void PrintSpan(Printer& printer, const Scripture& scripture, const FormatOptions& format,
                      const VerseSpan& span) {
    RangeRenderer renderer{scripture, format};
    const ShownBrackets brackets = format.Brackets != 0 ? ShownBrackets::kYes : ShownBrackets::kNo;
    const bool hasLines = format.LineBreaks != 0;
    GrowingText text;
    for (int verse = span.first; verse <= span.last && !HasEnded(printer); ++verse) {
        AppendMarkedVerse(renderer, verse, text);
        if (!hasLines) continue;
        PrintMarked(printer, TextOf(text).substr(1), brackets);
        text.size = 0;
    }
    if (hasLines) return;
    Append(text, "\n");
    PrintMarked(printer, TextOf(text).substr(1), brackets);
}

static void PrintObjects(Printer& printer, const Scripture& scripture, const VerseSpan& span) {
    for (int verse = span.first; verse <= span.last && !HasEnded(printer); ++verse)
        PrintObject(printer, VerseObject(scripture, verse, VerseText(scripture, verse), false));
}

static ExitCode Read(Vw& vw, const ReadOptions& options) {
    const FormatOptions format = FormatOf(options);
    const Scripture scripture = TextOf(vw);
    const std::vector<VerseSpan> spans = SpansToRead(vw, scripture.records, options);
    StartPager(vw);
    for (const VerseSpan& span : spans) {
        if (vw.options.json)
            PrintObjects(vw.printer, scripture, span);
        else
            PrintSpan(vw.printer, scripture, format, span);
    }
    return kFound;
}

static RunCommand PrepareRead(CLI::App& app) {
    const auto options = std::make_shared<ReadOptions>();
    app.add_option("REF", options->words,
                   "verses, chapters, books, ranges or lists: John 3:16, \"Rom 8:1-11\", \"Ge 1 - 3\", \"Rom 8:1, 3; "
                   "9:1\", Jude; without one, the rest of the chapter where the window left off")
        ->type_name("");
    app.add_option("--labels", options->labels,
                   "labels of the first verse and of the others, or of all: full (Eph 6:17), partial (6:17, 17), none "
                   "(default: full,partial)")
        ->type_name("full|partial|none");
    app.add_flag("--labels-after", options->labelsAfter, "labels behind the verses");
    app.add_flag("--lines,!--no-lines", options->lines, "each verse on a line of its own (default)");
    app.add_flag("--paragraphs,!--no-paragraphs", options->paragraphs, "a mark where a paragraph begins (default)");
    app.add_flag("--brackets", options->brackets, "brackets round the words that the translators supplied");
    app.add_flag("--strict", options->strict, "understand references only as the window does");
    return [options](Vw& vw) { return Read(vw, *options); };
}

const Command kReadCommand = {
    .name = "read",
    .help = "show verses",
    .prepare = PrepareRead,
    .details =
        "The text is the one that the window copies with the same format, without the blank at the beginning of "
        "a line. Supplied words are in italics on a terminal. On a terminal, longer texts are shown by $PAGER. What "
        "is no reference, or names verses that there are none of, is bad use, here and with the other commands.",
};
