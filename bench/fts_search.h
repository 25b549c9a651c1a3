// The same text in a full-text table of SQLite in memory, for comparison.
#pragma once

#include <string>

#include "scripture/scripture.h"

struct sqlite3;

// Opens the table and fills it with all verses; ends the program with a message if SQLite reports an error.
sqlite3* OpenFullTextTable(const Scripture& scripture);

// Fetches every verse that matches `query`, in SQLite's query language, with its matches marked by highlight(). Returns
// the number of verses.
int FetchHighlighted(sqlite3* table, const std::string& query);
