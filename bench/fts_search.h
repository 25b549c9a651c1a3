// The same text in a full-text table of SQLite, held in memory, to compare with.
#pragma once

#include <string>

#include "scripture/scripture.h"

struct sqlite3;

// Opens the table and fills it with all verses; ends the program with a message when SQLite refuses.
sqlite3* OpenFullTextTable(const Scripture& scripture);

// Fetches every verse that matches `query`, in SQLite's query language, with its matches marked by highlight(). Gives
// the number of verses.
int FetchHighlighted(sqlite3* table, const std::string& query);
