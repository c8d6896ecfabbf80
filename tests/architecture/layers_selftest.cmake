# Proves that layers.cmake catches what it is there for.
# Run as: cmake -D SCRATCH=<folder that may be emptied> -P layers_selftest.cmake

cmake_minimum_required(VERSION 3.25)

set(layers "${CMAKE_CURRENT_LIST_DIR}/layers.cmake")

# expect(<good|bad> <file> <include line> [<file> <include line>]...)
#
# Builds a tree of these files, each with one include, and checks the verdict on it.
function(expect verdict)
  set(what "${ARGN}")
  file(REMOVE_RECURSE "${SCRATCH}")
  set(rest ${ARGN})
  while(rest)
    list(POP_FRONT rest file line)
    file(WRITE "${SCRATCH}/${file}" "#pragma once\n\n${line}\n")
  endwhile()
  execute_process(
    COMMAND "${CMAKE_COMMAND}" -D "ROOT=${SCRATCH}" -P "${layers}"
    RESULT_VARIABLE status
    OUTPUT_VARIABLE ignored
    ERROR_VARIABLE message)
  if(verdict STREQUAL "good" AND NOT status EQUAL 0)
    message(SEND_ERROR "Wrongly refused: ${what}\n${message}")
  elseif(verdict STREQUAL "bad" AND NOT message MATCHES "Includes against the rules")
    message(SEND_ERROR "Not caught: ${what}\n${message}")
  endif()
  file(REMOVE_RECURSE "${SCRATCH}")
endfunction()

set(public include/KTRCL_Geometry)

expect(good src/foundation/A.cpp "#include <KTRCL_DataTypes/GXMath.h>")
expect(good src/foundation/A.cpp "#include <KTRCL_Geometry/Export.h>")
expect(good src/foundation/A.cpp "#include <vector>")
expect(good src/elements/A.cpp "#include <KTRCL_Geometry/contour/GXGeometry.h>")
expect(good src/contour/A.cpp "#include \"elements/HealingTwins.h\"")
expect(good src/elements/A.cpp "#include \"HealingTwins.h\"")
expect(good ${public}/foundation/GXBoundBox.h "#include <KTRCL_Geometry/elements/GX3DElements.h>")
expect(good src/foundation/GXCoordSystem.cpp "#include <KTRCL_Geometry/elements/GX3DElements.h>")
expect(good ${public}/KTRCL_Geometry.h "#include <KTRCL_Geometry/lookalike/GXLAPart.h>")
expect(good src/kernel/ArcFacets.cpp "#include <KTRCL_Geometry/elements/GXElementLists.h>")
expect(good hosts/drawing/A.cpp "#include <KTRCL_Geometry/KTRCL_Geometry.h>")
expect(good hosts/ktrcl/A.cpp "#include \"drawing/Drawing.h\"")

expect(bad include/KTRCL_DataTypes/A.h "#include <KTRCL_Geometry/foundation/GXVector.h>")
expect(bad src/datatypes/A.cpp "#include <KTRCL_Geometry/KTRCL_Geometry.h>")
expect(bad ${public}/foundation/GXVector.h "#include <KTRCL_Geometry/elements/GX2DElements.h>")
expect(bad src/foundation/A.cpp "#include <KTRCL_Geometry/contour/GXGeometry.h>")
expect(bad src/foundation/A.cpp "#include <KTRCL_Geometry/KTRCL_Geometry.h>")
expect(bad src/elements/A.cpp "#include <KTRCL_Geometry/lookalike/GXLAPart.h>")
expect(bad src/elements/A.cpp "#  include <KTRCL_Geometry/kernel/Kernel.h>")
expect(bad src/lookalike/A.cpp "#include <KTRCL_Geometry/contour/GXGeometry.h>")
expect(bad src/lookalike/A.cpp "#include \"kernel/Frames.h\"")
expect(bad src/kernel/Frames.cpp "#include <KTRCL_Geometry/elements/GXElementLists.h>")
expect(bad ${public}/kernel/Arcs.h "#include <KTRCL_Geometry/elements/GXElementLists.h>")
expect(bad src/contour/A.cpp "#include \"drawing/Drawing.h\"")
expect(bad ${public}/elements/A.h "#include \"elements/HealingTwins.h\"")
expect(bad hosts/drawing/A.cpp "#include \"elements/HealingTwins.h\"")
expect(bad hosts/drawing/A.cpp "#include \"ktrcl/InfoCommand.h\"")
expect(bad src/elements/A.cpp "#include \"../contour/CleanUpTwins.h\"")
expect(bad src/other/A.cpp "#include <vector>")
expect(
  bad
  ${public}/elements/A.h
  "#include <KTRCL_Geometry/contour/B.h>"
  ${public}/contour/B.h
  "#include <KTRCL_Geometry/elements/A.h>")
