#include "drawing/DrawingParts.h"

#include "drawing/CurveMeasures.h"

#include <algorithm>
#include <cmath>

namespace drawing {

namespace {

double LengthOf(const Contour& contour) {
  double length = 0.0;
  for (const GX2DElement* const element : contour.elements) length += ElementLength(*element);
  return length;
}

bool IsInNest(const Contour& contour) {
  return contour.usable && contour.coincidesWith == kNoContour;
}

// The outer contours, and of every contour the area that it encloses.
std::vector<std::size_t> OutersByArea(const std::vector<std::unique_ptr<Contour>>& contours,
                                      std::vector<double>& areas) {
  std::vector<std::size_t> outers;
  for (std::size_t i = 0; i < contours.size(); ++i) {
    const Contour& contour = *contours[i];
    areas.push_back(IsInNest(contour) ? std::fabs(SignedArea(contour.elements)) : 0.0);
    if (IsInNest(contour) && contour.depth % 2 == 0) outers.push_back(i);
  }
  std::stable_sort(outers.begin(), outers.end(),
                   [&](std::size_t p, std::size_t q) { return areas[p] > areas[q]; });
  return outers;
}

}  // namespace

std::vector<DrawingPart> FindParts(const std::vector<std::unique_ptr<Contour>>& contours) {
  std::vector<double> areas;
  const std::vector<std::size_t> outers = OutersByArea(contours, areas);
  std::vector<DrawingPart> parts(outers.size());
  std::vector<std::size_t> partOf(contours.size(), kNoPart);
  for (std::size_t i = 0; i < outers.size(); ++i) {
    const Contour& outer = *contours[outers[i]];
    parts[i].outer = outers[i];
    parts[i].area = areas[outers[i]];
    parts[i].perimeter = LengthOf(outer);
    parts[i].box = outer.box;
    parts[i].pierces = 1;
    partOf[outers[i]] = i;
  }
  for (std::size_t i = 0; i < contours.size(); ++i) {
    const Contour& contour = *contours[i];
    if (!IsInNest(contour) || contour.depth % 2 == 0) continue;
    partOf[i] = partOf[contour.parent];
    DrawingPart& part = parts[partOf[i]];
    part.cutOuts.push_back(i);
    part.area -= areas[i];
    part.perimeter += LengthOf(contour);
    ++part.pierces;
  }
  for (DrawingPart& part : parts) {
    const std::size_t around = contours[part.outer]->parent;
    if (around != kNoContour) part.islandIn = partOf[around];
  }
  return parts;
}

}  // namespace drawing
