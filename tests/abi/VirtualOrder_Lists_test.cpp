// The place of every virtual operation of the lists, of the ring around a contour, of the
// look-alike engine and of the companion types in the table of its class.
#include <KTRCL_DataTypes/KTRCL_DataTypes.h>
#include <KTRCL_Geometry/KTRCL_Geometry.h>

#include "support/VirtualTable.h"

#include <gtest/gtest.h>

#include <type_traits>

namespace {

using support::Behind;
using support::PlaceOf;
using support::Select;
using support::Table;

// The protected operations.
class OpenList2D : public GX2DElmList {
 public:
  using GX2DElmList::ModifyPntForRepair;
};
class OpenList3D : public GX3DElmList {
 public:
  using GX3DElmList::ModifyPntForRepair;
};
class OpenRing : public GX2DSurroundPolygon {
 public:
  using GX2DSurroundPolygon::AddArcPoint;
  using GX2DSurroundPolygon::AddPoint;
};

TEST(VirtualOrder, GX2DElmList) {
  using List = GX2DElmList;
  Table()
      .Destructor()
      .Next("Accept", &List::Accept)
      .Next("ClearWithContents", &List::ClearWithContents)
      .Next("Clone", Select<void(const GX3DElmList* const&, const int&)>(&List::Clone))
      .Next("Clone", Select<void(const GX2DElmList* const&)>(&List::Clone))
      .Next("Clone", Select<void(const GX3DElmList&, const int&)>(&List::Clone))
      .Next("Clone", Select<void(const GX2DElmList&)>(&List::Clone))
      .Next("Append", &List::Append)
      .Next("Connect", &List::Connect)
      .Next("IsClosed", &List::IsClosed)
      .Next("IsFullyConnected", &List::IsFullyConnected)
      .Next("MakeConnectingElements", &List::MakeConnectingElements)
      .Next("MakeAlmostEqualPointsEqual", &List::MakeAlmostEqualPointsEqual)
      .Next("RemovePoints", &List::RemovePoints)
      .Next("MakeClosed", &List::MakeClosed)
      .Next("CloseBeginEndIfNeeded", &List::CloseBeginEndIfNeeded)
      .Next("RepairLines", &List::RepairLines)
      .Next("Translate", &List::Translate)
      .Next("Scale", &List::Scale)
      .Next("ScaleX", &List::ScaleX)
      .Next("ScaleY", &List::ScaleY)
      .Next("RotateAxis", &List::RotateAxis)
      .Next("MirrorX", &List::MirrorX)
      .Next("MirrorY", &List::MirrorY)
      .Next("Reverse", &List::Reverse)
      .Next("GetMinX", &List::GetMinX)
      .Next("GetMaxX", &List::GetMaxX)
      .Next("GetMinY", &List::GetMinY)
      .Next("GetMaxY", &List::GetMaxY)
      .Next("AddAsPolygon", &List::AddAsPolygon)
      .Next("Find", &List::Find)
      .Next("Write", &List::Write)
      .Next("Read", &List::Read)
      .Next("ModifyPntForRepair", &OpenList2D::ModifyPntForRepair)
      .End<GX2DElmList>();
}

TEST(VirtualOrder, GX3DElmList) {
  using List = GX3DElmList;
  using ByMatrix = void(const GX3DPoint&, const GXMatrix&);
  using ByFrame = void(const GX3DPoint&, const GXColBasedTransformMatrix&);
  Table()
      .Destructor()
      .Next("ClearWithContents", &List::ClearWithContents)
      .Next("Clone", Select<void(GX3DElmList* const&)>(&List::Clone))
      .Next("Clone", Select<void(GX2DElmList* const&, const int&)>(&List::Clone))
      .Next("GetMinX", &List::GetMinX)
      .Next("GetMaxX", &List::GetMaxX)
      .Next("GetMinY", &List::GetMinY)
      .Next("GetMaxY", &List::GetMaxY)
      .Next("GetMinZ", &List::GetMinZ)
      .Next("GetMaxZ", &List::GetMaxZ)
      .Next("RotateX", &List::RotateX)
      .Next("RotateY", &List::RotateY)
      .Next("RotateZ", &List::RotateZ)
      .Next("RotateAxis", &List::RotateAxis)
      .Next("Rotate", &List::Rotate)
      .Next("MirrorXY", &List::MirrorXY)
      .Next("MirrorYZ", &List::MirrorYZ)
      .Next("MirrorXZ", &List::MirrorXZ)
      .Next("RemovePoints", &List::RemovePoints)
      .Next("RemoveDuplicates", &List::RemoveDuplicates)
      .Next("MakeConnectingElements", &List::MakeConnectingElements)
      .Next("MakeAlmostEqualPointsEqual", &List::MakeAlmostEqualPointsEqual)
      .Next("Translate", &List::Translate)
      .Next("Scale", &List::Scale)
      .Next("ScaleX", &List::ScaleX)
      .Next("ScaleY", &List::ScaleY)
      .Next("ScaleZ", &List::ScaleZ)
      .Next("TransformGloLoc", Select<ByMatrix>(&List::TransformGloLoc))
      .Next("TransformGloLoc", Select<ByFrame>(&List::TransformGloLoc))
      .Next("TransformLocGlo", Select<ByMatrix>(&List::TransformLocGlo))
      .Next("TransformLocGlo", Select<ByFrame>(&List::TransformLocGlo))
      .Next("Append", &List::Append)
      .Next("Write", &List::Write)
      .Next("Read", &List::Read)
      .Next("EliminateElmsActuallyPoint", &List::EliminateElmsActuallyPoint)
      .Next("MakeClosed", &List::MakeClosed)
      .Next("CloseBeginEndIfNeeded", &List::CloseBeginEndIfNeeded)
      .Next("RepairLines", &List::RepairLines)
      .Next("ConvertTo3DPointList", &List::ConvertTo3DPointList)
      .Next("ModifyPntForRepair", &OpenList3D::ModifyPntForRepair)
      .End<GX3DElmList>();
}

TEST(VirtualOrder, GX2DPointRefListHasNoVirtualDestructor) {
  Table()
      .Next("GetMinX", &GX2DPointRefList::GetMinX)
      .Next("GetMaxX", &GX2DPointRefList::GetMaxX)
      .Next("GetMinY", &GX2DPointRefList::GetMinY)
      .Next("GetMaxY", &GX2DPointRefList::GetMaxY)
      .End<GX2DPointRefList>();
}

TEST(VirtualOrder, GX2DPointListHasItsDestructorBehindTheExtents) {
  Table()
      .Next("GetMinX", &GX2DPointList::GetMinX)
      .Next("GetMaxX", &GX2DPointList::GetMaxX)
      .Next("GetMinY", &GX2DPointList::GetMinY)
      .Next("GetMaxY", &GX2DPointList::GetMaxY)
      .Destructor()
      .Next("ClearWithContents", &GX2DPointList::ClearWithContents)
      .End<GX2DPointList>();
}

TEST(VirtualOrder, GX2DLineList) {
  Table()
      .Destructor()
      .Next("ClearWithContents", &GX2DLineList::ClearWithContents)
      .Next("CloneFrom", &GX2DLineList::CloneFrom)
      .End<GX2DLineList>();
}

TEST(VirtualOrder, GX2DElmListRefList) {
  Table().Destructor().Next("Accept", &GX2DElmListRefList::Accept).End<GX2DElmListRefList>();
}

TEST(VirtualOrder, GX2DElmListList) {
  Table()
      .Destructor()
      .Next("Accept", &GX2DElmListList::Accept)
      .Next("ClearWithContents", &GX2DElmListList::ClearWithContents)
      .End<GX2DElmListList>();
}

TEST(VirtualOrder, GX2DSurroundPolygon) {
  using Ring = GX2DSurroundPolygon;
  Table()
      .Destructor()
      .Next("ConstructFrom2DElmList", &Ring::ConstructFrom2DElmList)
      .Next("GetTopMaxRightLeftFromX", &Ring::GetTopMaxRightLeftFromX)
      .Next("GetTopMinLeftRightFromX", &Ring::GetTopMinLeftRightFromX)
      .Next("GetTopMinLeftMaxRight", &Ring::GetTopMinLeftMaxRight)
      .Next("GetMinLeft", &Ring::GetMinLeft)
      .Next("GetMaxRight", &Ring::GetMaxRight)
      .Next("GetBottomMinLeftMaxRight", &Ring::GetBottomMinLeftMaxRight)
      .Next("GetTrimEqualInY", &Ring::GetTrimEqualInY)
      .Next("GetMinLeftMaxRightAtY", &Ring::GetMinLeftMaxRightAtY)
      .Next("ClearWithContents", &Ring::ClearWithContents)
      .Next("GetConstrLineIntersection", &Ring::GetConstrLineIntersection)
      .Next("GetOrigElmList", &Ring::GetOrigElmList)
      .Next("AddArcPoint", &OpenRing::AddArcPoint)
      .Next("AddPoint", &OpenRing::AddPoint)
      .End<GX2DSurroundPolygon>();
}

TEST(VirtualOrder, OfTheOtherClassesOfContoursTheDestructorAlone) {
  Table().Destructor().End<GX2DSurroundPoint>();
  Table().Destructor().End<GXGeometryFunctions>();
}

TEST(VirtualOrder, GXLAElementsHaveADestructorAndSegmentsTheirKind) {
  Table().Destructor().End<GXLAElement>();
  Table().Destructor().End<GXLAElementAngle>();
  Table()
      .Destructor()
      .Next("IsALine", &GXLAElementSegment::IsALine)
      .Next("IsAnArc", &GXLAElementSegment::IsAnArc)
      .End<GXLAElementSegment>();
  Table()
      .Destructor()
      .Next("IsALine", &GXLAElementLine::IsALine)
      .Next("IsAnArc", &GXLAElementLine::IsAnArc)
      .End<GXLAElementLine>();
  Table()
      .Destructor()
      .Next("IsALine", &GXLAElementArc::IsALine)
      .Next("IsAnArc", &GXLAElementArc::IsAnArc)
      .End<GXLAElementArc>();
}

TEST(VirtualOrder, OfTheLookAlikeEngineMostClassesHaveNothingButADestructor) {
  Table().Destructor().End<GXLATolerances>();
  Table().Destructor().End<GXLAContourParameters>();
  Table().Destructor().End<GXLAContour>();
  Table().Destructor().End<GXLAPart>();
  Table().Destructor().End<GXLAPartCreator>();
  Table().Destructor().End<GXLAIntContoursEqual>();
  Table().Destructor().End<CSortedInternalLAContourListCheck>();
  Table().Destructor().End<GXLAContourInstanceMapping>();
  Table().Destructor().End<GXBiMapLAContourInstanceEquality>();
  Table().Destructor().End<CGXLAElementMerge>();
  Table().Destructor().End<CGXLAPartDump>();
}

TEST(VirtualOrder, TheHostsAttributesOfADumpHaveOneOperationAndNoDestructor) {
  using Attributes = IGXLAPartDump_GXLAContourInstanceXmlAttribute;
  Table().Next("AddXmlAttribute", &Attributes::AddXmlAttribute).End<Attributes>();
}

TEST(VirtualOrder, GXLAContourInstanceAddsNothingToTheListOfElements) {
  EXPECT_EQ(PlaceOf(&Behind<GXLAContourInstance>::End), PlaceOf(&Behind<GX2DElmList>::End));
  EXPECT_EQ(PlaceOf(&GXLAContourInstance::Read), PlaceOf(&GX2DElmList::Read));
}

TEST(VirtualOrder, GXLAPartVisitor) {
  Table().Destructor().Next("Visit", &GXLAPartVisitor::Visit).End<GXLAPartVisitor>();
}

TEST(VirtualOrder, GXParagraphBeginsWithWhatTheLibraryCalls) {
  using Text = const GXString&;
  Table()
      .Next("GetName", &GXParagraph::GetName)
      .Next("a text", Select<void(Text, Text)>(&GXParagraph::SetAttribute))
      .Next("an integer", Select<void(Text, const int&)>(&GXParagraph::SetAttribute))
      .Next("AddString", &GXParagraph::AddString)
      .Next("AddInt", &GXParagraph::AddInt)
      .Next("AddDouble", &GXParagraph::AddDouble)
      .Next("GetString", &GXParagraph::GetString)
      .Next("GetDouble", &GXParagraph::GetDouble)
      .Next("AddParagraph", &GXParagraph::AddParagraph)
      .Next("FindParagraph", &GXParagraph::FindParagraph)
      .Next("GetParagraphs", &GXParagraph::GetParagraphs);
}

TEST(VirtualOrder, ASubscriberIsCalledByItsFirstOperation) {
  EXPECT_EQ(PlaceOf(&GXEvent1ParamSubscriber<const GXString&>::OnFire), 0U);
}

TEST(VirtualOrder, GXStringAndGXParagraphListHaveNothingButADestructor) {
  Table().Destructor().End<GXString>();
  Table().Destructor().End<GXParagraphList>();
}

}  // namespace
