// Drawings as plain values for the tests: elements with the texts of their entities, without a
// file.
#pragma once

#include "drawing/Drawing.h"

#include <KTRCL_Geometry/elements/GX2DElements.h>

#include <cmath>
#include <memory>
#include <string>
#include <utility>

namespace support {

/// An arc about a centre from one angle, in degrees, by a sweep, counter-clockwise positive.
inline std::unique_ptr<GX2DArc> ArcElement(double x, double y, double radius, double degrees,
                                           double sweep) {
  const auto at = [&](double angle) {
    const double radians = angle * 3.14159265358979323846 / 180.0;
    return GX2DPoint(x + radius * std::cos(radians), y + radius * std::sin(radians));
  };
  return std::make_unique<GX2DArc>(GX2DPoint(x, y), at(degrees), at(degrees + 0.5 * sweep),
                                   at(degrees + sweep));
}

/// Adds an element as an entity of its own.
inline drawing::DrawnEntity& AddElement(drawing::Drawing& drawing,
                                        std::unique_ptr<GX2DElement> element,
                                        const std::string& layer = "0") {
  drawing::DrawnEntity entity;
  entity.type = dynamic_cast<GX2DLine*>(element.get()) != nullptr ? "LINE" : "ARC";
  entity.layer = layer;
  entity.linetype = "BYLAYER";
  drawing.elements.push_back({std::move(element), drawing.entities.size()});
  drawing.entities.push_back(std::move(entity));
  drawing.usable = true;
  return drawing.entities.back();
}

inline drawing::DrawnEntity& AddLine(drawing::Drawing& drawing, double x1, double y1, double x2,
                                     double y2, const std::string& layer = "0") {
  return AddElement(drawing, std::make_unique<GX2DLine>(x1, y1, x2, y2), layer);
}

inline drawing::DrawnEntity& AddArc(drawing::Drawing& drawing, double x, double y, double radius,
                                    double degrees, double sweep, const std::string& layer = "0") {
  return AddElement(drawing, ArcElement(x, y, radius, degrees, sweep), layer);
}

inline drawing::DrawnEntity& AddCircle(drawing::Drawing& drawing, double x, double y, double radius,
                                       const std::string& layer = "0") {
  const GX2DPoint start(x + radius, y);
  return AddElement(
      drawing, std::make_unique<GX2DArc>(GX2DPoint(x, y), start, GX2DPoint(x - radius, y), start),
      layer);
}

}  // namespace support
