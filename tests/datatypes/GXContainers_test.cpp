#include <KTRCL_DataTypes/KTRCL_DataTypes.h>

#include <gtest/gtest.h>

#include <list>
#include <type_traits>
#include <utility>
#include <vector>

TEST(GXIntList, IsAStandardListOfIntegers) {
  EXPECT_TRUE((std::is_base_of_v<std::list<int>, GXIntList>));
  EXPECT_FALSE(std::is_polymorphic_v<GXIntList>);
  EXPECT_EQ(sizeof(GXIntList), sizeof(std::list<int>));
}

TEST(GXIntList, KeepsTheOrderOfInsertion) {
  GXIntList list;
  EXPECT_TRUE(list.empty());
  int seven = 7;
  list.push_back(seven);
  list.push_back(std::move(seven));
  list.push_back(3);
  EXPECT_EQ(list.front(), 7);
  EXPECT_EQ(std::vector<int>(list.begin(), list.end()), (std::vector<int>{7, 7, 3}));
}

TEST(GXIntList, IsCopiedByAssignment) {
  GXIntList source;
  source.push_back(1);
  GXIntList target;
  target.push_back(9);
  target = source;
  source.clear();
  EXPECT_EQ(target.size(), 1u);
  EXPECT_EQ(target.front(), 1);
}

TEST(GXDoubleVector, IsAContiguousArray) {
  EXPECT_TRUE((std::is_base_of_v<std::vector<double>, GXDoubleVector>));
  EXPECT_FALSE(std::is_polymorphic_v<GXDoubleVector>);
  GXDoubleVector numbers;
  numbers.push_back(1.5);
  numbers.push_back(2.5);
  EXPECT_EQ(numbers.end() - numbers.begin(), 2);
  EXPECT_EQ(&numbers[1] - &numbers[0], 1);
}

TEST(GXProblemList, HoldsNothing) {
  EXPECT_TRUE(std::is_empty_v<GXProblemList>);
  EXPECT_FALSE(std::is_polymorphic_v<GXProblemList>);
}
