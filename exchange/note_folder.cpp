#include "exchange/note_folder.h"

ExchangedNotes ReadNoteFolder(const ExchangeContext&, std::span<const NamedText>) {
    return {};
}
