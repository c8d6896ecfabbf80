// What is told of a drawing on standard error before anything is made of it.
#pragma once

#include "drawing/PartModel.h"

namespace ktrcl {

/// Prints what a person has to know before trusting the `result` that follows ("verdict"):
/// warnings, errors, and entities that cannot be used.
void TellComplaints(const drawing::Drawing& drawing, const char* result);

/// Prints the complaints, and why there is no part.
///
/// Returns: whether there is a part.
bool Admit(const drawing::PartModel& part, const char* result);

}  // namespace ktrcl
