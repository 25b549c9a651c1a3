#include "data/marked_text.h"

#include <algorithm>
#include <charconv>
#include <iterator>

namespace {

enum class Effect { kNone, kParagraph, kLine, kTitle, kTable, kRow, kCell, kBold, kNote, kReference };

struct TagRow {
    std::string_view name;
    Effect effect;
};

constexpr TagRow kTags[] = {
    {"p", Effect::kParagraph},
    {"div", Effect::kParagraph},
    {"lg", Effect::kParagraph},
    {"list", Effect::kParagraph},
    {"ul", Effect::kParagraph},
    {"ol", Effect::kParagraph},
    {"title", Effect::kTitle},
    {"head", Effect::kTitle},
    {"h1", Effect::kTitle},
    {"h2", Effect::kTitle},
    {"h3", Effect::kTitle},
    {"h4", Effect::kTitle},
    {"l", Effect::kLine},
    {"lb", Effect::kLine},
    {"br", Effect::kLine},
    {"item", Effect::kLine},
    {"li", Effect::kLine},
    {"table", Effect::kTable},
    {"row", Effect::kRow},
    {"tr", Effect::kRow},
    {"cell", Effect::kCell},
    {"td", Effect::kCell},
    {"b", Effect::kBold},
    {"hi", Effect::kBold},
    {"note", Effect::kNote},
    {"reference", Effect::kReference},
    {"scripRef", Effect::kReference},
};

struct Tag {
    std::string_view name;
    std::string_view attributes;
    bool isEnd = false;
    bool isEmpty = false;
};

struct Walk {
    std::vector<Paragraph> paragraphs;
    Paragraph current;
    bool blankPending = false;
    bool linePending = false;
    int bold = -1;                              // start of the bold text at the start of the paragraph, -1 for none
    std::size_t reference = std::string::npos;  // start of the text of a reference without a target
};

struct Entity {
    std::string_view name;
    std::string_view text;
};

constexpr Entity kEntities[] = {{"amp", "&"}, {"lt", "<"}, {"gt", ">"}, {"quot", "\""}, {"apos", "'"}, {"nbsp", " "}};

}  // namespace

// ---- Tags -----------------------------------------------------------------------------------------------------------

// `tag` is the text between < and >.
static Tag TagOf(std::string_view tag) {
    Tag result;
    result.isEnd = tag.starts_with('/');
    result.isEmpty = tag.ends_with('/');
    if (result.isEnd) tag.remove_prefix(1);
    const std::size_t end = std::min(tag.find_first_of(" \t\r\n/"), tag.size());
    result.name = tag.substr(0, end);
    result.attributes = tag.substr(end);
    return result;
}

static std::string_view Attribute(const Tag& tag, std::string_view name) {
    const std::string start = " " + std::string(name) + "=\"";
    const std::size_t at = tag.attributes.find(start);
    if (at == std::string_view::npos) return {};
    const std::string_view value = tag.attributes.substr(at + start.size());
    return value.substr(0, value.find('"'));
}

static Effect EffectOf(const Tag& tag) {
    const auto* row =
        std::find_if(std::begin(kTags), std::end(kTags), [&tag](const TagRow& each) { return each.name == tag.name; });
    if (row == std::end(kTags) || Attribute(tag, "type") == "x-milestone") return Effect::kNone;
    const bool isBold = tag.name == "b" || tag.isEnd || Attribute(tag, "type") == "bold";
    return row->effect == Effect::kBold && !isBold ? Effect::kNone : row->effect;
}

// ---- Text -----------------------------------------------------------------------------------------------------------

static void EndParagraph(Walk& walk) {
    if (!walk.current.text.empty()) walk.paragraphs.push_back(std::move(walk.current));
    walk.current = {};
    walk.blankPending = walk.linePending = false;
    walk.bold = -1;
    walk.reference = std::string::npos;
}

static void AddText(Walk& walk, std::string_view text) {
    if (text.empty()) return;
    if (!walk.current.text.empty() && (walk.blankPending || walk.linePending))
        walk.current.text += walk.linePending ? '\n' : ' ';
    walk.blankPending = walk.linePending = false;
    walk.current.text += text;
}

static std::string Utf8Of(unsigned long point) {
    if (point == 0 || point > 0x10FFFF) return {};
    if (point < 0x80) return {static_cast<char>(point)};
    const int length = point < 0x800 ? 2 : point < 0x10000 ? 3 : 4;
    std::string bytes;
    for (int i = length - 1; i > 0; --i) bytes += static_cast<char>(0x80 | (point >> (6 * (i - 1)) & 0x3F));
    bytes.insert(bytes.begin(), static_cast<char>((0xF00u >> length & 0xF0u) | point >> (6 * (length - 1))));
    return bytes;
}

// `name` is the text between & and ;. Empty for an unknown entity.
static std::string TextOfEntity(std::string_view name) {
    const auto* found = std::find_if(std::begin(kEntities), std::end(kEntities),
                                     [name](const Entity& each) { return each.name == name; });
    if (found != std::end(kEntities)) return std::string(found->text);
    if (!name.starts_with('#')) return {};
    name.remove_prefix(1);
    const bool isHex = name.starts_with('x');
    if (isHex) name.remove_prefix(1);
    unsigned long point = 0;
    const auto [end, error] = std::from_chars(name.data(), name.data() + name.size(), point, isHex ? 16 : 10);
    return error == std::errc() && end == name.data() + name.size() ? Utf8Of(point) : std::string();
}

// Takes an entity from the start of `entry`, which begins with "&". A "&" that does not begin an entity stays as it is.
static std::string TakeEntity(std::string_view& entry) {
    static constexpr std::size_t kLongest = 10;
    const std::size_t end = entry.substr(0, kLongest).find(';');
    const std::string text = end == std::string_view::npos ? std::string() : TextOfEntity(entry.substr(1, end - 1));
    entry.remove_prefix(text.empty() ? 1 : end + 1);
    return text.empty() ? "&" : text;
}

// ---- The walk -------------------------------------------------------------------------------------------------------

static void WalkReference(Walk& walk, const Tag& tag) {
    const std::string_view target = Attribute(tag, tag.name == "scripRef" ? "passage" : "osisRef");
    std::string& text = walk.current.text;
    if (!target.empty()) {
        walk.current.references.emplace_back(target);
    } else if (!tag.isEnd && !tag.isEmpty) {
        walk.reference = text.size();
    } else if (tag.isEnd && walk.reference < text.size()) {
        walk.current.references.push_back(text.substr(text.find_first_not_of(" \n", walk.reference)));
    }
    if (tag.isEnd) walk.reference = std::string::npos;
}

static void WalkBold(Walk& walk, const Tag& tag) {
    if (!tag.isEnd && walk.current.text.empty()) walk.bold = 0;
    if (!tag.isEnd || walk.bold != 0) return;
    walk.current.boldStart = walk.current.text;
    walk.bold = -1;
}

static void WalkTag(Walk& walk, const Tag& tag) {
    switch (EffectOf(tag)) {
        case Effect::kNone: break;
        case Effect::kTable:
        case Effect::kParagraph: EndParagraph(walk); break;
        case Effect::kLine: walk.linePending = true; break;
        case Effect::kCell: walk.blankPending = true; break;
        case Effect::kBold: WalkBold(walk, tag); break;
        case Effect::kReference: WalkReference(walk, tag); break;
        case Effect::kTitle:
            EndParagraph(walk);
            walk.current.isTitle = !tag.isEnd && !tag.isEmpty;
            break;
        case Effect::kRow:
            EndParagraph(walk);
            walk.current.isRow = !tag.isEnd && !tag.isEmpty;
            break;
        case Effect::kNote:
            if (tag.isEmpty) break;
            walk.blankPending = walk.blankPending || !tag.isEnd;
            if (tag.isEnd) walk.blankPending = false;
            AddText(walk, tag.isEnd ? ")" : "(");
            break;
    }
}

static bool IsBlank(char letter) {
    return letter == ' ' || letter == '\t' || letter == '\n' || letter == '\r';
}

static bool BeginsTag(std::string_view entry) {
    if (entry.size() < 2) return false;
    const char next = entry[1];
    return next == '/' || next == '!' || next == '?' || (next >= 'a' && next <= 'z') || (next >= 'A' && next <= 'Z');
}

// Takes a tag, an entity or a letter from the start of `entry`.
static void Step(Walk& walk, std::string_view& entry) {
    const std::size_t end = BeginsTag(entry) && entry.front() == '<' ? entry.find('>') : std::string_view::npos;
    if (end != std::string_view::npos) {
        WalkTag(walk, TagOf(entry.substr(1, end - 1)));
        entry.remove_prefix(end + 1);
    } else if (entry.front() == '&') {
        AddText(walk, TakeEntity(entry));
    } else {
        if (IsBlank(entry.front()))
            walk.blankPending = true;
        else
            AddText(walk, entry.substr(0, 1));
        entry.remove_prefix(1);
    }
}

std::vector<Paragraph> ParagraphsOf(std::string_view entry) {
    Walk walk;
    while (!entry.empty()) Step(walk, entry);
    EndParagraph(walk);
    return walk.paragraphs;
}
