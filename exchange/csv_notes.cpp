#include "exchange/csv_notes.h"

std::string WriteCsvNotes(const ExchangeContext&, const ExchangedNotes&, const ExportOptions&) {
    return {};
}

ExchangedNotes ReadCsvNotes(const ExchangeContext&, std::string_view) {
    return {};
}
