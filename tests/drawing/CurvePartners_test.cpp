#include "drawing/CurvePartners.h"

#include "PartSketch.h"
#include "drawing/PartCurves.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstddef>

namespace {

using drawing::CurvePartnerSearch;
using drawing::PartCurves;
using support::CircleContour;
using support::PartSketch;
using support::RectangleContour;

constexpr std::size_t kNone = static_cast<std::size_t>(-1);

PartSketch Plate(const PartSketch& cutOuts) {
  PartSketch plate = {RectangleContour(0, 0, 100, 60)};
  plate.insert(plate.end(), cutOuts.begin(), cutOuts.end());
  return plate;
}

CurvePartnerSearch Search(const PartSketch& a, const PartSketch& b) {
  const drawing::PartModel partA = support::PartOf(a);
  const drawing::PartModel partB = support::PartOf(b);
  const PartCurves curvesA(partA, false);
  const PartCurves curvesB(partB, false);
  drawing::DeviationMeter meter;
  return drawing::CurvePartners(curvesA, curvesB).Search({}, 0.05, meter);
}

TEST(CurvePartners, FindsThoseWithinTheLimit) {
  const PartSketch a =
      Plate({CircleContour(20, 20, 6), CircleContour(50, 20, 5), CircleContour(80, 20, 4)});
  const PartSketch b = Plate(
      {CircleContour(20, 20, 6.04), CircleContour(50.06, 20, 5), CircleContour(80, 20.04, 4)});
  const CurvePartnerSearch search = Search(a, b);
  EXPECT_EQ(search.found, 2u);
  ASSERT_EQ(search.partners.size(), 3u);
  EXPECT_EQ(search.partners[0].b, 0u);
  EXPECT_NEAR(search.partners[0].deviation.distance, 0.04, 1e-12);
  EXPECT_EQ(search.partners[1].b, kNone);
  EXPECT_EQ(search.partners[2].b, 2u);
  EXPECT_NEAR(search.partners[2].deviation.distance, 0.04, 0.001);
  EXPECT_EQ(search.taken, (std::vector<bool>{true, false, true}));
}

TEST(CurvePartners, TellsShapesOfTheSameSizeApart) {
  const double side = 6.0 / std::sqrt(2.0);
  const PartSketch round = Plate({CircleContour(20, 20, 6)});
  const PartSketch square = Plate({RectangleContour(20 - side, 20 - side, 20 + side, 20 + side)});
  EXPECT_EQ(Search(round, square).found, 0u);
  EXPECT_EQ(Search(square, square).found, 1u);
}

TEST(CurvePartners, GivesTheNearestThatIsFree) {
  const PartSketch a = Plate({CircleContour(20, 20, 4), CircleContour(20.02, 20, 4)});
  const PartSketch b = Plate({CircleContour(20.02, 20, 4), CircleContour(20, 20, 4)});
  const CurvePartnerSearch search = Search(a, b);
  ASSERT_EQ(search.found, 2u);
  EXPECT_LT(search.partners[0].deviation.distance, 1e-12);
  EXPECT_LT(search.partners[1].deviation.distance, 1e-12);
  EXPECT_NE(search.partners[0].b, search.partners[1].b);
}

}  // namespace
