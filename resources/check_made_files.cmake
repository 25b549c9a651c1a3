# Fails with a helpful message if one of FILES is missing; TARGET of the host build makes them.

foreach(file IN LISTS FILES)
  if(NOT EXISTS ${file})
    message(FATAL_ERROR "${file} is missing. Make it with the host build first:\n"
                        "  cmake --preset host && cmake --build --preset host --target ${TARGET}")
  endif()
endforeach()
