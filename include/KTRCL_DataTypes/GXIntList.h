#pragma once

#include <KTRCL_DataTypes/Export.h>

#include <list>

/// A list of integers in insertion order. No virtual operations: do not destroy it through its
/// base.
class KTRCL_DATATYPES_EXPORT GXIntList : public std::list<int> {
 public:
  using std::list<int>::list;
};
