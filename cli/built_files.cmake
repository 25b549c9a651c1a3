# Makes the list of digests a text of C++: cmake -D DIGESTS=... -D RESULT=... -P built_files.cmake
file(READ ${DIGESTS} digests)
file(CONFIGURE OUTPUT ${RESULT} CONTENT "R\"(${digests})\"\n")
