# The Debian packages that cpack makes of a build, one for each install component.
set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME brushworks)
set(CPACK_PACKAGE_CONTACT "Brushworks developers <brushworks@localhost>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "")  # Each package has a line of its own.
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_PRE_BUILD_SCRIPTS ${CMAKE_CURRENT_LIST_DIR}/package_modes.cmake)
set(CPACK_STRIP_FILES ON)
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_COMPONENTS_GROUPING IGNORE)
set(CPACK_COMPONENTS_ALL "")

set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_COMPRESSION_TYPE xz)
set(CPACK_DEBIAN_PACKAGE_SOURCE brushworks)
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
# The library is loaded by name, which dpkg-shlibdeps does not see.
set(CPACK_DEBIAN_ENABLE_COMPONENT_DEPENDS ON)

# brushworks_package(COMPONENT PACKAGE SECTION section DESCRIPTION text
#                    [NEEDS component...] [SUGGESTS packages] [ARCHITECTURE name])
#
# The package of a component, where this build installs one. The first line of the text is the summary.
get_cmake_property(components COMPONENTS)
macro(brushworks_package component package)
  if(${component} IN_LIST components)
    cmake_parse_arguments(ARG "" "SECTION;DESCRIPTION;SUGGESTS;ARCHITECTURE" "NEEDS" ${ARGN})
    string(TOUPPER ${component} COMPONENT)
    list(APPEND CPACK_COMPONENTS_ALL ${component})
    set(CPACK_COMPONENT_${COMPONENT}_DEPENDS ${ARG_NEEDS})
    set(CPACK_DEBIAN_${COMPONENT}_PACKAGE_NAME ${package})
    set(CPACK_DEBIAN_${COMPONENT}_PACKAGE_SECTION ${ARG_SECTION})
    set(CPACK_DEBIAN_${COMPONENT}_PACKAGE_SUGGESTS ${ARG_SUGGESTS})
    set(CPACK_DEBIAN_${COMPONENT}_PACKAGE_ARCHITECTURE ${ARG_ARCHITECTURE})
    set(CPACK_DEBIAN_${COMPONENT}_DESCRIPTION "${ARG_DESCRIPTION}")
  endif()
endmacro()

brushworks_package(library libbrushworks${PROJECT_VERSION_MAJOR} SECTION libs
    # What it opens where it is there: OpenGL, and the desktop's dialogs.
    SUGGESTS "libopengl0, libdbus-1-3, zenity | kdialog"
    DESCRIPTION "painterly video effects - shared library
Oil, impressionist, cartoon, mosaic, paper collage, charcoal, coloured pencil,
halo, pencil rubbing, mural, water colour and posterize, as a library that
video software loads. It runs on the processor and starts no threads.")
# Not cpack's own list, which takes plug-ins for libraries and complains that they have no version.
file(CONFIGURE OUTPUT debian/shlibs
    CONTENT "libbrushworks ${PROJECT_VERSION_MAJOR} libbrushworks${PROJECT_VERSION_MAJOR} (>= ${PROJECT_VERSION})\n")
set(CPACK_DEBIAN_LIBRARY_PACKAGE_CONTROL_EXTRA
    ${PROJECT_BINARY_DIR}/debian/shlibs ${CMAKE_CURRENT_LIST_DIR}/triggers)

brushworks_package(development libbrushworks-dev SECTION libdevel NEEDS library
    DESCRIPTION "painterly video effects - headers for hosts
What it takes to build the effects of Brushworks into video software: the
headers, a CMake package and a pkg-config file.")

brushworks_package(tools brushworks SECTION video NEEDS library
    SUGGESTS brushworks-doc
    DESCRIPTION "painterly video effects - command line
Paints pictures and video with the twelve effects of Brushworks, lists their
controls and presets, and makes a page that shows every preset on a picture.")

brushworks_package(frei0r frei0r-plugins-brushworks SECTION video NEEDS library
    DESCRIPTION "painterly video effects - frei0r plug-ins
The twelve effects of Brushworks for software that takes frei0r plug-ins, such
as FFmpeg, GStreamer, and editors that build on MLT.")

brushworks_package(documentation brushworks-doc SECTION doc ARCHITECTURE all
    DESCRIPTION "painterly video effects - documentation and examples
What each effect of Brushworks makes of a picture, what its controls do, and
pictures and a video to try them on.")

include(CPack)
