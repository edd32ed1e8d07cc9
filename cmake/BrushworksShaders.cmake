# brushworks_shaders(TARGET [NAMESPACE name] SHADERS "RECORD FILE"...)
#
# Puts files of GLSL into a library as shader records: RECORD becomes a constant ShaderStruct of that
# name in brushworks:: or brushworks::NAMESPACE, declared by hand where its users look. A line
# #include "name" in a shader is replaced by a file from beside it or from gpu/shaders/include. The whole
# texts, for offline compilers, are listed in the global property BRUSHWORKS_SHADER_TEXTS.
set(BRUSHWORKS_SHADER_INCLUDES ${PROJECT_SOURCE_DIR}/gpu/shaders/include)
set(BRUSHWORKS_EMBED_SHADER ${CMAKE_CURRENT_LIST_DIR}/embed_shader.cmake)

function(brushworks_shaders target)
  cmake_parse_arguments(PARSE_ARGV 1 ARG "" "NAMESPACE" "SHADERS")
  foreach(shader IN LISTS ARG_SHADERS)
    separate_arguments(shader UNIX_COMMAND "${shader}")
    list(GET shader 0 record)
    list(GET shader 1 file)
    set(file ${CMAKE_CURRENT_SOURCE_DIR}/${file})
    set(folders ${CMAKE_CURRENT_SOURCE_DIR} ${BRUSHWORKS_SHADER_INCLUDES})

    # A file that another includes is a reason to embed anew; a new include is a reason to look anew.
    set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${file})
    file(STRINGS ${file} includes REGEX "^#include \"")
    list(TRANSFORM includes REPLACE "^#include \"(.*)\".*" "\\1")
    get_filename_component(beside ${file} DIRECTORY)
    set(dependencies ${file})
    foreach(include IN LISTS includes)
      if(EXISTS ${beside}/${include})
        list(APPEND dependencies ${beside}/${include})
      else()
        list(APPEND dependencies ${BRUSHWORKS_SHADER_INCLUDES}/${include})
      endif()
    endforeach()

    set(embedded ${CMAKE_CURRENT_BINARY_DIR}/shaders/${record}.cpp)
    string(REGEX REPLACE ".*\\.([a-z]+)\\.glsl$" "\\1" stage ${file})
    set(text ${CMAKE_CURRENT_BINARY_DIR}/shaders/${record}.${stage})
    add_custom_command(OUTPUT ${embedded} ${text}
        COMMAND ${CMAKE_COMMAND} -DRECORD=${record} -DNAMESPACE=${ARG_NAMESPACE} -DFILE=${file}
            -DINCLUDES=${BRUSHWORKS_SHADER_INCLUDES} -DOUTPUT=${embedded} -DTEXT=${text}
            -P ${BRUSHWORKS_EMBED_SHADER}
        DEPENDS ${dependencies} ${BRUSHWORKS_EMBED_SHADER}
        COMMENT "Embedding ${record}" VERBATIM)
    target_sources(${target} PRIVATE ${embedded})
    set_property(GLOBAL APPEND PROPERTY BRUSHWORKS_SHADER_TEXTS ${text})
  endforeach()
endfunction()
