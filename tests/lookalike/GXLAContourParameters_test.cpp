#include <KTRCL_Geometry/lookalike/GXLAElements.h>

#include <gtest/gtest.h>

namespace {

TEST(GXLAContourParameters, BeginWithZerosAndTheGivenFlags) {
  const GXLAContourParameters header(true, GXLAContourParameters::GXLADirectionCCW);
  EXPECT_EQ(header.TotalGeometryLength, 0.0);
  EXPECT_EQ(header.TotalGeometryAngle, 0.0);
  EXPECT_EQ(header.NumberOfLines, 0);
  EXPECT_EQ(header.NumberOfArcs, 0);
  EXPECT_TRUE(header.Closed);
  EXPECT_EQ(header.Direction, GXLAContourParameters::GXLADirectionCCW);
}

TEST(GXLAContourParameters, NumberTheDirections) {
  EXPECT_EQ(static_cast<int>(GXLAContourParameters::GXLADirectionNone), 0);
  EXPECT_EQ(static_cast<int>(GXLAContourParameters::GXLADirectionCW), 1);
  EXPECT_EQ(static_cast<int>(GXLAContourParameters::GXLADirectionCCW), 2);
}

TEST(GXLAContourParameters, CopyAllSixFields) {
  GXLAContourParameters header(false, GXLAContourParameters::GXLADirectionCW);
  header.TotalGeometryLength = 1.5;
  header.TotalGeometryAngle = 2.5;
  header.NumberOfLines = 3;
  header.NumberOfArcs = 4;
  const GXLAContourParameters copy(header);
  GXLAContourParameters assigned(true, GXLAContourParameters::GXLADirectionNone);
  assigned = header;
  for (const GXLAContourParameters* each :
       {&copy, static_cast<const GXLAContourParameters*>(&assigned)}) {
    EXPECT_EQ(each->TotalGeometryLength, 1.5);
    EXPECT_EQ(each->TotalGeometryAngle, 2.5);
    EXPECT_EQ(each->NumberOfLines, 3);
    EXPECT_EQ(each->NumberOfArcs, 4);
    EXPECT_FALSE(each->Closed);
    EXPECT_EQ(each->Direction, GXLAContourParameters::GXLADirectionCW);
  }
}

}  // namespace
