#include "ktrcl/Admission.h"

#include <iostream>

namespace ktrcl {

void TellComplaints(const drawing::Drawing& drawing, const char* result) {
  for (const drawing::Complaint& complaint : drawing.complaints) {
    if (complaint.severity == drawing::Severity::kNote) continue;
    std::cerr << drawing::ToLine(complaint) << "\n";
  }
  for (const auto& [type, count] : drawing.unusedByType) {
    std::cerr << drawing.file << ": warning: " << count << " " << type
              << " cannot be used yet; the " << result << " knows nothing of them\n";
  }
}

bool Admit(const drawing::PartModel& part, const char* result) {
  TellComplaints(part.drawing, result);
  if (!part.usable) {
    std::cerr << "ktrcl: " << part.drawing.file << ": " << part.obstacle << "\n";
  }
  return part.usable;
}

}  // namespace ktrcl
