// A section of a settings file, as the system gives it in one piece, and those of its values that every version of the
// system's procedures for single values reads alike.
#pragma once

#include <optional>
#include <string_view>

// The value of `key` in a section of texts "key=value", each with a NUL behind it: what stands behind the first "=" of
// the first such text. Blanks around the key and its capitals (of the letters A to Z) do not matter. nullopt if there
// is none.
std::optional<std::wstring_view> ValueIn(std::wstring_view section, std::wstring_view key);

// Is the value read as it stands? Not with a blank or a quotation mark at one of its ends.
bool IsPlainText(std::wstring_view value);

// The number of a value that consists of at most nine digits, with or without a minus sign before them. nullopt for
// all others, and for several digits of which the first is 0.
std::optional<int> PlainNumber(std::wstring_view value);
