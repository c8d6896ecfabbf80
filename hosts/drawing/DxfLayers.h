// The layers of a drawing that are not to be seen.
#pragma once

#include "drawing/DxfText.h"
#include "drawing/DxfTokens.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace drawing {

/// Whether what lies on a layer is to be seen.
enum class LayerState {
  kShown,
  kOff,    ///< Hides what lies on it.
  kFrozen  ///< Hides also all that comes out of a block inserted on it.
};

/// The table of layers, names without regard to case. Of two definitions of one layer the first
/// counts; a layer without definition is shown.
class DxfLayers {
 public:
  /// Takes over a record LAYER: frozen with bit 1 of group 70, off with a negative colour.
  void Add(const DxfRecord& record);

  /// Reads the names. Called when all is added, again when there is more or other texts.
  void Index(const TextDecoder& texts);

  /// The state of a layer by its decoded name.
  LayerState StateOf(const std::string& name) const;

 private:
  struct Layer {
    std::string_view name;
    LayerState state;
  };

  std::vector<Layer> layers_;
  std::unordered_map<std::string, LayerState> hidden_;  // By key of the name.
};

}  // namespace drawing
