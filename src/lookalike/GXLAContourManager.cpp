// The occurrences of a part in groups of one shape.
#include <KTRCL_Geometry/lookalike/GXLAContourInstance.h>

#include <algorithm>
#include <cstddef>
#include <limits>

GXLAContourManager::GXLAContourManager() = default;
GXLAContourManager::GXLAContourManager(const GXLAContourManager& other) = default;
GXLAContourManager& GXLAContourManager::operator=(const GXLAContourManager& other) = default;
GXLAContourManager::~GXLAContourManager() = default;

int GXLAContourManager::CountNmbContourInstances() const {
  std::size_t count = 0;
  for (const auto& group : *this) count += group.second.size();
  constexpr std::size_t kLargest = std::numeric_limits<int>::max();
  return static_cast<int>(std::min(count, kLargest));
}
