#include "output/rendering.h"

#include "output/label_text.h"

static constexpr std::string_view kLineEnd = "\r\n";
static constexpr std::string_view kParagraph = "\xB6 ";

enum Style { kFull, kPartial };
enum Location { kBefore };

static void AppendFull(LabelText& label, const VerseRecord& record) {
    AppendText(label, " ");
    AppendReference(label, record);
}

static void AppendChapterAndVerse(LabelText& label, const VerseRecord& record) {
    AppendText(label, " ");
    AppendNumber(label, record.chapter);
    AppendText(label, ":");
    AppendNumber(label, record.verse);
}

static void RememberPlace(RangeRenderer& renderer, const VerseRecord& record) {
    renderer.previousBook = record.book;
    renderer.previousChapter = record.chapter;
}

static LabelText FirstLabel(RangeRenderer& renderer, const VerseRecord& record) {
    LabelText label;
    if (renderer.format.FirstVerseStyle == kFull) AppendFull(label, record);
    if (renderer.format.FirstVerseStyle == kPartial) AppendChapterAndVerse(label, record);
    renderer.begun = true;
    RememberPlace(renderer, record);
    return label;
}

// As much of the reference as differs from the verse before.
static void AppendWhatIsNew(LabelText& label, const RangeRenderer& renderer, const VerseRecord& record) {
    if (record.book != renderer.previousBook) return AppendFull(label, record);
    if (record.chapter != renderer.previousChapter) return AppendChapterAndVerse(label, record);
    AppendText(label, " ");
    AppendNumber(label, record.verse);
}

static LabelText LaterLabel(RangeRenderer& renderer, const VerseRecord& record) {
    LabelText label;
    if (renderer.format.SubsequentVerseStyle == kFull) AppendFull(label, record);
    if (renderer.format.SubsequentVerseStyle == kPartial) {
        AppendWhatIsNew(label, renderer, record);
        RememberPlace(renderer, record);
    }
    return label;
}

// The verse's words, without a paragraph mark before the first one.
static std::string_view WordsOf(std::string_view verseText) {
    return verseText.substr(BeginsParagraph(verseText) ? 1 : 0);
}

void AppendVerse(RangeRenderer& renderer, int verse, std::string& text) {
    const VerseRecord record = RecordOf(renderer.scripture.records, verse);
    if (record.book == 0) return;
    const FormatOptions& format = renderer.format;
    const LabelText label = renderer.begun ? LaterLabel(renderer, record) : FirstLabel(renderer, record);
    const std::string_view verseText = VerseText(renderer.scripture, verse);
    if (format.Location == kBefore) text.append(TextOf(label));
    text.push_back(' ');
    if (format.ParagraphMarks != 0 && BeginsParagraph(verseText)) text.append(kParagraph);
    text.append(WordsOf(verseText));
    if (format.Location != kBefore) text.append(TextOf(label));
    if (format.LineBreaks != 0) text.append(kLineEnd);
}

void AppendListLine(const Scripture& scripture, int verse, std::string& text) {
    const VerseRecord record = RecordOf(scripture.records, verse);
    if (record.book == 0) return;
    LabelText label;
    AppendFull(label, record);
    const std::string_view verseText = VerseText(scripture, verse);
    text.append(TextOf(label)).append(1, ' ');
    if (BeginsParagraph(verseText)) text.append(kParagraph);
    text.append(WordsOf(verseText)).append(kLineEnd);
}
