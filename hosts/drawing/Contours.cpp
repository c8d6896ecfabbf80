#include "drawing/Contours.h"

#include "drawing/CurveMeasures.h"
#include "drawing/NumberText.h"

#include <KTRCL_Geometry/contour/GXGeometry.h>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <limits>
#include <memory>
#include <string>
#include <vector>

namespace drawing {

namespace {

constexpr double kPi = 3.141592653589793;
constexpr double kTwoPi = 6.283185307179586;

// Ends of neighbouring elements, in millimetres, each coordinate; that of the networks too.
constexpr double kEndTolerance = 0.0001;

// Asks the library to choose the scan line that tells the direction.
constexpr double kChooseScanLine = std::numeric_limits<double>::lowest();

// A contour that is nowhere wider than about this, in millimetres, encloses nothing.
constexpr double kLeastWidth = 0.0001;

std::string LooseEndsText(const Network& network) {
  std::vector<GX2DPoint> places;
  for (const LooseEnd& end : network.looseEnds) places.push_back(end.point);
  std::string text = (places.size() == 1 ? "loose end at " : "loose ends at ") + PlacesText(places);
  if (!network.looseEnds.empty() && network.looseEnds.front().hasNearest) {
    const LooseEnd& first = network.looseEnds.front();
    text += ", the first " + ShortNumber(first.distance) + " mm from the loose end at " +
            PlaceText(first.nearest);
  }
  return text;
}

std::string JunctionsText(const Network& network) {
  std::vector<GX2DPoint> places;
  for (const Junction& junction : network.junctions) places.push_back(junction.point);
  return (places.size() == 1 ? "junction at " : "junctions at ") + PlacesText(places);
}

// Copies the elements of a network. Specks are left out of chains: neither of their ends is next to
// anything but the same node, so they have no place in an order and would only make false vertices.
void CopyElements(const Drawing& drawing, const Network& network, GX2DElmList& elements) {
  const bool chain = network.kind == NetworkKind::kClosed || network.kind == NetworkKind::kOpen;
  std::vector<std::size_t> specks = network.specks;
  std::sort(specks.begin(), specks.end());
  for (const std::size_t index : network.elements) {
    if (chain && std::binary_search(specks.begin(), specks.end(), index)) continue;
    elements.push_back(drawing.elements[index].element->Clone());
  }
}

// MakeConnectingElements searches along the end of its first element. In a closed network every end
// has a neighbour, so any first element will do. In an open one it would run out at the first loose
// end, turn its first element round and go on with whatever is in front; so the chain is handed
// over with the element at a loose end in front, drawn away from it.
void BeginAtLooseEnd(const Drawing& drawing, const Network& network, GX2DElmList& elements) {
  if (network.kind != NetworkKind::kOpen || network.looseEnds.empty()) return;
  const LooseEnd& loose = network.looseEnds.front();
  GX2DElement& drawn = *drawing.elements[loose.element].element;
  const auto isIt = [&](GX2DElement* element) {
    return element->GetStartPoint() == drawn.GetStartPoint() &&
           element->GetEndPoint() == drawn.GetEndPoint();
  };
  const auto first = std::find_if(elements.begin(), elements.end(), isIt);
  if (first == elements.end()) return;
  std::iter_swap(elements.begin(), first);
  if (loose.atStart) return;
  // Swapping leaves the arc's mid, which is half way and so tells the direction from either end.
  if (auto* line = dynamic_cast<GX2DLine*>(elements.front())) line->SwapPoints();
  if (auto* arc = dynamic_cast<GX2DArc*>(elements.front())) arc->SwapPoints();
}

Box BoxAround(const GX2DElmList& elements) {
  if (elements.empty()) return {};
  Box around = BoxOf(*elements.front());
  for (GX2DElement* const element : elements) {
    const Box box = BoxOf(*element);
    around = {std::min(around.minX, box.minX), std::min(around.minY, box.minY),
              std::max(around.maxX, box.maxX), std::max(around.maxY, box.maxY)};
  }
  return around;
}

double LengthOf(const GX2DElmList& elements) {
  double length = 0.0;
  for (const GX2DElement* element : elements) length += ElementLength(*element);
  return length;
}

bool IsFinite(const Contour& contour) {
  const Box& box = contour.box;
  return std::isfinite(contour.perimeter) && std::isfinite(contour.surface) &&
         std::isfinite(box.maxX - box.minX) && std::isfinite(box.maxY - box.minY);
}

std::string WhereItBegins(const Contour& contour) {
  if (contour.elements.empty()) return "nowhere";
  return PlaceText(contour.elements.front()->GetStartPoint());
}

std::string ObstacleOf(const Network& network, const Contour& contour) {
  switch (network.kind) {
    case NetworkKind::kOpen:
      return "open, with " + LooseEndsText(network);
    case NetworkKind::kBranching:
      return "branching, with " + JunctionsText(network) +
             (network.looseEnds.empty() ? "" : " and " + LooseEndsText(network));
    case NetworkKind::kSpeck:
      return "a speck at " + WhereItBegins(contour);
    case NetworkKind::kClosed:
      break;
  }
  if (!contour.closed) {
    return "its elements do not follow each other end to end, from " + WhereItBegins(contour);
  }
  if (!IsFinite(contour)) return "its lengths go beyond the range of numbers";
  // By exact figures: those of the library are wrong for small arcs.
  if (!(std::fabs(SignedArea(contour.elements)) > kLeastWidth * LengthOf(contour.elements))) {
    return "encloses no area, at " + WhereItBegins(contour);
  }
  return "";
}

std::unique_ptr<Contour> BuildContour(const Drawing& drawing, const Network& network,
                                      std::size_t index) {
  auto contour = std::make_unique<Contour>();
  contour->network = index;
  contour->origins = network.elements;
  GX2DElmList& elements = contour->elements;
  CopyElements(drawing, network, elements);
  if (network.kind == NetworkKind::kClosed || network.kind == NetworkKind::kOpen) {
    BeginAtLooseEnd(drawing, network, elements);
    elements.MakeConnectingElements();
  }
  contour->closed = network.kind == NetworkKind::kClosed && elements.IsFullyConnected() &&
                    elements.IsClosed(kEndTolerance);
  if (contour->closed) contour->healing = HealContour(elements);
  contour->clockwise = contour->closed && RunsClockwise(elements);
  contour->perimeter = GXGeometry::GetContourPerimeter(elements);
  contour->surface = contour->closed ? GXGeometry::GetContourSurface(elements, true) : 0.0;
  contour->box = BoxAround(elements);
  contour->obstacle = ObstacleOf(network, *contour);
  contour->usable = contour->obstacle.empty();
  return contour;
}

}  // namespace

std::vector<std::unique_ptr<Contour>> BuildContours(const Drawing& drawing,
                                                    const std::vector<Network>& networks) {
  std::vector<std::unique_ptr<Contour>> contours;
  contours.reserve(networks.size());
  for (std::size_t i = 0; i < networks.size(); ++i) {
    contours.push_back(BuildContour(drawing, networks[i], i));
  }
  return contours;
}

bool RunsClockwise(GX2DElmList& elements) {
  if (const GX2DArc* const circle = AsFullCircle(elements)) return circle->IsClockwise();
  // Told by the area beforehand, since for an arc on top the library may answer and leave the flag
  // as it was.
  bool clockwise = SignedArea(elements) < 0.0;
  GXGeometry::CheckDirectionOfElementList(elements, clockwise, true, kChooseScanLine);
  return clockwise;
}

double SignedArea(const GX2DElmList& elements) {
  if (elements.empty()) return 0.0;
  // Measured from a point of the contour itself: far away from the origin the products would cost
  // the last digits.
  const GX2DPoint origin = elements.front()->GetStartPoint();
  double twice = 0.0;
  for (GX2DElement* const element : elements) {
    const double sx = element->GetStartPoint().X - origin.X;
    const double sy = element->GetStartPoint().Y - origin.Y;
    const double ex = element->GetEndPoint().X - origin.X;
    const double ey = element->GetEndPoint().Y - origin.Y;
    const auto* arc = dynamic_cast<const GX2DArc*>(element);
    if (arc == nullptr) {
      twice += sx * ey - sy * ex;
      continue;
    }
    // The integral of x dy - y dx along the arc: its sector, and the chord seen from the origin.
    const double cx = arc->Center.X - origin.X;
    const double cy = arc->Center.Y - origin.Y;
    const double radius = arc->Radius();
    const bool circle = arc->IsCircle();
    twice += radius * radius * SignedSweep(*arc);
    twice += circle ? 0.0 : cx * (ey - sy) - cy * (ex - sx);
  }
  return 0.5 * twice;
}

double VertexAngle(GX2DElement& before, GX2DElement& behind, bool innerOnRight) {
  double inX = 0.0;
  double inY = 0.0;
  double outX = 0.0;
  double outY = 0.0;
  if (!TangentAt(before, true, inX, inY) || !TangentAt(behind, false, outX, outY)) return kPi;
  const double turn = std::atan2(inX * outY - inY * outX, inX * outX + inY * outY);
  const double angle = innerOnRight ? kPi + turn : kPi - turn;
  return angle > 0.0 ? angle : kTwoPi;
}

}  // namespace drawing
