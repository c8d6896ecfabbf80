#include <KTRCL_Geometry/contour/GX2DSurroundPolygon.h>

GX2DSurroundPoint::GX2DSurroundPoint() : Point(nullptr) {}
GX2DSurroundPoint::GX2DSurroundPoint(const GX2DSurroundPoint& other) = default;
GX2DSurroundPoint& GX2DSurroundPoint::operator=(const GX2DSurroundPoint& other) = default;

GX2DSurroundPoint::~GX2DSurroundPoint() {
  delete Point;
  // The list would destroy the elements, which belong to the contour.
  Elements.clear();
}
