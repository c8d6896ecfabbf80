#include "drawing/SelfIntersections.h"

#include "drawing/Boxes.h"
#include "drawing/ContourCrossings.h"
#include "drawing/CurveMeasures.h"
#include "drawing/ElementCrossings.h"
#include "drawing/Overlaps.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <utility>

namespace drawing {

namespace {

// What one search may cost, in boxes met. A pair that has to be held against one another costs as
// much as many boxes.
constexpr std::size_t kCostAtLeast = 4'000'000;
constexpr std::size_t kCostPerElement = 500;
constexpr std::size_t kCostOfPair = 20;

// A point that two elements have in common, by its share of the length of the first.
struct CommonPoint {
  double share = 0.0;
  GX2DPoint place;
};

// Consecutive common points between which the elements stay together.
struct Stretch {
  CommonPoint from;
  CommonPoint to;
};

bool IsFullCircle(GX2DElement& element) {
  const auto* arc = dynamic_cast<const GX2DArc*>(&element);
  return arc != nullptr && arc->IsCircle();
}

bool IsNear(const GX2DPoint& p, const GX2DPoint& q) { return Distance(p, q) <= kTouchTolerance; }

// A line for a glance: how far points are from it, and whether that is more than a touch.
class GlancedLine {
 public:
  explicit GlancedLine(const GX2DElement& element)
      : line_(dynamic_cast<const GX2DLine*>(&element)) {
    if (line_ == nullptr) return;
    dx_ = line_->End.X - line_->Start.X;
    dy_ = line_->End.Y - line_->Start.Y;
    slack_ = kTouchTolerance * std::hypot(dx_, dy_);
  }

  // Whether a glance tells that two lines meet nowhere but at a joint. Of what is no line it tells
  // nothing.
  bool IsApartFrom(const GlancedLine& other) const {
    if (line_ == nullptr || other.line_ == nullptr) return false;
    if (HasBeside(*other.line_) || other.HasBeside(*line_)) return true;
    const GX2DLine& p = *line_;
    const GX2DLine& q = *other.line_;
    return PartsFrom(p.Start, p.End, other, q.Start, q.End) ||
           PartsFrom(p.Start, p.End, other, q.End, q.Start) ||
           PartsFrom(p.End, p.Start, other, q.Start, q.End) ||
           PartsFrom(p.End, p.Start, other, q.End, q.Start);
  }

 private:
  // Distance on the left, times the length of the line.
  double SideOf(const GX2DPoint& p) const {
    return dx_ * (p.Y - line_->Start.Y) - dy_ * (p.X - line_->Start.X);
  }

  // All of another line on one side, without a touch.
  bool HasBeside(const GX2DLine& other) const {
    const double start = SideOf(other.Start);
    const double end = SideOf(other.End);
    return (start > slack_ && end > slack_) || (start < -slack_ && end < -slack_);
  }

  // Two lines that begin at one point and end apart meet nowhere else.
  bool PartsFrom(const GX2DPoint& near, const GX2DPoint& far, const GlancedLine& other,
                 const GX2DPoint& otherNear, const GX2DPoint& otherFar) const {
    const double offset = std::fabs(near.X - otherNear.X) + std::fabs(near.Y - otherNear.Y);
    return offset <= kTouchTolerance && std::fabs(SideOf(otherFar)) > slack_ &&
           std::fabs(other.SideOf(far)) > other.slack_;
  }

  const GX2DLine* line_;  // Null where the element is none.
  double dx_ = 0.0;
  double dy_ = 0.0;
  double slack_ = 0.0;
};

// What two elements have in common, told apart from their joints.
class ElementPair {
 public:
  ElementPair(GX2DElement& p, GX2DElement& q) : p_(p), q_(q) { FindJoints(); }

  // Where they meet other than at joints, along `p`.
  std::vector<Stretch> Meetings() {
    std::vector<Stretch> meetings;
    for (const Stretch& stretch : Stretches(CommonPoints())) {
      if (!IsAtJoint(stretch) || RunsBack(stretch)) meetings.push_back(stretch);
    }
    return meetings;
  }

  double LengthOf(const Stretch& stretch) const {
    return (stretch.to.share - stretch.from.share) * ElementLength(p_);
  }

 private:
  void FindJoints() {
    if (IsFullCircle(p_) || IsFullCircle(q_)) return;
    for (const GX2DPoint& end : {p_.GetStartPoint(), p_.GetEndPoint()}) {
      for (const GX2DPoint& other : {q_.GetStartPoint(), q_.GetEndPoint()}) {
        if (!end.IsAlmostEq(other, kTouchTolerance)) continue;
        joints_.push_back(end);
        joints_.push_back(other);
      }
    }
  }

  std::vector<GX2DPoint> Candidates() {
    std::vector<GX2DPoint> points;
    const auto* arc = dynamic_cast<const GX2DArc*>(&p_);
    const auto* otherArc = dynamic_cast<const GX2DArc*>(&q_);
    const auto* line = dynamic_cast<const GX2DLine*>(&p_);
    const auto* otherLine = dynamic_cast<const GX2DLine*>(&q_);
    if (line != nullptr && otherLine != nullptr) CrossLines(*line, *otherLine, points);
    if (arc != nullptr && otherArc != nullptr) CrossCircles(*arc, *otherArc, points);
    if (line != nullptr && otherArc != nullptr) CrossLineAndCircle(*line, *otherArc, points);
    if (arc != nullptr && otherLine != nullptr) CrossLineAndCircle(*otherLine, *arc, points);
    AddEnds(p_, points);
    AddEnds(q_, points);
    return points;
  }

  // By their share of `p`.
  std::vector<CommonPoint> CommonPoints() {
    std::vector<CommonPoint> common;
    for (const GX2DPoint& point : Candidates()) {
      if (!(DistanceToElement(point, p_) <= kTouchTolerance)) continue;
      if (!(DistanceToElement(point, q_) <= kTouchTolerance)) continue;
      common.push_back({ShareAt(point, p_), point});
    }
    std::stable_sort(common.begin(), common.end(),
                     [](const CommonPoint& a, const CommonPoint& b) { return a.share < b.share; });
    return common;
  }

  // Two curves that part and come together again are farthest apart somewhere in the middle.
  bool StayTogether(const CommonPoint& from, const CommonPoint& to) {
    if (IsNear(from.place, to.place) && (to.share - from.share) < 0.5) return true;
    constexpr std::array<double, 3> kSamples = {0.5, 0.25, 0.75};
    return std::all_of(kSamples.begin(), kSamples.end(), [&](double sample) {
      const double share = from.share + sample * (to.share - from.share);
      return DistanceToElement(PointAt(p_, share), q_) <= kTouchTolerance;
    });
  }

  std::vector<Stretch> Stretches(const std::vector<CommonPoint>& common) {
    std::vector<Stretch> stretches;
    for (const CommonPoint& point : common) {
      if (!stretches.empty() && StayTogether(stretches.back().to, point)) {
        stretches.back().to = point;
      } else {
        stretches.push_back({point, point});
      }
    }
    return stretches;
  }

  bool IsJoint(const GX2DPoint& place) const {
    return std::any_of(joints_.begin(), joints_.end(),
                       [&](const GX2DPoint& joint) { return IsNear(place, joint); });
  }

  bool IsAtJoint(const Stretch& stretch) const {
    return IsJoint(stretch.from.place) || IsJoint(stretch.to.place);
  }

  // Whether an element lies on the other from their joint to an end of one of them.
  bool RunsBack(const Stretch& stretch) const {
    return LengthOf(stretch) > kOverlapTolerance && IsAnEnd(stretch.from.place) &&
           IsAnEnd(stretch.to.place);
  }

  bool IsAnEnd(const GX2DPoint& place) const {
    return IsNear(place, p_.GetStartPoint()) || IsNear(place, p_.GetEndPoint()) ||
           IsNear(place, q_.GetStartPoint()) || IsNear(place, q_.GetEndPoint());
  }

  GX2DElement& p_;
  GX2DElement& q_;
  std::vector<GX2DPoint> joints_;
};

SelfIntersection IntersectionOf(std::size_t first, std::size_t second, GX2DElement& element,
                                const ElementPair& pair, const Stretch& stretch) {
  const double length = pair.LengthOf(stretch);
  if (stretch.from.share == stretch.to.share) return {first, second, stretch.from.place, 0.0};
  const double middle = 0.5 * stretch.from.share + 0.5 * stretch.to.share;
  // Points closer together than elements are told apart are one.
  const bool isPlace = length <= kOverlapTolerance;
  return {first, second, PointAt(element, middle), isPlace ? 0.0 : length};
}

bool IsFinite(const Box& box) {
  return std::isfinite(box.minX) && std::isfinite(box.minY) && std::isfinite(box.maxX) &&
         std::isfinite(box.maxY);
}

// Goes through the pairs of elements whose boxes meet.
class Search {
 public:
  Search(GX2DElmList& elements, std::vector<Box> boxes, std::size_t most)
      : elements_(elements),
        boxes_(std::move(boxes)),
        tree_(boxes_),
        most_(most),
        left_(kCostAtLeast + kCostPerElement * boxes_.size()) {
    for (const GX2DElement* const element : elements_) lines_.emplace_back(*element);
  }

  SelfIntersections Result() {
    for (std::size_t i = 0; i < boxes_.size() && result_.complete; ++i) LookFrom(i);
    return std::move(result_);
  }

 private:
  void LookFrom(std::size_t i) {
    tree_.FindMeeting(Grown(boxes_[i], kTouchTolerance), near_);
    if (!Spend(near_.size())) return;
    near_.erase(std::remove_if(near_.begin(), near_.end(), [i](std::size_t j) { return j <= i; }),
                near_.end());
    std::sort(near_.begin(), near_.end());
    for (const std::size_t j : near_) {
      if (lines_[i].IsApartFrom(lines_[j])) continue;
      if (!Spend(kCostOfPair) || !Add(i, j)) return;
    }
  }

  bool Add(std::size_t i, std::size_t j) {
    ElementPair pair(*elements_[i], *elements_[j]);
    for (const Stretch& stretch : pair.Meetings()) {
      result_.complete = result_.found.size() < most_;
      if (!result_.complete) return false;
      result_.found.push_back(IntersectionOf(i, j, *elements_[i], pair, stretch));
    }
    return true;
  }

  bool Spend(std::size_t cost) {
    result_.complete = cost <= left_;
    if (result_.complete) left_ -= cost;
    return result_.complete;
  }

  GX2DElmList& elements_;
  std::vector<Box> boxes_;
  BoxTree tree_;
  std::size_t most_;
  std::size_t left_;
  std::vector<GlancedLine> lines_;
  std::vector<std::size_t> near_;
  SelfIntersections result_;
};

}  // namespace

SelfIntersections FindSelfIntersections(GX2DElmList& elements, std::size_t most) {
  std::vector<Box> boxes;
  for (GX2DElement* const element : elements) {
    boxes.push_back(BoxOf(*element));
    if (!IsFinite(boxes.back())) return {};
  }
  return Search(elements, std::move(boxes), most).Result();
}

}  // namespace drawing
