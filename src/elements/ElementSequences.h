// What the element lists have in common: taking ownership, destroying, walking and folding. A null
// entry is passed over everywhere.
#pragma once

#include <limits>
#include <memory>

namespace ktrcl_internal {

/// Hands an object to a list of pointers; if the list cannot grow, the object is destroyed.
template <class List, class Object>
void PushOwned(List& list, std::unique_ptr<Object> object) {
  list.push_back(object.get());
  object.release();
}

/// Destroys what the entries point to, from the front, and empties the list.
template <class List>
void DestroyContents(List& list) {
  for (auto* object : list) delete object;
  list.clear();
}

/// Gives `receiver` what `source` owns, at the back; `source` is empty afterwards.
template <class List>
void MoveContents(List& receiver, List& source) {
  receiver.insert(receiver.end(), source.begin(), source.end());
  source.clear();
}

/// Calls `operation` with each element in order. Arguments of transforms are to be captured by
/// value: a host may pass a point or coordinate of an element that is itself about to change.
template <class List, class Operation>
void ForEachElement(const List& list, Operation operation) {
  for (auto* element : list) {
    if (element) operation(*element);
  }
}

/// Smallest value of `coordinate` over the list; the largest finite double for an empty list.
template <class List, class Coordinate>
double Smallest(const List& list, Coordinate coordinate) {
  double smallest = std::numeric_limits<double>::max();
  ForEachElement(list, [&](const auto& element) {
    const double value = (element.*coordinate)();
    if (value < smallest) smallest = value;
  });
  return smallest;
}

/// Largest value of `coordinate` over the list; the lowest finite double for an empty list.
template <class List, class Coordinate>
double Largest(const List& list, Coordinate coordinate) {
  double largest = std::numeric_limits<double>::lowest();
  ForEachElement(list, [&](const auto& element) {
    const double value = (element.*coordinate)();
    if (value > largest) largest = value;
  });
  return largest;
}

}  // namespace ktrcl_internal
