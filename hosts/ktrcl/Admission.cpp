#include "ktrcl/Admission.h"

#include <iostream>

namespace ktrcl {

bool Admit(const drawing::PartModel& part, const char* result) {
  for (const drawing::Complaint& complaint : part.drawing.complaints) {
    if (complaint.severity == drawing::Severity::kNote) continue;
    std::cerr << drawing::ToLine(complaint) << "\n";
  }
  for (const auto& [type, count] : part.drawing.unusedByType) {
    std::cerr << part.drawing.file << ": warning: " << count << " " << type
              << " cannot be used yet; the " << result << " knows nothing of them\n";
  }
  if (!part.usable) {
    std::cerr << "ktrcl: " << part.drawing.file << ": " << part.obstacle << "\n";
  }
  return part.usable;
}

}  // namespace ktrcl
