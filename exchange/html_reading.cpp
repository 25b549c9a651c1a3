#include "exchange/html_reading.h"

#include <algorithm>

#include "exchange/file_text.h"
#include "exchange/headed_notes.h"
#include "exchange/html_tokens.h"
#include "exchange/placing.h"

namespace {

// A page while it is read.
struct PageReader {
    const ExchangeContext& context;
    ExchangedNotes& notes;
    std::size_t line = 1;
    bool hasSet = false;  // the page was exported, so that its first heading is the name of the set

    bool hasNote = false;       // a note has begun
    FoundNote note{};           // its text comes last
    bool isMarked = false;      // it has an element of its own
    std::string body{};         // the text of the element of the class "note"
    bool hasBody = false;       // there is or was such an element
    std::string bodyElement{};  // its name while it is open
    bool isAtStart = false;     // directly behind a <pre>, where a line end is none of the text
    std::string loose{};        // the other text of the note

    bool isInHeading = false;
    std::string heading{};
    std::string hiddenElement{};  // an element of the class "verse" while it is open
    std::size_t depth = 0;        // of elements of the same name in the open one
};

}  // namespace

// ---- Texts ----------------------------------------------------------------------------------------------------------

static bool IsHeading(const HtmlTag& tag) {
    return tag.name.size() == 2 && tag.name[0] == 'h' && tag.name[1] >= '1' && tag.name[1] <= '6';
}

static bool IsBlock(const HtmlTag& tag) {
    static constexpr std::string_view kBlocks[] = {"p",   "div", "li", "ul",      "ol",      "tr",         "table",
                                                   "pre", "dd",  "dt", "section", "article", "blockquote", "hr"};
    return IsHeading(tag) || std::ranges::find(kBlocks, tag.name) != std::end(kBlocks);
}

static void BreakLine(std::string& text) {
    if (!text.empty() && text.back() != '\n') text += '\n';
}

// Adds text in which blanks and line ends are one blank.
static void AppendShown(std::string_view shown, std::string& text) {
    for (const char c : shown) {
        const bool isBlank = c == ' ' || c == '\t' || c == '\n';
        if (!isBlank)
            text += c;
        else if (!text.empty() && text.back() != ' ' && text.back() != '\n')
            text += ' ';
    }
}

// Without blanks at the ends of lines.
static std::string ShownLines(std::string_view text) {
    std::string lines;
    for (const std::string_view line : LinesOf(Trimmed(text))) {
        if (!lines.empty()) lines += '\n';
        lines += Trimmed(line);
    }
    return lines;
}

// ---- Notes ----------------------------------------------------------------------------------------------------------

static void EndNote(PageReader& reader) {
    if (reader.hasNote) {
        reader.note.text = reader.hasBody ? std::move(reader.body) : ShownLines(reader.loose);
        Place(reader.context.page, std::move(reader.note), reader.notes);
    }
    reader.hasNote = reader.hasBody = false;
    reader.note = {};
    reader.body.clear();
    reader.loose.clear();
    reader.bodyElement.clear();
    reader.hiddenElement.clear();
}

static void BeginNote(PageReader& reader, std::string_view where, std::string_view mark, bool isMarked) {
    EndNote(reader);
    const std::string_view name = Trimmed(where);
    reader.note = {reader.line, std::string(name), VerseNamed(reader.context.scripture.records, name), MarkOf(mark),
                   ""};
    reader.hasNote = true;
    reader.isMarked = isMarked;
}

// A heading within the element of a note repeats its verse. Other ones begin a note if they name a verse.
static void EndHeading(PageReader& reader) {
    reader.isInHeading = false;
    const std::string_view where = Trimmed(reader.heading);
    const VerseName verse = VerseNamed(reader.context.scripture.records, where);
    const bool repeats = reader.hasNote && reader.isMarked && !reader.hasBody;
    if (verse.problem == kNoVerseNamed) {
        AppendShown(reader.heading, reader.loose);
    } else if (!repeats) {
        BeginNote(reader, where, "", false);
    } else if (verse.verse != reader.note.verse.verse) {
        reader.note.verse = {kNoVerse, "The heading names another verse than the page does."};
    }
}

// ---- Tags -----------------------------------------------------------------------------------------------------------

// Follows the element `open`, which ends with the tag of its own end.
static void FollowElement(PageReader& reader, const HtmlTag& tag, std::string& open) {
    if (tag.name != open) return;
    if (!tag.isEnd)
        ++reader.depth;
    else if (reader.depth-- == 0)
        open.clear();
}

static void OpenElement(PageReader& reader, const HtmlTag& tag, std::string& open) {
    open = tag.name;
    reader.depth = 0;
}

static void TakeTagOfBody(PageReader& reader, const HtmlTag& tag) {
    reader.isAtStart = false;
    if (tag.name == "br") reader.body += '\n';
    if (!tag.isEnd && IsBlock(tag)) BreakLine(reader.body);
    if (tag.isEnd && (tag.name == "article" || tag.name == "body"))
        reader.bodyElement.clear();  // its own end is missing
    else
        FollowElement(reader, tag, reader.bodyElement);
}

static void TakeOtherTag(PageReader& reader, const HtmlTag& tag) {
    if (!reader.hiddenElement.empty()) {
        FollowElement(reader, tag, reader.hiddenElement);
    } else if (IsHeading(tag)) {
        if (tag.isEnd && reader.isInHeading) EndHeading(reader);
        reader.isInHeading = !tag.isEnd && !(reader.hasSet && tag.name == "h1");
        reader.heading.clear();
    } else if (reader.hasNote && !tag.isEnd && !reader.hasBody && HasClass(tag, "note")) {
        reader.hasBody = true;
        reader.isAtStart = tag.name == "pre";
        OpenElement(reader, tag, reader.bodyElement);
    } else if (reader.hasNote && !tag.isEnd && HasClass(tag, "verse")) {
        OpenElement(reader, tag, reader.hiddenElement);
    } else if (tag.name == "br") {
        reader.loose += '\n';
    } else if (IsBlock(tag)) {
        BreakLine(reader.loose);
    }
}

static void TakeTag(PageReader& reader, const HtmlTag& tag) {
    const std::string* set = AttributeOf(tag, "data-set");
    const std::string* verse = AttributeOf(tag, "data-verse");
    const std::string* mark = AttributeOf(tag, "data-mark");
    if (set != nullptr) reader.hasSet = true;
    if (set != nullptr) reader.notes.setName = NameOfSet(reader.context.page, Trimmed(*set));
    if (verse != nullptr)
        BeginNote(reader, *verse, mark != nullptr ? *mark : "", true);
    else if (!reader.bodyElement.empty())
        TakeTagOfBody(reader, tag);
    else
        TakeOtherTag(reader, tag);
}

static void TakeText(PageReader& reader, std::string_view text) {
    if (!reader.bodyElement.empty()) {
        if (reader.isAtStart && text.starts_with('\n')) text.remove_prefix(1);
        reader.isAtStart = false;
        reader.body += text;
    } else if (reader.isInHeading) {
        reader.heading += text;
    } else if (reader.hiddenElement.empty() && reader.hasNote) {
        AppendShown(text, reader.loose);
    }
}

ExchangedNotes ReadHtmlNotes(const ExchangeContext& context, std::string_view bytes) {
    const std::string text = TextOfFile(context.page, bytes);
    ExchangedNotes notes;
    PageReader reader{context, notes};
    std::string_view rest = text;
    HtmlToken token;
    ExchangeSteps steps{context, text.size()};
    for (std::string_view before = rest; TakeToken(rest, token); before = rest) {
        if (token.isTag)
            TakeTag(reader, token.tag);
        else
            TakeText(reader, token.text);
        const std::string_view taken = before.substr(0, before.size() - rest.size());
        reader.line += static_cast<std::size_t>(std::ranges::count(taken, '\n'));
        if (!GoesOn(steps, taken.size())) return notes;
    }
    if (!reader.bodyElement.empty()) reader.note.verse = {kNoVerse, "The page ends before this note does."};
    EndNote(reader);
    FinishPlacing(context.scripture.records, notes);
    return notes;
}
