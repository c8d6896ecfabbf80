// What a drawing defines beside its entities: encoding of names, layers, blocks.
#pragma once

#include "drawing/Drawing.h"
#include "drawing/DxfBlocks.h"
#include "drawing/DxfLayers.h"
#include "drawing/DxfText.h"
#include "drawing/DxfTokens.h"

#include <string_view>

namespace drawing {

/// Everything that the entities refer to. The blocks are views into the text.
struct DxfDefinitions {
  explicit DxfDefinitions(std::string_view text) : blocks(text) {}

  /// Makes layers and blocks known by their names, as far as they are there.
  void Index() {
    layers.Index(texts);
    blocks.Index(texts);
  }

  TextDecoder texts;
  DxfLayers layers;
  DxfBlocks blocks;
  DxfGroup unknownCodePage;  ///< As the header names it; line 0 where there is none.
};

}  // namespace drawing
