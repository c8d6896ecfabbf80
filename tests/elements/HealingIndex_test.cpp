// The indexed forms of chaining and of the search for duplicates against the plain ones, on lists
// that are random or made to mislead an index: gaps around the tolerance, many ends at one place,
// elements shorter than the tolerance, places on the lines of the grid, far out and beyond.

#include <KTRCL_Geometry/elements/GX2DElements.h>
#include <KTRCL_Geometry/elements/GX3DElements.h>
#include <KTRCL_Geometry/elements/GXElementLists.h>

#include "elements/EndPointIndex.h"
#include "elements/HealingChain.h"
#include "elements/HealingDuplicates.h"
#include "elements/HealingTwins.h"
#include "support/Random.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <limits>
#include <map>
#include <memory>
#include <utility>
#include <vector>

namespace {

using ktrcl_internal::ChainIndexed;
using ktrcl_internal::ChainPlain;
using ktrcl_internal::EndPointIndex;
using ktrcl_internal::Flat;
using ktrcl_internal::RemoveDuplicatesIndexed;
using ktrcl_internal::RemoveDuplicatesPlain;
using ktrcl_internal::Spatial;
using support::Random;

constexpr double kTolerance = 0.0001;
constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();

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

// Places

Place Shifted(Place place, Random& random) {
  // Multiples of half the tolerance: inside, on, and outside the limit, as rounding has it.
  for (double& coordinate : place) coordinate += 0.5 * kTolerance * random.Int(-3, 3);
  return place;
}

double OnGridLine(Random& random) {
  // Whole multiples of the tolerance around 0, -0 included, hit the borders of every cell.
  const double x = kTolerance * random.Int(-40, 40);
  return random.Bool() ? x : -x;
}

double Extreme(Random& random) {
  constexpr std::array<double, 16> kValues = {
      0.0,       -0.0,      1e18,  1e18 + 128.0, -1e18, 1e12,      1e12 + 0.00012207031,
      4503599.0, 1e-320,    1e308, -1e308,       1e300, kInfinity, -kInfinity,
      kNaN,      kTolerance};
  return kValues[static_cast<std::size_t>(random.Int(0, 15))];
}

enum class Family { kOpenField, kFewPlaces, kGridLines, kExtremes, kTiny };

Place PlaceOf(Family family, Random& random) {
  const auto coordinate = [&] {
    switch (family) {
      case Family::kGridLines:
        return OnGridLine(random);
      case Family::kExtremes:
        return random.Int(0, 2) == 0 ? Extreme(random) : 1.0 * random.Int(0, 2);
      case Family::kTiny:
        return 0.5 * kTolerance * random.Int(-6, 6);
      case Family::kFewPlaces:
        return 1.0 * random.Int(-1, 1);
      case Family::kOpenField:
        break;
    }
    return random.Between(-1000.0, 1000.0);
  };
  const double x = coordinate();
  const double y = coordinate();
  return {x, y, coordinate()};
}

// Lists

Kind KindOf(Random& random) {
  constexpr std::array<Kind, 12> kKinds = {Kind::kLine,  Kind::kLine,  Kind::kLine, Kind::kLine,
                                           Kind::kLine,  Kind::kLine,  Kind::kArc,  Kind::kArc,
                                           Kind::kPoint, Kind::kPoint, Kind::kNull, Kind::kForeign};
  return kKinds[static_cast<std::size_t>(random.Int(0, 11))];
}

/// Chains whose elements were turned and shuffled at random, with ends out of a common pool, some
/// of them off by a little. Half of the lists hold lines and arcs alone.
std::vector<Plan> PlanList(Family family, Random& random) {
  std::vector<Place> pool(static_cast<std::size_t>(random.Int(1, 40)));
  for (Place& place : pool) place = PlaceOf(family, random);
  const auto anywhere = [&] {
    const Place& place = pool[static_cast<std::size_t>(random.Int(0, 1000)) % pool.size()];
    return random.Int(0, 3) == 0 ? Shifted(place, random) : place;
  };
  const bool segmentsOnly = random.Bool();
  std::vector<Plan> plans(static_cast<std::size_t>(random.Int(1, 60)));
  Place last = anywhere();
  for (Plan& plan : plans) {
    plan = {KindOf(random), last, anywhere(), anywhere(), anywhere()};
    if (segmentsOnly && plan.kind != Kind::kArc) plan.kind = Kind::kLine;
    if (random.Int(0, 9) == 0) plan.end = Shifted(plan.start, random);
    last = random.Int(0, 9) == 0 ? anywhere() : plan.end;
    if (random.Bool()) std::swap(plan.start, plan.end);
  }
  if (random.Int(0, 4) != 0) std::shuffle(plans.begin(), plans.end(), random.Engine());
  return plans;
}

/// A kind that the library does not know.
class Marker3D : public GX3DElement {
 public:
  double GetMinX() const override { return 0.0; }
  double GetMaxX() const override { return 0.0; }
  double GetMinY() const override { return 0.0; }
  double GetMaxY() const override { return 0.0; }
  double GetMinZ() const override { return 0.0; }
  double GetMaxZ() const override { return 0.0; }
  bool IsActuallyAPoint() override { return false; }
  GX3DPoint& GetStartPoint() override { return place_; }
  GX3DPoint& GetEndPoint() override { return place_; }

 private:
  GX3DPoint place_{7.0, 7.0, 7.0};
};

GX2DPoint PointAt(const Place& p, const Flat&) { return {p[0], p[1]}; }
GX3DPoint PointAt(const Place& p, const Spatial&) { return {p[0], p[1], p[2]}; }

GX2DElement* NewForeign(const Plan& plan, const Flat& flat) {
  return new GX2DRectangle(PointAt(plan.start, flat), PointAt(plan.end, flat));
}
GX3DElement* NewForeign(const Plan&, const Spatial&) { return new Marker3D(); }

template <typename Traits>
typename Traits::Element* NewElement(const Plan& plan) {
  const Traits traits;
  const auto start = PointAt(plan.start, traits);
  const auto end = PointAt(plan.end, traits);
  switch (plan.kind) {
    case Kind::kPoint:
      return new typename Traits::Point(start);
    case Kind::kLine:
      return new typename Traits::Line(start, end);
    case Kind::kArc:
      return new
          typename Traits::Arc(PointAt(plan.center, traits), start, PointAt(plan.mid, traits), end);
    case Kind::kForeign:
      return NewForeign(plan, traits);
    case Kind::kNull:
      break;
  }
  return nullptr;
}

// Comparison

void AppendBits(double value, std::vector<std::uint64_t>& bits) {
  std::uint64_t word = 0;
  std::memcpy(&word, &value, sizeof word);
  bits.push_back(word);
}

void AppendBits(const GX2DPoint& p, std::vector<std::uint64_t>& bits) {
  AppendBits(p.X, bits);
  AppendBits(p.Y, bits);
}

void AppendBits(const GX3DPoint& p, std::vector<std::uint64_t>& bits) {
  AppendBits(p.X, bits);
  AppendBits(p.Y, bits);
  AppendBits(p.Z, bits);
}

/// A list in the making, which knows the position in the plan that each element came from. Null
/// entries are all alike and count as the first of them.
template <typename Traits>
class Built {
 public:
  explicit Built(const std::vector<Plan>& plans) {
    for (const Plan& plan : plans) {
      list.push_back(NewElement<Traits>(plan));
      origin_.emplace(list.back(), list.size() - 1);
    }
  }

  /// The elements in order: where each came from, and its coordinates bit for bit.
  std::vector<std::vector<std::uint64_t>> Snapshot() const {
    std::vector<std::vector<std::uint64_t>> snapshot;
    for (auto* const element : list) {
      snapshot.push_back({origin_.at(element)});
      if (element == nullptr) continue;
      AppendBits(element->GetStartPoint(), snapshot.back());
      AppendBits(element->GetEndPoint(), snapshot.back());
      const auto* const arc = dynamic_cast<const typename Traits::Arc*>(element);
      if (arc == nullptr) continue;
      AppendBits(arc->Mid, snapshot.back());
      AppendBits(arc->Center, snapshot.back());
    }
    return snapshot;
  }

  /// Leaves each element in the list once, so that it is destroyed once.
  void ForgetRepeated() {
    std::sort(list.begin(), list.end());
    list.erase(std::unique(list.begin(), list.end()), list.end());
  }

  typename Traits::List list;

 private:
  std::map<typename Traits::Element*, std::size_t> origin_;
};

constexpr std::array<Family, 5> kFamilies = {Family::kOpenField, Family::kFewPlaces,
                                             Family::kGridLines, Family::kExtremes, Family::kTiny};
constexpr int kListsPerFamily = 400;

template <typename Traits>
class IndexedChain : public testing::Test {};

using BothTwins = testing::Types<Flat, Spatial>;
TYPED_TEST_SUITE(IndexedChain, BothTwins, );

TYPED_TEST(IndexedChain, HasTheOrderAndDirectionsOfThePlainOne) {
  Random random;
  for (const Family family : kFamilies) {
    for (int i = 0; i < kListsPerFamily; ++i) {
      SCOPED_TRACE(testing::Message() << "family " << static_cast<int>(family) << " list " << i);
      const std::vector<Plan> plans = PlanList(family, random);
      Built<TypeParam> plain(plans);
      Built<TypeParam> indexed(plans);
      Built<TypeParam> chosen(plans);
      ChainPlain<TypeParam>(plain.list);
      ChainIndexed<TypeParam>(indexed.list);
      chosen.list.MakeConnectingElements();
      ASSERT_EQ(indexed.Snapshot(), plain.Snapshot());
      ASSERT_EQ(chosen.Snapshot(), plain.Snapshot());
    }
  }
}

TYPED_TEST(IndexedChain, LeavesAnEmptyListEmpty) {
  typename TypeParam::List list;
  ChainIndexed<TypeParam>(list);
  EXPECT_TRUE(list.empty());
}

/// Writes its number into a log when it is turned round.
template <typename Base>
class Turned : public Base {
 public:
  Turned(const Base& base, std::size_t number, std::vector<std::size_t>& log)
      : Base(base), number_(number), log_(log) {}
  void SwapPoints() override {
    log_.push_back(number_);
    Base::SwapPoints();
  }

 private:
  std::size_t number_;
  std::vector<std::size_t>& log_;
};

template <typename Traits>
typename Traits::Element* NewTurned(const Plan& plan, std::size_t number,
                                    std::vector<std::size_t>& log) {
  using Line = typename Traits::Line;
  using Arc = typename Traits::Arc;
  auto* const element = NewElement<Traits>(plan);
  const std::unique_ptr<typename Traits::Element> original(element);
  if (const auto* const line = dynamic_cast<const Line*>(element)) {
    return new Turned<Line>(*line, number, log);
  }
  if (const auto* const arc = dynamic_cast<const Arc*>(element)) {
    return new Turned<Arc>(*arc, number, log);
  }
  return NewElement<Traits>(plan);
}

/// Who was turned round, in this order, while `chain` ran.
template <typename Traits, typename ChainOperation>
std::vector<std::size_t> TurnsOf(const std::vector<Plan>& plans, ChainOperation chain) {
  std::vector<std::size_t> log;
  typename Traits::List list;
  for (const Plan& plan : plans) list.push_back(NewTurned<Traits>(plan, list.size(), log));
  chain(list);
  return log;
}

TYPED_TEST(IndexedChain, TurnsTheSameElementsInTheSameOrderAsThePlainOne) {
  Random random;
  std::size_t turned = 0;
  for (const Family family : kFamilies) {
    for (int i = 0; i < kListsPerFamily; ++i) {
      SCOPED_TRACE(testing::Message() << "family " << static_cast<int>(family) << " list " << i);
      const std::vector<Plan> plans = PlanList(family, random);
      const auto plain = TurnsOf<TypeParam>(plans, ChainPlain<TypeParam>);
      ASSERT_EQ(TurnsOf<TypeParam>(plans, ChainIndexed<TypeParam>), plain);
      turned += plain.size();
    }
  }
  // Lists in which nothing is turned would prove nothing.
  EXPECT_GT(turned, kFamilies.size() * kListsPerFamily);
}

TYPED_TEST(IndexedChain, TakesAnElementThatIsListedTwiceAsThePlainOneDoes) {
  Random random;
  for (int i = 0; i < kListsPerFamily; ++i) {
    SCOPED_TRACE(testing::Message() << "list " << i);
    const std::vector<Plan> plans = PlanList(Family::kFewPlaces, random);
    Built<TypeParam> plain(plans);
    Built<TypeParam> indexed(plans);
    const std::size_t twice = static_cast<std::size_t>(random.Int(0, 1000)) % plans.size();
    const auto where = random.Int(0, static_cast<int>(plans.size()));
    plain.list.insert(plain.list.begin() + where, plain.list[twice]);
    indexed.list.insert(indexed.list.begin() + where, indexed.list[twice]);
    ChainPlain<TypeParam>(plain.list);
    ChainIndexed<TypeParam>(indexed.list);
    EXPECT_EQ(indexed.Snapshot(), plain.Snapshot());
    plain.ForgetRepeated();
    indexed.ForgetRepeated();
  }
}

// Duplicates

/// Writes its number into a log when it is destroyed.
template <typename Base>
class Logged : public Base {
 public:
  Logged(const Base& base, std::size_t number, std::vector<std::size_t>& log)
      : Base(base), number_(number), log_(log) {}
  ~Logged() override { log_.push_back(number_); }

 private:
  std::size_t number_;
  std::vector<std::size_t>& log_;
};

/// What became of a list: who was destroyed, in this order, and which positions survived.
struct Outcome {
  std::vector<std::size_t> destroyed;
  std::vector<std::size_t> kept;
};

bool operator==(const Outcome& a, const Outcome& b) {
  return a.destroyed == b.destroyed && a.kept == b.kept;
}

GX3DElement* NewLogged(const Plan& plan, std::size_t number, std::vector<std::size_t>& log) {
  const Spatial spatial;
  const GX3DPoint start = PointAt(plan.start, spatial);
  const GX3DPoint end = PointAt(plan.end, spatial);
  if (plan.kind == Kind::kLine) {
    return new Logged<GX3DLine>(GX3DLine(start, end), number, log);
  }
  if (plan.kind == Kind::kArc) {
    const GX3DArc arc(PointAt(plan.center, spatial), start, PointAt(plan.mid, spatial), end);
    return new Logged<GX3DArc>(arc, number, log);
  }
  return NewElement<Spatial>(plan);
}

template <typename Remove>
Outcome OutcomeOf(const std::vector<Plan>& plans, Remove remove) {
  Outcome outcome;
  std::vector<std::size_t> log;
  GX3DElmList list;
  std::map<GX3DElement*, std::size_t> origin;
  for (const Plan& plan : plans) {
    list.push_back(NewLogged(plan, list.size(), log));
    origin.emplace(list.back(), list.size() - 1);
  }
  remove(list);
  outcome.destroyed = log;
  for (GX3DElement* const element : list) outcome.kept.push_back(origin.at(element));
  return outcome;
}

/// Draws some elements again at random positions, some turned, some off by a little, arcs also the
/// other way round.
void Redraw(std::vector<Plan>& plans, Random& random) {
  const int count = static_cast<int>(plans.size());
  for (int i = 0; i < count; ++i) {
    if (random.Bool()) continue;
    Plan copy = plans[static_cast<std::size_t>(random.Int(0, count - 1))];
    if (random.Bool()) std::swap(copy.start, copy.end);
    if (random.Int(0, 2) == 0) copy.start = Shifted(copy.start, random);
    if (random.Int(0, 3) == 0) copy.mid = copy.end;
    const auto where = random.Int(0, static_cast<int>(plans.size()));
    plans.insert(plans.begin() + where, copy);
  }
}

TEST(IndexedDuplicates, DestroysTheSameObjectsInTheSameOrderAsThePlainSearch) {
  Random random;
  std::size_t destroyed = 0;
  for (const Family family : kFamilies) {
    for (int i = 0; i < kListsPerFamily; ++i) {
      SCOPED_TRACE(testing::Message() << "family " << static_cast<int>(family) << " list " << i);
      std::vector<Plan> plans = PlanList(family, random);
      Redraw(plans, random);
      const Outcome plain = OutcomeOf(plans, RemoveDuplicatesPlain);
      ASSERT_EQ(OutcomeOf(plans, RemoveDuplicatesIndexed), plain);
      ASSERT_EQ(OutcomeOf(plans, [](GX3DElmList& list) { list.RemoveDuplicates(); }), plain);
      destroyed += plain.destroyed.size();
    }
  }
  // Lists without duplicates would prove nothing: on average each holds some.
  EXPECT_GT(destroyed, 5U * kFamilies.size() * kListsPerFamily);
}

// The index by itself

/// The answer that the index is to give, by asking all: `dropped` positions do not count.
std::size_t FirstByAsking(const std::vector<double>& places, const std::vector<bool>& dropped,
                          double place) {
  for (std::size_t i = 0; i < places.size(); ++i) {
    const bool coincide = places[i] == place || std::fabs(places[i] - place) <= kTolerance;
    if (!dropped[i] && coincide) return i;
  }
  return EndPointIndex<1>::kNone;
}

/// Numbers of all sizes near one another: neighbouring doubles, and steps around the tolerance.
double Near(double x, Random& random) {
  const double step = random.Bool() ? 0.5 * kTolerance * random.Int(-3, 3) : 0.0;
  x += step;
  for (int i = random.Int(0, 3); i > 0; --i) {
    x = std::nextafter(x, random.Bool() ? kInfinity : -kInfinity);
  }
  return x;
}

TEST(EndPointIndex, FindsTheFirstCoincidingPlaceAtEveryMagnitude) {
  Random random;
  for (int round = 0; round < 400; ++round) {
    SCOPED_TRACE(testing::Message() << "round " << round);
    // Up to the size at which neighbouring doubles are further apart than the cells are wide.
    const double center = std::exp2(random.Between(-20.0, 60.0)) * (random.Bool() ? 1.0 : -1.0);
    std::vector<double> places(40);
    for (double& place : places) place = Near(center, random);
    EndPointIndex<1> index(places.size());
    std::vector<bool> dropped(places.size(), false);
    for (std::size_t i = places.size(); i-- > 0;) index.Add(i, {places[i]});
    for (int query = 0; query < 60; ++query) {
      const double place = Near(center, random);
      const std::size_t first = index.First({place});
      ASSERT_EQ(first, FirstByAsking(places, dropped, place)) << place;
      if (first == EndPointIndex<1>::kNone) continue;
      dropped[first] = true;
      index.Drop(first);
    }
  }
}

TEST(EndPointIndex, FindsEachEndOnceWhereCellsShareABucket) {
  // Around the origin eight cells meet; an index for one position has two buckets for them.
  EndPointIndex<3> index(1);
  index.Add(0, {0.0, 0.0, 0.0});
  index.Add(0, {0.5 * kTolerance, -0.5 * kTolerance, 0.0});
  std::vector<std::size_t> positions;
  index.AppendAll({0.0, 0.0, 0.0}, positions);
  EXPECT_EQ(positions, (std::vector<std::size_t>{0, 0}));
  EXPECT_LE(index.CrowdAt({0.0, 0.0, 0.0}), 2U);
}

}  // namespace
