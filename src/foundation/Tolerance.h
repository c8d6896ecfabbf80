// The tolerances, guards and thresholds that more than one source uses, one name per purpose. A
// *tolerance* is what the trade accepts as equal, a *guard* protects a division, a *threshold*
// decides a branch. Equal values with different purposes keep different names, so that one can be
// reasoned about without the others. A value that only one source needs stands in that source.
#pragma once

namespace ktrcl_internal {

/// 0.0001 length units. Two points coincide when each coordinate agrees within it (inclusive,
/// through `IsAlmostEq`); a line or gap is longer than nothing when its length is above it (plain
/// comparison). Never for angles, slopes, parameters, or the elements of a matrix.
inline constexpr double kLengthTolerance = 0.0001;

/// 0.00001 radians, or degrees where the angle is held in degrees. Two angles are the same within
/// it. Never for lengths, nor for angles taken from a rotation matrix, which carry more error.
inline constexpr double kAngleTolerance = 0.00001;

/// 0.00001, a ratio. Slopes of lines, and the extent (length units) below which a line counts as
/// upright while its slope is formed. Never for angles: steep slopes differ a lot for little angle.
inline constexpr double kSlopeTolerance = 0.00001;

/// 0.00001, a share of a line or arc from start (0) to end (1). Never for lengths: on a line of ten
/// metres it stands for a tenth of a millimetre.
inline constexpr double kParameterTolerance = 0.00001;

/// 0.00001 length units. Distance of a point from a line, plane or circle on which it is to lie:
/// the place across the element is asked for more sharply than the place of its ends. Never for the
/// coincidence of two points.
inline constexpr double kOnElementTolerance = 0.00001;

/// 1e-20. Guard of the division by a determinant; the *signed* determinant is compared, strictly,
/// so that left-handed matrices count as singular. Never for comparing matrices.
inline constexpr double kDeterminantGuard = 1e-20;

/// 1e-7. Threshold (strict) of the absolute sum E11 + E22, below which a flat rotation matrix
/// counts as mirrored. Never for comparing matrices.
inline constexpr double kMirrorThreshold = 1e-7;

}  // namespace ktrcl_internal
