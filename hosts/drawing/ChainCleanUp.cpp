// The steps of the library's clean-up on one contour. Each is tried on a copy; what it did is read
// off the addresses of the elements, which the library keeps where an element survives, and held
// against what a step of its name may do.
#include "drawing/ChainHealing.h"
#include "drawing/Contours.h"
#include "drawing/CurveMeasures.h"
#include "drawing/EndJoining.h"
#include "drawing/NumberText.h"

#include <KTRCL_Geometry/contour/GXGeometry.h>

#include <algorithm>
#include <cmath>
#include <utility>

namespace drawing {

namespace {

// In millimetres: so far a vertex may lie beside what it is merged into; ends within it are one.
constexpr double kVertexTolerance = 0.0001;

// Rounds of all steps; every round but the last makes the chain shorter or its joints exact.
constexpr int kMostRounds = 20;

enum class Step { kClearPoints, kFixConnections, kTrunkFolds, kRemoveLoops, kStitch, kStitchLines };

// Elements that became one, in the order of the chain; the last of them survived.
using Run = std::vector<std::size_t>;

// What a step made of a chain.
struct Trial {
  GX2DElmList elements;
  std::vector<std::size_t> survivors;  // Their positions in the chain before.
  std::vector<Run> runs;               // By survivor.

  Trial() = default;
  Trial(const Trial&) = delete;
  Trial& operator=(const Trial&) = delete;
};

void RunStep(Step step, GX2DElmList& elements) {
  switch (step) {
    case Step::kClearPoints:
      GXGeometry::ClearElementsAsPoints(elements, true, true);
      break;
    case Step::kFixConnections:
      GXGeometry::FixConnections(elements);
      break;
    case Step::kTrunkFolds:
      GXGeometry::TrunkOverlappingLines(elements);
      break;
    case Step::kRemoveLoops:
      GXGeometry::RemoveSmallLoops(elements);
      break;
    case Step::kStitch:
      GXGeometry::Stitch(elements, true, true);
      break;
    case Step::kStitchLines:
      GXGeometry::Stitch(elements, true, false);
      break;
  }
}

const char* NameOf(Step step) {
  switch (step) {
    case Step::kClearPoints:
      return "dropping elements without length";
    case Step::kFixConnections:
      return "making joints exact";
    case Step::kTrunkFolds:
      return "taking folds away";
    case Step::kRemoveLoops:
      return "taking small loops away";
    case Step::kStitch:
      return "merging pieces of lines and arcs";
    case Step::kStitchLines:
      break;
  }
  return "merging pieces of lines";
}

ChangeKind KindOf(Step step) {
  switch (step) {
    case Step::kClearPoints:
      return ChangeKind::kPointRemoved;
    case Step::kFixConnections:
      return ChangeKind::kEndsSnapped;
    case Step::kTrunkFolds:
      return ChangeKind::kFoldRemoved;
    case Step::kRemoveLoops:
      return ChangeKind::kLoopRemoved;
    case Step::kStitch:
    case Step::kStitchLines:
      break;
  }
  return ChangeKind::kPiecesMerged;
}

// Elements vanish into the next one that stays; those behind the last one into the first.
void FindRuns(const std::vector<GX2DElement*>& handed, Trial& trial) {
  Run open;
  for (std::size_t i = 0; i < handed.size(); ++i) {
    open.push_back(i);
    const std::size_t next = trial.survivors.size();
    if (next == trial.elements.size() || trial.elements[next] != handed[i]) continue;
    trial.survivors.push_back(i);
    trial.runs.push_back(std::move(open));
    open.clear();
  }
  if (trial.runs.empty()) return;
  Run& first = trial.runs.front();
  first.insert(first.begin(), open.begin(), open.end());
}

void Try(Step step, const GX2DElmList& elements, Trial& trial) {
  std::vector<GX2DElement*> handed;
  for (const GX2DElement* const element : elements) {
    trial.elements.push_back(element->Clone());
    handed.push_back(trial.elements.back());
  }
  RunStep(step, trial.elements);
  FindRuns(handed, trial);
}

bool IsUnchanged(const GX2DElmList& before, const GX2DElmList& now) {
  return before.size() == now.size() &&
         std::equal(before.begin(), before.end(), now.begin(), [](auto* a, auto* b) {
           return a->GetStartPoint() == b->GetStartPoint() && a->GetEndPoint() == b->GetEndPoint();
         });
}

// The library leaves mid and sense of a merged arc to chance and moves ends off the circle.
void DrawArcsAnew(const GX2DElmList& before, Trial& trial) {
  for (std::size_t i = 0; i < trial.survivors.size(); ++i) {
    auto* const arc = dynamic_cast<GX2DArc*>(trial.elements[i]);
    if (arc == nullptr) continue;
    const Run& run = trial.runs[i];
    GX2DElement& first = *before[run.front()];
    const auto& last = static_cast<const GX2DArc&>(*before[run.back()]);
    if (run.size() > 1) {
      *arc = last;
      if (trial.elements.size() == 1) {
        MakeFullCircle(*arc);
        continue;
      }
      const bool clockwise = last.IsClockwise();
      const double side = clockwise ? -0.5 : 0.5;
      arc->Start = first.GetStartPoint();
      // A quarter turn on from the start, and off the circle, where no end can be.
      arc->Mid = GX2DPoint(arc->Center.X - side * (arc->Start.Y - arc->Center.Y),
                           arc->Center.Y + side * (arc->Start.X - arc->Center.X));
      RefitArc(*arc, arc->Start, arc->End);
    } else if (arc->Start != last.Start || arc->End != last.End) {
      const GX2DPoint start = arc->Start;
      const GX2DPoint end = arc->End;
      *arc = last;
      RefitArc(*arc, start, end);
    }
  }
}

double LengthOf(const GX2DElmList& elements) {
  double length = 0.0;
  for (const GX2DElement* const element : elements) length += ElementLength(*element);
  return length;
}

bool IsClosedChain(const GX2DElmList& elements) {
  if (elements.size() == 1) return AsFullCircle(elements) != nullptr;
  const bool anyCircle =
      std::any_of(elements.begin(), elements.end(), [](const GX2DElement* element) {
        const auto* const arc = dynamic_cast<const GX2DArc*>(element);
        return arc != nullptr && arc->IsCircle();
      });
  if (anyCircle) return false;
  return !elements.empty() && elements.IsFullyConnected() && elements.IsClosed(kVertexTolerance);
}

// How far the vertices and middles of merged elements lie beside what they became.
double DeviationOf(const GX2DElmList& before, const Trial& trial, std::size_t survivor) {
  double deviation = 0.0;
  GX2DElement& merged = *trial.elements[survivor];
  for (const std::size_t i : trial.runs[survivor]) {
    GX2DElement& element = *before[i];
    for (const GX2DPoint& p : {element.GetStartPoint(), MiddleOf(element), element.GetEndPoint()}) {
      const double distance = DistanceToElement(p, merged);
      if (!(distance <= deviation)) deviation = distance;
    }
  }
  return deviation;
}

double MovementOf(Step step, const GX2DElmList& before, const Trial& trial, std::size_t survivor) {
  const Run& run = trial.runs[survivor];
  if (step == Step::kStitch || step == Step::kStitchLines) {
    return run.size() > 1 ? DeviationOf(before, trial, survivor) : 0.0;
  }
  if (step != Step::kFixConnections) return 0.0;
  return drawing::MovementOf(*before[run.back()], *trial.elements[survivor]);
}

// Whether a step did no more than its name says.
bool IsHarmless(Step step, const GX2DElmList& before, const Trial& trial) {
  if (!IsClosedChain(trial.elements)) return false;
  const double length = LengthOf(before);
  const double area = SignedArea(before);
  const double areaNow = SignedArea(trial.elements);
  const bool isCircle = trial.elements.size() == 1;  // Which has lost its direction.
  const double change = isCircle ? std::fabs(areaNow) - std::fabs(area) : areaNow - area;
  if (!(std::fabs(change) <= kVertexTolerance * length)) return false;
  const double lengthChange = LengthOf(trial.elements) - length;
  const double slack = 2.0 * kVertexTolerance * static_cast<double>(before.size());
  if (!(lengthChange <= slack)) return false;
  if (step != Step::kTrunkFolds && !(lengthChange >= -slack)) return false;
  for (std::size_t i = 0; i < trial.survivors.size(); ++i) {
    if (!(MovementOf(step, before, trial, i) <= 2.0 * kVertexTolerance)) return false;
  }
  return true;
}

void Tell(Step step, const HealedChain& chain, const Trial& trial,
          std::vector<ChainChange>& changes) {
  for (std::size_t i = 0; i < trial.survivors.size(); ++i) {
    const Run& run = trial.runs[i];
    ChainChange change;
    change.kind = KindOf(step);
    change.movement = MovementOf(step, chain.elements, trial, i);
    change.count = run.size() - 1;
    if (run.size() < 2 && !(change.movement > 0.0)) continue;
    // Points and loops vanish, and nothing is kept for them.
    const bool vanish = step == Step::kClearPoints || step == Step::kRemoveLoops;
    if (!vanish) change.origins.push_back(chain.origins[run.back()]);
    for (std::size_t k = 0; k + 1 < run.size(); ++k) {
      change.origins.push_back(chain.origins[run[k]]);
    }
    change.place = chain.elements[run.front()]->GetEndPoint();
    change.distance = change.movement;
    if (step == Step::kTrunkFolds) {
      double drawn = 0.0;
      for (const std::size_t k : run) drawn += ElementLength(*chain.elements[k]);
      change.distance = 0.5 * (drawn - ElementLength(*trial.elements[i]));
    }
    changes.push_back(std::move(change));
  }
}

enum class Outcome { kUnchanged, kChanged, kRefused };

Outcome Do(Step step, HealedChain& chain, std::vector<ChainChange>& changes) {
  Trial trial;
  Try(step, chain.elements, trial);
  if (IsUnchanged(chain.elements, trial.elements)) return Outcome::kUnchanged;
  DrawArcsAnew(chain.elements, trial);
  if (!IsHarmless(step, chain.elements, trial)) return Outcome::kRefused;
  Tell(step, chain, trial, changes);
  std::vector<std::size_t> origins;
  for (const std::size_t i : trial.survivors) origins.push_back(chain.origins[i]);
  chain.origins = std::move(origins);
  chain.elements.swap(trial.elements);
  return Outcome::kChanged;
}

}  // namespace

void CleanUpChain(HealedChain& chain, bool mayMerge, std::vector<ChainChange>& changes,
                  std::vector<std::string>& refused) {
  std::vector<Step> told;
  const auto doStep = [&](Step step) {
    const Outcome outcome = Do(step, chain, changes);
    if (outcome == Outcome::kRefused && std::count(told.begin(), told.end(), step) == 0) {
      told.push_back(step);
      refused.push_back("clean-up of the contour at " +
                        PlaceText(chain.elements.front()->GetStartPoint()) + ": " + NameOf(step) +
                        " would have changed its shape and was not done");
    }
    return outcome;
  };
  bool goOn = true;
  // A single element is a full circle, which the first step would take for a point.
  for (int round = 0; goOn && round < kMostRounds && chain.elements.size() > 1; ++round) {
    goOn = false;
    const std::size_t size = chain.elements.size();
    for (const Step step : {Step::kClearPoints, Step::kTrunkFolds, Step::kRemoveLoops}) {
      goOn = doStep(step) == Outcome::kChanged || goOn;
      const bool fix = step == Step::kClearPoints && chain.elements.size() < size;
      if (fix) doStep(Step::kFixConnections);
    }
    if (!mayMerge) continue;
    const Outcome stitched = doStep(Step::kStitch);
    goOn = goOn || stitched == Outcome::kChanged;
    if (stitched == Outcome::kRefused) {
      goOn = doStep(Step::kStitchLines) == Outcome::kChanged || goOn;
    }
  }
}

}  // namespace drawing
