// Storing values and single elements in a paragraph, and taking them back.
#include <KTRCL_DataTypes/GXParagraph.h>
#include <KTRCL_DataTypes/GXString.h>
#include <KTRCL_Geometry/elements/GX2DElements.h>
#include <KTRCL_Geometry/elements/GX3DElements.h>
#include <KTRCL_Geometry/foundation/GXBoundBox.h>
#include <KTRCL_Geometry/foundation/GXCoordSystem.h>
#include <KTRCL_Geometry/foundation/GXMatrix.h>
#include <KTRCL_Geometry/foundation/GXRotation.h>
#include <KTRCL_Geometry/foundation/GXVector.h>

#include "support/Build.h"
#include "support/MemoryParagraph.h"
#include "support/Near.h"
#include "support/Paragraphs.h"
#include "support/Random.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <limits>
#include <string>
#include <type_traits>
#include <vector>

namespace {

using support::Layout;
using support::MemoryParagraph;
using Doubles = std::vector<double>;

// Matrices and rotations take two arguments, all others a third one that is not used.
template <typename T>
constexpr bool kTakesTwo = std::is_same_v<T, GXMatrix> || std::is_same_v<T, GXRotation>;

template <typename T>
auto Write(T& object, const GXString& key, MemoryParagraph& root, int unused = 0) {
  GXParagraph* const paragraph = &root;
  if constexpr (kTakesTwo<T>) {
    static_cast<void>(unused);
    return object.Write(key, paragraph);
  } else {
    return object.Write(key, paragraph, unused);
  }
}

template <typename T>
auto Read(T& object, const GXString& key, MemoryParagraph* root, int unused = 0) {
  GXParagraph* const paragraph = root;
  if constexpr (kTakesTwo<T>) {
    static_cast<void>(unused);
    return object.Read(key, paragraph);
  } else {
    return object.Read(key, paragraph, unused);
  }
}

/// One way to make a class from its numbers, in the order in which they are stored, to get them
/// back, and the layout of its paragraph.
template <typename T>
struct Form;

template <>
struct Form<GX2DPoint> {
  static constexpr const char* kLayout = "X Y";
  static Doubles Numbers(const GX2DPoint& p) { return {p.X, p.Y}; }
  static GX2DPoint Make(const double* n) { return GX2DPoint(n); }
};
template <>
struct Form<GX3DPoint> {
  static constexpr const char* kLayout = "X Y Z";
  static Doubles Numbers(const GX3DPoint& p) { return {p.X, p.Y, p.Z}; }
  static GX3DPoint Make(const double* n) { return GX3DPoint(n); }
};
template <>
struct Form<GX2DVector> {
  static constexpr const char* kLayout = "X Y";
  static Doubles Numbers(const GX2DVector& v) { return {v.X, v.Y}; }
  static GX2DVector Make(const double* n) { return {n[0], n[1]}; }
};
template <>
struct Form<GXVector> {
  static constexpr const char* kLayout = "X Y Z";
  static Doubles Numbers(const GXVector& v) { return {v.X, v.Y, v.Z}; }
  static GXVector Make(const double* n) { return {n[0], n[1], n[2]}; }
};
template <>
struct Form<GX2DLine> {
  static constexpr const char* kLayout = "Start(X Y) End(X Y)";
  static Doubles Numbers(const GX2DLine& l) { return support::Numbers(l); }
  static GX2DLine Make(const double* n) { return {n[0], n[1], n[2], n[3]}; }
};
template <>
struct Form<GX3DLine> {
  static constexpr const char* kLayout = "Start(X Y Z) End(X Y Z)";
  static Doubles Numbers(const GX3DLine& l) { return support::Numbers(l); }
  static GX3DLine Make(const double* n) { return {GX3DPoint(n), GX3DPoint(n + 3)}; }
};
template <>
struct Form<GX2DRectangle> {
  static constexpr const char* kLayout = "Corner1(X Y) Corner2(X Y)";
  static Doubles Numbers(const GX2DRectangle& r) { return support::Numbers(r); }
  static GX2DRectangle Make(const double* n) { return {n[0], n[1], n[2], n[3]}; }
};
template <>
struct Form<GX2DArc> {
  static constexpr const char* kLayout = "Center(X Y) Start(X Y) Mid(X Y) End(X Y)";
  static Doubles Numbers(const GX2DArc& a) {
    return {a.Center.X, a.Center.Y, a.Start.X, a.Start.Y, a.Mid.X, a.Mid.Y, a.End.X, a.End.Y};
  }
  static GX2DArc Make(const double* n) {
    return {GX2DPoint(n), GX2DPoint(n + 2), GX2DPoint(n + 4), GX2DPoint(n + 6)};
  }
};
template <>
struct Form<GX3DArc> {
  static constexpr const char* kLayout = "Center(X Y Z) Start(X Y Z) Mid(X Y Z) End(X Y Z)";
  static Doubles Numbers(const GX3DArc& a) {
    return support::Joined({support::Numbers(a.Center), support::Numbers(a.Start),
                            support::Numbers(a.Mid), support::Numbers(a.End)});
  }
  static GX3DArc Make(const double* n) {
    return {GX3DPoint(n), GX3DPoint(n + 3), GX3DPoint(n + 6), GX3DPoint(n + 9)};
  }
};
template <>
struct Form<GXMatrix> {
  static constexpr const char* kLayout = "E11 E12 E13 E21 E22 E23 E31 E32 E33";
  static Doubles Numbers(const GXMatrix& m) { return support::Numbers(m); }
  static GXMatrix Make(const double* n) {
    return {n[0], n[1], n[2], n[3], n[4], n[5], n[6], n[7], n[8]};
  }
};
template <>
struct Form<GXColBasedTransformMatrix> {
  static constexpr const char* kLayout = "P0(X Y Z) P1(X Y Z) P2(X Y Z)";
  static Doubles Numbers(const GXColBasedTransformMatrix& m) { return support::Numbers(m); }
  static GXColBasedTransformMatrix Make(const double* n) {
    GXVector vectors[] = {GXVector(n), GXVector(n + 3), GXVector(n + 6)};
    return GXColBasedTransformMatrix(vectors);
  }
};
template <>
struct Form<GXRotation> {
  static constexpr const char* kLayout = "A B C text:O";
  static Doubles Numbers(const GXRotation& r) { return {r.A, r.B, r.C}; }
  static GXRotation Make(const double* n) { return {n[0], n[1], n[2], 0}; }
};
template <>
struct Form<GXCoordSystem> {
  static constexpr const char* kLayout = "ORIGINX ORIGINY ORIGINZ ANGLEX ANGLEY ANGLEZ";
  static Doubles Numbers(const GXCoordSystem& s) {
    return {s.Origin.X, s.Origin.Y, s.Origin.Z, s.AngleX, s.AngleY, s.AngleZ};
  }
  static GXCoordSystem Make(const double* n) {
    GXCoordSystem system;
    system.Origin = GX3DPoint(n);
    system.AngleX = n[3];
    system.AngleY = n[4];
    system.AngleZ = n[5];
    return system;
  }
};
template <>
struct Form<GXBoundBox> {
  static constexpr const char* kLayout = "MIN(X Y Z) MAX(X Y Z)";
  static Doubles Numbers(const GXBoundBox& b) {
    return support::Joined({support::Numbers(b.Minimum), support::Numbers(b.Maximum)});
  }
  static GXBoundBox Make(const double* n) {
    GXBoundBox box;
    box.Minimum = GX3DPoint(n);
    box.Maximum = GX3DPoint(n + 3);
    return box;
  }
};

constexpr double kOneToTwelve[] = {1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12};

template <typename T>
T Sample() {
  return Form<T>::Make(kOneToTwelve);
}
template <typename T>
std::size_t Count() {
  return Form<T>::Numbers(Sample<T>()).size();
}

void ExpectSameBits(const Doubles& actual, const Doubles& expected) {
  ASSERT_EQ(actual.size(), expected.size());
  for (std::size_t i = 0; i < actual.size(); ++i) {
    EXPECT_SAME_BITS(actual[i], expected[i]) << "number " << i;
  }
}

template <typename T>
class Stored : public testing::Test {};
using AllClasses = testing::Types<GX2DPoint, GX3DPoint, GX2DVector, GXVector, GX2DLine, GX3DLine,
                                  GX2DRectangle, GX2DArc, GX3DArc, GXMatrix,
                                  GXColBasedTransformMatrix, GXRotation, GXCoordSystem, GXBoundBox>;
TYPED_TEST_SUITE(Stored, AllClasses, );

TYPED_TEST(Stored, HasItsKeysAndChildrenInOrder) {
  MemoryParagraph root;
  TypeParam object = Sample<TypeParam>();
  Write(object, "Key", root);
  EXPECT_EQ(Layout(root), std::string("Key(") + Form<TypeParam>::kLayout + ")");
}

TYPED_TEST(Stored, StandsInTheParagraphItselfForAnEmptyKey) {
  MemoryParagraph root;
  TypeParam object = Sample<TypeParam>();
  Write(object, "", root);
  EXPECT_EQ(Layout(root), Form<TypeParam>::kLayout);
}

TYPED_TEST(Stored, IsAddedAgainUnderTheSameKey) {
  MemoryParagraph root;
  TypeParam object = Sample<TypeParam>();
  Write(object, "Key", root);
  Write(object, "Key", root);
  EXPECT_EQ(root.ChildCount(), 2u);
}

TYPED_TEST(Stored, NumbersAreStoredInOrderAndUnrounded) {
  MemoryParagraph root;
  TypeParam object = Sample<TypeParam>();
  Write(object, "Key", root);
  Doubles numbers;
  std::vector<int> decimals;
  support::CollectDoubles(root, numbers, decimals);
  EXPECT_EQ(numbers, Doubles(kOneToTwelve, kOneToTwelve + Count<TypeParam>()));
  EXPECT_EQ(decimals, std::vector<int>(Count<TypeParam>(), -1));
}

TYPED_TEST(Stored, PaysNoHeedToTheLastArgument) {
  for (const int unused : {-1, 2, std::numeric_limits<int>::max()}) {
    MemoryParagraph root;
    TypeParam object = Sample<TypeParam>();
    Write(object, "Key", root, unused);
    EXPECT_EQ(Layout(root), std::string("Key(") + Form<TypeParam>::kLayout + ")");
    TypeParam back;
    Read(back, "Key", &root, unused);
    EXPECT_EQ(Form<TypeParam>::Numbers(back), Form<TypeParam>::Numbers(object));
  }
}

TYPED_TEST(Stored, IsTheSameBitForBitWhenItIsTakenBack) {
  support::Random random;
  const double odd[] = {-0.0,
                        std::numeric_limits<double>::denorm_min(),
                        -std::numeric_limits<double>::denorm_min(),
                        std::numeric_limits<double>::max(),
                        std::numeric_limits<double>::infinity(),
                        -std::numeric_limits<double>::infinity(),
                        std::numeric_limits<double>::quiet_NaN(),
                        0.1};
  for (int round = 0; round < 100; ++round) {
    double numbers[12];
    for (double& number : numbers) {
      const std::uint64_t bits = random.Engine()();
      std::memcpy(&number, &bits, sizeof number);
      const int choice = random.Int(0, 20);
      number = choice < 8 ? odd[choice] : number;
    }
    TypeParam object = Form<TypeParam>::Make(numbers);
    for (const char* const key : {"Key", ""}) {
      MemoryParagraph root;
      Write(object, key, root);
      TypeParam back = Sample<TypeParam>();
      Read(back, key, &root);
      ExpectSameBits(Form<TypeParam>::Numbers(back), Form<TypeParam>::Numbers(object));
    }
  }
}

TYPED_TEST(Stored, StaysAsItIsWithoutAParagraph) {
  TypeParam object = Sample<TypeParam>();
  Read(object, "Key", nullptr);
  Read(object, "", nullptr);
  EXPECT_EQ(Form<TypeParam>::Numbers(object), Form<TypeParam>::Numbers(Sample<TypeParam>()));
}

TYPED_TEST(Stored, StaysAsItIsWithoutTheChild) {
  MemoryParagraph root;
  TypeParam other = Form<TypeParam>::Make(kOneToTwelve);
  Write(other, "key", root);  // another key: capitals count
  const double sevens[12] = {7, 7, 7, 7, 7, 7, 7, 7, 7, 7, 7, 7};
  TypeParam object = Form<TypeParam>::Make(sevens);
  Read(object, "Key", &root);
  EXPECT_EQ(Form<TypeParam>::Numbers(object), Doubles(Count<TypeParam>(), 7.0));
}

TYPED_TEST(Stored, MissingNumbersBecomeZero) {
  MemoryParagraph full;
  TypeParam object = Sample<TypeParam>();
  Write(object, "Key", full);
  MemoryParagraph hollow;  // the same children, without numbers
  support::GrowLike(full, hollow);
  Read(object, "Key", &hollow);
  EXPECT_EQ(Form<TypeParam>::Numbers(object), Doubles(Count<TypeParam>(), 0.0));
}

TYPED_TEST(Stored, ReadsTheFirstOfSeveralAndIgnoresWhatItDoesNotKnow) {
  MemoryParagraph root;
  root.Grow("Other").AddDouble("X", 99, -1);
  TypeParam object = Sample<TypeParam>();
  Write(object, "Key", root);
  root.Child("Key").AddDouble("Unknown", 99, -1);
  root.Child("Key").Grow("Unknown");
  const double sevens[12] = {7, 7, 7, 7, 7, 7, 7, 7, 7, 7, 7, 7};
  TypeParam second = Form<TypeParam>::Make(sevens);
  Write(second, "Key", root);
  TypeParam back;
  Read(back, "Key", &root);
  EXPECT_EQ(Form<TypeParam>::Numbers(back), Form<TypeParam>::Numbers(object));
}

/// Classes that keep their points in children of their own: a member whose child is missing stays.
template <typename T>
class StoredInChildren : public testing::Test {};
using ClassesWithChildren = testing::Types<GX2DLine, GX3DLine, GX2DRectangle, GX2DArc, GX3DArc,
                                           GXColBasedTransformMatrix, GXBoundBox>;
TYPED_TEST_SUITE(StoredInChildren, ClassesWithChildren, );

TYPED_TEST(StoredInChildren, AMissingChildLeavesThatMemberAndTheOthersAreRead) {
  MemoryParagraph full;
  TypeParam object = Sample<TypeParam>();
  Write(object, "", full);
  const std::size_t children = full.ChildCount();
  const std::size_t perChild = Count<TypeParam>() / children;
  for (std::size_t missing = 0; missing < children; ++missing) {
    MemoryParagraph part;
    for (std::size_t i = 0; i < children; ++i) {
      if (i != missing) {
        support::CopyInto(full.ChildAt(i), part.Grow(full.ChildAt(i).GetName().Str()));
      }
    }
    const double sevens[12] = {7, 7, 7, 7, 7, 7, 7, 7, 7, 7, 7, 7};
    TypeParam back = Form<TypeParam>::Make(sevens);
    Read(back, "", &part);
    Doubles expected(kOneToTwelve, kOneToTwelve + Count<TypeParam>());
    std::fill_n(expected.begin() + static_cast<std::ptrdiff_t>(missing * perChild), perChild, 7.0);
    EXPECT_EQ(Form<TypeParam>::Numbers(back), expected) << "without child " << missing;
  }
}

}  // namespace
