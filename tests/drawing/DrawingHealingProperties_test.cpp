#include "drawing/DrawingHealing.h"

#include "MessyDrawing.h"
#include "drawing/CurveMeasures.h"
#include "support/Random.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <limits>
#include <string>
#include <vector>

namespace drawing {
namespace {

std::string ChangesText(const HealedDrawing& healed) {
  std::string text;
  for (const Change& change : healed.changes) text += change.what + "\n";
  for (const std::string& note : healed.notes) text += "note: " + note + "\n";
  for (const auto& contour : healed.contours) {
    if (!contour->usable) text += "obstacle: " + contour->obstacle + "\n";
  }
  return text;
}

DrawingFigures FiguresOfClean(const support::PartSketch& sketch) {
  HealOptions options;
  options.cleanUp = false;
  return HealDrawing(support::DrawingOf(sketch), options).before;
}

// The farthest that any of many points of the healed elements lies from the drawing as read.
double FarthestFrom(const Drawing& asRead, const Drawing& healed) {
  double farthest = 0.0;
  for (const DrawnElement& drawn : healed.elements) {
    for (int step = 0; step <= 20; ++step) {
      const GX2DPoint p = PointAt(*drawn.element, step / 20.0);
      double nearest = std::numeric_limits<double>::infinity();
      for (const DrawnElement& other : asRead.elements) {
        nearest = std::min(nearest, DistanceToElement(p, *other.element));
      }
      farthest = std::max(farthest, nearest);
    }
  }
  return farthest;
}

double RandomGap(support::Random& random) {
  const double gaps[] = {0.0002, 0.01, 0.1, 0.5};
  return gaps[random.Int(0, 3)];
}

TEST(HealDrawing, BringsBackTheContoursOfMessyDrawings) {
  support::Random random;
  for (int i = 0; i < 200; ++i) {
    SCOPED_TRACE(i);
    const support::PartSketch sketch = support::RandomParts(random);
    const DrawingFigures clean = FiguresOfClean(sketch);
    ASSERT_EQ(clean.closed, sketch.size());
    support::Mess mess;
    mess.gap = RandomGap(random);
    const Drawing messy = support::MessyDrawingOf(sketch, mess, random);
    HealOptions options;
    options.gap = mess.gap;
    options.cleanUp = random.Int(0, 3) != 0;
    const HealedDrawing healed = HealDrawing(messy, options);
    SCOPED_TRACE(ChangesText(healed));
    ASSERT_EQ(healed.after.closed, clean.closed);
    EXPECT_EQ(healed.after.open + healed.after.branching + healed.after.other, 0u);
    // Joints lie on the crossings of the straight lines, so figures come back but for the 0.0001
    // by which a speck may move a joint, at most 70 of them along at most 3,000 of length.
    EXPECT_NEAR(healed.after.area, clean.area, 0.1);
    EXPECT_NEAR(healed.after.perimeter, clean.perimeter, 0.01);
    EXPECT_TRUE(healed.overlapsLeft.empty());
    EXPECT_TRUE(healed.stillOpen.empty());
    // Where ends were made exact, pieces may stand at an angle that is too large for merging.
    const bool anySnapped =
        std::any_of(healed.changes.begin(), healed.changes.end(),
                    [](const Change& change) { return change.kind == ChangeKind::kEndsSnapped; });
    if (options.cleanUp && !anySnapped) {
      std::size_t sides = 0;
      for (const auto& contour : sketch) sides += contour.size();
      EXPECT_EQ(healed.after.elements, sides);
    }
  }
}

TEST(HealDrawing, FindsNothingToDoOnAHealedDrawing) {
  support::Random random;
  for (int i = 0; i < 300; ++i) {
    SCOPED_TRACE(i);
    support::Mess mess;
    mess.gap = RandomGap(random);
    const Drawing messy = support::MessyDrawingOf(support::RandomParts(random), mess, random);
    HealOptions options;
    // Also gaps that leave some joints open.
    options.gap = random.Bool() ? mess.gap : RandomGap(random);
    options.cleanUp = random.Bool();
    const HealedDrawing healed = HealDrawing(messy, options);
    const HealedDrawing again = HealDrawing(healed.drawing, options);
    ASSERT_TRUE(again.changes.empty()) << ChangesText(healed) << "AGAIN\n" << ChangesText(again);
    EXPECT_EQ(again.largestMovement, 0.0);
    ASSERT_EQ(again.drawing.elements.size(), healed.drawing.elements.size());
    for (std::size_t k = 0; k < healed.drawing.elements.size(); ++k) {
      GX2DElement& was = *healed.drawing.elements[k].element;
      GX2DElement& is = *again.drawing.elements[k].element;
      ASSERT_TRUE(was.GetStartPoint() == is.GetStartPoint());
      ASSERT_TRUE(was.GetEndPoint() == is.GetEndPoint());
    }
  }
}

TEST(HealDrawing, MovesNothingFartherThanTheGap) {
  support::Random random;
  for (int i = 0; i < 100; ++i) {
    SCOPED_TRACE(i);
    support::Mess mess;
    mess.gap = RandomGap(random);
    const Drawing messy = support::MessyDrawingOf(support::RandomParts(random), mess, random);
    HealOptions options;
    options.gap = mess.gap;
    const HealedDrawing healed = HealDrawing(messy, options);
    const double most = std::max(options.gap, 0.0002) + 1e-9;
    EXPECT_LE(healed.largestMovement, most);
    ASSERT_LE(FarthestFrom(messy, healed.drawing), most) << ChangesText(healed);
  }
}

// Lines and arcs of all lengths anywhere, near one another now and then.
Drawing RandomScribble(support::Random& random) {
  Drawing drawn;
  drawn.usable = true;
  const int count = random.Int(1, 30);
  std::vector<GX2DPoint> places = {{0, 0}};
  const auto place = [&] {
    GX2DPoint p =
        places[static_cast<std::size_t>(random.Int(0, static_cast<int>(places.size()) - 1))];
    if (random.Int(0, 2) == 0) p = random.Point2D(10.0);
    const double reach[] = {0.0, 0.00005, 0.01, 0.3};
    const double by = reach[random.Int(0, 3)];
    p = GX2DPoint(p.X + random.Between(-by, by), p.Y + random.Between(-by, by));
    places.push_back(p);
    return p;
  };
  for (int i = 0; i < count; ++i) {
    const GX2DPoint p = place();
    if (random.Int(0, 2) == 0) {
      const GX2DPoint centre = place();
      support::AddSide(drawn, support::ArcSide(p, centre, random.Between(-6.2, 6.2)), "0");
    } else {
      support::AddSide(drawn, support::LineSide(p, place()), random.Bool() ? "0" : "1");
    }
  }
  return drawn;
}

TEST(HealDrawing, FindsNothingToDoOnAHealedScribble) {
  support::Random random;
  for (int i = 0; i < 2000; ++i) {
    SCOPED_TRACE(i);
    HealOptions options;
    options.gap = RandomGap(random);
    const HealedDrawing healed = HealDrawing(RandomScribble(random), options);
    const HealedDrawing again = HealDrawing(healed.drawing, options);
    ASSERT_TRUE(again.changes.empty()) << ChangesText(healed) << "AGAIN\n" << ChangesText(again);
  }
}

TEST(HealDrawing, OfScribblesMovesNothingFartherThanTheGap) {
  support::Random random;
  for (int i = 0; i < 1500; ++i) {
    SCOPED_TRACE(i);
    const Drawing scribble = RandomScribble(random);
    HealOptions options;
    options.gap = RandomGap(random);
    const HealedDrawing healed = HealDrawing(scribble, options);
    const double most = std::max(options.gap, 0.0002) + 1e-9;
    ASSERT_LE(healed.largestMovement, most) << ChangesText(healed);
    // Clean-up may have taken up 0.0001 more where a piece was merged.
    ASSERT_LE(FarthestFrom(scribble, healed.drawing), most + 0.0002) << ChangesText(healed);
    for (const Change& change : healed.changes) EXPECT_FALSE(change.what.empty());
  }
}

}  // namespace
}  // namespace drawing
