// The answers by the shortest way that can be read off the definition, without any library: every
// pair is asked, every line is crossed. They are not timed.
#include "Jobs.h"

#include <cmath>
#include <optional>

namespace contour_benchmarks {
namespace {

using MakeCorners = Corners (*)(std::int64_t n);

Corner Minus(const Corner& a, const Corner& b) { return {a.x - b.x, a.y - b.y}; }
double Cross(const Corner& a, const Corner& b) { return a.x * b.y - a.y * b.x; }
double Length(const Corner& a) { return std::sqrt(a.x * a.x + a.y * a.y); }

const Corner& After(const Corners& corners, std::size_t i) {
  return corners[i + 1 == corners.size() ? 0 : i + 1];
}

// Lines

bool AreApart(double a, double b, double c, double d) {
  return std::max(a, b) < std::min(c, d) || std::max(c, d) < std::min(a, b);
}

std::optional<Corner> LineCrossing(const Corner& a, const Corner& b, const Corner& c,
                                   const Corner& d) {
  if (AreApart(a.x, b.x, c.x, d.x) || AreApart(a.y, b.y, c.y, d.y)) return std::nullopt;
  const Corner ab = Minus(b, a);
  const Corner cd = Minus(d, c);
  const double area = Cross(ab, cd);
  if (area == 0.0) return std::nullopt;
  const double s = Cross(Minus(c, a), cd) / area;
  const double t = Cross(Minus(c, a), ab) / area;
  if (s < 0.0 || s > 1.0 || t < 0.0 || t > 1.0) return std::nullopt;
  return Corner{a.x + s * ab.x, a.y + s * ab.y};
}

template <MakeCorners first, MakeCorners second>
struct LineCrossings {
  explicit LineCrossings(std::int64_t n) : n_(n) {}

  Answer GetAnswer() const {
    const Corners one = first(n_);
    const Corners two = second(n_);
    Corners points;
    for (std::size_t i = 0; i < one.size(); ++i) {
      for (std::size_t j = 0; j < two.size(); ++j) {
        const auto hit = LineCrossing(one[i], After(one, i), two[j], After(two, j));
        if (hit) points.push_back(*hit);
      }
    }
    return CrossingsAsAnswer(points);
  }

  std::int64_t n_;
};

template <MakeCorners first, MakeCorners second>
struct AnyLineCrossing : LineCrossings<first, second> {
  using LineCrossings<first, second>::LineCrossings;
  Answer GetAnswer() const { return {LineCrossings<first, second>::GetAnswer().front()}; }
};

template <MakeCorners make>
struct SelfCrossings {
  explicit SelfCrossings(std::int64_t n) : corners_(make(n)) {}

  Answer GetAnswer() const {
    const std::size_t n = corners_.size();
    Corners points;
    for (std::size_t i = 0; i < n; ++i) {
      // Neighbours share an end and nothing else.
      for (std::size_t j = i + 2; j < (i == 0 ? n - 1 : n); ++j) {
        const auto hit =
            LineCrossing(corners_[i], After(corners_, i), corners_[j], After(corners_, j));
        if (hit) points.push_back(*hit);
      }
    }
    return CrossingsAsAnswer(points);
  }

  Corners corners_;
};

// Arcs

/// A bulge is the part of its circle on the right of its chord.
bool IsOnBulge(const Bulge& bulge, const Corner& p) {
  return Cross(Minus(bulge.end, bulge.start), Minus(p, bulge.start)) <= 0.0;
}

void AddBulgeCrossings(const Bulge& a, const Bulge& b, Corners& points) {
  const double ra = Length(Minus(a.start, a.center));
  const double rb = Length(Minus(b.start, b.center));
  if (std::fabs(a.center.x - b.center.x) > ra + rb) return;
  const Corner between = Minus(b.center, a.center);
  const double d = Length(between);
  if (d > ra + rb || d < std::fabs(ra - rb) || d == 0.0) return;
  const double along = (d * d + ra * ra - rb * rb) / (2.0 * d);
  const double aside = std::sqrt(std::max(ra * ra - along * along, 0.0));
  for (const double side : {aside, -aside}) {
    const Corner p = {a.center.x + (along * between.x - side * between.y) / d,
                      a.center.y + (along * between.y + side * between.x) / d};
    if (IsOnBulge(a, p) && IsOnBulge(b, p)) points.push_back(p);
  }
}

template <MakeCorners first, MakeCorners second>
struct ArcCrossings {
  explicit ArcCrossings(std::int64_t n) : n_(n) {}

  Answer GetAnswer() const {
    const auto one = Bulges(first(n_));
    const auto two = Bulges(second(n_));
    Corners points;
    for (const Bulge& a : one) {
      for (const Bulge& b : two) AddBulgeCrossings(a, b, points);
    }
    return CrossingsAsAnswer(points);
  }

  std::int64_t n_;
};

template <MakeCorners first, MakeCorners second>
struct AnyArcCrossing : ArcCrossings<first, second> {
  using ArcCrossings<first, second>::ArcCrossings;
  Answer GetAnswer() const { return {ArcCrossings<first, second>::GetAnswer().front()}; }
};

// Places and measures

bool IsInside(const Corners& corners, const Corner& p) {
  bool inside = false;
  for (std::size_t i = 0; i < corners.size(); ++i) {
    const Corner& a = corners[i];
    const Corner& b = After(corners, i);
    if ((a.y > p.y) == (b.y > p.y)) continue;
    if (p.x < a.x + (p.y - a.y) / (b.y - a.y) * (b.x - a.x)) inside = !inside;
  }
  return inside;
}

bool IsCorner(const Corners& corners, const Corner& p) {
  return std::any_of(corners.begin(), corners.end(),
                     [&](const Corner& c) { return c.x == p.x && c.y == p.y; });
}

/// Beyond the chord and inside the circle.
bool IsInBulge(const Bulge& bulge, const Corner& p) {
  return IsOnBulge(bulge, p) &&
         Length(Minus(p, bulge.center)) <= Length(Minus(bulge.start, bulge.center));
}

struct OneContour {
  explicit OneContour(std::int64_t n) : corners_(Outline(n)), bulges_(Bulges(corners_)) {}
  Corners corners_;
  std::vector<Bulge> bulges_;
};

Answer AnswerOfPlaces(const Corners& corners, const Corners& probes) {
  Answer answer;
  for (const Corner& p : probes) {
    answer.push_back(IsCorner(corners, p) || IsInside(corners, p) ? 1.0 : 0.0);
  }
  return answer;
}

struct PointInLines : OneContour {
  using OneContour::OneContour;
  Answer GetAnswer() const { return AnswerOfPlaces(corners_, Probes(corners_)); }
};

struct PointInArcs {
  explicit PointInArcs(std::int64_t n) : corners_(LargeOutline(n)), bulges_(Bulges(corners_)) {}

  Answer GetAnswer() const {
    const Corners probes = Probes(corners_, kLargeRadius);
    Answer answer = AnswerOfPlaces(corners_, probes);
    for (std::size_t i = 0; i < probes.size(); ++i) {
      const auto has = [&](const Bulge& bulge) { return IsInBulge(bulge, probes[i]); };
      if (std::any_of(bulges_.begin(), bulges_.end(), has)) answer[i] = 1.0;
    }
    return answer;
  }

  Corners corners_;
  std::vector<Bulge> bulges_;
};

/// The hole is in the outline, the outline is not in the hole.
struct ContourInContour {
  explicit ContourInContour(std::int64_t /*n*/) {}
  Answer GetAnswer() const { return {1.0, 0.0}; }
};

struct Surface : OneContour {
  using OneContour::OneContour;
  Answer GetAnswer() const {
    double twice = 0.0;
    for (std::size_t i = 0; i < corners_.size(); ++i) {
      twice += Cross(corners_[i], After(corners_, i));
    }
    return {0.5 * twice};
  }
};

struct SurfaceOfArcs : OneContour {
  using OneContour::OneContour;
  Answer GetAnswer() const {
    double surface = Surface(static_cast<std::int64_t>(corners_.size())).GetAnswer().front();
    for (const Bulge& bulge : bulges_) {
      const double radius = Length(Minus(bulge.start, bulge.center));
      surface += 0.5 * radius * radius * (kBulgeSweep - std::sin(kBulgeSweep));
    }
    return {surface};
  }
};

struct Perimeter : OneContour {
  using OneContour::OneContour;
  Answer GetAnswer() const {
    double length = 0.0;
    for (const Bulge& bulge : bulges_) length += Length(Minus(bulge.end, bulge.start));
    return {length};
  }
};

struct PerimeterOfArcs : OneContour {
  using OneContour::OneContour;
  Answer GetAnswer() const {
    double length = 0.0;
    for (const Bulge& bulge : bulges_) {
      length += kBulgeSweep * Length(Minus(bulge.start, bulge.center));
    }
    return {length};
  }
};

struct CounterClockwise {
  explicit CounterClockwise(std::int64_t /*n*/) {}
  Answer GetAnswer() const { return {1.0}; }
};

// Clean-up: the corners that the contours were made from

Untidy CleanContour(std::int64_t n) { return {{}, Teeth(n)}; }

template <Untidy (*make)(std::int64_t n)>
struct CleanUp {
  explicit CleanUp(std::int64_t n) : kept_(make(n).kept) {}
  Answer GetAnswer() const { return CornersAsAnswer(kept_); }
  Corners kept_;
};

}  // namespace

void AddReferenceAnswers() {
  AddCheck<LineCrossings<Outline, Neighbour>>("Reference_All_GetIntersections_FewHitsLines");
  AddCheck<LineCrossings<Teeth, OppositeTeeth>>("Reference_All_GetIntersections_ManyHitsLines");
  AddCheck<ArcCrossings<Outline, Neighbour>>("Reference_All_GetIntersections_FewHitsArcs");
  AddCheck<ArcCrossings<Teeth, OppositeTeeth>>("Reference_All_GetIntersections_ManyHitsArcs");
  AddCheck<AnyLineCrossing<Outline, Neighbour>>("Reference_All_CheckIfIntersection_CrossingLines");
  AddCheck<AnyLineCrossing<Outline, Hole>>("Reference_All_CheckIfIntersection_NestedLines");
  AddCheck<AnyArcCrossing<Outline, Hole>>("Reference_All_CheckIfIntersection_NestedArcs");
  AddCheck<SelfCrossings<Outline>>("Reference_All_HasSelfIntersection_NoneLines");
  AddCheck<SelfCrossings<Outline>>("Reference_All_HasSelfIntersection_NoneArcs");
  AddCheck<SelfCrossings<Knot>>("Reference_All_HasSelfIntersection_FewHitsLines");
  AddCheck<SelfCrossings<Braid>>("Reference_All_HasSelfIntersection_ManyHitsLines");
  AddCheck<PointInLines>("Reference_All_PointInContour_Lines");
  AddCheck<PointInArcs>("Reference_All_PointInContour_LargeArcs");
  AddCheck<ContourInContour>("Reference_All_ContourInContour_Lines");
  AddCheck<ContourInContour>("Reference_All_ContourInContour_LargeArcs");
  AddCheck<Surface>("Reference_All_Surface_Lines");
  AddCheck<SurfaceOfArcs>("Reference_All_Surface_Arcs");
  AddCheck<Perimeter>("Reference_All_Perimeter_Lines");
  AddCheck<PerimeterOfArcs>("Reference_All_Perimeter_Arcs");
  AddCheck<CounterClockwise>("Reference_All_Direction_Lines");
  AddCheck<CounterClockwise>("Reference_All_Direction_Arcs");
  AddCheck<CleanUp<CleanContour>>("Reference_All_CleanUp_CleanLines");
  AddCheck<CleanUp<CutLines>>("Reference_All_CleanUp_CutLines");
  AddCheck<CleanUp<Loops>>("Reference_All_CleanUp_LoopsOfLines");
  AddCheck<CleanUp<Debris>>("Reference_All_CleanUp_DebrisOfLines");
  AddCheck<CleanUp<CleanContour>>("Reference_All_CleanUp_CleanLinesInSpace");
}

}  // namespace contour_benchmarks
