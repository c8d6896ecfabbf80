// Contour healing of the flat and the spatial list: thin members over the twins, and what only the
// spatial list has.

#include <KTRCL_Geometry/contour/GXGeometry.h>
#include <KTRCL_Geometry/elements/GX2DElements.h>
#include <KTRCL_Geometry/elements/GX3DElements.h>
#include <KTRCL_Geometry/elements/GXElementLists.h>
#include <KTRCL_Geometry/foundation/GXMatrix.h>
#include <KTRCL_Geometry/foundation/GXRotation.h>
#include <KTRCL_Geometry/foundation/GXVector.h>

#include "elements/HealingChain.h"
#include "elements/HealingDuplicates.h"
#include "elements/HealingTwins.h"
#include "foundation/Tolerance.h"

#include <algorithm>
#include <cmath>
#include <cstddef>

using ktrcl_internal::Flat;
using ktrcl_internal::Spatial;

namespace {

// From these sizes on an index is quicker than asking every element.
constexpr std::size_t kIndexedChainSize = 32;
constexpr std::size_t kIndexedDuplicatesSize = 32;

template <typename Traits>
void ChainBySize(typename Traits::List& list) {
  if (list.size() < kIndexedChainSize) {
    ktrcl_internal::ChainPlain<Traits>(list);
  } else {
    ktrcl_internal::ChainIndexed<Traits>(list);
  }
}

// The polygon of `ConvertTo3DPointList` leaves the arc by no more than this (length units) ...
constexpr double kSag = 5.0;
// ... and never turns by more than 5 degrees at a point.
constexpr double kLargestTurn = 0.08726646259971647;

// Arcs so large that the sag decides have more steps than a turn of the largest step. These
// additional steps are limited for the whole call: the steps of a radius of 1e20 are countless.
constexpr int kStepsOfTurn = 72;
constexpr int kMaxAdditionalSteps = 999999;

// Whole steps of an arc, rounded up; what goes beyond those of a turn is taken from `additional`.
int CountSteps(double angle, double radius, int& additional) {
  const double sagTurn = 2.0 * std::acos(std::max(0.0, 1.0 - kSag / radius));
  const double figure = std::ceil(angle / std::min(sagTurn, kLargestTurn));
  if (!(figure > 0.0)) return 0;
  if (figure <= kStepsOfTurn) return static_cast<int>(figure);
  const double beyond = std::min(figure - kStepsOfTurn, static_cast<double>(additional));
  additional -= static_cast<int>(beyond);
  return kStepsOfTurn + static_cast<int>(beyond);
}

// Appends the points between start and end of an arc that is walked in `count` steps.
void AppendInnerPoints(const GX3DArc& arc, double angle, double radius, int count,
                       GX3DPointBoolPairList& out) {
  GXVector x(arc.Center, arc.Start);
  x.Standard();
  GXVector towardsMid(arc.Center, arc.Mid);
  towardsMid.Standard();
  GXVector z = x * towardsMid;
  z.Standard();
  GXMatrix fromLocal(x, z * x, z);
  fromLocal.Inverse();
  const GXRotation turn = GXRotation::XYZs(0.0, 0.0, GXMatrix::Rad2Deg(angle) / count);
  GXVector v(radius, 0.0, 0.0);
  for (int i = 1; i < count; ++i) {
    v = turn * v;
    out.push_back(GX3DPointBoolPair(arc.Center + fromLocal * v, true));
  }
}

void AppendStartIfEmpty(const GX3DPoint& start, GX3DPointBoolPairList& out) {
  if (out.empty()) out.push_back(GX3DPointBoolPair(start, false));
}

void AppendLine(const GX3DLine& line, GX3DPointBoolPairList& out) {
  AppendStartIfEmpty(line.Start, out);
  out.push_back(GX3DPointBoolPair(line.End, false));
}

void AppendArc(const GX3DArc& arc, int& additional, GX3DPointBoolPairList& out) {
  AppendStartIfEmpty(arc.Start, out);
  const double angle = GXGeometry::GetArcAngleRad(arc);
  const double radius = GXVector(arc.Center, arc.Start).Len();
  const int count = CountSteps(angle, radius, additional);
  // Callers get the end of so short an arc from the start of the element behind it.
  if (count < 2) return;
  AppendInnerPoints(arc, angle, radius, count, out);
  out.push_back(GX3DPointBoolPair(arc.End, false));
}

}  // namespace

// The flat list

void GX2DElmList::MakeConnectingElements() { ChainBySize<Flat>(*this); }

void GX2DElmList::MakeAlmostEqualPointsEqual() { ktrcl_internal::SnapAll<Flat>(*this); }

void GX2DElmList::RemovePoints() {
  ktrcl_internal::DestroyIf(*this, ktrcl_internal::IsPoint<Flat>);
}

void GX2DElmList::MakeClosed() {
  RemovePoints();
  MakeConnectingElements();
  ktrcl_internal::BridgeGaps<Flat>(*this);
}

void GX2DElmList::CloseBeginEndIfNeeded() { ktrcl_internal::CloseBeginEnd<Flat>(*this); }

void GX2DElmList::RepairLines(const double& fraction) {
  ktrcl_internal::RepairFolds<Flat>(
      *this, fraction,
      [this](GX2DLine& line, GX2DLine& neighbour, const GX2DPoint& p, const double& share) {
        ModifyPntForRepair(line, neighbour, p, share);
      });
}

void GX2DElmList::ModifyPntForRepair(GX2DLine& line, GX2DLine& neighbour, const GX2DPoint& p,
                                     const double& fraction) {
  ktrcl_internal::MoveJoint<Flat>(line, neighbour, p, fraction);
}

// The spatial list

void GX3DElmList::MakeConnectingElements() { ChainBySize<Spatial>(*this); }

void GX3DElmList::MakeAlmostEqualPointsEqual() { ktrcl_internal::SnapAll<Spatial>(*this); }

void GX3DElmList::RemovePoints() {
  ktrcl_internal::DestroyIf(*this, ktrcl_internal::IsPoint<Spatial>);
}

void GX3DElmList::MakeClosed() {
  RemovePoints();
  MakeConnectingElements();
  ktrcl_internal::BridgeGaps<Spatial>(*this);
}

void GX3DElmList::CloseBeginEndIfNeeded() { ktrcl_internal::CloseBeginEnd<Spatial>(*this); }

void GX3DElmList::RepairLines(const double& fraction) {
  ktrcl_internal::RepairFolds<Spatial>(
      *this, fraction,
      [this](GX3DLine& line, GX3DLine& neighbour, const GX3DPoint& p, const double& share) {
        ModifyPntForRepair(line, neighbour, p, share);
      });
}

void GX3DElmList::ModifyPntForRepair(GX3DLine& line, GX3DLine& neighbour, const GX3DPoint& p,
                                     const double& fraction) {
  ktrcl_internal::MoveJoint<Spatial>(line, neighbour, p, fraction);
}

// What only the spatial list has

void GX3DElmList::RemoveDuplicates() {
  if (size() < kIndexedDuplicatesSize) {
    ktrcl_internal::RemoveDuplicatesPlain(*this);
  } else {
    ktrcl_internal::RemoveDuplicatesIndexed(*this);
  }
}

void GX3DElmList::EliminateElmsActuallyPoint() {
  // Deleting a null entry does nothing; it is erased like the others.
  ktrcl_internal::DestroyIf(*this, [](GX3DElement* element) {
    return element == nullptr || element->IsActuallyAPoint();
  });
}

void GX3DElmList::ConvertTo3DPointList(GX3DPointBoolPairList& out) {
  int additional = kMaxAdditionalSteps;
  for (GX3DElement* const element : *this) {
    if (const auto* const line = dynamic_cast<const GX3DLine*>(element)) {
      AppendLine(*line, out);
    } else if (const auto* const arc = dynamic_cast<const GX3DArc*>(element)) {
      AppendArc(*arc, additional, out);
    }
  }
  // A closed contour does not repeat its first point.
  if (out.size() <= 2) return;
  if (ktrcl_internal::Meet(out.front().first, out.back().first)) out.pop_back();
}
