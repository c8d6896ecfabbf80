// A drawing or a part seen from its other side.
#pragma once

#include "drawing/Drawing.h"
#include "drawing/PartModel.h"

namespace drawing {

/// The drawing turned over: x is negated everywhere. Arcs stay on their circles and run the other
/// way round; entities, counts and complaints are those of the drawing.
Drawing Mirrored(const Drawing& drawing);

/// The same part of the same drawing turned over.
///
/// Requires: `part.usable`.
PartModel MirroredPart(const PartModel& part);

}  // namespace drawing
