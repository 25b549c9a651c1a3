// Compares sweeps over many verses with looking at one verse after the other.
#include "search/verse_sweep.h"

#include <gtest/gtest.h>

#include <random>

#include "search/key_word_marks.h"
#include "search/text_kinds.h"
#include "tests/support/hand_made_scripture.h"

namespace {

struct MadeVerses {
    std::vector<std::string> texts;
    HandMadeFiles files;
    Scripture scripture;
};

}  // namespace

// Few words, so that they meet often, with everything that may stand beside them. Some verses are empty, long or very
// long.
static std::string MadeText(std::mt19937& random) {
    static const std::vector<std::string> kPieces = {"a",
                                                     "the",
                                                     "The",
                                                     "THE",
                                                     "of",
                                                     "in",
                                                     "Lord",
                                                     "LORD",
                                                     "lord's",
                                                     "and",
                                                     "Father",
                                                     "e",
                                                     "grace",
                                                     "graceful",
                                                     " ",
                                                     " ",
                                                     " ",
                                                     " ",
                                                     " ",
                                                     " ",
                                                     ", ",
                                                     "; ",
                                                     " [",
                                                     "] ",
                                                     "-",
                                                     "gr-ace",
                                                     "lo[rd",
                                                     "'",
                                                     "\xB6",
                                                     "\xC9",
                                                     "\x80",
                                                     "of the lord ",
                                                     "the grace of ",
                                                     "of [the] Lord, ",
                                                     "thethe",
                                                     "in the beginning was the word "};
    static constexpr std::size_t kSizes[] = {0, 3, 40, 130, 130, 130, 250, 590, 601, 620, 1100};
    const std::size_t size = kSizes[random() % std::size(kSizes)];
    std::string text = random() % 4 == 0 ? "\xB6" : "";
    const bool hasHighBytes = random() % 3 == 0;
    while (text.size() < size) {
        const std::string& piece = kPieces[random() % kPieces.size()];
        if (hasHighBytes || (piece[0] & 0x80) == 0) text += piece;
    }
    return text;
}

// For an odd seed the kinds of the texts are not known.
static MadeVerses MakeVerses(unsigned seed) {
    std::mt19937 random(seed);
    MadeVerses made;
    std::vector<HandMadeVerse> verses;
    for (int verse = 1; verse <= 150; ++verse) made.texts.push_back(MadeText(random));
    for (std::size_t i = 0; i < made.texts.size(); ++i)
        verses.push_back({1, 1, static_cast<int>(i) + 1, made.texts[i]});
    made.files = MakeFiles(verses);
    made.scripture = ScriptureOf(made.files);
    if (seed % 2 == 0) made.scripture.textKinds = FindTextKinds(made.scripture);
    return made;
}

static std::vector<std::int32_t> SomeVerses(std::mt19937& random, std::size_t count) {
    std::vector<std::int32_t> verses;
    const unsigned share = 1 + random() % 4;
    for (std::size_t verse = 0; verse < count; ++verse)
        if (random() % share == 0) verses.push_back(static_cast<std::int32_t>(verse));
    return verses;
}

static SearchOptions OptionsOf(unsigned flags) {
    return {.CaseSensitive = static_cast<int>(flags & 1), .SubString = static_cast<int>(flags >> 1 & 1)};
}

static int CountVerseByVerse(const Scripture& scripture, const Query& query, std::span<const std::int32_t> verses) {
    int count = 0;
    for (const std::int32_t verse : verses) count += CountKeyWords(query, VerseText(scripture, verse));
    return count;
}

TEST(VerseSweep, CountsWordsAsVerseByVerse) {
    static constexpr const char* kWords[] = {"a",
                                             "e",
                                             "of",
                                             "the",
                                             "The",
                                             "lord",
                                             "LORD",
                                             "lord's",
                                             "'",
                                             "graceful",
                                             "grace of",
                                             "the the",
                                             "thet",
                                             "in",
                                             "father and",
                                             "thethethethethethethethethethethethethethethethe",
                                             "of in a the e grace"};
    std::mt19937 random(5);
    int found = 0;
    for (unsigned seed = 0; seed < 4; ++seed) {
        const MadeVerses made = MakeVerses(seed);
        for (const char* const text : kWords)
            for (unsigned flags = 0; flags < 4; ++flags) {
                const Query query = QueryOf(text, OptionsOf(flags), QueryKind::kWords);
                const std::vector<std::int32_t> verses = SomeVerses(random, made.texts.size());
                const int wanted = CountVerseByVerse(made.scripture, query, verses);
                EXPECT_EQ(CountWordsInVerses(made.scripture, query, verses), wanted) << text << flags << seed;
                found += wanted;
            }
    }
    EXPECT_GT(found, 3000);
}

static PhraseFinds FindVerseByVerse(const Scripture& scripture, const Query& query,
                                    std::span<const std::int32_t> verses) {
    PhraseFinds finds;
    for (const std::int32_t verse : verses) {
        const std::string_view text = VerseText(scripture, verse);
        if (!ContainsPhrase(query, text)) continue;
        finds.verses.push_back(verse);
        finds.occurrences += CountKeyWords(query, text);
    }
    return finds;
}

TEST(VerseSweep, FindsPhrasesAsInVerseByVerse) {
    static constexpr const char* kPhrases[] = {"of the",
                                               "the lord",
                                               "of the lord",
                                               "The Lord",
                                               "the grace of the",
                                               "a a",
                                               "e e",
                                               "the a",
                                               "of lord's the",
                                               "' of",
                                               "grace of the grace of",
                                               "in the beginning was the word",
                                               "the in the beginning was the word in the beginning",
                                               "lord's a",
                                               "he l"};
    std::mt19937 random(6);
    std::size_t found = 0;
    for (unsigned seed = 0; seed < 4; ++seed) {
        const MadeVerses made = MakeVerses(seed);
        for (const char* const text : kPhrases)
            for (unsigned flags = 0; flags < 2; ++flags) {
                const Query query = QueryOf(text, OptionsOf(flags), QueryKind::kPhrase);
                const std::vector<std::int32_t> verses = SomeVerses(random, made.texts.size());
                const PhraseFinds wanted = FindVerseByVerse(made.scripture, query, verses);
                for (std::size_t word = 0; word < query.words.size(); ++word) {
                    const PhraseFinds finds = FindPhraseInVerses(made.scripture, query, verses, word);
                    EXPECT_EQ(finds.verses, wanted.verses) << text << flags << seed << word;
                    EXPECT_EQ(finds.occurrences, wanted.occurrences) << text << flags << seed << word;
                }
                found += wanted.verses.size();
            }
    }
    EXPECT_GT(found, 300U);
}

// Nothing outside the files may be read, whatever the records say.
TEST(VerseSweep, StaysInsideDamagedFiles) {
    std::mt19937 random(7);
    for (unsigned seed = 0; seed < 12; ++seed) {
        MadeVerses made = MakeVerses(seed);
        std::vector<unsigned char> records(made.scripture.records.bytes.begin(), made.scripture.records.bytes.end());
        for (int damage = 0; damage < 60; ++damage)
            records[random() % records.size()] = static_cast<unsigned char>(random());
        const std::vector<char> text(made.scripture.text.begin(),
                                     made.scripture.text.end() - static_cast<std::ptrdiff_t>(random() % 700));
        Scripture damaged{{records}, text};
        if (seed % 2 == 0) damaged.textKinds = FindTextKinds(damaged);
        const std::vector<std::int32_t> verses = SomeVerses(random, made.texts.size() + 3);
        for (const char* const words : {"the", "lord", "grace"}) {
            const Query query = QueryOf(words, {}, QueryKind::kWords);
            EXPECT_EQ(CountWordsInVerses(damaged, query, verses), CountVerseByVerse(damaged, query, verses))
                << words << seed;
        }
        const Query query = QueryOf("of the lord", {}, QueryKind::kPhrase);
        EXPECT_LE(FindPhraseInVerses(damaged, query, verses, 0).verses.size(), verses.size());
    }
}
