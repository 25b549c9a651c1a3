// References to verses in the running text of a note: "see Rom 8:28-30", "v. 12", "Ps. 1, 2; 119:11", "1 Cor. xiii. 4".
//
//     text         = { reference | anything else } ;
//     reference    = of a book | of the note | bare | outline ;
//     of a book    = book, [ "." | "," | ":" ], [ chapter word ], place, { separator, item } ;
//     of the note  = ( chapter word, place, [ "of", book ] | verse word, verses, [ ( "of" | "in" ), book, chapter ] ),
//                    { separator, item } ;
//     bare         = chapter, ":", verses, { separator, item } ;
//     outline      = "(", verses, ")", end of the line ;
//     place        = chapter, [ verse sign, verses ] | chapters ;
//     chapters     = chapter, range sign, chapter, [ ":", verse ] ;
//     verses       = verse, [ range sign, [ chapter, verse sign ], verse ], [ "f." | "ff." ] ;
//     verse sign   = ":" | "." | ( "." | "," ), blank | [ "," | "." ], verse word ;
//     item         = [ chapter word ], place | [ verse word ], verses ;
//     separator    = [ "&c." ], { "," | ";" | "." | blank }, [ "and" | "&" | "or" ], [ "see" | "cf." | "also" ] ;
//     range sign   = hyphen | dash | "to" | "through" ;
//     book         = [ "1" | "I" | "First" | "1st" | "2" ... ], name or abbreviation (notes/reference_books.cpp) ;
//     chapter      = figures | Roman number ;
//     verse        = figures, [ "a" | "b" | "c" ] ;
//     chapter word = "ch." | "chap." | "chapter" | "chapters" ... | "c." behind a book ;
//     verse word   = "v." | "vv." | "ver." | "verse" | "verses" ... ;
//
// Blanks may stand between all of these, but no line end. What the grammar leaves open:
//   - The verses must exist. A range whose end does not exist is its first verse. "121-2" is 121-122.
//   - Without a book it is the book of the note, without a chapter the chapter of the note. But items of a list take
//     what they omit from the item before; one with a verse word only if that has a word, too: in "Rom 8:28 and v. 3"
//     that is a verse of the note. "ver. 3 of Ps. 40" is in that psalm.
//   - An item that is a number alone is a verse behind a verse and a chapter behind a chapter. Behind "and" it must be
//     greater than the one before. Behind ";" and a verse of another book it could be either, and is none.
//   - A full stop is the verse sign behind a Roman chapter ("xiii. 4"), between figures without a blank ("8.28"), and,
//     with one, behind an abbreviation with a full stop ("Psal. 119. 11."). Otherwise it ends the list, except one of
//     chapters ("Psalms 2. 8. 16.").
//   - In a book of one chapter a number alone is a verse ("Jude 5").
//   - In a note on a psalm no other psalm is a "chapter". Behind the "book" of another work a chapter is none.
//   - "f." adds the verse that follows, "ff." all to the end of the chapter.
//   - A book in small letters ("rom 8:28"), or one that is also a word or a month ("Is", "Am", "Mar."), needs ":" and a
//     verse. A word may have a full stop instead ("Is. xl."), or stand behind another reference.
//   - A Roman number in capitals has a verse or two letters, behind names of people ("James II") a verse.
//   - A bare one stands behind "(" or "see", "cf." or the like, or goes over chapters ("1:1-29:32"), or stands behind a
//     comma with something that a time of day does not have. An outline stands behind a full stop or begins its line.
//   - "v5" and "v. 2.0" are versions.
// A "#" and what follows in its line is a list of references of its own kind (notes/cross_references.h) and no running
// text. A number alone, or one in words, is no reference.
#pragma once

#include <span>
#include <string_view>
#include <vector>

#include "notes/text_reference.h"
#include "scripture/chapters.h"

// Finds the references of a note, as it is stored: each item of a list is one, with its book or word in front if it has
// one. They are in the order of the text and do not overlap. The vector's memory is used again. `noteVerse` is the
// verse that the note belongs to.
void FindReferences(const Chapters& chapters, const VerseRecord& noteVerse, std::string_view note,
                    std::vector<TextReference>& references);

// The reference that has `place`, in bytes of the note, in it; null if there is none.
const TextReference* ReferenceAt(std::span<const TextReference> references, std::size_t place);
