# Makes a file a text of C++: cmake -D FILE=... -D RESULT=... -P built_files.cmake
file(READ ${FILE} text)
file(CONFIGURE OUTPUT ${RESULT} CONTENT "R\"built(${text})built\"\n" @ONLY)
