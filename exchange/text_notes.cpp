#include "exchange/text_notes.h"

std::string WriteTextNotes(const ExchangeContext&, const ExchangedNotes&, const ExportOptions&) {
    return {};
}

ExchangedNotes ReadTextNotes(const ExchangeContext&, std::string_view) {
    return {};
}
