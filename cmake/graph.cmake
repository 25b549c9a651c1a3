# The dependencies between the program's folders. A folder may include itself, the folders that it stands on, and those
# that they stand on. CMake links the core libraries accordingly, the README repeats this graph as a table, and a test
# checks every include and that table.
set(STANDS_ON_scripture)
set(STANDS_ON_search scripture)
set(STANDS_ON_typeset scripture)
set(STANDS_ON_pane search typeset)
set(STANDS_ON_notes pane)
set(STANDS_ON_history notes)
set(STANDS_ON_output notes)
set(STANDS_ON_exchange history output)
set(STANDS_ON_print output)
set(STANDS_ON_passage output)
set(STANDS_ON_verselist output)
set(STANDS_ON_app exchange print passage verselist)
set(STANDS_ON_cli app)
