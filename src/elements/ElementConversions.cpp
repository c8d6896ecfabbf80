// Members of the foundation classes that are built from points and lines, and the turning of a
// vector, which is the turning of a point.
#include <KTRCL_Geometry/contour/GXGeometry.h>
#include <KTRCL_Geometry/elements/GX2DElements.h>
#include <KTRCL_Geometry/elements/GX3DElements.h>
#include <KTRCL_Geometry/foundation/GXMatrix.h>
#include <KTRCL_Geometry/foundation/GXRotation.h>
#include <KTRCL_Geometry/foundation/GXVector.h>

#include <cmath>

namespace {

double PlainLength(const GXVector& v) { return std::sqrt(v.X * v.X + v.Y * v.Y + v.Z * v.Z); }

GXVector Divided(const GXVector& v, double divisor) {
  return GXVector(v.X / divisor, v.Y / divisor, v.Z / divisor);
}

}  // namespace

GXVector::GXVector(const GX2DPoint& p) : X(p.X), Y(p.Y), Z(0.0) {}
GXVector::GXVector(const GX2DPoint& from, const GX2DPoint& to)
    : X(to.X - from.X), Y(to.Y - from.Y), Z(0.0) {}
GXVector::GXVector(const GX2DLine& line) : GXVector(line.Start, line.End) {}
GXVector::GXVector(const GX3DPoint& p) : X(p.X), Y(p.Y), Z(p.Z) {}
GXVector::GXVector(const GX3DPoint& from, const GX3DPoint& to)
    : X(to.X - from.X), Y(to.Y - from.Y), Z(to.Z - from.Z) {}
GXVector::GXVector(const GX3DLine& line) : GXVector(line.Start, line.End) {}

void GXVector::SetVector(const GX3DPoint& p) { SetVector(p.X, p.Y, p.Z); }

void GXVector::SetVector(const GX3DPoint& from, const GX3DPoint& to) {
  SetVector(to.X - from.X, to.Y - from.Y, to.Z - from.Z);
}

void GXVector::Rotate(const GXVector& axis, double angle) {
  GX3DLine line;
  line.SetStartPoint(GX3DPoint(0.0, 0.0, 0.0));
  line.SetEndPoint(GX3DPoint(axis.X, axis.Y, axis.Z));
  GX3DPoint point(*this);
  GXGeometry::Rotate3DPoint(line, angle, point, point);
  *this = GXVector(point);
}

GX2DVector::GX2DVector(const GX2DPoint& p) : X(p.X), Y(p.Y) {}
GX2DVector::GX2DVector(const GX2DPoint& from, const GX2DPoint& to)
    : X(to.X - from.X), Y(to.Y - from.Y) {}
GX2DVector::GX2DVector(const GX2DLine& line) : GX2DVector(line.Start, line.End) {}

GXMatrix::GXMatrix(const GX3DPoint& p0, const GX3DPoint& p1, const GX3DPoint& p2)
    : GXMatrix(GXVector(p0, p1), GXVector(p0, p2)) {}

GXColBasedTransformMatrix::GXColBasedTransformMatrix(const GX3DPoint& p0, const GX3DPoint& p1,
                                                     const GX3DPoint& p2) {
  Base[0] = GXVector(p0, p1);
  Base[1] = GXVector(p0, p2);
  Base[2] = Base[0] * Base[1];
  const double normalLength = PlainLength(Base[2]);
  // Points in line: the differences stay as they are, and the null vector shows that they span no
  // plane. A p1 equal to p0 ends here too, so the division below is safe.
  if (normalLength == 0.0) return;
  Base[0] = Divided(Base[0], PlainLength(Base[0]));
  Base[2] = Divided(Base[2], normalLength);
  Base[1] = Base[2] * Base[0];
}

GXRotation::GXRotation(const GX3DPoint& p0, const GX3DPoint& p1, const GX3DPoint& p2)
    : GXRotation(GXMatrix(p0, p1, p2)) {}
