// The kernel's routines on units, vectors, points and straight lines on any numbers: results within
// their range, twins that agree, and outputs that are written whole or not at all.
#include "KernelInput.h"

#include <KTRCL_Geometry/kernel/PointsAndLines.h>
#include <KTRCL_Geometry/kernel/Vectors.h>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <limits>

namespace {

using kernel_fuzz::KernelInput;
using kernel_fuzz::Output;
using kernel_fuzz::OutputRows;
using kernel_fuzz::Point;
using kernel_fuzz::Points;
using kernel_fuzz::Require;
using kernel_fuzz::RequirePointIsWritten;
using kernel_fuzz::RequirePointRoutine;
using kernel_fuzz::Same;

bool IsFlag(int result) { return result == 0 || result == 1; }

/// 0 or more; no figure is judged.
bool IsMagnitude(double number) { return !(number < 0.0); }

// ----- Units, vectors, points

using Rounding = double (*)(const int&, double);

void RunRounding(const char* name, Rounding round, int unit, double value, double half) {
  const double rounded = round(unit, value);
  if (!std::isfinite(value)) {
    Require(Same(rounded, value), name, "what is no figure comes back as it is");
    return;
  }
  const double lastPlaces = std::abs(value) * 4 * std::numeric_limits<double>::epsilon();
  Require(std::abs(rounded - value) <= half + lastPlaces, name, "the figure is rounded");
  Require(Same(round(unit, rounded), rounded), name, "a rounded figure stays");
}

void RunUnits(KernelInput& input) {
  const int unit = input.Unit();
  const double value = input.Number();
  const bool inches = unit != 0;
  Require(Inch_conversion(unit) == (inches ? 25.4 : 1.0), "Inch_conversion", "25.4 or 1");
  Require(MM_to_inch_convertor(unit) == (inches ? 0.03937007874015748 : 1.0),
          "MM_to_inch_convertor", "1 / 25.4 or 1");
  RunRounding("Round_effect_digits", &Round_effect_digits, unit, value, inches ? 5e-5 : 5e-3);
  RunRounding("Round_effect_digits_46", &Round_effect_digits_46, unit, value, inches ? 5e-7 : 5e-5);
  RunRounding("Round_effect_digits_a", &Round_effect_digits_a, unit, value, inches ? 5e-6 : 5e-4);
}

void RunVectors(KernelInput& input) {
  const Points<2> p = input.Some<2>();
  const double s = input.Number();
  RequirePointIsWritten("Vector_a_b", p,
                        [](const auto& in, double* out) { Vector_a_b(in[0], in[1], out); });
  RequirePointIsWritten("Vector_a_add_b", p,
                        [](const auto& in, double* out) { Vector_a_add_b(in[0], in[1], out); });
  RequirePointIsWritten("Vector_mid_a_b", p,
                        [](const auto& in, double* out) { Vector_mid_a_b(in[0], in[1], out); });
  RequirePointIsWritten("Vector_a_x_b", p,
                        [](const auto& in, double* out) { Vector_a_x_b(in[0], in[1], out); });
  RequirePointIsWritten("Vector_a_x_val", p,
                        [&](const auto& in, double* out) { Vector_a_x_val(in[0], s, out); });
  RequirePointIsWritten("Vector_copy_a_to_b", p,
                        [](const auto& in, double* out) { Vector_copy_a_to_b(in[0], out); });
  Output<3> filled;
  Vector_by_values(filled, p[0].c[0], p[0].c[1], p[0].c[2]);
  Require(Same(filled, p[0]), "Vector_by_values", "the figures are written");
  Require(Same(Vector_a_dot_b(p[0], p[1]), Vector_a_dot_b(p[1], p[0])), "Vector_a_dot_b",
          "the vectors may change places");
  Require(IsMagnitude(Vector_len(p[0])), "Vector_len", "0 or more");
  Require(Same(Vector_len_a_b(p[0], p[1]), Vector_len_a_b(p[1], p[0])), "Vector_len_a_b",
          "the points may change places");
}

void RunStandard(KernelInput& input) {
  const Point before = input.SomePoint();
  Output<3> vector;
  for (int i = 0; i < 3; ++i) static_cast<double*>(vector)[i] = before.c[i];
  const double length = Vector_len(before);
  Vector_standard(vector);
  if (!(length > 0.0001)) {
    Require(Same(vector, before), "Vector_standard", "a short vector stays");
    return;
  }
  for (std::size_t i = 0; i < 3; ++i) {
    Require(!(std::abs(vector[i]) > 1.0000001), "Vector_standard", "no component is above 1");
  }
}

void RunSixTuples(KernelInput& input) {
  const auto v = input.Numbers<6>();
  Output<6> a;
  Vector_by_values_6(a, v[0], v[1], v[2], v[3], v[4], v[5]);
  Output<6> b;
  Vector_copy_a_to_b_6(a, b);
  double rows[6][6] = {};
  for (std::size_t i = 0; i < 6; ++i) {
    Require(Same(a[i], v[i]) && Same(b[i], v[i]), "Vector_copy_a_to_b_6", "six are copied");
    for (std::size_t j = 0; j < 6; ++j) rows[i][j] = v[(i + j) % 6];
  }
  OutputRows<6, 6> copy;
  Vector_copy_a_to_b_66(rows, copy);
  for (std::size_t i = 0; i < 36; ++i) {
    Require(Same(copy.At(i / 6, i % 6), rows[i / 6][i % 6]), "Vector_copy_a_to_b_66",
            "all are copied");
  }
  Require(IsMagnitude(Vector_len_6(a)), "Vector_len_6", "0 or more");
  const auto w = input.Numbers<6>();
  Require(IsFlag(Pntcmp6(v.data(), w.data())), "Pntcmp6", "0 or 1");
  Require(Pntcmp6(v.data(), w.data()) <= Pntcmp(v.data(), w.data()), "Pntcmp6",
          "the points coincide too");
}

void RunComparisons(KernelInput& input) {
  const Points<2> p = input.Some<2>();
  const int same = Pntcmp(p[0], p[1]);
  Require(IsFlag(same), "Pntcmp", "0 or 1");
  Require(Pntcmp(p[1], p[0]) == same, "Pntcmp", "the points may change places");
  Require(Pntcmp1(p[0], p[1]) == same, "Pntcmp1", "as Pntcmp");
  Require(Pntcmp_tol(p[0], p[1], 0.0001) == same, "Pntcmp_tol", "as Pntcmp at its tolerance");
  Require(IsFlag(Pntcmp_tol(p[0], p[1], input.Number())), "Pntcmp_tol", "0 or 1");
}

void RunChoices(KernelInput& input) {
  const Points<4> p = input.Some<4>();
  const int common = RequirePointRoutine("Common_point", p, [](const auto& in, double* out) {
    return Common_point_pointer_2Points1_in_2Points2(in[0], in[1], in[2], in[3], out);
  });
  const int other = RequirePointRoutine("Not_Common_point", p, [](const auto& in, double* out) {
    return Not_Common_point_pointer_2Points1_in_2Points2(in[0], in[1], in[2], in[3], out);
  });
  const int far = RequirePointRoutine("Get_not_same_vector", p, [](const auto& in, double* out) {
    return Get_not_same_vector(in[0], in[1], in[2], in[3], out);
  });
  Require(common == other && common == far, "Get_not_same_vector", "all find the same ends");
  RequirePointIsWritten("Vector_another_Pnt", p, [](const auto& in, double* out) {
    Vector_another_Pnt(in[0], in[1], in[2], out);
  });
  RequirePointIsWritten("Vector_endp_Pnt", p, [](const auto& in, double* out) {
    Vector_endp_Pnt(in[0], in[1], in[2], out);
  });
  Output<3> chosen;
  Require(Vector_another_Pnt(p[0], p[1], p[2], chosen) == 1, "Vector_another_Pnt", "always 1");
  Require(Same(chosen, p[1]) || Same(chosen, p[2]), "Vector_another_Pnt", "one of the two");
}

// ----- Directions of lines

void RunDirections(KernelInput& input) {
  const int unit = input.Unit();
  const Points<4> p = input.Some<4>();
  const double tol = input.Number();
  const int inLine = Inline(unit, p[0], p[1], p[2], p[3]);
  Require(IsFlag(inLine), "Inline", "0 or 1");
  Require(Inline(unit, p[2], p[3], p[0], p[1]) == inLine, "Inline", "lines may change places");
  Require(IsFlag(Inline_tol(unit, p[0], p[1], p[2], p[3], tol)), "Inline_tol", "0 or 1");
  Require(Inline_tol(0, p[0], p[1], p[2], p[3], 0.0001) == Inline(0, p[0], p[1], p[2], p[3]),
          "Inline_tol", "as Inline at its limit");
  const int byAngle = Inline_new(unit, p[0], p[1], p[2], p[3]);
  Require(IsFlag(byAngle), "Inline_new", "0 or 1");
  Require(Inline_new(unit + (unit < 0 ? 1 : -1), p[0], p[1], p[2], p[3]) == byAngle, "Inline_new",
          "no unit");
  Require(IsFlag(Pre_inline(unit, p[0], p[1], p[2], p[3])), "Pre_inline", "0 or 1");
  Require(Almost_inline(unit, p[0], p[1], p[2]) || Inline(unit, p[0], p[1], p[0], p[2]) == 0,
          "Almost_inline", "holds where Inline does");
  Require(IsFlag(Collne(p[0], p[1], p[2], p[3])), "Collne", "0 or 1");
  Require(IsFlag(Are_perpendicular_lines(unit, p[0], p[1], p[2], p[3])), "Are_perpendicular_lines",
          "0 or 1");
  static_cast<void>(Penpendiculer_vectors(p[0], p[1], p[2], p[3]));
}

void RunParallels(KernelInput& input) {
  const Points<4> p = input.Some<4>();
  const double tol = input.Number();
  const int parallel = Are_parallel_lines(p[0], p[1], p[2], p[3]);
  Require(IsFlag(parallel), "Are_parallel_lines", "0 or 1");
  Require(Are_parallel_lines_tol(p[0], p[1], p[2], p[3], 0.01) == parallel,
          "Are_parallel_lines_tol", "as without a limit at 0.01");
  Require(IsFlag(Are_parallel_lines_tol(p[0], p[1], p[2], p[3], tol)), "Are_parallel_lines_tol",
          "0 or 1");
  Require(IsFlag(Are_parallel_lines_tol_distan(p[0], p[1], p[2], p[3], tol)),
          "Are_parallel_lines_tol_distan", "0 or 1");
}

// ----- Points and lines

void RunSides(KernelInput& input) {
  const Points<4> p = input.Some<4>();
  Require(IsFlag(Chkpnt(&p[0].c[0], &p[0].c[1], p[1], p[2])), "Chkpnt", "0 or 1");
  const double product = Cp1ptp2(p[0], p[1], p[2], p[3]);
  Require(P1intp2(p[0], p[1], p[2], p[3]) == (product <= 0.0 ? 1 : 0), "P1intp2",
          "the negation of Cp1ptp2");
}

void RunPlacesOnSegments(KernelInput& input) {
  const int unit = input.Unit();
  const Points<3> p = input.Some<3>();
  const double tol = input.Number();
  Output<1> t;
  const bool inside = Inside_line_point(unit, p[0], p[1], p[2], t);
  Require(Inside_line_point(unit, p[0], p[1], p[2], nullptr) == inside, "Inside_line_point",
          "the same without a place for the parameter");
  Require(inside ? t[0] > -0.000001 && t[0] < 1.000001 : t.Untouched(), "Inside_line_point",
          "the parameter is in range, or unwritten");
  const int place = Insidp(unit, p[0], p[1], p[2]);
  Require(place >= 0 && place <= 2, "Insidp", "0 to 2");
  Require(place == 0 || Inline(unit, p[0], p[1], p[0], p[2]) == 1, "Insidp", "in line");
  const int crossing = Insidp_crossing_X_tol(unit, p[0], p[1], p[2], tol);
  Require(crossing >= 0 && crossing <= 2, "Insidp_crossing_X_tol", "0 to 2");
  Require(place == 0 || crossing == place, "Insidp_crossing_X_tol", "as Insidp in line");
  static_cast<void>(Point_parametrc_value_on_line(p[2], p[0], p[1]));
}

void RunOverlaps(KernelInput& input) {
  const int unit = input.Unit();
  const Points<4> p = input.Some<4>();
  const int overlap = Overlapped_lines(unit, p[0], p[1], p[2], p[3]);
  Require(IsFlag(overlap), "Overlapped_lines", "0 or 1");
  Require(Overlapped_lines(unit, p[2], p[3], p[0], p[1]) == overlap, "Overlapped_lines",
          "segments may change places");
  const int whole = Overlapped_completely_lines(unit, p[0], p[1], p[2], p[3]);
  Require(IsFlag(whole) && whole <= overlap, "Overlapped_completely_lines", "an overlap as well");
  Require(Overlapped_exactly_lines(p[0], p[1], p[2], p[3]) ==
              Overlapped_exactly_lines(p[0], p[1], p[3], p[2]),
          "Overlapped_exactly_lines", "ends may change places");
}

// ----- Distances and angles

void RunDistances(KernelInput& input) {
  const Points<4> p = input.Some<4>();
  const double distance = Distance_line_point(p[0], p[1], p[2]);
  Require(IsMagnitude(distance), "Distance_line_point", "0 or more");
  Output<1> flagged;
  if (Dislar(p[0], p[1], p[2], flagged) == 1) {
    Require(Same(flagged[0], distance), "Dislar", "the same distance");
  } else {
    Require(flagged.Untouched() && distance == 0.0, "Dislar", "unwritten for a line of length 0");
  }
  Output<1> squared;
  Require(IsFlag(Dislpt(p[0], p[1], p[2], squared)), "Dislpt", "0 or 1");
  Require(squared.Written() && IsMagnitude(squared[0]), "Dislpt", "always written");
  Output<1> skew;
  const int crossing = Dislln(p[0], p[1], p[2], p[3], skew);
  Require(IsFlag(crossing), "Dislln", "0 or 1");
  Require(crossing == 1 ? skew.Written() && IsMagnitude(skew[0]) : skew.Untouched(), "Dislln",
          "written for lines that are not parallel");
  Output<1> apart;
  Require(Disaar(p[0], p[1], apart) == 1, "Disaar", "always 1");
  Require(Same(apart[0], Vector_len_a_b(p[0], p[1])), "Disaar", "the distance");
}

void RunWholeDistance(KernelInput& input) {
  const int x1 = input.Whole();
  const int y1 = input.Whole();
  const int x2 = input.Whole();
  const int y2 = input.Whole();
  const int distance = Distance_XY(x1, y1, x2, y2);
  const double exact = std::hypot(double(x2) - x1, double(y2) - y1);
  const double expected = std::min(exact, double(std::numeric_limits<int>::max()));
  Require(distance >= 0 && distance <= expected + 1e-5 && distance > expected - 1.00001,
          "Distance_XY", "the distance, truncated");
}

void RunAngles(KernelInput& input) {
  const int unit = input.Unit();
  const bool useCrossing = input.Flag();
  const Points<4> p = input.Some<4>();
  const double angle = Angle_between_2_lines(unit, p[0], p[1], p[2], p[3], useCrossing);
  Require(angle == -1.0 || !(angle < 0.0 || angle > 3.1415926535897936), "Angle_between_2_lines",
          "-1, or 0 to pi");
  Require(IsMagnitude(Get_length_on_direction(unit, p[0], p[1], p[2])), "Get_length_on_direction",
          "0 or more");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  kernel_fuzz::RunAll(data, size,
                      {&RunUnits, &RunVectors, &RunStandard, &RunSixTuples, &RunComparisons,
                       &RunChoices, &RunDirections, &RunParallels, &RunSides, &RunPlacesOnSegments,
                       &RunOverlaps, &RunDistances, &RunWholeDistance, &RunAngles});
  return 0;
}
