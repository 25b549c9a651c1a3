#include "bench/fts_search.h"

#include <sqlite3.h>

#include <cstdio>
#include <cstdlib>

static void Require(bool done, sqlite3* table) {
    if (done) return;
    std::fprintf(stderr, "SQLite: %s\n", sqlite3_errmsg(table));
    std::exit(1);
}

static void Execute(sqlite3* table, const char* sql) {
    Require(sqlite3_exec(table, sql, nullptr, nullptr, nullptr) == SQLITE_OK, table);
}

static sqlite3_stmt* Prepare(sqlite3* table, const char* sql) {
    sqlite3_stmt* statement = nullptr;
    Require(sqlite3_prepare_v2(table, sql, -1, &statement, nullptr) == SQLITE_OK, table);
    return statement;
}

static void InsertVerse(sqlite3* table, sqlite3_stmt* insertion, int verse, std::string_view text) {
    if (BeginsParagraph(text)) text.remove_prefix(1);  // the mark is not valid UTF-8, which SQLite requires
    sqlite3_bind_int(insertion, 1, verse);
    sqlite3_bind_text(insertion, 2, text.data(), static_cast<int>(text.size()), SQLITE_STATIC);
    Require(sqlite3_step(insertion) == SQLITE_DONE, table);
    sqlite3_reset(insertion);
}

sqlite3* OpenFullTextTable(const Scripture& scripture) {
    sqlite3* table = nullptr;
    Require(sqlite3_open(":memory:", &table) == SQLITE_OK, table);
    Execute(table, "CREATE VIRTUAL TABLE verses USING fts5(text); BEGIN");
    sqlite3_stmt* insertion = Prepare(table, "INSERT INTO verses(rowid, text) VALUES(?, ?)");
    for (int verse = 0; verse < kVerseCount; ++verse) InsertVerse(table, insertion, verse, VerseText(scripture, verse));
    sqlite3_finalize(insertion);
    Execute(table, "COMMIT; INSERT INTO verses(verses) VALUES('optimize')");
    return table;
}

int FetchHighlighted(sqlite3* table, const std::string& query) {
    sqlite3_stmt* search =
        Prepare(table, "SELECT rowid, highlight(verses, 0, '{', '}') FROM verses WHERE text MATCH ?");
    sqlite3_bind_text(search, 1, query.c_str(), -1, SQLITE_STATIC);
    int count = 0;
    int state = sqlite3_step(search);
    for (; state == SQLITE_ROW; state = sqlite3_step(search))
        count += sqlite3_column_text(search, 1) != nullptr ? 1 : 0;
    Require(state == SQLITE_DONE, table);
    sqlite3_finalize(search);
    return count;
}
