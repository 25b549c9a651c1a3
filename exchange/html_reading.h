// Reading a web page with notes; the other half of exchange/html_notes.h.
#pragma once

#include <string_view>

#include "exchange/exchanged_notes.h"

ExchangedNotes ReadHtmlNotes(const ExchangeContext& context, std::string_view bytes);
