// Notes as a web page.
#pragma once

#include <string>
#include <string_view>

#include "exchange/exchanged_notes.h"

std::string WriteHtmlNotes(const ExchangeContext& context, const ExchangedNotes& notes, const ExportOptions& options);
ExchangedNotes ReadHtmlNotes(const ExchangeContext& context, std::string_view bytes);
