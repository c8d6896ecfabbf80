#pragma once

#include <KTRCL_DataTypes/Export.h>

/// Stands in signatures for a host's list of problems. It holds nothing, and operations that take a
/// pointer to one never touch it.
class KTRCL_DATATYPES_EXPORT GXProblemList {};
