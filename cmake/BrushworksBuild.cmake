# How every target of the project is built: one set of compiler options, and one function each for
# a room of the house (a folder that is a library of its own) and for a test program.

# Warnings, sanitizers and coverage, for everything that is compiled here.
add_library(brushworks_options INTERFACE)
target_compile_options(brushworks_options INTERFACE
    -Wall -Wextra -Wpedantic -Wshadow -Wnon-virtual-dtor -Wcast-align
    $<$<BOOL:${BRUSHWORKS_WERROR}>:-Werror>
    # The same bytes from every processor variant: no fused multiply-add behind the source's back.
    -ffp-contract=off)
if(BRUSHWORKS_SANITIZE)
  target_compile_options(brushworks_options INTERFACE
      -fsanitize=${BRUSHWORKS_SANITIZE} -fno-omit-frame-pointer -fno-sanitize-recover=all
      # Host and library meet by the order of virtual operations, not by common types.
      -fno-sanitize=vptr)
  target_link_options(brushworks_options INTERFACE -fsanitize=${BRUSHWORKS_SANITIZE})
endif()
if(BRUSHWORKS_COVERAGE)
  target_compile_options(brushworks_options INTERFACE --coverage)
  target_link_options(brushworks_options INTERFACE --coverage)
endif()

# brushworks_room(NAME SOURCES file... LINKS target...)
#
# A folder as a static library brushworks_NAME. Its headers are included as "NAME/header.h", and only
# by targets that link it: the include path holds this one folder, so a wrong include does not build.
function(brushworks_room room)
  cmake_parse_arguments(PARSE_ARGV 1 ARG "" "" "SOURCES;LINKS")
  add_library(brushworks_${room} STATIC ${ARG_SOURCES})
  set(roof ${PROJECT_BINARY_DIR}/rooms/${room})
  file(MAKE_DIRECTORY ${roof})
  file(CREATE_LINK ${CMAKE_CURRENT_SOURCE_DIR} ${roof}/${room} SYMBOLIC)
  target_include_directories(brushworks_${room} PUBLIC $<BUILD_INTERFACE:${roof}>)
  target_link_libraries(brushworks_${room} PUBLIC ${ARG_LINKS} PRIVATE brushworks_options)
endfunction()

# brushworks_test(NAME [THREADS] SOURCES file... LINKS target...)
#
# A GoogleTest program whose cases ctest lists one by one. THREADS says that some of them start threads:
# the others are left out under the thread sanitizer, which would see nothing in them.
if(BRUSHWORKS_TESTS)
  find_package(GTest REQUIRED)
  include(GoogleTest)
endif()
function(brushworks_test name)
  if(NOT BRUSHWORKS_TESTS)
    return()
  endif()
  cmake_parse_arguments(PARSE_ARGV 1 ARG "THREADS" "" "SOURCES;LINKS")
  if(BRUSHWORKS_SANITIZE STREQUAL "thread" AND NOT ARG_THREADS)
    return()
  endif()
  add_executable(${name} ${ARG_SOURCES})
  # A test compiles longer than it runs: what it tests is optimised, it is not.
  set(optimisation -O1)
  if(BRUSHWORKS_SANITIZE)
    set(optimisation -O0)
  endif()
  target_compile_options(${name} PRIVATE ${optimisation})
  target_link_libraries(${name} PRIVATE ${ARG_LINKS} brushworks_options GTest::gtest GTest::gmock GTest::gtest_main)
  set(sanitizer ASAN)
  if(BRUSHWORKS_SANITIZE STREQUAL "thread")
    set(sanitizer TSAN)
  endif()
  # A refused allocation is an answer that tests ask for, under the sanitizers too.
  gtest_discover_tests(${name} DISCOVERY_MODE PRE_TEST PROPERTIES TIMEOUT 300
      ENVIRONMENT ${sanitizer}_OPTIONS=allocator_may_return_null=1)
endfunction()
