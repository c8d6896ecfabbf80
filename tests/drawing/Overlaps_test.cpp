#include "drawing/Overlaps.h"

#include "DrawingSketch.h"
#include "support/Random.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <limits>
#include <memory>
#include <tuple>
#include <vector>

namespace drawing {
namespace {

using support::AddArc;
using support::AddCircle;
using support::AddElement;
using support::AddLine;

using Told = std::vector<std::tuple<OverlapKind, std::size_t, std::size_t>>;

Told AsTold(const std::vector<Overlap>& overlaps) {
  Told told;
  for (const Overlap& overlap : overlaps) {
    told.emplace_back(overlap.kind, overlap.keeper, overlap.other);
  }
  return told;
}

Told Found(const Drawing& drawing) { return AsTold(FindOverlaps(drawing)); }
Told Removable(const Drawing& drawing) {
  return AsTold(RemovableOverlaps(drawing, FindOverlaps(drawing)));
}

constexpr OverlapKind kDuplicate = OverlapKind::kDuplicate;
constexpr OverlapKind kContained = OverlapKind::kContained;
constexpr OverlapKind kPartial = OverlapKind::kPartial;

TEST(FindOverlaps, TellsALineDrawnTwiceInEitherDirection) {
  Drawing drawing;
  AddLine(drawing, 0, 0, 10, 0);
  AddLine(drawing, 10, 0, 0, 0);
  AddLine(drawing, 0, 5, 10, 5);
  AddLine(drawing, 0, 0.0005, 10, 0);
  const auto overlaps = FindOverlaps(drawing);
  EXPECT_EQ(AsTold(overlaps), (Told{{kDuplicate, 0, 1}, {kDuplicate, 0, 3}}));
  EXPECT_EQ(overlaps[0].length, 10.0);
  EXPECT_TRUE(overlaps[0].place == GX2DPoint(5, 0));
}

TEST(FindOverlaps, TellsLinesBesideOneAnotherApart) {
  Drawing drawing;
  AddLine(drawing, 0, 0, 10, 0);
  AddLine(drawing, 0, 0.0011, 10, 0.0011);
  AddLine(drawing, 10, 0, 20, 0);      // Goes on where the first one ends.
  AddLine(drawing, 20.5, 0, 30, 0);    // Farther along.
  AddLine(drawing, 5, -5, 5, 5);       // Across.
  AddLine(drawing, 0, -0.1, 10, 0.1);  // At a small angle.
  EXPECT_TRUE(Found(drawing).empty());
}

TEST(FindOverlaps, TellsALineWithinAnotherWithTheStretch) {
  Drawing drawing;
  AddLine(drawing, 3, 4, 6, 8);
  AddLine(drawing, 0, 0, 30, 40);
  const auto overlaps = FindOverlaps(drawing);
  ASSERT_EQ(AsTold(overlaps), (Told{{kContained, 1, 0}}));
  EXPECT_NEAR(overlaps[0].length, 5.0, 1e-12);
  EXPECT_NEAR(overlaps[0].place.X, 4.5, 1e-12);
  EXPECT_NEAR(overlaps[0].place.Y, 6.0, 1e-12);
}

TEST(FindOverlaps, TellsLinesThatOverlapInPart) {
  Drawing drawing;
  AddLine(drawing, 0, 0, 10, 0);
  AddLine(drawing, 25, 0, 7, 0);
  const auto overlaps = FindOverlaps(drawing);
  ASSERT_EQ(AsTold(overlaps), (Told{{kPartial, 0, 1}}));
  EXPECT_NEAR(overlaps[0].length, 3.0, 1e-12);
  EXPECT_NEAR(overlaps[0].place.X, 8.5, 1e-12);
}

TEST(FindOverlaps, PassesOverStretchesOfTheTolerance) {
  Drawing drawing;
  AddLine(drawing, 0, 0, 10, 0);
  AddLine(drawing, 9.999, 0, 20, 0);
  EXPECT_TRUE(Found(drawing).empty());
  AddLine(drawing, 19.998, 0, 30, 0);
  EXPECT_EQ(Found(drawing), (Told{{kPartial, 1, 2}}));
}

TEST(FindOverlaps, TellsWhatIsHeldOnceAndByTheLongest) {
  Drawing drawing;
  AddLine(drawing, 4, 0, 6, 0);
  AddLine(drawing, 3, 0, 7, 0);
  AddLine(drawing, 0, 0, 10, 0);
  AddLine(drawing, 6, 0, 4, 0);   // A duplicate of what is held.
  AddLine(drawing, 5, 0, 15, 0);  // Overlaps with all of them.
  EXPECT_EQ(Found(drawing),
            (Told{{kContained, 2, 0}, {kContained, 2, 1}, {kDuplicate, 0, 3}, {kPartial, 2, 4}}));
}

TEST(FindOverlaps, TellsArcsDrawnTwiceWhateverTheirMidAndDirection) {
  Drawing drawing;
  AddArc(drawing, 0, 0, 5, 0, 120);
  AddArc(drawing, 0, 0, 5, 120, -120);
  AddArc(drawing, 0, 0, 5, 0, 120);
  // Its mid at twenty degrees and half the radius.
  auto& arc = static_cast<GX2DArc&>(*drawing.elements[2].element);
  arc.Mid = GX2DPoint(2.5 * std::cos(0.35), 2.5 * std::sin(0.35));
  AddArc(drawing, 0, 0, 5, 0, -240);  // The same ends the other way round.
  EXPECT_EQ(Found(drawing), (Told{{kDuplicate, 0, 1}, {kDuplicate, 0, 2}}));
}

TEST(FindOverlaps, TellsArcsOnOneCircle) {
  Drawing drawing;
  AddArc(drawing, 0, 0, 5, 350, 100);  // To 90 degrees.
  AddArc(drawing, 0, 0, 5, 60, -40);   // From 60 to 20, within.
  AddArc(drawing, 0, 0, 5, 80, 60);    // From 80 to 140: ten degrees in common.
  AddArc(drawing, 0, 0, 5, 140, 50);   // Touches only.
  AddArc(drawing, 0, 0, 5.01, 0, 80);  // Another radius.
  const auto overlaps = FindOverlaps(drawing);
  ASSERT_EQ(AsTold(overlaps), (Told{{kContained, 0, 1}, {kPartial, 0, 2}}));
  const double degree = 3.14159265358979323846 / 180.0;
  EXPECT_NEAR(overlaps[0].length, 5.0 * 40.0 * degree, 1e-9);
  EXPECT_NEAR(overlaps[1].length, 5.0 * 10.0 * degree, 1e-9);
  EXPECT_NEAR(overlaps[1].place.X, 5.0 * std::cos(85.0 * degree), 1e-9);
}

TEST(FindOverlaps, TellsArcsThatMeetAtBothEnds) {
  Drawing drawing;
  AddArc(drawing, 0, 0, 5, 0, 200);
  AddArc(drawing, 0, 0, 5, 190, 190);  // To 380: ten degrees there, twenty here.
  const auto overlaps = FindOverlaps(drawing);
  ASSERT_EQ(AsTold(overlaps), (Told{{kPartial, 0, 1}}));
  EXPECT_NEAR(overlaps[0].length, 5.0 * 30.0 * 3.14159265358979323846 / 180.0, 1e-9);
}

TEST(FindOverlaps, TellsCirclesDrawnTwiceAndArcsWithinThem) {
  Drawing drawing;
  AddCircle(drawing, 10, 10, 4);
  AddElement(drawing, std::make_unique<GX2DArc>(GX2DPoint(10, 10), GX2DPoint(10, 14),
                                                GX2DPoint(6, 10), GX2DPoint(10, 14)));
  AddArc(drawing, 10, 10, 4, 300, 130);
  AddCircle(drawing, 10, 10, 4.5);
  EXPECT_EQ(Found(drawing), (Told{{kDuplicate, 0, 1}, {kContained, 0, 2}}));
}

TEST(FindOverlaps, NeverTellsALineWithAnArc) {
  Drawing drawing;
  AddLine(drawing, 0, 0, 1, 0);
  // From end to end of the line, nowhere farther from it than 0.0001.
  const double radius = 1250.0;
  const double half = std::asin(0.5 / radius);
  AddElement(drawing, std::make_unique<GX2DArc>(
                          GX2DPoint(0.5, radius * std::cos(half)), GX2DPoint(0, 0),
                          GX2DPoint(0.5, radius * std::cos(half) - radius), GX2DPoint(1, 0)));
  EXPECT_TRUE(Found(drawing).empty());
}

TEST(FindOverlaps, PassesOverWhatIsNotFiniteOrMissing) {
  Drawing drawing;
  const double nan = std::numeric_limits<double>::quiet_NaN();
  const double infinity = std::numeric_limits<double>::infinity();
  for (int i = 0; i < 2; ++i) {
    AddLine(drawing, nan, 0, 10, 0);
    AddLine(drawing, 0, 0, infinity, 0);
    AddLine(drawing, 1e308, 0, -1e308, 0);
    AddLine(drawing, 5, 5, 5, 5);
    AddCircle(drawing, nan, 0, 1);
    drawing.elements.push_back({nullptr, 0});
  }
  EXPECT_TRUE(Found(drawing).empty());
  EXPECT_TRUE(Removable(drawing).empty());
}

// By comparing each with each, in the words of the definition; lines only, whose ends are whole
// numbers, so that all is exact.
Told PlainOverlaps(const Drawing& drawing) {
  struct Bar {
    long x1, y1, x2, y2;
    std::size_t index;
  };
  std::vector<Bar> bars;
  Told told;
  for (std::size_t i = 0; i < drawing.elements.size(); ++i) {
    const auto& line = static_cast<const GX2DLine&>(*drawing.elements[i].element);
    Bar bar = {std::lround(line.Start.X), std::lround(line.Start.Y), std::lround(line.End.X),
               std::lround(line.End.Y), i};
    if (std::tie(bar.x1, bar.y1) == std::tie(bar.x2, bar.y2)) continue;
    if (std::tie(bar.x2, bar.y2) < std::tie(bar.x1, bar.y1)) {
      std::swap(bar.x1, bar.x2);
      std::swap(bar.y1, bar.y2);
    }
    const auto same = std::find_if(bars.begin(), bars.end(), [&](const Bar& other) {
      return std::tie(bar.x1, bar.y1, bar.x2, bar.y2) ==
             std::tie(other.x1, other.y1, other.x2, other.y2);
    });
    if (same != bars.end()) {
      told.emplace_back(kDuplicate, same->index, i);
    } else {
      bars.push_back(bar);
    }
  }
  const auto squareLength = [](const Bar& bar) {
    return (bar.x2 - bar.x1) * (bar.x2 - bar.x1) + (bar.y2 - bar.y1) * (bar.y2 - bar.y1);
  };
  std::stable_sort(bars.begin(), bars.end(),
                   [&](const Bar& a, const Bar& b) { return squareLength(a) > squareLength(b); });
  const auto isOn = [](const Bar& bar, long x, long y) {
    return (bar.x2 - bar.x1) * (y - bar.y1) == (bar.y2 - bar.y1) * (x - bar.x1);
  };
  std::vector<Bar> free;
  for (const Bar& bar : bars) {
    bool isHeld = false;
    Told partial;
    for (const Bar& longer : free) {
      if (!isOn(longer, bar.x1, bar.y1) || !isOn(longer, bar.x2, bar.y2)) continue;
      const auto from = std::max(std::tie(bar.x1, bar.y1), std::tie(longer.x1, longer.y1));
      const auto to = std::min(std::tie(bar.x2, bar.y2), std::tie(longer.x2, longer.y2));
      if (!(from < to)) continue;
      if (from == std::tie(bar.x1, bar.y1) && to == std::tie(bar.x2, bar.y2)) {
        told.emplace_back(kContained, longer.index, bar.index);
        isHeld = true;
        break;
      }
      partial.emplace_back(kPartial, std::min(longer.index, bar.index),
                           std::max(longer.index, bar.index));
    }
    if (isHeld) continue;
    free.push_back(bar);
    told.insert(told.end(), partial.begin(), partial.end());
  }
  std::sort(told.begin(), told.end(), [](const auto& a, const auto& b) {
    return std::make_tuple(std::get<2>(a), std::get<1>(a)) <
           std::make_tuple(std::get<2>(b), std::get<1>(b));
  });
  return told;
}

TEST(FindOverlaps, OfLinesIsThatOfComparingEachWithEach) {
  support::Random random;
  for (int i = 0; i < 500; ++i) {
    SCOPED_TRACE(i);
    Drawing drawing;
    const int extent = random.Int(2, 12);
    const int count = random.Int(1, 60);
    for (int k = 0; k < count; ++k) {
      const auto any = [&] { return static_cast<double>(random.Int(-extent, extent)); };
      const double x = any();
      const double y = any();
      AddLine(drawing, x, y, random.Bool() ? x : any(), any());
    }
    ASSERT_EQ(Found(drawing), PlainOverlaps(drawing));
  }
}

// The same of arcs of whole degrees, none a full circle, on circles too different for an arc of
// twenty degrees to lie on two of them.
struct Bow {
  int circle, begin, sweep;
  std::size_t index;
};

// Shared degrees: how many, and whether all of the shorter one are.
bool ShareDegrees(const Bow& longer, const Bow& shorter, bool& holdsAll) {
  int shared = 0;
  for (int degree = 0; degree < shorter.sweep; ++degree) {
    const int along = (shorter.begin + degree - longer.begin + 720) % 360;
    if (along < longer.sweep) ++shared;
  }
  holdsAll = shared == shorter.sweep;
  return shared > 0;
}

Told PlainArcOverlaps(const std::vector<Bow>& bows, const std::vector<double>& radii) {
  Told told;
  std::vector<Bow> first;
  for (const Bow& bow : bows) {
    const auto same = std::find_if(first.begin(), first.end(), [&](const Bow& other) {
      return std::tie(bow.circle, bow.begin, bow.sweep) ==
             std::tie(other.circle, other.begin, other.sweep);
    });
    if (same == first.end()) {
      first.push_back(bow);
    } else {
      told.emplace_back(kDuplicate, same->index, bow.index);
    }
  }
  const auto length = [&](const Bow& bow) {
    return radii[static_cast<std::size_t>(bow.circle)] * bow.sweep;
  };
  std::stable_sort(first.begin(), first.end(),
                   [&](const Bow& a, const Bow& b) { return length(a) > length(b); });
  std::vector<Bow> free;
  for (const Bow& bow : first) {
    bool holdsAll = false;
    Told partial;
    for (const Bow& longer : free) {
      if (longer.circle != bow.circle || !ShareDegrees(longer, bow, holdsAll)) continue;
      if (holdsAll) {
        told.emplace_back(kContained, longer.index, bow.index);
        break;
      }
      if (partial.size() == kMostPartialOverlaps) continue;
      partial.emplace_back(kPartial, std::min(longer.index, bow.index),
                           std::max(longer.index, bow.index));
    }
    if (holdsAll) continue;
    free.push_back(bow);
    told.insert(told.end(), partial.begin(), partial.end());
  }
  std::sort(told.begin(), told.end(), [](const auto& a, const auto& b) {
    return std::make_tuple(std::get<2>(a), std::get<1>(a)) <
           std::make_tuple(std::get<2>(b), std::get<1>(b));
  });
  return told;
}

TEST(FindOverlaps, OfArcsIsThatOfComparingEachWithEach) {
  support::Random random;
  for (int i = 0; i < 300; ++i) {
    SCOPED_TRACE(i);
    const int circles = random.Int(1, 12);
    std::vector<double> x;
    std::vector<double> radii;
    for (int k = 0; k < circles; ++k) {
      x.push_back(random.Int(0, 1));
      radii.push_back(5.0 + k);
    }
    // No two of one sweep but for copies: of arcs that are equally long rounding chooses.
    std::vector<int> sweeps;
    for (int sweep = 20; sweep < 340; ++sweep) sweeps.push_back(sweep);
    std::shuffle(sweeps.begin(), sweeps.end(), random.Engine());
    Drawing drawing;
    std::vector<Bow> bows;
    const int count = random.Int(1, 80);
    for (std::size_t k = 0; k < static_cast<std::size_t>(count); ++k) {
      Bow bow = {random.Int(0, circles - 1), random.Int(0, 359), sweeps[k], k};
      if (k > 0 && random.Int(0, 3) == 0) {
        bow = bows[static_cast<std::size_t>(random.Int(0, static_cast<int>(k) - 1))];
        bow.index = k;
      }
      const auto circle = static_cast<std::size_t>(bow.circle);
      const bool turned = random.Bool();
      AddArc(drawing, x[circle], 0, radii[circle], turned ? bow.begin + bow.sweep : bow.begin,
             turned ? -bow.sweep : bow.sweep);
      bows.push_back(bow);
    }
    ASSERT_EQ(Found(drawing), PlainArcOverlaps(bows, radii));
  }
}

TEST(FindOverlaps, OfFiftyThousandArcsAboutOneCentreIsQuick) {
  // Comparing each with each would take minutes.
  Drawing drawing;
  for (int i = 0; i < 50000; ++i) AddArc(drawing, 3, 4, 1.0 + 0.01 * i, 0, 90);
  AddArc(drawing, 3, 4, 1.0 + 0.01 * 777, 10, 30);
  EXPECT_EQ(Found(drawing), (Told{{kContained, 777, 50000}}));
}

TEST(RemovableOverlaps, TakesDuplicatesOutOfAContour) {
  Drawing drawing;
  for (int i = 0; i < 3; ++i) {
    AddLine(drawing, 0, 0, 10, 0);
    AddLine(drawing, 10, 10, 10, 0);
    AddLine(drawing, 10, 10, 0, 0);
  }
  EXPECT_EQ(Removable(drawing).size(), 6u);
}

TEST(RemovableOverlaps, TakesTheOnlyCopyOfALooseLine) {
  Drawing drawing;
  AddLine(drawing, 0, 0, 10, 0);
  AddLine(drawing, 10, 0, 0, 0);
  EXPECT_EQ(Removable(drawing), (Told{{kDuplicate, 0, 1}}));
}

TEST(RemovableOverlaps, TakesAStretchThatMeetsNothing) {
  Drawing drawing;
  AddLine(drawing, 0, 0, 10, 0);
  AddLine(drawing, 2, 0, 4, 0);
  EXPECT_EQ(Removable(drawing), (Told{{kContained, 0, 1}}));
}

TEST(RemovableOverlaps, LeavesAStretchThatABranchEndsOn) {
  Drawing drawing;
  AddLine(drawing, 0, 0, 10, 0);
  AddLine(drawing, 0, 0, 4, 0);
  AddLine(drawing, 4, 0, 4, 9);
  EXPECT_TRUE(Removable(drawing).empty());
}

TEST(RemovableOverlaps, TakesAChainThatALongLineCovers) {
  Drawing drawing;
  AddLine(drawing, 0, 0, 3, 0);
  AddLine(drawing, 3, 0, 7, 0);
  AddLine(drawing, 10, 0, 7, 0);
  AddLine(drawing, 0, 0, 10, 0);
  AddLine(drawing, 0, 0, 0, 5);
  AddLine(drawing, 10, 0, 10, 5);
  EXPECT_EQ(Removable(drawing), (Told{{kContained, 3, 0}, {kContained, 3, 1}, {kContained, 3, 2}}));
}

TEST(RemovableOverlaps, LeavesACoveredChainWithABranchAsAWhole) {
  Drawing drawing;
  AddLine(drawing, 0, 0, 3, 0);
  AddLine(drawing, 3, 0, 10, 0);
  AddLine(drawing, 0, 0, 10, 0);
  AddLine(drawing, 3, 0, 3, 5);
  EXPECT_TRUE(Removable(drawing).empty());
}

TEST(RemovableOverlaps, LeavesAFoldOfAContour) {
  // Out to 10, back to 6 and up: without the way back the contour is open.
  Drawing drawing;
  AddLine(drawing, 0, 0, 10, 0);
  AddLine(drawing, 10, 0, 6, 0);
  AddLine(drawing, 6, 0, 6, 5);
  AddLine(drawing, 6, 5, 0, 0);
  EXPECT_EQ(Found(drawing), (Told{{kContained, 0, 1}}));
  EXPECT_TRUE(Removable(drawing).empty());
}

TEST(RemovableOverlaps, LeavesACopyThatTheContourHangsOn) {
  // The earlier copy is 0.0005 beside the contour and meets nothing.
  Drawing drawing;
  AddLine(drawing, 0, 0.0005, 10, 0.0005);
  AddLine(drawing, 0, 0, 10, 0);
  AddLine(drawing, 10, 0, 5, 8);
  AddLine(drawing, 5, 8, 0, 0);
  EXPECT_EQ(Found(drawing), (Told{{kDuplicate, 0, 1}}));
  EXPECT_EQ(Removable(drawing), (Told{{kDuplicate, 1, 0}}));
  // Now something hangs on the earlier copy as well: both stay.
  AddLine(drawing, 0, 0.0005, -5, 3);
  EXPECT_TRUE(Removable(drawing).empty());
}

TEST(RemovableOverlaps, LeavesOneOfManyCopiesThatTheContourHangsOn) {
  Drawing drawing;
  AddLine(drawing, 0, 0.0005, 10, 0.0005);
  AddLine(drawing, 0, 0, 10, 0);
  AddLine(drawing, 10, 0, 5, 8);
  AddLine(drawing, 5, 8, 0, 0);
  AddLine(drawing, 0, 0, 10, 0);
  AddLine(drawing, 10, 0.0009, 0, 0.0009);
  EXPECT_EQ(Removable(drawing), (Told{{kDuplicate, 1, 0}, {kDuplicate, 1, 4}, {kDuplicate, 0, 5}}));
}

TEST(RemovableOverlaps, TakesWhatIsDrawnTwiceWithinAnother) {
  Drawing drawing;
  AddLine(drawing, 4, 0, 6, 0);
  AddLine(drawing, 0, 0, 10, 0);
  AddLine(drawing, 6, 0, 4, 0);
  EXPECT_EQ(Removable(drawing), (Told{{kContained, 1, 0}, {kDuplicate, 0, 2}}));
}

// Each line overlaps all before it; from the ninth on only eight of them are told.
TEST(FindOverlaps, TellsAFewPartialOverlapsOfMany) {
  Drawing drawing;
  for (int i = 0; i < 20; ++i) AddLine(drawing, 0.5 * i, 0, 10 + 0.5 * i, 0);
  const Told told = Found(drawing);
  EXPECT_EQ(told.size(), 28u + 12u * kMostPartialOverlaps);
  EXPECT_TRUE(std::all_of(told.begin(), told.end(),
                          [](const auto& one) { return std::get<0>(one) == kPartial; }));
}

TEST(RemovableOverlaps, NeverTakesPartialOnes) {
  Drawing drawing;
  AddLine(drawing, 0, 0, 10, 0);
  AddLine(drawing, 5, 0, 15, 0);
  EXPECT_TRUE(Removable(drawing).empty());
}

}  // namespace
}  // namespace drawing
