#include "notes/letter_search.h"

#include <algorithm>
#include <array>
#include <iterator>
#include <utility>

#include "notes/note_letters.h"

// ---- Case -----------------------------------------------------------------------------------------------------------

namespace {

// Capital letters from `first` to `last`, each of whose small letters is `shift` further. A step of 2 leaves out every
// other letter, which is the small one.
struct CaseRange {
    char32_t first, last;
    int shift;
    char32_t step = 1;
};

}  // namespace

static constexpr CaseRange kCaseRanges[] = {
    {0x0041, 0x005A, 32},   {0x00C0, 0x00D6, 32},    {0x00D8, 0x00DE, 32},   {0x0100, 0x012E, 1, 2},
    {0x0132, 0x0136, 1, 2}, {0x0139, 0x0147, 1, 2},  {0x014A, 0x0176, 1, 2}, {0x0178, 0x0178, -121},
    {0x0179, 0x017D, 1, 2}, {0x01CD, 0x01DB, 1, 2},  {0x01DE, 0x01EE, 1, 2}, {0x01F8, 0x021E, 1, 2},
    {0x0222, 0x0232, 1, 2}, {0x0246, 0x024E, 1, 2},  {0x0370, 0x0372, 1, 2}, {0x0376, 0x0376, 1},
    {0x0386, 0x0386, 38},   {0x0388, 0x038A, 37},    {0x038C, 0x038C, 64},   {0x038E, 0x038F, 63},
    {0x0391, 0x03A1, 32},   {0x03A3, 0x03AB, 32},    {0x03D8, 0x03EE, 1, 2}, {0x03FD, 0x03FF, -130},
    {0x0400, 0x040F, 80},   {0x0410, 0x042F, 32},    {0x0460, 0x0480, 1, 2}, {0x048A, 0x04BE, 1, 2},
    {0x04C1, 0x04CD, 1, 2}, {0x04D0, 0x052E, 1, 2},  {0x1E00, 0x1E94, 1, 2}, {0x1EA0, 0x1EFE, 1, 2},
    {0x1F08, 0x1F0F, -8},   {0x1F18, 0x1F1D, -8},    {0x1F28, 0x1F2F, -8},   {0x1F38, 0x1F3F, -8},
    {0x1F48, 0x1F4D, -8},   {0x1F59, 0x1F5F, -8, 2}, {0x1F68, 0x1F6F, -8},   {0x1F88, 0x1F8F, -8},
    {0x1F98, 0x1F9F, -8},   {0x1FA8, 0x1FAF, -8},    {0x1FB8, 0x1FB9, -8},   {0x1FBA, 0x1FBB, -74},
    {0x1FBC, 0x1FBC, -9},   {0x1FC8, 0x1FCB, -86},   {0x1FCC, 0x1FCC, -9},   {0x1FD8, 0x1FD9, -8},
    {0x1FDA, 0x1FDB, -100}, {0x1FE8, 0x1FE9, -8},    {0x1FEA, 0x1FEB, -112}, {0x1FEC, 0x1FEC, -7},
    {0x1FF8, 0x1FF9, -128}, {0x1FFA, 0x1FFB, -126},  {0x1FFC, 0x1FFC, -9},
};

using Pair = std::pair<char32_t, char32_t>;

// Capitals that are nowhere near their small letters, and other forms of letters.
static constexpr Pair kOtherForms[] = {
    {0x00B5, 0x03BC}, {0x0130, 0x0069}, {0x017F, 0x0073}, {0x0181, 0x0253}, {0x0182, 0x0183}, {0x0184, 0x0185},
    {0x0186, 0x0254}, {0x0187, 0x0188}, {0x0189, 0x0256}, {0x018A, 0x0257}, {0x018B, 0x018C}, {0x018E, 0x01DD},
    {0x018F, 0x0259}, {0x0190, 0x025B}, {0x0191, 0x0192}, {0x0193, 0x0260}, {0x0194, 0x0263}, {0x0196, 0x0269},
    {0x0197, 0x0268}, {0x0198, 0x0199}, {0x019C, 0x026F}, {0x019D, 0x0272}, {0x019F, 0x0275}, {0x01A0, 0x01A1},
    {0x01A2, 0x01A3}, {0x01A4, 0x01A5}, {0x01A6, 0x0280}, {0x01A7, 0x01A8}, {0x01A9, 0x0283}, {0x01AC, 0x01AD},
    {0x01AE, 0x0288}, {0x01AF, 0x01B0}, {0x01B1, 0x028A}, {0x01B2, 0x028B}, {0x01B3, 0x01B4}, {0x01B5, 0x01B6},
    {0x01B7, 0x0292}, {0x01B8, 0x01B9}, {0x01BC, 0x01BD}, {0x01C4, 0x01C6}, {0x01C5, 0x01C6}, {0x01C7, 0x01C9},
    {0x01C8, 0x01C9}, {0x01CA, 0x01CC}, {0x01CB, 0x01CC}, {0x01F1, 0x01F3}, {0x01F2, 0x01F3}, {0x01F4, 0x01F5},
    {0x01F6, 0x0195}, {0x01F7, 0x01BF}, {0x0220, 0x019E}, {0x023A, 0x2C65}, {0x023B, 0x023C}, {0x023D, 0x019A},
    {0x023E, 0x2C66}, {0x0241, 0x0242}, {0x0243, 0x0180}, {0x0244, 0x0289}, {0x0245, 0x028C}, {0x037F, 0x03F3},
    {0x03C2, 0x03C3}, {0x03CF, 0x03D7}, {0x03D0, 0x03B2}, {0x03D1, 0x03B8}, {0x03D5, 0x03C6}, {0x03D6, 0x03C0},
    {0x03F0, 0x03BA}, {0x03F1, 0x03C1}, {0x03F4, 0x03B8}, {0x03F5, 0x03B5}, {0x03F7, 0x03F8}, {0x03F9, 0x03F2},
    {0x03FA, 0x03FB}, {0x04C0, 0x04CF}, {0x1E9B, 0x1E61}, {0x1E9E, 0x00DF}, {0x1FBE, 0x03B9},
};

// Letters that Unicode has twice: the Greek ones with an acute accent, and signs that are letters.
static constexpr Pair kTwice[] = {
    {0x1F71, 0x03AC}, {0x1F73, 0x03AD}, {0x1F75, 0x03AE}, {0x1F77, 0x03AF}, {0x1F79, 0x03CC},
    {0x1F7B, 0x03CD}, {0x1F7D, 0x03CE}, {0x1FBB, 0x0386}, {0x1FC9, 0x0388}, {0x1FCB, 0x0389},
    {0x1FD3, 0x0390}, {0x1FDB, 0x038A}, {0x1FE3, 0x03B0}, {0x1FEB, 0x038E}, {0x1FF9, 0x038C},
    {0x1FFB, 0x038F}, {0x2126, 0x03A9}, {0x212A, 0x004B}, {0x212B, 0x00C5},
};

template <std::size_t kSize>
static char32_t Replaced(const Pair (&pairs)[kSize], char32_t letter) {
    const auto found = std::lower_bound(std::begin(pairs), std::end(pairs), letter,
                                        [](const Pair& pair, char32_t wanted) { return pair.first < wanted; });
    return found != std::end(pairs) && found->first == letter ? found->second : letter;
}

static char32_t WithoutTwin(char32_t letter) {
    return letter < kTwice[0].first ? letter : Replaced(kTwice, letter);
}

static char32_t SmallOrOwn(char32_t letter) {
    const auto range = std::lower_bound(std::begin(kCaseRanges), std::end(kCaseRanges), letter,
                                        [](const CaseRange& each, char32_t wanted) { return each.last < wanted; });
    if (range == std::end(kCaseRanges) || letter < range->first || (letter - range->first) % range->step != 0)
        return Replaced(kOtherForms, letter);
    return static_cast<char32_t>(static_cast<int>(letter) + range->shift);
}

char32_t SmallLetter(char32_t letter) {
    return WithoutTwin(SmallOrOwn(letter));
}

// ---- Hebrew ---------------------------------------------------------------------------------------------------------

// Points and accents, and the joiner that is written between some of them.
static bool IsPoint(char32_t letter) {
    static constexpr char32_t kMaqaf = 0x5BE, kPaseq = 0x5C0, kSofPasuq = 0x5C3, kNun = 0x5C6, kJoiner = 0x34F;
    if (letter == kJoiner) return true;
    if (letter < 0x591 || letter > 0x5C7) return false;
    return letter != kMaqaf && letter != kPaseq && letter != kSofPasuq && letter != kNun;
}

// The letter without the point that it has in one piece with it, and without the form that it has to fill a line.
static char32_t WithoutOwnPoint(char32_t letter) {
    static constexpr char32_t kFirst = 0xFB1D, kLast = 0xFB4E;
    static constexpr Pair kPieces[] = {
        {0xFB1D, 0x5D9}, {0xFB1F, 0x5F2}, {0xFB20, 0x5E2}, {0xFB21, 0x5D0}, {0xFB22, 0x5D3}, {0xFB23, 0x5D4},
        {0xFB24, 0x5DB}, {0xFB25, 0x5DC}, {0xFB26, 0x5DD}, {0xFB27, 0x5E8}, {0xFB28, 0x5EA}, {0xFB2A, 0x5E9},
        {0xFB2B, 0x5E9}, {0xFB2C, 0x5E9}, {0xFB2D, 0x5E9}, {0xFB2E, 0x5D0}, {0xFB2F, 0x5D0}, {0xFB30, 0x5D0},
        {0xFB31, 0x5D1}, {0xFB32, 0x5D2}, {0xFB33, 0x5D3}, {0xFB34, 0x5D4}, {0xFB35, 0x5D5}, {0xFB36, 0x5D6},
        {0xFB38, 0x5D8}, {0xFB39, 0x5D9}, {0xFB3A, 0x5DA}, {0xFB3B, 0x5DB}, {0xFB3C, 0x5DC}, {0xFB3E, 0x5DE},
        {0xFB40, 0x5E0}, {0xFB41, 0x5E1}, {0xFB43, 0x5E3}, {0xFB44, 0x5E4}, {0xFB46, 0x5E6}, {0xFB47, 0x5E7},
        {0xFB48, 0x5E8}, {0xFB49, 0x5E9}, {0xFB4A, 0x5EA}, {0xFB4B, 0x5D5}, {0xFB4C, 0x5D1}, {0xFB4D, 0x5DB},
        {0xFB4E, 0x5E4},
    };
    return letter < kFirst || letter > kLast ? letter : Replaced(kPieces, letter);
}

// ---- Words ----------------------------------------------------------------------------------------------------------

namespace {

struct LetterRange {
    char32_t first, last;
};

}  // namespace

bool IsInWordLetter(char32_t letter) {
    // Punctuation, signs, blanks and what controls a text, beyond ASCII. All else beyond ASCII is in words.
    static constexpr LetterRange kBetweenWords[] = {
        {0x0080, 0x00A9}, {0x00AB, 0x00B1}, {0x00B4, 0x00B4}, {0x00B6, 0x00B8}, {0x00BB, 0x00BF},   {0x00D7, 0x00D7},
        {0x00F7, 0x00F7}, {0x037E, 0x037E}, {0x0387, 0x0387}, {0x055A, 0x055F}, {0x0589, 0x058F},   {0x05BE, 0x05BE},
        {0x05C0, 0x05C0}, {0x05C3, 0x05C3}, {0x05C6, 0x05C6}, {0x05F3, 0x05F4}, {0x0600, 0x060F},   {0x061B, 0x061F},
        {0x066A, 0x066D}, {0x06D4, 0x06D4}, {0x0964, 0x0965}, {0x1FBD, 0x1FBD}, {0x1FBF, 0x1FC1},   {0x1FCD, 0x1FCF},
        {0x1FDD, 0x1FDF}, {0x1FED, 0x1FEF}, {0x1FFD, 0x1FFE}, {0x2000, 0x206F}, {0x20A0, 0x20CF},   {0x2190, 0x245F},
        {0x2500, 0x2BFF}, {0x2E00, 0x2E7F}, {0x3000, 0x3004}, {0x3008, 0x3020}, {0x3030, 0x3030},   {0x303D, 0x303F},
        {0x30FB, 0x30FB}, {0xD800, 0xF8FF}, {0xFD3E, 0xFD3F}, {0xFE10, 0xFE1F}, {0xFE30, 0xFE6F},   {0xFEFF, 0xFF0F},
        {0xFF1A, 0xFF20}, {0xFF3B, 0xFF40}, {0xFF5B, 0xFF65}, {0xFFE0, 0xFFFF}, {0x1F000, 0x1FAFF},
    };
    if (letter < 0x80) {
        const char32_t small = letter | 0x20;
        return (letter >= '0' && letter <= '9') || (small >= 'a' && small <= 'z');
    }
    const auto range = std::lower_bound(std::begin(kBetweenWords), std::end(kBetweenWords), letter,
                                        [](const LetterRange& each, char32_t wanted) { return each.last < wanted; });
    return range == std::end(kBetweenWords) || letter < range->first;
}

// ---- Folding --------------------------------------------------------------------------------------------------------

// Almost all letters of a note are among these.
static constexpr std::size_t kUsual = 0x600;

static std::array<char32_t, kUsual> SmallLetters() {
    std::array<char32_t, kUsual> small{};
    for (std::size_t letter = 0; letter < kUsual; ++letter) small[letter] = SmallLetter(static_cast<char32_t>(letter));
    return small;
}

static char32_t Folded(const LetterTarget& target, char32_t letter) {
    static const std::array<char32_t, kUsual> kSmall = SmallLetters();
    if (!target.hasPoints) letter = WithoutOwnPoint(letter);
    if (target.isCaseSensitive) return WithoutTwin(letter);
    return letter < kUsual ? kSmall[letter] : SmallLetter(letter);
}

static void Fold(const LetterTarget& target, std::string_view text, FoldedText& folded) {
    folded.letters.clear();
    folded.places.clear();
    const std::size_t size = text.size();
    while (!text.empty()) {
        const std::size_t place = size - text.size();
        const auto letter = TakeLetter(text);
        if (!letter) break;
        if (!target.hasPoints && IsPoint(*letter)) continue;
        folded.letters += Folded(target, *letter);
        folded.places.push_back(place);
    }
    folded.places.push_back(size);
}

LetterTarget LetterTargetOf(std::string_view text, bool isCaseSensitive, bool isSubstring) {
    LetterTarget target{{}, isCaseSensitive, false, isSubstring};
    FoldedText without, with;
    Fold(target, text, without);
    target.hasPoints = true;
    Fold(target, text, with);
    const bool isOfPoints = without.letters.empty();
    target.hasPoints = isOfPoints || (isCaseSensitive && with.letters != without.letters);
    target.letters = target.hasPoints ? with.letters : without.letters;
    return target;
}

// ---- The search -----------------------------------------------------------------------------------------------------

static bool StandsAlone(const std::u32string& letters, std::size_t begin, std::size_t end) {
    return !(begin > 0 && IsInWordLetter(letters[begin - 1])) &&
           !(end < letters.size() && IsInWordLetter(letters[end]));
}

std::optional<LetterMatch> FindLetters(const LetterTarget& target, std::string_view note, std::size_t from,
                                       FoldedText& memory) {
    if (target.letters.empty()) return std::nullopt;
    Fold(target, note, memory);
    const auto first = std::lower_bound(memory.places.begin(), memory.places.end(), from);
    auto place = static_cast<std::size_t>(first - memory.places.begin());
    const std::size_t length = target.letters.size();
    while ((place = memory.letters.find(target.letters, place)) != std::u32string::npos) {
        const std::size_t begin = memory.places[place], end = memory.places[place + length];
        if (target.isSubstring || StandsAlone(memory.letters, place, place + length)) return {{begin, end - begin}};
        place += length;
    }
    return std::nullopt;
}
