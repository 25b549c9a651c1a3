#include "app/about_text.h"

#include <gmock/gmock.h>

using testing::IsEmpty;

static const std::string kOne(64, '1'), kTwo(64, '2'), kThree(64, '3');
static const std::vector<FileDigest> kKnown = {{"_avtext.dat", kOne}, {"_avwrds.dat", kTwo}};

TEST(AboutText, ReadsAListOfDigests) {
    EXPECT_EQ(ReadDigests(kOne + "  _avtext.dat\n" + kTwo + "  _avwrds.dat\n"), kKnown);
    EXPECT_EQ(ReadDigests(kOne + "  _avtext.dat\r\n" + kTwo + "  _avwrds.dat"), kKnown);
    EXPECT_THAT(ReadDigests(""), IsEmpty());
    EXPECT_THAT(ReadDigests("12  _avtext.dat\n" + kOne + "\n" + kOne + "  \n" + kOne + " _avtext.dat\n"), IsEmpty());
}

TEST(AboutText, NamesTheEditionOfTheKnownFiles) {
    const AboutText text = AboutTextOf(31102, 12729, kKnown, kKnown);
    EXPECT_EQ(text.edition, "Authorized Version, Pure Cambridge Edition");
    EXPECT_EQ(text.counts, "31,102 verses, 12,729 different words");
    EXPECT_EQ(text.files, "Its five files are those that this program was built with.");
}

namespace {

struct OtherRow {
    std::vector<FileDigest> found;
    const char* names;
};

}  // namespace

TEST(AboutText, NamesOtherFilesInsteadOfTheEdition) {
    const OtherRow rows[] = {
        {{{"_avtext.dat", kOne}, {"_avwrds.dat", kThree}}, "_avwrds.dat"},
        {{{"_avtext.dat", kTwo}, {"_avwrds.dat", kOne}}, "_avtext.dat, _avwrds.dat"},
        {{{"_avtext.dat", ""}, {"_avwrds.dat", kTwo}}, "_avtext.dat"},
    };
    for (const OtherRow& row : rows) {
        const AboutText text = AboutTextOf(3, 1000, kKnown, row.found);
        EXPECT_EQ(text.edition, "Authorized Version, edition unknown") << row.names;
        EXPECT_EQ(text.counts, "3 verses, 1,000 different words");
        EXPECT_EQ(text.files, std::string("Other scripture files than this program was built with: ") + row.names);
    }
    EXPECT_EQ(AboutTextOf(0, 0, {}, {}).edition, "Authorized Version, edition unknown");
    EXPECT_EQ(AboutTextOf(1234567, 999, {}, {}).counts, "1,234,567 verses, 999 different words");
}
