#include <KTRCL_Geometry/lookalike/GXLAEquality.h>

#include <gtest/gtest.h>

#include <string>

namespace {

TEST(FindInMap, GivesNullForAListThatIsNoKey) {
  GXLAContourInstanceRefList list;
  EXPECT_EQ(GXLAContourInstanceMapping().FindInMap(list), nullptr);
}

TEST(AddToMap, KeepsTheFirstValueOfAKey) {
  GXLAContourInstanceRefList key;
  GXLAContourInstanceRefList first;
  GXLAContourInstanceRefList second;
  GXLAContourInstanceMapping mapping;
  mapping.AddToMap(key, first);
  mapping.AddToMap(key, second);
  EXPECT_EQ(mapping.FindInMap(key), &first);
  EXPECT_EQ(mapping.size(), 1U);
}

TEST(Bimap, AddReplacesBothDirectionsAndLeavesOldPartners) {
  bimap<std::string, int> map;
  map.add("a", 1);
  map.add("a", 2);
  EXPECT_EQ(map.KeyToValue.at("a"), 2);
  EXPECT_EQ(map.ValueToKey.at(1), "a");
  EXPECT_EQ(map.ValueToKey.at(2), "a");
}

TEST(Bimap, ClearEmptiesBothMaps) {
  bimap<int, int> map;
  map.add(1, 2);
  map.clear();
  EXPECT_TRUE(map.KeyToValue.empty());
  EXPECT_TRUE(map.ValueToKey.empty());
}

TEST(Bimap, CopiesAndAssignsByValue) {
  bimap<int, int> map;
  map.add(1, 2);
  bimap<int, int> copy(map);
  bimap<int, int> assigned;
  assigned = map;
  map.add(1, 3);
  EXPECT_EQ(copy.KeyToValue.at(1), 2);
  EXPECT_EQ(assigned.ValueToKey.at(2), 1);
}

TEST(AddToBiMap, RecordsBothPartnersAndTheOffset) {
  GXLAContourInstance a(GX2DElmList(), nullptr, false, 0);
  GXLAContourInstance b(GX2DElmList(), nullptr, false, 0);
  GXBiMapLAContourInstanceEquality map;
  map.AddToBiMap(a, b, 4);
  EXPECT_EQ(map.KeyToValue.at(&a), &b);
  EXPECT_EQ(map.ValueToKey.at(&b), &a);
  EXPECT_EQ(map.Offsets.at(&a), 4);
}

TEST(AddToBiMap, KeepsTheFirstOffsetButTheLastPartner) {
  GXLAContourInstance a(GX2DElmList(), nullptr, false, 0);
  GXLAContourInstance b(GX2DElmList(), nullptr, false, 0);
  GXLAContourInstance c(GX2DElmList(), nullptr, false, 0);
  GXBiMapLAContourInstanceEquality map;
  map.AddToBiMap(a, b, 4);
  map.AddToBiMap(a, c, 8);
  EXPECT_EQ(map.KeyToValue.at(&a), &c);
  EXPECT_EQ(map.ValueToKey.at(&b), &a);
  EXPECT_EQ(map.Offsets.at(&a), 4);
}

TEST(GXBiMapLAContourInstanceEquality, CopiesAndAssignsByValue) {
  GXLAContourInstance a(GX2DElmList(), nullptr, false, 0);
  GXLAContourInstance b(GX2DElmList(), nullptr, false, 0);
  GXBiMapLAContourInstanceEquality map;
  map.AddToBiMap(a, b, 2);
  GXBiMapLAContourInstanceEquality copy(map);
  GXBiMapLAContourInstanceEquality assigned;
  assigned = map;
  map.clear();
  EXPECT_EQ(copy.KeyToValue.at(&a), &b);
  EXPECT_EQ(copy.Offsets.at(&a), 2);
  EXPECT_EQ(assigned.ValueToKey.at(&b), &a);
}

}  // namespace
