// The text of a note in Markdown, so that it is shown as it was typed.
#pragma once

#include <span>
#include <string>
#include <string_view>

// Appends the text (exchange/portable_text.h), line by line.
void AppendMarkdown(std::string_view text, std::string& file);

// The text of lines of Markdown.
std::string TextOfMarkdown(std::span<const std::string_view> lines);
