// Notes as plain text.
#pragma once

#include <string>
#include <string_view>

#include "exchange/exchanged_notes.h"

std::string WriteTextNotes(const ExchangeContext& context, const ExchangedNotes& notes, const ExportOptions& options);
ExchangedNotes ReadTextNotes(const ExchangeContext& context, std::string_view bytes);
