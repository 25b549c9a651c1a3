#include "exchange/markdown_notes.h"

#include <algorithm>
#include <optional>

#include "exchange/file_text.h"
#include "exchange/headed_notes.h"
#include "exchange/markdown_text.h"

static constexpr std::string_view kTitleComment = "<!-- notes -->";  // of files without an end mark
static constexpr std::string_view kShallEnd = "<!-- notes, to the end mark -->";
static constexpr std::string_view kEnd = "<!-- end mark -->";
static constexpr std::string_view kCommentBegin = "<!--", kCommentEnd = "-->";

// ---- Writing --------------------------------------------------------------------------------------------------------

std::string WriteMarkdownNotes(const ExchangeContext& context, const ExchangedNotes& notes, const ExportOptions&) {
    std::string file;
    file.append("# ").append(PortableName(context.page, notes.setName)).append(" ").append(kShallEnd);
    file += "\r\n\r\n";
    ExchangeSteps steps{context, notes.notes.size()};
    for (const ExchangedNote& note : notes.notes) {
        if (!GoesOn(steps)) return {};
        const PortableText text = PortableTextOf(context.page, note.note);
        file.append("## ").append(ReferenceText(context.scripture.records, note.verse, BookForm::kName));
        const std::string mark = MarkText({note.digest, text.isEscaped});
        if (!mark.empty()) file.append(" <!-- ").append(mark).append(" -->");
        file += "\r\n\r\n";
        AppendMarkdown(text.text, file);
        file += "\r\n";
    }
    return file.append(kEnd).append("\r\n");
}

// ---- Reading --------------------------------------------------------------------------------------------------------

namespace {

struct MarkdownHeading {
    std::size_t level = 0;  // 1 to 6
    std::string_view text, comment;
};

}  // namespace

static std::optional<MarkdownHeading> MarkdownHeadingOf(std::string_view line) {
    static constexpr std::size_t kMostBlanks = 3, kMostLevels = 6;
    const std::size_t blanks = std::min(line.find_first_not_of(' '), line.size());
    if (blanks > kMostBlanks) return std::nullopt;
    line.remove_prefix(blanks);
    const std::size_t level = std::min(line.find_first_not_of('#'), line.size());
    if (level == 0 || level > kMostLevels) return std::nullopt;
    if (level < line.size() && line[level] != ' ' && line[level] != '\t') return std::nullopt;
    line.remove_prefix(level);
    MarkdownHeading heading{level, {}, {}};
    const std::size_t comment = line.find(kCommentBegin);
    heading.text = Trimmed(line.substr(0, comment));
    if (comment != std::string_view::npos) {
        const std::string_view rest = line.substr(comment + kCommentBegin.size());
        heading.comment = Trimmed(rest.substr(0, rest.find(kCommentEnd)));
    }
    return heading;
}

// A heading may have its signs behind it, too.
static std::string_view WithoutClosingSigns(std::string_view text) {
    const std::size_t last = text.find_last_not_of('#');
    return last == std::string_view::npos ? "" : Trimmed(text.substr(0, last + 1));
}

static void FindHeadings(const VerseRecords& records, HeadedLines& file) {
    std::size_t noteLevel = 0;
    for (std::size_t place = file.first; place < file.lines.size(); ++place) {
        if (file.shallEnd && Trimmed(file.lines[place]) == kEnd) file.headings.push_back(EndMarkAt(place));
        const auto heading = MarkdownHeadingOf(file.lines[place]);
        if (!heading) continue;
        const std::string_view where = WithoutClosingSigns(heading->text);
        const VerseName verse = VerseNamed(records, where);
        const bool isNote = verse.problem != kNoVerseNamed;
        if (noteLevel != 0 && !isNote && heading->level > noteLevel) continue;
        if (noteLevel == 0 && isNote) noteLevel = heading->level;
        file.headings.push_back({place, std::string(where), verse, MarkOf(heading->comment)});
    }
}

// The writer leaves an empty line above and below the text.
static std::string TextOf(std::span<const std::string_view> lines) {
    if (!lines.empty() && lines.front().empty()) lines = lines.subspan(1);
    if (!lines.empty() && lines.back().empty()) lines = lines.first(lines.size() - 1);
    return TextOfMarkdown(lines);
}

static void ReadTitle(const CodePage& page, HeadedLines& file, ExchangedNotes& notes) {
    std::string_view title = file.lines.empty() ? "" : file.lines.front();
    file.shallEnd = title.ends_with(kShallEnd);
    if (!title.starts_with("# ") || !(file.shallEnd || title.ends_with(kTitleComment))) return;
    title.remove_suffix((file.shallEnd ? kShallEnd : kTitleComment).size());
    notes.setName = NameOfSet(page, Trimmed(title.substr(1)));
    file.first = 1;
}

ExchangedNotes ReadMarkdownNotes(const ExchangeContext& context, std::string_view bytes) {
    const std::string text = TextOfFile(context.page, bytes);
    ExchangedNotes notes;
    HeadedLines file{LinesOf(text), 0, {}, false};
    ReadTitle(context.page, file, notes);
    FindHeadings(context.scripture.records, file);
    PlaceHeaded(context, file, TextOf, notes);
    return notes;
}
