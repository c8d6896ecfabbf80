#include <KTRCL_Geometry/foundation/GXCoordSystem.h>

#include <KTRCL_DataTypes/GXMath.h>

#include "foundation/Tolerance.h"

using ktrcl_internal::kAngleTolerance;
using ktrcl_internal::kLengthTolerance;

GXCoordSystem::GXCoordSystem() : AngleX(0.0), AngleY(0.0), AngleZ(0.0) {}

GXCoordSystem::GXCoordSystem(const GXCoordSystem& other) = default;

GXCoordSystem& GXCoordSystem::operator=(const GXCoordSystem& other) = default;

GXCoordSystem::~GXCoordSystem() = default;

bool GXCoordSystem::IsAlmostEq(const GXCoordSystem& other) const {
  return Origin.GX3DPoint::IsAlmostEq(other.Origin, kLengthTolerance) &&
         GXMath::AlmostEq(AngleX, other.AngleX, kAngleTolerance) &&
         GXMath::AlmostEq(AngleY, other.AngleY, kAngleTolerance) &&
         GXMath::AlmostEq(AngleZ, other.AngleZ, kAngleTolerance);
}

bool GXCoordSystem::Scale(const double& factor, const int& decimals) {
  // The factor may be a coordinate of this very origin.
  const double fixedFactor = factor;
  Origin.GX3DPoint::Scale(fixedFactor, decimals);
  return true;
}

bool GXCoordSystem::operator==(const GXCoordSystem& other) const {
  return Origin.GX3DPoint::operator==(other.Origin) && AngleX == other.AngleX &&
         AngleY == other.AngleY && AngleZ == other.AngleZ;
}

bool GXCoordSystem::operator!=(const GXCoordSystem& other) const {
  return Origin.GX3DPoint::operator!=(other.Origin) || AngleX != other.AngleX ||
         AngleY != other.AngleY || AngleZ != other.AngleZ;
}
