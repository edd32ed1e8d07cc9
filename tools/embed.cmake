# Writes files as C++ constants, which HEADER declares:
# cmake -DFOLDER=... -DPARTS=kConstant:file,... -DHEADER=... -DOUTPUT=... -P embed.cmake
set(text "// Made by embed.cmake from the files of ${FOLDER}.\n#include \"${HEADER}\"\n\nnamespace brushworks::tools {\n")
string(REPLACE "," ";" PARTS "${PARTS}")
foreach(part IN LISTS PARTS)
  string(REPLACE ":" ";" part "${part}")
  list(GET part 0 constant)
  list(GET part 1 file)
  file(READ "${FOLDER}/${file}" content)
  string(APPEND text "\nconst std::string_view ${constant} = R\"~~(${content})~~\";\n")
endforeach()
string(APPEND text "\n}  // namespace brushworks::tools\n")
file(WRITE "${OUTPUT}" "${text}")
