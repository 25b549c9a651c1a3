// Reads the HTML of copied texts, as another program would.
#pragma once

#include <string>
#include <string_view>
#include <vector>

struct ReadHtml {
    std::string text;  // in UTF-8, with "\r\n" for <br>
    std::vector<std::string> bold, italics;
    std::string fault;  // what is wrong with the elements; empty if nothing is
};

// Knows <b>, <i>, <span>, <br> and the letters &amp; &lt; &gt; &quot;.
ReadHtml ReadHtmlText(std::string_view html);

// Text with the letters of scripture in UTF-8.
std::string Utf8OfLatin(std::string_view latin);
