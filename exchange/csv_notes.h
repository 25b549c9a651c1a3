// Notes as comma-separated values.
#pragma once

#include <string>
#include <string_view>

#include "exchange/exchanged_notes.h"

std::string WriteCsvNotes(const ExchangeContext& context, const ExchangedNotes& notes, const ExportOptions& options);
ExchangedNotes ReadCsvNotes(const ExchangeContext& context, std::string_view bytes);
