#include "data/osis_text.h"

#include <algorithm>

#include "scripture/scripture.h"

namespace {

struct Spelling {
    std::string_view from;
    std::string_view to;
};

constexpr Spelling kLetters[] = {
    {"\u2019", "'"}, {"\u2014", "--"}, {"\u00e6", "ae"}, {"\u00c6", "Ae"}, {"\u00b6", {&kParagraphMark, 1}},
};

constexpr std::string_view kStops = ":;.?!";

// State of the conversion, which goes through the tags one after another.
struct TagWalk {
    std::string text;
    bool inDivineName = false;
};

}  // namespace

static void ReplaceAll(std::string& text, std::string_view from, std::string_view to) {
    for (std::size_t at = text.find(from); at != std::string::npos; at = text.find(from, at + to.size()))
        text.replace(at, from.size(), to);
}

// Removes every `<name ...>...</name>`. Searches for the tags without parsing the content, because some notes are
// malformed; none are nested.
static void RemoveElements(std::string& osis, std::string_view name) {
    const std::string opening = "<" + std::string(name);
    const std::string closing = "</" + std::string(name) + ">";
    std::size_t from = osis.find(opening);
    while (from != std::string::npos) {
        const std::size_t to = osis.find(closing, from);
        if (to == std::string::npos) return;  // the checks will report the remaining tag
        osis.erase(from, to + closing.size() - from);
        from = osis.find(opening, from);
    }
}

static std::string_view NameOfTag(std::string_view tag) {
    return tag.substr(0, std::min(tag.find_first_of(" /", 1), tag.size()));
}

// `tag` is the text between < and >.
static void WalkTag(TagWalk& walk, std::string_view tag) {
    const std::string_view name = NameOfTag(tag);
    if (name == "transChange") walk.text += '[';
    if (name == "/transChange") walk.text += ']';
    if (name == "divineName") walk.inDivineName = true;
    if (name == "/divineName") walk.inDivineName = false;
    // Complete elements have been removed already, so this tag has no counterpart. The "<" makes the checks report it.
    if (name == "note" || name == "/note" || name == "title" || name == "/title") walk.text += '<';
}

static char PlainLetter(const TagWalk& walk, char letter) {
    if (letter == '[') return '(';  // a printed bracket, which must not be taken for italics
    if (letter == ']') return ')';
    const bool isSmall = letter >= 'a' && letter <= 'z';
    return walk.inDivineName && isSmall ? static_cast<char>(letter - 'a' + 'A') : letter;
}

static std::string WithoutTags(std::string_view osis) {
    TagWalk walk;
    while (!osis.empty()) {
        const std::size_t end = osis.front() == '<' ? osis.find('>') : std::string_view::npos;
        if (end == std::string_view::npos) {
            walk.text += PlainLetter(walk, osis.front());
            osis.remove_prefix(1);
        } else {
            WalkTag(walk, osis.substr(1, end - 1));
            osis.remove_prefix(end + 1);
        }
    }
    return walk.text;
}

static bool IsBlank(char letter) {
    return letter == ' ' || letter == '\t' || letter == '\n' || letter == '\r';
}

// Separates words by single blanks and removes blanks at the ends and after a paragraph mark.
static std::string WithSingleBlanks(std::string_view text) {
    std::string result;
    bool pending = false;
    for (const char letter : text) {
        if (IsBlank(letter)) {
            pending = !result.empty() && result.back() != kParagraphMark;
            continue;
        }
        if (pending) result += ' ';
        pending = false;
        result += letter;
    }
    return result;
}

// The module often includes the stop after an added word in the italics, unlike the printed book: "[of:]" becomes
// "[of]:".
static void MoveStopsOutOfBrackets(std::string& text) {
    for (std::size_t at = text.find(']'); at != std::string::npos; at = text.find(']', at + 1)) {
        const std::size_t lastWord = text.find_last_not_of(kStops, at - 1);
        if (at == 0 || lastWord == std::string::npos) continue;
        std::rotate(text.begin() + static_cast<std::ptrdiff_t>(lastWord) + 1,
                    text.begin() + static_cast<std::ptrdiff_t>(at), text.begin() + static_cast<std::ptrdiff_t>(at) + 1);
    }
}

std::string TextOfOsis(std::string_view osis) {
    std::string text(osis);
    RemoveElements(text, "note");
    ReplaceAll(text, "\\nd ", "<divineName>");  // start tags that the module still has in USFM
    RemoveElements(text, "title");
    text = WithoutTags(text);
    for (const Spelling& letter : kLetters) ReplaceAll(text, letter.from, letter.to);
    text = WithSingleBlanks(text);
    MoveStopsOutOfBrackets(text);
    return text;
}
