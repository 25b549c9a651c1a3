# Fails with a helpful message if one of FILES is missing; the host build makes them.

foreach(file IN LISTS FILES)
  if(NOT EXISTS ${file})
    message(FATAL_ERROR "${file} is missing. Make the pictures with the host build first:\n"
                        "  cmake --preset host && cmake --build --preset host --target pictures")
  endif()
endforeach()
