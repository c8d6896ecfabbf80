#include "drawing/OutlineStrip.h"

#include "PartSketch.h"
#include "drawing/ComparisonFindings.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <vector>

namespace {

using support::PartOf;

// Lengths 60, 20, 30, 30, 30, 50 from the origin on; the corner behind the third side is
// re-entrant.
const support::SketchContour kAngle = support::PolygonContour(
    {{0.0, 0.0}, {60.0, 0.0}, {60.0, 20.0}, {30.0, 20.0}, {30.0, 50.0}, {0.0, 50.0}});

drawing::OutlineStrip Strip(const drawing::PartModel& a, const drawing::PartModel& b) {
  return drawing::AlignOutlines(a, b, drawing::CompareParts(a, b, {}));
}

support::SketchContour StartedAt(support::SketchContour contour, int side) {
  std::rotate(contour.begin(), contour.begin() + side, contour.end());
  return contour;
}

// Rows of the two-sided strip with that property.
template <typename Property>
std::vector<drawing::StripRow> Rows(const drawing::OutlineStrip& strip, const Property& property) {
  std::vector<drawing::StripRow> rows;
  std::copy_if(strip.rows.begin(), strip.rows.end(), std::back_inserter(rows), property);
  return rows;
}

// Both sides must run through the figures of kAngle, beginning with the longest side.
void ExpectAngle(const drawing::OutlineStrip& strip) {
  const std::vector<double> lengths = {60.0, 20.0, 30.0, 30.0, 30.0, 50.0};
  const std::vector<double> degrees = {90.0, 90.0, 270.0, 90.0, 90.0, 90.0};
  ASSERT_EQ(strip.rows.size(), lengths.size());
  EXPECT_TRUE(strip.matched);
  for (std::size_t i = 0; i < lengths.size(); ++i) {
    SCOPED_TRACE(i);
    const drawing::StripRow& row = strip.rows[i];
    // Turned and shifted coordinates carry rounding of about 1e-13.
    EXPECT_NEAR(strip.a[row.a].length, lengths[i], 1e-9);
    EXPECT_NEAR(strip.b[row.b].length, lengths[i], 1e-9);
    EXPECT_NEAR(drawing::InnerDegrees(row.angleA), degrees[i], 1e-9);
    EXPECT_NEAR(drawing::InnerDegrees(row.angleB), degrees[i], 1e-9);
    EXPECT_FALSE(row.Differs());
  }
  EXPECT_EQ(drawing::FirstDifference(strip), strip.rows.size());
}

TEST(AlignOutlines, BeginsWithTheMatchedStartOfAPartThatIsDrawnFromAnotherCorner) {
  const auto a = PartOf({kAngle});
  for (int side = 0; side < 6; ++side) {
    SCOPED_TRACE(side);
    const auto b = PartOf(support::Moved({StartedAt(kAngle, side)}, 0.7, 100.0, -40.0));
    const auto strip = Strip(a, b);
    EXPECT_FALSE(strip.backward);
    ExpectAngle(strip);
  }
}

TEST(AlignOutlines, WalksAPartBackwardThatIsDrawnTheOtherWayRound) {
  const auto a = PartOf({StartedAt(kAngle, 2)});
  for (int side = 0; side < 6; ++side) {
    SCOPED_TRACE(side);
    const auto b =
        PartOf(support::Moved({StartedAt(support::Reversed(kAngle), side)}, -1.1, 7.0, 3.0));
    const auto strip = Strip(a, b);
    EXPECT_TRUE(strip.backward);
    ExpectAngle(strip);
  }
}

TEST(AlignOutlines, GivesWhatOneOutlineHasMoreARowOfItsOwn) {
  const auto a = PartOf({support::RectangleContour(0.0, 0.0, 100.0, 50.0)});
  // The corner at (100, 50) cut off by 5: sides 45 and 95, and one of 5 times the root of 2.
  const auto b = PartOf({support::PolygonContour(
      {{0.0, 0.0}, {100.0, 0.0}, {100.0, 45.0}, {95.0, 50.0}, {0.0, 50.0}})});
  const auto strip = Strip(a, b);
  ASSERT_EQ(strip.rows.size(), 5U);
  EXPECT_FALSE(strip.matched);
  const auto alone = Rows(strip, [](const drawing::StripRow& row) { return row.Alone(); });
  ASSERT_EQ(alone.size(), 1U);
  EXPECT_EQ(alone[0].a, drawing::kNoSegment);
  EXPECT_NEAR(strip.b[alone[0].b].length, 5.0 * std::sqrt(2.0), 1e-12);
  const auto changed = Rows(strip, [](const drawing::StripRow& row) { return row.lengthDiffers; });
  ASSERT_EQ(changed.size(), 2U);
  for (const drawing::StripRow& row : changed) {
    EXPECT_NEAR(strip.a[row.a].length - strip.b[row.b].length, 5.0, 1e-12);
  }
}

TEST(AlignOutlines, TellsTheRadiusThatDiffersBesidesTheLength) {
  const std::vector<GX2DPoint> corners = {{0.0, 0.0}, {100.0, 0.0}, {100.0, 60.0}, {0.0, 60.0}};
  const auto a = PartOf({support::RoundedPolygon(corners, {0.0, 0.0, 5.0, 0.0})});
  const auto b = PartOf({support::RoundedPolygon(corners, {0.0, 0.0, 8.0, 0.0})});
  const auto strip = Strip(a, b);
  const auto arcs = Rows(strip, [](const drawing::StripRow& row) { return row.radiusDiffers; });
  ASSERT_EQ(arcs.size(), 1U);
  EXPECT_NEAR(strip.a[arcs[0].a].radius, 5.0, 1e-9);
  EXPECT_NEAR(strip.b[arcs[0].b].radius, 8.0, 1e-9);
  EXPECT_TRUE(arcs[0].lengthDiffers);
  EXPECT_FALSE(arcs[0].kindDiffers);
  // Beside the arc stand the two sides that it shortens.
  EXPECT_EQ(Rows(strip, [](const drawing::StripRow& row) { return row.Differs(); }).size(), 3U);
}

TEST(AlignOutlines, TellsALineFromAnArcInItsPlace) {
  const std::vector<GX2DPoint> corners = {{0.0, 0.0}, {100.0, 0.0}, {100.0, 60.0}, {0.0, 60.0}};
  const auto a = PartOf({support::RoundedPolygon(corners, {0.0, 0.0, 5.0, 0.0})});
  const auto b = PartOf({support::PolygonContour(
      {{0.0, 0.0}, {100.0, 0.0}, {100.0, 55.0}, {95.0, 60.0}, {0.0, 60.0}})});
  const auto strip = Strip(a, b);
  ASSERT_EQ(strip.rows.size(), 5U);
  const std::size_t first = drawing::FirstDifference(strip);
  ASSERT_LT(first, strip.rows.size());
  const auto kinds = Rows(strip, [](const drawing::StripRow& row) { return row.kindDiffers; });
  ASSERT_EQ(kinds.size(), 1U);
  EXPECT_TRUE(strip.a[kinds[0].a].isArc);
  EXPECT_FALSE(strip.b[kinds[0].b].isArc);
}

TEST(OutlineSegments, TellArcsThatBulgeInwardFromThoseThatBulgeOutward) {
  const std::vector<GX2DPoint> corners = {{0.0, 0.0},   {60.0, 0.0},  {60.0, 20.0},
                                          {30.0, 20.0}, {30.0, 50.0}, {0.0, 50.0}};
  const support::SketchContour contour =
      support::RoundedPolygon(corners, {0.0, 4.0, 0.0, 6.0, 0.0, 0.0});
  for (const auto& sketch : {contour, support::Reversed(contour)}) {
    const auto part = PartOf({sketch});
    std::vector<double> radii;
    for (const auto& segment : drawing::OutlineSegments(*part.outer)) {
      if (segment.isArc) radii.push_back(segment.radius);
    }
    std::sort(radii.begin(), radii.end());
    ASSERT_EQ(radii.size(), 2U);
    EXPECT_NEAR(radii[0], -6.0, 1e-9);
    EXPECT_NEAR(radii[1], 4.0, 1e-9);
  }
}

}  // namespace
