#include "drawing/LookAlikeParts.h"

#include <KTRCL_DataTypes/GXMath.h>

#include <algorithm>
#include <cstddef>
#include <map>
#include <numeric>
#include <vector>

namespace drawing {

namespace {

// In millimetres: how far the lengths of two shapes may differ where the library compares the
// structure of two parts.
constexpr double kShapeLengthLimit = 0.001;

// Fills an empty contour with elements of its own.
void CopyElements(const GXLAContour& shape, GXLAContour& copy) {
  for (const GXLAElement* element : shape) {
    if (const auto* line = dynamic_cast<const GXLAElementLine*>(element)) {
      auto* own = new GXLAElementLine(*line);
      copy.AddLineElement(own);
    } else if (const auto* arc = dynamic_cast<const GXLAElementArc*>(element)) {
      auto* own = new GXLAElementArc(*arc);
      copy.AddArcElement(own);
    } else if (const auto* angle = dynamic_cast<const GXLAElementAngle*>(element)) {
      auto* own = new GXLAElementAngle(*angle);
      copy.AddAngleElement(own);
    }
  }
}

void AddOuter(ShapedContour& contour, GXLAPart& part) {
  GXLAContour copy(true, contour.shape->GetContourDirection());
  CopyElements(*contour.shape, copy);
  part.AddExternalContourInstance(contour.elements, copy);
  copy.clear();  // The elements belong to the part now.
}

GXLAContourInstance* AddCutOut(ShapedContour& contour, GXLAPart& part,
                               GXLAContour::eNmbSegmentsMode mode, GXLATolerances& tolerances) {
  GXLAContour copy(true, contour.shape->GetContourDirection());
  CopyElements(*contour.shape, copy);
  const std::size_t shapesBefore = part.GetInternalLAContourList().size();
  GXLAContourInstance* const instance =
      part.AddInternalContourInstance(contour.elements, copy, mode, tolerances, nullptr);
  // A new shape shares the elements of the copy; a known one leaves them with it.
  if (part.GetInternalLAContourList().size() != shapesBefore) copy.clear();
  return instance;
}

LookAlikePart MakePart(const PartModel& model, const std::vector<std::size_t>& order,
                       GXLAContour::eNmbSegmentsMode mode, GXLATolerances& tolerances,
                       GXLAPartList& parts) {
  LookAlikePart made;
  made.part = GXLAPartCreator(parts).CreateLAPart();
  AddOuter(*model.outer, *made.part);
  made.instances.resize(model.cutOuts.size());
  for (const std::size_t index : order) {
    made.instances[index] = AddCutOut(*model.cutOuts[index], *made.part, mode, tolerances);
  }
  std::map<const GXLAContour*, std::size_t> positions;
  for (GXLAContour* shape : made.part->GetInternalLAContourList()) {
    positions.emplace(shape, made.shapes.size());
    made.shapes.push_back(shape);
  }
  for (const GXLAContourInstance* instance : made.instances) {
    made.shapeOf.push_back(positions.at(instance->GetLAContour()));
  }
  return made;
}

std::vector<std::size_t> FromLongToShort(const PartModel& model) {
  std::vector<std::size_t> order(model.cutOuts.size());
  std::iota(order.begin(), order.end(), std::size_t{0});
  return order;
}

// The cut-outs of a model in the order of the shapes of another part that they match; those that
// match none come last.
std::vector<std::size_t> InOrderOfShapes(const PartModel& model, const LookAlikePart& other,
                                         GXLAContour::eNmbSegmentsMode mode,
                                         GXLATolerances& tolerances) {
  std::map<const GXLAContour*, std::size_t> positions;
  for (std::size_t i = 0; i < other.shapes.size(); ++i) positions.emplace(other.shapes[i], i);
  positions.emplace(nullptr, other.shapes.size());

  std::vector<std::size_t> ranks;
  for (const auto& cutOut : model.cutOuts) {
    GXLAContour::eReversedGeometry reversed = GXLAContour::eGeometryNotSet;
    int start = 0;
    ranks.push_back(positions.at(other.part->GetInternalLAContourList().GetSameGeometryContour(
        *cutOut->shape, reversed, start, mode, tolerances)));
  }
  std::vector<std::size_t> order = FromLongToShort(model);
  std::stable_sort(order.begin(), order.end(),
                   [&](std::size_t p, std::size_t q) { return ranks[p] < ranks[q]; });
  return order;
}

// The cut-outs of each shape of a part.
std::vector<std::vector<std::size_t>> MembersOfShapes(const LookAlikePart& part) {
  std::vector<std::vector<std::size_t>> members(part.shapes.size());
  for (std::size_t i = 0; i < part.shapeOf.size(); ++i) members[part.shapeOf[i]].push_back(i);
  return members;
}

}  // namespace

LookAlikePart MakeLookAlikePart(const PartModel& model, GXLAContour::eNmbSegmentsMode mode,
                                GXLATolerances& tolerances, GXLAPartList& parts) {
  return MakePart(model, FromLongToShort(model), mode, tolerances, parts);
}

LookAlikePair::LookAlikePair(const PartModel& a, const PartModel& b,
                             GXLAContour::eNmbSegmentsMode mode)
    : mode_(mode) {
  a_ = MakeLookAlikePart(a, mode_, tolerances_, parts_);
  b_ = MakePart(b, InOrderOfShapes(b, a_, mode_, tolerances_), mode_, tolerances_, parts_);
}

const LookAlikePart& LookAlikePair::A() const { return a_; }

const LookAlikePart& LookAlikePair::B() const { return b_; }

bool LookAlikePair::HasSameStructure(GXEvent1Param<const GXString&>* trace) {
  GXLAContourInstanceMapping mapping;
  GXLAIntContoursEqual structure(*a_.part, *b_.part, mode_, tolerances_, trace);
  return structure.HasSameInternalContourStructure(mapping, false);
}

bool LookAlikePair::AreEqualShapes(const GXLAContour& a, const GXLAContour& b) {
  GXLAContour::eReversedGeometry reversed = GXLAContour::eGeometryNotSet;
  int start = 0;
  return GXMath::AlmostEq(a.GetTotalGeometryLength(), b.GetTotalGeometryLength(),
                          kShapeLengthLimit) &&
         GXLAContour::HaveSameGeometry(a, b, reversed, start, mode_, tolerances_, nullptr);
}

std::size_t LookAlikePair::PartnerOfShape(std::size_t shape, bool structureEqual,
                                          const std::vector<bool>& used) {
  for (std::size_t j = 0; j < b_.shapes.size(); ++j) {
    if (used[j]) continue;
    const bool partner =
        structureEqual ? shape == j : AreEqualShapes(*a_.shapes[shape], *b_.shapes[j]);
    if (partner) return j;
  }
  return b_.shapes.size();
}

std::vector<ShapeGroup> LookAlikePair::Groups(bool structureEqual) {
  const std::vector<std::vector<std::size_t>> membersA = MembersOfShapes(a_);
  const std::vector<std::vector<std::size_t>> membersB = MembersOfShapes(b_);
  std::vector<ShapeGroup> groups;
  std::vector<ShapeGroup> single;
  std::vector<bool> used(b_.shapes.size(), false);
  for (std::size_t i = 0; i < a_.shapes.size(); ++i) {
    const std::size_t j = PartnerOfShape(i, structureEqual, used);
    if (j == b_.shapes.size()) {
      single.push_back({a_.shapes[i], nullptr, membersA[i], {}});
      continue;
    }
    used[j] = true;
    groups.push_back({a_.shapes[i], b_.shapes[j], membersA[i], membersB[j]});
  }
  for (std::size_t j = 0; j < b_.shapes.size(); ++j) {
    if (!used[j]) single.push_back({nullptr, b_.shapes[j], {}, membersB[j]});
  }
  groups.insert(groups.end(), single.begin(), single.end());
  return groups;
}

}  // namespace drawing
