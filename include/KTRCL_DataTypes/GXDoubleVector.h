#pragma once

#include <KTRCL_DataTypes/Export.h>

#include <vector>

/// A contiguous array of doubles. No virtual operations: do not destroy it through its base.
class KTRCL_DATATYPES_EXPORT GXDoubleVector : public std::vector<double> {
 public:
  using std::vector<double>::vector;
};
