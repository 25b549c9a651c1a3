#include "tests/support/exchange_samples.h"

#include <array>
#include <random>

std::u16string LettersOfOddPage(void*, std::string_view bytes) {
    std::u16string letters;
    for (std::size_t at = 0; at < bytes.size(); ++at) {
        const auto byte = static_cast<unsigned char>(bytes[at]);
        const bool isDouble = byte == 0x81 && at + 1 < bytes.size() && bytes[at + 1] == '\x40';
        letters += isDouble ? u'\x3042' : byte == 0x9D || byte == 0x81 ? u'?' : static_cast<char16_t>(byte);
        at += isDouble;
    }
    return letters;
}

bool BytesOfOddPage(void*, std::u16string_view letters, std::string& bytes) {
    bytes.clear();
    for (const char16_t letter : letters) {
        if (letter == u'\x3042')
            bytes += "\x81\x40";
        else if (letter > 0xFF || letter == 0x9D || letter == 0x81)
            return false;
        else
            bytes += static_cast<char>(letter);
    }
    return true;
}

static const std::string kUtf8(kUtf8Mark);

std::vector<std::string> HardNotes() {
    std::string all;
    for (int byte = 1; byte < 256; ++byte) all += static_cast<char>(byte);
    return {
        "plain",
        "two\r\nlines",
        "\r\n",
        "\r\n\r\n",
        "ends\r\n",
        "ends in three\r\n\r\n\r\n",
        "\r\nbegins",
        " ",
        "  \r\n  \r\n\t",
        "trailing  \r\nblanks  \r\n  \r\n  ",
        "lone\rCR",
        "lone\nLF\nand\\\nbackslash",
        "\r\r\n\n\r",
        "\n",
        "\r",
        "ends in CR\r",
        "== Romans 8:28 ==\r\n=== Romans 8:28 === ldmkapoc\r\n\\=== more\r\n===\r\n====",
        "=== End ===\r\n === End ===\r\n=== End === \r\n\\=== End ===",
        "<!-- end mark -->\r\n  <!-- end mark -->\r\n\\<!-- end mark -->",
        "Notes: other",
        "# Romans 8:28\r\n## Romans 8:28 <!-- ldmkapoc -->\r\n  ### x\r\n#",
        "# Ge 1:1; Ex 2:4, 6-8\r\ntext # Re 22:21 # Ps 1",
        "```\r\ncode\r\n```\r\n~~~",
        "<h2>Romans 8:28</h2><pre class=\"note\"></pre></article><!-- x --><br>",
        "&amp; &lt;b&gt; &#65; &nosuch; & &&amp;amp;",
        "</pre>",
        "\"quoted\", and \"\"doubled\"\"\r\n\"",
        "a,b;c\td",
        ",",
        "=1+1\r\n+1\r\n-1\r\n@x",
        "sep=;",
        "\\\\ \\x41 \\r \\8 \\# \\* \\",
        "ends in backslash\\\r\nnext\\",
        "\\",
        "* one\r\n* *two*\r\n- three\r\n----\r\n-\r\n===\r\n+ four\r\n1. five",
        "[x]: y\r\n[a](b) [c][d] ![e](f)",
        "| a | b |\r\n|---|---|\r\n> quoted",
        "_under_ `code` ~~gone~~ **bold**",
        "text\r\n----------------------------------------\r\nAlso written elsewhere:\r\nother",
        "caf\xE9 \x93quoted\x94",
        "\x9D\x81\x40\x81 odd",
        "\x01\x1F\x7F control\f\v",
        kUtf8 + "\xCE\xB1\xCF\x89 Greek",
        kUtf8 + "caf\xC3\xA9 could be in the code page",
        kUtf8 + "ASCII in UTF-8",
        kUtf8 + "\xE2\x80\xA8 separators \xE2\x80\xA9 \xEF\xBB\xBF mark \xEF\xBF\xBE \xEF\xB7\x90 \xC2\x85",
        kUtf8 + "\xF0\x9F\x95\x8A four bytes\nLF \\8 \\xE9",
        kUtf8,
        kUtf8 + "\xFF not valid",
        kUtf8 + kUtf8 + "twice",
        "\\8",
        all,
        std::string(65533, 'x'),
        std::string(65533, '\n'),
        "escaped",
    };
}

std::string RandomNote(unsigned seed) {
    static const std::array<std::string, 50> kPieces = {"\r\n",
                                                        "\r\n",
                                                        "\r",
                                                        "\n",
                                                        " ",
                                                        "  ",
                                                        "\t",
                                                        "a",
                                                        "Rom 8:28",
                                                        "=== End ===",
                                                        "<!-- end mark -->",
                                                        "=== ",
                                                        "===",
                                                        "#",
                                                        "## ",
                                                        "\\",
                                                        "\\\\",
                                                        "\\x9D",
                                                        "\\r",
                                                        "\\8",
                                                        "*",
                                                        "_",
                                                        "`",
                                                        "~",
                                                        "<",
                                                        ">",
                                                        "</",
                                                        "&",
                                                        "&amp;",
                                                        ";",
                                                        ",",
                                                        "\"",
                                                        "\"\"",
                                                        "-",
                                                        "+",
                                                        "|",
                                                        "[",
                                                        "]",
                                                        "(",
                                                        ":",
                                                        "<!--",
                                                        "-->",
                                                        "<pre class=\"note\">",
                                                        "</pre>",
                                                        "</article>",
                                                        "\x01",
                                                        "\x9D",
                                                        "\xE9",
                                                        "\xC3\xA9",
                                                        "\xE2\x80\xA8"};
    std::mt19937 random(seed);
    std::string note = random() % 4 == 0 ? kUtf8 : "";
    for (auto size = random() % 12 + 1; size > 0; --size) note += kPieces[random() % kPieces.size()];
    return note;
}
