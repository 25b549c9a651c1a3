# Inserts each picture below the heading of the page it is named after, because halibut has no command for pictures.
# PICTURES: the picture files; PAGES: the folder of the pages.
foreach(picture ${PICTURES})
  get_filename_component(topic ${picture} NAME_WE)
  get_filename_component(name ${picture} NAME)
  set(page ${PAGES}/${topic}.html)
  file(READ ${page} text)
  string(REGEX MATCH "<title>([^<]*)</title>" title "${text}")
  string(REPLACE "</h1>\n" "</h1>\n<p class=\"picture\"><img src=\"${name}\" alt=\"${CMAKE_MATCH_1}: how it looks\"></p>\n" text
                 "${text}")
  file(WRITE ${page} "${text}")
  file(COPY ${picture} DESTINATION ${PAGES})
endforeach()
