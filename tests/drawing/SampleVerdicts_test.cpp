// Every row of samples/verdicts.csv is a test of its own: the two drawings, the mode, the verdict.
#include "drawing/DxfReader.h"
#include "drawing/HealingSummary.h"
#include "drawing/PartComparison.h"
#include "drawing/PartModel.h"

#include <gtest/gtest.h>

#include <cctype>
#include <fstream>
#include <ostream>
#include <sstream>
#include <string>
#include <vector>

namespace {

struct Row {
  std::string a;
  std::string b;
  std::string mode;
  std::string expected;
};

void PrintTo(const Row& row, std::ostream* out) {
  *out << row.a << " with " << row.b << ", " << row.mode << ": " << row.expected;
}

std::vector<Row> ReadRows() {
  std::ifstream file(KTRCL_SAMPLES_DIR "/verdicts.csv");
  std::vector<Row> rows;
  std::string line;
  std::getline(file, line);  // The heading.
  while (std::getline(file, line)) {
    if (!line.empty() && line.back() == '\r') line.pop_back();
    if (line.empty()) continue;
    std::istringstream cells(line);
    Row row;
    std::string positions;
    std::getline(cells, row.a, ',');
    std::getline(cells, row.b, ',');
    std::getline(cells, row.mode, ',');
    std::getline(cells, positions, ',');
    std::getline(cells, row.expected, ',');
    rows.push_back(row);
  }
  return rows;
}

std::string NameOf(const testing::TestParamInfo<Row>& info) {
  std::string name = std::to_string(info.index + 1) + "_" + info.param.a + "_" + info.param.b +
                     "_" + info.param.mode;
  for (char& c : name) {
    if (std::isalnum(static_cast<unsigned char>(c)) == 0) c = '_';
  }
  return name;
}

// Healed as the program does where nothing else is asked for.
drawing::PartModel ReadPart(const std::string& name) {
  drawing::HealingSummary healing;
  return drawing::BuildPart(drawing::HealedForParts(
      drawing::ReadDrawing(std::string(KTRCL_SAMPLES_DIR) + "/" + name), 0.1, healing));
}

class SampleVerdicts : public testing::TestWithParam<Row> {};

TEST_P(SampleVerdicts, AreAsTheTableSays) {
  const Row& row = GetParam();
  ASSERT_TRUE(row.mode == "equal" || row.mode == "may-differ") << row.mode;
  ASSERT_TRUE(row.expected == "same" || row.expected == "different") << row.expected;
  const drawing::PartModel a = ReadPart(row.a);
  const drawing::PartModel b = ReadPart(row.b);
  ASSERT_TRUE(a.usable) << a.obstacle;
  ASSERT_TRUE(b.usable) << b.obstacle;
  drawing::CompareOptions options;
  if (row.mode == "may-differ") options.mode = GXLAContour::eNmbSegmentsMayDiffer;

  const drawing::Comparison comparison = drawing::CompareParts(a, b, options);

  EXPECT_EQ(comparison.same, row.expected == "same") << comparison.verdict;
  EXPECT_EQ(comparison.verdict.rfind(comparison.same ? "Same: " : "Different: ", 0), 0u);
}

INSTANTIATE_TEST_SUITE_P(Table, SampleVerdicts, testing::ValuesIn(ReadRows()), NameOf);

TEST(SampleVerdictsTable, HasRows) { EXPECT_GE(ReadRows().size(), 10u); }

}  // namespace
