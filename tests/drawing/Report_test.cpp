#include "drawing/Report.h"

#include "drawing/TextTable.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>

namespace {

TEST(Millimetres, HasFourDecimalsAndNoNegativeZero) {
  EXPECT_EQ(drawing::Millimetres(12.34567), "12.3457");
  EXPECT_EQ(drawing::Millimetres(-0.00001), "0.0000");
  EXPECT_EQ(drawing::Millimetres(-0.5), "-0.5000");
  EXPECT_EQ(drawing::Position(1, -2), "(1.0000, -2.0000)");
}

TEST(Millimetres, WritesTheLargestNumbers) {
  EXPECT_EQ(drawing::Millimetres(1.7976931348623157e308).size(), 309U + 5U);
}

TEST(TextTable, PadsColumnsAndDropsBlanksAtTheEnd) {
  drawing::TextTable table("lrl");
  table.Row({"a", "1", "x"});
  table.Row({"long", "1234"});
  table.Row({"b", "12", "y", "surplus"});
  EXPECT_EQ(table.Print("  "), "  a        1  x\n  long  1234\n  b       12  y\n");
}

TEST(TextTable, CountsCharactersOfUtf8) {
  drawing::TextTable table("ll");
  table.Row({"\xC3\xA4", "x"});
  table.Row({"ab", "y"});
  EXPECT_EQ(table.Print(""), "\xC3\xA4   x\nab  y\n");
}

TEST(InfoText, TellsWhyADrawingIsNotUsable) {
  drawing::Drawing refused;
  refused.file = "a.dxf";
  refused.refusal = "it is empty";
  const drawing::PartModel part = drawing::BuildPart(std::move(refused));
  EXPECT_EQ(drawing::InfoText(part), "a.dxf\n  not usable: it is empty\n");
  EXPECT_EQ(drawing::InfoJson(part)["refusal"], "it is empty");
}

}  // namespace
