#include <KTRCL_Geometry/kernel/ttvPlaneCS.h>

#include "support/Build.h"
#include "support/KernelArrays.h"
#include "support/Near.h"
#include "support/Random.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstddef>
#include <type_traits>
#include <vector>

namespace {

using support::Frame;
using support::kGlobalAxes;
using support::kNaN;
using support::kUnwritten;
using support::Vec;

constexpr Vec kO(0, 0, 0);
constexpr Vec kOrigin(1, 2, 3);

// Right-handed rows Y, Z, X of the global axes, and a left-handed frame.
constexpr Frame kTurned({0, 1, 0}, {0, 0, 1}, {1, 0, 0});
constexpr Frame kLeftHanded({0, 1, 0}, {1, 0, 0}, {0, 0, 1});

// A plane parallel to XY through kOrigin.
ttvPlaneCS Level() { return {0, kOrigin, kOrigin + Vec(5, 0, 0), kOrigin + Vec(3, 4, 0), 0}; }

// The plane x = 1 with X and Y along the global Y and Z.
ttvPlaneCS Upright() { return {0, kOrigin, kTurned}; }

void Set(double (&field)[3], const Vec& value) {
  for (int i = 0; i < 3; ++i) {
    field[i] = value[i];
  }
}

std::vector<double> Fields(const ttvPlaneCS& cs) {
  std::vector<double> all{cs.Valid ? 1.0 : 0.0};
  for (const double* const p :
       {cs.Origin, cs.XPoint, cs.YPoint, cs.ZPoint, cs.UnitX, cs.UnitY, cs.UnitZ}) {
    all.insert(all.end(), p, p + 3);
  }
  for (int row = 0; row < 3; ++row) {
    all.insert(all.end(), cs.Frame[row], cs.Frame[row] + 3);
  }
  for (int row = 0; row < 3; ++row) {
    all.insert(all.end(), cs.Inverse[row], cs.Inverse[row] + 3);
  }
  all.push_back(cs.Unit);
  return all;
}

std::vector<double> AllZeroBut(int unit) {
  std::vector<double> all(41, 0.0);
  all.back() = unit;
  return all;
}

TEST(TtvPlaneCSFields, StandInTheirOrder) {
  static_assert(!std::is_polymorphic_v<ttvPlaneCS> && std::is_standard_layout_v<ttvPlaneCS>);
  static_assert(sizeof(ttvPlaneCS) == 328);
  static_assert(offsetof(ttvPlaneCS, Valid) == 0);
  static_assert(offsetof(ttvPlaneCS, Origin) == 8);
  static_assert(offsetof(ttvPlaneCS, XPoint) == 32);
  static_assert(offsetof(ttvPlaneCS, YPoint) == 56);
  static_assert(offsetof(ttvPlaneCS, ZPoint) == 80);
  static_assert(offsetof(ttvPlaneCS, UnitX) == 104);
  static_assert(offsetof(ttvPlaneCS, UnitY) == 128);
  static_assert(offsetof(ttvPlaneCS, UnitZ) == 152);
  static_assert(offsetof(ttvPlaneCS, Frame) == 176);
  static_assert(offsetof(ttvPlaneCS, Inverse) == 248);
  static_assert(offsetof(ttvPlaneCS, Unit) == 320);
  EXPECT_EQ(sizeof(ttvPlaneCS), 328U);
}

TEST(TtvPlaneCSFromUnit, IsNotValidAndZeroButForTheUnit) {
  for (const int unit : {0, 1, 2, -1}) {
    EXPECT_EQ(Fields(ttvPlaneCS(unit)), AllZeroBut(unit));
  }
}

TEST(TtvPlaneCSFromPoints, StandsOnThePoints) {
  const ttvPlaneCS cs = Level();
  EXPECT_TRUE(cs.Valid);
  EXPECT_EQ(cs.Unit, 0);
  EXPECT_POINT_EQ(Vec(cs.Origin), kOrigin);
  EXPECT_POINT_EQ(Vec(cs.XPoint), Vec(6, 2, 3));
  EXPECT_POINT_EQ(Vec(cs.YPoint), Vec(4, 6, 3));
  EXPECT_POINT_EQ(Vec(cs.ZPoint), Vec(1, 2, 4));
  EXPECT_POINT_EQ(Vec(cs.UnitX), Vec(2, 2, 3));
  EXPECT_POINT_EQ(Vec(cs.UnitY), Vec(1, 3, 3));
  EXPECT_POINT_EQ(Vec(cs.UnitZ), Vec(1, 2, 4));
  EXPECT_POINT_EQ(Frame(cs.Frame), kGlobalAxes);
  EXPECT_POINT_EQ(Frame(cs.Inverse), kGlobalAxes);
}

TEST(TtvPlaneCSFromPoints, KeepsFrameAndInverseApart) {
  const ttvPlaneCS cs(7, kO, Vec(0, 5, 0), Vec(0, 5, 5), 0);
  EXPECT_TRUE(cs.Valid);
  EXPECT_EQ(cs.Unit, 7);
  EXPECT_POINT_EQ(Frame(cs.Frame), kTurned);
  EXPECT_POINT_EQ(Frame(cs.Inverse), support::Transposed(kTurned));
}

// The normal of (5, 0, 0) and (3, 4, 0) is Z; X times it is -Y.
TEST(TtvPlaneCSFromPoints, TakesTheNormalAsYInModeMinus3) {
  Vec y = kOrigin + Vec(3, 4, 0);
  const ttvPlaneCS cs(0, kOrigin, kOrigin + Vec(5, 0, 0), y, -3);
  EXPECT_TRUE(cs.Valid);
  EXPECT_POINT_EQ(Vec(cs.YPoint), kOrigin + Vec(0, 0, 1));
  EXPECT_POINT_EQ(Frame(cs.Frame), Frame({1, 0, 0}, {0, 0, 1}, {0, -1, 0}));
  EXPECT_POINT_EQ(Vec(cs.UnitY), kOrigin + Vec(0, 0, 1));
  EXPECT_POINT_EQ(y, kOrigin + Vec(3, 4, 0));
}

TEST(TtvPlaneCSFromPoints, HasNoOtherMode) {
  for (const int mode : {0, 3, -2, -4, 1}) {
    const ttvPlaneCS cs(0, kOrigin, kOrigin + Vec(5, 0, 0), kOrigin + Vec(3, 4, 0), mode);
    EXPECT_EQ(Fields(cs), Fields(Level()));
  }
}

TEST(TtvPlaneCSFromPoints, IsNotValidForPointsInLine) {
  const ttvPlaneCS cs(2, kOrigin, kOrigin + Vec(5, 0, 0), kOrigin + Vec(9, 0, 0), 0);
  EXPECT_FALSE(cs.Valid);
  EXPECT_EQ(cs.Unit, 2);
  EXPECT_POINT_EQ(Vec(cs.Origin), kOrigin);
  EXPECT_POINT_EQ(Vec(cs.XPoint), Vec(6, 2, 3));
  EXPECT_POINT_EQ(Vec(cs.YPoint), Vec(10, 2, 3));
  EXPECT_POINT_EQ(Vec(cs.ZPoint), kO);
  EXPECT_POINT_EQ(Vec(cs.UnitX), Vec(1, 0, 0));
  EXPECT_POINT_EQ(Vec(cs.UnitY), Vec(0, 1, 0));
  EXPECT_POINT_EQ(Vec(cs.UnitZ), Vec(0, 0, 1));
  EXPECT_POINT_EQ(Frame(cs.Frame), Frame(kO, kO, kO));
  EXPECT_POINT_EQ(Frame(cs.Inverse), Frame(kO, kO, kO));
}

TEST(TtvPlaneCSFromPoints, HandsTheUnitFlagToInline) {
  const auto valid = [](int unit) {
    return ttvPlaneCS(unit, kO, Vec(5, 0, 0), Vec(10, 0.0005, 0), 0).Valid;
  };
  support::ExpectOnly1IsInches(valid, false, true);
}

// (0, 0, 1) + (1, 1, 1) falls on (1, 1, 0).
TEST(TtvPlaneCSFromNormal, PointsXToTheFootOfTheDiagonal) {
  const double half = std::sqrt(0.5);
  const ttvPlaneCS cs(0, kOrigin, Vec(0, 0, 1));
  EXPECT_TRUE(cs.Valid);
  EXPECT_POINT_NEAR(Vec(cs.XPoint), kOrigin + Vec(half, half, 0), 1e-15);
  EXPECT_POINT_NEAR(Vec(cs.YPoint), kOrigin + Vec(-half, half, 0), 1e-15);
  EXPECT_POINT_NEAR(Vec(cs.ZPoint), kOrigin + Vec(0, 0, 1), 1e-15);
  EXPECT_POINT_NEAR(Frame(cs.Frame), Frame({half, half, 0}, {-half, half, 0}, {0, 0, 1}), 1e-15);
  EXPECT_POINT_NEAR(Vec(cs.UnitZ), kOrigin + Vec(0, 0, 1), 1e-15);
}

TEST(TtvPlaneCSFromNormal, MakesTheNormalZ) {
  support::Random random;
  for (int i = 0; i < 200; ++i) {
    const Vec way(random.Between(-9, 9), random.Between(-9, 9), random.Between(-3, 3));
    const Vec normal = 1 / support::Length(way) * way;
    const ttvPlaneCS cs(i % 2, kOrigin, normal);
    if (std::fabs(support::Dot(normal, Vec(1, 1, 1))) > 1.7) {
      continue;  // close to the diagonal
    }
    ASSERT_TRUE(cs.Valid);
    EXPECT_POINT_NEAR(Frame(cs.Frame).Row(2), normal, 1e-13);
    EXPECT_GT(support::Dot(Frame(cs.Frame).Row(0), Vec(1, 1, 1)), 0.0);
  }
}

TEST(TtvPlaneCSFromNormal, StaysUnsetForANormalAlongTheDiagonal) {
  const double third = 1 / std::sqrt(3.0);
  for (const double sign : {1.0, -1.0}) {
    const ttvPlaneCS cs(3, kOrigin, sign * Vec(third, third, third));
    EXPECT_EQ(Fields(cs), AllZeroBut(3));
  }
}

// Off the diagonal by a way of w the foot stands about 1.73 w from the origin.
TEST(TtvPlaneCSFromNormal, IsSetFromADirectionLongerThan0Point0001) {
  const auto off = [](double w) {
    const Vec normal = Vec(1, 1, 1) + std::sqrt(1.5) * w * Vec(1, -1, 0);
    return ttvPlaneCS(0, kOrigin, 1 / support::Length(normal) * normal).Valid;
  };
  EXPECT_FALSE(off(0.00005));
  EXPECT_TRUE(off(0.00007));
}

TEST(TtvPlaneCSFromFrame, StoresTheFrameAndDerivesThePoints) {
  const ttvPlaneCS cs = Upright();
  EXPECT_TRUE(cs.Valid);
  EXPECT_POINT_EQ(Vec(cs.Origin), kOrigin);
  EXPECT_POINT_EQ(Frame(cs.Frame), kTurned);
  EXPECT_POINT_EQ(Frame(cs.Inverse), support::Transposed(kTurned));
  EXPECT_POINT_EQ(Vec(cs.XPoint), kOrigin + Vec(0, 1, 0));
  EXPECT_POINT_EQ(Vec(cs.YPoint), kOrigin + Vec(0, 0, 1));
  EXPECT_POINT_EQ(Vec(cs.ZPoint), kOrigin + Vec(1, 0, 0));
  EXPECT_POINT_EQ(Vec(cs.UnitX), Vec(cs.XPoint));
  EXPECT_POINT_EQ(Vec(cs.UnitY), Vec(cs.YPoint));
  EXPECT_POINT_EQ(Vec(cs.UnitZ), Vec(cs.ZPoint));
  EXPECT_EQ(ttvPlaneCS(-1, kOrigin, kTurned).Unit, -1);
}

TEST(TtvPlaneCSFromFrame, IsValidWithALeftHandedFrameThatHasNoInverse) {
  const ttvPlaneCS cs(0, kOrigin, kLeftHanded);
  EXPECT_TRUE(cs.Valid);
  EXPECT_POINT_EQ(Frame(cs.Frame), kLeftHanded);
  EXPECT_POINT_EQ(Frame(cs.Inverse), Frame(kO, kO, kO));
  EXPECT_POINT_EQ(Vec(cs.UnitX), kOrigin);
  Vec local = kUnwritten;
  EXPECT_TRUE(cs.Get_local_point(kOrigin + Vec(4, 5, 6), local));
  EXPECT_POINT_EQ(local, Vec(5, 4, 6));
  Vec global = kUnwritten;
  EXPECT_TRUE(cs.Get_global_point(local, global));
  EXPECT_POINT_EQ(global, kOrigin);
}

TEST(TtvPlaneCSCalculate, SetsTheFlagForPointsOffALine) {
  ttvPlaneCS cs(0);
  EXPECT_FALSE(cs.Calculate());
  Set(cs.XPoint, Vec(0, 5, 0));
  Set(cs.YPoint, Vec(0, 5, 5));
  EXPECT_TRUE(cs.Calculate());
  EXPECT_TRUE(cs.Valid);
  EXPECT_POINT_EQ(Frame(cs.Frame), kTurned);
  EXPECT_POINT_EQ(Frame(cs.Inverse), support::Transposed(kTurned));
}

TEST(TtvPlaneCSCalculate, LeavesFlagAndFrameAloneForPointsInLine) {
  ttvPlaneCS cs = Level();
  Set(cs.YPoint, Vec(cs.XPoint));
  EXPECT_TRUE(cs.Calculate());
  EXPECT_POINT_EQ(Frame(cs.Frame), kGlobalAxes);
  cs.Valid = false;
  EXPECT_FALSE(cs.Calculate());
}

TEST(TtvPlaneCSCSPoints, AreTheGlobalAxesWhereTheObjectIsNotValid) {
  ttvPlaneCS cs = Upright();
  cs.Valid = false;
  cs.CS_points();
  EXPECT_POINT_EQ(Vec(cs.UnitX), Vec(1, 0, 0));
  EXPECT_POINT_EQ(Vec(cs.UnitY), Vec(0, 1, 0));
  EXPECT_POINT_EQ(Vec(cs.UnitZ), Vec(0, 0, 1));
  EXPECT_POINT_EQ(Vec(cs.ZPoint), kOrigin + Vec(1, 0, 0));
}

TEST(TtvPlaneCSCSPoints, FollowTheFrame) {
  ttvPlaneCS cs = Level();
  Set(cs.Origin, Vec(10, 20, 30));
  cs.CS_points();
  EXPECT_POINT_EQ(Vec(cs.UnitX), Vec(11, 20, 30));
  EXPECT_POINT_EQ(Vec(cs.UnitY), Vec(10, 21, 30));
  EXPECT_POINT_EQ(Vec(cs.UnitZ), Vec(10, 20, 31));
  EXPECT_POINT_EQ(Vec(cs.ZPoint), Vec(10, 20, 31));
}

TEST(TtvPlaneCSGetLocalPoint, GoesToLocalCoordinatesAndGetGlobalPointBack) {
  const ttvPlaneCS cs = Upright();
  Vec local = kUnwritten;
  EXPECT_TRUE(cs.Get_local_point(Vec(11, 22, 33), local));
  EXPECT_POINT_EQ(local, Vec(20, 30, 10));
  Vec global = kUnwritten;
  EXPECT_TRUE(cs.Get_global_point(local, global));
  EXPECT_POINT_EQ(global, Vec(11, 22, 33));
}

TEST(TtvPlaneCSGetLocalPoint, MayWriteToThePoint) {
  const ttvPlaneCS cs = Upright();
  Vec p(11, 22, 33);
  EXPECT_TRUE(cs.Get_local_point(p, p));
  EXPECT_POINT_EQ(p, Vec(20, 30, 10));
  EXPECT_TRUE(cs.Get_global_point(p, p));
  EXPECT_POINT_EQ(p, Vec(11, 22, 33));
}

TEST(TtvPlaneCSGetLocalPoint, CopiesAndReportsFalseWhereTheObjectIsNotValid) {
  ttvPlaneCS cs = Upright();
  cs.Valid = false;
  Vec local = kUnwritten;
  EXPECT_FALSE(cs.Get_local_point(Vec(11, 22, 33), local));
  EXPECT_POINT_EQ(local, Vec(11, 22, 33));
  Vec global = kUnwritten;
  EXPECT_FALSE(cs.Get_global_point(Vec(11, 22, 33), global));
  EXPECT_POINT_EQ(global, Vec(11, 22, 33));
}

TEST(TtvPlaneCSProject, IsTheFootOnThePlane) {
  const ttvPlaneCS cs = Upright();
  Vec out = kUnwritten;
  cs.Project(Vec(11, 22, 33), out);
  EXPECT_POINT_EQ(out, Vec(1, 22, 33));
  Vec p(11, 22, 33);
  cs.Project(p);
  EXPECT_POINT_EQ(p, Vec(1, 22, 33));
  Vec q(11, 22, 33);
  cs.Project(q, q);
  EXPECT_POINT_EQ(q, Vec(1, 22, 33));
}

TEST(TtvPlaneCSProject, DropsZWhereTheObjectIsNotValid) {
  ttvPlaneCS cs = Upright();
  cs.Valid = false;
  Vec out = kUnwritten;
  cs.Project(Vec(11, 22, 33), out);
  EXPECT_POINT_EQ(out, Vec(11, 22, 0));
  Vec p(11, 22, 33);
  cs.Project(p);
  EXPECT_POINT_EQ(p, Vec(11, 22, 0));
}

TEST(TtvPlaneCSCalInterPlaneLine, GivesTheCrossingGlobalOrLocal) {
  const ttvPlaneCS cs = Upright();
  Vec out = kUnwritten;
  EXPECT_TRUE(cs.Cal_inter_plane_line(Vec(0, 0, 0), Vec(4, 8, -12), out, true));
  EXPECT_POINT_EQ(out, Vec(1, 2, -3));
  EXPECT_TRUE(cs.Cal_inter_plane_line(Vec(0, 0, 0), Vec(4, 8, -12), out, false));
  EXPECT_POINT_EQ(out, Vec(0, -6, 0));
  EXPECT_TRUE(cs.Cal_inter_plane_line_local(Vec(0, 0, -1), Vec(8, -12, 3), out, true));
  EXPECT_POINT_EQ(out, Vec(1, 4, 0));
  EXPECT_TRUE(cs.Cal_inter_plane_line_local(Vec(0, 0, -1), Vec(8, -12, 3), out, false));
  EXPECT_POINT_EQ(out, Vec(2, -3, 0));
}

TEST(TtvPlaneCSCalInterPlaneLine, IsFalseForHeightsThatDifferByAtMost0Point0001) {
  const ttvPlaneCS cs(0, kO, kGlobalAxes);
  Vec out = kUnwritten;
  for (const bool global : {true, false}) {
    for (const double z : {0.0, 0.0001, -0.0001}) {
      EXPECT_FALSE(cs.Cal_inter_plane_line(kO, Vec(10, 0, z), out, global));
      EXPECT_FALSE(cs.Cal_inter_plane_line_local(kO, Vec(10, 0, z), out, global));
      EXPECT_POINT_EQ(out, kUnwritten);
    }
  }
  const double above = std::nextafter(0.0001, 1.0);
  EXPECT_TRUE(cs.Cal_inter_plane_line(kO, Vec(10, 0, above), out, true));
  EXPECT_POINT_EQ(out, kO);
  out = kUnwritten;
  EXPECT_TRUE(cs.Cal_inter_plane_line_local(kO, Vec(10, 0, -above), out, true));
  EXPECT_POINT_EQ(out, kO);
}

TEST(TtvPlaneCSCalInterPlaneLine, CrossesTheGlobalPlaneZ0WhereTheObjectIsNotValid) {
  const ttvPlaneCS cs(0);
  Vec out = kUnwritten;
  EXPECT_TRUE(cs.Cal_inter_plane_line(Vec(0, 0, -1), Vec(8, 4, 3), out, true));
  EXPECT_POINT_EQ(out, Vec(2, 1, 0));
}

TEST(TtvPlaneCSCalInterPlaneLine, MayWriteToItsInputs) {
  const ttvPlaneCS cs = Upright();
  for (const int shared : {0, 1}) {
    Vec line[2] = {{0, 0, 0}, {4, 8, -12}};
    EXPECT_TRUE(cs.Cal_inter_plane_line(line[0], line[1], line[shared], true));
    EXPECT_POINT_EQ(line[shared], Vec(1, 2, -3));
    Vec local[2] = {{0, 0, -1}, {8, -12, 3}};
    EXPECT_TRUE(cs.Cal_inter_plane_line_local(local[0], local[1], local[shared], true));
    EXPECT_POINT_EQ(local[shared], Vec(1, 4, 0));
  }
}

}  // namespace
