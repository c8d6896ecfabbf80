#include <KTRCL_Geometry/elements/GX3DElements.h>

GX3DPointBoolPair::GX3DPointBoolPair() : std::pair<GX3DPoint, bool>(GX3DPoint(), false) {}
GX3DPointBoolPair::GX3DPointBoolPair(const GX3DPoint& point, bool flag)
    : std::pair<GX3DPoint, bool>(point, flag) {}
GX3DPointBoolPair::GX3DPointBoolPair(const GX3DPointBoolPair& other) = default;
GX3DPointBoolPair& GX3DPointBoolPair::operator=(const GX3DPointBoolPair& other) = default;

bool GX3DPointBoolPair::operator<(const GX3DPointBoolPair& other) const {
  if (first < other.first) return true;
  return first == other.first && second && !other.second;
}

bool GX3DPointBoolPair::operator==(const GX3DPointBoolPair& other) const {
  return first == other.first && second == other.second;
}

bool GX3DPointBoolPair::operator!=(const GX3DPointBoolPair& other) const {
  return first != other.first || second != other.second;
}
