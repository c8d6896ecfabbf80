// One contour for both lists: in the plane, and in space on the plane X = 0, where (x, y) becomes
// (0, x, y). A typed test written once thus proves the flat list and the one in space.
//
//     support::Chain<TypeParam> chain;
//     auto* const a = chain.AddLine(0, 0, 1, 0);
//     auto* const b = chain.AddArc(1, 0, 2, 0);
//     chain.list.MakeConnectingElements();
//     EXPECT_EQ(chain.Entries(), chain.Order({a, b}));
#pragma once

#include <KTRCL_Geometry/elements/GX2DElements.h>
#include <KTRCL_Geometry/elements/GX3DElements.h>
#include <KTRCL_Geometry/elements/GXElementLists.h>

#include "support/Foreign.h"

#include <gtest/gtest.h>

#include <initializer_list>
#include <string>
#include <type_traits>
#include <vector>

namespace support {

struct Flat {
  using List = GX2DElmList;
  using Element = GX2DElement;
  using Point = GX2DPoint;
  using Line = GX2DLine;
  using Arc = GX2DArc;
  using Foreign = Foreign2D;

  static GX2DPoint At(double x, double y) { return {x, y}; }
};

struct InSpace {
  using List = GX3DElmList;
  using Element = GX3DElement;
  using Point = GX3DPoint;
  using Line = GX3DLine;
  using Arc = GX3DArc;
  using Foreign = Foreign3D;

  static GX3DPoint At(double x, double y) { return {0.0, x, y}; }
};

using BothTwins = testing::Types<Flat, InSpace>;

/// Names the twins in the output of typed tests.
struct TwinNames {
  template <typename Twin>
  static std::string GetName(int /*index*/) {
    return std::is_same_v<Twin, Flat> ? "Flat" : "InSpace";
  }
};

/// The segment (x1, y1) - (x2, y2) as a line of the twin.
template <typename Twin>
typename Twin::Line Seg(double x1, double y1, double x2, double y2) {
  return {Twin::At(x1, y1), Twin::At(x2, y2)};
}

/// The straight line from the start of an element to its end.
template <typename Twin>
typename Twin::Line Ends(typename Twin::Element& element) {
  return {element.GetStartPoint(), element.GetEndPoint()};
}

/// A list under construction. `List` may be a class derived from the twin's list.
template <typename Twin, typename List = typename Twin::List>
class Chain {
 public:
  using Element = typename Twin::Element;

  List list;

  typename Twin::Line* AddLine(double x1, double y1, double x2, double y2) {
    return Take(new typename Twin::Line(Twin::At(x1, y1), Twin::At(x2, y2)));
  }
  /// An arc of which only the ends mean something; center and mid are far off, so that they never
  /// coincide with anything.
  typename Twin::Arc* AddArc(double x1, double y1, double x2, double y2) {
    return Take(new typename Twin::Arc(Center(), Twin::At(x1, y1), Mid(), Twin::At(x2, y2)));
  }
  typename Twin::Point* AddPoint(double x, double y) {
    return Take(new typename Twin::Point(Twin::At(x, y)));
  }
  /// An element of a kind of its own.
  typename Twin::Foreign* AddForeign(double x1, double y1, double x2, double y2) {
    return Take(new typename Twin::Foreign(Twin::At(x1, y1), Twin::At(x2, y2)));
  }
  void AddNull() { list.push_back(nullptr); }
  /// Any other element; the list owns it from here on.
  template <typename Kind>
  Kind* Take(Kind* element) {
    list.push_back(element);
    return element;
  }

  static typename Twin::Point Center() { return Twin::At(777, 888); }
  static typename Twin::Point Mid() { return Twin::At(999, 666); }

  std::vector<Element*> Entries() const { return {list.begin(), list.end()}; }
  static std::vector<Element*> Order(std::initializer_list<Element*> elements) { return elements; }

  /// The ends of the entry at a position.
  typename Twin::Line EndsAt(std::size_t position) const { return Ends<Twin>(*list.at(position)); }
  bool IsLineAt(std::size_t position) const {
    return dynamic_cast<typename Twin::Line*>(list.at(position)) != nullptr;
  }
};

}  // namespace support
