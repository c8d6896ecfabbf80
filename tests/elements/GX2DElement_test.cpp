#include <KTRCL_Geometry/elements/GX2DElements.h>

#include "support/Build.h"
#include "support/Foreign.h"
#include "support/Near.h"

#include <gtest/gtest.h>

#include <KTRCL_DataTypes/GXString.h>
#include <memory>
#include <string>
#include <type_traits>
#include <vector>

namespace {

static_assert(std::is_abstract_v<GX2DElement>);
static_assert(std::has_virtual_destructor_v<GX2DElement>);

TEST(GX2DElement, TransformsOfTheBaseLeaveAnElementAsItIs) {
  support::Foreign2D element({1, 2}, {3, 4});
  GX2DElement& base = element;
  base.Translate(5.0, 6.0);
  base.RotateAxis(GX2DPoint(7, 8), 90.0);
  base.Scale(2.0, 0);
  base.ScaleX(2.0, 0);
  base.ScaleY(2.0, 0);
  base.MirrorX();
  base.MirrorY();
  base.Reverse();
  EXPECT_POINT_EQ(element.Start, GX2DPoint(1, 2));
  EXPECT_POINT_EQ(element.End, GX2DPoint(3, 4));
}

TEST(GX2DElement, StorageOfTheBaseNeedsNoParagraph) {
  support::Foreign2D element({1, 2}, {3, 4});
  GXParagraph* const none = nullptr;
  element.GX2DElement::Write(GXString("key"), none, 0);
  element.GX2DElement::Read(GXString("key"), none, 0);
  EXPECT_POINT_EQ(element.Start, GX2DPoint(1, 2));
}

TEST(GX2DElement, IsDestroyedThroughTheBase) {
  std::vector<std::string> log;
  std::unique_ptr<GX2DElement> point =
      std::make_unique<support::Logged<GX2DPoint>>(log, "point", GX2DPoint(1, 2));
  std::unique_ptr<GX2DElement> arc =
      std::make_unique<support::Logged<GX2DArc>>(log, "arc", support::Circle(0, 0, 1));
  point.reset();
  arc.reset();
  EXPECT_EQ(log, (std::vector<std::string>{"point", "arc"}));
}

}  // namespace
