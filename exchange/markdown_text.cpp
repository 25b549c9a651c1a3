#include "exchange/markdown_text.h"

#include <algorithm>

#include "scripture/letters.h"

static constexpr std::string_view kBreak = "  ";

// ---- Writing --------------------------------------------------------------------------------------------------------

static bool IsPunctuation(char c) {
    return c > ' ' && c < '\x7F' && !IsLetterOrDigit(c);
}

namespace {

// A character in its line.
struct LinePlace {
    std::string_view line;
    std::size_t at = 0;
};

}  // namespace

static char CharacterAt(std::string_view line, std::size_t at) {
    return at < line.size() ? line[at] : '\0';
}

static bool IsOneOf(char c, std::string_view characters) {
    return c != '\0' && characters.find(c) != std::string_view::npos;
}

static bool IsFirstInLine(const LinePlace& place) {
    return place.line.find_first_not_of(" \t") == place.at;
}

// A sign and a blank at the beginning of a line with words.
static bool IsBullet(const LinePlace& place) {
    return IsFirstInLine(place) && CharacterAt(place.line, place.at + 1) == ' ' &&
           std::ranges::any_of(place.line, IsLetterOrDigit);
}

static bool NeedsBackslash(const LinePlace& place) {
    const char next = CharacterAt(place.line, place.at + 1);
    switch (place.line[place.at]) {
        case '\\': return next == '\0' || IsPunctuation(next);
        case '_':
        case '`':
        case '~': return true;
        case '*': return !IsBullet(place);
        case '<': return IsLetter(next) || IsOneOf(next, "/!?");
        case '&': return IsLetter(next) || next == '#';
        case ']': return IsOneOf(next, "([:");
        case '-':
        case '+': return IsFirstInLine(place) && !IsBullet(place);
        case '#':
        case '>':
        case '=':
        case '|': return IsFirstInLine(place);
        default: return false;
    }
}

static void AppendLine(std::string_view line, std::string& file) {
    static constexpr std::string_view kSigns = "\\_`~*<&]-+#>=|";
    std::size_t done = 0;
    for (std::size_t at = line.find_first_of(kSigns); at < line.size(); at = line.find_first_of(kSigns, at + 1)) {
        if (!NeedsBackslash({line, at})) continue;
        file.append(line.substr(done, at - done)) += '\\';
        done = at;
    }
    file.append(line.substr(done));
}

void AppendMarkdown(std::string_view text, std::string& file) {
    for (;;) {
        const std::size_t end = text.find('\n');
        const std::string_view line = text.substr(0, end);
        AppendLine(line, file);
        if (end == std::string_view::npos) break;
        text.remove_prefix(end + 1);
        const bool goesOn = !line.empty() && !text.empty() && text.front() != '\n';
        file.append(goesOn ? kBreak : "").append("\r\n");
    }
    file += "\r\n";
}

// ---- Reading --------------------------------------------------------------------------------------------------------

static void AppendPlain(std::string_view line, std::string& text) {
    for (std::size_t at = line.find('\\'); at != std::string_view::npos; at = line.find('\\')) {
        const char next = CharacterAt(line, at + 1);
        text.append(line.substr(0, at));
        if (!IsPunctuation(next)) text += '\\';
        line.remove_prefix(at + 1);
        if (!IsPunctuation(next)) continue;
        text += next;
        line.remove_prefix(1);
    }
    text.append(line);
}

// Does the line end in a backslash that is not itself behind one?
static bool EndsInBackslash(std::string_view line) {
    const std::size_t last = line.find_last_not_of('\\');
    const std::size_t count = line.size() - (last == std::string_view::npos ? 0 : last + 1);
    return count % 2 == 1;
}

static std::string_view WithoutBreak(std::string_view line) {
    if (line.ends_with(kBreak)) return line.substr(0, line.size() - kBreak.size());
    return EndsInBackslash(line) ? line.substr(0, line.size() - 1) : line;
}

std::string TextOfMarkdown(std::span<const std::string_view> lines) {
    std::string text;
    for (std::size_t i = 0; i < lines.size(); ++i) {
        const bool goesOn = i + 1 < lines.size() && !lines[i].empty() && !lines[i + 1].empty();
        if (i > 0) text += '\n';
        AppendPlain(goesOn ? WithoutBreak(lines[i]) : lines[i], text);
    }
    return text;
}
