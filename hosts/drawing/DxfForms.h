// The figures with which an element stands in a DXF file.
#pragma once

#include <KTRCL_Geometry/elements/GX2DElements.h>

#include <array>
#include <memory>
#include <string>

namespace drawing {

/// What an element is in a file, and the rounded figures of it.
struct DxfForm {
  enum class Kind {
    kNone,    ///< Nothing that could be read again.
    kLine,    ///< Start x and y, end x and y.
    kCircle,  ///< Centre x and y, radius.
    kArc,     ///< Centre x and y, radius, from and to in degrees, counter-clockwise.
    kSide     ///< Start x and y, end x and y, bulge: a polyline of one side.
  };
  Kind kind = Kind::kNone;
  std::array<double, 5> figures{};  ///< In this order; what is not used is 0.

  bool operator==(const DxfForm& other) const;
};

/// The form of a line or an arc, in millimetres.
///
/// Coordinates have up to 15 significant digits and up to 12 decimals; radii and angles fewer, so
/// many that the element which comes of reading them has the same form again. The ends of an arc
/// stand by that within 3e-11 mm of where they were for coordinates up to 1000 mm, ten times that
/// up to 10 m, and so on; what is larger than 1e9 mm may lose more. An arc of more than 10 m radius
/// that turns by less than 60 degrees would lose its ends; it becomes a side of a polyline, whose
/// ends are exact, or a line where it leaves its chord by no more than 0.000001 mm.
///
/// Returns: the kind kNone for elements that are neither lines nor arcs, that are not finite, or
///   whose ends are one in the figures. Otherwise `read` is the element that reading gives, running
///   counter-clockwise if it is an arc.
DxfForm FormOf(const GX2DElement& element, std::unique_ptr<GX2DElement>& read);

/// A figure as DXF has it: decimal, with a point, at least one digit behind it, never minus zero;
/// all digits that are needed to read the same number.
std::string FigureText(double figure);

}  // namespace drawing
