# Copies the chapters of the help so that a link shows the title of its page. halibut makes the text of a link from a
# word such as "Page" and the number, so each heading gives its own title as that word: "Bookmarks, page 1.6".
# It also puts the version of the program in the place of %VERSION%.
# CHAPTERS: the chapters; VERSION: the version; FOLDER: where the copies go; FORM: pages, or winhelp, where a heading always begins with the
# text of its links, so that a blank is enough for the rest of it.
foreach(chapter ${CHAPTERS})
  get_filename_component(name ${chapter} NAME)
  file(READ ${chapter} text)
  set(heading "\\2")
  if(FORM STREQUAL winhelp)
    set(heading "\\\\_")
  endif()
  string(REGEX REPLACE "\n\\\\C{([A-Za-z_]+)} ([^\n]+)" "\n\\\\C{\\1}{\\2, Chapter} ${heading}" text "${text}")
  string(REGEX REPLACE "\n\\\\H{([A-Za-z_]+)} ([^\n]+)" "\n\\\\H{\\1}{\\2, page} ${heading}" text "${text}")
  string(REPLACE "%VERSION%" "${VERSION}" text "${text}")
  file(WRITE ${FOLDER}/${name} "${text}")
endforeach()
