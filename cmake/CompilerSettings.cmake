# How our own code is compiled. Nothing in this file reaches a user of the installed libraries: the
# settings are private to our targets.

set(CMAKE_CXX_STANDARD 17)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)

# Only what carries an export macro leaves a shared library.
set(CMAKE_CXX_VISIBILITY_PRESET hidden)
set(CMAKE_VISIBILITY_INLINES_HIDDEN ON)

find_program(KTRCL_CCACHE ccache)
if(KTRCL_CCACHE AND NOT CMAKE_CXX_COMPILER_LAUNCHER)
  set(CMAKE_CXX_COMPILER_LAUNCHER "${KTRCL_CCACHE}")
endif()

# Warnings that our targets are held to.
add_library(ktrcl_warnings INTERFACE)
target_compile_options(ktrcl_warnings INTERFACE -Wall -Wextra -Wpedantic -Wshadow -Wconversion)
if(CMAKE_CXX_COMPILER_ID MATCHES "Clang")
  # Some classes have virtual operations and, for the sake of their table, no virtual destructor.
  # Containers of such values destroy exactly what they hold, but clang warns inside the standard
  # library, where no pragma of ours reaches. g++ does not.
  target_compile_options(ktrcl_warnings INTERFACE -Wno-delete-non-abstract-non-virtual-dtor)
endif()
if(KTRCL_WARNINGS_AS_ERRORS)
  target_compile_options(ktrcl_warnings INTERFACE -Werror)
endif()

# How the code is translated.
add_library(ktrcl_codegen INTERFACE)
# A product and a sum stay two operations with two roundings. Fused into one, results would differ in
# the last bits between processors, and comparisons at a tolerance could turn round.
target_compile_options(ktrcl_codegen INTERFACE -ffp-contract=off)
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
  # Calls inside a shared library bind to the library itself and can be inlined; nobody replaces
  # single functions of it from outside.
  target_compile_options(ktrcl_codegen INTERFACE -fno-semantic-interposition)
endif()

if(KTRCL_SANITIZE)
  # Everything is built with them, tests included: an error ends the test at once, so that it fails.
  list(JOIN KTRCL_SANITIZE "," ktrcl_sanitizers)
  add_compile_options(-fsanitize=${ktrcl_sanitizers} -fno-sanitize-recover=all
                      -fno-omit-frame-pointer)
  add_link_options(-fsanitize=${ktrcl_sanitizers})
endif()

if(KTRCL_FUZZ)
  # Coverage counters everywhere; only the fuzz programs link libFuzzer's main.
  add_compile_options(-fsanitize=fuzzer-no-link)
  add_link_options(-fsanitize=fuzzer-no-link)
endif()

if(KTRCL_LTO)
  include(CheckIPOSupported)
  check_ipo_supported(RESULT ktrcl_lto_works OUTPUT ktrcl_lto_message LANGUAGES CXX)
  if(ktrcl_lto_works)
    set(CMAKE_INTERPROCEDURAL_OPTIMIZATION ON)
  else()
    message(STATUS "Link-time optimisation is not available here: ${ktrcl_lto_message}")
  endif()
endif()

# Gives a target of ours the warnings and the code settings above.
function(ktrcl_apply_settings target)
  target_link_libraries(${target} PRIVATE $<BUILD_INTERFACE:ktrcl_warnings>
                                          $<BUILD_INTERFACE:ktrcl_codegen>)
endfunction()
