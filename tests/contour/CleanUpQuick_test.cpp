// The single passes of the clean-up against the plain procedures, which erase element by element
// and start again at the front, on lists made to mislead them: chains with folds, loops, overlaps,
// arcs about one center, gaps around the tolerance, far places and no numbers. Compared are which
// objects stay and in which order, their coordinates bit for bit, and the order in which the others
// are destroyed. And every procedure ends, whatever it is given.

#include <KTRCL_Geometry/contour/GXGeometry.h>
#include <KTRCL_Geometry/elements/GX2DElements.h>
#include <KTRCL_Geometry/elements/GX3DElements.h>
#include <KTRCL_Geometry/elements/GXElementLists.h>

#include "contour/CleanUpTwins.h"
#include "contour/PlainCleanUp.h"
#include "support/Build.h"
#include "support/Foreign.h"
#include "support/Near.h"
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
#include <map>
#include <string>
#include <vector>

namespace {

using ktrcl_internal::FlatChain;
using ktrcl_internal::SpatialChain;
using support::Random;

constexpr double kTolerance = 0.0001;

using Place = std::array<double, 3>;

enum class Kind { kNull, kPoint, kLine, kArc, kForeign };

/// An element to be built as often as wanted, flat or spatial; a flat one has no third coordinate.
struct Plan {
  Kind kind;
  Place start;
  Place end;
  Place mid;
  Place center;
};

// Places and chains

enum class Family { kLattice, kStraight, kOneCenter, kTiny, kFlatField, kField, kExtremes };
constexpr std::array<Family, 7> kFamilies = {
    Family::kLattice, Family::kStraight,  Family::kOneCenter, Family::kTiny,
    Family::kField,   Family::kFlatField, Family::kExtremes};

double Extreme(Random& random) {
  static constexpr std::array<double, 12> kValues = {0.0,
                                                     -0.0,
                                                     1e-320,
                                                     1e12,
                                                     1e17,
                                                     1e154,
                                                     -1e154,
                                                     1e300,
                                                     1e308,
                                                     std::numeric_limits<double>::infinity(),
                                                     -std::numeric_limits<double>::infinity(),
                                                     std::numeric_limits<double>::quiet_NaN()};
  return kValues[static_cast<std::size_t>(random.Int(0, 11))];
}

Place OnCircle(Random& random) {
  const double angle = random.Int(0, 7) * support::kPi / 4.0;
  return {std::cos(angle), std::sin(angle), 0.0};
}

Place PlaceOf(Family family, Random& random) {
  switch (family) {
    case Family::kLattice:
      return {1.0 * random.Int(-2, 2), 1.0 * random.Int(-2, 2), 1.0 * random.Int(0, 1)};
    case Family::kStraight:
      return {1.0 * random.Int(-6, 6), 0.0, 0.0};
    case Family::kOneCenter:
      return OnCircle(random);
    case Family::kTiny:
      return {0.5 * kTolerance * random.Int(-5, 5), 0.5 * kTolerance * random.Int(-5, 5), 0.0};
    case Family::kFlatField:
      return {random.Between(-9.0, 9.0), random.Between(-9.0, 9.0), 0.0};
    case Family::kExtremes: {
      Place place = {1.0 * random.Int(0, 2), 1.0 * random.Int(0, 2), 0.0};
      if (random.Int(0, 3) == 0)
        place[static_cast<std::size_t>(random.Int(0, 2))] = Extreme(random);
      return place;
    }
    case Family::kField:
      break;
  }
  return {random.Between(-9.0, 9.0), random.Between(-9.0, 9.0), random.Between(-9.0, 9.0)};
}

Place Shifted(Place place, Random& random) {
  for (double& coordinate : place) coordinate += 0.5 * kTolerance * random.Int(-3, 3);
  return place;
}

Kind KindOfNext(Random& random) {
  constexpr std::array<Kind, 16> kKinds = {Kind::kLine, Kind::kLine, Kind::kLine,  Kind::kLine,
                                           Kind::kLine, Kind::kLine, Kind::kLine,  Kind::kArc,
                                           Kind::kArc,  Kind::kArc,  Kind::kArc,   Kind::kArc,
                                           Kind::kArc,  Kind::kNull, Kind::kPoint, Kind::kForeign};
  return kKinds[static_cast<std::size_t>(random.Int(0, 15))];
}

/// A chain, as a rule closed; some ends are off by a little and some elements turned round.
std::vector<Plan> PlanList(Family family, int longest, Random& random) {
  std::vector<Plan> plans(static_cast<std::size_t>(random.Int(1, longest)));
  const bool linesOnly = random.Int(0, 2) == 0;
  const Place first = PlaceOf(family, random);
  Place last = first;
  for (Plan& plan : plans) {
    const Place center = family == Family::kOneCenter && random.Int(0, 3) != 0
                             ? Place{0.0, 0.0, 0.0}
                             : PlaceOf(family, random);
    plan = {KindOfNext(random), last, PlaceOf(family, random), PlaceOf(family, random), center};
    if (linesOnly) plan.kind = Kind::kLine;
    if (random.Int(0, 9) == 0) plan.end = plan.start;
    if (random.Int(0, 9) == 0) plan.mid = plan.end;
    if (&plan == &plans.back() && random.Int(0, 4) != 0) plan.end = first;
    last = random.Int(0, 4) == 0 ? Shifted(plan.end, random) : plan.end;
    if (random.Int(0, 9) == 0) std::swap(plan.start, plan.end);
  }
  return plans;
}

// Lists that write down what becomes of them

using Log = std::vector<std::string>;

GX2DPoint PointAt(const Place& p, const FlatChain&) { return {p[0], p[1]}; }
GX3DPoint PointAt(const Place& p, const SpatialChain&) { return {p[0], p[1], p[2]}; }

GX2DElement* NewForeign(const Plan& plan, const std::string& name, Log& log, const FlatChain& t) {
  return new support::Logged<GX2DRectangle>(log, name, PointAt(plan.start, t),
                                            PointAt(plan.end, t));
}
GX3DElement* NewForeign(const Plan& plan, const std::string& name, Log& log,
                        const SpatialChain& t) {
  return new support::Logged<support::Foreign3D>(log, name, PointAt(plan.start, t),
                                                 PointAt(plan.end, t));
}

template <typename Traits>
typename Traits::Element* NewElement(const Plan& plan, const std::string& name, Log& log) {
  const Traits t;
  const auto start = PointAt(plan.start, t);
  const auto end = PointAt(plan.end, t);
  const auto mid = PointAt(plan.mid, t);
  const auto center = PointAt(plan.center, t);
  switch (plan.kind) {
    case Kind::kPoint:
      return new support::Logged<typename Traits::Point>(log, name, start);
    case Kind::kLine:
      return new support::Logged<typename Traits::Line>(log, name, start, end);
    case Kind::kArc:
      return new support::Logged<typename Traits::Arc>(log, name, center, start, mid, end);
    case Kind::kForeign:
      return NewForeign(plan, name, log, t);
    case Kind::kNull:
      break;
  }
  return nullptr;
}

template <typename Point>
void AppendBits(const Point& p, std::vector<std::uint64_t>& bits) {
  for (const double value : support::Numbers(p)) {
    std::uint64_t word = 0;
    std::memcpy(&word, &value, sizeof word);
    // No number is like another, whatever its sign and payload, which depend on the compiler.
    bits.push_back(std::isnan(value) ? ~std::uint64_t{0} : word);
  }
}

/// A list in the making.
template <typename Traits>
class Built {
 public:
  explicit Built(const std::vector<Plan>& plans) {
    for (std::size_t i = 0; i < plans.size(); ++i) {
      list.push_back(NewElement<Traits>(plans[i], std::to_string(i), log_));
      origin_.emplace(list.back(), i);
    }
  }
  Built(const Built&) = delete;
  Built& operator=(const Built&) = delete;
  ~Built() {
    list.ClearWithContents();
    log_.clear();
  }

  /// Where each element came from (-1 for a new one) and its coordinates, then the names of the
  /// destroyed ones.
  std::vector<std::vector<std::uint64_t>> Snapshot() const {
    std::vector<std::vector<std::uint64_t>> snapshot;
    for (auto* const element : list) {
      snapshot.push_back({OriginOf(element)});
      if (element == nullptr) continue;
      AppendBits(element->GetStartPoint(), snapshot.back());
      AppendBits(element->GetEndPoint(), snapshot.back());
      const auto* const arc = dynamic_cast<const typename Traits::Arc*>(element);
      if (arc == nullptr) continue;
      AppendBits(arc->Mid, snapshot.back());
      AppendBits(arc->Center, snapshot.back());
    }
    snapshot.emplace_back();
    for (const std::string& name : log_) snapshot.back().push_back(std::stoul(name));
    return snapshot;
  }

  std::size_t Destroyed() const { return log_.size(); }

  typename Traits::List list;

 private:
  /// Position in the plan; the largest number for a new element, which may stand at the address of
  /// one that has been destroyed.
  std::uint64_t OriginOf(typename Traits::Element* element) const {
    const auto origin = origin_.find(element);
    const bool isNew =
        origin == origin_.end() ||
        std::find(log_.begin(), log_.end(), std::to_string(origin->second)) != log_.end();
    return isNew ? ~std::uint64_t{0} : origin->second;
  }

  Log log_;
  std::map<typename Traits::Element*, std::size_t> origin_;
};

// The comparison

template <typename Traits>
class QuickCleanUp : public testing::Test {
 protected:
  using List = typename Traits::List;

  /// Runs both forms on many lists; prints how many, and how many of them lost elements.
  template <typename Quick, typename Plain>
  void Compare(int listsPerFamily, int longest, Quick quick, Plain plain) {
    std::size_t cases = 0;
    std::size_t changed = 0;
    for (const Family family : kFamilies) {
      for (int i = 0; i < listsPerFamily; ++i) {
        const std::vector<Plan> plans = PlanList(family, longest, random_);
        Built<Traits> one(plans);
        Built<Traits> two(plans);
        ASSERT_TRUE(quick(one.list));
        plain(two.list);
        ASSERT_EQ(one.Snapshot(), two.Snapshot())
            << "family " << static_cast<int>(family) << " list " << i;
        ++cases;
        if (one.Destroyed() > 0) ++changed;
      }
    }
    std::cout << cases << " lists, " << changed << " of them shortened\n";
    EXPECT_GT(changed, cases / 50);
  }

 private:
  Random random_;
};

using BothTwins = testing::Types<FlatChain, SpatialChain>;
TYPED_TEST_SUITE(QuickCleanUp, BothTwins, );

TYPED_TEST(QuickCleanUp, ClearsElementsAsPointsLikeThePlainForm) {
  for (const bool lines : {false, true}) {
    for (const bool arcs : {false, true}) {
      if (!lines && !arcs) continue;
      this->Compare(
          150, 40, [&](auto& list) { return GXGeometry::ClearElementsAsPoints(list, lines, arcs); },
          [&](auto& list) { ktrcl_internal::ClearPointLikePlainly<TypeParam>(list, lines, arcs); });
    }
  }
}

TYPED_TEST(QuickCleanUp, TrunksOverlappingLinesLikeThePlainForm) {
  this->Compare(
      800, 40, [](auto& list) { return GXGeometry::TrunkOverlappingLines(list); },
      [](auto& list) { ktrcl_internal::MergeFoldsPlainly<TypeParam>(list); });
}

TYPED_TEST(QuickCleanUp, StitchesLikeThePlainForm) {
  for (const bool lines : {false, true}) {
    for (const bool arcs : {false, true}) {
      if (!lines && !arcs) continue;
      this->Compare(
          400, 40, [&](auto& list) { return GXGeometry::Stitch(list, lines, arcs); },
          [&](auto& list) { ktrcl_internal::StitchAllPlainly<TypeParam>(list, lines, arcs); });
    }
  }
}

TYPED_TEST(QuickCleanUp, RemovesSmallLoopsOfShortListsLikeThePlainForm) {
  this->Compare(
      1500, 30, [](auto& list) { return GXGeometry::RemoveSmallLoops(list); },
      [](auto& list) { ktrcl_internal::RemoveLoopsPlainly<TypeParam>(list); });
}

TYPED_TEST(QuickCleanUp, RemovesSmallLoopsOfLongListsLikeThePlainForm) {
  this->Compare(
      100, 250, [](auto& list) { return GXGeometry::RemoveSmallLoops(list); },
      [](auto& list) { ktrcl_internal::RemoveLoopsPlainly<TypeParam>(list); });
}

TYPED_TEST(QuickCleanUp, CleansUpLikeThePlainForm) {
  this->Compare(
      300, 16, [](auto& list) { return GXGeometry::CleanUp(list); },
      [](auto& list) { ktrcl_internal::CleanUpPlainly<TypeParam>(list); });
}

/// Loops within loops within loops: a walk over few places that comes back to each many times, in
/// lists of more elements than the search by place needs to set in.
TYPED_TEST(QuickCleanUp, RemovesNestedLoopsLikeThePlainForm) {
  Random random;
  for (int i = 0; i < 60; ++i) {
    const int places = random.Int(2, 90);
    std::vector<Plan> plans(static_cast<std::size_t>(random.Int(60, 160)));
    Place last = {0.0, 0.0, 0.0};
    for (Plan& plan : plans) {
      const Place next = {1.0 * random.Int(0, places), 0.0, 0.0};
      plan = {Kind::kLine, last, next, next, next};
      last = next;
    }
    Built<TypeParam> one(plans);
    Built<TypeParam> two(plans);
    GXGeometry::RemoveSmallLoops(one.list);
    ktrcl_internal::RemoveLoopsPlainly<TypeParam>(two.list);
    ASSERT_EQ(one.Snapshot(), two.Snapshot()) << "list " << i;
  }
}

// Crossings in space

/// A place along a line or beyond its ends, off it by no more than what just spans a plane with it.
Place NearlyInLine(const Plan& line, Random& random) {
  const double t = random.Between(-1.5, 2.5);
  Place place{};
  for (std::size_t axis = 0; axis < 3; ++axis) {
    place[axis] =
        line.start[axis] + (line.end[axis] - line.start[axis]) * t + 0.000005 * random.Int(-6, 6);
  }
  return place;
}

/// Lines that cross, touch, overlap, pass each other by, or nearly do: in a plane or nearly so,
/// parallel to the axes or nearly so, at the limit below which a coordinate tells no parameter,
/// near and far out.
std::vector<Plan> PlanLines(int longest, Random& random) {
  static constexpr std::array<double, 4> kScales = {1.0, 1.0, 30000.0, 70000.0};
  const double scale = kScales[static_cast<std::size_t>(random.Int(0, 3))];
  const bool flat = random.Bool();
  const bool lattice = random.Bool();
  const auto coordinate = [&](int extent) {
    return scale * (lattice ? 1.0 * random.Int(-extent, extent) : random.Between(-extent, extent));
  };
  const auto place = [&]() -> Place {
    const double x = coordinate(3);
    const double y = coordinate(3);
    return {x, y, flat ? 0.0 : coordinate(1)};
  };
  std::vector<Plan> plans(static_cast<std::size_t>(random.Int(2, longest)));
  Place last = place();
  for (std::size_t i = 0; i < plans.size(); ++i) {
    Place next = place();
    for (std::size_t axis = 0; axis < 3; ++axis) {
      if (random.Int(0, 3) == 0) next[axis] = last[axis] + 0.00005 * random.Int(-5, 5);
    }
    if (i > 0 && random.Int(0, 5) == 0) next = NearlyInLine(plans[i - 1], random);
    plans[i] = {random.Int(0, 19) == 0 ? Kind::kArc : Kind::kLine, last, next, next, next};
    last = random.Int(0, 5) == 0 ? place() : next;
    if (random.Int(0, 5) == 0) last = NearlyInLine(plans[i], random);
  }
  return plans;
}

TEST(QuickDivision, CutsLikeTheWalkOverAllPairs) {
  Random random;
  std::size_t cuts = 0;
  constexpr int kLists = 4000;
  for (int i = 0; i < kLists; ++i) {
    const std::vector<Plan> plans = PlanLines(12, random);
    Built<SpatialChain> one(plans);
    Built<SpatialChain> two(plans);
    ASSERT_TRUE(GXGeometry::DivideLinesAtIntersection(one.list));
    ktrcl_internal::CutAtCrossingsPlainly(two.list);
    ASSERT_EQ(one.Snapshot(), two.Snapshot()) << "list " << i;
    cuts += one.list.size() - plans.size();
  }
  std::cout << kLists << " lists, " << cuts << " cuts\n";
  EXPECT_GT(cuts, std::size_t{kLists});
}

// Termination. A procedure that went on for ever would hang the test; what is asserted is the bound
// that follows from the input.

TEST(Termination, CuttingEndsBelowTheBoundOnEveryKindOfInput) {
  Random random;
  std::size_t lists = 0;
  double largestShare = 0.0;
  for (const Family family : kFamilies) {
    for (int i = 0; i < 500; ++i) {
      const std::vector<Plan> plans = PlanList(family, 10, random);
      Built<SpatialChain> built(plans);
      GXGeometry::DivideLinesAtIntersection(built.list);
      const double count = static_cast<double>(plans.size());
      const double cuts = static_cast<double>(built.list.size()) - count;
      largestShare = std::max(largestShare, cuts / (16.0 * count * count + 1024.0));
      ++lists;
    }
  }
  std::cout << lists << " lists, at most " << largestShare << " of the bound\n";
  EXPECT_LE(largestShare, 1.0);
}

TYPED_TEST(QuickCleanUp, EndsOnEveryKindOfInput) {
  Random random;
  std::size_t lists = 0;
  for (const Family family : kFamilies) {
    for (int i = 0; i < 300; ++i) {
      const std::vector<Plan> plans = PlanList(family, 14, random);
      Built<TypeParam> loops(plans);
      GXGeometry::RemoveSmallLoops(loops.list);
      EXPECT_LE(loops.list.size(), plans.size());
      Built<TypeParam> all(plans);
      EXPECT_TRUE(GXGeometry::CleanUp(all.list));
      ++lists;
    }
  }
  std::cout << lists << " lists\n";
}

}  // namespace
