// The containers that carry the result of comparing two parts: which group, and which occurrence,
// is the partner of which.
#include <KTRCL_Geometry/lookalike/GXLAEquality.h>

GXLAContourInstanceMapping::GXLAContourInstanceMapping() = default;
GXLAContourInstanceMapping::GXLAContourInstanceMapping(const GXLAContourInstanceMapping& other) =
    default;
GXLAContourInstanceMapping& GXLAContourInstanceMapping::operator=(
    const GXLAContourInstanceMapping& other) = default;
GXLAContourInstanceMapping::~GXLAContourInstanceMapping() = default;

void GXLAContourInstanceMapping::AddToMap(GXLAContourInstanceRefList& first,
                                          GXLAContourInstanceRefList& second) {
  try_emplace(&first, &second);
}

GXLAContourInstanceRefList* GXLAContourInstanceMapping::FindInMap(
    GXLAContourInstanceRefList& first) const {
  const auto it = find(&first);
  return it == end() ? nullptr : it->second;
}

GXBiMapLAContourInstanceEquality::GXBiMapLAContourInstanceEquality() = default;

GXBiMapLAContourInstanceEquality::GXBiMapLAContourInstanceEquality(
    GXBiMapLAContourInstanceEquality& other) = default;
GXBiMapLAContourInstanceEquality& GXBiMapLAContourInstanceEquality::operator=(
    GXBiMapLAContourInstanceEquality& other) = default;

GXBiMapLAContourInstanceEquality::~GXBiMapLAContourInstanceEquality() = default;

void GXBiMapLAContourInstanceEquality::AddToBiMap(GXLAContourInstance& first,
                                                  GXLAContourInstance& second, int offset) {
  add(&first, &second);
  Offsets.try_emplace(&first, offset);
}
