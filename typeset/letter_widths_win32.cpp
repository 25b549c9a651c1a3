#include "typeset/letter_widths_win32.h"

#include <algorithm>
#include <string>

static constexpr int kUnmeasured = -1;

static int ExtentOf(const LetterWidths& letters, std::string_view text) {
    SelectObject(letters.dc, letters.font);
    SIZE size{};
    GetTextExtentPoint32A(letters.dc, text.data(), static_cast<int>(text.size()), &size);
    return size.cx;
}

static void ReadWidths(LetterWidths& letters, char first, char last) {
    const auto firstByte = static_cast<unsigned char>(first);
    SelectObject(letters.dc, letters.font);
    GetCharWidth32A(letters.dc, firstByte, static_cast<unsigned char>(last), &letters.widths[firstByte]);
}

static int SumOfWidths(LetterWidths& letters, std::string_view text) {
    int sum = 0;
    for (const char letter : text) {
        int& width = letters.widths[static_cast<unsigned char>(letter)];
        if (width == kUnmeasured) width = ExtentOf(letters, {&letter, 1});
        sum += width;
    }
    return sum;
}

// Words as they occur in the text, and all characters in a row: a font with overhang or kerning fails one of them.
static bool DoWidthsAddUp(LetterWidths& letters) {
    std::string all;
    for (int letter = ' '; letter <= '~'; ++letter) all += static_cast<char>(letter);
    const std::string_view samples[] = {all, "AVoided ", "\xB6 ", "fi", "f", "LORD'S, ", "1Th 5:16 "};
    return std::ranges::all_of(samples, [&letters](std::string_view sample) {
        return SumOfWidths(letters, sample) == ExtentOf(letters, sample);
    });
}

void ReadLetterWidths(LetterWidths& letters, HDC dc, HFONT font) {
    letters.dc = dc;
    letters.font = font;
    letters.widths.fill(kUnmeasured);
    ReadWidths(letters, ' ', '~');
    letters.addUp = DoWidthsAddUp(letters);
}

int WidthOf(LetterWidths& letters, std::string_view text) {
    return letters.addUp ? SumOfWidths(letters, text) : ExtentOf(letters, text);
}

int CellHeight(const LetterWidths& letters) {
    SelectObject(letters.dc, letters.font);
    TEXTMETRICA metrics{};
    GetTextMetricsA(letters.dc, &metrics);
    return static_cast<int>(std::max(1L, metrics.tmHeight));
}
