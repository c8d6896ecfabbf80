#pragma once

// The whole companion library, in reading order.

// clang-format off
#include <KTRCL_DataTypes/GXMath.h>
#include <KTRCL_DataTypes/GXString.h>
#include <KTRCL_DataTypes/GXIntList.h>
#include <KTRCL_DataTypes/GXDoubleVector.h>
#include <KTRCL_DataTypes/GXParagraph.h>
#include <KTRCL_DataTypes/GXEvent.h>
#include <KTRCL_DataTypes/GXProblemList.h>
// clang-format on
