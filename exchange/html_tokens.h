// The tags and the text of a web page.
#pragma once

#include <string>
#include <string_view>
#include <utility>
#include <vector>

struct HtmlTag {
    std::string name;  // in small letters
    bool isEnd = false;
    std::vector<std::pair<std::string, std::string>> attributes{};  // names in small letters, values without entities
};

struct HtmlToken {
    bool isTag = false;
    HtmlTag tag{};
    std::string text{};  // without entities, if it is no tag
};

// Takes the next token from the page. Comments, declarations and what styles, scripts and the title contain are passed
// over. False at the end. A tag without an end is text.
bool TakeToken(std::string_view& page, HtmlToken& token);

// The value of an attribute; null if the tag does not have it.
const std::string* AttributeOf(const HtmlTag& tag, std::string_view name);

// Is the word one of those in the attribute "class"?
bool HasClass(const HtmlTag& tag, std::string_view word);

// The text without entities: those of the letters of Latin 1, of usual punctuation, and numbers. Others stay.
std::string WithoutEntities(std::string_view text);

// Appends the text so that it can stand between tags and in the values of attributes.
void AppendHtmlText(std::string_view text, std::string& page);
