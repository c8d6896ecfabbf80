// The pictures of a healing: the drawing as read and as healed, at one scale and in one place.
#pragma once

#include "drawing/Drawing.h"
#include "drawing/DrawingHealing.h"
#include "drawing/LooseEndAccount.h"
#include "drawing/Networks.h"

#include <cstddef>
#include <string>
#include <vector>

namespace drawing {

/// So many rows of a table are told one by one, and as many places can be shown in the pictures.
inline constexpr std::size_t kMostRows = 2000;

/// "c5", "e5", "o5": the key under which the rows and marks of a change, a loose end or an overlap
/// are marked together; `number` counts from 1.
std::string ChangeKey(std::size_t number);
std::string LooseEndKey(std::size_t number);
std::string OverlapKey(std::size_t number);

/// Both pictures with their legends, as markup of a page (HtmlPage.h). Closed contours are solid
/// and filled, open ones dashed, branching ones dotted. Loose ends have round badges where they
/// were joined and square ones where they are still open, in both pictures where they were as read;
/// neighbours share a badge, and where badges would cover the drawing dots take their place.
std::string HealingPictures(const Drawing& asRead, const std::vector<Network>& readNetworks,
                            const HealedDrawing& healed, const LooseEndAccount& looseEnds);

/// "1-4, 7", with dashes for figures: numbers in ascending order, neighbours as ranges; of more
/// than two ranges the first two and an
/// ellipsis.
std::string NumberRanges(const std::vector<std::size_t>& numbers);

}  // namespace drawing
