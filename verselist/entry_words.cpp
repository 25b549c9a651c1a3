// Separate from the layout, which only places words: here they are marked and measured.
#include "verselist/entry_words.h"

#include "search/key_word_marks.h"
#include "search/near_search.h"

static void AddPiece(EntryWords& entry, const WordPiece& piece) {
    entry.pieces.push_back({piece.face, piece.keyWord, piece.width, entry.text.size(), piece.text.size()});
    entry.text += piece.text;
}

static void Mark(const EntryMaking& making, int verse, std::string& text) {
    if (making.query->kind == QueryKind::kNear)
        MarkNearWords(making.scripture, making.query->nearQuery, verse, text);
    else
        MarkKeyWords(*making.query, text);
}

static EntryWords MakeWords(const EntryMaking& making, int verse) {
    std::string marked(VerseText(making.scripture, verse).substr(0, kMarkedTextLimit - 1));
    if (making.query != nullptr) Mark(making, verse, marked);
    WordReader reader;
    reader.brackets = making.brackets;
    OpenVerse(reader, marked);
    EntryWords entry;
    entry.text.reserve(marked.size() + 1);
    while (ReadWord(reader)) {
        const int width = MeasureWord(reader, making.measure);
        for (const WordPiece& piece : reader.pieces) AddPiece(entry, piece);
        entry.words.push_back({width, entry.pieces.size()});
    }
    return entry;
}

EntryWords& WordsOfEntry(KnownEntries& known, const EntryMaking& making, int verse) {
    if (known.brackets != making.brackets) known.byVerse.clear();
    known.brackets = making.brackets;
    const auto found = known.byVerse.find(verse);
    if (found != known.byVerse.end()) return found->second;
    if (known.byVerse.size() >= kMostKnownEntries) known.byVerse.clear();
    return known.byVerse.emplace(verse, MakeWords(making, verse)).first->second;
}
