// Separate from the status bar, which needs Windows, so that it can be tested with a ruler of its own.
#include "pane/fitted_text.h"

#include "scripture/books.h"
#include "scripture/letters.h"

static constexpr char kEllipsis[] = "...";

static bool Fits(const std::string& text, int room, const TextRuler& ruler) {
    return ruler.width(ruler.device, text) <= room;
}

// ---- Shorter forms --------------------------------------------------------------------------------------------------

// The book whose name `text` begins with, before a number; 0 if there is none.
static int BookBefore(std::string_view text) {
    for (int book = 1; book <= kBookCount; ++book) {
        const std::string_view name = BookName(book);
        const bool isNamed = text.starts_with(name) && text.substr(name.size()).starts_with(' ');
        if (isNamed && text.size() > name.size() + 1 && IsDigit(text[name.size() + 1])) return book;
    }
    return 0;
}

static std::string WithAbbreviations(std::string_view text) {
    std::string shorter;
    for (bool isWordStart = true; !text.empty();) {
        const int book = isWordStart ? BookBefore(text) : 0;
        isWordStart = text.front() == ' ';
        if (book == 0) shorter += text.front();
        if (book != 0) shorter += BookAbbreviation(book);
        text.remove_prefix(book == 0 ? 1 : std::string_view(BookName(book)).size());
    }
    return shorter;
}

static std::string WithoutBlanksAroundDash(std::string text) {
    static constexpr std::string_view kDash = " - ";
    const std::size_t dash = text.find(kDash);
    return dash == std::string::npos ? text : text.replace(dash, kDash.size(), "-");
}

// Of a text that is a reference, what is left to tell if there is no room for the book; otherwise the text itself.
static std::string_view PlaceInBook(std::string_view text) {
    const int book = BookBefore(text);
    const std::size_t place = book == 0 ? 0 : std::string_view(BookName(book)).size() + 1;
    return text.find(' ', place) == std::string_view::npos ? text.substr(place) : text;
}

// ---- Cut texts ------------------------------------------------------------------------------------------------------

// A number that is cut would be another number.
static std::size_t WithoutPartOfNumber(std::string_view text, std::size_t letters) {
    if (letters >= text.size() || !IsDigit(text[letters])) return letters;
    while (letters > 0 && IsDigit(text[letters - 1])) --letters;
    return letters;
}

static std::string Cut(std::string_view text, std::size_t letters) {
    const std::size_t last = text.substr(0, WithoutPartOfNumber(text, letters)).find_last_not_of(' ');
    return std::string(text.substr(0, last + 1)) + kEllipsis;  // npos + 1 is 0
}

static std::string CutToRoom(const std::string& text, int room, const TextRuler& ruler) {
    std::size_t fits = 0, tooMany = text.size() + 1;
    while (tooMany - fits > 1) {
        const std::size_t middle = fits + (tooMany - fits) / 2;
        (Fits(Cut(text, middle), room, ruler) ? fits : tooMany) = middle;
    }
    return Cut(text, fits);
}

std::string FittedText(std::string_view text, int room, const TextRuler& ruler) {
    const std::string whole(text);
    if (Fits(whole, room, ruler)) return whole;
    const std::string brief = WithAbbreviations(text);
    if (Fits(brief, room, ruler)) return brief;
    const std::string_view place = PlaceInBook(text);
    const std::string briefest = place == text ? WithoutBlanksAroundDash(brief) : std::string(place);
    return Fits(briefest, room, ruler) ? briefest : CutToRoom(briefest, room, ruler);
}
