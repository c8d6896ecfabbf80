#include "support/LookAlike.h"

#include <KTRCL_Geometry/lookalike/GXLAContourInstance.h>

#include <gtest/gtest.h>

namespace {

TEST(CountNmbContourInstances, AddsUpTheGroups) {
  GXLAContour first(true, support::kCW);
  GXLAContour second(true, support::kCW);
  GXLAContour third(true, support::kCW);
  GXLAContourManager manager;
  manager[&first].resize(3, nullptr);
  manager[&second].resize(1, nullptr);
  manager[&third].resize(2, nullptr);
  EXPECT_EQ(manager.CountNmbContourInstances(), 6);
  EXPECT_EQ(manager.size(), 3U);
}

TEST(CountNmbContourInstances, IsZeroForAnEmptyManager) {
  EXPECT_EQ(GXLAContourManager().CountNmbContourInstances(), 0);
}

TEST(GXLAContourManager, CopiesTheMapAndNothingElse) {
  GXLAContour shape(true, support::kCW);
  GXLAContourInstance instance(GX2DElmList(), &shape, false, 0);
  GXLAContourManager manager;
  manager[&shape].push_back(&instance);
  const GXLAContourManager copy(manager);
  GXLAContourManager assigned;
  assigned = manager;
  EXPECT_EQ(copy.at(&shape).front(), &instance);
  EXPECT_EQ(assigned.at(&shape).front(), &instance);
}

}  // namespace
