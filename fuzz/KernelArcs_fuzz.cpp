// The kernel's routines on arcs on any numbers: angles and parameters within their range, counts
// within their tables, outputs that are written with success alone, and facets that form a chain.
#include "KernelInput.h"

#include <KTRCL_Geometry/elements/GX3DElements.h>
#include <KTRCL_Geometry/elements/GXElementLists.h>
#include <KTRCL_Geometry/kernel/Arcs.h>
#include <KTRCL_Geometry/kernel/Vectors.h>

#include <cmath>
#include <cstddef>
#include <cstdint>

namespace {

using kernel_fuzz::Frame;
using kernel_fuzz::KernelInput;
using kernel_fuzz::kUnwrittenInt;
using kernel_fuzz::Output;
using kernel_fuzz::Point;
using kernel_fuzz::Points;
using kernel_fuzz::Require;
using kernel_fuzz::RequirePointRoutine;
using kernel_fuzz::Same;

constexpr double kPi = 3.14159265358979323846;

/// Whether a figure is within a range, or none at all.
bool Within(double number, double least, double most) { return !(number < least || number > most); }

// ----- Angles and parameters

void RunDirections(KernelInput& input) {
  const auto v = input.Numbers<8>();
  Require(Within(Angolo(v[0], v[1], v[2], v[3]), -kPi / 2, 1.5 * kPi + 1e-15), "Angolo",
          "-pi/2 to 3 pi/2");
  const double level = arc_with_hor(v[0], v[1], v[2], v[3]);
  Require(Within(level, -180.0, 180.0), "arc_with_hor", "-180 to 180");
  Require(Within(arc_angle(v[0], v[1], v[2], v[3], v[4], v[5]), 0.0, 360.0), "arc_angle",
          "0 to 360");
  Require(Arcdir_c(v[0], v[1], v[2], v[3], v[4], v[5], v[6], v[7]) ==
              Arcdir_c(v[0], v[1], v[2], v[3], v[4], v[5], v[7], v[6]),
          "Arcdir_c", "the last two play no part");
}

void RunSpans(KernelInput& input) {
  const int unit = input.Unit();
  const Points<5> p = input.Some<5>();
  const double span = Arc_angle(unit, p[0], p[1], p[2], p[3]);
  Require(Within(span, -1.0, 2 * kPi + 1.0), "Arc_angle", "-1 to 2 pi + 1");
  Require(Pntcmp(p[2], p[3]) == 0 || span == 2 * kPi, "Arc_angle", "a full circle has 2 pi");
  const double t = Point_parametrc_value_on_arc(unit, p[4], p[0], p[1], p[2], p[3]);
  Require(std::abs(span) > 0.0001 || t == 0.0 || std::isnan(span), "Point_parametrc_value_on_arc",
          "0 without a span");
  Require(Same_direction_arcs(p[0], p[1], p[2], p[0], p[3], p[4]) ==
              Same_direction_arcs(p[0], p[3], p[4], p[0], p[1], p[2]),
          "Same_direction_arcs", "arcs may change places");
}

void RunPointsAtParameters(KernelInput& input) {
  const int unit = input.Unit();
  const int kind = input.Whole();
  const double t = input.Number();
  const Points<4> p = input.Some<4>();
  for (const int each : {0, 1, kind}) {
    RequirePointRoutine("Obtain_a_point_in_parametric_curve", p, [&](const auto& in, double* out) {
      Obtain_a_point_in_parametric_curve(unit, out, t, each, in[0], in[1], in[2], in[3]);
      return 1;
    });
  }
  Output<3> segment;
  Obtain_a_point_in_parametric_curve(unit, segment, t, 0, p[0], p[1], nullptr, nullptr);
  Require(segment.Written(), "Obtain_a_point_in_parametric_curve", "a segment needs two points");
  Output<3> nothing;
  const int strange = kind == 0 || kind == 1 ? 2 : kind;
  Obtain_a_point_in_parametric_curve(unit, nothing, t, strange, p[0], p[1], p[2], p[3]);
  Require(nothing.Untouched(), "Obtain_a_point_in_parametric_curve", "nothing for another kind");
}

// ----- Centres, middles, tangents

void RunCentres(KernelInput& input) {
  const int unit = input.Unit();
  const Points<4> p = input.Some<4>();
  RequirePointRoutine("Calculate_center_arc", p, [&](const auto& in, double* out) {
    return Calculate_center_arc(unit, in[0], in[1], in[2], out);
  });
  RequirePointRoutine("Obtain_midpoint_on_an_arc", p, [](const auto& in, double* out) {
    return Obtain_midpoint_on_an_arc(in[0], in[1], in[2], out);
  });
  RequirePointRoutine("Tangent_point_for_arc_endpoints", p, [](const auto& in, double* out) {
    return Tangent_point_for_arc_endpoints(in[0], in[1], nullptr, in[2], out);
  });
  Output<2> middle;
  double* const m = middle;
  Middle_pnt_on_arc(p[0].c[0], p[0].c[1], p[1].c[0], p[1].c[1], p[2].c[0], p[2].c[1], m, m + 1);
  Require(middle.Written(), "Middle_pnt_on_arc", "always written");
}

void RunPlaneCoordinates(KernelInput& input) {
  const Points<5> p = input.Some<5>();
  const Frame frame = {{{p[0].c[0], p[0].c[1], p[0].c[2]},
                        {p[1].c[0], p[1].c[1], p[1].c[2]},
                        {p[2].c[0], p[2].c[1], p[2].c[2]}}};
  Output<2> uv;
  double* const local = uv;
  Require(Arcmpi(p[3], frame, local, local + 1, p[4]) == 0 && uv.Written(), "Arcmpi",
          "0, with both written");
  Output<3> xyz;
  double* const back = xyz;
  Require(Arcpmo(local[0], local[1], frame, back, back + 1, back + 2, p[4]) == 1 && xyz.Written(),
          "Arcpmo", "1, with all written");
}

void RunTangents(KernelInput& input) {
  const int unit = input.Unit();
  const Points<5> p = input.Some<5>();
  Output<3> out1;
  Output<3> out2;
  Tangent_points_on_arc(unit, p[0], p[1], p[2], p[3], p[4], out1, out2);
  Require(out1.Untouched() ? out2.Untouched() : out1.Written() && out2.Written(),
          "Tangent_points_on_arc", "both written, or neither");
  for (std::size_t i = 0; i < p.size(); ++i) {
    Points<5> in = p;
    Output<3> apart;
    Tangent_points_on_arc(unit, in[0], in[1], in[2], in[3], in[4], in[i], apart);
    Require(out1.Untouched() ? Same(in[i], p[i]) : Same(out1, in[i]), "Tangent_points_on_arc",
            "the same in an array of the inputs");
  }
}

// ----- Division

void RunDivision(KernelInput& input) {
  const int unit = input.Unit();
  const Points<5> p = input.Some<5>();
  const auto v = [&](std::size_t i) { return p[i / 3].c[i % 3]; };
  Output<3> at;
  Output<3> mid1;
  Output<3> mid2;
  const int result = Divide_arc_by_a_point(v(0), v(1), v(2), v(3), v(4), v(5), v(6), v(7), v(8),
                                           v(9), v(10), v(11), v(12), v(13), v(14), at, mid1, mid2);
  Require(result == 1, "Divide_arc_by_a_point", "always 1");
  const bool written = at.Written() && mid1.Written() && mid2.Written();
  const bool untouched = at.Untouched() && mid1.Untouched() && mid2.Untouched();
  Require(written || untouched, "Divide_arc_by_a_point", "all written, or none");
  if (untouched) return;
  Make_sure_middle_points_correct(unit, p[1], p[2], p[3], p[4], at, mid1, mid2);
  Require(mid1.Written() && mid2.Written(), "Make_sure_middle_points_correct", "both are figures");
}

using DivisionTest = bool (*)(const int&, const double*, const double*, const double*,
                              const double*, const double*, const double*, const double*,
                              const double*, double*, double*, int&, double*, double*, int&);

struct Division {
  bool result = false;
  int cnt1 = kUnwrittenInt;
  int cnt2 = kUnwrittenInt;
};

Division RunDivisionTest(const char* name, DivisionTest test, int unit, const Points<8>& p) {
  Output<3> q1;
  Output<3> q2;
  Output<3> r1;
  Output<3> r2;
  Division found;
  found.result = test(unit, p[0], p[1], p[2], p[3], p[4], p[5], p[6], p[7], q1, q2, found.cnt1, r1,
                      r2, found.cnt2);
  Require(q1.Untouched() || q1.Written(), name, "q1 is written whole");
  Require(q2.Untouched() || q2.Written(), name, "q2 is written whole");
  Require(r1.Untouched() || r1.Written(), name, "r1 is written whole");
  Require(r2.Untouched() || r2.Written(), name, "r2 is written whole");
  if (!found.result) return found;
  Require(found.cnt1 >= 0 && found.cnt1 <= 2 && found.cnt2 >= 0 && found.cnt2 <= 2, name,
          "counts of 0 to 2");
  Require(q1.Written() && q2.Written() && r1.Written(), name, "the crossings are there");
  Require((found.cnt1 < 2 && found.cnt2 < 2) || r2.Written(), name, "the second point is there");
  return found;
}

void RunDivisionTests(KernelInput& input) {
  const int unit = input.Unit();
  const Points<8> p = input.Some<8>();
  const Division both =
      RunDivisionTest("Are_two_arcs_needed_division", &Are_two_arcs_needed_division, unit, p);
  const Division first =
      RunDivisionTest("Is_1st_arc_needed_division", &Is_1st_arc_needed_division, unit, p);
  Require(!both.result || both.cnt1 > 0 || both.cnt2 > 0, "Are_two_arcs_needed_division",
          "true with a count above 0");
  Require(!both.result || first.result, "Is_1st_arc_needed_division", "true where the other is");
  Require(!both.result || both.cnt1 == first.cnt1, "Is_1st_arc_needed_division",
          "the same count of the first arc");
  Require(!first.result || first.cnt2 > 0, "Is_1st_arc_needed_division",
          "the second count stays 1 or 2");
}

// ----- Facets

/// Finer chains say nothing new and would slow the search.
constexpr std::size_t kMostFacets = 500;

void RequireChain(const GX3DElmList& lines, const Point& start, const Point& end) {
  const GX3DLine* before = nullptr;
  for (GX3DElement* const element : lines) {
    const auto* const line = dynamic_cast<const GX3DLine*>(element);
    Require(line != nullptr, "Facet_3D_arc", "lines alone");
    const GX3DPoint& from = line->Start;
    const Point expected = before ? Point{{before->End.X, before->End.Y, before->End.Z}} : start;
    Require(Same(Point{{from.X, from.Y, from.Z}}, expected), "Facet_3D_arc", "a chain");
    before = line;
  }
  if (!before) return;
  Require(Same(Point{{before->End.X, before->End.Y, before->End.Z}}, end), "Facet_3D_arc",
          "the end is exact");
}

void RunFacets(KernelInput& input) {
  const int unit = input.Unit();
  const bool degrees = input.Flag();
  const double step = input.Number();
  const Points<4> p = input.Some<4>();
  const double radians = degrees ? step * kPi / 180.0 : step;
  const double count = std::abs(Arc_angle(unit, p[0], p[1], p[2], p[3]) / radians);
  if (radians >= 0.0001 && count > double(kMostFacets)) return;
  GX3DElmList lines;
  static_cast<void>(Facet_3D_arc(unit, p[0], p[1], p[2], p[3], step, lines, degrees));
  RequireChain(lines, p[1], p[3]);
  Require(lines.size() <= kMostFacets + 1, "Facet_3D_arc", "no more lines than asked for");
  lines.ClearWithContents();
}

void RunFacetAngles(KernelInput& input) {
  const double radius = input.Number();
  const double sag = input.Number();
  const Points<2> p = input.Some<2>();
  Require(Within(Min_angle_radian_facet_3D_arc(radius, sag), 0.0, 2 * kPi + 1e-15),
          "Min_angle_radian_facet_3D_arc", "0 to 2 pi");
  Require(Same(Min_angle_radian_facet_3D_arc(p[0], p[1], sag),
               Min_angle_radian_facet_3D_arc(Vector_len_a_b(p[0], p[1]), sag)),
          "Min_angle_radian_facet_3D_arc", "the two points stand for the radius");
  const int count = Cal_segment_n(radius, sag);
  Require(count == 0 || count >= 2, "Cal_segment_n", "0, or 2 and more");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  kernel_fuzz::RunAll(
      data, size,
      {&RunDirections, &RunSpans, &RunPointsAtParameters, &RunCentres, &RunPlaneCoordinates,
       &RunTangents, &RunDivision, &RunDivisionTests, &RunFacets, &RunFacetAngles});
  return 0;
}
