#include "drawing/Healing.h"

#include "drawing/CurveMeasures.h"

#include <algorithm>
#include <vector>

namespace drawing {

namespace {

// In millimetres: what computing coordinates leaves between two ends that are meant to be one.
constexpr double kRounding = 1.0e-9;

std::vector<double> Gaps(const GX2DElmList& elements) {
  std::vector<double> gaps;
  for (std::size_t i = 0; i < elements.size(); ++i) {
    GX2DElement& next = *elements[(i + 1) % elements.size()];
    gaps.push_back(Distance(elements[i]->GetEndPoint(), next.GetStartPoint()));
  }
  return gaps;
}

std::vector<GX2DPoint> Ends(const GX2DElmList& elements) {
  std::vector<GX2DPoint> ends;
  for (GX2DElement* const element : elements) {
    ends.push_back(element->GetStartPoint());
    ends.push_back(element->GetEndPoint());
  }
  return ends;
}

}  // namespace

Healing HealContour(GX2DElmList& elements) {
  Healing healing;
  if (elements.size() < 2) return healing;
  const std::vector<double> gaps = Gaps(elements);
  const auto isOpen = [](double gap) { return gap > 0.0; };
  if (std::none_of(gaps.begin(), gaps.end(), isOpen)) return healing;
  const std::vector<GX2DPoint> before = Ends(elements);
  elements.MakeAlmostEqualPointsEqual();
  const std::vector<GX2DPoint> after = Ends(elements);
  for (std::size_t i = 0; i < before.size(); ++i) {
    healing.largestMovement = std::max(healing.largestMovement, Distance(before[i], after[i]));
  }
  healing.joinedEnds = static_cast<std::size_t>(
      std::count_if(gaps.begin(), gaps.end(), [](double gap) { return gap > kRounding; }));
  return healing;
}

}  // namespace drawing
