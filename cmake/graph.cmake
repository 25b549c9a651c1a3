# Which folder of the program stands on which: a folder may include itself, the folders named here and those that they
# stand on. The libraries of the core are linked by it, the README shows it, and a test holds every include to it.
set(STANDS_ON_scripture)
set(STANDS_ON_search scripture)
set(STANDS_ON_typeset scripture)
set(STANDS_ON_pane search typeset)
set(STANDS_ON_notes pane)
set(STANDS_ON_output notes)
set(STANDS_ON_print output)
set(STANDS_ON_passage output)
set(STANDS_ON_verselist output)
set(STANDS_ON_app print passage verselist)
