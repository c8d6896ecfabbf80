#include <KTRCL_Geometry/elements/GX3DElements.h>

#include <KTRCL_Geometry/foundation/GXMatrix.h>
#include <KTRCL_Geometry/foundation/GXRotation.h>
#include <KTRCL_Geometry/foundation/GXVector.h>

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

static_assert(std::is_abstract_v<GX3DElement>);
static_assert(std::has_virtual_destructor_v<GX3DElement>);

TEST(GX3DElement, MovesOfTheBaseLeaveAnElementAsItIs) {
  support::Foreign3D element({1, 2, 3}, {4, 5, 6});
  GX3DElement& base = element;
  base.Translate(GXVector(5, 6, 7));
  base.Scale(2.0, 0);
  base.ScaleX(2.0, 0);
  base.ScaleY(2.0, 0);
  base.ScaleZ(2.0, 0);
  base.MirrorXY();
  base.MirrorYZ();
  base.MirrorXZ();
  EXPECT_POINT_EQ(element.Start, GX3DPoint(1, 2, 3));
  EXPECT_POINT_EQ(element.End, GX3DPoint(4, 5, 6));
}

TEST(GX3DElement, FramesAndTurnsOfTheBaseLeaveAnElementAsItIs) {
  support::Foreign3D element({1, 2, 3}, {4, 5, 6});
  GX3DElement& base = element;
  const GX3DPoint origin(9, 9, 9);
  base.TransformGloLoc(origin, GXMatrix());
  base.TransformGloLoc(origin, GXColBasedTransformMatrix());
  base.TransformLocGlo(origin, GXMatrix());
  base.TransformLocGlo(origin, GXColBasedTransformMatrix());
  base.RotateX(1.0);
  base.RotateY(1.0);
  base.RotateZ(1.0);
  base.RotateAxis(support::Line(0, 0, 0, 1, 0, 0), 1.0);
  base.Rotate(GXRotation(10, 20, 30, 0));
  EXPECT_POINT_EQ(element.Start, GX3DPoint(1, 2, 3));
  EXPECT_POINT_EQ(element.End, GX3DPoint(4, 5, 6));
}

TEST(GX3DElement, StorageOfTheBaseNeedsNoParagraph) {
  support::Foreign3D element({1, 2, 3}, {4, 5, 6});
  GXParagraph* const none = nullptr;
  element.GX3DElement::Write(GXString("key"), none, 0);
  element.GX3DElement::Read(GXString("key"), none, 0);
  EXPECT_POINT_EQ(element.Start, GX3DPoint(1, 2, 3));
}

TEST(GX3DElement, IsDestroyedThroughTheBase) {
  std::vector<std::string> log;
  std::unique_ptr<GX3DElement> line =
      std::make_unique<support::Logged<GX3DLine>>(log, "line", support::Line(0, 0, 0, 1, 0, 0));
  line.reset();
  EXPECT_EQ(log, (std::vector<std::string>{"line"}));
}

}  // namespace
