// Numbers as text for people, independent of the locale.
#pragma once

#include <KTRCL_Geometry/elements/GX2DElements.h>

#include <cstddef>
#include <string>
#include <vector>

namespace drawing {

/// A number with exactly `decimals` (0 to 17) digits behind the point; never minus zero.
std::string FixedNumber(double value, int decimals);

/// A number with at most four digits behind the point, none of them a trailing zero: "8", "12.5".
std::string ShortNumber(double value);

/// The same, rounded up but for the last 1e-10, which is what differences of coordinates are off
/// by: "0.0301" for 0.03001. Healing grants that much to a gap, so that a gap told in this way,
/// given back to the program, closes what is no farther apart than `value`.
std::string RoundedUp(double value);

/// "(12.5, 30)": a place in the plane, by ShortNumber.
std::string PlaceText(const GX2DPoint& p);

/// "(0, 0), (12.5, 30) and (1, 2)": places one by one, of very many the first six and "and 3 more".
std::string PlacesText(const std::vector<GX2DPoint>& places);

/// "1 line", "5 lines": a count with its noun in the singular or with an s.
std::string CountText(std::size_t count, const std::string& noun);

}  // namespace drawing
