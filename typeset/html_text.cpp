#include "typeset/html_text.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <utility>

#include "scripture/latin_letters.h"

namespace {

// What a byte of the text is to the HTML.
enum class ByteUse : unsigned char { kCopied, kEscaped, kLineEnd, kLatin, kBracket, kMark, kLeftOut };

using ByteUses = std::array<ByteUse, 256>;

}  // namespace

// ---- Bytes ----------------------------------------------------------------------------------------------------------

static constexpr ByteUses With(ByteUses uses, std::string_view bytes, ByteUse use) {
    for (const char byte : bytes) uses[static_cast<unsigned char>(byte)] = use;
    return uses;
}

static constexpr ByteUses kInNotes = [] {
    ByteUses uses{};
    for (std::size_t byte = 0; byte < ' '; ++byte) uses[byte] = ByteUse::kLeftOut;
    uses = With(uses, "\t", ByteUse::kCopied);
    uses = With(uses, "\r\n", ByteUse::kLineEnd);
    return With(uses, "&<>\"", ByteUse::kEscaped);
}();

static constexpr ByteUses kInVersesWithBrackets = [] {
    constexpr char kMarks[] = {kReferenceFollows, kSuppliedFollows, kPlainFollows};
    ByteUses uses = With(kInNotes, {kMarks, sizeof kMarks}, ByteUse::kMark);
    for (std::size_t byte = 0x80; byte < uses.size(); ++byte) uses[byte] = ByteUse::kLatin;
    return uses;
}();

static constexpr ByteUses kInVerses = With(kInVersesWithBrackets, "[]", ByteUse::kBracket);

static std::string_view EscapeOf(char byte) {
    return byte == '&' ? "&amp;" : byte == '<' ? "&lt;" : byte == '>' ? "&gt;" : "&quot;";
}

// ---- Writing --------------------------------------------------------------------------------------------------------
// The procedures write to `to`, where there is room, and return where the next byte goes.

static char* Put(std::string_view text, char* to) {
    return std::copy(text.begin(), text.end(), to);
}

static char* PutEnd(VersesHtml& html, char* to) {
    const char open = std::exchange(html.open, kPlainFollows);
    return open == kReferenceFollows ? Put("</b>", to) : open == kSuppliedFollows ? Put("</i>", to) : to;
}

// Neighbours in one face become one element, because it is closed only when text in another one follows.
static char* TurnToFace(VersesHtml& html, char* to) {
    if (html.open == html.face) return to;
    to = PutEnd(html, to);
    html.open = html.face;
    return html.open == kReferenceFollows ? Put("<b>", to) : html.open == kSuppliedFollows ? Put("<i>", to) : to;
}

static char* PutLatin(char byte, char* to) {
    std::string utf8;
    AppendUtf8(LatinLetter(byte), utf8);
    return Put(utf8, to);
}

static char* PutSpecial(VersesHtml& html, char byte, ByteUse use, char* to) {
    switch (use) {
        case ByteUse::kMark: html.face = byte; return to;
        case ByteUse::kBracket: html.face = byte == '[' ? kSuppliedFollows : kPlainFollows; return to;
        case ByteUse::kEscaped: return Put(EscapeOf(byte), TurnToFace(html, to));
        case ByteUse::kLatin: return PutLatin(byte, TurnToFace(html, to));
        case ByteUse::kLineEnd: return byte == '\n' && html.last == '\r' ? to : Put("<br>", TurnToFace(html, to));
        case ByteUse::kCopied:
        case ByteUse::kLeftOut: break;
    }
    return to;
}

static char* PutBytes(VersesHtml& html, std::string_view bytes, const ByteUses& uses, char* to) {
    const auto useOf = [&](char byte) { return uses[static_cast<unsigned char>(byte)]; };
    const auto isOther = [&](char byte) { return useOf(byte) != ByteUse::kCopied; };
    const char* from = bytes.data();
    const char* const end = from + bytes.size();
    while (from < end) {
        const ByteUse use = useOf(*from);
        if (use == ByteUse::kCopied) {
            to = TurnToFace(html, to);
            const char* const other = std::find_if(from + 1, end, isOther);  // looking before copying is faster
            to = Put({from, other}, to);
            from = other;
        } else {
            to = PutSpecial(html, *from++, use, to);
        }
        html.last = from[-1];
    }
    return to;
}

static char* RoomFor(VersesHtml& html, std::size_t size) {
    const std::size_t needed = html.size + size;
    if (needed > html.bytes.size()) html.bytes.resize(std::max(needed, 2 * html.bytes.size()));
    return html.bytes.data() + html.size;
}

static void Append(VersesHtml& html, std::string_view text, const ByteUses& uses) {
    static constexpr std::size_t kBlock = 1024;
    static constexpr std::size_t kMostForByte = std::string_view("</b><i>&quot;").size();
    for (std::size_t at = 0; at < text.size(); at += kBlock) {
        char* const begin = RoomFor(html, kBlock * kMostForByte);
        html.size += static_cast<std::size_t>(PutBytes(html, text.substr(at, kBlock), uses, begin) - begin);
    }
}

void AppendHtml(VersesHtml& html, std::string_view marked) {
    Append(html, marked, html.brackets == HtmlBrackets::kShown ? kInVersesWithBrackets : kInVerses);
}

std::string TakeHtml(VersesHtml& html) {
    static constexpr std::size_t kLongestEnd = 4;
    char* const begin = RoomFor(html, kLongestEnd);
    html.size += static_cast<std::size_t>(PutEnd(html, begin) - begin);
    html.bytes.resize(html.size);
    return std::exchange(html, {html.brackets}).bytes;
}

std::string HtmlOfVerses(std::string_view marked, HtmlBrackets brackets) {
    VersesHtml html{brackets};
    AppendHtml(html, marked);
    return TakeHtml(html);
}

std::string HtmlOfNote(std::string_view utf8) {
    VersesHtml html;
    Append(html, utf8, kInNotes);
    return "<span style=\"white-space:pre-wrap\">" + TakeHtml(html) + "</span>";
}

// ---- The clipboard --------------------------------------------------------------------------------------------------

static constexpr std::string_view kBefore = "<html><head><meta charset=\"utf-8\"></head><body>\r\n<!--StartFragment-->";
static constexpr std::string_view kBehind = "<!--EndFragment-->\r\n</body></html>";

// All places have ten digits, so that the description always has the same length.
static std::string DescriptionOf(std::size_t document, std::size_t fragment, std::size_t fragmentEnd,
                                 std::size_t documentEnd) {
    char text[160];
    const int size = std::snprintf(text, sizeof text,
                                   "Version:0.9\r\nStartHTML:%010zu\r\nEndHTML:%010zu\r\nStartFragment:%010zu\r\n"
                                   "EndFragment:%010zu\r\n",
                                   document, documentEnd, fragment, fragmentEnd);
    return {text, static_cast<std::size_t>(size)};
}

std::string ClipboardHtml(std::string_view fragment) {
    const std::size_t document = DescriptionOf(0, 0, 0, 0).size();
    const std::size_t start = document + kBefore.size(), end = start + fragment.size();
    std::string html;
    html.reserve(end + kBehind.size());
    html += DescriptionOf(document, start, end, end + kBehind.size());
    return html.append(kBefore).append(fragment).append(kBehind);
}
