# Writes OUTPUT, a source file that defines RECORD in NAMESPACE, from the GLSL in FILE with its
# includes in place, and TEXT, the same for offline compilers.
cmake_minimum_required(VERSION 3.25)

# In these versions of GLSL, "#line N" says that the line after the next newline is N + 1.
function(read_shader file number result)
  get_filename_component(beside ${file} DIRECTORY)
  file(READ ${file} text)
  # Lists would eat these: they are other characters for a while.
  string(ASCII 1 semicolon)
  string(ASCII 2 opening)
  string(ASCII 3 closing)
  string(REPLACE ";" "${semicolon}" text "${text}")
  string(REPLACE "[" "${opening}" text "${text}")
  string(REPLACE "]" "${closing}" text "${text}")
  string(REPLACE "\n" ";" lines "${text}")
  set(out "")
  set(line 0)
  set(source 0)
  foreach(each IN LISTS lines)
    math(EXPR line "${line} + 1")
    if(each MATCHES "^#include \"(.*)\"")
      set(include ${beside}/${CMAKE_MATCH_1})
      if(NOT EXISTS ${include})
        set(include ${INCLUDES}/${CMAKE_MATCH_1})
      endif()
      math(EXPR source "${source} + 1")
      file(READ ${include} included)
      if(included MATCHES "#include")
        message(FATAL_ERROR "${include}: an included file includes nothing itself")
      endif()
      string(APPEND out "#line 0 ${source}\n${included}#line ${line} 0\n")
    else()
      string(APPEND out "${each}\n")
    endif()
  endforeach()
  string(REGEX REPLACE "\n$" "" out "${out}")
  string(REPLACE "${semicolon}" ";" out "${out}")
  string(REPLACE "${opening}" "[" out "${out}")
  string(REPLACE "${closing}" "]" out "${out}")
  set(${result} "${out}" PARENT_SCOPE)
endfunction()

read_shader(${FILE} 0 text)
file(WRITE ${TEXT} "${text}")

file(READ ${TEXT} bytes HEX)
string(LENGTH "${bytes}" digits)
math(EXPR size "${digits} / 2")
string(REGEX REPLACE "(................................................)" "\\1\n    " bytes "${bytes}")
string(REGEX REPLACE "([0-9a-f][0-9a-f])" "0x\\1," bytes "${bytes}")
if(NAMESPACE)
  set(inside "brushworks::${NAMESPACE}")
else()
  set(inside "brushworks")
endif()
get_filename_component(name ${FILE} NAME)
file(WRITE ${OUTPUT} "// ${name}, embedded.
#include \"gpu/shader_struct.h\"

namespace ${inside} {

static constexpr std::uint8_t kText[] = {
    ${bytes}};

extern const ShaderStruct ${RECORD};
const ShaderStruct ${RECORD} = {kText, ${size}, 0, 0};

}  // namespace ${inside}
")
