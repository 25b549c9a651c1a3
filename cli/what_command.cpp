// `vw what`: what a reference is understood as, by the window and by a person.
#include <CLI/CLI.hpp>
#include <memory>
#include <nlohmann/json.hpp>

#include "cli/asked_verses.h"
#include "cli/command_table.h"
#include "cli/meant_spans.h"
#include "cli/text_folder.h"
#include "cli/utf8.h"
#include "cli/verse_output.h"
#include "scripture/reference_meaning.h"

using nlohmann::ordered_json;

static int CountOf(const std::vector<VerseSpan>& spans) {
    int count = 0;
    for (const VerseSpan& span : spans) count += span.last - span.first + 1;
    return count;
}

static std::string CountedNames(const VerseRecords& records, const std::vector<VerseSpan>& spans) {
    if (spans.empty()) return "not known";
    const int count = CountOf(spans);
    return SpanNames(records, spans) + ", " + std::to_string(count) + (count == 1 ? " verse" : " verses");
}

static ordered_json ObjectOf(const VerseRecords& records, const std::string& typed, const ParsedRange& strict,
                             const std::vector<VerseSpan>& meant) {
    const VerseSpan understood{strict.first, strict.last};
    ordered_json spans = ordered_json::array();
    for (const VerseSpan& span : meant) spans.push_back(SpanObject(records, span));
    return {
        {"kind", "meaning"},
        {"typed", typed},
        {"window", strict.ok ? SpanObject(records, understood) : ordered_json()},
        {"unused", strict.unused},
        {"meant", spans},
        {"same", strict.ok && meant.size() == 1 && understood == meant.front()},
    };
}

static bool Explain(Vw& vw, const VerseRecords& records, const std::string& typed) {
    const std::string ascii = AsciiOf(typed);
    const ParsedRange strict = ascii.empty() ? ParsedRange{} : ParseRange(records, ascii);
    const std::vector<VerseSpan> meant = MeantSpans(records, ascii);
    if (vw.options.json) {
        PrintObject(vw.printer, ObjectOf(records, typed, strict, meant));
    } else {
        Print(vw.printer, typed + "\n");
        const std::string window = ascii.empty() ? "not understood" : ReferenceMeaning(records, ascii, Asked::kRange);
        Print(vw.printer, "  by the window's rule: " + window + "\n");
        Print(vw.printer, "  probably meant:       " + CountedNames(records, meant) + "\n");
    }
    return strict.ok || !meant.empty();
}

static ExitCode What(Vw& vw, const std::vector<std::string>& words) {
    const Scripture scripture = TextOf(vw);
    bool isFound = false;
    for (const std::string& reference : ReferencesIn(words))
        isFound = Explain(vw, scripture.records, reference) || isFound;
    return isFound ? kFound : kNothingFound;
}

static RunCommand PrepareWhat(CLI::App& app) {
    const auto words = std::make_shared<std::vector<std::string>>();
    app.add_option("REF", *words, "references: \"1 Jn 1:9\"")->required()->type_name("");
    return [words](Vw& vw) { return What(vw, *words); };
}

const Command kWhatCommand = {
    .name = "what",
    .help = "tell what a reference is understood as",
    .prepare = PrepareWhat,
    .details =
        "The window's rule is loose: a text that begins with no book is a verse of Genesis, and a lone second "
        "number of a range is a chapter. The other commands take what is probably meant and say so if it differs; "
        "they take nothing if it is not known. With --strict they take what the window does.",
};
