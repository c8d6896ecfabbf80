// Reading DXF: text files of all versions from R12 to 2018, with or without header.
#pragma once

#include "drawing/Drawing.h"

#include <cstddef>
#include <string>
#include <string_view>

namespace drawing {

/// How a drawing is to be read.
struct ReadOptions {
  /// How far, in millimetres, the lines and arcs in place of an ELLIPSE or a SPLINE may be from it.
  /// Must be above 0.
  double curveTolerance = 0.01;
  /// Use what is drawn on layers that are off or frozen, too.
  bool allLayers = false;
  /// To how many records all INSERT entities of a drawing together may come; what goes beyond is
  /// refused. They may also come to no more than 256 MiB of text.
  std::size_t mostInserted = 2000000;
};

/// How many blocks may be nested in each other. A deeper INSERT is refused.
inline constexpr std::size_t kDeepestNest = 32;

/// Reads a DXF file.
///
/// LINE, ARC, CIRCLE, LWPOLYLINE and POLYLINE of the model space become elements, and so do ELLIPSE
/// and SPLINE, by lines and arcs within a tolerance (UseCurves); what cannot be used is counted by
/// type, what is wrong is complained about, and the rest is used. Lengths come in millimetres.
///
/// In place of an INSERT the contents of its block are used, moved, turned, scaled and mirrored,
/// once for each place of its array; under an uneven scale arcs become ellipses. Whether it is of
/// the paper space is for the INSERT to say. What lies there on layer 0, or has colour or linetype
/// of its block, takes over those of the INSERT. Blocks that contain themselves, nests deeper than
/// kDeepestNest and blocks that are not defined are refused.
///
/// What lies on layers that are off or frozen is left out. A frozen layer of an INSERT hides all of
/// its block; one that is off only what takes over this layer.
///
/// The names of layers, linetypes and blocks come in UTF-8 (TextDecoder) and are compared without
/// regard to case. Names, layers and blocks count wherever in the file they are defined.
///
/// Returns: a drawing with `usable` false and the reason in `refusal` where the file cannot be
/// read,
///   is empty, binary or no DXF, or larger than 256 MiB. Never throws for what stands in a file.
Drawing ReadDrawing(const std::string& path, const ReadOptions& options = {});

/// The same for a text in memory; `name` stands for the file in the complaints. The result holds
/// no view into `bytes`.
Drawing ReadDrawingText(std::string_view bytes, const std::string& name,
                        const ReadOptions& options = {});

}  // namespace drawing
