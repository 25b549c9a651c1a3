#include "exchange/markdown_notes.h"

std::string WriteMarkdownNotes(const ExchangeContext&, const ExchangedNotes&, const ExportOptions&) {
    return {};
}

ExchangedNotes ReadMarkdownNotes(const ExchangeContext&, std::string_view) {
    return {};
}
