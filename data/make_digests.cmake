# Writes the SHA-256 digests of the scripture files, in the form that sha256sum checks.
# FOLDER: the files' folder; NAMES: the files; LIST: the file to write.
set(lines "")
foreach(name IN LISTS NAMES)
  file(SHA256 ${FOLDER}/${name} digest)
  string(APPEND lines "${digest}  ${name}\n")
endforeach()
file(WRITE ${LIST} "${lines}")
