# What a builder may choose. Whoever takes the project in as a subdirectory gets the libraries alone.

option(KTRCL_BUILD_TESTS "Build the tests and register them with CTest (needs GoogleTest)."
       ${PROJECT_IS_TOP_LEVEL})
option(KTRCL_BUILD_BENCHMARKS "Build the benchmarks (needs Google Benchmark)." OFF)
option(KTRCL_BUILD_HOSTS
       "Build the drawing library and the program ktrcl (needs CLI11, nlohmann-json and pugixml)."
       ${PROJECT_IS_TOP_LEVEL})
option(KTRCL_BUILD_EXAMPLES "Build the examples and run them as tests." ${PROJECT_IS_TOP_LEVEL})
option(KTRCL_FUZZ "Build the fuzz targets for libFuzzer instead of replaying their inputs (clang)." OFF)
option(KTRCL_WARNINGS_AS_ERRORS
       "Stop at the first warning; the presets do, a packager with another compiler need not." OFF)
option(KTRCL_LTO "Optimise across source files at link time, where the compiler can." OFF)
set(KTRCL_SANITIZE
    ""
    CACHE STRING
          "Sanitizers to build everything with, for example address;undefined; empty for none.")

if(NOT CMAKE_BUILD_TYPE AND NOT CMAKE_CONFIGURATION_TYPES)
  set(CMAKE_BUILD_TYPE
      Release
      CACHE STRING "Kind of build: Debug, Release, RelWithDebInfo or MinSizeRel." FORCE)
endif()
