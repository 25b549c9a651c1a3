// Verses as they leave the program, copied and saved, with any format, range, list, notes and budget. Lines of an
// input: the six format options; the range, the budget and the write that fails; the list; then verses ("1 1 1 text")
// and notes on the verse before ("*note", "+3000" for as many times its text, "!" for one that cannot be read).
#include <algorithm>
#include <string>

#include "notes/note_letters.h"
#include "output/copy_text.h"
#include "output/rendering.h"
#include "output/save_text.h"
#include "scripture/latin_letters.h"
#include "tests/fuzz/fuzz.h"
#include "tests/support/hand_made_scripture.h"
#include "tests/support/html_reader.h"
#include "tests/support/notes_by_verse.h"

struct OutputCase {
    FormatOptions format;
    int first = 0, last = 0;
    std::size_t budget = 0;
    int failingWrite = 0;  // counted from 1; 0: none
    std::vector<std::int32_t> list;
    NotesByVerse notes;
    HandMadeFiles files;
    Scripture scripture;
};

static constexpr char kUnreadableMark[] = "!";
static constexpr std::size_t kNoLimit = 100000000;

// ---- The input ------------------------------------------------------------------------------------------------------

static FormatOptions FormatOf(std::string_view line) {
    FormatOptions format;
    for (std::int8_t* const option : {&format.FirstVerseStyle, &format.SubsequentVerseStyle, &format.Location})
        *option = static_cast<std::int8_t>(TakeNumber(line, -128, 127));
    for (int* const option : {&format.LineBreaks, &format.ParagraphMarks, &format.Brackets})
        *option = TakeNumber(line, -1, 2);
    return format;
}

static std::string Repeated(const std::string& text, int times) {
    static constexpr std::size_t kLongest = 65536;
    std::string repeated;
    for (int i = 0; i < times && repeated.size() < kLongest; ++i) repeated += text;
    return repeated.substr(0, kLongest);
}

static void AddLine(OutputCase& output, std::string_view line, int& verse) {
    if (line.starts_with('*')) {
        output.notes[verse] = line.substr(1);
        return;
    }
    if (line.starts_with(kUnreadableMark)) {
        output.notes[verse] = kUnreadableNote;
        return;
    }
    if (line.starts_with('+')) {
        output.notes[verse] = Repeated(output.notes[verse], TakeNumber(line, 1, 65536));
        return;
    }
    const int book = TakeNumber(line, 0, 255);
    const int chapter = TakeNumber(line, 0, 255);
    const int number = TakeNumber(line, 0, 255);
    AddVerse(output.files, {book, chapter, number, line.substr(line.starts_with(' ') ? 1 : 0)});
    ++verse;
}

static void ReadOutputCase(OutputCase& output, std::string_view input) {
    output.format = FormatOf(TakeLine(input));
    std::string_view range = TakeLine(input);
    output.first = TakeNumber(range, -1, 200);
    output.last = TakeNumber(range, -1, 200);
    output.budget = static_cast<std::size_t>(TakeNumber(range, 0, 2000000));
    output.failingWrite = TakeNumber(range, 0, 9);
    for (std::string_view list = TakeLine(input); !list.empty();) output.list.push_back(TakeNumber(list, -1, 200));
    for (int verse = -1; !input.empty();) AddLine(output, TakeLine(input), verse);
    output.scripture = ScriptureOf(output.files);
}

// ---- Files and notes ------------------------------------------------------------------------------------------------

struct WrittenText {
    std::string text;
    int writes = 0;
    int failingWrite = 0;
};

static bool WriteText(void* device, std::string_view bytes) {
    WrittenText& written = *static_cast<WrittenText*>(device);
    if (++written.writes == written.failingWrite) return false;
    written.text += bytes;
    return true;
}

// ---- By rules alone -------------------------------------------------------------------------------------------------

static std::string NumbersOf(const VerseRecord& record) {
    return ' ' + std::to_string(record.chapter) + ':' + std::to_string(record.verse);
}

static std::string LabelByHand(const OutputCase& output, int verse, const VerseRecord* before) {
    const VerseRecord record = RecordOf(output.scripture.records, verse);
    const int style = before == nullptr ? output.format.FirstVerseStyle : output.format.SubsequentVerseStyle;
    const std::string full = ' ' + ReferenceText(output.scripture.records, verse, BookForm::kAbbreviation);
    if (style == 0) return full;
    if (style != 1) return "";
    if (before == nullptr) return NumbersOf(record);
    if (record.book != before->book) return full;
    return record.chapter != before->chapter ? NumbersOf(record) : ' ' + std::to_string(record.verse);
}

static std::string WordsByHand(const OutputCase& output, int verse, bool withMark) {
    const std::string text(VerseText(output.scripture, verse));
    if (!text.starts_with(kParagraphMark)) return ' ' + text;
    return (withMark ? " \xB6 " : " ") + text.substr(1);
}

// The pieces of the range. What a later verse leaves out of its label goes by the last one with such a label, and the
// first: only labels that are partial are remembered.
static std::vector<std::string> PiecesByHand(const OutputCase& output) {
    const FormatOptions& format = output.format;
    std::vector<std::string> pieces;
    VerseRecord labelled;
    bool begun = false;
    for (int verse = std::max(output.first, 0); verse <= output.last; ++verse) {
        const VerseRecord record = RecordOf(output.scripture.records, verse);
        if (record.book == 0) continue;
        const std::string label = LabelByHand(output, verse, begun ? &labelled : nullptr);
        if (!begun || format.SubsequentVerseStyle == 1) labelled = record;
        begun = true;
        const std::string words = WordsByHand(output, verse, format.ParagraphMarks != 0);
        pieces.push_back((format.Location == 0 ? label + words : words + label) +
                         (format.LineBreaks != 0 ? "\r\n" : ""));
    }
    return pieces;
}

static std::string Joined(const std::vector<std::string>& pieces) {
    std::string text;
    for (const std::string& piece : pieces) text += piece;
    return text;
}

static std::string AsCopied(const OutputCase& output, std::string text) {
    if (output.format.Brackets == 0) std::erase_if(text, [](char c) { return c == '[' || c == ']'; });
    return text;
}

// ---- Copies ---------------------------------------------------------------------------------------------------------

// As many pieces as the budget has room for, from the first on.
static void CheckBudget(const OutputCase& output, const CopyText& copy, const std::vector<std::string>& pieces) {
    std::string kept;
    std::size_t count = 0;
    while (count < pieces.size() && kept.size() + pieces[count].size() <= output.budget) kept += pieces[count++];
    Expect(copy.allocated, "there is memory");
    Expect(copy.text == AsCopied(output, kept), "a copy ends before the verse that does not fit");
    Expect(copy.complete == (count == pieces.size()), "a copy tells whether all of it fitted");
    Expect(copy.complete ? copy.complaints == 0 : copy.complaints > 0, "what did not fit is complained of");
}

// Whatever is in the verses, the HTML of a copy is whole; and it has the text, unless control characters are left out.
static void CheckHtml(const std::string& html, const std::string& text) {
    const ReadHtml read = ReadHtmlText(html);
    Expect(read.fault.empty(), "elements of the HTML are opened and closed in order");
    std::string lines = Utf8OfLatin(text);
    for (std::size_t end; (end = lines.find("\r\n")) != lines.npos;) lines.replace(end, 2, 1, '\t');
    if (std::any_of(lines.begin(), lines.end(), [](char c) { return c >= 0 && c < ' ' && c != '\t'; })) return;
    std::string shown = read.text;
    for (std::size_t end; (end = shown.find("\r\n")) != shown.npos;) shown.replace(end, 2, 1, '\t');
    Expect(shown == lines, "without its elements the HTML is the copied text");
}

static void CheckRange(const OutputCase& output) {
    const std::vector<std::string> pieces = PiecesByHand(output);
    const auto copied = [&](std::size_t budget) {
        return CopyRangeText(output.scripture, output.format, output.first, output.last, budget);
    };
    Expect(copied(kNoLimit).text == AsCopied(output, Joined(pieces)), "a copied range is as its format says");
    CheckBudget(output, copied(output.budget), pieces);
    const CopyText copy = copied(output.budget);
    CheckHtml(RangeHtml(output.scripture, output.format, output.first, copy.count), copy.text);
    WrittenText written;
    const TextFile file{&written, WriteText};
    const TextSaveResult saved =
        SaveRangeText(output.scripture, output.format, output.first, output.last, nullptr, file);
    Expect(saved == TextSaveResult::kSaved, "a file that takes all is saved");
    Expect(written.text == Joined(pieces) + '\0', "a saved range is the copied one with its brackets");
}

static void CheckList(const OutputCase& output) {
    std::vector<std::string> lines;
    for (const int verse : output.list) {
        if (RecordOf(output.scripture.records, verse).book == 0) continue;
        lines.push_back(' ' + ReferenceText(output.scripture.records, verse, BookForm::kAbbreviation) +
                        WordsByHand(output, verse, true) + "\r\n");
    }
    const std::size_t enough = ListCopyBudget(output.scripture, output.list);
    const CopyText whole = CopyListText(output.scripture, output.format, output.list, enough);
    Expect(whole.complete && whole.text == AsCopied(output, Joined(lines)), "a copied list has all its lines");
    CheckBudget(output, CopyListText(output.scripture, output.format, output.list, output.budget), lines);
    const auto listed = std::span(output.list).first(static_cast<std::size_t>(whole.count));
    CheckHtml(ListHtml(output.scripture, output.format, listed), whole.text);
    WrittenText written;
    Expect(SaveListText(output.scripture, output.list, {&written, WriteText}) == TextSaveResult::kSaved,
           "a file that takes all is saved");
    Expect(written.text == Joined(lines) + '\0', "a saved list is the copied one with its brackets");
    const CopyText references = CopyReferencesText(output.scripture.records, output.list);
    Expect(references.complete && references.text.starts_with('#'), "references are always complete");
}

// ---- Saving with notes ----------------------------------------------------------------------------------------------

static bool HasUtf8Note(const OutputCase& output) {
    return std::any_of(output.notes.begin(), output.notes.end(), [&output](const auto& note) {
        return note.first >= output.first && note.first <= output.last && IsInUtf8(note.second);
    });
}

static std::string InUtf8(const std::string& text) {
    std::string utf8;
    for (const char letter : text) AppendUtf8(LatinLetter(letter), utf8);
    return utf8;
}

// One note in UTF-8 makes all of the file UTF-8.
static void CheckNotes(OutputCase& output) {
    FormatOptions format = output.format;
    RangeRenderer renderer{output.scripture, format};
    const NoteSource source = SourceOf(output.notes);
    const bool isInUtf8 = HasUtf8Note(output);
    std::string all(isInUtf8 ? kUtf8Mark : "");
    bool readable = true;
    for (int verse = output.first; verse <= output.last && readable; ++verse) {
        GrowingText piece;
        AppendVerse(renderer, verse, piece);
        const std::string words = TakeText(piece);
        all += isInUtf8 ? InUtf8(words) : words;
        const auto note = output.notes.find(verse);
        if (note == output.notes.end()) continue;
        readable = note->second != kUnreadableNote;
        all += "\r\n\r\n" + (isInUtf8 ? Utf8OfNote(source.codePage, note->second) : note->second) + "\r\n\r\n";
    }
    WrittenText written{"", 0, output.failingWrite};
    const TextSaveResult saved =
        SaveRangeText(output.scripture, output.format, output.first, output.last, &source, {&written, WriteText});
    const bool wrote = written.writes < output.failingWrite || output.failingWrite == 0;
    Expect((saved == TextSaveResult::kCannotWrite) == !wrote, "a write that fails is told");
    Expect(!wrote || (saved == TextSaveResult::kCannotReadNotes) == !readable, "a note that cannot be read is told");
    Expect(saved != TextSaveResult::kSaved || written.text == all + '\0', "notes stand behind their verses");
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    OutputCase output;
    ReadOutputCase(output, TextOfInput(data, size));
    CheckRange(output);
    CheckList(output);
    CheckNotes(output);
    return 0;
}
