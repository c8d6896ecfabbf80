// Ear clipping. The vertices that are left stand as indexes in an array, counter-clockwise.
#include <KTRCL_Geometry/contour/GXPolygonTriangulation.h>

#include <cstddef>
#include <limits>

namespace {

// Length units squared: a corner below it (strict) is reflex or flat and no ear.
constexpr double kSmallestCorner = 0.0000000001;

// Twice the number of vertices has to fit into an int.
constexpr std::size_t kMostVertices = std::numeric_limits<int>::max() / 2;

const GX2DPoint& At(const std::vector<GX2DPoint>& contour, int index) {
  return contour[static_cast<std::size_t>(index)];
}

std::vector<int> CounterClockwise(int n, bool isCounterClockwise) {
  std::vector<int> vertices(static_cast<std::size_t>(n));
  for (int i = 0; i < n; ++i) {
    vertices[static_cast<std::size_t>(i)] = isCounterClockwise ? i : n - 1 - i;
  }
  return vertices;
}

// Takes the vertex at v out. The number falls with every vertex that moves up, not once, so that
// about half of those behind v are lost with it, and for the last vertex nothing changes. Hosts
// rely on the triangles that come out of this.
void RemoveVertex(int v, int& number, int* vertices) {
  for (int t = v + 1; t < number; ++t) {
    vertices[t - 1] = vertices[t];
    --number;
  }
}

}  // namespace

bool GXPolygonTriangulation::Process(const std::vector<GX2DPoint>& contour,
                                     std::vector<GX2DPoint>& result) {
  if (contour.size() < 3 || contour.size() > kMostVertices) return false;
  const int n = static_cast<int>(contour.size());
  std::vector<int> remaining = CounterClockwise(n, Area(contour) > 0.0);
  int* const vertices = remaining.data();

  int number = n;
  int count = 2 * number;
  bool lastIsClipped = false;
  for (int v = number - 1; number > 2;) {
    if (count <= 0) return false;
    --count;
    const int u = number <= v ? 0 : v;
    v = number <= u + 1 ? 0 : u + 1;
    const int w = number <= v + 1 ? 0 : v + 1;
    if (!Snip(contour, u, v, w, number, vertices)) continue;

    // An ear at the last position stays where it is; as the only one it would come back for ever.
    const bool isLast = v == number - 1;
    if (isLast && lastIsClipped) return false;
    lastIsClipped = isLast;
    for (const int corner : {u, v, w}) result.push_back(At(contour, vertices[corner]));
    RemoveVertex(v, number, vertices);
    count = 2 * number;
  }
  return true;
}

double GXPolygonTriangulation::Area(const std::vector<GX2DPoint>& contour) {
  double sum = 0.0;
  for (std::size_t q = 0; q < contour.size(); ++q) {
    const GX2DPoint& before = contour[q == 0 ? contour.size() - 1 : q - 1];
    sum += before.X * contour[q].Y - contour[q].X * before.Y;
  }
  return sum * 0.5;
}

bool GXPolygonTriangulation::InsideTriangle(double ax, double ay, double bx, double by, double cx,
                                            double cy, double px, double py) {
  return (cx - bx) * (py - by) - (px - bx) * (cy - by) >= 0.0 &&
         (ax - cx) * (py - cy) - (ay - cy) * (px - cx) >= 0.0 &&
         (bx - ax) * (py - ay) - (by - ay) * (px - ax) >= 0.0;
}

bool GXPolygonTriangulation::Snip(const std::vector<GX2DPoint>& contour, int u, int v, int w, int n,
                                  int* vertices) {
  const GX2DPoint& a = At(contour, vertices[u]);
  const GX2DPoint& b = At(contour, vertices[v]);
  const GX2DPoint& c = At(contour, vertices[w]);
  if ((c.Y - a.Y) * (b.X - a.X) - (b.Y - a.Y) * (c.X - a.X) < kSmallestCorner) return false;
  for (int i = 0; i < n; ++i) {
    if (i == u || i == v || i == w) continue;
    const GX2DPoint& p = At(contour, vertices[i]);
    if (InsideTriangle(a.X, a.Y, b.X, b.Y, c.X, c.Y, p.X, p.Y)) return false;
  }
  return true;
}
