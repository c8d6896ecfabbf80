#include "drawing/DuplicateIndex.h"

#include "drawing/ElementOverlap.h"

#include <algorithm>
#include <cmath>
#include <cstring>

namespace drawing {

namespace {

// Sixteen tolerances wide, a cell has few places near enough to its border for a second one.
constexpr double kCellWidth = 16.0;

// The mixing step of a hash by G. Steele, D. Lea and C. Flood ("Fast splittable pseudorandom number
// generators", 2014).
std::uint64_t Mixed(std::uint64_t value) {
  value = (value ^ (value >> 30)) * 0xbf58476d1ce4e5b9ULL;
  value = (value ^ (value >> 27)) * 0x94d049bb133111ebULL;
  return value ^ (value >> 31);
}

// Cells are kept as numbers of floating point, whose range no coordinate can leave.
std::uint64_t KeyOf(const std::array<double, 4>& cells, int kind) {
  auto key = static_cast<std::uint64_t>(kind);
  for (double cell : cells) {
    if (cell == 0.0) cell = 0.0;  // Minus zero is zero.
    std::uint64_t bits = 0;
    std::memcpy(&bits, &cell, sizeof bits);
    key = Mixed(key + 0x9e3779b97f4a7c15ULL + bits);
  }
  return key;
}

}  // namespace

std::size_t DuplicateIndex::Find(GX2DElement& element, const Place& place, int kind) const {
  const double width = kCellWidth * tolerance_;
  Place low;
  Place high;
  for (std::size_t k = 0; k < place.size(); ++k) {
    low[k] = std::floor((place[k] - tolerance_) / width);
    high[k] = std::floor((place[k] + tolerance_) / width);
  }
  std::size_t found = kNone;
  for (unsigned corner = 0; corner < 16; ++corner) {
    Place cells = low;
    bool isNew = true;
    for (std::size_t k = 0; k < cells.size(); ++k) {
      if ((corner >> k & 1U) == 0) continue;
      isNew = isNew && high[k] != low[k];
      cells[k] = high[k];
    }
    if (!isNew) continue;
    const auto entries = entries_.find(KeyOf(cells, kind));
    if (entries == entries_.end()) continue;
    for (const Entry& entry : entries->second) {
      if (entry.number < found && AreSameCurve(*entry.element, element, tolerance_)) {
        found = entry.number;
      }
    }
  }
  return found;
}

std::size_t DuplicateIndex::FindOrAdd(GX2DElement& element, std::size_t number) {
  enum Kind { kLine, kArc, kCircle };
  const auto* const arc = dynamic_cast<const GX2DArc*>(&element);
  const int kind = arc == nullptr ? kLine : arc->IsCircle() ? kCircle : kArc;
  const GX2DPoint& start = element.GetStartPoint();
  const GX2DPoint& end = element.GetEndPoint();
  Place place = {start.X, start.Y, end.X, end.Y};
  if (kind == kCircle) place = {arc->Center.X, arc->Center.Y, arc->Radius(), 0.0};
  std::size_t found = Find(element, place, kind);
  if (kind != kCircle) {
    found = std::min(found, Find(element, {end.X, end.Y, start.X, start.Y}, kind));
  }
  if (found != kNone) return found;
  Place cells = place;
  for (double& cell : cells) cell = std::floor(cell / (kCellWidth * tolerance_));
  entries_[KeyOf(cells, kind)].push_back({&element, number});
  return number;
}

}  // namespace drawing
