#include "cli/printer.h"

#include <algorithm>
#include <nlohmann/json.hpp>

#include "scripture/latin_letters.h"

static constexpr std::size_t kBlock = 65536;

bool HasEnded(const Printer& printer) {
    return printer.written != Written::kAll;
}

void Flush(Printer& printer) {
    const Surroundings& surroundings = printer.surroundings;
    if (!HasEnded(printer) && !printer.buffer.empty())
        printer.written = surroundings.write(surroundings.device, Stream::kOutput, printer.buffer);
    printer.buffer.clear();
}

static void FlushIfLarge(Printer& printer) {
    if (printer.buffer.size() >= kBlock) Flush(printer);
}

void Print(Printer& printer, std::string_view utf8) {
    printer.buffer += utf8;
    FlushIfLarge(printer);
}

void PrintObject(Printer& printer, const nlohmann::ordered_json& object) {
    Print(printer, object.dump(-1, ' ', false, nlohmann::ordered_json::error_handler_t::replace) + "\n");
}

// ---- Styles ---------------------------------------------------------------------------------------------------------

// Changes the style of what follows. A new one begins from none, so that terminals which lack italics show no others.
static void PrintStyle(Printer& printer, TextStyle& now, TextStyle next) {
    if (now == next) return;
    if (printer.colors && now != kPlain) printer.buffer += "\x1b[0m";
    if (printer.colors && (next & kReference) != 0) printer.buffer += "\x1b[1m";
    if (printer.colors && (next & kSupplied) != 0) printer.buffer += "\x1b[3m";
    if (printer.colors && (next & kKeyWord) != 0) printer.buffer += "\x1b[1;31m";
    now = next;
}

static bool IsAscii(char32_t letter) {
    return letter < 0x80;
}

// Almost all letters are ASCII, so they are converted many at once.
static void AppendLetters(std::u32string_view letters, std::string& utf8) {
    while (!letters.empty()) {
        const auto other = std::ranges::find_if_not(letters, IsAscii);
        const std::size_t before = utf8.size();
        utf8.resize(before + static_cast<std::size_t>(other - letters.begin()));
        std::transform(letters.begin(), other, utf8.begin() + static_cast<std::ptrdiff_t>(before),
                       [](char32_t letter) { return static_cast<char>(letter); });
        letters.remove_prefix(static_cast<std::size_t>(other - letters.begin()));
        if (letters.empty()) return;
        AppendUtf8(letters.front(), utf8);
        letters.remove_prefix(1);
    }
}

static void PrintStretch(Printer& printer, const StyledText& text, std::size_t begin, std::size_t end) {
    TextStyle style = kPlain;
    auto run = std::ranges::upper_bound(text.runs, begin, {}, &StyledRun::end);
    for (std::size_t at = begin; at < end && run != text.runs.end(); ++run) {
        const std::size_t stop = std::min(run->end, end);
        PrintStyle(printer, style, run->style);
        AppendLetters(std::u32string_view(text.letters).substr(at, stop - at), printer.buffer);
        at = stop;
    }
    PrintStyle(printer, style, kPlain);
}

// The end of the line that begins at `begin` and may reach to `end`: the last blank that leaves it narrow enough, or
// the first one if a word is wider.
static std::size_t EndOfLine(std::u32string_view text, std::size_t begin, std::size_t end, std::size_t width) {
    if (end - begin <= width) return end;
    const std::size_t last = text.rfind(U' ', begin + width);
    if (last != text.npos && last > begin) return last;
    return std::min(text.find(U' ', begin + 1), end);
}

static void PrintLine(Printer& printer, const StyledText& text, std::size_t begin, std::size_t end) {
    const std::size_t width = printer.width > 0 ? static_cast<std::size_t>(printer.width) : end - begin;
    while (true) {
        const std::size_t stop = EndOfLine(text.letters, begin, end, width);
        PrintStretch(printer, text, begin, stop);
        if (stop == end) return;
        printer.buffer += '\n';
        begin = stop + 1;
    }
}

void PrintStyled(Printer& printer, const StyledText& text) {
    for (std::size_t begin = 0; begin < text.letters.size() && !HasEnded(printer);) {
        const std::size_t end = std::min(text.letters.find(U'\n', begin), text.letters.size());
        PrintLine(printer, text, begin, end);
        if (end < text.letters.size()) printer.buffer += '\n';
        begin = end + 1;
        FlushIfLarge(printer);
    }
}

void PrintText(Printer& printer, const std::string& utf8) {
    if (printer.width == 0) return Print(printer, utf8);
    StyledText text;
    AppendUtf8Styled(text, utf8, kPlain);
    PrintStyled(printer, text);
}

void PrintMarked(Printer& printer, std::string_view marked, ShownBrackets brackets) {
    if (!printer.colors && printer.width == 0) {
        AppendPlain(printer.buffer, marked, brackets);
        FlushIfLarge(printer);
        return;
    }
    StyledText text;
    AppendStyled(text, marked, brackets);
    PrintStyled(printer, text);
}
