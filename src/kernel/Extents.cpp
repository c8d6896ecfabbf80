// Extents of points, segments and arcs of the plane: min x, max x, min y, max y.

#include <KTRCL_Geometry/kernel/Unfolding.h>

#include "kernel/PlanePoint.h"
#include "kernel/VectorArithmetic.h"

using ktrcl_internal::Cross;
using ktrcl_internal::Flat;
using ktrcl_internal::PlanePoint;

namespace {

bool Holds(double minX, double maxX, double minY, double maxY, double x, double y) {
  return x >= minX && x <= maxX && y >= minY && y <= maxY;
}

void Widen(const PlanePoint& p, double* box) {
  if (p.x < box[0]) box[0] = p.x;
  if (p.x > box[1]) box[1] = p.x;
  if (p.y < box[2]) box[2] = p.y;
  if (p.y > box[3]) box[3] = p.y;
}

void StartOnce(const double* p, double* box, int* first) {
  if (*first != 1) return;
  Inf_maxmin_xy_setup(p, box);
  *first = 0;
}

}  // namespace

int Inreta(double minX, double maxX, double minY, double maxY, double x1, double y1, double x2,
           double y2) {
  return Holds(minX, maxX, minY, maxY, x1, y1) || Holds(minX, maxX, minY, maxY, x2, y2) ? 1 : 0;
}

void Inf_maxmin_xy_setup(const double* p, double* box) {
  box[0] = p[0];
  box[1] = p[0];
  box[2] = p[1];
  box[3] = p[1];
}

void Inf_maxmin_xy_pnt(const double* p, double* box) { Widen(Flat(p), box); }

void Inf_maxmin_xy_line(const double* a, const double* b, double* box, int* first) {
  StartOnce(a, box, first);
  Widen(Flat(a), box);
  Widen(Flat(b), box);
}

void Inf_maxmin_xy_arc(const double* centre, const double* start, const double* middle,
                       const double* end, double* box, int* first) {
  StartOnce(start, box, first);

  const PlanePoint c = Flat(centre);
  const PlanePoint s = Flat(start);
  const double r = ktrcl_internal::Distance(centre, start);
  const PlanePoint chord = Flat(end) - s;
  // Above 0 for an arc that runs counter-clockwise, and so lies to the right of its chord.
  const double sense = Cross(s - c, Flat(middle) - c);
  const PlanePoint axisPoints[4] = {{c.x + r, c.y}, {c.x - r, c.y}, {c.x, c.y + r}, {c.x, c.y - r}};
  for (const PlanePoint& p : axisPoints) {
    if (Cross(chord, p - s) * sense < 0.0) Widen(p, box);
  }
  Widen(s, box);
  Widen(Flat(end), box);
}
