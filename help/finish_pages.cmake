# Finishes what halibut has made, because it has no command for pictures and numbers everything that it links to.
# PAGES: the folder of the pages; OTHERS: further files whose links are numbered; PICTURES: the picture files.

# Removes ", page 1.6" behind titles, and the blanks at which a browser must not break them.
function(remove_numbers file)
  file(READ ${file} text)
  string(REGEX REPLACE ",( |&nbsp;)(page|Chapter) [0-9.]*[0-9] ?" "" text "${text}")
  string(REPLACE "&nbsp;" " " text "${text}")
  file(WRITE ${file} "${text}")
endfunction()

file(GLOB pages ${PAGES}/*.html)
foreach(file ${pages} ${OTHERS})
  remove_numbers(${file})
endforeach()

# Inserts each picture below the heading of the page it is named after.
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
