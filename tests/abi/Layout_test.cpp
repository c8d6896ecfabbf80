// Where the fields of every public class lie, and how large its objects are. Hosts are compiled
// against these numbers; one that changes makes every host read wrong memory until it is built
// anew.
//
// The numbers hold for the Itanium C++ ABI with 64-bit pointers: a class with virtual operations
// begins with an 8 byte table pointer. Containers are measured by the standard library at hand.
#include <KTRCL_DataTypes/KTRCL_DataTypes.h>
#include <KTRCL_Geometry/KTRCL_Geometry.h>

#include <gtest/gtest.h>

#include <cstddef>
#include <cstring>
#include <deque>
#include <exception>
#include <list>
#include <map>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

namespace {

static_assert(sizeof(void*) == 8 && sizeof(double) == 8 && sizeof(int) == 4 && sizeof(bool) == 1,
              "the figures below are those of a 64-bit platform");

constexpr std::size_t kTablePointer = 8;

// The fields belong to classes with virtual operations, for which offsetof is only conditionally
// supported; the distance of two addresses says the same.
template <typename Class, typename Field>
std::size_t OffsetOf(const Class& object, const Field& field) {
  return static_cast<std::size_t>(reinterpret_cast<const char*>(&field) -
                                  reinterpret_cast<const char*>(&object));
}

template <typename Base, typename Class>
std::size_t OffsetOfBase(const Class& object) {
  return OffsetOf(object, static_cast<const Base&>(object));
}

// What lies in the object at an offset; for fields that no one outside may name.
template <typename Field, typename Class>
Field ReadAt(const Class& object, std::size_t offset) {
  Field field;
  std::memcpy(&field, reinterpret_cast<const char*>(&object) + offset, sizeof field);
  return field;
}

// The companion library.
static_assert(sizeof(GXString) == kTablePointer + sizeof(std::string));
static_assert(sizeof(GXIntList) == sizeof(std::list<int>));
static_assert(sizeof(GXDoubleVector) == sizeof(std::vector<double>));
static_assert(sizeof(GXParagraphList) == kTablePointer + sizeof(std::list<GXParagraph*>));
static_assert(sizeof(GXParagraph) == kTablePointer);
static_assert(std::is_empty_v<GXProblemList> && sizeof(GXProblemList) == 1);
static_assert(!std::is_polymorphic_v<GXIntList> && !std::is_polymorphic_v<GXDoubleVector>);
static_assert(std::has_virtual_destructor_v<GXString>);
static_assert(std::has_virtual_destructor_v<GXParagraphList>);

// Foundation.
static_assert(std::is_empty_v<GXKTRCL_GeometryInit> && sizeof(GXKTRCL_GeometryInit) == 1);
static_assert(sizeof(GXVector) == 32);
static_assert(sizeof(GX2DVector) == 24);
static_assert(sizeof(GXMatrix) == 104);
static_assert(sizeof(GX2DMatrix) == 32 && !std::is_polymorphic_v<GX2DMatrix>);
static_assert(sizeof(GXColBasedTransformMatrix) == 104);
static_assert(sizeof(GXRotation) == 40 && !std::has_virtual_destructor_v<GXRotation>);
static_assert(sizeof(GXCoordSystem) == 64);
static_assert(sizeof(GXBoundBox) == 72);
static_assert(sizeof(GXDoubleIntegerPair) == 16 && !std::is_polymorphic_v<GXDoubleIntegerPair>);
static_assert(!std::is_base_of_v<GXVector, GX2DVector> && !std::is_base_of_v<GX2DVector, GXVector>);

// Elements.
static_assert(sizeof(GX2DElement) == 8 && std::is_abstract_v<GX2DElement>);
static_assert(sizeof(GX2DPoint) == 24 && std::is_base_of_v<GX2DElement, GX2DPoint>);
static_assert(sizeof(GX2DLine) == 56 && std::is_base_of_v<GX2DElement, GX2DLine>);
static_assert(sizeof(GX2DRectangle) == 56 && std::is_base_of_v<GX2DElement, GX2DRectangle>);
static_assert(sizeof(GX2DArc) == 104 && std::is_base_of_v<GX2DElement, GX2DArc>);
static_assert(sizeof(GX2DElementVisitor) == 16 && std::is_abstract_v<GX2DElementVisitor>);
static_assert(!std::has_virtual_destructor_v<GX2DElementVisitor>);
static_assert(sizeof(GX2DElementCreator) == 24);
static_assert(!std::has_virtual_destructor_v<GX2DElementCreator>);
static_assert(sizeof(GX3DElement) == 8 && std::is_abstract_v<GX3DElement>);
static_assert(sizeof(GX3DPoint) == 32 && std::is_base_of_v<GX3DElement, GX3DPoint>);
static_assert(sizeof(GX3DLine) == 72 && std::is_base_of_v<GX3DElement, GX3DLine>);
static_assert(sizeof(GX3DArc) == 136 && std::is_base_of_v<GX3DElement, GX3DArc>);
static_assert(sizeof(GX3DPointBoolPair) == 48 && std::is_polymorphic_v<GX3DPointBoolPair>);
static_assert(!std::has_virtual_destructor_v<GX3DPointBoolPair>);

// Element lists: the sequence and nothing else.
static_assert(sizeof(GX2DElmList) == kTablePointer + sizeof(std::deque<GX2DElement*>));
static_assert(sizeof(GX3DElmList) == kTablePointer + sizeof(std::deque<GX3DElement*>));
static_assert(sizeof(GX2DPointRefList) == kTablePointer + sizeof(std::deque<GX2DPoint*>));
static_assert(!std::has_virtual_destructor_v<GX2DPointRefList>);
static_assert(sizeof(GX2DPointList) == sizeof(GX2DPointRefList));
static_assert(std::has_virtual_destructor_v<GX2DPointList>);
static_assert(sizeof(GX2DLineList) == kTablePointer + sizeof(std::deque<GX2DLine*>));
static_assert(sizeof(GX2DElmListRefList) == kTablePointer + sizeof(std::list<GX2DElmList*>));
static_assert(sizeof(GX2DElmListList) == sizeof(GX2DElmListRefList));
static_assert(sizeof(GX3DPointList) == sizeof(std::list<GX3DPoint>));
static_assert(!std::is_polymorphic_v<GX3DPointList>);
static_assert(sizeof(GX3DPointBoolPairList) == sizeof(std::list<GX3DPointBoolPair>));
static_assert(!std::is_polymorphic_v<GX3DPointBoolPairList>);

// Contours.
static_assert(std::is_empty_v<GXGeometry> && sizeof(GXGeometry) == 1);
static_assert(std::is_empty_v<GXApproximatePoints> && sizeof(GXApproximatePoints) == 1);
static_assert(std::is_empty_v<GXPolygonTriangulation> && sizeof(GXPolygonTriangulation) == 1);
static_assert(sizeof(GXGeometryFunctions) == kTablePointer);
static_assert(std::has_virtual_destructor_v<GXGeometryFunctions>);
static_assert(sizeof(GX2DSurroundPoint) == kTablePointer + 8 + sizeof(GX2DElmList));
static_assert(std::has_virtual_destructor_v<GX2DSurroundPoint>);
static_assert(sizeof(GX2DSurroundPolygon) ==
              kTablePointer + sizeof(std::vector<GX2DSurroundPoint*>) + 8);
static_assert(std::has_virtual_destructor_v<GX2DSurroundPolygon>);
static_assert(
    std::is_same_v<GX2DSurroundPolygon::ArcPoints, std::list<std::pair<double, GX2DPoint*>>>);

// Exceptions without anything of their own, each caught by its own name alone.
template <typename Exception>
constexpr bool IsPlainException =
    sizeof(Exception) == sizeof(std::exception) &&
    std::is_base_of_v<std::exception, Exception>&& std::is_default_constructible_v<Exception>;
static_assert(IsPlainException<GXApproximatePoints::IntersectionError>);
static_assert(IsPlainException<GXApproximatePoints::SameLineError>);
static_assert(IsPlainException<GXApproximatePoints::NoIntersectionError>);
static_assert(
    !std::is_base_of_v<GXApproximatePoints::IntersectionError,
                       GXApproximatePoints::SameLineError> &&
    !std::is_base_of_v<GXApproximatePoints::SameLineError, GXApproximatePoints::IntersectionError>);
static_assert(!std::is_base_of_v<GXApproximatePoints::IntersectionError,
                                 GXApproximatePoints::NoIntersectionError> &&
              !std::is_base_of_v<GXApproximatePoints::NoIntersectionError,
                                 GXApproximatePoints::IntersectionError>);
static_assert(!std::is_base_of_v<GXApproximatePoints::SameLineError,
                                 GXApproximatePoints::NoIntersectionError> &&
              !std::is_base_of_v<GXApproximatePoints::NoIntersectionError,
                                 GXApproximatePoints::SameLineError>);

// Look-alike engine.
static_assert(sizeof(GXLAElement) == 8);
static_assert(sizeof(GXLAElementSegment) == 16 && std::is_abstract_v<GXLAElementSegment>);
static_assert(sizeof(GXLAElementLine) == 16 && sizeof(GXLAElementArc) == 16);
static_assert(sizeof(GXLAElementAngle) == 16);
static_assert(sizeof(GXLATolerances) == 8);
static_assert(sizeof(GXLAContourParameters) == 40);
static_assert(sizeof(GXLAContour) == 40 + sizeof(std::vector<GXLAElement*>) + 8);
static_assert(sizeof(GXLAContourInstance) == sizeof(GX2DElmList) + 16);
static_assert(sizeof(GXLAContourInstanceRefList) == sizeof(std::list<GXLAContourInstance*>));
static_assert(sizeof(GXLAContourInstanceList) == sizeof(std::list<GXLAContourInstance*>));
static_assert(sizeof(GXLAContourList) == sizeof(std::list<GXLAContour*>));
static_assert(sizeof(GXLAContourManager) ==
              sizeof(std::map<GXLAContour*, GXLAContourInstanceRefList>));
static_assert(!std::is_polymorphic_v<GXLAContourInstanceRefList>);
static_assert(!std::is_polymorphic_v<GXLAContourInstanceList>);
static_assert(!std::is_polymorphic_v<GXLAContourList>);
static_assert(!std::is_polymorphic_v<GXLAContourManager>);
static_assert(sizeof(GXLAPartVisitor) == 8 && std::is_abstract_v<GXLAPartVisitor>);
static_assert(sizeof(GXLAPart) == 24 + sizeof(GXLAContourList) + sizeof(GXLAContourInstanceList) +
                                      sizeof(GXLAContourManager));
static_assert(sizeof(GXLAPartList) == sizeof(std::list<GXLAPart*>));
static_assert(!std::is_polymorphic_v<GXLAPartList>);
static_assert(sizeof(GXLAPartCreator) == 16);
static_assert(std::is_empty_v<GXLAPartsEqual> && sizeof(GXLAPartsEqual) == 1);
static_assert(sizeof(GXLAContourInstanceMapping) ==
              kTablePointer +
                  sizeof(std::map<GXLAContourInstanceRefList*, GXLAContourInstanceRefList*>));
static_assert(sizeof(CSortedInternalLAContourListCheck) == 8);
static_assert(sizeof(GXLAIntContoursEqual) == 64);
static_assert(sizeof(GXBiMapLAContourInstanceEquality) ==
              kTablePointer + 2 * sizeof(std::map<GXLAContourInstance*, GXLAContourInstance*>) +
                  sizeof(std::map<GXLAContourInstance*, int>));
static_assert(!std::is_polymorphic_v<bimap<int, double>>);
static_assert(sizeof(CGXLAElementMerge) == 8);
static_assert(sizeof(CGXLAPartDump) == 8 && std::has_virtual_destructor_v<CGXLAPartDump>);
static_assert(sizeof(IGXLAPartDump_GXLAContourInstanceXmlAttribute) == 8);
static_assert(std::is_abstract_v<IGXLAPartDump_GXLAContourInstanceXmlAttribute>);
static_assert(!std::has_virtual_destructor_v<IGXLAPartDump_GXLAContourInstanceXmlAttribute>);

// The classes of the kernel.
static_assert(sizeof(ttvPlaneCS) == 328 && alignof(ttvPlaneCS) == 8);
static_assert(sizeof(GXConicSurface) == 336 && std::is_base_of_v<ttvPlaneCS, GXConicSurface>);
static_assert(!std::is_polymorphic_v<ttvPlaneCS> && !std::is_polymorphic_v<GXConicSurface>);
// Hosts copy them field by field, and nothing has to be told when one ends.
static_assert(std::is_trivially_copyable_v<ttvPlaneCS>);
static_assert(std::is_trivially_copyable_v<GXConicSurface>);

// The numbers behind the enumerators.
static_assert(GXGeometry::ePointOutsideContour == 0 && GXGeometry::ePointInsideContour == 1 &&
              GXGeometry::ePointOnContour == 2);
static_assert(sizeof(GXGeometry::ePointInContourResult) == 4);
static_assert(GXLAContour::eNmbSegmentsEqual == 0 && GXLAContour::eNmbSegmentsMayDiffer == 1);
static_assert(GXLAContour::eGeometryNotSet == 0 && GXLAContour::eGeometryForward == 1 &&
              GXLAContour::eGeometryBackward == 2);
static_assert(GXLAContourParameters::GXLADirectionNone == 0 &&
              GXLAContourParameters::GXLADirectionCW == 1 &&
              GXLAContourParameters::GXLADirectionCCW == 2);
static_assert(sizeof(GXLAContour::eNmbSegmentsMode) == 4);
static_assert(sizeof(GXLAContour::eReversedGeometry) == 4);
static_assert(sizeof(GXLAContourParameters::GXLAContourDirection) == 4);

TEST(Layout, Vectors) {
  const GXVector v;
  EXPECT_EQ(OffsetOf(v, v.X), 8U);
  EXPECT_EQ(OffsetOf(v, v.Y), 16U);
  EXPECT_EQ(OffsetOf(v, v.Z), 24U);
  const GX2DVector w;
  EXPECT_EQ(OffsetOf(w, w.X), 8U);
  EXPECT_EQ(OffsetOf(w, w.Y), 16U);
}

TEST(Layout, Matrices) {
  const GXMatrix m;
  EXPECT_EQ(OffsetOf(m, m.Base[0]), 8U);
  EXPECT_EQ(OffsetOf(m, m.Base[2]), 72U);
  const GX2DMatrix flat;
  EXPECT_EQ(OffsetOf(flat, flat.E11), 0U);
  EXPECT_EQ(OffsetOf(flat, flat.E12), 8U);
  EXPECT_EQ(OffsetOf(flat, flat.E21), 16U);
  EXPECT_EQ(OffsetOf(flat, flat.E22), 24U);
  const GXColBasedTransformMatrix frame;
  EXPECT_EQ(OffsetOf(frame, frame.Base[0]), 8U);
  EXPECT_EQ(OffsetOf(frame, frame.Base[2]), 72U);
}

TEST(Layout, RotationSystemAndBox) {
  const GXRotation rotation;
  EXPECT_EQ(OffsetOf(rotation, rotation.A), 8U);
  EXPECT_EQ(OffsetOf(rotation, rotation.B), 16U);
  EXPECT_EQ(OffsetOf(rotation, rotation.C), 24U);
  EXPECT_EQ(OffsetOf(rotation, rotation.O), 32U);
  const GXCoordSystem system;
  EXPECT_EQ(OffsetOf(system, system.Origin), 8U);
  EXPECT_EQ(OffsetOf(system, system.AngleX), 40U);
  EXPECT_EQ(OffsetOf(system, system.AngleY), 48U);
  EXPECT_EQ(OffsetOf(system, system.AngleZ), 56U);
  const GXBoundBox box;
  EXPECT_EQ(OffsetOf(box, box.Minimum), 8U);
  EXPECT_EQ(OffsetOf(box, box.Maximum), 40U);
  const GXDoubleIntegerPair pair(1.0, 2);
  EXPECT_EQ(OffsetOf(pair, pair.first), 0U);
  EXPECT_EQ(OffsetOf(pair, pair.second), 8U);
}

TEST(Layout, ElementsOfThePlane) {
  const GX2DPoint point;
  EXPECT_EQ(OffsetOf(point, point.X), 8U);
  EXPECT_EQ(OffsetOf(point, point.Y), 16U);
  const GX2DLine line;
  EXPECT_EQ(OffsetOf(line, line.Start), 8U);
  EXPECT_EQ(OffsetOf(line, line.End), 32U);
  const GX2DRectangle rectangle;
  EXPECT_EQ(OffsetOf(rectangle, rectangle.Corner1), 8U);
  EXPECT_EQ(OffsetOf(rectangle, rectangle.Corner2), 32U);
  const GX2DArc arc;
  EXPECT_EQ(OffsetOf(arc, arc.Start), 8U);
  EXPECT_EQ(OffsetOf(arc, arc.Mid), 32U);
  EXPECT_EQ(OffsetOf(arc, arc.End), 56U);
  EXPECT_EQ(OffsetOf(arc, arc.Center), 80U);
}

TEST(Layout, ElementsInSpace) {
  const GX3DPoint point;
  EXPECT_EQ(OffsetOf(point, point.X), 8U);
  EXPECT_EQ(OffsetOf(point, point.Y), 16U);
  EXPECT_EQ(OffsetOf(point, point.Z), 24U);
  const GX3DLine line;
  EXPECT_EQ(OffsetOf(line, line.Start), 8U);
  EXPECT_EQ(OffsetOf(line, line.End), 40U);
  const GX3DArc arc;
  EXPECT_EQ(OffsetOf(arc, arc.Start), 8U);
  EXPECT_EQ(OffsetOf(arc, arc.Mid), 40U);
  EXPECT_EQ(OffsetOf(arc, arc.End), 72U);
  EXPECT_EQ(OffsetOf(arc, arc.Center), 104U);
  const GX3DPointBoolPair pair;
  EXPECT_EQ((OffsetOfBase<std::pair<GX3DPoint, bool>>(pair)), 8U);
  EXPECT_EQ(OffsetOf(pair, pair.first), 8U);
  EXPECT_EQ(OffsetOf(pair, pair.second), 40U);
}

TEST(Layout, TheVisitorKeepsItsStopFlagBehindTheTable) {
  GX2DElementCreator creator;
  GX2DElementVisitor& visitor = creator;
  EXPECT_EQ(ReadAt<unsigned char>(visitor, 8), 0);
  visitor.StopAcceptElementVisitor();
  EXPECT_EQ(ReadAt<unsigned char>(visitor, 8), 1);
}

TEST(Layout, TheCreatorKeepsTheCreatedElementBehindTheVisitor) {
  GX2DElementCreator creator;
  EXPECT_EQ(ReadAt<const void*>(creator, 16), nullptr);
  GX2DPoint point(1, 2);
  point.Accept(creator);
  const auto* const created = ReadAt<const GX2DElement*>(creator, 16);
  ASSERT_NE(created, nullptr);
  delete created;
}

TEST(Layout, ElementListsKeepTheSequenceBehindTheTable) {
  EXPECT_EQ(OffsetOfBase<std::deque<GX2DElement*>>(GX2DElmList()), 8U);
  EXPECT_EQ(OffsetOfBase<std::deque<GX3DElement*>>(GX3DElmList()), 8U);
  EXPECT_EQ(OffsetOfBase<std::deque<GX2DPoint*>>(GX2DPointRefList()), 8U);
  EXPECT_EQ(OffsetOfBase<GX2DPointRefList>(GX2DPointList()), 0U);
  EXPECT_EQ(OffsetOfBase<std::deque<GX2DLine*>>(GX2DLineList()), 8U);
  EXPECT_EQ(OffsetOfBase<std::list<GX2DElmList*>>(GX2DElmListRefList()), 8U);
  EXPECT_EQ(OffsetOfBase<GX2DElmListRefList>(GX2DElmListList()), 0U);
}

TEST(Layout, TheRingAroundAContour) {
  const GX2DSurroundPoint vertex;
  EXPECT_EQ(OffsetOf(vertex, vertex.Point), 8U);
  EXPECT_EQ(OffsetOf(vertex, vertex.Elements), 16U);
  const GX2DSurroundPolygon ring;
  EXPECT_EQ(OffsetOfBase<std::vector<GX2DSurroundPoint*>>(ring), 8U);
  EXPECT_EQ(OffsetOf(ring, ring.OrigElmList), 8 + sizeof(std::vector<GX2DSurroundPoint*>));
}

TEST(Layout, ExceptionsOfTheLibraryAreCaughtByTheirOwnName) {
  EXPECT_THROW(throw GXApproximatePoints::IntersectionError(),
               GXApproximatePoints::IntersectionError);
  EXPECT_THROW(throw GXApproximatePoints::SameLineError(), GXApproximatePoints::SameLineError);
  EXPECT_THROW(throw GXApproximatePoints::NoIntersectionError(), std::exception);
}

TEST(Layout, ElementsOfAContour) {
  EXPECT_EQ(ReadAt<double>(GXLAElementLine(2.5), 8), 2.5);
  EXPECT_EQ(ReadAt<double>(GXLAElementArc(3.5), 8), 3.5);
  EXPECT_EQ(ReadAt<double>(GXLAElementAngle(1.25, 0.01), 8), 1.25);
}

TEST(Layout, Contours) {
  const GXLAContour contour(true, GXLAContourParameters::GXLADirectionCW);
  EXPECT_EQ(OffsetOf(contour, contour.TotalGeometryLength), 8U);
  EXPECT_EQ(OffsetOf(contour, contour.TotalGeometryAngle), 16U);
  EXPECT_EQ(OffsetOf(contour, contour.NumberOfLines), 24U);
  EXPECT_EQ(OffsetOf(contour, contour.NumberOfArcs), 28U);
  EXPECT_EQ(OffsetOf(contour, contour.Closed), 32U);
  EXPECT_EQ(OffsetOf(contour, contour.Direction), 36U);
  EXPECT_EQ(OffsetOfBase<GXLAContourParameters>(contour), 0U);
  EXPECT_EQ(OffsetOfBase<std::vector<GXLAElement*>>(contour), 40U);
  EXPECT_EQ(OffsetOf(contour, contour.ContourIndex), 40 + sizeof(std::vector<GXLAElement*>));
}

TEST(Layout, ContourInstances) {
  const GXLAContourInstance instance(GX2DElmList(), nullptr, false, 0);
  const std::size_t own = sizeof(GX2DElmList);
  EXPECT_EQ(OffsetOfBase<GX2DElmList>(instance), 0U);
  EXPECT_EQ(OffsetOf(instance, instance.LAContour), own);
  EXPECT_EQ(OffsetOf(instance, instance.Reversed), own + 8);
  EXPECT_EQ(OffsetOf(instance, instance.StartPosition), own + 12);
}

TEST(Layout, Parts) {
  const GXLAPart part;
  EXPECT_EQ(OffsetOf(part, part.ExternalLAContour), 8U);
  EXPECT_EQ(OffsetOf(part, part.ExternalLAContourInstance), 16U);
  EXPECT_EQ(OffsetOf(part, part.InternalLAContours), 24U);
  EXPECT_EQ(OffsetOf(part, part.InternalLAContourInstances), 24 + sizeof(GXLAContourList));
  EXPECT_EQ(OffsetOf(part, part.InternalLAContourManager),
            24 + sizeof(GXLAContourList) + sizeof(GXLAContourInstanceList));
  GXLAPartList parts;
  const GXLAPartCreator creator(parts);
  EXPECT_EQ(ReadAt<const GXLAPartList*>(creator, 8), &parts);
}

TEST(Layout, Comparisons) {
  GXLAPart first;
  GXLAPart second;
  GXLATolerances tolerances;
  const GXLAIntContoursEqual check(first, second, GXLAContour::eNmbSegmentsEqual, tolerances,
                                   nullptr);
  EXPECT_EQ(OffsetOf(check, check.FirstManager), 8U);
  EXPECT_EQ(OffsetOf(check, check.SecondManager), 16U);
  EXPECT_EQ(OffsetOf(check, check.FirstContours), 24U);
  EXPECT_EQ(OffsetOf(check, check.SecondContours), 32U);
  EXPECT_EQ(OffsetOf(check, check.Mode), 40U);
  EXPECT_EQ(ReadAt<const GXLATolerances*>(check, 48), &tolerances);
  EXPECT_EQ(OffsetOf(check, check.Trace), 56U);
}

TEST(Layout, Mappings) {
  using Partners = std::map<GXLAContourInstance*, GXLAContourInstance*>;
  const GXLAContourInstanceMapping mapping;
  EXPECT_EQ(
      (OffsetOfBase<std::map<GXLAContourInstanceRefList*, GXLAContourInstanceRefList*>>(mapping)),
      8U);
  const GXBiMapLAContourInstanceEquality pairs;
  EXPECT_EQ(OffsetOf(pairs, pairs.KeyToValue), 8U);
  EXPECT_EQ(OffsetOf(pairs, pairs.ValueToKey), 8 + sizeof(Partners));
  EXPECT_EQ(OffsetOf(pairs, pairs.Offsets), 8 + 2 * sizeof(Partners));
}

// The flag, seven points of 24 bytes, two frames of 72 bytes, the unit flag.
TEST(Layout, PlaneWithItsCoordinateSystem) {
  const ttvPlaneCS plane(0);
  EXPECT_EQ(OffsetOf(plane, plane.Valid), 0U);
  EXPECT_EQ(OffsetOf(plane, plane.Origin), 8U);
  EXPECT_EQ(OffsetOf(plane, plane.XPoint), 32U);
  EXPECT_EQ(OffsetOf(plane, plane.YPoint), 56U);
  EXPECT_EQ(OffsetOf(plane, plane.ZPoint), 80U);
  EXPECT_EQ(OffsetOf(plane, plane.UnitX), 104U);
  EXPECT_EQ(OffsetOf(plane, plane.UnitY), 128U);
  EXPECT_EQ(OffsetOf(plane, plane.UnitZ), 152U);
  EXPECT_EQ(OffsetOf(plane, plane.Frame), 176U);
  EXPECT_EQ(OffsetOf(plane, plane.Inverse), 248U);
  EXPECT_EQ(OffsetOf(plane, plane.Unit), 320U);
}

TEST(Layout, CylinderBehindItsPlane) {
  const GXConicSurface cylinder(0);
  EXPECT_EQ(OffsetOfBase<ttvPlaneCS>(cylinder), 0U);
  EXPECT_EQ(OffsetOf(cylinder, cylinder.Radius), 328U);
}

TEST(Layout, CompanionTypes) {
  const GXString text("abc");
  EXPECT_EQ(OffsetOf(text, text.Str()), 8U);
  EXPECT_EQ(OffsetOfBase<std::list<GXParagraph*>>(GXParagraphList()), 8U);
}

}  // namespace
