#include "exchange/html_notes.h"

std::string WriteHtmlNotes(const ExchangeContext&, const ExchangedNotes&, const ExportOptions&) {
    return {};
}

ExchangedNotes ReadHtmlNotes(const ExchangeContext&, std::string_view) {
    return {};
}
