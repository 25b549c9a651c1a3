#include "data/imported_notes.h"

#include <algorithm>
#include <cstdlib>
#include <map>

#include "scripture/letters.h"

namespace {

constexpr std::string_view kNewLine = "\r\n";
constexpr int kPsalms = 19;

// Everything that is needed to make notes, and the result.
struct Workshop {
    const VerseRecords& records;
    const ReferenceReader& reader;
    ImportedNotes result;
};

using NoteParagraphs = std::map<int, std::vector<Paragraph>>;
using SectionStarts = std::map<int, int>;  // by verse: the first verse of the section that covers it

}  // namespace

// ---- The text of a note ---------------------------------------------------------------------------------------------

// "Scofield:Heb 1:4" means the note of that work on Hebrews 1:4; it becomes a reference to the verse.
static std::string WithoutWork(const std::string& reference) {
    const std::size_t colon = reference.find(':');
    const bool isWork = colon != std::string::npos && reference.find_first_of(" .0123456789") > colon;
    return isWork ? reference.substr(colon + 1) : reference;
}

static std::vector<VerseRange> RangesIn(const Workshop& shop, const Paragraph& paragraph, int verse) {
    std::vector<VerseRange> ranges;
    for (const std::string& reference : paragraph.references)
        for (const VerseRange& range : shop.reader.read(shop.reader.device, WithoutWork(reference), verse))
            ranges.push_back(range);
    return ranges;
}

static void AddLine(std::string& text, std::string_view line) {
    if (!text.empty()) text += kNewLine;
    text += line;
}

static std::string WithWindowsLines(std::string_view text) {
    std::string lines;
    for (const char letter : text) {
        if (letter == '\n') lines += '\r';
        lines += letter;
    }
    return lines;
}

// In UTF-8.
static std::string TextOf(Workshop& shop, const std::vector<Paragraph>& paragraphs, int verse) {
    std::string text;
    bool wasRow = false;
    for (const Paragraph& paragraph : paragraphs) {
        if (!text.empty() && !(wasRow && paragraph.isRow)) text += kNewLine;
        AddLine(text, WithWindowsLines(TextForNotes(paragraph.text, shop.result.replaced)));
        const std::string references = CrossReferenceLine(shop.records, RangesIn(shop, paragraph, verse));
        if (!references.empty()) AddLine(text, references);
        shop.result.referenceLines += references.empty() ? 0 : 1;
        wasRow = paragraph.isRow;
    }
    return text;
}

static void AddNote(Workshop& shop, int verse, std::string_view text) {
    std::string note = NoteOfText(text);
    if (IsInUtf8(note)) ++shop.result.notesInUtf8;
    if (CutToNote(note)) ++shop.result.cutNotes;
    if (!note.empty()) shop.result.notes[verse] = std::move(note);
}

// ---- Commentaries ---------------------------------------------------------------------------------------------------

// Numbers of the verses that a paragraph says it is about; `first` is 0 if it does not.
struct MarkedVerses {
    int first = 0;
    int last = 0;
};

// 7 for "Verse 7." and "Ver. 7.", 7 to 9 for "Verses 7-9."; 0 for anything else.
static MarkedVerses MarkOf(const std::string& boldStart) {
    static constexpr std::string_view kMarks[] = {"Verse ", "Verses ", "Ver. "};
    for (const std::string_view mark : kMarks) {
        const bool hasNumber =
            boldStart.starts_with(mark) && boldStart.size() > mark.size() && boldStart.ends_with('.');
        if (!hasNumber) continue;
        char* end = nullptr;
        const int first = static_cast<int>(std::strtol(boldStart.c_str() + mark.size(), &end, 10));
        return {first, *end == '-' ? std::max(first, std::atoi(end + 1)) : first};
    }
    return {};
}

// Verse `number` of the chapter; kNoVerse if the chapter does not have so many verses.
static int VerseOfChapter(const VerseRecords& records, int firstVerse, int number) {
    const VerseRecord chapter = RecordOf(records, firstVerse);
    const int verse = VerseLookup(records, chapter.book, chapter.chapter, number);
    return number > 0 && RecordOf(records, verse).verse == number ? verse : kNoVerse;
}

// The verses after `first`, up to `last` of the same chapter, belong to the section that begins with it.
static void CoverVerses(const VerseRecords& records, int first, int last, SectionStarts& sections) {
    for (int number = RecordOf(records, first).verse + 1; number <= last; ++number) {
        const int verse = VerseOfChapter(records, first, number);
        if (verse == kNoVerse) return;  // there are no further verses
        sections[verse] = first;
    }
}

// The text has titled parts, such as "Exposition", each of which goes through all verses. The title of the part is
// added to the note of each verse.
static void DealOutToVerses(Workshop& shop, const std::vector<Paragraph>& paragraphs, int firstVerse,
                            NoteParagraphs& notes, SectionStarts& sections) {
    int verse = firstVerse;
    const Paragraph* title = nullptr;
    std::map<int, const Paragraph*> titleOfVerse;
    for (const Paragraph& paragraph : paragraphs) {
        if (paragraph.isTitle) {
            title = &paragraph;
            verse = firstVerse;
            continue;
        }
        const MarkedVerses mark = MarkOf(paragraph.boldStart);
        const int marked = VerseOfChapter(shop.records, firstVerse, mark.first);
        if (marked != kNoVerse && marked != verse) ++shop.result.movedTexts;
        if (marked != kNoVerse) verse = marked;
        if (marked != kNoVerse) CoverVerses(shop.records, marked, mark.last, sections);
        if (title != nullptr && titleOfVerse[verse] != title) notes[verse].push_back(*title);
        titleOfVerse[verse] = title;
        notes[verse].push_back(paragraph);
    }
}

// The other verses of a section lead to its note, so that readers of any verse find it.
static void PointToSections(Workshop& shop, const SectionStarts& sections) {
    NoteTexts lines;
    for (const auto& [verse, first] : sections) {
        const bool isPlain = !shop.result.notes.contains(verse);
        if (isPlain && shop.result.notes.contains(first))
            lines[verse] = CrossReferenceLine(shop.records, {{first, first}});
    }
    shop.result.sectionLines = static_cast<int>(lines.size());
    shop.result.notes.merge(lines);
}

static int ChapterKey(const VerseRecords& records, int verse) {
    const VerseRecord place = RecordOf(records, verse);
    return place.book * 1000 + place.chapter;
}

// Is one of the paragraphs the heading "Chapter 36", for the chapter of `verse`?
static bool NamesItsChapter(const VerseRecords& records, const std::vector<Paragraph>& paragraphs, int verse) {
    const std::string heading = "Chapter " + std::to_string(RecordOf(records, verse).chapter);
    return std::any_of(paragraphs.begin(), paragraphs.end(),
                       [&heading](const Paragraph& paragraph) { return paragraph.text == heading; });
}

static bool SaysItsVerses(const std::vector<Paragraph>& paragraphs) {
    return std::any_of(paragraphs.begin(), paragraphs.end(),
                       [](const Paragraph& paragraph) { return paragraph.boldStart.starts_with("Verse"); });
}

ImportedNotes NotesOfCommentary(const std::vector<CommentaryEntry>& entries, const VerseRecords& records,
                                const ReferenceReader& reader) {
    Workshop shop{records, reader, {}};
    std::map<int, int> entriesOfChapter;
    for (const CommentaryEntry& entry : entries)
        if (!entry.isIntroduction) ++entriesOfChapter[ChapterKey(records, entry.verses.first)];

    NoteParagraphs notes;
    SectionStarts sections;
    for (const CommentaryEntry& entry : entries) {
        const int verse = entry.verses.first;
        std::vector<Paragraph> paragraphs = ParagraphsOf(entry.text);
        if (entry.isIntroduction && !paragraphs.empty()) ++shop.result.introductions;
        if (entry.verses.last != verse && !paragraphs.empty() && !SaysItsVerses(paragraphs))
            notes[verse].push_back({RangeText(records, verse, entry.verses.last), true, false, {}, {}});
        for (int covered = verse + 1; covered <= entry.verses.last; ++covered) sections[covered] = verse;
        const bool isOnChapter = RecordOf(records, verse).verse == 1 && !entry.isIntroduction &&
                                 entriesOfChapter[ChapterKey(records, verse)] == 1;
        if (isOnChapter && NamesItsChapter(records, paragraphs, verse)) CoverVerses(records, verse, kLast, sections);
        if (isOnChapter)
            DealOutToVerses(shop, paragraphs, verse, notes, sections);
        else
            for (Paragraph& paragraph : paragraphs) notes[verse].push_back(std::move(paragraph));
    }
    for (const auto& [verse, paragraphs] : notes) AddNote(shop, verse, TextOf(shop, paragraphs, verse));
    PointToSections(shop, sections);
    return std::move(shop.result);
}

// ---- Days -----------------------------------------------------------------------------------------------------------

namespace {

struct DayText {
    std::vector<Paragraph> morning;
    std::vector<Paragraph> evening;  // empty: the morning's text is for the whole day
};

// The readings of a year while they are collected.
struct Year {
    std::map<int, std::string> texts;  // by verse, in UTF-8
    int nextPsalmVerse = 0;
};

}  // namespace

// A heading is short and contains the time of day, possibly among other words: "Evening, January 1".
static bool IsHeading(const Paragraph& paragraph, std::string_view time) {
    static constexpr std::size_t kLongestHeading = 40;
    if (paragraph.text.size() > kLongestHeading) return false;
    const std::string small = LowerCased(paragraph.text);
    return small.find(time) != std::string::npos && small.find_first_of(".;!?") >= small.size() - 1;
}

static DayText TextOfDay(std::vector<Paragraph> paragraphs) {
    const auto heads = [](std::string_view time) {
        return [time](const Paragraph& paragraph) { return IsHeading(paragraph, time); };
    };
    const auto morning = std::find_if(paragraphs.begin(), paragraphs.end(), heads("morning"));
    if (morning == paragraphs.end()) return {std::move(paragraphs), {}};
    const auto evening = std::find_if(morning + 1, paragraphs.end(), heads("evening"));
    if (evening == paragraphs.end()) return {std::move(paragraphs), {}};
    DayText text;
    text.morning.assign(paragraphs.begin(), morning);  // the text above both headings
    text.morning.insert(text.morning.end(), morning + 1, evening);
    text.evening.assign(evening + 1, paragraphs.end());
    return text;
}

static int VerseNamedIn(const Workshop& shop, const std::vector<Paragraph>& paragraphs) {
    for (const Paragraph& paragraph : paragraphs) {
        const std::vector<VerseRange> ranges = RangesIn(shop, paragraph, kNoVerse);
        if (!ranges.empty()) return ranges.front().first;
    }
    return kNoVerse;
}

// Adds a reading and returns its verse.
static int AddReading(Workshop& shop, Year& year, const std::string& heading,
                      const std::vector<Paragraph>& paragraphs) {
    int verse = VerseNamedIn(shop, paragraphs);
    if (verse == kNoVerse) {
        verse = year.nextPsalmVerse++;
        ++shop.result.readingsOnPsalms;
    }
    std::string& text = year.texts[verse];
    if (!text.empty()) text.append(kNewLine).append(kNewLine);
    text.append(heading).append(kNewLine).append(kNewLine) += TextOf(shop, paragraphs, verse);
    return verse;
}

static void AddDay(Workshop& shop, Year& year, const DayEntry& entry) {
    const DayText text = TextOfDay(ParagraphsOf(entry.text));
    const std::string day = DayName(entry.month, entry.day);
    const bool isOne = text.evening.empty();
    const int morning = AddReading(shop, year, isOne ? day : day + ", Morning", text.morning);
    const int evening = isOne ? morning : AddReading(shop, year, day + ", Evening", text.evening);
    shop.result.readings[ReadingSlot(entry.month, entry.day, false)] = morning;
    shop.result.readings[ReadingSlot(entry.month, entry.day, true)] = evening;
}

// Fills the slots in the order of the year, including those of days that do not exist.
static void FillMissingDays(const std::vector<bool>& isThere, ImportedNotes& result) {
    static constexpr std::size_t kMonthSlots = 31 * 2;
    static constexpr std::size_t kDays[] = {31, 29, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
    const auto last = std::find(isThere.rbegin(), isThere.rend(), true);
    if (last == isThere.rend()) return;
    auto before = static_cast<std::size_t>(isThere.rend() - last) - 2;
    for (std::size_t slot = 0; slot < isThere.size(); slot += 2) {
        if (isThere[slot]) {
            before = slot;
            continue;
        }
        result.readings[slot] = result.readings[before];
        result.readings[slot + 1] = result.readings[before + 1];
        if (slot % kMonthSlots / 2 < kDays[slot / kMonthSlots]) ++result.daysWithoutText;
    }
}

ImportedNotes NotesOfDays(const std::vector<DayEntry>& entries, const VerseRecords& records,
                          const ReferenceReader& reader) {
    Workshop shop{records, reader, {}};
    Year year{{}, VerseLookup(records, kPsalms, 1, 1)};
    std::vector<bool> isThere(shop.result.readings.size());
    for (const DayEntry& entry : entries) {
        const std::size_t slot = ReadingSlot(entry.month, entry.day, false);
        if (isThere[slot]) continue;  // of two entries for a day, the first one counts
        isThere[slot] = isThere[slot + 1] = true;
        AddDay(shop, year, entry);
    }
    FillMissingDays(isThere, shop.result);
    for (const auto& [verse, text] : year.texts) AddNote(shop, verse, text);
    return std::move(shop.result);
}
