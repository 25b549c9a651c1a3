// `vw what`: what a reference is understood as, by the window and by a person.
#include <CLI/CLI.hpp>
#include <memory>
#include <nlohmann/json.hpp>

#include "cli/asked_verses.h"
#include "cli/command_table.h"
#include "cli/text_folder.h"
#include "cli/utf8.h"
#include "cli/verse_output.h"
#include "scripture/reference_meaning.h"

using nlohmann::ordered_json;

static std::string CountedName(const VerseRecords& records, const VerseSpan& span) {
    const int count = span.last - span.first + 1;
    return SpanName(records, span) + ", " + std::to_string(count) + (count == 1 ? " verse" : " verses");
}

static ordered_json ObjectOf(const VerseRecords& records, const std::string& typed, const ParsedRange& strict,
                             const std::optional<VerseSpan>& meant) {
    const VerseSpan understood{strict.first, strict.last};
    return {
        {"kind", "meaning"},
        {"typed", typed},
        {"window", strict.ok ? SpanObject(records, understood) : ordered_json()},
        {"unused", strict.unused},
        {"meant", meant ? SpanObject(records, *meant) : ordered_json()},
        {"same", strict.ok && meant && understood == *meant},
    };
}

static bool Explain(Vw& vw, const VerseRecords& records, const std::string& typed) {
    const std::string ascii = AsciiOf(typed);
    const ParsedRange strict = ascii.empty() ? ParsedRange{} : ParseRange(records, ascii);
    const auto meant = MeantVerses(records, ascii);
    if (vw.options.json) {
        PrintObject(vw.printer, ObjectOf(records, typed, strict, meant));
    } else {
        Print(vw.printer, typed + "\n");
        const std::string window = ascii.empty() ? "not understood" : ReferenceMeaning(records, ascii, Asked::kRange);
        Print(vw.printer, "  by the window's rule: " + window + "\n");
        Print(vw.printer, "  probably meant:       " + (meant ? CountedName(records, *meant) : "not known") + "\n");
    }
    return strict.ok || meant;
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
        "number of a range is a chapter. The other commands take what is probably meant, unless --strict is "
        "given, and say so if it differs.",
};
