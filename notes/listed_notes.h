// The verses that have notes, for the Verse List.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "notes/note_search.h"

// What a user chooses besides the words. As they are stored; they mean yes or no.
struct ListNotesOptions {
    int SubString = 0;
    int AllSets = 1;  // otherwise the current one
    int InRange = 0;  // that of the searches; otherwise the whole Bible
};

struct ListedNotesQuery {
    std::vector<std::string> words;  // a note must have all of them; each as the text of a NoteQuery; none: any note
    bool substrings = false;         // otherwise whole words
    SearchRange range;
};

// What was asked of a list: enough to tell later, in which sets a note of one of its verses is one that was asked for.
struct ListedQuestion {
    std::string set{};                 // its name; empty: all
    std::vector<std::string> words{};  // as in ListedNotesQuery
    bool substrings = false;
};

struct ListedNotes {
    std::vector<std::int32_t> verses;  // ascending, each once
    int sets = 0;                      // how many have such notes
    int unreadableSets = 0;            // how many could not be read; their notes are not listed
    bool isStopped = false;            // by `progress`: the list is not complete
};

// The words of a text that a user has typed; blanks are between them.
std::vector<std::u16string> WordsTyped(std::u16string_view text);

// Looks for the notes in these sets, each of which is read again first if its files have changed. `progress` gets
// numbers from 0 to ListingSteps.
ListedNotes ListNotes(const NoteFiles& files, std::span<NoteSet> sets, const LetterTable& letters,
                      const ListedNotesQuery& query, const SearchProgress& progress);
int ListingSteps(std::span<const NoteSet> sets, const ListedNotesQuery& query);

// "312 verses with notes in 4 sets", "1 verse with a note in 1 set", and how many sets could not be read.
std::string ListedNotesSummary(const ListedNotes& notes);

// "12 notes about Romans 8:28", "1 note about Romans 8:28" or "No notes about Romans 8:28", and how many sets could not
// be read.
std::string NamingNotesSummary(std::size_t notes, int unreadableSets, const std::string& verse);

// Of these ascending verses those that have such a note in one of the sets; all of them if a set cannot be read.
std::vector<std::int32_t> StillListed(const NoteFiles& files, std::span<NoteSet> sets, const LetterTable& letters,
                                      const ListedQuestion& question, const std::vector<std::int32_t>& verses);

// The set whose note of `verse` is shown: the current one if its note is one that was asked for, otherwise the first
// with such a note. The current one, too, if none has one any more. Reads the notes of that verse.
int SetWithListedNote(const NoteFiles& files, NoteSets& notes, const LetterTable& letters,
                      const ListedQuestion& question, int verse);
