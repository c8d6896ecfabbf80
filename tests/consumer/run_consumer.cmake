# Installs the build tree, moves the installation, builds the consumer against it and runs it.
# See CMakeLists.txt for the variables that are handed in.

cmake_minimum_required(VERSION 3.25)

function(run)
  execute_process(
    COMMAND ${ARGN}
    RESULT_VARIABLE status
    OUTPUT_VARIABLE output
    ERROR_VARIABLE output)
  if(NOT status EQUAL 0)
    list(JOIN ARGN " " command)
    message(FATAL_ERROR "${command}\nended with ${status}:\n${output}")
  endif()
endfunction()

set(flags "-Wall -Wextra -Wpedantic -Werror")
if(SANITIZE)
  string(APPEND flags " -fsanitize=${SANITIZE}")
endif()

file(REMOVE_RECURSE "${SCRATCH}")
foreach(component Runtime Development)
  run("${CMAKE_COMMAND}" --install "${BUILD}" --prefix "${SCRATCH}/first" --component ${component})
endforeach()
# Nothing in the installation may depend on where it was first put.
set(prefix "${SCRATCH}/a place with blanks")
if(WAY STREQUAL "pkg_config")
  # pkg-config separates its words by blanks.
  set(prefix "${SCRATCH}/moved")
endif()
file(RENAME "${SCRATCH}/first" "${prefix}")

if(WAY STREQUAL "find_package")
  run("${CMAKE_COMMAND}" -S "${PROJECT}" -B "${SCRATCH}/build" -G "${GENERATOR}"
      "-DCMAKE_PREFIX_PATH=${prefix}" "-DCMAKE_CXX_COMPILER=${COMPILER}" "-DCMAKE_CXX_FLAGS=${flags}")
  run("${CMAKE_COMMAND}" --build "${SCRATCH}/build")
  run("${SCRATCH}/build/consumer")
  run("${SCRATCH}/build/consumer-datatypes")
else()
  set(ENV{PKG_CONFIG_PATH} "${prefix}/${LIBDIR}/pkgconfig")
  execute_process(
    COMMAND "${PKG_CONFIG}" --cflags --libs KTRCL_Geometry
    OUTPUT_VARIABLE package_flags
    OUTPUT_STRIP_TRAILING_WHITESPACE COMMAND_ERROR_IS_FATAL ANY)
  separate_arguments(arguments UNIX_COMMAND "-std=c++17 ${flags} ${package_flags}")
  run("${COMPILER}" "${PROJECT}/main.cpp" -o "${SCRATCH}/consumer" ${arguments}
      "-Wl,-rpath,${prefix}/${LIBDIR}")
  run("${SCRATCH}/consumer")
endif()
file(REMOVE_RECURSE "${SCRATCH}")
