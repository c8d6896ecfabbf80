// Two drawings as the library's parts, with the way back from the library's groups of cut-outs to
// the cut-outs of the drawings.
#pragma once

#include "drawing/PartComparison.h"
#include "drawing/PartModel.h"

#include <KTRCL_Geometry/KTRCL_Geometry.h>

#include <cstddef>
#include <vector>

namespace drawing {

/// One drawing as the library's part.
struct LookAlikePart {
  GXLAPart* part = nullptr;                     ///< Owned by a list of parts.
  std::vector<GXLAContourInstance*> instances;  ///< One per cut-out of the model.
  std::vector<GXLAContour*> shapes;             ///< The distinct shapes, in the order of the list.
  std::vector<std::size_t> shapeOf;             ///< Per cut-out, index into `shapes`.
};

/// The part of a usable model, its cut-outs added from long to short; `parts` takes it.
LookAlikePart MakeLookAlikePart(const PartModel& model, GXLAContour::eNmbSegmentsMode mode,
                                GXLATolerances& tolerances, GXLAPartList& parts);

/// A group of cut-outs that are equal in both parts, or of one part alone.
struct ShapeGroup {
  GXLAContour* a = nullptr;      ///< The shape in part A, null where it has none.
  GXLAContour* b = nullptr;      ///< The shape in part B, null where it has none.
  std::vector<std::size_t> inA;  ///< Indices into the cut-outs of A.
  std::vector<std::size_t> inB;  ///< Indices into the cut-outs of B.
};

/// Both parts in the library's form.
///
/// The library puts a cut-out into the first group that it fits, with 0.05 mm of tolerance, and
/// compares the sorted shapes of two parts entry against entry, with 0.001 mm. Both depend on the
/// order of adding. So the cut-outs of A are added from long to short, and those of B in the order
/// of the shapes of A that they match, from long to short within each.
class LookAlikePair {
 public:
  /// The models must outlive the pair and stay as they are; they are not changed.
  LookAlikePair(const PartModel& a, const PartModel& b, GXLAContour::eNmbSegmentsMode mode);
  LookAlikePair(const LookAlikePair&) = delete;
  LookAlikePair& operator=(const LookAlikePair&) = delete;

  const LookAlikePart& A() const;
  const LookAlikePart& B() const;

  /// What HasSameInternalContourStructure says.
  bool HasSameStructure(GXEvent1Param<const GXString&>* trace);

  /// The groups, those of both parts first, from long to short. With `structureEqual` the library's
  /// shapes are paired in their order, otherwise as far as they are equal.
  std::vector<ShapeGroup> Groups(bool structureEqual);

 private:
  bool AreEqualShapes(const GXLAContour& a, const GXLAContour& b);
  std::size_t PartnerOfShape(std::size_t shape, bool structureEqual, const std::vector<bool>& used);

  GXLAContour::eNmbSegmentsMode mode_;
  GXLATolerances tolerances_;
  GXLAPartList parts_;
  LookAlikePart a_;
  LookAlikePart b_;
};

}  // namespace drawing
