// Compares the widths that are calculated from tables with those of the system, for each word of the whole text.

#include "typeset/faces_win32.h"

#include <gtest/gtest.h>

#include <fstream>
#include <iterator>
#include <set>

#include "tests/driver/driver.h"

// Every word that the panes may measure, with the blank after it, both with and without its punctuation.
static std::set<std::string> WordsOfText() {
    std::ifstream file(std::filesystem::path(Surroundings().data) / "_avtext.dat", std::ios::binary);
    std::set<std::string> words;
    std::string word;
    const std::string text{std::istreambuf_iterator<char>(file), {}};
    for (const char letter : text) {
        if (letter != ' ' && letter != '\0') {
            word += letter;
            continue;
        }
        words.insert(word + ' ');
        std::erase_if(word, [](char mark) { return mark == '[' || mark == ']' || mark == '\xB6'; });
        words.insert(word + ' ');
        word.clear();
    }
    return words;
}

// A device context compatible with the screen, with the font of a face selected.
struct Asked {
    OwnedBitmap bitmap;
    OwnedDc dc;
    OwnedFont font;
};

static Asked AskedFor(const FontChoice& choice, Face face) {
    const HDC screen = GetDC(nullptr);
    Asked asked{OwnedBitmap(CreateCompatibleBitmap(screen, 1, 1)), OwnedDc(CreateCompatibleDC(screen)), nullptr};
    ReleaseDC(nullptr, screen);
    LOGFONTA record = FontRecord(choice, kUnscaledDpi);
    record.lfItalic = face == Face::kItalic || face == Face::kBoldItalic;
    record.lfWeight = face == Face::kRegular ? choice.weight : face == Face::kItalic ? FW_NORMAL : FW_BOLD;
    asked.font.reset(CreateFontIndirectA(&record));
    SelectObject(asked.dc.get(), asked.bitmap.get());
    SelectObject(asked.dc.get(), asked.font.get());
    return asked;
}

static int WidthAsked(const Asked& asked, const std::string& word) {
    SIZE size{};
    GetTextExtentPoint32A(asked.dc.get(), word.data(), static_cast<int>(word.size()), &size);
    return size.cx;
}

struct FaceRow {
    const char* name;
    FontChoice font;
    bool mustAddUp;  // the default font must be measured with tables
};

static const FaceRow kRows[] = {
    {"TimesNewRoman16", {16, 400, "Times New Roman"}, true},
    {"TimesNewRoman24Bold", {24, 700, "Times New Roman"}, false},
    {"Arial16", {16, 400, "Arial"}, true},
    {"Arial11", {11, 400, "Arial"}, false},
    {"CourierNew12", {12, 400, "Courier New"}, true},
    {"MsSansSerif13", {13, 400, "MS Sans Serif"}, false},
    {"MsSansSerif24", {24, 400, "MS Sans Serif"}, false},
    {"Tahoma13", {13, 400, "Tahoma"}, false},
    {"NoSuchFont16", {16, 400, "No Such Font"}, false},
};

static void PrintTo(const FaceRow& row, std::ostream* out) {
    *out << row.name;
}

struct FaceWidths : testing::TestWithParam<FaceRow> {};
INSTANTIATE_TEST_SUITE_P(Faces, FaceWidths, testing::ValuesIn(kRows),
                         [](const auto& row) { return std::string(row.param.name); });

TEST_P(FaceWidths, MatchTheSystemForEveryWordOfTheText) {
    static const std::set<std::string> words = WordsOfText();
    ASSERT_GT(words.size(), 20000u);
    Faces faces;
    ChooseFaces(faces, GetParam().font, kUnscaledDpi);
    const TextMeasure measure = MeasureOf(faces);
    for (const Face face : {Face::kRegular, Face::kBold, Face::kItalic, Face::kBoldItalic}) {
        const Asked asked = AskedFor(GetParam().font, face);
        int differing = 0;
        std::string first;
        for (const std::string& word : words) {
            if (measure.width(measure.device, face, word) == WidthAsked(asked, word)) continue;
            if (++differing == 1) first = word;
        }
        EXPECT_EQ(differing, 0) << "face " << static_cast<int>(face) << ", first of all \"" << first << "\"";
        EXPECT_TRUE(!GetParam().mustAddUp || faces.fonts[static_cast<std::size_t>(face)].letters.addUp);
    }
}
