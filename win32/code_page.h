// Texts in the system's ANSI code page, which is the encoding of the program's own texts, and in UTF-16.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "win32/windows_api.h"

// The same text in the types of Windows and of the program's core.
std::wstring Wide(std::u16string_view letters);
std::u16string LettersOf(std::wstring_view wide);

// Text in the code page, in UTF-16.
std::wstring WideOfCodePage(std::string_view text);

// UTF-16 text in the code page; nullopt if that lacks a character of it.
std::optional<std::string> InCodePage(std::wstring_view text);

// The same with each missing character replaced as Windows does it, by a similar one or by a question mark.
std::string NearestInCodePage(std::wstring_view text);

// The same without the missing characters.
std::string KnownInCodePage(std::wstring_view text);
