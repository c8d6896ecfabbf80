// Rings of points with given corners, and their protected operations in the open.
//
//     support::Ring ring({{0, 0}, {4, 0}, {4, 3}});
//     auto first = ring.At(0), last = ring.At(0), left = ring.end();
//     ring.GetMinLeft(first, last, true, left);
//     EXPECT_EQ(support::IndexOf(ring, left), 0);        // kEnd for the end of the vector
#pragma once

#include <KTRCL_Geometry/contour/GX2DSurroundPolygon.h>

#include <algorithm>
#include <cstddef>
#include <memory>
#include <vector>

namespace support {

/// Stands for the end of the vector where a place in a ring is a number.
constexpr int kEnd = -1;

inline std::unique_ptr<GX2DSurroundPoint> Vertex(const GX2DPoint& position) {
  auto vertex = std::make_unique<GX2DSurroundPoint>();
  vertex->Point = new GX2DPoint(position);
  return vertex;
}

/// A ring that can be filled by hand.
class Ring : public GX2DSurroundPolygon {
 public:
  Ring() = default;
  explicit Ring(const std::vector<GX2DPoint>& corners) {
    for (const GX2DPoint& corner : corners) push_back(Vertex(corner).release());
  }
  Ring(const Ring&) = delete;
  Ring& operator=(const Ring&) = delete;

  using GX2DSurroundPolygon::AddArcPoint;
  using GX2DSurroundPolygon::AddPoint;

  iterator At(int place) { return place == kEnd ? end() : begin() + place; }
};

inline int IndexOf(GX2DSurroundPolygon& ring, const GX2DSurroundPolygon::iterator& it) {
  return it == ring.end() ? kEnd : static_cast<int>(it - ring.begin());
}

/// x and y of every corner, one behind the other.
inline std::vector<double> Flat(const std::vector<GX2DPoint>& corners) {
  std::vector<double> numbers;
  for (const GX2DPoint& corner : corners) {
    numbers.push_back(corner.X);
    numbers.push_back(corner.Y);
  }
  return numbers;
}
inline std::vector<double> Flat(const GX2DSurroundPolygon& ring) {
  std::vector<double> numbers;
  for (const GX2DSurroundPoint* vertex : ring) {
    numbers.push_back(vertex->Point->X);
    numbers.push_back(vertex->Point->Y);
  }
  return numbers;
}

/// Which elements of the source list meet at a vertex, by their places, in the order of the vertex.
inline std::vector<int> ElementsAt(const GX2DSurroundPolygon& ring, std::size_t vertex,
                                   const GX2DElmList& source) {
  std::vector<int> places;
  for (GX2DElement* element : ring.at(vertex)->Elements) {
    const auto found = std::find(source.begin(), source.end(), element);
    places.push_back(found == source.end() ? kEnd : static_cast<int>(found - source.begin()));
  }
  return places;
}

}  // namespace support
