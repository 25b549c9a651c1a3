#include "data/edition.h"

#include "data/conformed_readings.h"
#include "data/corrections.h"
#include "data/osis_text.h"
#include "data/text_checks.h"
#include "scripture/scripture.h"

Complaint ConvertEdition(Verses& verses) {
    for (Verse& verse : verses) verse.text = TextOfOsis(verse.text);
    Complaint complaint = ApplyCorrections(ModuleCorrections(), verses);
    if (complaint.empty()) complaint = ApplyCorrections(ConformingChanges(), verses);
    if (!complaint.empty()) return complaint;
    for (Verse& verse : verses)
        if (verse.verse == 1 && !BeginsParagraph(verse.text)) verse.text.insert(0, 1, kParagraphMark);
    return CheckVerses(verses);
}

std::uint64_t FingerprintOf(const Verses& verses) {
    std::uint64_t hash = 0xcbf29ce484222325;
    for (const Verse& verse : verses)
        for (const char *letter = verse.text.c_str(), *end = letter + verse.text.size(); letter <= end; ++letter)
            hash = (hash ^ static_cast<unsigned char>(*letter)) * 0x100000001b3;
    return hash;
}

Complaint CheckFingerprint(const Verses& verses) {
    if (FingerprintOf(verses) == kTextFingerprint) return {};
    return "the texts are not those of the edition";
}
