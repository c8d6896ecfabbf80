#include <KTRCL_Geometry/kernel/Unfolding.h>

#include "support/KernelArrays.h"
#include "support/Near.h"
#include "support/Random.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <limits>
#include <vector>

namespace {

using support::kInfinity;
using support::kNaN;

struct Xy {
  double x;
  double y;
};

// ---- the point that keeps clear. Table A has its centres left of the grid on (0, 0), table B
// right of it on (100, 0), unless a test moves them; the outputs hold other figures before.

struct Choice {
  bool found = false;
  std::array<double, 6> out{-71, -72, -73, -74, -75, -76};
};
constexpr std::array<double, 6> kBefore{-71, -72, -73, -74, -75, -76};

struct Corner {
  static constexpr int kRows = 4;
  static constexpr int kColumns = 8;
  double gridX[kRows][kColumns] = {};
  double gridY[kRows][kColumns] = {};
  std::array<double, kRows> ax{};
  std::array<double, kRows> ay{};
  std::array<double, kColumns> bx{};
  std::array<double, kColumns> by{};
  double rA = 1;
  double rB = 1;

  Corner() {
    bx.fill(100);
    for (int i = 0; i < kRows; ++i) {
      for (int j = 0; j < kColumns; ++j) Put(i, j, {50, 0});
    }
  }
  void Put(int i, int j, const Xy& p) {
    gridX[i][j] = p.x;
    gridY[i][j] = p.y;
  }
  Choice Choose(int n, int m) const {
    Choice c;
    auto& o = c.out;
    c.found = Dtpnt1(&o[0], &o[1], &o[2], &o[3], &o[4], &o[5], gridX, gridY, ax.data(), ay.data(),
                     n, bx.data(), by.data(), m, rA, rB);
    return c;
  }
};
void ExpectNothing(const Choice& c) {
  EXPECT_FALSE(c.found);
  EXPECT_EQ(c.out, kBefore);
}
void ExpectPoint(const Choice& c, double x, double y) {
  EXPECT_TRUE(c.found);
  EXPECT_EQ(c.out[0], x);
  EXPECT_EQ(c.out[1], y);
}

TEST(Dtpnt1, NegativeNGivesFalseAndLeavesTheOutputsAlone) {
  const Corner corner;
  ExpectNothing(corner.Choose(-1, 3));
  ExpectNothing(corner.Choose(std::numeric_limits<int>::min(), 3));
}

TEST(Dtpnt1, NegativeMGivesFalseAndLeavesTheOutputsAlone) {
  const Corner corner;
  ExpectNothing(corner.Choose(3, -1));
  ExpectNothing(corner.Choose(3, std::numeric_limits<int>::min()));
}

TEST(Dtpnt1, WritesTheGridPointAndTheEntriesOfBothTables) {
  Corner corner;
  corner.ax = {1, 2, 3, 4};
  corner.ay = {5, 6, 7, 8};
  corner.bx = {91, 92, 93, 94, 95, 96, 97, 98};
  corner.by = {11, 12, 13, 14, 15, 16, 17, 18};
  // Half way between the third and the fifth entry, everything else far off.
  for (int i = 0; i < 4; ++i) {
    for (int j = 0; j < 8; ++j) corner.Put(i, j, {0, 900});
  }
  corner.Put(2, 4, {49, 11});
  const Choice c = corner.Choose(3, 7);
  EXPECT_TRUE(c.found);
  EXPECT_EQ(c.out, (std::array<double, 6>{49, 11, 3, 7, 95, 15}));
}

TEST(Dtpnt1, NAndMAreTheLastOnesThatCount) {
  Corner corner;
  corner.Put(3, 5, {60, 0});
  for (int i = 0; i < 4; ++i) {
    for (int j = 0; j < 8; ++j) {
      if (i != 3 || j != 5) corner.Put(i, j, {0, 0.5});
    }
  }
  ExpectPoint(corner.Choose(3, 5), 60, 0);
  ExpectPoint(corner.Choose(3, 7), 60, 0);
  ExpectNothing(corner.Choose(2, 7));
  ExpectNothing(corner.Choose(3, 4));
}

TEST(Dtpnt1, OneRowAndOneColumnAreEnough) {
  const Corner corner;
  ExpectPoint(corner.Choose(0, 0), 50, 0);
}

// Column 8 of the first row would be column 0 of the second one, and the ninth entry of table B
// lies behind the eighth.
TEST(Dtpnt1, MAbove7CountsAs7) {
  Corner corner;
  for (int j = 0; j < 8; ++j) corner.Put(0, j, {0, 0.5});
  ExpectNothing(corner.Choose(0, 8));
  ExpectNothing(corner.Choose(0, std::numeric_limits<int>::max()));
  corner.Put(0, 7, {60, 0});
  ExpectPoint(corner.Choose(0, std::numeric_limits<int>::max()), 60, 0);
}

TEST(Dtpnt1, AClearanceOf0IsEnough) {
  Corner corner;
  corner.Put(0, 0, {3, 4});
  corner.rA = 5;
  ExpectPoint(corner.Choose(0, 0), 3, 4);
  corner.rA = std::nextafter(5.0, 6);
  ExpectNothing(corner.Choose(0, 0));
  corner.rA = 1;
  corner.Put(0, 0, {97, 4});
  corner.rB = 5;
  ExpectPoint(corner.Choose(0, 0), 97, 4);
  corner.rB = std::nextafter(5.0, 6);
  ExpectNothing(corner.Choose(0, 0));
}

TEST(Dtpnt1, BothClearancesAreNeeded) {
  Corner corner;
  corner.rA = 60;
  ExpectNothing(corner.Choose(3, 7));
  corner.rA = 1;
  corner.rB = 60;
  ExpectNothing(corner.Choose(3, 7));
}

// From (0, 0) and (100, 0) the ways add up to 100 on the line between and to more beside it.
TEST(Dtpnt1, TheLowestSumOfClearancesWins) {
  Corner corner;
  for (int i = 0; i < 4; ++i) {
    for (int j = 0; j < 8; ++j) corner.Put(i, j, {50, 10.0 + i + j});
  }
  corner.Put(2, 3, {50, 4});
  ExpectPoint(corner.Choose(3, 7), 50, 4);
  corner.Put(2, 3, {50, 30});
  ExpectPoint(corner.Choose(3, 7), 50, 10);
}

TEST(Dtpnt1, ACandidateThatIsNotClearDoesNotCountHoweverCheap) {
  Corner corner;
  corner.Put(0, 0, {0.5, 0});
  corner.Put(0, 1, {50, 20});
  ExpectPoint(corner.Choose(0, 1), 50, 20);
}

TEST(Dtpnt1, OnEqualCostTheFirstByRowAndThenByColumnStays) {
  Corner corner;
  for (int i = 0; i < 4; ++i) {
    for (int j = 0; j < 8; ++j) corner.Put(i, j, {0, 900});
  }
  // 3-4-5 on either side of the middle: each costs the same, exactly.
  corner.bx.fill(6);
  corner.Put(1, 5, {3, 4});
  corner.Put(1, 6, {3, -4});
  corner.Put(2, 0, {3, -4});
  ExpectPoint(corner.Choose(3, 7), 3, 4);
  corner.Put(1, 5, {3, -4});
  corner.Put(1, 6, {3, 4});
  ExpectPoint(corner.Choose(3, 7), 3, -4);
  corner.Put(1, 5, {0, 900});
  corner.Put(1, 6, {0, 900});
  corner.Put(2, 0, {3, -4});
  corner.Put(3, 0, {3, 4});
  ExpectPoint(corner.Choose(3, 7), 3, -4);
}

TEST(Dtpnt1, ACostOf0IsTheBestThereIs) {
  Corner corner;
  corner.bx.fill(6);
  corner.rA = 5;
  corner.rB = 5;
  corner.Put(0, 0, {3, 5});
  corner.Put(0, 1, {3, 4});
  corner.Put(0, 2, {3, 6});
  ExpectPoint(corner.Choose(0, 2), 3, 4);
}

TEST(Dtpnt1, NegativeRadiiWidenTheClearance) {
  Corner corner;
  corner.rA = -1;
  corner.rB = -1;
  corner.Put(0, 0, {0, 0});
  ExpectPoint(corner.Choose(0, 0), 0, 0);
}

TEST(Dtpnt1, NaNIsNoCandidate) {
  Corner corner;
  corner.Put(0, 0, {kNaN, 0});
  corner.Put(0, 1, {50, 20});
  ExpectPoint(corner.Choose(0, 1), 50, 20);
  corner.rB = kNaN;
  ExpectNothing(corner.Choose(3, 7));
  corner.rB = kInfinity;
  ExpectNothing(corner.Choose(3, 7));
}

TEST(Dtpnt1, AnInfiniteCostLosesAgainstEveryOther) {
  Corner corner;
  corner.Put(0, 0, {kInfinity, 0});
  corner.Put(0, 1, {50, 20});
  corner.Put(0, 2, {kInfinity, 0});
  ExpectPoint(corner.Choose(0, 0), kInfinity, 0);
  ExpectPoint(corner.Choose(0, 2), 50, 20);
}

TEST(Dtpnt1, OutputsMayBeEntriesOfTheInputs) {
  Corner corner;
  corner.ay[1] = 7;
  corner.by[2] = 8;
  for (int j = 0; j < 8; ++j) corner.Put(0, j, {0, 900});
  corner.Put(1, 2, {50, 7});
  const bool found =
      Dtpnt1(&corner.ax[1], &corner.ay[1], &corner.bx[2], &corner.by[2], &corner.gridX[1][2],
             &corner.gridY[1][2], corner.gridX, corner.gridY, corner.ax.data(), corner.ay.data(), 1,
             corner.bx.data(), corner.by.data(), 2, 1, 1);
  EXPECT_TRUE(found);
  // Row 1 holds (50, 0) at columns 0 and 1, whose ways to (0, 7) and (100, 0) add up to more than
  // those of (50, 7) to (0, 7) and (100, 8).
  EXPECT_EQ(corner.ax[1], 50.0);
  EXPECT_EQ(corner.ay[1], 7.0);
  EXPECT_EQ(corner.bx[2], 0.0);
  EXPECT_EQ(corner.by[2], 7.0);
  EXPECT_EQ(corner.gridX[1][2], 100.0);
  EXPECT_EQ(corner.gridY[1][2], 8.0);
}

// The cheapest clear candidate, sought in long double over a list; costs closer than 1e-9 are left
// to chance and skipped.
TEST(Dtpnt1, FindsTheCheapestClearCandidateAtRandom) {
  support::Random random;
  int found = 0;
  for (int run = 0; run < 500; ++run) {
    Corner corner;
    corner.rA = random.Between(0, 60);
    corner.rB = random.Between(0, 60);
    for (double& v : corner.ay) v = random.Between(-20, 20);
    for (double& v : corner.by) v = random.Between(-20, 20);
    const int n = random.Int(0, 3);
    const int m = random.Int(0, 7);
    long double best = -1;
    Xy winner{0, 0};
    for (int i = 0; i <= n; ++i) {
      for (int j = 0; j <= m; ++j) {
        const Xy g{random.Between(0, 100), random.Between(-50, 50)};
        corner.Put(i, j, g);
        const auto row = static_cast<std::size_t>(i);
        const auto column = static_cast<std::size_t>(j);
        const long double a =
            std::hypot(static_cast<long double>(g.x) - corner.ax[row], g.y - corner.ay[row]) -
            corner.rA;
        const long double b =
            std::hypot(static_cast<long double>(g.x) - corner.bx[column], g.y - corner.by[column]) -
            corner.rB;
        if (a < 0 || b < 0 || (best >= 0 && a + b >= best)) continue;
        best = a + b;
        winner = g;
      }
    }
    const Choice c = corner.Choose(n, m);
    ASSERT_EQ(c.found, best >= 0);
    if (!c.found) continue;
    ++found;
    ASSERT_EQ(c.out[0], winner.x);
    ASSERT_EQ(c.out[1], winner.y);
  }
  EXPECT_GT(found, 200);
}

// ---- the flags.

using Flagger = void (*)(double, double, double, double, double, double, double, double, double,
                         double, double, double, double, double, int*, int*);

// P is the first corner point, Q and R decide flag 1 with U, S and T flag 2 with W. As they stand,
// neither pair is on one side in any way and the second tests say no.
struct Points {
  Xy p{0, 0};
  Xy q{10, 10};
  Xy r{-10, -10};
  Xy s{10, 10};
  Xy t{-10, -10};
  Xy u{10, 10};
  Xy w{10, 10};
};
struct Flags {
  int f1 = 77;
  int f2 = 78;
};
Flags Ask(Flagger flagger, const Points& a) {
  Flags f;
  flagger(a.p.x, a.p.y, a.q.x, a.q.y, a.r.x, a.r.y, a.s.x, a.s.y, a.t.x, a.t.y, a.u.x, a.u.y, a.w.x,
          a.w.y, &f.f1, &f.f2);
  return f;
}

// The points of the flag in question: near is Q or S, far is R or T, other is U or W.
int Flag1(Flagger flagger, const Xy& near, const Xy& far, const Xy& other) {
  Points a;
  a.q = near;
  a.r = far;
  a.u = other;
  const Flags f = Ask(flagger, a);
  EXPECT_EQ(f.f2, 0) << "the other flag follows its own points";
  return f.f1;
}
int Flag2(Flagger flagger, const Xy& near, const Xy& far, const Xy& other) {
  Points a;
  a.s = near;
  a.t = far;
  a.w = other;
  const Flags f = Ask(flagger, a);
  EXPECT_EQ(f.f1, 0) << "the other flag follows its own points";
  return f.f2;
}
using FlagOf = int (*)(Flagger, const Xy&, const Xy&, const Xy&);

// With the far point farther off than the near one and the other one upon the near one, the flag is
// 1 where the points are on one side and 0 where they are not.
bool OnOneSide(FlagOf flag, Flagger flagger, const Xy& near, const Xy& far) {
  return flag(flagger, near, far, near) == 1;
}

void ExpectSidesInXAndLooselyInY(FlagOf flag, Flagger flagger) {
  const auto on = [&](const Xy& near, const Xy& far) {
    return OnOneSide(flag, flagger, near, far);
  };
  EXPECT_TRUE(on({1, 1}, {5, 5})) << "both above in both";
  EXPECT_TRUE(on({-1, -1}, {-5, -5})) << "both below in both";
  EXPECT_TRUE(on({1, -1}, {5, -5}));
  EXPECT_TRUE(on({-1, 1}, {-5, 5}));
  EXPECT_FALSE(on({1, 1}, {-5, 5})) << "x on two sides";
  EXPECT_FALSE(on({-1, 1}, {5, 5}));
  EXPECT_FALSE(on({0, 1}, {5, 5})) << "x of one equal";
  EXPECT_FALSE(on({0, 1}, {-5, 5}));
  EXPECT_FALSE(on({1, 1}, {0, 5}));
  EXPECT_FALSE(on({-1, 1}, {0, 5}));
  EXPECT_FALSE(on({0, 1}, {0, 5})) << "x of both equal";
  EXPECT_FALSE(on({1, 1}, {5, -5})) << "y on two sides";
  EXPECT_FALSE(on({1, -1}, {5, 5}));
  EXPECT_TRUE(on({1, 0}, {5, 5})) << "y of one equal";
  EXPECT_TRUE(on({1, 0}, {5, -5}));
  EXPECT_TRUE(on({1, 1}, {5, 0}));
  EXPECT_TRUE(on({-1, -1}, {-5, 0}));
  EXPECT_TRUE(on({1, 0}, {5, 0})) << "y of both equal";
  EXPECT_TRUE(on({0x1p-500, 0}, {5, 0})) << "strict without a tolerance";
}
void ExpectSidesInYAlone(FlagOf flag, Flagger flagger) {
  const auto on = [&](const Xy& near, const Xy& far) {
    return OnOneSide(flag, flagger, near, far);
  };
  EXPECT_TRUE(on({1, 1}, {5, 5}));
  EXPECT_TRUE(on({1, -1}, {5, -5}));
  EXPECT_TRUE(on({1, 1}, {-5, 5})) << "x on two sides";
  EXPECT_TRUE(on({0, -1}, {0, -5})) << "x equal";
  EXPECT_FALSE(on({1, 1}, {5, -5})) << "y on two sides";
  EXPECT_FALSE(on({1, -1}, {5, 5}));
  EXPECT_FALSE(on({1, 0}, {5, 5})) << "y of one equal";
  EXPECT_FALSE(on({1, 0}, {5, -5}));
  EXPECT_FALSE(on({1, 1}, {5, 0}));
  EXPECT_FALSE(on({1, -1}, {5, 0}));
  EXPECT_FALSE(on({1, 0}, {5, 0})) << "y of both equal";
}
// On one side, whether near is strictly nearer than far; the other point says the opposite.
void ExpectStrictlyNearer(FlagOf flag, Flagger flagger) {
  EXPECT_EQ(flag(flagger, {3, 4}, {4, 4}, {3, 4}), 1);
  EXPECT_EQ(flag(flagger, {3, 4}, {4, 3}, {90, 90}), 0) << "as far";
  EXPECT_EQ(flag(flagger, {3, 4}, {3, 3}, {90, 90}), 0);
  EXPECT_EQ(flag(flagger, {-3, -4}, {-4, -4}, {-3, -4}), 1);
  EXPECT_EQ(flag(flagger, {-3, -4}, {-3, -3}, {90, 90}), 0);
}
// On two sides, whether near is at most as far from P as from the other point; far says the
// opposite.
void ExpectAtMostAsFar(FlagOf flag, Flagger flagger) {
  EXPECT_EQ(flag(flagger, {3, 4}, {-1, -1}, {3, 9.5}), 1);
  EXPECT_EQ(flag(flagger, {3, 4}, {-1, -1}, {6, 8}), 1) << "as far";
  EXPECT_EQ(flag(flagger, {3, 4}, {-1, -1}, {3, 9}), 1) << "as far";
  EXPECT_EQ(flag(flagger, {3, 4}, {-90, -90}, {3, 8.5}), 0);
  EXPECT_EQ(flag(flagger, {-3, -4}, {1, 1}, {-3, -9.5}), 1);
  EXPECT_EQ(flag(flagger, {-3, -4}, {90, 90}, {-3, -8.5}), 0);
}

TEST(AggiusUtl1, Flag1LooksAtXStrictlyAndAtYLoosely) {
  ExpectSidesInXAndLooselyInY(Flag1, Aggius_utl1);
}
TEST(AggiusUtl1, Flag2LooksAtXStrictlyAndAtYLoosely) {
  ExpectSidesInXAndLooselyInY(Flag2, Aggius_utl1);
}
TEST(AggiusUtl2, Flag1LooksAtYStrictlyAlone) { ExpectSidesInYAlone(Flag1, Aggius_utl2); }
TEST(AggiusUtl2, Flag2LooksAtXStrictlyAndAtYLoosely) {
  ExpectSidesInXAndLooselyInY(Flag2, Aggius_utl2);
}
TEST(AggiusUtl3, Flag1LooksAtXStrictlyAndAtYLoosely) {
  ExpectSidesInXAndLooselyInY(Flag1, Aggius_utl3);
}
TEST(AggiusUtl3, Flag2LooksAtYStrictlyAlone) { ExpectSidesInYAlone(Flag2, Aggius_utl3); }

TEST(AggiusUtl1, OnOneSideFlag1AsksWhetherQIsNearerThanR) {
  ExpectStrictlyNearer(Flag1, Aggius_utl1);
}
TEST(AggiusUtl1, OnOneSideFlag2AsksWhetherSIsNearerThanT) {
  ExpectStrictlyNearer(Flag2, Aggius_utl1);
}
TEST(AggiusUtl2, OnOneSideFlag1AsksWhetherQIsNearerThanR) {
  ExpectStrictlyNearer(Flag1, Aggius_utl2);
}
TEST(AggiusUtl2, OnOneSideFlag2AsksWhetherSIsNearerThanT) {
  ExpectStrictlyNearer(Flag2, Aggius_utl2);
}
TEST(AggiusUtl3, OnOneSideFlag1AsksWhetherQIsNearerThanR) {
  ExpectStrictlyNearer(Flag1, Aggius_utl3);
}
TEST(AggiusUtl3, OnOneSideFlag2AsksWhetherSIsNearerThanT) {
  ExpectStrictlyNearer(Flag2, Aggius_utl3);
}

TEST(AggiusUtl1, OtherwiseFlag1AsksWhetherQIsAtMostAsFarFromPAsFromU) {
  ExpectAtMostAsFar(Flag1, Aggius_utl1);
}
TEST(AggiusUtl1, OtherwiseFlag2AsksWhetherSIsAtMostAsFarFromPAsFromW) {
  ExpectAtMostAsFar(Flag2, Aggius_utl1);
}
TEST(AggiusUtl2, OtherwiseFlag1AsksWhetherQIsAtMostAsFarFromPAsFromU) {
  ExpectAtMostAsFar(Flag1, Aggius_utl2);
}
TEST(AggiusUtl2, OtherwiseFlag2AsksWhetherSIsAtMostAsFarFromPAsFromW) {
  ExpectAtMostAsFar(Flag2, Aggius_utl2);
}
TEST(AggiusUtl3, OtherwiseFlag1AsksWhetherQIsAtMostAsFarFromPAsFromU) {
  ExpectAtMostAsFar(Flag1, Aggius_utl3);
}
TEST(AggiusUtl3, OtherwiseFlag2AsksWhetherSIsAtMostAsFarFromPAsFromW) {
  ExpectAtMostAsFar(Flag2, Aggius_utl3);
}

TEST(AggiusUtl1, SidesAreThoseOfPWhereverItStandsAndSoInTheOthers) {
  for (const Flagger flagger : {Aggius_utl1, Aggius_utl2, Aggius_utl3}) {
    Points a;
    a.p = {100, 200};
    a.q = a.s = a.u = a.w = {103, 204};
    a.r = a.t = {110, 210};
    EXPECT_EQ(Ask(flagger, a).f1, 1);
    EXPECT_EQ(Ask(flagger, a).f2, 1);
    a.r = a.t = {90, 190};
    EXPECT_EQ(Ask(flagger, a).f1, 0);
    EXPECT_EQ(Ask(flagger, a).f2, 0);
  }
}

TEST(AggiusUtl1, NaNOfPGives0AndSoInTheOthers) {
  for (const Flagger flagger : {Aggius_utl1, Aggius_utl2, Aggius_utl3}) {
    Points a;
    a.p = {kNaN, kNaN};
    EXPECT_EQ(Ask(flagger, a).f1, 0);
    EXPECT_EQ(Ask(flagger, a).f2, 0);
  }
}

TEST(AggiusUtl1, EqualPointsAreAtMostAsFarAndSoInTheOthers) {
  for (const Flagger flagger : {Aggius_utl1, Aggius_utl2, Aggius_utl3}) {
    const Points a{{1, 2}, {1, 2}, {1, 2}, {1, 2}, {1, 2}, {1, 2}, {1, 2}};
    EXPECT_EQ(Ask(flagger, a).f1, 1);
    EXPECT_EQ(Ask(flagger, a).f2, 1);
  }
}

}  // namespace
