#include "notes/references_of_note.h"

#include <algorithm>
#include <vector>

#include "notes/cross_references.h"
#include "notes/references_in_text.h"

static std::vector<TextReference> ReferencesInText(const VerseRecords& records, const Chapters& chapters,
                                                   const NoteOfVerse& note) {
    std::vector<TextReference> references;
    FindReferences(chapters, RecordOf(records, note.verse), note.text, references);
    return references;
}

static bool IsBehindMark(std::string_view text, std::size_t place) {
    const std::size_t mark = text.find_last_of("#\n", place);
    return mark != std::string_view::npos && text[mark] == '#';
}

std::optional<TextReference> ReferenceInNote(const VerseRecords& records, const Chapters& chapters,
                                             const NoteOfVerse& note, std::size_t place) {
    const std::vector<TextReference> references = IsBehindMark(note.text, place)
                                                      ? ListedReferences(records, note.text, note.verse)
                                                      : ReferencesInText(records, chapters, note);
    const TextReference* found = ReferenceAt(references, place);
    return found != nullptr ? std::optional(*found) : std::nullopt;
}

static std::optional<TextReference> FirstThatNames(const std::vector<TextReference>& references, int verse) {
    const auto found = std::ranges::find_if(
        references, [verse](const TextReference& one) { return one.first <= verse && verse <= one.last; });
    return found != references.end() ? std::optional(*found) : std::nullopt;
}

std::optional<TextReference> ReferenceThatNames(const VerseRecords& records, const Chapters& chapters,
                                                const NoteOfVerse& note, int verse) {
    const auto inText = FirstThatNames(ReferencesInText(records, chapters, note), verse);
    const auto inLists = FirstThatNames(ListedReferences(records, note.text, note.verse), verse);
    if (!inText || !inLists) return inText ? inText : inLists;
    return inText->begin < inLists->begin ? inText : inLists;
}

// ---- The verses -----------------------------------------------------------------------------------------------------

static void AppendVerse(std::string& text, std::string_view verse) {
    for (const char c : verse)
        if (c != '[' && c != ']' && c != kParagraphMark) text += c;
}

// "Romans 8:28-30", "Romans 8:28 - 9:2"
static std::string HeadOf(const VerseRecords& records, const TextReference& reference) {
    std::string head = ReferenceText(records, reference.first, BookForm::kName);
    if (reference.last == reference.first) return head;
    const VerseRecord first = RecordOf(records, reference.first), last = RecordOf(records, reference.last);
    if (first.book != last.book) return head + " - " + ReferenceText(records, reference.last, BookForm::kName);
    if (first.chapter != last.chapter)
        return head + " - " + std::to_string(last.chapter) + ':' + std::to_string(last.verse);
    return head + '-' + std::to_string(last.verse);
}

std::string TextOfReference(const Scripture& scripture, const TextReference& reference) {
    static constexpr std::size_t kEnough = 600;
    std::string text = HeadOf(scripture.records, reference);
    for (int verse = reference.first; verse <= reference.last; ++verse) {
        text += "\r\n";
        if (text.size() > kEnough) return text + "...";
        if (reference.first != reference.last) text += std::to_string(RecordOf(scripture.records, verse).verse) + ' ';
        AppendVerse(text, VerseText(scripture, verse));
    }
    return text;
}
