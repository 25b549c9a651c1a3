#include "typeset/word_reader.h"

#include <array>

#include "scripture/scripture.h"

static constexpr std::string_view kParagraphWord = "\xB6 ";

// Bytes at which a piece may end; all others are skipped quickly.
static constexpr std::array<bool, 256> kEndsPiece = [] {
    std::array<bool, 256> ends{};
    for (const char byte : {' ', '[', ']', '{', '}', kParagraphMark}) ends[static_cast<unsigned char>(byte)] = true;
    return ends;
}();

static Face FaceNow(const WordReader& reader) {
    if (reader.keyDepth > 0) return reader.italic ? Face::kBoldItalic : Face::kBold;
    return reader.italic ? Face::kItalic : Face::kRegular;
}

// Sets the fields in place: copying a whole piece would cost more than reading its word.
static void AddPiece(WordReader& reader, std::string_view text) {
    if (text.empty()) return;
    WordPiece& piece = reader.pieces.emplace_back();
    piece.face = FaceNow(reader);
    piece.keyWord = reader.keyDepth > 0;
    piece.text = text;
}

static bool IsBracket(char byte) {
    return byte == '[' || byte == ']';
}

// Is `mark` shown in the text like a letter? Not inside a key word, because it is not part of it.
static bool IsShownInPlace(const WordReader& reader, char mark) {
    return IsBracket(mark) && reader.brackets == BracketUse::kShown && reader.keyDepth == 0;
}

static void ApplyMark(WordReader& reader, std::string_view mark) {
    const char byte = mark[0];
    if (byte == '{') ++reader.keyDepth;
    if (byte == '}' && reader.keyDepth > 0) --reader.keyDepth;
    if (!IsBracket(byte)) return;
    const bool roundItalics = reader.brackets == BracketUse::kShownRoundItalics;
    if (reader.brackets == BracketUse::kItalicFace || roundItalics) reader.italic = byte == '[';
    if (reader.brackets == BracketUse::kShown || roundItalics)
        reader.pieces.push_back({Face::kRegular, false, 0, mark});
}

static void EndPieceAtMark(WordReader& reader, std::string_view before, std::string_view mark) {
    const bool reachesBack = mark[0] == '[' && reader.italicsFromWordStart;
    if (reachesBack) ApplyMark(reader, mark);
    AddPiece(reader, before);
    if (!reachesBack) ApplyMark(reader, mark);
}

void OpenVerse(WordReader& reader, std::string_view verse) {
    reader.text.assign(verse);
    reader.text.push_back(' ');
    reader.next = 0;
    reader.italic = false;
    reader.keyDepth = 0;
    reader.pieces.clear();
}

bool ReadWord(WordReader& reader) {
    reader.pieces.clear();
    const std::string_view text = reader.text;
    std::size_t start = reader.next;
    for (std::size_t at = start; at < text.size(); ++at) {
        const char byte = text[at];
        if (!kEndsPiece[static_cast<unsigned char>(byte)] || IsShownInPlace(reader, byte)) continue;
        const bool endsWord = byte == ' ' || byte == kParagraphMark;
        if (!endsWord) {
            EndPieceAtMark(reader, text.substr(start, at - start), text.substr(at, 1));
            start = at + 1;
            continue;
        }
        AddPiece(reader, text.substr(start, at - start + (byte == ' ' ? 1 : 0)));
        if (byte == kParagraphMark) AddPiece(reader, kParagraphWord);
        reader.next = at + 1;
        return true;
    }
    return false;
}

bool HasVerseEnded(const WordReader& reader) {
    return reader.next >= reader.text.size();
}

int MeasureWord(WordReader& reader, const TextMeasure& measure) {
    int width = 0;
    for (WordPiece& piece : reader.pieces) {
        piece.width = measure.width(measure.device, piece.face, piece.text);
        width += piece.width;
    }
    return width;
}
