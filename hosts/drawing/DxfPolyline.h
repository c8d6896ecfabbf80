// A POLYLINE while its vertices are read.
#pragma once

#include "drawing/Drawing.h"
#include "drawing/DxfEntities.h"

#include <cstddef>
#include <string>
#include <utility>
#include <vector>

namespace drawing {

/// What stood in the records of a POLYLINE so far.
struct DxfPolyline {
  /// Bits of group 70.
  static constexpr int kClosedFlag = 1;
  static constexpr int k3DFlag = 8;
  static constexpr int kMeshFlags = 16 | 64;

  DrawnEntity entity;
  std::vector<PolylineVertex> vertices;
  std::string failure;  ///< The first thing that is wrong with the head or a vertex.
  std::size_t failureLine = 0;
  int flags = 0;
  bool mirrored = false;
  bool leftOut = false;  ///< It is not used whatever its vertices are, and has been counted.
  bool hasWidth = false;
  double elevation = 0.0;  ///< Of the head; 3D polylines have none.
  HeightRange heights;     ///< Of the vertices.

  bool IsClosed() const { return (flags & kClosedFlag) != 0; }
  bool IsMesh() const { return (flags & kMeshFlags) != 0; }
  bool Is3D() const { return (flags & k3DFlag) != 0; }
  /// Of a flat polyline the head tells the height; some programs write it with the vertices alone.
  HeightRange Heights() const {
    if (Is3D() || elevation == 0.0) return heights;
    HeightRange flat;
    flat.Add(elevation);
    return flat;
  }
  void Fail(std::string what, std::size_t line) {
    if (!failure.empty() || what.empty()) return;
    failure = std::move(what);
    failureLine = line;
  }
};

}  // namespace drawing
