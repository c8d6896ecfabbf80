// The part of a drawing, with all its shapes and occurrences, as a tree: to find out why two parts
// do or do not look alike.
#pragma once

#include "drawing/ParagraphTree.h"
#include "drawing/PartModel.h"

namespace drawing {

/// Adds a paragraph "GXLAPart" to `parent`: the library's dump (CGXLAPartDump) of the part as it is
/// compared, cut-outs added from long to short, shapes equal element by element.
///
/// The name of the file is the comment. Shapes are numbered in the order of "IntGXLAContourList",
/// from long to short, and those of "IntGXLAContourManager" are sorted by that "Id": the library
/// has them in the order of their addresses. So the same drawing gives the same tree. Every
/// occurrence of an internal shape has attributes of where it was drawn:
///
///     CONTOUR   its number in InfoText, counted from 1
///     LAYER     of the entity that it begins with in the file
///     HANDLE    of that entity, where it has one
///     LINE      of that entity in the file, counted from 1
///
/// Returns: the paragraph, which `parent` owns. Requires: the part is usable.
TreeParagraph& DumpPart(const PartModel& model, TreeParagraph& parent);

}  // namespace drawing
