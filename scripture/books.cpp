#include "scripture/books.h"

namespace {

struct Book {
    const char* name;
    const char* abbreviation;
};

}  // namespace

// The order is also the reference parser's priority: it takes the first row that matches the typed text.
static constexpr Book kBooks[kBookCount] = {
    {"Genesis", "Ge"},
    {"Exodus", "Ex"},
    {"Leviticus", "Le"},
    {"Numbers", "Nu"},
    {"Deuteronomy", "De"},
    {"Joshua", "Jos"},
    {"Judges", "Jg"},
    {"Ruth", "Ru"},
    {"1 Samuel", "1Sa"},
    {"2 Samuel", "2Sa"},
    {"1 Kings", "1Ki"},
    {"2 Kings", "2Ki"},
    {"1 Chronicles", "1Ch"},
    {"2 Chronicles", "2Ch"},
    {"Ezra", "Ezr"},
    {"Nehemiah", "Ne"},
    {"Esther", "Es"},
    {"Job", "Job"},
    {"Psalms", "Ps"},
    {"Proverbs", "Pr"},
    {"Ecclesiastes", "Ec"},
    {"Song of Solomon", "So"},
    {"Isaiah", "Isa"},
    {"Jeremiah", "Jer"},
    {"Lamentations", "La"},
    {"Ezekiel", "Eze"},
    {"Daniel", "Da"},
    {"Hosea", "Ho"},
    {"Joel", "Joe"},
    {"Amos", "Am"},
    {"Obadiah", "Ob"},
    {"Jonah", "Jon"},
    {"Micah", "Mic"},
    {"Nahum", "Na"},
    {"Habakkuk", "Hab"},
    {"Zephaniah", "Zep"},
    {"Haggai", "Hag"},
    {"Zechariah", "Zec"},
    {"Malachi", "Mal"},
    {"Matthew", "Mt"},
    {"Mark", "Mr"},
    {"Luke", "Lu"},
    {"John", "Joh"},
    {"Acts", "Ac"},
    {"Romans", "Ro"},
    {"1 Corinthians", "1Co"},
    {"2 Corinthians", "2Co"},
    {"Galatians", "Ga"},
    {"Ephesians", "Eph"},
    {"Philippians", "Php"},
    {"Colossians", "Col"},
    {"1 Thessalonians", "1Th"},
    {"2 Thessalonians", "2Th"},
    {"1 Timothy", "1Ti"},
    {"2 Timothy", "2Ti"},
    {"Titus", "Tit"},
    {"Philemon", "Phm"},
    {"Hebrews", "Heb"},
    {"James", "Jas"},
    {"1 Peter", "1Pe"},
    {"2 Peter", "2Pe"},
    {"1 John", "1Jo"},
    {"2 John", "2Jo"},
    {"3 John", "3Jo"},
    {"Jude", "Jude"},
    {"Revelation", "Re"},
};

static constexpr Book kNoBook = {"", ""};

static const Book& BookOf(int book) {
    const bool exists = book >= 1 && book <= kBookCount;
    return exists ? kBooks[book - 1] : kNoBook;
}

const char* BookName(int book) {
    return BookOf(book).name;
}

const char* BookAbbreviation(int book) {
    return BookOf(book).abbreviation;
}
