// The kernel's routines on thickness, bends, corners and extents on any numbers and counts: arrays
// that are read and written within their ends, flags of 0 and 1, and boxes that only grow.
#include "KernelInput.h"

#include <KTRCL_DataTypes/GXDoubleVector.h>
#include <KTRCL_Geometry/kernel/Unfolding.h>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <vector>

namespace {

using kernel_fuzz::KernelInput;
using kernel_fuzz::kUnwrittenInt;
using kernel_fuzz::Output;
using kernel_fuzz::OutputRows;
using kernel_fuzz::Points;
using kernel_fuzz::Require;

// ----- Thickness and bends

void RunThickness(KernelInput& input) {
  const auto v = input.Numbers<12>();
  OutputRows<2> moved;
  Cal_thickness(v[0], v[1], v[2], v[3], v[4], v[5], moved, v[6]);
  Require(moved.Written(0) && moved.Written(1), "Cal_thickness", "two points are written");
  Require(moved.At(0, 2) == 0.0 && moved.At(1, 2) == 0.0, "Cal_thickness", "z is 0");
  OutputRows<2> outline;
  const int count = Cal_lines_with_thick(v[0], v[1], v[2], v[3], v[4], v[5], v[6], v[7], v[8], v[9],
                                         v[10], v[11], outline);
  Require(count == 1 || count == 2, "Cal_lines_with_thick", "1 or 2");
  Require(count == 2 || outline.Untouched(1), "Cal_lines_with_thick", "1 writes one point");
  for (std::size_t row = 0; row < 2; ++row) {
    Require(kernel_fuzz::IsUnwritten(outline.At(row, 2)), "Cal_lines_with_thick",
            "z is not written");
  }
}

GXDoubleVector SomeFigures(KernelInput& input) {
  GXDoubleVector figures;
  const std::size_t count = input.Byte() % 6;
  for (std::size_t i = 0; i < count; ++i) figures.push_back(input.Number());
  return figures;
}

void RunBends(KernelInput& input) {
  const double thickness = input.Number();
  const double unfolded = input.Number();
  const GXDoubleVector lengths = SomeFigures(input);
  const GXDoubleVector radii = SomeFigures(input);
  const GXDoubleVector angles = SomeFigures(input);
  const double factor = K_factor_by_unfolding_and_3D(thickness, unfolded, lengths, radii, angles);
  const bool tooFew =
      lengths.size() < 2 || radii.size() < lengths.size() || angles.size() < lengths.size();
  Require(!tooFew || factor == -1.0, "K_factor_by_unfolding_and_3D", "-1 without bends");
}

void RunLengthening(KernelInput& input) {
  const Points<2> p = input.Some<2>();
  Output<6> ends;
  double* const e = ends;
  for (std::size_t i = 0; i < 6; ++i) e[i] = p[i / 3].c[i % 3];
  Alluco(e, e + 1, e + 2, e + 3, e + 4, e + 5);
  Require(ends.Written(), "Alluco", "figures, or none of a line without length");
}

// ----- Corners

/// A grid, its tables and its bounds. The arrays end exactly where the bounds say.
struct Grid {
  explicit Grid(KernelInput& input) {
    const std::size_t rows = input.Byte() % 12;
    n = static_cast<int>(rows) - 1;
    const int columns = input.Whole();
    m = columns < 40 ? columns : columns % 40;
    x.reset(new double[rows][8]);
    y.reset(new double[rows][8]);
    for (std::size_t i = 0; i < 8 * rows; ++i) {
      x[i / 8][i % 8] = input.Number();
      y[i / 8][i % 8] = input.Number();
    }
    const int last = std::min(m, 7);
    const auto entries = last < 0 ? std::size_t{0} : static_cast<std::size_t>(last) + 1;
    for (std::vector<double>* const table : {&ax, &ay, &bx, &by}) {
      table->resize(table == &ax || table == &ay ? rows : entries);
      for (double& entry : *table) entry = input.Number();
    }
  }

  int n = 0;
  int m = 0;
  std::unique_ptr<double[][8]> x;
  std::unique_ptr<double[][8]> y;
  std::vector<double> ax, ay, bx, by;
};

void RunGrid(KernelInput& input) {
  const double rA = input.Number();
  const double rB = input.Number();
  const Grid grid(input);
  Output<6> out;
  double* const o = out;
  const bool found =
      Dtpnt1(o, o + 1, o + 2, o + 3, o + 4, o + 5, grid.x.get(), grid.y.get(), grid.ax.data(),
             grid.ay.data(), grid.n, grid.bx.data(), grid.by.data(), grid.m, rA, rB);
  Require(found ? out.Written() : out.Untouched(), "Dtpnt1", "written with a winner");
  if (!found) return;
  Require(grid.n >= 0 && grid.m >= 0, "Dtpnt1", "no winner in an empty grid");
  // Squared and summed as a plain distance: a long one is infinite, and clear of everything.
  const auto clear = [&](std::size_t i, double radius) {
    const double dx = out[0] - out[i];
    const double dy = out[1] - out[i + 1];
    return std::sqrt(dx * dx + dy * dy) - radius >= 0.0;
  };
  Require(clear(2, rA) && clear(4, rB), "Dtpnt1", "clear of both circles");
}

void RunCornerFlags(KernelInput& input) {
  const auto v = input.Numbers<14>();
  for (const auto routine : {&Aggius_utl1, &Aggius_utl2, &Aggius_utl3}) {
    int flags[4] = {kUnwrittenInt, kUnwrittenInt, kUnwrittenInt, kUnwrittenInt};
    routine(v[0], v[1], v[2], v[3], v[4], v[5], v[6], v[7], v[8], v[9], v[10], v[11], v[12], v[13],
            &flags[1], &flags[2]);
    Require(flags[0] == kUnwrittenInt && flags[3] == kUnwrittenInt, "Aggius_utl",
            "two flags alone are written");
    Require((flags[1] == 0 || flags[1] == 1) && (flags[2] == 0 || flags[2] == 1), "Aggius_utl",
            "0 or 1");
  }
}

// ----- Extents

void RunRectangle(KernelInput& input) {
  const auto v = input.Numbers<8>();
  const int inside = Inreta(v[0], v[1], v[2], v[3], v[4], v[5], v[6], v[7]);
  Require(inside == 0 || inside == 1, "Inreta", "0 or 1");
  Require(Inreta(v[0], v[1], v[2], v[3], v[6], v[7], v[4], v[5]) == inside, "Inreta",
          "the points may change places");
}

bool Holds(const Output<4>& box, const double* p) {
  return !(p[0] < box[0] || p[0] > box[1] || p[1] < box[2] || p[1] > box[3]);
}

void RunBoxes(KernelInput& input) {
  const Points<8> p = input.Some<8>();
  Output<4> box;
  Inf_maxmin_xy_setup(p[0], box);
  Require(box.Written() && Holds(box, p[0]), "Inf_maxmin_xy_setup", "the point itself");
  Inf_maxmin_xy_pnt(p[1], box);
  Require(Holds(box, p[0]) && Holds(box, p[1]), "Inf_maxmin_xy_pnt", "both points");
  int first = input.Whole();
  const bool starts = first == 1;
  const int after = starts ? 0 : first;
  Inf_maxmin_xy_line(p[2], p[3], box, &first);
  Require(first == after, "Inf_maxmin_xy_line", "1 becomes 0");
  Require(Holds(box, p[2]) && Holds(box, p[3]), "Inf_maxmin_xy_line", "both ends");
  Require(starts || (Holds(box, p[0]) && Holds(box, p[1])), "Inf_maxmin_xy_line", "boxes grow");
  Inf_maxmin_xy_arc(p[4], p[5], p[6], p[7], box, &first);
  Require(first == after, "Inf_maxmin_xy_arc", "only 1 changes");
  Require(Holds(box, p[2]) && Holds(box, p[5]) && Holds(box, p[7]), "Inf_maxmin_xy_arc",
          "boxes grow");
  first = 1;
  Output<4> fresh;
  Inf_maxmin_xy_arc(p[4], p[5], p[6], p[7], fresh, &first);
  Require(first == 0 && fresh.Written(), "Inf_maxmin_xy_arc", "1 starts a box");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  kernel_fuzz::RunAll(data, size,
                      {&RunThickness, &RunBends, &RunLengthening, &RunGrid, &RunCornerFlags,
                       &RunRectangle, &RunBoxes});
  return 0;
}
