// Where the entities that are being read stand: in the model space or in a nest of blocks.
#pragma once

#include "drawing/DxfBlocks.h"
#include "drawing/DxfInsert.h"
#include "drawing/PlaneMap.h"

#include <cstddef>
#include <string>

namespace drawing {

/// Where entities stand and what they take over from the INSERT that they come out of. Without
/// figures: the model space.
struct DxfPlacement {
  const DxfBlock* block = nullptr;  ///< Null in the model space.
  PlaneMap map;                     ///< Into the model space, drawing units.
  HeightMap heights;
  std::size_t depth = 0;       ///< How many blocks are nested, this one included.
  std::string chain;           ///< Their names.
  std::size_t insertLine = 0;  ///< Of the INSERT in the model space.
  std::string layer;           ///< Of what lies on layer 0.
  int colour = 0;              ///< Of what has the colour of its block.
  std::string linetype;        ///< Of what has the linetype of its block.
};

}  // namespace drawing
