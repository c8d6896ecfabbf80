#include "drawing/Drawing.h"

#include <gtest/gtest.h>

#include <cmath>

namespace drawing {
namespace {

Complaint SampleComplaint() {
  Complaint complaint;
  complaint.file = "plate.dxf";
  complaint.line = 12;
  complaint.entity = "LINE";
  complaint.handle = "2F";
  complaint.what = "\"abc\" is no number (group 10)";
  complaint.done = "not used";
  complaint.severity = Severity::kError;
  return complaint;
}

TEST(ToLine, NamesFileLineSeverityEntityHandleFaultAndDeed) {
  EXPECT_EQ(ToLine(SampleComplaint()),
            "plate.dxf:12: error: LINE 2F: \"abc\" is no number (group 10); not used");
}

TEST(ToLine, LeavesOutWhatIsNotKnown) {
  Complaint complaint = SampleComplaint();
  complaint.line = 0;
  complaint.handle.clear();
  complaint.done.clear();
  complaint.severity = Severity::kWarning;
  EXPECT_EQ(ToLine(complaint), "plate.dxf: warning: LINE: \"abc\" is no number (group 10)");
  complaint.entity.clear();
  complaint.severity = Severity::kNote;
  EXPECT_EQ(ToLine(complaint), "plate.dxf: note: \"abc\" is no number (group 10)");
}

TEST(ToLine, StaysOneLineWhateverTheFileIsCalled) {
  Complaint complaint = SampleComplaint();
  complaint.file = "a\nb\x1b[31m.dxf";
  EXPECT_EQ(ToLine(complaint).substr(0, 13), "a?b?[31m.dxf:");
}

TEST(UnitFromCode, KnowsEveryCodeWithItsLengthInMillimetres) {
  const struct {
    int code;
    double millimetres;
  } rows[] = {
      {1, 25.4},
      {2, 12 * 25.4},
      {3, 63360 * 25.4},
      {4, 1.0},
      {5, 10.0},
      {6, 1e3},
      {7, 1e6},
      {8, 25.4e-6},
      {9, 25.4e-3},
      {10, 36 * 25.4},
      {11, 1e-7},
      {12, 1e-6},
      {13, 1e-3},
      {14, 1e2},
      {15, 1e4},
      {16, 1e5},
      {17, 1e12},
      {18, 149597870700e3},
      {19, 299792458.0 * 31557600.0 * 1e3},
      {20, 149597870700e3 * 648000.0 / 3.14159265358979323846},
      {21, 12e5 / 3937},
      {22, 1e5 / 3937},
      {23, 36e5 / 3937},
      {24, 6336e6 / 3937},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.code);
    Unit unit;
    EXPECT_TRUE(UnitFromCode(row.code, unit));
    EXPECT_EQ(unit.code, row.code);
    EXPECT_FALSE(unit.assumed);
    // Two roundings apart at the most.
    EXPECT_NEAR(unit.millimetresPerUnit / row.millimetres, 1.0, 1e-15);
  }
}

TEST(UnitFromCode, TakesUnitlessAsMillimetresAndSaysSo) {
  Unit unit;
  unit.millimetresPerUnit = 5.0;
  EXPECT_TRUE(UnitFromCode(0, unit));
  EXPECT_TRUE(unit.assumed);
  EXPECT_EQ(unit.millimetresPerUnit, 1.0);
  EXPECT_NE(unit.source.find("taken as millimetres"), std::string::npos);
}

TEST(UnitFromCode, TakesUnknownCodesAsMillimetresAndSaysSo) {
  for (const int code : {-1, 25, 2147483647, -2147483647 - 1}) {
    SCOPED_TRACE(code);
    Unit unit;
    EXPECT_FALSE(UnitFromCode(code, unit));
    EXPECT_TRUE(unit.assumed);
    EXPECT_EQ(unit.millimetresPerUnit, 1.0);
    EXPECT_NE(unit.source.find(std::to_string(code)), std::string::npos);
  }
}

}  // namespace
}  // namespace drawing
