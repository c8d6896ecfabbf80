// Drawings with blocks for tests, in millimetres.
#pragma once

#include "drawing/DxfReader.h"

#include "support/DxfText.h"

#include <gtest/gtest.h>

#include <string>

namespace support {

/// A line from (1, 0) to (3, 0) in the block L.
inline constexpr const char* kLineBlock =
    " 0 BLOCK 2 L 10 0 20 0 0 LINE 5 AA 10 1 20 0 11 3 21 0 0 ENDBLK ";

/// The first block is named on line 20.
inline std::string TextWithBlocks(const std::string& blocks, const std::string& entities) {
  return Lines(
      "0 SECTION 2 HEADER 9 $ACADVER 1 AC1015 9 $INSUNITS 70 4 0 ENDSEC "
      "0 SECTION 2 BLOCKS " +
      blocks + " 0 ENDSEC 0 SECTION 2 ENTITIES " + entities + " 0 ENDSEC 0 EOF");
}

/// The file is called a.dxf.
inline drawing::Drawing ReadWithBlocks(const std::string& blocks, const std::string& entities,
                                       const drawing::ReadOptions& options = {}) {
  return drawing::ReadDrawingText(TextWithBlocks(blocks, entities), "a.dxf", options);
}

inline void ExpectLine(const drawing::Drawing& drawn, std::size_t element, double x1, double y1,
                       double x2, double y2) {
  SCOPED_TRACE(element);
  ASSERT_LT(element, drawn.elements.size());
  GX2DElement& line = *drawn.elements[element].element;
  EXPECT_EQ(line.GetStartPoint().X, x1);
  EXPECT_EQ(line.GetStartPoint().Y, y1);
  EXPECT_EQ(line.GetEndPoint().X, x2);
  EXPECT_EQ(line.GetEndPoint().Y, y2);
}

/// Requires: the element is an arc.
inline GX2DArc& ArcAt(const drawing::Drawing& drawn, std::size_t element) {
  return dynamic_cast<GX2DArc&>(*drawn.elements.at(element).element);
}

}  // namespace support
