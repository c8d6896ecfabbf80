// The distinct shapes of a part, from long to short, and the matching of two such lists.
#include <KTRCL_DataTypes/GXMath.h>
#include <KTRCL_Geometry/lookalike/GXLAContourInstance.h>

#include <algorithm>
#include <functional>
#include <vector>

namespace {

// Length unit. Lengths no further apart count as equal, and the older shape stays in front.
constexpr double kSortTolerance = 0.001;

// The first entry of `candidates` with the geometry of `contour`; the end where there is none or a
// null entry comes before it.
std::list<GXLAContour*>::iterator FindSameGeometry(const GXLAContour& contour,
                                                   std::list<GXLAContour*>& candidates,
                                                   GXLAContour::eNmbSegmentsMode mode,
                                                   GXLATolerances& tolerances) {
  for (auto it = candidates.begin(); it != candidates.end(); ++it) {
    if (*it == nullptr) return candidates.end();
    GXLAContour::eReversedGeometry reversed = GXLAContour::eGeometryNotSet;
    int startPosition = 0;
    if (GXLAContour::HaveSameGeometry(contour, **it, reversed, startPosition, mode, tolerances,
                                      nullptr)) {
      return it;
    }
  }
  return candidates.end();
}

}  // namespace

GXLAContourList::GXLAContourList() = default;
GXLAContourList::GXLAContourList(const GXLAContourList& other) = default;
GXLAContourList& GXLAContourList::operator=(const GXLAContourList& other) = default;

GXLAContourList::~GXLAContourList() { ClearWithContent(); }

void GXLAContourList::AddElement(GXLAContour& contour) { push_back(&contour); }

void GXLAContourList::AddElementSortTotalGeometryLengthDesc(GXLAContour& contour) {
  const auto shorter = [&contour](const GXLAContour* entry) {
    return entry != nullptr &&
           GXMath::GreaterNotAlmostEq(contour.TotalGeometryLength, entry->TotalGeometryLength,
                                      kSortTolerance);
  };
  insert(std::find_if(begin(), end(), shorter), &contour);
}

void GXLAContourList::SortOnTotalLengthDesc() {
  if (size() < 2) return;
  // The pointers change places between the nodes; iterators keep their place in the order.
  std::vector<GXLAContour*> sorted(begin(), end());
  std::sort(sorted.begin(), sorted.end(), std::greater<>());
  std::copy(sorted.begin(), sorted.end(), begin());
}

void GXLAContourList::ClearWithContent() {
  for (GXLAContour* contour : *this) delete contour;
  clear();
}

void GXLAContourList::GetTotalGeometryLengthList(std::list<double>& lengths) const {
  lengths.clear();
  for (const GXLAContour* contour : *this) {
    if (contour != nullptr) lengths.push_back(contour->TotalGeometryLength);
  }
}

void GXLAContourList::ReNumberGXLAContourList() {
  int index = 0;
  for (GXLAContour* contour : *this) {
    ++index;
    if (contour != nullptr) contour->SetContourIndex(index);
  }
}

GXLAContour* GXLAContourList::GetSameGeometryContour(GXLAContour& contour,
                                                     GXLAContour::eReversedGeometry& reversed,
                                                     int& startPosition,
                                                     GXLAContour::eNmbSegmentsMode mode,
                                                     GXLATolerances& tolerances) const {
  for (GXLAContour* entry : *this) {
    if (entry == nullptr) return nullptr;
    if (GXLAContour::HaveSameGeometry(contour, *entry, reversed, startPosition, mode, tolerances,
                                      nullptr)) {
      return entry;
    }
  }
  return nullptr;
}

bool GXLAContourList::HaveSameGeometry(GXLAContourList& first, GXLAContourList& second,
                                       GXLAContour::eNmbSegmentsMode mode,
                                       GXLATolerances& tolerances) {
  if (first.size() != second.size()) return false;
  // A plain list: an owning one would delete the contours with it.
  std::list<GXLAContour*> unmatched(second.begin(), second.end());
  for (const GXLAContour* contour : first) {
    if (contour == nullptr) return false;
    const auto match = FindSameGeometry(*contour, unmatched, mode, tolerances);
    if (match == unmatched.end()) return false;
    unmatched.erase(match);
  }
  return true;
}
