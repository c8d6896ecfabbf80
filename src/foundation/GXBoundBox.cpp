#include <KTRCL_Geometry/foundation/GXBoundBox.h>

#include <KTRCL_Geometry/foundation/GXVector.h>

#include "foundation/Tolerance.h"

#include <utility>

using ktrcl_internal::kLengthTolerance;

namespace {

void Order(double& low, double& high) {
  if (low > high) std::swap(low, high);
}

// Moves the bounds of one axis outward. Plain comparisons, so that a NaN moves nothing.
void Lower(double& minimum, double value) {
  if (value < minimum) minimum = value;
}

void Raise(double& maximum, double value) {
  if (value > maximum) maximum = value;
}

}  // namespace

GXBoundBox::GXBoundBox() = default;

GXBoundBox::GXBoundBox(const GXBoundBox& other) = default;

GXBoundBox& GXBoundBox::operator=(const GXBoundBox& other) = default;

GXBoundBox::~GXBoundBox() = default;

double GXBoundBox::Width() const { return Maximum.X - Minimum.X; }

double GXBoundBox::Height() const { return Maximum.Y - Minimum.Y; }

double GXBoundBox::Depth() const { return Maximum.Z - Minimum.Z; }

double GXBoundBox::MidX() const { return (Maximum.X + Minimum.X) * 0.5; }

double GXBoundBox::MidY() const { return (Maximum.Y + Minimum.Y) * 0.5; }

double GXBoundBox::MidZ() const { return (Maximum.Z + Minimum.Z) * 0.5; }

bool GXBoundBox::IsAlmostEq(const GXBoundBox& other) const {
  return Minimum.GX3DPoint::IsAlmostEq(other.Minimum, kLengthTolerance) &&
         Maximum.GX3DPoint::IsAlmostEq(other.Maximum, kLengthTolerance);
}

double GXBoundBox::GetArea() const { return GXBoundBox::Height() * GXBoundBox::Width(); }

double GXBoundBox::GetVolume() const {
  return GXBoundBox::Depth() * GXBoundBox::Height() * GXBoundBox::Width();
}

void GXBoundBox::Translate(const GXVector& v) {
  Minimum.GX3DPoint::Translate(v);
  Maximum.GX3DPoint::Translate(v);
}

bool GXBoundBox::Scale(const double& factor, const int& decimals) {
  // The factor may be a coordinate of this very box.
  const double fixedFactor = factor;
  Minimum.GX3DPoint::Scale(fixedFactor, decimals);
  Maximum.GX3DPoint::Scale(fixedFactor, decimals);
  return true;
}

void GXBoundBox::MirrorXY() {
  Minimum.GX3DPoint::MirrorXY();
  Maximum.GX3DPoint::MirrorXY();
}

void GXBoundBox::MirrorYZ() {
  Minimum.GX3DPoint::MirrorYZ();
  Maximum.GX3DPoint::MirrorYZ();
}

void GXBoundBox::MirrorXZ() {
  Minimum.GX3DPoint::MirrorXZ();
  Maximum.GX3DPoint::MirrorXZ();
}

void GXBoundBox::Normalize() {
  Order(Minimum.X, Maximum.X);
  Order(Minimum.Y, Maximum.Y);
  Order(Minimum.Z, Maximum.Z);
}

bool GXBoundBox::operator==(const GXBoundBox& other) const {
  return Minimum.GX3DPoint::operator==(other.Minimum) &&
         Maximum.GX3DPoint::operator==(other.Maximum);
}

bool GXBoundBox::operator!=(const GXBoundBox& other) const {
  return Minimum.GX3DPoint::operator!=(other.Minimum) ||
         Maximum.GX3DPoint::operator!=(other.Maximum);
}

GXBoundBox GXBoundBox::operator+(const GX3DPoint& p) const {
  GXBoundBox grown(*this);
  grown += p;
  return grown;
}

GXBoundBox GXBoundBox::operator+(const GXBoundBox& other) const {
  GXBoundBox grown(*this);
  grown += other;
  return grown;
}

GXBoundBox& GXBoundBox::operator+=(const GX3DPoint& p) {
  Lower(Minimum.X, p.X);
  Raise(Maximum.X, p.X);
  Lower(Minimum.Y, p.Y);
  Raise(Maximum.Y, p.Y);
  Lower(Minimum.Z, p.Z);
  Raise(Maximum.Z, p.Z);
  return *this;
}

GXBoundBox& GXBoundBox::operator+=(const GXBoundBox& other) {
  Lower(Minimum.X, other.Minimum.X);
  Raise(Maximum.X, other.Maximum.X);
  Lower(Minimum.Y, other.Minimum.Y);
  Raise(Maximum.Y, other.Maximum.Y);
  Lower(Minimum.Z, other.Minimum.Z);
  Raise(Maximum.Z, other.Maximum.Z);
  return *this;
}
