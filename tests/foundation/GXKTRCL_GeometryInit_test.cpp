#include <KTRCL_Geometry/foundation/GXKTRCL_GeometryInit.h>
#include <KTRCL_Geometry/foundation/GXVector.h>

#include <gtest/gtest.h>

#include <array>
#include <type_traits>

namespace {

static_assert(std::is_empty_v<GXKTRCL_GeometryInit>, "the class carries two calls and no data");

TEST(GXKTRCL_GeometryInit, TerminateWithoutInitHasNoEffect) {
  GXKTRCL_GeometryInit::Terminate();
  GXKTRCL_GeometryInit::Terminate();
  EXPECT_EQ(GXVector(3, 4, 0).Len(), 5.0);
}

TEST(GXKTRCL_GeometryInit, InitTakesANullPointer) {
  GXKTRCL_GeometryInit::Init(nullptr);
  EXPECT_EQ(GXVector(3, 4, 0).Len(), 5.0);
  GXKTRCL_GeometryInit::Terminate();
}

TEST(GXKTRCL_GeometryInit, InitNeitherReadsNorWritesWhatItIsGiven) {
  std::array<int, 4> memory = {1, 2, 3, 4};
  GXKTRCL_GeometryInit::Init(memory.data());
  GXKTRCL_GeometryInit::Terminate();
  EXPECT_EQ(memory, (std::array<int, 4>{1, 2, 3, 4}));

  // A pointer that nobody may follow.
  GXKTRCL_GeometryInit::Init(reinterpret_cast<void*>(1));
}

TEST(GXKTRCL_GeometryInit, InitMayBeCalledTwice) {
  int host = 7;
  GXKTRCL_GeometryInit::Init(&host);
  GXKTRCL_GeometryInit::Init(&host);
  EXPECT_EQ(host, 7);
  EXPECT_EQ(GXVector(3, 4, 0).Len(), 5.0);
}

TEST(GXKTRCL_GeometryInit, OperationsWorkBetweenInitAndTerminateAndAfterIt) {
  const GXVector v(1, 2, 3);
  const double before = v.dot(v);
  GXKTRCL_GeometryInit::Init(nullptr);
  const double between = v.dot(v);
  GXKTRCL_GeometryInit::Terminate();
  EXPECT_EQ(before, 14.0);
  EXPECT_EQ(between, 14.0);
  EXPECT_EQ(v.dot(v), 14.0);
}

TEST(GXKTRCL_GeometryInit, AssignmentGivesTheReceiver) {
  GXKTRCL_GeometryInit first;
  const GXKTRCL_GeometryInit second{};
  EXPECT_EQ(&(first = second), &first);
}

}  // namespace
