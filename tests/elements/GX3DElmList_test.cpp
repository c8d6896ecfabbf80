#include <KTRCL_Geometry/elements/GXElementLists.h>

#include <KTRCL_Geometry/foundation/GXMatrix.h>
#include <KTRCL_Geometry/foundation/GXRotation.h>
#include <KTRCL_Geometry/foundation/GXVector.h>

#include "support/Build.h"
#include "support/Foreign.h"
#include "support/Near.h"

#include <gtest/gtest.h>

#include <limits>
#include <memory>
#include <sstream>
#include <string>
#include <type_traits>
#include <typeinfo>
#include <vector>

namespace {

using support::Add;
using support::At;
using support::Foreign3D;
using support::Line;
using support::Logged;
using support::Point;
using Log = std::vector<std::string>;

constexpr double kLargest = std::numeric_limits<double>::max();

static_assert(std::is_base_of_v<std::deque<GX3DElement*>, GX3DElmList>);
static_assert(std::has_virtual_destructor_v<GX3DElmList>);

/// Writes down what is asked of it.
class Recorder : public Foreign3D {
 public:
  explicit Recorder(Log& log) : Foreign3D({0, 0, 0}, {0, 0, 0}), log_(log) {}

  void Translate(const GXVector& v) override { Note("Translate", {v.X, v.Y, v.Z}); }
  void Scale(const double& f, const int& d) override { Note("Scale", {f, double(d)}); }
  void ScaleX(const double& f, const int& d) override { Note("ScaleX", {f, double(d)}); }
  void ScaleY(const double& f, const int& d) override { Note("ScaleY", {f, double(d)}); }
  void ScaleZ(const double& f, const int& d) override { Note("ScaleZ", {f, double(d)}); }
  void MirrorXY() override { Note("MirrorXY", {}); }
  void MirrorYZ() override { Note("MirrorYZ", {}); }
  void MirrorXZ() override { Note("MirrorXZ", {}); }
  void TransformGloLoc(const GX3DPoint& o, const GXMatrix& m) override {
    Note("GloLoc rows", {o.X, o.Y, o.Z, m.Base[0].Y});
  }
  void TransformGloLoc(const GX3DPoint& o, const GXColBasedTransformMatrix& m) override {
    Note("GloLoc columns", {o.X, o.Y, o.Z, m.Base[0].Y});
  }
  void TransformLocGlo(const GX3DPoint& o, const GXMatrix& m) override {
    Note("LocGlo rows", {o.X, o.Y, o.Z, m.Base[0].Y});
  }
  void TransformLocGlo(const GX3DPoint& o, const GXColBasedTransformMatrix& m) override {
    Note("LocGlo columns", {o.X, o.Y, o.Z, m.Base[0].Y});
  }
  void RotateX(const double& radians) override { Note("RotateX", {radians}); }
  void RotateY(const double& radians) override { Note("RotateY", {radians}); }
  void RotateZ(const double& radians) override { Note("RotateZ", {radians}); }
  void RotateAxis(const GX3DLine& axis, const double& radians) override {
    Note("RotateAxis", {axis.Start.X, axis.End.Z, radians});
  }
  void Rotate(const GXRotation& rotation) override {
    Note("Rotate", {rotation.A, rotation.B, rotation.C});
  }

 private:
  void Note(const std::string& name, const std::vector<double>& arguments) {
    std::ostringstream text;
    text << name;
    for (const double argument : arguments) {
      text << ' ' << argument;
    }
    log_.push_back(text.str());
  }
  Log& log_;
};

GX3DArc Counting() {
  return GX3DArc(Point(1, 2, 3), Point(4, 5, 6), Point(7, 8, 9), Point(10, 11, 12));
}

TEST(GX3DElmList, IsEmptyByDefault) { EXPECT_TRUE(GX3DElmList().empty()); }

TEST(GX3DElmList, DestroysItsElementsFromTheFront) {
  Log log;
  {
    GX3DElmList list;
    list.push_back(new Logged<GX3DLine>(log, "line", Line(0, 0, 0, 1, 0, 0)));
    list.push_back(nullptr);
    list.push_back(new Logged<GX3DArc>(log, "arc", Counting()));
    list.push_back(new Logged<Foreign3D>(log, "stranger", Point(0, 0, 0), Point(1, 1, 1)));
  }
  EXPECT_EQ(log, (Log{"line", "arc", "stranger"}));
}

TEST(GX3DElmList, ClearWithContentsDestroysAndEmpties) {
  Log log;
  GX3DElmList list;
  list.push_back(nullptr);
  list.push_back(new Logged<GX3DPoint>(log, "point", Point(1, 2, 3)));
  list.ClearWithContents();
  EXPECT_TRUE(list.empty());
  EXPECT_EQ(log, (Log{"point"}));
}

TEST(GX3DElmList, CopiesShareTheElementsSoOneIsDrained) {
  Log log;
  {
    GX3DElmList list;
    list.push_back(new Logged<GX3DLine>(log, "line", Line(0, 0, 0, 1, 0, 0)));
    GX3DElmList copy(list);
    EXPECT_EQ(copy.front(), list.front());
    list.clear();
    EXPECT_EQ(log, Log());
  }
  EXPECT_EQ(log, (Log{"line"}));
}

TEST(GX3DElmList, AssignmentForgetsWhatTheReceiverHeld) {
  Log log;
  auto held = std::make_unique<Logged<GX3DPoint>>(log, "held", Point(1, 2, 3));
  GX3DElmList source;
  Add(source, Point(4, 5, 6));
  GX3DElmList list;
  list.push_back(held.get());
  list = source;
  EXPECT_EQ(log, Log());
  EXPECT_EQ(list.front(), source.front());
  source.clear();
}

TEST(Clone3D, CopiesPointsLinesAndArcsInOrder) {
  GX3DElmList source;
  Add(source, Point(1, 2, 3), Line(1, 2, 3, 4, 5, 6), Counting());
  GX3DElmList list;
  Add(list, Point(99, 99, 99));
  list.Clone(&source);
  ASSERT_EQ(list.size(), 3U);
  EXPECT_NE(list[0], source[0]);
  EXPECT_POINT_EQ(At<GX3DPoint>(list, 0), Point(1, 2, 3));
  EXPECT_POINT_EQ(At<GX3DLine>(list, 1), Line(1, 2, 3, 4, 5, 6));
  EXPECT_POINT_EQ(At<GX3DArc>(list, 2), Counting());
}

TEST(Clone3D, SkipsOtherKindsAndTakesDerivedOnesAsTheirBase) {
  Log log;
  GX3DElmList source;
  Add(source, Foreign3D({0, 0, 0}, {1, 1, 1}));
  source.push_back(new Logged<GX3DLine>(log, "derived", Line(1, 2, 3, 4, 5, 6)));
  GX3DElmList list;
  list.Clone(&source);
  ASSERT_EQ(list.size(), 1U);
  const GX3DElement& made = *list[0];
  EXPECT_EQ(typeid(made), typeid(GX3DLine));
  EXPECT_POINT_EQ(At<GX3DLine>(list, 0), Line(1, 2, 3, 4, 5, 6));
}

TEST(Clone3D, ThroughANullPointerKeepsTheContents) {
  Log log;
  GX3DElmList list;
  list.push_back(new Logged<GX3DPoint>(log, "old", Point(1, 2, 3)));
  GX3DElmList* const no3DList = nullptr;
  GX2DElmList* const no2DList = nullptr;
  list.Clone(no3DList);
  list.Clone(no2DList, 2);
  EXPECT_EQ(list.size(), 1U);
  EXPECT_EQ(log, Log());
}

TEST(Clone3D, OfAnEmptyListEmptiesTheReceiver) {
  Log log;
  GX3DElmList empty, list;
  list.push_back(new Logged<GX3DPoint>(log, "old", Point(1, 2, 3)));
  list.Clone(&empty);
  EXPECT_TRUE(list.empty());
  EXPECT_EQ(log, (Log{"old"}));
}

TEST(Clone3DFrom2D, ConvertsEachKindByThePlaneAndDropsRectangles) {
  GX2DElmList source;
  Add(source, Point(1, 2), support::Rect(1, 2, 3, 4), support::Line(1, 2, 3, 4),
      support::Foreign2D({0, 0}, {1, 1}), support::Arc(1, 2, 3, 4, 5, 6, 7, 8));
  GX3DElmList list;
  Add(list, Point(99, 99, 99));
  list.Clone(&source, 1);
  ASSERT_EQ(list.size(), 3U);
  EXPECT_POINT_EQ(At<GX3DPoint>(list, 0), Point(1, 0, 2));
  EXPECT_POINT_EQ(At<GX3DLine>(list, 1), Line(1, 0, 2, 3, 0, 4));
  EXPECT_POINT_EQ(At<GX3DArc>(list, 2),
                  GX3DArc(Point(1, 0, 2), Point(3, 0, 4), Point(5, 0, 6), Point(7, 0, 8)));
  EXPECT_EQ(source.size(), 5U);
}

TEST(Append3D, AddsDeepCopiesAndLeavesTheArgument) {
  GX3DElmList list, more;
  Add(list, Point(1, 2, 3));
  Add(more, Line(0, 0, 0, 1, 0, 0), Foreign3D({0, 0, 0}, {1, 1, 1}), Counting());
  list.Append(&more);
  ASSERT_EQ(list.size(), 3U);
  EXPECT_EQ(more.size(), 3U);
  EXPECT_NE(list[1], more[0]);
  EXPECT_POINT_EQ(At<GX3DLine>(list, 1), Line(0, 0, 0, 1, 0, 0));
  EXPECT_POINT_EQ(At<GX3DArc>(list, 2), Counting());
}

TEST(Append3D, OfItselfDoublesAndOfNothingAddsNothing) {
  GX3DElmList list;
  Add(list, Point(1, 2, 3), Point(4, 5, 6));
  list.Append(nullptr);
  EXPECT_EQ(list.size(), 2U);
  list.Append(&list);
  ASSERT_EQ(list.size(), 4U);
  EXPECT_NE(list[2], list[0]);
  EXPECT_POINT_EQ(At<GX3DPoint>(list, 3), Point(4, 5, 6));
}

TEST(BulkOperations3D, ForwardMovesInOrder) {
  Log log;
  GX3DElmList list;
  list.push_back(nullptr);
  list.push_back(new Recorder(log));
  list.Translate(GXVector(1, 2, 3));
  list.MirrorXY();
  list.MirrorYZ();
  list.MirrorXZ();
  list.RotateX(1);
  list.RotateY(2);
  list.RotateZ(3);
  list.RotateAxis(Line(4, 0, 0, 0, 0, 5), 6);
  list.Rotate(GXRotation(7, 8, 9, 0));
  EXPECT_EQ(log, (Log{"Translate 1 2 3", "MirrorXY", "MirrorYZ", "MirrorXZ", "RotateX 1",
                      "RotateY 2", "RotateZ 3", "RotateAxis 4 5 6", "Rotate 7 8 9"}));
}

TEST(BulkOperations3D, ScalesNeverRound) {
  Log log;
  GX3DElmList list;
  list.push_back(new Recorder(log));
  list.push_back(nullptr);
  list.Scale(2);
  list.ScaleX(3);
  list.ScaleY(4);
  list.ScaleZ(5);
  EXPECT_EQ(log, (Log{"Scale 2 -1", "ScaleX 3 -1", "ScaleY 4 -1", "ScaleZ 5 -1"}));
}

TEST(BulkOperations3D, ForwardFrames) {
  Log log;
  GX3DElmList list;
  list.push_back(new Recorder(log));
  list.push_back(nullptr);
  const GXMatrix rows(0, 7, 0, 0, 0, 1, 1, 0, 0);
  GXVector vectors[3] = {GXVector(0, 8, 0), GXVector(0, 0, 1), GXVector(1, 0, 0)};
  const GXColBasedTransformMatrix columns(vectors);
  list.TransformGloLoc(Point(1, 2, 3), rows);
  list.TransformGloLoc(Point(1, 2, 3), columns);
  list.TransformLocGlo(Point(1, 2, 3), rows);
  list.TransformLocGlo(Point(1, 2, 3), columns);
  EXPECT_EQ(log, (Log{"GloLoc rows 1 2 3 7", "GloLoc columns 1 2 3 8", "LocGlo rows 1 2 3 7",
                      "LocGlo columns 1 2 3 8"}));
}

TEST(BulkOperations3D, ReachEveryElement) {
  GX3DElmList list;
  Add(list, Point(1, 2, 3));
  list.push_back(nullptr);
  Add(list, Line(1, 2, 3, 4, 5, 6));
  list.Scale(2);
  EXPECT_POINT_EQ(At<GX3DPoint>(list, 0), Point(2, 4, 6));
  EXPECT_EQ(list[1], nullptr);
  EXPECT_POINT_EQ(At<GX3DLine>(list, 2), Line(2, 4, 6, 8, 10, 12));
}

TEST(BulkOperations3D, ArgumentsMayBelongToAnElementOfTheList) {
  GX3DElmList local, global, scaled, turned;
  Add(local, Line(1, 2, 3, 4, 5, 6), Point(10, 10, 10));
  local.TransformGloLoc(local[0]->GetStartPoint(), GXMatrix());
  EXPECT_POINT_EQ(At<GX3DLine>(local, 0), Line(0, 0, 0, 3, 3, 3));
  EXPECT_POINT_EQ(At<GX3DPoint>(local, 1), Point(9, 8, 7));
  Add(global, Line(1, 2, 3, 4, 5, 6), Point(10, 10, 10));
  GXVector unit[3] = {GXVector(1, 0, 0), GXVector(0, 1, 0), GXVector(0, 0, 1)};
  global.TransformLocGlo(global[0]->GetStartPoint(), GXColBasedTransformMatrix(unit));
  EXPECT_POINT_EQ(At<GX3DPoint>(global, 1), Point(11, 12, 13));
  Add(scaled, Point(3, 5, 7), Point(1, 1, 1));
  scaled.Scale(At<GX3DPoint>(scaled, 0).X);
  EXPECT_POINT_EQ(At<GX3DPoint>(scaled, 1), Point(3, 3, 3));
  Add(turned, Line(0, 0, 0, 0, 0, 1), Point(1, 0, 0));
  turned.RotateAxis(At<GX3DLine>(turned, 0), support::kPi / 2);
  EXPECT_POINT_NEAR(At<GX3DPoint>(turned, 1), Point(0, 1, 0), 1e-14);
}

TEST(Extent3D, FoldsTheElements) {
  GX3DElmList list;
  Add(list, Line(3, 9, 1, 5, 7, 2), Point(4, -2, 8));
  EXPECT_EQ(list.GetMinX(), 3.0);
  EXPECT_EQ(list.GetMaxX(), 5.0);
  EXPECT_EQ(list.GetMinY(), -2.0);
  EXPECT_EQ(list.GetMaxY(), 9.0);
  EXPECT_EQ(list.GetMinZ(), 1.0);
  EXPECT_EQ(list.GetMaxZ(), 8.0);
}

TEST(Extent3D, OfNothingIsInverted) {
  const GX3DElmList list;
  EXPECT_EQ(list.GetMinX(), kLargest);
  EXPECT_EQ(list.GetMaxX(), -kLargest);
  EXPECT_EQ(list.GetMinY(), kLargest);
  EXPECT_EQ(list.GetMaxY(), -kLargest);
  EXPECT_EQ(list.GetMinZ(), kLargest);
  EXPECT_EQ(list.GetMaxZ(), -kLargest);
}

}  // namespace
