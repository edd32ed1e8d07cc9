# Installs the build into a folder of its own and builds the small host there, once by the CMake package
# and once by pkg-config. Arguments: BUILD, SOURCE, WORK, CXX, LIBDIR, and
# FREI0R_FOLDER where there are plug-ins.
function(run what)
  execute_process(COMMAND ${ARGN} RESULT_VARIABLE status OUTPUT_VARIABLE output ERROR_VARIABLE output)
  if(NOT status EQUAL 0)
    message(FATAL_ERROR "${what} failed (${status}):\n${output}")
  endif()
  set(output "${output}" PARENT_SCOPE)
endfunction()

function(expect_twelve_names)
  string(REGEX MATCHALL "\n" lines "${output}")
  list(LENGTH lines count)
  if(NOT count EQUAL 12 OR NOT output MATCHES "Posterize")
    message(FATAL_ERROR "the host printed:\n${output}")
  endif()
endfunction()

file(REMOVE_RECURSE ${WORK})
set(prefix ${WORK}/prefix)
run("install" ${CMAKE_COMMAND} --install ${BUILD} --prefix ${prefix})

run("configure" ${CMAKE_COMMAND} -S ${SOURCE} -B ${WORK}/host -DCMAKE_PREFIX_PATH=${prefix} -DCMAKE_CXX_COMPILER=${CXX})
run("build" ${CMAKE_COMMAND} --build ${WORK}/host)
run("host" ${WORK}/host/install_host)
expect_twelve_names()

find_program(PKG_CONFIG pkg-config)
if(PKG_CONFIG)
  set(ENV{PKG_CONFIG_PATH} ${prefix}/${LIBDIR}/pkgconfig)
  run("pkg-config" ${PKG_CONFIG} --cflags --libs brushworks)
  separate_arguments(flags UNIX_COMMAND "${output}")
  run("compile" ${CXX} ${SOURCE}/install_host.cpp -o ${WORK}/by_pkg_config ${flags} -Wl,-rpath,${prefix}/${LIBDIR})
  run("host" ${WORK}/by_pkg_config)
  expect_twelve_names()
endif()

# A plug-in finds the library beside its folder.
find_program(FFMPEG ffmpeg)
if(FFMPEG AND FREI0R_FOLDER)
  run("plug-in" ${CMAKE_COMMAND} -E env --unset=BRUSHWORKS_LIBRARY FREI0R_PATH=${prefix}/${FREI0R_FOLDER}
      ${FFMPEG} -nostdin -v error -f lavfi -i color=size=64x64:duration=0.04 -vf frei0r=brushworks_oil -f null -)
endif()
