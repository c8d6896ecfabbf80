#include <KTRCL_Geometry/foundation/GXDoubleIntegerPair.h>

GXDoubleIntegerPair::GXDoubleIntegerPair(const double& value, const int& index)
    : std::pair<double, int>(value, index) {}

bool GXDoubleIntegerPair::operator<(const GXDoubleIntegerPair& other) const {
  return first < other.first;
}
