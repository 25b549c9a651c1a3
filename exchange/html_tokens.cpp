#include "exchange/html_tokens.h"

#include <algorithm>
#include <array>
#include <optional>

#include "scripture/latin_letters.h"
#include "scripture/letters.h"

// ---- Entities -------------------------------------------------------------------------------------------------------

static constexpr char32_t kFirstLatin = 0xA0;
static constexpr std::array<std::string_view, 96> kLatinNames = {
    "nbsp",   "iexcl",  "cent",   "pound",  "curren", "yen",    "brvbar", "sect",   "uml",    "copy",   "ordf",
    "laquo",  "not",    "shy",    "reg",    "macr",   "deg",    "plusmn", "sup2",   "sup3",   "acute",  "micro",
    "para",   "middot", "cedil",  "sup1",   "ordm",   "raquo",  "frac14", "frac12", "frac34", "iquest", "Agrave",
    "Aacute", "Acirc",  "Atilde", "Auml",   "Aring",  "AElig",  "Ccedil", "Egrave", "Eacute", "Ecirc",  "Euml",
    "Igrave", "Iacute", "Icirc",  "Iuml",   "ETH",    "Ntilde", "Ograve", "Oacute", "Ocirc",  "Otilde", "Ouml",
    "times",  "Oslash", "Ugrave", "Uacute", "Ucirc",  "Uuml",   "Yacute", "THORN",  "szlig",  "agrave", "aacute",
    "acirc",  "atilde", "auml",   "aring",  "aelig",  "ccedil", "egrave", "eacute", "ecirc",  "euml",   "igrave",
    "iacute", "icirc",  "iuml",   "eth",    "ntilde", "ograve", "oacute", "ocirc",  "otilde", "ouml",   "divide",
    "oslash", "ugrave", "uacute", "ucirc",  "uuml",   "yacute", "thorn",  "yuml"};

namespace {

struct NamedLetter {
    std::string_view name;
    char32_t letter;
};

}  // namespace

static constexpr NamedLetter kOtherNames[] = {
    {"amp", U'&'},         {"lt", U'<'},         {"gt", U'>'},         {"quot", U'"'},        {"apos", U'\''},
    {"ndash", U'\x2013'},  {"mdash", U'\x2014'}, {"lsquo", U'\x2018'}, {"rsquo", U'\x2019'},  {"sbquo", U'\x201A'},
    {"ldquo", U'\x201C'},  {"rdquo", U'\x201D'}, {"bdquo", U'\x201E'}, {"dagger", U'\x2020'}, {"bull", U'\x2022'},
    {"hellip", U'\x2026'}, {"euro", U'\x20AC'},  {"OElig", U'\x152'},  {"oelig", U'\x153'},
};

static std::optional<char32_t> LetterCalled(std::string_view name) {
    for (const NamedLetter& row : kOtherNames)
        if (row.name == name) return row.letter;
    const auto found = std::ranges::find(kLatinNames, name);
    if (found == kLatinNames.end()) return std::nullopt;
    return kFirstLatin + static_cast<char32_t>(found - kLatinNames.begin());
}

// "#233" and "#xE9"; nullopt if it is no letter.
static std::optional<char32_t> LetterNumbered(std::string_view text) {
    static constexpr char32_t kBeyondLetters = 0x110000;
    const bool isHex = text.size() > 2 && LowerCased(text[1]) == 'x';
    char32_t number = 0;
    for (const char c : text.substr(isHex ? 2 : 1)) {
        const char lowered = LowerCased(c);
        const bool isFigure = IsDigit(c), isHexLetter = isHex && lowered >= 'a' && lowered <= 'f';
        if (!isFigure && !isHexLetter) return std::nullopt;
        const auto digit = static_cast<char32_t>(isFigure ? c - '0' : lowered - 'a' + 10);
        number = std::min<char32_t>(number * (isHex ? 16 : 10) + digit, kBeyondLetters);
    }
    const bool isLetter = number != 0 && number < kBeyondLetters && (number < 0xD800 || number > 0xDFFF);
    return isLetter ? std::optional(number) : std::nullopt;
}

std::string WithoutEntities(std::string_view text) {
    static constexpr std::size_t kLongest = 10;  // name or number
    std::string plain;
    for (std::size_t at = text.find('&'); at != std::string_view::npos; at = text.find('&')) {
        plain.append(text.substr(0, at));
        text.remove_prefix(at + 1);
        const std::size_t end = text.substr(0, kLongest + 1).find(';');
        const std::string_view name = end == std::string_view::npos ? "" : text.substr(0, end);
        const auto letter = name.starts_with('#') && name.size() > 1 ? LetterNumbered(name) : LetterCalled(name);
        if (letter) {
            AppendUtf8(*letter, plain);
            text.remove_prefix(end + 1);
        } else {
            plain += '&';
        }
    }
    return plain.append(text);
}

void AppendHtmlText(std::string_view text, std::string& page) {
    static constexpr std::string_view kSpecial = "&<>\"";
    for (std::size_t at = text.find_first_of(kSpecial); at != std::string_view::npos;
         at = text.find_first_of(kSpecial)) {
        page.append(text.substr(0, at));
        const char c = text[at];
        page.append(c == '&' ? "&amp;" : c == '<' ? "&lt;" : c == '>' ? "&gt;" : "&quot;");
        text.remove_prefix(at + 1);
    }
    page.append(text);
}

// ---- Tags -----------------------------------------------------------------------------------------------------------

static constexpr std::string_view kBlanks = " \t\n\f";

static void SkipBlanks(std::string_view& text) {
    text.remove_prefix(std::min(text.find_first_not_of(kBlanks), text.size()));
}

static bool BeginsTag(std::string_view page) {
    const std::size_t letter = page.starts_with("</") ? 2 : 1;
    return page.starts_with('<') && letter < page.size() && IsLetter(page[letter]);
}

// Where the tag at the beginning of the page ends, behind its ">"; npos if it does not end.
static std::size_t EndOfTag(std::string_view page) {
    std::size_t at = 0;
    for (;;) {
        at = page.find_first_of(">\"'", at);
        if (at == std::string_view::npos) return at;
        const char found = page[at++];
        if (found == '>') return at;
        const bool opensValue = page.substr(0, at - 1).find_last_not_of(kBlanks) != std::string_view::npos &&
                                page[page.substr(0, at - 1).find_last_not_of(kBlanks)] == '=';
        if (!opensValue) continue;
        at = page.find(found, at);
        if (at == std::string_view::npos) return at;
        ++at;
    }
}

static std::string_view TakeValue(std::string_view& text) {
    SkipBlanks(text);
    const char quote = text.empty() ? '\0' : text.front();
    const bool isQuoted = quote == '"' || quote == '\'';
    if (isQuoted) text.remove_prefix(1);
    const std::size_t end = std::min(isQuoted ? text.find(quote) : text.find_first_of(kBlanks), text.size());
    const std::string_view value = text.substr(0, end);
    text.remove_prefix(std::min(end + isQuoted, text.size()));
    return value;
}

// `text` is what stands between the name and the ">".
static void ReadAttributes(std::string_view text, HtmlTag& tag) {
    for (SkipBlanks(text); !text.empty(); SkipBlanks(text)) {
        const std::size_t end = std::min(text.find_first_of(" \t\n\f=/"), text.size());
        const std::string name = LowerCased(text.substr(0, end));
        text.remove_prefix(std::max<std::size_t>(end, name.empty() ? 1 : 0));
        if (name.empty()) continue;
        SkipBlanks(text);
        std::string value;
        if (text.starts_with('=')) {
            text.remove_prefix(1);
            value = WithoutEntities(TakeValue(text));
        }
        tag.attributes.emplace_back(name, std::move(value));
    }
}

static HtmlTag TagOf(std::string_view text) {
    HtmlTag tag;
    text.remove_prefix(1);
    text.remove_suffix(1);
    tag.isEnd = text.starts_with('/');
    if (tag.isEnd) text.remove_prefix(1);
    const std::size_t end = std::min(text.find_first_of(" \t\n\f/"), text.size());
    tag.name = LowerCased(text.substr(0, end));
    if (!tag.isEnd) ReadAttributes(text.substr(end), tag);
    return tag;
}

// ---- Tokens ---------------------------------------------------------------------------------------------------------

// Takes a comment or declaration. False if there is none.
static bool SkipDeclaration(std::string_view& page) {
    if (!page.starts_with("<!") && !page.starts_with("<?")) return false;
    const std::string_view end = page.starts_with("<!--") ? "-->" : ">";
    const std::size_t found = page.find(end);
    page.remove_prefix(found == std::string_view::npos ? page.size() : found + end.size());
    return true;
}

// Takes the contents of an element that has no text of the page.
static void SkipContents(const HtmlTag& tag, std::string_view& page) {
    static constexpr std::string_view kHidden[] = {"style", "script", "title"};
    if (tag.isEnd || std::ranges::find(kHidden, tag.name) == std::end(kHidden)) return;
    for (std::size_t at = page.find("</"); at != std::string_view::npos; at = page.find("</", at + 2)) {
        if (!StartsWithIgnoringCase(page.substr(at + 2), tag.name)) continue;
        page.remove_prefix(at);
        return;
    }
    page = {};
}

bool TakeToken(std::string_view& page, HtmlToken& token) {
    while (SkipDeclaration(page)) {
    }
    if (page.empty()) return false;
    const std::size_t tagEnd = BeginsTag(page) ? EndOfTag(page) : std::string_view::npos;
    token.isTag = tagEnd != std::string_view::npos;
    if (token.isTag) {
        token.tag = TagOf(page.substr(0, tagEnd));
        page.remove_prefix(tagEnd);
        SkipContents(token.tag, page);
        return true;
    }
    const bool isUnclosed = BeginsTag(page);  // then no tag behind it is known to be one
    const std::size_t end = isUnclosed ? page.size() : std::min(page.find('<', 1), page.size());
    token.text = WithoutEntities(page.substr(0, end));
    page.remove_prefix(end);
    return true;
}

const std::string* AttributeOf(const HtmlTag& tag, std::string_view name) {
    for (const auto& [known, value] : tag.attributes)
        if (known == name) return &value;
    return nullptr;
}

bool HasClass(const HtmlTag& tag, std::string_view word) {
    const std::string* value = AttributeOf(tag, "class");
    if (value == nullptr) return false;
    std::string_view rest = *value;
    for (SkipBlanks(rest); !rest.empty(); SkipBlanks(rest)) {
        const std::string_view found = rest.substr(0, rest.find_first_of(kBlanks));
        if (found == word) return true;
        rest.remove_prefix(found.size());
    }
    return false;
}
