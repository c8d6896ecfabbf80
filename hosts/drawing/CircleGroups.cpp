#include "drawing/CircleGroups.h"

#include "drawing/CurveMeasures.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace drawing {

namespace {

constexpr double kTwoPi = 6.283185307179586;

// How far the sweeps of all arcs may miss a full turn, radians: their ends meet, so that nothing
// but once around and twice around is to be told apart.
constexpr double kTurnTolerance = 0.01;

}  // namespace

bool IsOneCircle(const GX2DElmList& elements, double& diameter) {
  if (elements.empty()) return false;
  const auto* const first = dynamic_cast<const GX2DArc*>(elements.front());
  if (first == nullptr) return false;
  double length = 0.0;
  double sweep = 0.0;
  for (const GX2DElement* const element : elements) {
    const auto* const arc = dynamic_cast<const GX2DArc*>(element);
    if (arc == nullptr || Distance(arc->Center, first->Center) > kCircleTolerance) return false;
    if (std::fabs(arc->Radius() - first->Radius()) > kCircleTolerance) return false;
    length += ElementLength(*arc);
    sweep += SignedSweep(*arc);
  }
  if (std::fabs(std::fabs(sweep) - kTwoPi) > kTurnTolerance) return false;
  diameter = 2.0 * length / kTwoPi;
  return true;
}

std::vector<CircleGroup> FindCircleGroups(const std::vector<std::unique_ptr<Contour>>& contours) {
  std::vector<std::pair<double, std::size_t>> circles;
  for (std::size_t i = 0; i < contours.size(); ++i) {
    const Contour& contour = *contours[i];
    double diameter = 0.0;
    if (!contour.usable || contour.coincidesWith != kNoContour) continue;
    if (IsOneCircle(contour.elements, diameter)) circles.emplace_back(diameter, i);
  }
  std::sort(circles.begin(), circles.end());
  std::vector<CircleGroup> groups;
  for (const auto& [diameter, contour] : circles) {
    if (groups.empty() || diameter - groups.back().diameter > kCircleTolerance) {
      groups.push_back({diameter, {}});
    }
    groups.back().contours.push_back(contour);
  }
  for (CircleGroup& group : groups) std::sort(group.contours.begin(), group.contours.end());
  return groups;
}

}  // namespace drawing
