// Notes as Markdown.
#pragma once

#include <string>
#include <string_view>

#include "exchange/exchanged_notes.h"

std::string WriteMarkdownNotes(const ExchangeContext& context, const ExchangedNotes& notes,
                               const ExportOptions& options);
ExchangedNotes ReadMarkdownNotes(const ExchangeContext& context, std::string_view bytes);
