#include "data/verses.h"

#include "scripture/books.h"

std::string ReferenceOf(const Verse& verse) {
    return std::string(BookAbbreviation(verse.book)) + ' ' + std::to_string(verse.chapter) + ':' +
           std::to_string(verse.verse);
}
