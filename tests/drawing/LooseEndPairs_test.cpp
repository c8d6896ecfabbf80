#include "drawing/LooseEndPairs.h"

#include "support/Random.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <limits>
#include <memory>
#include <numeric>
#include <tuple>
#include <vector>

namespace drawing {
namespace {

constexpr double kInfinity = std::numeric_limits<double>::infinity();

void AddLine(Drawing& drawing, double x1, double y1, double x2, double y2) {
  drawing.elements.push_back({std::make_unique<GX2DLine>(x1, y1, x2, y2), 0});
}

std::vector<LooseEndPair> Pairs(const Drawing& drawing, double gap) {
  return PairLooseEnds(drawing, FindNetworks(drawing), gap);
}

// An end as one number: twice its element, one more for its end.
std::size_t NumberOf(const LooseEnd& end) { return 2 * end.element + (end.atStart ? 0 : 1); }

using Plain = std::vector<std::tuple<double, std::size_t, std::size_t>>;

Plain AsPlain(const std::vector<LooseEndPair>& pairs) {
  Plain plain;
  for (const LooseEndPair& pair : pairs) {
    plain.emplace_back(pair.distance, NumberOf(pair.first), NumberOf(pair.second));
  }
  return plain;
}

TEST(PairLooseEnds, OfNothingAreNone) { EXPECT_TRUE(Pairs(Drawing(), kInfinity).empty()); }

TEST(PairLooseEnds, TakesTheNearestFirst) {
  // In a row, with gaps of 0.5 and 0.25.
  Drawing drawing;
  AddLine(drawing, 0, 0, 10, 0);
  AddLine(drawing, 10.5, 0, 20, 0);
  AddLine(drawing, 20.25, 0, 30, 0);
  const auto pairs = Pairs(drawing, 1.0);
  ASSERT_EQ(pairs.size(), 2u);
  EXPECT_EQ(pairs[0].distance, 0.25);
  EXPECT_EQ(pairs[0].first.element, 1u);
  EXPECT_FALSE(pairs[0].first.atStart);
  EXPECT_EQ(pairs[0].second.element, 2u);
  EXPECT_TRUE(pairs[0].second.atStart);
  EXPECT_EQ(pairs[1].distance, 0.5);
}

TEST(PairLooseEnds, TakesTheGapInclusively) {
  Drawing drawing;
  AddLine(drawing, 0, 0, 8, 0);
  AddLine(drawing, 8.25, 0, 16, 0);
  EXPECT_EQ(Pairs(drawing, 0.25).size(), 1u);
  EXPECT_TRUE(Pairs(drawing, std::nextafter(0.25, 0.0)).empty());
}

TEST(PairLooseEnds, MeasuresAlongNeitherAxis) {
  Drawing drawing;
  AddLine(drawing, 0, 0, 10, 0);
  AddLine(drawing, 13, 4, 20, 10);  // Three across and four up: five away.
  ASSERT_EQ(Pairs(drawing, 5.0).size(), 1u);
  EXPECT_EQ(Pairs(drawing, 5.0)[0].distance, 5.0);
  EXPECT_TRUE(Pairs(drawing, 4.9).empty());
}

TEST(PairLooseEnds, ClosesAChainOfMoreThanFourTimesItsGap) {
  // Three sides of 1, 1 and 0.9 around a gap of 0.1 and the last side of 1 missing: the ends are
  // hypot(1, 0.1) apart, and 2.9 is less than four times that; of longer sides it is more.
  Drawing small;
  AddLine(small, 0, 0, 1, 0);
  AddLine(small, 1, 0, 1, 1);
  AddLine(small, 1, 1, 0.1, 1);
  EXPECT_TRUE(Pairs(small, kInfinity).empty());
  Drawing large;
  AddLine(large, 0, 0, 3, 0);
  AddLine(large, 3, 0, 3, 1);
  AddLine(large, 3, 1, 0.1, 1);
  EXPECT_EQ(Pairs(large, kInfinity).size(), 1u);
}

TEST(PairLooseEnds, NeverLaysTwoLinesOnOneAnother) {
  Drawing drawing;
  AddLine(drawing, 0, 0, 10, 0);
  AddLine(drawing, 10, 0, 0, 0.05);
  EXPECT_TRUE(Pairs(drawing, kInfinity).empty());
}

TEST(PairLooseEnds, ClosesAnArcOnItself) {
  Drawing drawing;
  const double a = 0.005;
  drawing.elements.push_back(
      {std::make_unique<GX2DArc>(GX2DPoint(0, 0), GX2DPoint(std::cos(a), std::sin(a)),
                                 GX2DPoint(-1, 0), GX2DPoint(std::cos(a), -std::sin(a))),
       0});
  const auto pairs = Pairs(drawing, 0.1);
  ASSERT_EQ(pairs.size(), 1u);
  EXPECT_TRUE(pairs[0].first.atStart);
  EXPECT_FALSE(pairs[0].second.atStart);
  EXPECT_NEAR(pairs[0].distance, 2.0 * std::sin(a), 1e-15);
}

TEST(PairLooseEnds, CountsThePairWithTheEarlierElementsOfEquallyNearOnes) {
  // Ends at the corners of a square: each has two others one away.
  Drawing drawing;
  AddLine(drawing, 0, 0, -50, 0);
  AddLine(drawing, 1, 1, 50, 50);
  AddLine(drawing, 1, 0, 50, -50);
  AddLine(drawing, 0, 1, -50, 70);
  const auto pairs = Pairs(drawing, 1.0);
  ASSERT_EQ(pairs.size(), 2u);
  EXPECT_EQ(pairs[0].first.element, 0u);
  EXPECT_EQ(pairs[0].second.element, 2u);
  EXPECT_EQ(pairs[1].first.element, 1u);
  EXPECT_EQ(pairs[1].second.element, 3u);
}

TEST(PairLooseEnds, LeavesEndsAloneThatMeetOthers) {
  // The side of 0.02 is far shorter than the gap.
  Drawing drawing;
  AddLine(drawing, 0, 0, 10, 0);
  AddLine(drawing, 10, 0, 10, 0.02);
  AddLine(drawing, 10, 0.02, 0, 7);
  const auto pairs = Pairs(drawing, 0.5);
  EXPECT_TRUE(pairs.empty());
}

TEST(PairLooseEnds, PassesOverWhatIsNotFinite) {
  Drawing drawing;
  const double nan = std::numeric_limits<double>::quiet_NaN();
  AddLine(drawing, 0, 0, 10, 0);
  AddLine(drawing, nan, 0, 10.5, 0);
  AddLine(drawing, kInfinity, 0, 20, kInfinity);
  drawing.elements.push_back({nullptr, 0});
  EXPECT_EQ(Pairs(drawing, kInfinity).size(), 1u);
  EXPECT_TRUE(Pairs(drawing, nan).empty());
  EXPECT_TRUE(Pairs(drawing, -1.0).empty());
}

// All pairs of loose ends, nearest first, by comparing each with each.
class PlainPairs {
 public:
  explicit PlainPairs(const Drawing& drawing) {
    for (const Network& network : FindNetworks(drawing)) AddNetwork(drawing, network);
  }

  Plain Run(double gap) {
    Plain all;
    for (std::size_t i = 0; i < ends_.size(); ++i) {
      for (std::size_t j = i + 1; j < ends_.size(); ++j) {
        const auto [first, second] = std::minmax(ends_[i].number, ends_[j].number);
        const double distance =
            std::hypot(ends_[i].place.X - ends_[j].place.X, ends_[i].place.Y - ends_[j].place.Y);
        if (distance <= gap) all.emplace_back(distance, first, second);
      }
    }
    std::sort(all.begin(), all.end());
    Plain taken;
    for (const auto& pair : all) {
      if (Take(EndOf(std::get<1>(pair)), EndOf(std::get<2>(pair)), std::get<0>(pair))) {
        taken.push_back(pair);
      }
    }
    return taken;
  }

 private:
  struct End {
    std::size_t number;
    GX2DPoint place;
    std::size_t chain;
    bool taken;
  };
  struct Chain {
    double length;
    std::size_t lines;
    bool branches;
  };

  void AddNetwork(const Drawing& drawing, const Network& network) {
    Chain chain = {0.0, 0, network.kind != NetworkKind::kOpen};
    for (const std::size_t i : network.elements) {
      chain.length += drawing.elements[i].element->Len();
      ++chain.lines;
    }
    for (const LooseEnd& end : network.looseEnds) {
      ends_.push_back({NumberOf(end), end.point, chains_.size(), false});
    }
    chains_.push_back(chain);
  }

  End& EndOf(std::size_t number) {
    return *std::find_if(ends_.begin(), ends_.end(),
                         [&](const End& end) { return end.number == number; });
  }

  bool Take(End& a, End& b, double distance) {
    if (a.taken || b.taken) return false;
    Chain& chain = chains_[a.chain];
    if (a.chain == b.chain) {
      if (!chain.branches && (chain.lines <= 2 || !(chain.length > 4.0 * distance))) return false;
    } else {
      const Chain& other = chains_[b.chain];
      chain = {chain.length + other.length, chain.lines + other.lines,
               chain.branches || other.branches};
      const std::size_t gone = b.chain;
      for (End& end : ends_) {
        if (end.chain == gone) end.chain = a.chain;
      }
    }
    a.taken = true;
    b.taken = true;
    return true;
  }

  std::vector<End> ends_;
  std::vector<Chain> chains_;
};

// Lines between places of a coarse grid now and then, so that ends meet and distances are equal.
Drawing RandomLines(support::Random& random) {
  Drawing drawing;
  const int count = random.Int(1, 40);
  const bool onGrid = random.Bool();
  const double extent = random.Bool() ? 3.0 : 30.0;
  const auto place = [&] {
    const GX2DPoint p = random.Point2D(extent);
    return onGrid ? GX2DPoint(std::round(p.X), std::round(p.Y)) : p;
  };
  for (int i = 0; i < count; ++i) {
    const GX2DPoint p = place();
    const GX2DPoint q = random.Bool() ? place() : GX2DPoint(p.X + 0.3, p.Y + 0.1);
    AddLine(drawing, p.X, p.Y, q.X, q.Y);
  }
  return drawing;
}

TEST(PairLooseEnds, IsThatOfComparingEachWithEach) {
  support::Random random;
  for (int i = 0; i < 600; ++i) {
    SCOPED_TRACE(i);
    const Drawing drawing = RandomLines(random);
    const double gap = random.Bool() ? kInfinity : random.Between(0.0, 5.0);
    ASSERT_EQ(AsPlain(Pairs(drawing, gap)), PlainPairs(drawing).Run(gap));
  }
}

TEST(PairLooseEnds, GivesTheFirstPairsOfALargerGapForASmallerOne) {
  support::Random random;
  for (int i = 0; i < 300; ++i) {
    SCOPED_TRACE(i);
    const Drawing drawing = RandomLines(random);
    Plain all = AsPlain(Pairs(drawing, kInfinity));
    const double gap = random.Between(0.0, 4.0);
    all.erase(std::find_if(all.begin(), all.end(),
                           [&](const auto& pair) { return std::get<0>(pair) > gap; }),
              all.end());
    ASSERT_EQ(AsPlain(Pairs(drawing, gap)), all);
  }
}

}  // namespace
}  // namespace drawing
