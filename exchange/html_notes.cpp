#include "exchange/html_notes.h"

#include <algorithm>
#include <vector>

#include "exchange/headed_notes.h"
#include "exchange/html_tokens.h"
#include "exchange/note_links.h"
#include "exchange/portable_text.h"
#include "exchange/verse_names.h"
#include "scripture/books.h"
#include "scripture/scripture.h"
#include "typeset/html_text.h"

static constexpr char kStyle[] = R"(
:root { color-scheme: light dark; }
body { max-width: 44em; margin: 0 auto; padding: 1em; font-family: Georgia, serif; line-height: 1.5; }
nav ul { columns: 12em; padding-left: 1em; list-style: none; }
h2 { margin-top: 2em; border-bottom: 1px solid; }
h3 a { color: inherit; text-decoration: none; }
.verse { margin: 0.5em 1.5em; opacity: 0.8; }
.note { white-space: pre-wrap; overflow-wrap: anywhere; font: inherit; }
.note span { border-bottom: 1px dotted; }
@media (prefers-color-scheme: dark) { body { background: #1c1c1c; color: #e4e4e4; } a { color: #8ab4f8; } }
@media print { nav { display: none; } body { max-width: none; } h2, h3 { break-after: avoid; } a { color: inherit; } }
)";

namespace {

// A page while it is written.
struct Page {
    const ExchangeContext& context;
    const ExchangedNotes& notes;
    const ExportOptions& options;
    Chapters chapters;
    std::string html{};
};

}  // namespace

static int BookOf(const Page& page, const ExchangedNote& note) {
    return RecordOf(page.context.scripture.records, note.verse).book;
}

// ---- The beginning --------------------------------------------------------------------------------------------------

static std::string Counted(std::size_t notes) {
    return std::to_string(notes) + (notes == 1 ? " note" : " notes");
}

static void AddHead(Page& page, const std::string& title) {
    page.html +=
        "<!DOCTYPE html>\n<html lang=\"en\">\n<head>\n<meta charset=\"utf-8\">\n"
        "<meta name=\"viewport\" content=\"width=device-width\">\n<title>";
    AppendHtmlText(title, page.html);
    page.html.append("</title>\n<style>").append(kStyle).append("</style>\n</head>\n<body data-set=\"");
    AppendHtmlText(title, page.html);
    page.html += "\">\n<h1>";
    AppendHtmlText(title, page.html);
    page.html.append("</h1>\n<p>").append(Counted(page.notes.notes.size())).append("</p>\n");
}

static void AddContents(Page& page) {
    std::vector<std::size_t> counts(std::size_t{kBookCount} + 1);
    for (const ExchangedNote& note : page.notes.notes) ++counts[static_cast<std::size_t>(BookOf(page, note))];
    page.html += "<nav>\n<ul>\n";
    for (int book = 1; book <= kBookCount; ++book) {
        const std::size_t count = counts[static_cast<std::size_t>(book)];
        if (count == 0) continue;
        page.html.append("<li><a href=\"#").append(BookAnchor(book)).append("\">").append(BookName(book));
        page.html.append("</a> ").append(std::to_string(count)).append("</li>\n");
    }
    page.html += "</ul>\n</nav>\n";
}

// ---- Notes ----------------------------------------------------------------------------------------------------------

// The first verse of the link that has a note on the page; kNoVerse if there is none.
static int VerseOnPage(const Page& page, const TextReference& link) {
    const auto found = std::ranges::lower_bound(page.notes.notes, link.first, {}, &ExchangedNote::verse);
    return found != page.notes.notes.end() && found->verse <= link.last ? found->verse : kNoVerse;
}

// The text without the marks of paragraphs and supplied words.
static std::string PlainVerse(const Scripture& scripture, int verse) {
    std::string text(VerseText(scripture, verse));
    std::erase_if(text, [](char c) { return c == kParagraphMark || c == '[' || c == ']'; });
    return text;
}

static void AddLink(Page& page, const TextReference& link, std::string_view text) {
    const Scripture& scripture = page.context.scripture;
    const int verse = VerseOnPage(page, link);
    if (verse != kNoVerse) {
        page.html.append("<a href=\"#").append(VerseAnchor(scripture.records, verse)).append("\">");
        AppendHtmlText(text, page.html);
        page.html += "</a>";
        return;
    }
    page.html += "<span title=\"";
    AppendHtmlText(ReferenceText(scripture.records, link.first, BookForm::kName) + ' ', page.html);
    AppendHtmlText(PlainVerse(scripture, link.first), page.html);
    page.html += "\">";
    AppendHtmlText(text, page.html);
    page.html += "</span>";
}

static void AddText(Page& page, int verse, const PortableText& text) {
    std::vector<TextReference> links;
    if (!text.isEscaped) links = LinksOfNote(page.context.scripture.records, page.chapters, verse, text.text);
    const std::string_view all = text.text;
    std::size_t done = 0;
    if (all.starts_with('\n')) page.html += '\n';  // the first one is none of the text
    for (const TextReference& link : links) {
        AppendHtmlText(all.substr(done, link.begin - done), page.html);
        AddLink(page, link, all.substr(link.begin, link.size));
        done = link.begin + link.size;
    }
    AppendHtmlText(all.substr(done), page.html);
}

static void AddVerse(Page& page, int verse) {
    std::string_view text = VerseText(page.context.scripture, verse);
    if (BeginsParagraph(text)) text.remove_prefix(1);
    page.html += "<p class=\"verse\">";
    page.html += HtmlOfVerses(text, HtmlBrackets::kAsItalics);
    page.html += "</p>\n";
}

static void AddNote(Page& page, const ExchangedNote& note) {
    const VerseRecords& records = page.context.scripture.records;
    const PortableText text = PortableTextOf(page.context.page, note.note);
    const std::string reference = ReferenceText(records, note.verse, BookForm::kName);
    const std::string anchor = VerseAnchor(records, note.verse);
    page.html.append("<article id=\"").append(anchor).append("\" data-verse=\"").append(reference);
    page.html.append("\" data-mark=\"").append(MarkText({note.digest, text.isEscaped}));
    page.html.append("\">\n<h3><a href=\"#").append(anchor).append("\">").append(reference).append("</a></h3>\n");
    if (page.options.hasVerseTexts) AddVerse(page, note.verse);
    page.html += "<pre class=\"note\">";
    AddText(page, note.verse, text);
    page.html += "</pre>\n</article>\n";
}

static void BeginBook(Page& page, int book) {
    page.html.append("<section id=\"").append(BookAnchor(book)).append("\">\n<h2>");
    page.html.append(BookName(book)).append("</h2>\n");
}

std::string WriteHtmlNotes(const ExchangeContext& context, const ExchangedNotes& notes, const ExportOptions& options) {
    Page page{context, notes, options, ChaptersOf(context.scripture.records)};
    AddHead(page, PortableName(context.page, notes.setName));
    AddContents(page);
    int book = 0;
    ExchangeSteps steps{context, notes.notes.size()};
    for (const ExchangedNote& note : notes.notes) {
        if (!GoesOn(steps)) return {};
        if (BookOf(page, note) != book) {
            if (book != 0) page.html += "</section>\n";
            book = BookOf(page, note);
            BeginBook(page, book);
        }
        AddNote(page, note);
    }
    if (book != 0) page.html += "</section>\n";
    page.html += "</body>\n</html>\n";
    return std::move(page.html);
}
