#include "drawing/ChainHealing.h"

#include "drawing/CurveMeasures.h"
#include "drawing/EndJoining.h"
#include "drawing/Healing.h"

#include <algorithm>
#include <cmath>
#include <memory>
#include <utility>

namespace drawing {

namespace {

// Ends of neighbouring elements, in millimetres, each coordinate; that of the networks too.
constexpr double kEndTolerance = 0.0001;

// What computing and writing coordinates leaves between ends that are one, in millimetres and as a
// share of the coordinates.
constexpr double kRounding = 1.0e-9;
constexpr double kRelativeRounding = 1.0e-12;

double RoundingOf(const GX2DElmList& elements) {
  double largest = 0.0;
  for (GX2DElement* const element : elements) {
    const GX2DPoint& p = element->GetStartPoint();
    largest = std::max({largest, std::fabs(p.X), std::fabs(p.Y)});
  }
  return kRounding + kRelativeRounding * largest;
}

// A mid tells the sense of an arc as long as it is within half a turn of its start; seen from the
// other end it must be as well.
void CentreStrayMids(GX2DElmList& elements) {
  for (GX2DElement* const element : elements) {
    auto* const arc = dynamic_cast<GX2DArc*>(element);
    if (arc == nullptr || arc->IsCircle()) continue;
    const GX2DPoint middle = ArcMiddle(*arc);
    const double mx = arc->Mid.X - arc->Center.X;
    const double my = arc->Mid.Y - arc->Center.Y;
    const double x = middle.X - arc->Center.X;
    const double y = middle.Y - arc->Center.Y;
    // More than about six degrees beside the middle.
    if (!(mx * x + my * y > 0.995 * std::hypot(mx, my) * std::hypot(x, y))) arc->Mid = middle;
  }
}

std::size_t BeginningOf(const GX2DElmList& elements) {
  std::size_t firstArc = elements.size();
  for (std::size_t i = 0; i < elements.size(); ++i) {
    const auto* const arc = dynamic_cast<const GX2DArc*>(elements[i]);
    if (arc == nullptr) return i;
    if (firstArc == elements.size() && !arc->IsClockwise()) firstArc = i;
  }
  return firstArc == elements.size() ? 0 : firstArc;
}

// How the elements stood before they were put in order, by address.
struct Stood {
  GX2DElement* element;
  std::size_t position;
  GX2DPoint start;
};

std::vector<Stood> HowTheyStand(const GX2DElmList& elements) {
  std::vector<Stood> stood;
  for (std::size_t i = 0; i < elements.size(); ++i) {
    stood.push_back({elements[i], i, elements[i]->GetStartPoint()});
  }
  std::sort(stood.begin(), stood.end(),
            [](const Stood& a, const Stood& b) { return std::less<>()(a.element, b.element); });
  return stood;
}

// An arc so short that the library takes it for a full circle would fall out of its contour.
void MakeStraight(GX2DElement*& element) {
  const std::unique_ptr<GX2DElement> arc(element);
  element = new GX2DLine(arc->GetStartPoint(), arc->GetEndPoint());
}

const Stood& Find(const std::vector<Stood>& stood, GX2DElement* element) {
  return *std::lower_bound(stood.begin(), stood.end(), element, [](const Stood& a, GX2DElement* b) {
    return std::less<>()(a.element, b);
  });
}

}  // namespace

bool PutInOrder(HealedChain& chain, std::vector<ChainChange>& changes) {
  GX2DElmList& elements = chain.elements;
  if (elements.size() < 2) return true;
  CentreStrayMids(elements);
  const std::vector<Stood> stood = HowTheyStand(elements);
  const std::size_t count = elements.size();
  const std::size_t first = BeginningOf(elements);
  // Moved round rather than swapped, so that what is in order is found in order.
  std::rotate(elements.begin(), elements.begin() + static_cast<std::ptrdiff_t>(first),
              elements.end());
  auto* const arc = dynamic_cast<GX2DArc*>(elements.front());
  if (arc != nullptr && arc->IsClockwise()) arc->SwapPoints();
  elements.MakeConnectingElements();

  std::vector<std::size_t> origins;
  std::size_t turned = 0;
  bool follows = true;
  std::size_t before = first;
  for (std::size_t i = 0; i < count; ++i) {
    const Stood& was = Find(stood, elements[i]);
    origins.push_back(chain.origins[was.position]);
    follows = follows && (i == 0 || was.position == (before + 1) % count);
    before = was.position;
    const bool isLine = dynamic_cast<GX2DLine*>(elements[i]) != nullptr;
    if (isLine && elements[i]->GetStartPoint() != was.start) ++turned;
  }
  chain.origins = std::move(origins);
  if (!elements.IsFullyConnected() || !elements.IsClosed(kEndTolerance)) return false;
  if (!follows || turned > 0) {
    changes.push_back({ChangeKind::kPutInOrder, chain.origins, elements.front()->GetStartPoint(),
                       0.0, turned, 0.0});
  }
  return true;
}

double WidestJoint(GX2DElmList& elements) {
  double widest = 0.0;
  for (std::size_t i = 0; i < elements.size(); ++i) {
    GX2DElement& next = *elements[(i + 1) % elements.size()];
    widest = std::max(widest, Distance(elements[i]->GetEndPoint(), next.GetStartPoint()));
  }
  return widest;
}

void MakeJointsExact(HealedChain& chain, std::vector<ChainChange>& changes) {
  GX2DElmList& elements = chain.elements;
  if (elements.size() < 2) return;
  const double widest = WidestJoint(elements);
  if (!(widest > RoundingOf(elements))) return;
  std::vector<std::unique_ptr<GX2DElement>> before;
  for (GX2DElement* const element : elements) before.emplace_back(element->Clone());
  const Healing healing = HealContour(elements);

  ChainChange change;
  change.kind = ChangeKind::kEndsSnapped;
  change.count = healing.joinedEnds;
  change.distance = widest;
  for (std::size_t i = 0; i < elements.size(); ++i) {
    auto* const arc = dynamic_cast<GX2DArc*>(elements[i]);
    const bool moved = elements[i]->GetStartPoint() != before[i]->GetStartPoint() ||
                       elements[i]->GetEndPoint() != before[i]->GetEndPoint();
    if (!moved) continue;
    if (arc != nullptr) {
      const GX2DPoint start = arc->Start;
      const GX2DPoint end = arc->End;
      *arc = static_cast<GX2DArc&>(*before[i]);
      RefitArc(*arc, start, end);
      if (arc->IsCircle()) {
        MakeStraight(elements[i]);
        ++change.straightened;
      }
    }
    const double movement = MovementOf(*before[i], *elements[i]);
    if (movement > change.movement) {
      change.movement = movement;
      change.place = elements[i]->GetStartPoint();
    }
    change.origins.push_back(chain.origins[i]);
  }
  changes.push_back(std::move(change));
}

}  // namespace drawing
