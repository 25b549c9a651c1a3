#include "cli/shown_notes.h"

#include <algorithm>

#include "cli/note_objects.h"

// ---- The letters ----------------------------------------------------------------------------------------------------

// A lone CR ends a line, too; that before a LF is left out later.
static std::u16string LettersWithLineEnds(const CodePage& page, const std::string& note) {
    std::u16string letters = LettersOfNote(page, note);
    for (std::size_t at = 0; at < letters.size(); ++at)
        if (letters[at] == u'\r' && (at + 1 == letters.size() || letters[at + 1] != u'\n')) letters[at] = u'\n';
    return letters;
}

StyledText ShownNote(const OpenedNotes& notes, const std::string& note, std::span<const NoteMatch> matches) {
    const CodePage& page = notes.files.codePage;
    const std::u16string letters = LettersWithLineEnds(page, note);
    StyledText text;
    std::size_t done = 0;
    const auto appendUntil = [&](std::size_t end, TextStyle style) {
        if (end <= done) return;
        AppendUtf8Styled(text, Utf8Of(std::u16string_view(letters).substr(done, end - done)), style);
        done = end;
    };
    for (const NoteMatch& match : matches) {
        appendUntil(LettersBefore(page, note, match.offset), kPlain);
        appendUntil(LettersBefore(page, note, match.offset + match.size), kKeyWord);
    }
    appendUntil(letters.size(), kPlain);
    return text;
}

// ---- Output ---------------------------------------------------------------------------------------------------------

void PrintWholeNote(Vw& vw, const OpenedNotes& notes, const NoteSet& set, const VerseRecords& records, int verse,
                    const StyledText& text) {
    if (vw.options.json) return PrintNoteObject(vw, notes, set, records, verse, text);
    StyledText styled;
    AppendUtf8Styled(styled, ReferenceText(records, verse, BookForm::kName) + ", " + Utf8Name(notes, set), kReference);
    AppendUtf8Styled(styled, "\n", kPlain);
    AppendPart(styled, text, 0, text.letters.size());
    AppendUtf8Styled(styled, "\n\n", kPlain);
    PrintStyled(vw.printer, styled);
}

static bool HasMark(const std::vector<std::pair<std::size_t, std::size_t>>& marks, std::size_t begin, std::size_t end) {
    return std::ranges::any_of(marks, [&](const auto& mark) { return mark.first < end && begin < mark.second; });
}

static StyledText BeginLine(const std::string& set, const std::string& reference, HeadOfLine head) {
    StyledText line;
    if (head == HeadOfLine::kSetFirst) AppendUtf8Styled(line, set + ": ", kPlain);
    AppendUtf8Styled(line, reference, kReference);
    AppendUtf8Styled(line, head == HeadOfLine::kSetFirst ? " " : " " + set + ": ", kPlain);
    return line;
}

void PrintLinesOfNote(Vw& vw, const OpenedNotes& notes, const NoteSet& set, const VerseRecords& records, int verse,
                      const StyledText& text, HeadOfLine head) {
    const auto marks = StretchesOf(text, kKeyWord);
    for (std::size_t begin = 0; begin <= text.letters.size();) {
        const std::size_t end = std::min(text.letters.find(U'\n', begin), text.letters.size());
        if (marks.empty() || HasMark(marks, begin, end)) {
            StyledText line =
                BeginLine(Utf8Name(notes, set), ReferenceText(records, verse, BookForm::kAbbreviation), head);
            AppendPart(line, text, begin, end);
            AppendUtf8Styled(line, "\n", kPlain);
            PrintStyled(vw.printer, line);
        }
        if (marks.empty()) return;
        begin = end + 1;
    }
}
