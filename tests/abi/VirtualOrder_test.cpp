// The place of every virtual operation of the values and elements in the table of its class. Hosts
// are compiled against these places: one that moves makes them call a neighbour.
#include <KTRCL_Geometry/KTRCL_Geometry.h>

#include "support/VirtualTable.h"

#include <gtest/gtest.h>

namespace {

using support::Select;
using support::Table;

TEST(VirtualOrder, TheMeasureItself) {
  struct Sample {
    virtual void First() {}
    virtual ~Sample() = default;
    virtual void Fourth() {}
    void Plain() {}
  };
  EXPECT_EQ(support::PlaceOf(&Sample::First), 0U);
  EXPECT_EQ(support::PlaceOf(&Sample::Fourth), 3U);
  EXPECT_EQ(support::PlaceOf(&Sample::Plain), support::kNotVirtual);
  Table().Next("First", &Sample::First).Destructor().Next("Fourth", &Sample::Fourth).End<Sample>();
}

TEST(VirtualOrder, GXVector) {
  Table()
      .Destructor()
      .Next("Len", &GXVector::Len)
      .Next("Standard", &GXVector::Standard)
      .Next("Reverse", &GXVector::Reverse)
      .Next("GetReversed", &GXVector::GetReversed)
      .Next("PerpendicalXY", &GXVector::PerpendicalXY)
      .Next("GetPerpendicalXY", &GXVector::GetPerpendicalXY)
      .Next("PerpendicalYZ", &GXVector::PerpendicalYZ)
      .Next("GetPerpendicalYZ", &GXVector::GetPerpendicalYZ)
      .Next("PerpendicalXZ", &GXVector::PerpendicalXZ)
      .Next("GetPerpendicalXZ", &GXVector::GetPerpendicalXZ)
      .Next("Add", &GXVector::Add)
      .Next("negation", Select<GXVector() const>(&GXVector::operator-))
      .Next("difference", Select<GXVector(const GXVector&) const>(&GXVector::operator-))
      .Next("sum", &GXVector::operator+)
      .Next("by a number", Select<GXVector(double) const>(&GXVector::operator*))
      .Next("cross product", Select<GXVector(const GXVector&) const>(&GXVector::operator*))
      .Next("operator=", &GXVector::operator=)
      .Next("operator==", &GXVector::operator==)
      .Next("operator!=", &GXVector::operator!=)
      .Next("dot", &GXVector::dot)
      .Next("Mid", &GXVector::Mid)
      .Next("AsDbl", Select<void(double&, double&, double&) const>(&GXVector::AsDbl))
      .Next("AsDbl", Select<void(double*) const>(&GXVector::AsDbl))
      .Next("Write", &GXVector::Write)
      .Next("Read", &GXVector::Read)
      .Next("IsAlmostEq", &GXVector::IsAlmostEq)
      .Next("RoundToDec", &GXVector::RoundToDec)
      .End<GXVector>();
}

TEST(VirtualOrder, GX2DVector) {
  Table()
      .Destructor()
      .Next("Len", &GX2DVector::Len)
      .Next("Standard", &GX2DVector::Standard)
      .Next("Reverse", &GX2DVector::Reverse)
      .Next("GetReversed", &GX2DVector::GetReversed)
      .Next("GetPerpendicular", &GX2DVector::GetPerpendicular)
      .Next("Add", &GX2DVector::Add)
      .Next("negation", Select<GX2DVector() const>(&GX2DVector::operator-))
      .Next("difference", Select<GX2DVector(const GX2DVector&) const>(&GX2DVector::operator-))
      .Next("sum", &GX2DVector::operator+)
      .Next("operator=", &GX2DVector::operator=)
      .Next("operator==", &GX2DVector::operator==)
      .Next("operator!=", &GX2DVector::operator!=)
      .Next("dot", &GX2DVector::dot)
      .Next("Mid", &GX2DVector::Mid)
      .Next("by a number", &GX2DVector::operator*)
      .Next("Write", &GX2DVector::Write)
      .Next("Read", &GX2DVector::Read)
      .Next("IsAlmostEq", &GX2DVector::IsAlmostEq)
      .End<GX2DVector>();
}

TEST(VirtualOrder, GXMatrix) { Table().Destructor().End<GXMatrix>(); }

TEST(VirtualOrder, GXColBasedTransformMatrix) {
  Table()
      .Destructor()
      .Next("Write", &GXColBasedTransformMatrix::Write)
      .Next("Read", &GXColBasedTransformMatrix::Read)
      .End<GXColBasedTransformMatrix>();
}

TEST(VirtualOrder, GXRotationHasNoVirtualDestructor) {
  Table().Next("Write", &GXRotation::Write).Next("Read", &GXRotation::Read).End<GXRotation>();
}

TEST(VirtualOrder, GXCoordSystem) {
  Table()
      .Destructor()
      .Next("IsAlmostEq", &GXCoordSystem::IsAlmostEq)
      .Next("Scale", &GXCoordSystem::Scale)
      .Next("Write", &GXCoordSystem::Write)
      .Next("Read", &GXCoordSystem::Read)
      .Next("operator==", &GXCoordSystem::operator==)
      .Next("operator!=", &GXCoordSystem::operator!=)
      .End<GXCoordSystem>();
}

TEST(VirtualOrder, GXBoundBox) {
  Table()
      .Destructor()
      .Next("Width", &GXBoundBox::Width)
      .Next("Height", &GXBoundBox::Height)
      .Next("Depth", &GXBoundBox::Depth)
      .Next("MidX", &GXBoundBox::MidX)
      .Next("MidY", &GXBoundBox::MidY)
      .Next("MidZ", &GXBoundBox::MidZ)
      .Next("IsAlmostEq", &GXBoundBox::IsAlmostEq)
      .Next("GetArea", &GXBoundBox::GetArea)
      .Next("GetVolume", &GXBoundBox::GetVolume)
      .Next("Translate", &GXBoundBox::Translate)
      .Next("Scale", &GXBoundBox::Scale)
      .Next("MirrorXY", &GXBoundBox::MirrorXY)
      .Next("MirrorYZ", &GXBoundBox::MirrorYZ)
      .Next("MirrorXZ", &GXBoundBox::MirrorXZ)
      .Next("Write", &GXBoundBox::Write)
      .Next("Read", &GXBoundBox::Read)
      .Next("Normalize", &GXBoundBox::Normalize)
      .Next("operator==", &GXBoundBox::operator==)
      .Next("operator!=", &GXBoundBox::operator!=)
      .Next("sum with a point", Select<GXBoundBox(const GX3DPoint&) const>(&GXBoundBox::operator+))
      .Next("sum with a box", Select<GXBoundBox(const GXBoundBox&) const>(&GXBoundBox::operator+))
      .Next("growth by a point", Select<GXBoundBox&(const GX3DPoint&)>(&GXBoundBox::operator+=))
      .Next("growth by a box", Select<GXBoundBox&(const GXBoundBox&)>(&GXBoundBox::operator+=))
      .End<GXBoundBox>();
}

TEST(VirtualOrder, GX2DElementVisitorHasNoVirtualDestructor) {
  using Visitor = GX2DElementVisitor;
  Table()
      .Next("an arc", Select<bool(const GX2DArc&)>(&Visitor::Visit))
      .Next("a rectangle", Select<bool(const GX2DRectangle&)>(&Visitor::Visit))
      .Next("a line", Select<bool(const GX2DLine&)>(&Visitor::Visit))
      .Next("a point", Select<bool(const GX2DPoint&)>(&Visitor::Visit))
      .End<GX2DElementVisitor>();
}

TEST(VirtualOrder, GX2DElementCreatorAddsNothing) {
  EXPECT_EQ(support::PlaceOf(&support::Behind<GX2DElementCreator>::End), 4U);
}

// What the flat elements share.
template <typename Class>
Table ElementOfThePlane() {
  Table table;
  table.Destructor()
      .Next("Clone", &Class::Clone)
      .Next("Accept", &Class::Accept)
      .Next("Translate", &Class::Translate)
      .Next("RotateAxis", &Class::RotateAxis)
      .Next("Scale", &Class::Scale)
      .Next("ScaleX", &Class::ScaleX)
      .Next("ScaleY", &Class::ScaleY)
      .Next("MirrorX", &Class::MirrorX)
      .Next("MirrorY", &Class::MirrorY)
      .Next("Reverse", &Class::Reverse)
      .Next("Len", &Class::Len)
      .Next("GetParametricPoint", &Class::GetParametricPoint)
      .Next("GetMinX", &Class::GetMinX)
      .Next("GetMaxX", &Class::GetMaxX)
      .Next("GetMinY", &Class::GetMinY)
      .Next("GetMaxY", &Class::GetMaxY)
      .Next("GetStartPoint", &Class::GetStartPoint)
      .Next("GetEndPoint", &Class::GetEndPoint)
      .Next("AddAsPolygon", Select<void(GX2DElmList&) const>(&Class::AddAsPolygon))
      .Next("Write", &Class::Write)
      .Next("Read", &Class::Read);
  return table;
}

TEST(VirtualOrder, GX2DElement) { ElementOfThePlane<GX2DElement>().End<GX2DElement>(); }

TEST(VirtualOrder, GX2DPoint) {
  ElementOfThePlane<GX2DPoint>()
      .Next("IsAlmostEq", &GX2DPoint::IsAlmostEq)
      .Next("operator==", &GX2DPoint::operator==)
      .Next("operator!=", &GX2DPoint::operator!=)
      .Next("operator+", &GX2DPoint::operator+)
      .Next("operator-", &GX2DPoint::operator-)
      .End<GX2DPoint>();
}

TEST(VirtualOrder, GX2DLine) {
  ElementOfThePlane<GX2DLine>()
      .Next("IsAlmostEq", &GX2DLine::IsAlmostEq)
      .Next("SwapPoints", &GX2DLine::SwapPoints)
      .Next("SquareLen", &GX2DLine::SquareLen)
      .End<GX2DLine>();
}

TEST(VirtualOrder, GX2DRectangle) {
  ElementOfThePlane<GX2DRectangle>()
      .Next("Normalize", &GX2DRectangle::Normalize)
      .Next("SwapPoints", &GX2DRectangle::SwapPoints)
      .Next("GetWidth", &GX2DRectangle::GetWidth)
      .Next("GetHeight", &GX2DRectangle::GetHeight)
      .Next("GetArea", &GX2DRectangle::GetArea)
      .End<GX2DRectangle>();
}

TEST(VirtualOrder, GX2DArc) {
  ElementOfThePlane<GX2DArc>()
      .Next("IsAlmostEq", &GX2DArc::IsAlmostEq)
      .Next("Radius", &GX2DArc::Radius)
      .Next("Normalize", &GX2DArc::Normalize)
      .Next("IsClockwise", &GX2DArc::IsClockwise)
      .Next("IsCW", &GX2DArc::IsCW)
      .Next("IsCounterClockwise", &GX2DArc::IsCounterClockwise)
      .Next("IsCCW", &GX2DArc::IsCCW)
      .Next("IsCircle", &GX2DArc::IsCircle)
      .Next("SetClockWise", &GX2DArc::SetClockWise)
      .Next("SetCounterClockWise", &GX2DArc::SetCounterClockWise)
      .Next("SwapPoints", &GX2DArc::SwapPoints)
      .Next("AddAsPolygon", Select<void(GX2DPointList&, double) const>(&GX2DArc::AddAsPolygon))
      .Next("AddAsPolygonMaxAngle", &GX2DArc::AddAsPolygonMaxAngle)
      .End<GX2DArc>();
}

template <typename Matrix>
using Transform = void(const GX3DPoint&, const Matrix&);

// What the elements in space share.
template <typename Class>
Table ElementInSpace() {
  Table table;
  table.Destructor()
      .Next("Translate", &Class::Translate)
      .Next("Scale", &Class::Scale)
      .Next("ScaleX", &Class::ScaleX)
      .Next("ScaleY", &Class::ScaleY)
      .Next("ScaleZ", &Class::ScaleZ)
      .Next("MirrorXY", &Class::MirrorXY)
      .Next("MirrorYZ", &Class::MirrorYZ)
      .Next("MirrorXZ", &Class::MirrorXZ)
      .Next("TransformGloLoc", Select<Transform<GXMatrix>>(&Class::TransformGloLoc))
      .Next("TransformGloLoc",
            Select<Transform<GXColBasedTransformMatrix>>(&Class::TransformGloLoc))
      .Next("TransformLocGlo", Select<Transform<GXMatrix>>(&Class::TransformLocGlo))
      .Next("TransformLocGlo",
            Select<Transform<GXColBasedTransformMatrix>>(&Class::TransformLocGlo))
      .Next("RotateX", &Class::RotateX)
      .Next("RotateY", &Class::RotateY)
      .Next("RotateZ", &Class::RotateZ)
      .Next("RotateAxis", &Class::RotateAxis)
      .Next("Rotate", &Class::Rotate)
      .Next("GetMinX", &Class::GetMinX)
      .Next("GetMaxX", &Class::GetMaxX)
      .Next("GetMinY", &Class::GetMinY)
      .Next("GetMaxY", &Class::GetMaxY)
      .Next("GetMinZ", &Class::GetMinZ)
      .Next("GetMaxZ", &Class::GetMaxZ)
      .Next("Write", &Class::Write)
      .Next("Read", &Class::Read)
      .Next("IsActuallyAPoint", &Class::IsActuallyAPoint)
      .Next("GetStartPoint", &Class::GetStartPoint)
      .Next("GetEndPoint", &Class::GetEndPoint);
  return table;
}

TEST(VirtualOrder, GX3DElement) { ElementInSpace<GX3DElement>().End<GX3DElement>(); }

TEST(VirtualOrder, GX3DPoint) {
  ElementInSpace<GX3DPoint>()
      .Next("SetPoint", &GX3DPoint::SetPoint)
      .Next("GetIValue", &GX3DPoint::GetIValue)
      .Next("SetIValue", &GX3DPoint::SetIValue)
      .Next("AsDbl", Select<void(double&, double&, double&) const>(&GX3DPoint::AsDbl))
      .Next("AsDbl", Select<void(double*) const>(&GX3DPoint::AsDbl))
      .Next("IsAlmostEq", &GX3DPoint::IsAlmostEq)
      .Next("operator==", &GX3DPoint::operator==)
      .Next("operator!=", &GX3DPoint::operator!=)
      .Next("from a point of the plane", Select<bool(const GX2DPoint&)>(&GX3DPoint::operator=))
      .Next("operator=", Select<GX3DPoint&(const GX3DPoint&)>(&GX3DPoint::operator=))
      .Next("from a vector", Select<bool(const GXVector&)>(&GX3DPoint::operator=))
      .Next("operator+", &GX3DPoint::operator+)
      .Next("operator-", &GX3DPoint::operator-)
      .Next("operator<", &GX3DPoint::operator<)
      .Next("operator>", &GX3DPoint::operator>)
      .End<GX3DPoint>();
}

TEST(VirtualOrder, GX3DLine) {
  ElementInSpace<GX3DLine>()
      .Next("GetMidPoint", &GX3DLine::GetMidPoint)
      .Next("GetPointAtDistance", &GX3DLine::GetPointAtDistance)
      .Next("Len", &GX3DLine::Len)
      .Next("with an arc", Select<bool(GX3DArc&, GX3DPoint&)>(&GX3DLine::HasEqualPoint))
      .Next("with a line", Select<bool(GX3DLine&, GX3DPoint&)>(&GX3DLine::HasEqualPoint))
      .Next("SwapPoints", &GX3DLine::SwapPoints)
      .End<GX3DLine>();
}

TEST(VirtualOrder, GX3DArcTestsALineBeforeAnArc) {
  ElementInSpace<GX3DArc>()
      .Next("Radius", &GX3DArc::Radius)
      .Next("with a line", Select<bool(GX3DLine&, GX3DPoint&)>(&GX3DArc::HasEqualPoint))
      .Next("with an arc", Select<bool(GX3DArc&, GX3DPoint&)>(&GX3DArc::HasEqualPoint))
      .Next("SwapPoints", &GX3DArc::SwapPoints)
      .Next("IsCircle", &GX3DArc::IsCircle)
      .Next("GetNormal", &GX3DArc::GetNormal)
      .Next("GetReversedNormal", &GX3DArc::GetReversedNormal)
      .Next("AddAsPolygon", &GX3DArc::AddAsPolygon)
      .Next("AddAsPolygonMaxAngle", &GX3DArc::AddAsPolygonMaxAngle)
      .End<GX3DArc>();
}

TEST(VirtualOrder, GX3DPointBoolPairHasNoVirtualDestructor) {
  Table()
      .Next("operator<", &GX3DPointBoolPair::operator<)
      .Next("operator==", &GX3DPointBoolPair::operator==)
      .Next("operator!=", &GX3DPointBoolPair::operator!=)
      .End<GX3DPointBoolPair>();
}

}  // namespace
