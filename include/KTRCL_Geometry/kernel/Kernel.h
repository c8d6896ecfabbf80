// The coordinate-array kernel: free routines on plain arrays of doubles, beside the classes and
// with an arithmetic of its own. These are the conventions that all its routines share.
//
// Arrays. A point or vector is `double[3]`: x, y, z. A six-tuple, point and vector, is `double[6]`.
// A frame is `double[3][3]`, its rows the unit axes X, Y, Z in global coordinates; the way back
// from it needs its inverse (`Invmat`). An arc is centre, start, middle, end: start and middle span
// its plane and give its sense, and an arc whose middle is its end is a full circle. Routines of
// the plane take their coordinates one by one, x before y, and return through `double*`.
//
// Aliasing. All inputs are read before an output is written, so an output may be the same array as
// an input; where it must not be, the routine says so. Two outputs of one call are always different
// arrays, and no two arrays overlap in part.
//
// Null. No pointer may be null, except where the routine allows it.
//
// Unit flag. The `const int& unit` in front: 0 is a model in millimetres, another value one in
// inches. Two readings exist and both are used: *exactly 1* is inches, or *every non-zero value*
// is. Each routine says which one its tolerance follows; tolerances without such a word are plain
// numbers in model units. Routines that call others hand the flag on unchanged.
//
// Results. 0 or false is no or failure, and outputs then keep what they held unless the routine
// says otherwise; a positive figure is yes, and more than one are told apart. Angles are radians
// unless degrees are named, counter-clockwise in the plane and right-handed about an axis.
//
// Words. "Standardized" is what `Vector_standard` does: a vector no longer than 0.0001 is left as
// it is. Three points are "in line by `Inline`" where it finds the ways from the first one to the
// two others parallel. A "level" line runs along x, an "upright" one along y.
//
// Totality. Nothing throws or keeps state, and the routines may run on any thread. A division by
// zero gives the infinity or NaN of the arithmetic; no comparison with a NaN holds, and no loop
// waits for one. Only `Facet_3D_arc` takes memory, for the lines that it appends, and
// `K_factor_by_unfolding_and_3D` through the vectors that it is given by value.
#pragma once

// clang-format off
#include <KTRCL_Geometry/kernel/Vectors.h>
#include <KTRCL_Geometry/kernel/PointsAndLines.h>
#include <KTRCL_Geometry/kernel/Intersections.h>
#include <KTRCL_Geometry/kernel/Arcs.h>
#include <KTRCL_Geometry/kernel/Frames.h>
#include <KTRCL_Geometry/kernel/Unfolding.h>
#include <KTRCL_Geometry/kernel/ttvPlaneCS.h>
#include <KTRCL_Geometry/kernel/GXConicSurface.h>
// clang-format on
