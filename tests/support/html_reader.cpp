#include "tests/support/html_reader.h"

#include <utility>

#include "scripture/latin_letters.h"

namespace {

struct HtmlReading {
    ReadHtml read{};
    std::vector<std::string> open{};  // names of the elements
};

}  // namespace

static void TakeText(HtmlReading& reading, std::string_view text) {
    reading.read.text += text;
    for (const std::string& name : reading.open) {
        if (name == "b") reading.read.bold.back() += text;
        if (name == "i") reading.read.italics.back() += text;
    }
}

static void Open(HtmlReading& reading, const std::string& name) {
    if (name == "b") reading.read.bold.emplace_back();
    if (name == "i") reading.read.italics.emplace_back();
    if (name != "b" && name != "i" && name != "span") reading.read.fault = "unknown element " + name;
    reading.open.push_back(name);
}

static void Close(HtmlReading& reading, const std::string& name) {
    if (reading.open.empty() || reading.open.back() != name) {
        reading.read.fault = "closes " + name;
        return;
    }
    reading.open.pop_back();
}

static void TakeElement(HtmlReading& reading, std::string_view inside) {
    const std::string name(inside.substr(0, inside.find(' ')));
    if (name == "br") return TakeText(reading, "\r\n");
    if (name.starts_with('/')) return Close(reading, name.substr(1));
    Open(reading, name);
}

static void TakeLetter(HtmlReading& reading, std::string_view name) {
    static constexpr std::pair<std::string_view, std::string_view> kLetters[] = {
        {"amp", "&"}, {"lt", "<"}, {"gt", ">"}, {"quot", "\""}};
    for (const auto& [known, letter] : kLetters)
        if (known == name) return TakeText(reading, letter);
    reading.read.fault = "unknown letter " + std::string(name);
}

ReadHtml ReadHtmlText(std::string_view html) {
    HtmlReading reading;
    while (!html.empty()) {
        const std::size_t text = html.find_first_of("<&");
        if (text != 0) TakeText(reading, html.substr(0, text));
        if (text == html.npos) break;
        const bool isElement = html[text] == '<';
        const std::size_t end = html.find(isElement ? '>' : ';', text);
        if (end == html.npos) return {{}, {}, {}, "does not end"};
        const std::string_view inside = html.substr(text + 1, end - text - 1);
        isElement ? TakeElement(reading, inside) : TakeLetter(reading, inside);
        html.remove_prefix(end + 1);
    }
    if (!reading.open.empty()) reading.read.fault = "leaves open " + reading.open.back();
    return std::move(reading.read);
}

std::string Utf8OfLatin(std::string_view latin) {
    std::string utf8;
    for (const char byte : latin) AppendUtf8(LatinLetter(byte), utf8);
    return utf8;
}
