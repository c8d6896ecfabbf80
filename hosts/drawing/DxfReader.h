// Reading DXF: text files of all versions from R12 to 2018, with or without header.
#pragma once

#include "drawing/Drawing.h"

#include <string>
#include <string_view>

namespace drawing {

/// How a drawing is to be read.
struct ReadOptions {
  /// How far, in millimetres, the lines and arcs in place of an ELLIPSE or a SPLINE may be from it.
  /// Must be above 0.
  double curveTolerance = 0.01;
};

/// Reads a DXF file.
///
/// LINE, ARC, CIRCLE, LWPOLYLINE and POLYLINE of the model space become elements, and so do ELLIPSE
/// and SPLINE, by lines and arcs within a tolerance (UseCurves); what cannot be used is counted by
/// type, what is wrong is complained about, and the rest is used. Lengths come in millimetres.
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
