// Crossings of lists found with boxes and trees against the plain form that asks every pair: the
// same points bit for bit, in the same order, on lists that are random or made to mislead a box.

#include <KTRCL_Geometry/contour/GXGeometry.h>
#include <KTRCL_Geometry/elements/GX2DElements.h>
#include <KTRCL_Geometry/elements/GXElementLists.h>

#include "contour/IndexedIntersections.h"
#include "contour/PlainIntersections.h"
#include "support/Random.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <iostream>
#include <limits>
#include <memory>
#include <optional>
#include <vector>

namespace {

using ktrcl_internal::PairSearch;
using support::Random;

constexpr double kPi = 3.141592653589793;
constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();

template <typename Value, std::size_t kCount>
Value OneOf(const std::array<Value, kCount>& values, Random& random) {
  return values[static_cast<std::size_t>(random.Int(0, static_cast<int>(kCount) - 1))];
}

// Elements

/// A line of a class of its own.
class HostLine : public GX2DLine {
 public:
  using GX2DLine::GX2DLine;
};

GX2DPoint OnCircle(const GX2DPoint& center, double radius, double angle) {
  return {center.X + radius * std::cos(angle), center.Y + radius * std::sin(angle)};
}

/// Sweeps from next to nothing to all but the whole, half and full circles among them.
double SweepOf(Random& random) {
  constexpr std::array<double, 8> kSweeps = {kPi,  2.0 * kPi,   0.5 * kPi, 1e-3,
                                             1e-5, kPi + 0.001, 1.5 * kPi, 2.0 * kPi - 0.001};
  return random.Bool() ? OneOf(kSweeps, random) : random.Between(0.01, 6.27);
}

GX2DArc ArcAbout(const GX2DPoint& center, double radius, double from, double sweep) {
  return {center, OnCircle(center, radius, from), OnCircle(center, radius, from + 0.5 * sweep),
          OnCircle(center, radius, from + sweep)};
}

GX2DPoint Shifted(const GX2DPoint& p, double step, Random& random) {
  const double x = p.X + step * random.Int(-4, 4);
  return {x, p.Y + step * random.Int(-4, 4)};
}

// Families of lists

using Elements = std::vector<std::unique_ptr<GX2DElement>>;

template <typename Kind, typename... Arguments>
void Put(Elements& elements, const Arguments&... arguments) {
  elements.push_back(std::make_unique<Kind>(arguments...));
}

/// Whole coordinates: ends on ends, ends on lines, lines on lines, lines of length zero, and many
/// crossings at one place.
void PutOnGrid(Elements& elements, Random& random) {
  const auto corner = [&] {
    const int x = random.Int(0, 5);
    return GX2DPoint(x, random.Int(0, 5));
  };
  const GX2DPoint a = corner();
  if (random.Int(0, 4) == 0) {
    Put<GX2DArc>(elements, ArcAbout(a, random.Int(1, 3), 0.5 * kPi * random.Int(0, 3),
                                    0.5 * kPi * random.Int(1, 4)));
  } else {
    Put<GX2DLine>(elements, a, corner());
  }
}

/// Lines of nearly one direction, around the slope at which they count as parallel.
void PutNearlyParallel(Elements& elements, Random& random) {
  const double x = random.Between(-1.0, 1.0);
  const double slope = 0.25 + 0.000005 * random.Int(-4, 4);
  const double offset = 0.000005 * random.Int(-6, 6);
  const double length = random.Between(0.5, 3.0);
  const GX2DPoint start(x, x * slope + offset);
  const GX2DPoint end(x + length, (x + length) * slope + offset);
  if (random.Bool()) {
    Put<GX2DLine>(elements, start, end);
  } else {
    Put<GX2DLine>(elements, GX2DPoint(start.Y, start.X), GX2DPoint(end.Y, end.X));
  }
}

/// Ends that miss one another, or a line, by about the tolerances of 0.0001 and 0.00001.
void PutTouching(Elements& elements, Random& random) {
  const GX2DPoint a =
      Shifted({1.0 * random.Int(0, 3), 1.0 * random.Int(0, 3)},
              OneOf(std::array{0.00005, 0.000005, 0.0001, 0.00015}, random), random);
  const GX2DPoint b(random.Between(-1.0, 4.0), random.Between(-1.0, 4.0));
  if (random.Int(0, 5) == 0) {
    Put<GX2DLine>(elements, a, Shifted(a, 0.00003, random));
  } else if (random.Bool()) {
    Put<GX2DLine>(elements, a, GX2DPoint(b.X, a.Y));
  } else {
    Put<HostLine>(elements, a, b);
  }
}

/// Arcs, and lines that pass closely beside the end of an arc: up to 0.003 radians behind it,
/// places count as on the arc.
void PutBesideArcEnds(Elements& elements, Random& random) {
  const GX2DPoint center(random.Int(-2, 2), random.Int(-2, 2));
  const double radius = OneOf(std::array{1.0, 2.5, 0.01, 0.001, 0.00005, 40.0}, random);
  const double from = random.Between(0.0, 2.0 * kPi);
  const GX2DArc arc = ArcAbout(center, radius, from, SweepOf(random));
  Put<GX2DArc>(elements, arc);
  const double beside = from + random.Between(-0.004, 0.004);
  const double inner = random.Between(0.0, 1.0);
  Put<GX2DLine>(elements, OnCircle(center, inner * radius, beside),
                OnCircle(center, random.Between(1.0, 1.5) * radius, beside));
}

/// Arcs whose mid and end are anywhere.
void PutCrookedArc(Elements& elements, Random& random) {
  Put<GX2DArc>(elements, random.Point2D(3), random.Point2D(3), random.Point2D(3),
               random.Point2D(3));
}

/// Everything at any scale, steep lines far from the origin among it.
void PutAtScale(Elements& elements, Random& random) {
  const double scale = std::pow(10.0, random.Int(-5, 9));
  const double offset = random.Bool() ? 0.0 : OneOf(std::array{1e3, 1e6, 1e9, -1e9}, random);
  const auto place = [&] {
    const GX2DPoint p = random.Point2D(scale);
    return GX2DPoint(offset + p.X, p.Y - offset);
  };
  const GX2DPoint a = place();
  const int kind = random.Int(0, 3);
  if (kind == 0) {
    Put<GX2DArc>(elements, ArcAbout(a, scale * random.Between(0.1, 1.0),
                                    random.Between(0.0, 2.0 * kPi), SweepOf(random)));
  } else if (kind == 1) {
    const double lean = OneOf(std::array{0.000009, 0.000011, 0.00002, 0.001}, random);
    Put<GX2DLine>(elements, a, GX2DPoint(a.X + lean, a.Y + scale * random.Between(-1.0, 1.0)));
  } else {
    Put<GX2DLine>(elements, a, place());
  }
}

/// Whole numbers of steps so wide that a margin of 0.0002 is lost in rounding, and lines across all
/// of them.
void PutFarOut(Elements& elements, Random& random) {
  const double step = OneOf(std::array{1e8, 1e10, 1e12, 1e14, 1e17}, random);
  const auto place = [&] {
    const double x = step * random.Int(-7, 7) / 3.0;
    return GX2DPoint(x, step * random.Int(-7, 7) / 3.0);
  };
  const GX2DPoint a = place();
  if (random.Int(0, 4) == 0) {
    Put<GX2DArc>(elements, ArcAbout(a, step * random.Int(1, 3), random.Between(0.0, 2.0 * kPi),
                                    SweepOf(random)));
  } else {
    Put<GX2DLine>(elements, a, place());
  }
}

/// Coordinates that no box can hold.
void PutExtreme(Elements& elements, Random& random) {
  constexpr std::array<double, 14> kValues = {0.0,        -0.0,  1.0,    2.0,    1e15,
                                              1e15 + 2,   -1e15, 1e160,  -1e308, kInfinity,
                                              -kInfinity, kNaN,  1e-310, 1e-170};
  const auto place = [&] {
    const double x = random.Bool() ? random.Int(0, 3) : OneOf(kValues, random);
    return GX2DPoint(x, random.Bool() ? random.Int(0, 3) : OneOf(kValues, random));
  };
  const GX2DPoint a = place();
  if (random.Int(0, 2) == 0) {
    const GX2DPoint b = place();
    const GX2DPoint c = place();
    Put<GX2DArc>(elements, a, b, c, place());
  } else {
    Put<GX2DLine>(elements, a, place());
  }
}

/// What is never hit but stands between, and takes part in the passes with its ends.
void PutBystander(Elements& elements, Random& random) {
  const GX2DPoint a(random.Int(0, 5), random.Int(0, 5));
  const int kind = random.Int(0, 2);
  if (kind == 0) Put<GX2DPoint>(elements, a);
  if (kind == 1) Put<GX2DRectangle>(elements, a, GX2DPoint(random.Int(0, 5), 2));
  if (kind == 2) elements.push_back(nullptr);
}

/// A contour of lines and flat arcs that goes twice round the origin and crosses itself on the way.
Elements Contour(std::size_t count, Random& random) {
  Elements elements;
  const double waves = 2 * random.Int(1, 4) + 1;
  const double depth = random.Between(0.1, 0.8);
  const double shift = random.Between(-1.0, 1.0);
  const auto corner = [&](std::size_t i) {
    const double angle = 2.0 * kPi * static_cast<double>(i % count) / static_cast<double>(count);
    return OnCircle({shift, 0.0}, 2.0 + depth * std::sin(waves * angle), 2.0 * angle);
  };
  for (std::size_t i = 0; i < count; ++i) {
    const GX2DPoint a = corner(i);
    const GX2DPoint b = corner(i + 1);
    const GX2DPoint center(0.5 * (a.X + b.X) - (b.Y - a.Y), 0.5 * (a.Y + b.Y) + (b.X - a.X));
    if (random.Int(0, 9) == 0) {
      Put<GX2DArc>(elements, center, a, b, false);
    } else {
      Put<GX2DLine>(elements, a, b);
    }
  }
  return elements;
}

using PutElement = void (*)(Elements& elements, Random& random);

Elements RandomElements(PutElement put, std::size_t count, Random& random) {
  const bool hasBystanders = random.Bool();
  const bool isMixed = random.Int(0, 3) == 0;
  Elements elements;
  while (elements.size() < count) {
    if (hasBystanders && random.Int(0, 7) == 0) PutBystander(elements, random);
    (isMixed && random.Bool() ? PutOnGrid : put)(elements, random);
  }
  elements.resize(count);
  return elements;
}

Elements ElementsOf(std::size_t family, std::size_t count, Random& random) {
  constexpr std::array<PutElement, 8> kFamilies = {PutOnGrid,        PutNearlyParallel, PutTouching,
                                                   PutBesideArcEnds, PutCrookedArc,     PutAtScale,
                                                   PutFarOut,        PutExtreme};
  if (family < kFamilies.size()) return RandomElements(kFamilies[family], count, random);
  Elements elements = Contour(count, random);
  if (family > kFamilies.size()) {
    std::shuffle(elements.begin(), elements.end(), random.Engine());
  }
  return elements;
}

constexpr std::size_t kFamilyCount = 10;

/// A list that borrows the elements.
class Borrowed {
 public:
  explicit Borrowed(const Elements& elements) {
    for (const auto& element : elements) list_.push_back(element.get());
  }
  ~Borrowed() { list_.clear(); }
  Borrowed(const Borrowed&) = delete;
  Borrowed& operator=(const Borrowed&) = delete;

  GX2DElmList& List() { return list_; }

 private:
  GX2DElmList list_;
};

// Comparison

using Bits = std::vector<std::uint64_t>;

Bits BitsOf(const GX2DPointList& points) {
  Bits bits;
  for (const GX2DPoint* const p : points) {
    for (const double coordinate : {p->X, p->Y}) {
      std::uint64_t word = 0;
      std::memcpy(&word, &coordinate, sizeof word);
      bits.push_back(word);
    }
  }
  return bits;
}

/// The search that the lists call for, and each one forced upon them.
constexpr std::array<std::optional<PairSearch>, 4> kSearches = {
    std::nullopt, PairSearch::kEach, PairSearch::kInOrder, PairSearch::kSorted};

/// What was compared: pairs of elements, and points in the plain answers.
struct Tally {
  std::size_t pairs = 0;
  std::size_t hits = 0;
  std::size_t selfHits = 0;
};

void CompareTwoLists(GX2DElmList& list1, GX2DElmList& list2, Tally& tally) {
  GX2DPointList plain;
  ktrcl_internal::GetIntersectionsPlain(list1, list2, plain);
  for (const auto& search : kSearches) {
    GX2DPointList indexed;
    ktrcl_internal::GetIntersectionsIndexed(list1, list2, indexed, search);
    ASSERT_EQ(BitsOf(indexed), BitsOf(plain));
    ASSERT_EQ(ktrcl_internal::IntersectIndexed(list1, list2, search), !plain.empty());
  }
  GX2DPointList exported;
  ASSERT_TRUE(GXGeometry::GetIntersections(list1, list2, exported));
  ASSERT_EQ(BitsOf(exported), BitsOf(plain));
  bool found = false;
  ASSERT_TRUE(GXGeometry::CheckIfIntersection(list1, list2, found));
  ASSERT_EQ(found, !plain.empty());
  tally.pairs += list1.size() * list2.size();
  tally.hits += plain.size();
}

void CompareWithin(GX2DElmList& list, Tally& tally) {
  GX2DPointList plain;
  const bool hasAny = ktrcl_internal::HasSelfIntersectionPlain(list, plain);
  for (const auto& search : kSearches) {
    GX2DPointList indexed;
    ASSERT_EQ(ktrcl_internal::HasSelfIntersectionIndexed(list, indexed, search), hasAny);
    ASSERT_EQ(BitsOf(indexed), BitsOf(plain));
  }
  GX2DPointList exported;
  ASSERT_EQ(GXGeometry::HasSelfIntersection(list, exported), hasAny);
  ASSERT_EQ(BitsOf(exported), BitsOf(plain));
  tally.pairs += list.size() * list.size() / 2;
  tally.selfHits += plain.size();
}

std::size_t CountOf(Random& random) {
  return static_cast<std::size_t>(random.Int(0, 5) == 0 ? random.Int(0, 9) : random.Int(10, 90));
}

TEST(IndexedIntersections, AreThoseOfThePlainFormBitForBit) {
  Random random;
  for (std::size_t family = 0; family < kFamilyCount; ++family) {
    SCOPED_TRACE(family);
    Tally tally;
    while (tally.pairs < 300000) {
      const Elements elements1 = ElementsOf(family, CountOf(random) + 1, random);
      const Elements elements2 = ElementsOf(family, CountOf(random) + 1, random);
      Borrowed list1(elements1);
      Borrowed list2(elements2);
      ASSERT_NO_FATAL_FAILURE(CompareTwoLists(list1.List(), list2.List(), tally));
      ASSERT_NO_FATAL_FAILURE(CompareWithin(list1.List(), tally));
    }
    // Without hits there would be nothing to compare.
    EXPECT_GT(tally.hits, 500U);
    EXPECT_GT(tally.selfHits, 50U);
    std::cout << "family " << family << ": " << tally.pairs << " pairs, " << tally.hits << " + "
              << tally.selfHits << " hits\n";
  }
}

TEST(IndexedIntersections, AreThoseOfThePlainFormOnLongLists) {
  Random random;
  for (std::size_t family = 0; family < kFamilyCount; ++family) {
    SCOPED_TRACE(family);
    Tally tally;
    const Elements elements1 = ElementsOf(family, 400, random);
    const Elements elements2 = ElementsOf(family, 250, random);
    Borrowed list1(elements1);
    Borrowed list2(elements2);
    ASSERT_NO_FATAL_FAILURE(CompareTwoLists(list1.List(), list2.List(), tally));
    ASSERT_NO_FATAL_FAILURE(CompareWithin(list2.List(), tally));
  }
}

TEST(IndexedIntersections, OfEmptyListsAreNone) {
  GX2DElmList empty;
  GX2DElmList nulls;
  nulls.assign(50, nullptr);
  Tally tally;
  CompareTwoLists(empty, empty, tally);
  CompareTwoLists(empty, nulls, tally);
  CompareTwoLists(nulls, nulls, tally);
  CompareWithin(empty, tally);
  CompareWithin(nulls, tally);
  EXPECT_EQ(tally.hits + tally.selfHits, 0U);
}

}  // namespace
