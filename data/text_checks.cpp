#include "data/text_checks.h"

#include "scripture/books.h"
#include "scripture/scripture.h"

constexpr int kChapterCount = 1189;

static bool IsTextCharacter(char letter) {
    const bool isLetter = (letter >= 'A' && letter <= 'Z') || (letter >= 'a' && letter <= 'z');
    return isLetter || std::string_view(" '(),-.:;?![]").find(letter) != std::string_view::npos;
}

static Complaint CheckCharacters(std::string_view text) {
    for (const char letter : text)
        if (!IsTextCharacter(letter))
            return "has a character that is not allowed, code " + std::to_string(static_cast<unsigned char>(letter));
    return {};
}

static Complaint CheckBlanks(std::string_view text) {
    if (text.front() == ' ' || text.back() == ' ' || text.find("  ") != std::string_view::npos)
        return "has a blank too many";
    return {};
}

static Complaint CheckBrackets(std::string_view text) {
    std::size_t from = 0;
    for (;;) {
        const std::size_t bracket = text.find_first_of("[]", from);
        if (bracket == std::string_view::npos) return {};
        const std::size_t closing = text.find_first_of("[]", bracket + 1);
        if (text[bracket] == ']' || closing == std::string_view::npos || text[closing] == '[')
            return "has brackets that do not pair";
        if (closing == bracket + 1) return "has empty brackets";
        if (text[bracket + 1] == ' ' || text[closing - 1] == ' ') return "has a blank inside a bracket";
        from = closing + 1;
    }
}

Complaint CheckVerseText(std::string_view text) {
    if (!text.empty() && text.front() == kParagraphMark) text.remove_prefix(1);
    if (text.empty()) return "is empty";
    for (const auto check : {CheckCharacters, CheckBlanks, CheckBrackets}) {
        const Complaint complaint = check(text);
        if (!complaint.empty()) return complaint;
    }
    return {};
}

// Does `verse` directly follow `before`? For the first verse, `before` is all zeros.
static bool Follows(const Verse& before, const Verse& verse) {
    if (verse.book == before.book && verse.chapter == before.chapter) return verse.verse == before.verse + 1;
    if (verse.book == before.book) return verse.chapter == before.chapter + 1 && verse.verse == 1;
    return verse.book == before.book + 1 && verse.chapter == 1 && verse.verse == 1;
}

static Complaint CheckCount(int found, int wanted, const char* what) {
    if (found == wanted) return {};
    return "there are " + std::to_string(found) + ' ' + what + " instead of " + std::to_string(wanted);
}

Complaint CheckVerses(const Verses& verses) {
    int chapters = 0;
    Verse before;
    for (const Verse& verse : verses) {
        if (!Follows(before, verse)) return ReferenceOf(verse) + " is out of order";
        const Complaint complaint = CheckVerseText(verse.text);
        if (!complaint.empty()) return ReferenceOf(verse) + ' ' + complaint;
        if (verse.verse == 1) ++chapters;
        before = verse;
    }
    for (const Complaint& complaint :
         {CheckCount(before.book, kBookCount, "books"), CheckCount(chapters, kChapterCount, "chapters"),
          CheckCount(static_cast<int>(verses.size()), kVerseCount, "verses")})
        if (!complaint.empty()) return complaint;
    return {};
}
