// The approximation beside a plain form of it, written down a second time, on random sequences: the
// same elements, bit for bit. And what holds for every result.
#include <KTRCL_DataTypes/GXMath.h>
#include <KTRCL_Geometry/contour/GXApproximatePoints.h>
#include <KTRCL_Geometry/elements/GX2DElements.h>
#include <KTRCL_Geometry/elements/GXElementLists.h>

#include "support/Build.h"
#include "support/Near.h"
#include "support/Random.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <limits>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

namespace {

using support::kPi;
using support::Point;

using Points = std::vector<GX2DPoint>;

namespace plain {

struct NoCircle : std::runtime_error {
  NoCircle() : std::runtime_error("no circle") {}
};

double Normalized(double angle) {
  if (angle >= 0.0 && angle <= 2.0 * kPi) return angle;
  const double rest = angle - 2.0 * kPi * std::trunc(angle / (2.0 * kPi));
  return angle < 0.0 ? rest + 2.0 * kPi : rest;
}

double Distance(const GX2DPoint& p, const GX2DPoint& q) {
  const double x = q.X - p.X;
  const double y = q.Y - p.Y;
  return std::sqrt(x * x + y * y);
}

double Angle(const GX2DPoint& p, const GX2DPoint& q) {
  const double length = Distance(p, q);
  if (length == 0.0) return 0.0;
  const double a = std::acos((q.X - p.X) / length);
  return q.Y < p.Y ? 2.0 * kPi - a : a;
}

bool Between(double x, double from, double to) {
  return from == 2.0 * kPi || Normalized(x - from) <= Normalized(to - from);
}

/// Whether b comes before c on the way counter-clockwise from a.
bool InOrder(double a, double b, double c) {
  constexpr double kTolerance = 0.0000001;
  a = Normalized(a);
  b = Normalized(b);
  c = Normalized(c);
  if (GXMath::AlmostEq(a, c, kTolerance)) return true;
  if (GXMath::LessNotAlmostEq(c, a, kTolerance)) c += 2.0 * kPi;
  if (GXMath::LessNotAlmostEq(b, a, kTolerance)) b += 2.0 * kPi;
  return !GXMath::GreaterNotAlmostEq(b, c, kTolerance);
}

double AcrossTo(double angle) {
  const double across = angle + kPi / 2.0;
  return across >= kPi ? across - kPi : across;
}

double NormalAt(const Points& points, std::size_t i) {
  const std::size_t before = i == 0 ? 0 : i - 1;
  const std::size_t after = i + 1 == points.size() ? i : i + 1;
  return AcrossTo(Angle(points[before], points[after]));
}

struct Ray {
  double angle;
  GX2DPoint point;
};

/// A line as x = m * y + c where it is steep, else as y = m * x + c.
struct Form {
  explicit Form(const Ray& ray) : steep(Between(ray.angle, kPi / 4.0, 3.0 * kPi / 4.0)) {
    m = std::tan(steep ? kPi / 2.0 - ray.angle : ray.angle);
    c = steep ? ray.point.X - m * ray.point.Y : ray.point.Y - m * ray.point.X;
  }
  bool steep;
  double m;
  double c;
};

GX2DPoint Crossing(const Ray& first, const Ray& second) {
  const Form f(first);
  const Form g(second);
  double t = 0.0;
  if (f.steep != g.steep) {
    const double d = 1.0 - f.m * g.m;
    if (d == 0.0) throw NoCircle();
    t = (g.m * f.c + g.c) / d;
  } else {
    if (f.m == g.m) throw NoCircle();
    t = (g.c - f.c) / (f.m - g.m);
  }
  const double s = t * f.m + f.c;
  return f.steep ? Point(s, t) : Point(t, s);
}

GX2DArc ArcOver(const Points& points, std::size_t i, std::size_t j) {
  const GX2DPoint& s = points[i];
  const GX2DPoint& e = points[j];
  const GX2DPoint normals = Crossing({NormalAt(points, j), e}, {NormalAt(points, i), s});
  const GX2DPoint middle(0.5 * (s.X + e.X), 0.5 * (s.Y + e.Y));
  const double bisector = AcrossTo(Angle(s, e));
  const GX2DPoint c = Crossing({bisector, middle}, {AcrossTo(bisector), normals});
  const double r = Distance(c, s);
  if (r / Distance(s, e) > 1000000.0) throw NoCircle();
  const double toStart = Angle(c, s);
  const double toEnd = Angle(c, e);
  const GX2DPoint a(c.X + r * std::cos(toStart), c.Y + r * std::sin(toStart));
  const GX2DPoint b(c.X + r * std::cos(toEnd), c.Y + r * std::sin(toEnd));
  if (InOrder(toStart, Angle(c, middle), toEnd)) {
    return {c, a, Point(c.X - (a.Y - c.Y), c.Y + (a.X - c.X)), b};
  }
  return {c, b, Point(c.X + (b.Y - c.Y), c.Y - (b.X - c.X)), a};
}

bool Fits(const GX2DArc& arc, const Points& points, std::size_t i, std::size_t j,
          double tolerance) {
  const double r = Distance(arc.Center, arc.Start);
  for (std::size_t k = i; k < j; ++k) {
    if (std::fabs(Distance(points[k], arc.Center) - r) > tolerance) return false;
    if (!InOrder(Angle(arc.Center, arc.Start), Angle(arc.Center, points[k]),
                 Angle(arc.Center, arc.End))) {
      return false;
    }
  }
  return true;
}

/// One piece of the chain: its numbers, four of a line and eight of an arc, and its points.
struct Piece {
  std::vector<double> numbers;
  std::size_t first;
  std::size_t last;
};

void Follow(const Points& points, double tolerance, std::vector<Piece>& chain) {
  const std::size_t last = points.size() - 1;
  std::size_t first = 0;
  for (std::size_t k = 2; k <= last; k = first + 2) {
    while (Distance(points[first], points[k]) < tolerance && k < last) ++k;
    const double rest = Distance(points[first], points[k]);
    if (rest < tolerance) {
      if (rest > 0.0) {
        chain.push_back({support::Numbers(GX2DLine(points[first], points[last])), first, last});
      }
      return;
    }
    GX2DArc arc = ArcOver(points, first, k);
    std::size_t reached = k;
    while (k < last) {
      ++k;
      const GX2DArc trial = ArcOver(points, first, k);
      if (Fits(trial, points, first, k, tolerance)) {
        arc = trial;
        reached = k;
        continue;
      }
      if (k == last) {
        k = last - 1;
        arc = ArcOver(points, first, last - 2);
        reached = last - 2;
      }
      break;
    }
    chain.push_back({support::Numbers(arc), first, reached});
    first = k - 1;
  }
}

std::vector<Piece> Chain(const Points& points, double tolerance) {
  std::vector<Piece> chain;
  if (points.size() < 3) return chain;
  try {
    Follow(points, tolerance, chain);
  } catch (const NoCircle&) {
    // What has been found stays.
  }
  return chain;
}

}  // namespace plain

std::vector<double> NumbersOf(const GX2DElement* element) {
  if (const auto* const arc = dynamic_cast<const GX2DArc*>(element)) return support::Numbers(*arc);
  if (const auto* const line = dynamic_cast<const GX2DLine*>(element)) {
    return support::Numbers(*line);
  }
  return {};
}

bool SameBits(const std::vector<double>& a, const std::vector<double>& b) {
  return std::equal(a.begin(), a.end(), b.begin(), b.end(), support::SameBits);
}

/// Fails unless the library and the plain form give the same; returns the number of pieces.
std::size_t ExpectPlainForm(const Points& points, double tolerance) {
  GX2DElmList list;
  EXPECT_TRUE(GXApproximatePoints::ApproximateByLinesAndArcs(points, list, tolerance));
  const std::vector<plain::Piece> chain = plain::Chain(points, tolerance);
  EXPECT_EQ(list.size(), chain.size());
  for (std::size_t i = 0; i < std::min(list.size(), chain.size()); ++i) {
    const std::vector<double> actual = NumbersOf(list[i]);
    EXPECT_TRUE(SameBits(actual, chain[i].numbers))
        << "piece " << i << "\n  is " << support::Text(actual) << "\nand not "
        << support::Text(chain[i].numbers);
  }
  return chain.size();
}

/// A curve whose bend wanders; `jitter` moves each point off it.
Points Wander(support::Random& random, int count, double jitter) {
  Points points;
  GX2DPoint at = random.Point2D(20);
  double direction = random.Between(0.0, 2.0 * kPi);
  double bend = random.Between(-0.2, 0.2);
  for (int i = 0; i < count; ++i) {
    if (random.Int(0, 9) == 0) bend = random.Between(-0.2, 0.2);
    direction += bend;
    at = Point(at.X + std::cos(direction), at.Y + std::sin(direction));
    points.push_back(
        Point(at.X + jitter * random.Between(-1, 1), at.Y + jitter * random.Between(-1, 1)));
  }
  return points;
}

TEST(ApproximateByLinesAndArcs, FollowsWanderingCurvesAsThePlainFormDoes) {
  support::Random random;
  std::size_t pieces = 0;
  for (int round = 0; round < 400; ++round) {
    const Points points = Wander(random, random.Int(3, 60), random.Bool() ? 0.0 : 0.01);
    pieces += ExpectPlainForm(points, random.Between(0.0, 0.2));
  }
  EXPECT_GT(pieces, 400U);
}

TEST(ApproximateByLinesAndArcs, FollowsShortStepsAsThePlainFormDoes) {
  // Tolerances above the steps: points are passed over, and lines end the chain.
  support::Random random;
  std::size_t lines = 0;
  for (int round = 0; round < 400; ++round) {
    const Points points = Wander(random, random.Int(3, 40), 0.1);
    const double tolerance = random.Between(0.5, 5.0);
    ExpectPlainForm(points, tolerance);
    const std::vector<plain::Piece> chain = plain::Chain(points, tolerance);
    lines += !chain.empty() && chain.back().numbers.size() == 4 ? 1U : 0U;
  }
  EXPECT_GT(lines, 20U);
}

TEST(ApproximateByLinesAndArcs, FollowsPointsOfAGridAsThePlainFormDoes) {
  // Equal points, steps back, parallel and identical normals, exact quarter turns.
  support::Random random;
  std::size_t pieces = 0;
  for (int round = 0; round < 2000; ++round) {
    Points points;
    for (int i = random.Int(3, 9); i > 0; --i) {
      points.push_back(Point(random.Int(-2, 2), random.Int(-2, 2)));
    }
    pieces += ExpectPlainForm(points, random.Int(0, 6) * 0.25);
  }
  EXPECT_GT(pieces, 1000U);
}

TEST(ApproximateByLinesAndArcs, FollowsCirclesAtTheSizeOfTheRoundingAsThePlainFormDoes) {
  // Whether a point is on its circle is here a matter of the last digits, for the first point of a
  // piece as well, and never asked of the last one.
  support::Random random;
  std::size_t pieces = 0;
  for (int round = 0; round < 400; ++round) {
    const double sweep = random.Between(-300, 300);
    const int count = random.Int(5, 20);
    Points points;
    for (int i = 0; i < count; ++i) {
      points.push_back(support::OnCircle(0, 0, 10, sweep * i / count));
    }
    pieces += ExpectPlainForm(points, random.Int(0, 40) * 4.440892098500626e-16);
  }
  EXPECT_GT(pieces, 400U);
}

TEST(ApproximateByLinesAndArcs, FollowsNeighboursNextToEachOtherAsThePlainFormDoes) {
  // Exact points of a circle of radius 5, in order or against it, some with a neighbour hardly
  // apart: directions of exactly 0, a quarter, a half and a full turn.
  constexpr double kCircle[][2] = {{5, 0},  {4, 3},   {3, 4},   {0, 5},  {-3, 4}, {-4, 3},
                                   {-5, 0}, {-4, -3}, {-3, -4}, {0, -5}, {3, -4}, {4, -3}};
  constexpr double kApart[] = {1e-6, 1e-8, 1e-9, 1e-12, 1e-15};
  support::Random random;
  std::size_t pieces = 0;
  for (int round = 0; round < 4000; ++round) {
    Points points;
    const int step = random.Bool() ? 1 : 11;
    int at = random.Int(0, 11);
    for (int i = random.Int(3, 7); i > 0; --i, at = (at + step) % 12) {
      points.push_back(Point(kCircle[at][0], kCircle[at][1]));
      if (random.Int(0, 2) > 0) continue;
      const double apart = kApart[random.Int(0, 4)];
      points.push_back(Point(points.back().X + apart * random.Int(-1, 1),
                             points.back().Y + apart * random.Int(-1, 1)));
    }
    pieces += ExpectPlainForm(points, random.Bool() ? 1.0 : 0.01);
  }
  EXPECT_GT(pieces, 2000U);
}

TEST(ApproximateByLinesAndArcs, ADirectionOfAFullTurnIsBeyondOneOfZero) {
  // The start lies in the direction 0 from the center, the third point in that of a full turn: too
  // little below for the arc cosine, and yet behind the whole arc.
  for (const double apart : {1e-9, 1e-10, 1e-12}) {
    const Points points = {{5, 0}, {5, apart}, {5, -apart}, {3, 4}, {0, 5}, {-3, 4}, {-4, 3}};
    ExpectPlainForm(points, 0.01);
    const std::vector<plain::Piece> chain = plain::Chain(points, 0.01);
    ASSERT_FALSE(chain.empty());
    EXPECT_EQ(chain[0].last, 3U);
  }
}

TEST(ApproximateByLinesAndArcs, CarriesStrayNumbersAsThePlainFormDoes) {
  constexpr double kStrays[] = {std::numeric_limits<double>::quiet_NaN(),
                                std::numeric_limits<double>::infinity(),
                                -std::numeric_limits<double>::infinity(),
                                1e308,
                                1e-320,
                                -0.0};
  support::Random random;
  for (int round = 0; round < 600; ++round) {
    Points points = Wander(random, random.Int(3, 12), 0.0);
    for (int i = random.Int(1, 2); i > 0; --i) {
      GX2DPoint& p =
          points[static_cast<std::size_t>(random.Int(0, static_cast<int>(points.size()) - 1))];
      (random.Bool() ? p.X : p.Y) = kStrays[random.Int(0, 5)];
    }
    ExpectPlainForm(points, random.Between(0.0, 0.2));
  }
}

TEST(ApproximateByLinesAndArcs, AcceptsAnArcAtTheVeryTolerance) {
  // Four points: the arc over all of them is the only one that is tried. At the largest distance of
  // a point from its circle it is taken, at the next smaller number it is not.
  support::Random random;
  int tried = 0;
  while (tried < 50) {
    const Points points = Wander(random, 4, 0.05);
    GX2DArc trial;
    try {
      trial = plain::ArcOver(points, 0, 3);
    } catch (const plain::NoCircle&) {
      continue;
    }
    double worst = 0.0;
    for (std::size_t i = 0; i < 3; ++i) {
      const double r = plain::Distance(trial.Center, trial.Start);
      worst = std::max(worst, std::fabs(plain::Distance(points[i], trial.Center) - r));
    }
    const double tighter = std::nextafter(worst, 0.0);
    if (!plain::Fits(trial, points, 0, 3, worst)) continue;  // not in order
    if (worst > 0.5 || plain::Chain(points, tighter).size() != 2) continue;
    ++tried;
    GX2DElmList taken, refused;
    GXApproximatePoints::ApproximateByLinesAndArcs(points, taken, worst);
    GXApproximatePoints::ApproximateByLinesAndArcs(points, refused, tighter);
    EXPECT_EQ(taken.size(), 1U);
    EXPECT_EQ(refused.size(), 2U);
  }
}

/// Index from `from` on of the point in which the arc ends that has its other end in point `from`;
/// the size of the sequence if there is none.
std::size_t OtherEnd(const GX2DArc& arc, const Points& points, std::size_t from) {
  // Directions by arc cosines keep half of the digits near 1, on radii of up to some thousand.
  constexpr double kNear = 1e-4;
  const bool forward = arc.Start.IsAlmostEq(points[from], kNear);
  if (!forward && !arc.End.IsAlmostEq(points[from], kNear)) return points.size();
  const GX2DPoint& other = forward ? arc.End : arc.Start;
  std::size_t i = from + 1;
  while (i < points.size() && !other.IsAlmostEq(points[i], kNear)) ++i;
  return i;
}

TEST(ApproximateByLinesAndArcs, EveryPointOfAGrownArcIsWithinTheToleranceAndNeighboursShareAPoint) {
  support::Random random;
  std::size_t grown = 0;
  for (int round = 0; round < 200; ++round) {
    const Points points = Wander(random, 60, 0.001);
    constexpr double kTolerance = 0.05;
    GX2DElmList list;
    GXApproximatePoints::ApproximateByLinesAndArcs(points, list, kTolerance);
    std::size_t at = 0;
    for (const GX2DElement* const element : list) {
      const auto* const arc = dynamic_cast<const GX2DArc*>(element);
      ASSERT_NE(arc, nullptr);
      if (arc->Radius() > 1000.0) break;  // too flat to tell its ends from their neighbours
      const std::size_t next = OtherEnd(*arc, points, at);
      ASSERT_LT(next, points.size()) << "round " << round << " point " << at;
      // An arc over three points is taken as it comes.
      for (std::size_t i = at; next > at + 2 && i < next; ++i, ++grown) {
        EXPECT_NEAR(plain::Distance(points[i], arc->Center), arc->Radius(), kTolerance);
      }
      at = next;
    }
  }
  EXPECT_GT(grown, 1000U);
}

}  // namespace
