// The kernel's crossings of lines and circles on any numbers: codes within their tables, outputs
// that are written with success alone, and twins that agree. On small whole numbers, where nothing
// is lost, the crossings themselves are put to the test.
#include "KernelInput.h"

#include <KTRCL_Geometry/kernel/Intersections.h>
#include <KTRCL_Geometry/kernel/Vectors.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <cstdint>

namespace {

using kernel_fuzz::KernelInput;
using kernel_fuzz::Output;
using kernel_fuzz::Point;
using kernel_fuzz::Points;
using kernel_fuzz::Require;
using kernel_fuzz::RequirePointRoutine;
using kernel_fuzz::Same;

/// Whether all are whole and at most 32 in magnitude. Ways between such points open by no angle, or
/// by one with a sine above 0.0001, where the kernel begins to tell lines apart.
bool AreSmall(const double* begin, std::size_t count) {
  return std::all_of(begin, begin + count,
                     [](double x) { return std::abs(x) <= 32.0 && x == std::floor(x); });
}

// ----- Lines with lines

void RunCodes(KernelInput& input) {
  const int unit = input.Unit();
  const auto v = input.Numbers<8>();
  const int code = Intlin(unit, v[0], v[1], v[2], v[3], v[4], v[5], v[6], v[7]);
  Require(code >= 0 && code <= 4, "Intlin", "0 to 4");
  const int lean = Intlind(unit, v[0], v[1], v[2], v[3], v[4], v[5], v[6], v[7]);
  Require(lean >= 0 && lean <= 4, "Intlind", "0 to 4");
  if (!AreSmall(v.data(), v.size())) return;
  // The cross products of whole numbers are exact: which sides of A the ends of B are on.
  const auto side = [&](double x, double y) {
    const double cross = (v[2] - v[0]) * (y - v[1]) - (v[3] - v[1]) * (x - v[0]);
    return cross > 0.0 ? 1 : (cross < 0.0 ? -1 : 0);
  };
  const int product = side(v[4], v[5]) * side(v[6], v[7]);
  if (product < 0) {
    Require(code == 1 || code == 2, "Intlin", "a line between the ends of a segment crosses it");
  } else if (product > 0 && (v[4] != v[6] || v[5] != v[7])) {
    Require(lean == 0, "Intlind", "a line beside a segment misses it");
  }
}

void RunPlaneCrossing(KernelInput& input) {
  const auto v = input.Numbers<8>();
  Output<1> x;
  Output<1> y;
  const int result = Intspnt_dll(v[0], v[1], v[2], v[3], v[4], v[5], v[6], v[7], x, y);
  Require(result == 0 || result == -1, "Intspnt_dll", "0 or -1");
  const bool untouched = x.Untouched() && y.Untouched();
  Require(result == 0 ? x.Written() && y.Written() : untouched, "Intspnt_dll",
          "written with 0 alone");
  if (result != 0 || !AreSmall(v.data(), v.size())) return;
  const double offA = (v[1] - v[0]) * (y[0] - v[4]) - (v[5] - v[4]) * (x[0] - v[0]);
  const double offB = (v[3] - v[2]) * (y[0] - v[6]) - (v[7] - v[6]) * (x[0] - v[2]);
  Require(std::abs(offA) < 1e-2 && std::abs(offB) < 1e-2, "Intspnt_dll", "on both lines");
}

void RunSpaceCrossing(KernelInput& input) {
  const int unit = input.Unit();
  const Points<4> p = input.Some<4>();
  const int result = RequirePointRoutine("Intspt", p, [&](const auto& in, double* out) {
    return Intspt(unit, in[0], in[1], in[2], in[3], out);
  });
  const int again =
      RequirePointRoutine("Obtain_intersect_point", p, [&](const auto& in, double* out) {
        return Obtain_intersect_point(unit, out, in[0], in[1], in[2], in[3]);
      });
  Require(again == result, "Obtain_intersect_point", "as Intspt");
}

void RunRays(KernelInput& input) {
  const int unit = input.Unit();
  const Points<4> p = input.Some<4>();
  Output<3> da;
  Output<3> db;
  Point standardA = p[1];
  Point standardB = p[3];
  Vector_copy_a_to_b(p[1], da);
  Vector_copy_a_to_b(p[3], db);
  const int result = Intpmf(unit, p[0], da, p[2], db);
  Vector_standard(standardA);
  Vector_standard(standardB);
  Require(result == 0 || result == 1, "Intpmf", "0 or 1");
  Require(Same(da, standardA) && Same(db, standardB), "Intpmf", "directions come standardized");
}

// ----- Circles in the plane

struct Circle {
  double cx, cy, sx, sy;

  double Radius() const { return std::hypot(sx - cx, sy - cy); }
  double Distance(double x, double y) const { return std::hypot(x - cx, y - cy); }
};

Circle SomeCircle(KernelInput& input) {
  const Point centre = input.SomePoint();
  const Point start = input.SomePoint();
  return {centre.c[0], centre.c[1], start.c[0], start.c[1]};
}

void RunLineAndCircle(KernelInput& input) {
  const Points<2> line = input.Some<2>();
  const double v[4] = {line[0].c[0], line[0].c[1], line[1].c[0], line[1].c[1]};
  const Circle circle = SomeCircle(input);
  Output<4> out;
  double* const o = out;
  const int count = IntPnts_circle(v[0], v[1], v[2], v[3], circle.cx, circle.cy, circle.sx,
                                   circle.sy, o, o + 1, o + 2, o + 3);
  Require(count >= 0 && count <= 2, "IntPnts_circle", "0 to 2");
  Require(count == 0 ? out.Untouched() : out.Written(), "IntPnts_circle", "written with a point");
  const Point reference = input.SomePoint();
  Point snapped = reference;
  const int found = Pntlac(v[0], v[1], v[2], v[3], circle.cx, circle.cy, circle.sx, circle.sy,
                           &snapped.c[0], &snapped.c[1]);
  Require(found == 0 || found == 1, "Pntlac", "0 or 1");
  Require(found == 1 || Same(snapped, reference), "Pntlac", "the reference stays");
  const double figures[4] = {circle.cx, circle.cy, circle.sx, circle.sy};
  if (!AreSmall(v, 4) || !AreSmall(figures, 4)) return;
  // A tangent's crossing is a root of an error: off by the root of 1e-13 at the sizes here.
  const double radius = circle.Radius();
  for (std::size_t i = 0; count > 0 && i < 4; i += 2) {
    Require(std::abs(circle.Distance(out[i], out[i + 1]) - radius) < 1e-3, "IntPnts_circle",
            "on the circle");
  }
  Require(found == 0 || std::abs(circle.Distance(snapped.c[0], snapped.c[1]) - radius) < 1e-3,
          "Pntlac", "on the circle");
}

void RunTwoCircles(KernelInput& input) {
  const Circle a = SomeCircle(input);
  const Circle b = SomeCircle(input);
  const Point reference = input.SomePoint();
  Point crossing = reference;
  const int found =
      Pntlaa(a.cx, a.cy, a.sx, a.sy, b.cx, b.cy, b.sx, b.sy, &crossing.c[0], &crossing.c[1]);
  Require(found == 0 || found == 1, "Pntlaa", "0 or 1");
  Require(found == 1 || Same(crossing, reference), "Pntlaa", "the reference stays");
  const double figures[8] = {a.cx, a.cy, a.sx, a.sy, b.cx, b.cy, b.sx, b.sy};
  if (found == 0 || !AreSmall(figures, 8) || a.cx == b.cx) return;
  Require(std::abs(a.Distance(crossing.c[0], crossing.c[1]) - a.Radius()) < 1e-3, "Pntlaa",
          "on the first circle");
}

void RunSnaps(KernelInput& input) {
  const Circle circle = SomeCircle(input);
  const Point before = input.SomePoint();
  Point p = before;
  Require(Pntarc(circle.cx, circle.cy, circle.sx, circle.sy, &p.c[0], &p.c[1]) == 1, "Pntarc",
          "always 1");
  Require(Same(p.c[2], before.c[2]), "Pntarc", "two coordinates alone");
  Output<4> out;
  double* const o = out;
  static_cast<void>(Pntdet_dll(circle.cx, circle.cy, circle.sx, circle.sy, before.c[0], before.c[1],
                               o, o + 1, o + 2, o + 3));
  Require(out.Written(), "Pntdet_dll", "all four are written");
  const double r1 = input.Number();
  const double r2 = input.Number();
  const int stands =
      Detpnt(circle.cx, circle.cy, circle.sx, circle.sy, r1, before.c[0], before.c[1], r2);
  Require(stands == 0 || stands == 1, "Detpnt", "0 or 1");
}

void RunOffsets(KernelInput& input) {
  const double r = input.Number();
  const Points<2> p = input.Some<2>();
  Output<3> out1;
  Output<3> out2;
  const double x0 = p[0].c[0];
  const double y0 = p[0].c[1];
  static_cast<void>(Offset_arc1(r, x0, y0, p[1].c[0], p[1].c[1], out1, out2));
  Require(out1.Written(0, 2) && out2.Written(0, 2), "Offset_arc1", "x and y are written");
  Require(out1.Untouched(2) && out2.Untouched(2), "Offset_arc1", "z is not");
}

// ----- Circles in space

/// Calls a routine with two outputs: 0 with both unwritten, or 1 or 2 with both written; the same
/// where one of them is an array of the inputs.
template <std::size_t kCount, typename Call>
void RequireTwoOutputs(const char* name, const Points<kCount>& points, Call call) {
  Output<3> out1;
  Output<3> out2;
  const int count = call(points, out1, out2);
  Require(count >= 0 && count <= 2, name, "0 to 2");
  Require(count == 0 ? out1.Untouched() && out2.Untouched() : out1.Written() && out2.Written(),
          name, "both written, or neither");
  for (std::size_t i = 0; i < kCount; ++i) {
    Output<3> apart;
    Points<kCount> shared = points;
    Require(call(shared, shared[i], apart) == count, name, "the same count, first in an input");
    Require(count == 0 ? Same(shared[i], points[i]) : Same(out1, shared[i]), name,
            "the same first point in an array of the inputs");
    Output<3> before;
    shared = points;
    Require(call(shared, before, shared[i]) == count, name, "the same count, second in an input");
    Require(count == 0 ? Same(shared[i], points[i]) : Same(out2, shared[i]), name,
            "the same second point in an array of the inputs");
  }
}

void RunCirclesInSpace(KernelInput& input) {
  const int unit = input.Unit();
  const Points<6> p = input.Some<6>();
  RequireTwoOutputs("Intersect2D_circles", p, [&](const Points<6>& in, double* a, double* b) {
    const int count = Intersect2D_circles(unit, in[0], in[1], in[2], in[3], in[4], in[5], a, b);
    Require(count == 0 || (count == 1) == (Pntcmp(a, b) == 1), "Intersect2D_circles",
            "1 where the points coincide");
    return count;
  });
}

void RunLineAndArc(KernelInput& input) {
  const int unit = input.Unit();
  const double tol = input.Number();
  const Points<5> p = input.Some<5>();
  using Routine = int (*)(const int&, const double*, const double*, const double*, const double*,
                          const double*, double, double*, double*);
  struct Named {
    const char* name;
    Routine routine;
  };
  for (const Named& each :
       {Named{"Intersection_3D_line_arc", &Intersection_3D_line_arc},
        Named{"Intersection_line_arc_on_arc_plane", &Intersection_line_arc_on_arc_plane},
        Named{"Intersection_line_arc_on_arc_plane_tol", &Intersection_line_arc_on_arc_plane_tol}}) {
    RequireTwoOutputs(each.name, p, [&](const Points<5>& in, double* a, double* b) {
      return each.routine(unit, in[0], in[1], in[2], in[3], in[4], tol, a, b);
    });
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  kernel_fuzz::RunAll(data, size,
                      {&RunCodes, &RunPlaneCrossing, &RunSpaceCrossing, &RunRays, &RunLineAndCircle,
                       &RunTwoCircles, &RunSnaps, &RunOffsets, &RunCirclesInSpace, &RunLineAndArc});
  return 0;
}
