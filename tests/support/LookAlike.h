// Short ways to build look-alike contours in tests.
//
//     auto square = support::ClosedContour(CCW, "L 10 A 90 L 10 A 90 L 10 A 90 L 10 A 90");
//
// "L" is a line and "R" an arc with its length, "A" an angle with its degrees. Contours own their
// elements.
#pragma once

#include <KTRCL_Geometry/lookalike/GXLAContour.h>

#include <memory>
#include <sstream>
#include <stdexcept>
#include <string>

namespace support {

constexpr auto kNone = GXLAContourParameters::GXLADirectionNone;
constexpr auto kCW = GXLAContourParameters::GXLADirectionCW;
constexpr auto kCCW = GXLAContourParameters::GXLADirectionCCW;
constexpr double kDegree = 3.141592653589793 / 180.0;

inline void AddLine(GXLAContour& contour, double length) {
  auto* element = new GXLAElementLine(length);
  contour.AddLineElement(element);
}
inline void AddArc(GXLAContour& contour, double length) {
  auto* element = new GXLAElementArc(length);
  contour.AddArcElement(element);
}
inline void AddAngle(GXLAContour& contour, double radians, double tolerance = 0.01) {
  auto* element = new GXLAElementAngle(radians, tolerance);
  contour.AddAngleElement(element);
}

/// Appends what `text` says.
inline void AddElements(GXLAContour& contour, const std::string& text) {
  std::istringstream words(text);
  std::string kind;
  double value = 0.0;
  while (words >> kind >> value) {
    if (kind == "L") {
      AddLine(contour, value);
    } else if (kind == "R") {
      AddArc(contour, value);
    } else if (kind == "A") {
      AddAngle(contour, value * kDegree);
    } else {
      throw std::invalid_argument("unknown kind " + kind);
    }
  }
}

inline std::unique_ptr<GXLAContour> ClosedContour(
    GXLAContourParameters::GXLAContourDirection direction, const std::string& text) {
  auto contour = std::make_unique<GXLAContour>(true, direction);
  AddElements(*contour, text);
  return contour;
}
inline std::unique_ptr<GXLAContour> OpenContour(const std::string& text) {
  auto contour = std::make_unique<GXLAContour>(false, kNone);
  AddElements(*contour, text);
  return contour;
}

inline std::unique_ptr<GXLAContour> Square(GXLAContourParameters::GXLAContourDirection direction) {
  return ClosedContour(direction, "L 10 A 90 L 10 A 90 L 10 A 90 L 10 A 90");
}
inline std::unique_ptr<GXLAContour> Rectangle(double a, double b) {
  auto contour = std::make_unique<GXLAContour>(true, kCCW);
  for (const double side : {a, b, a, b}) {
    AddLine(*contour, side);
    AddAngle(*contour, 90.0 * kDegree);
  }
  return contour;
}

}  // namespace support
