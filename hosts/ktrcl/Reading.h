// The options of reading a drawing that all commands share.
#pragma once

#include "drawing/DxfReader.h"

namespace CLI {
class App;
}  // namespace CLI

namespace ktrcl {

/// How the drawings of a command are to be read.
struct ReadingRequest {
  double curve = 0.01;     ///< Tolerance of lines and arcs in place of curves, millimetres.
  bool allLayers = false;  ///< Use what lies on layers that are off or frozen, too.
};

/// Adds --curve and --all-layers to a command. `request` must outlive `command`.
void AddReading(CLI::App& command, ReadingRequest& request);

drawing::ReadOptions ToReadOptions(const ReadingRequest& request);

}  // namespace ktrcl
