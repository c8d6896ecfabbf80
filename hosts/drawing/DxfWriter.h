// Writing DXF: the elements of a drawing as LINE, ARC and CIRCLE, layers kept.
#pragma once

#include "drawing/Drawing.h"

#include <cstddef>
#include <string>
#include <vector>

namespace drawing {

enum class DxfVersion {
  kR12,   ///< AC1009. It knows no unit; a comment names millimetres.
  kR2000  ///< AC1015, $INSUNITS millimetres.
};

/// The text of a DXF file with the elements of a drawing, in their order, in millimetres.
///
/// Lines become LINE, arcs ARC (counter-clockwise, as DXF has them, whatever their direction of
/// drawing) and full circles CIRCLE; arcs so flat that centre and angles would lose their ends
/// (more than 10 m of radius, less than 60 degrees) become a polyline of one side. Elements that
/// are neither, that are not finite or that have no length in the figures are passed over, null
/// ones too.
///
/// Layer, colour and linetype are those of their entities. Every layer stands in the table of
/// layers, with colour 7; colours other than 0 to 255 are written as by layer. Linetypes other than
/// BYLAYER, BYBLOCK and CONTINUOUS keep their names and are defined without a pattern, since a
/// drawing knows none. Names are UTF-8 in the drawing and written in ASCII as by DxfNames, other
/// characters as \U+XXXX. Every entity has a handle of its own.
///
/// Figures are decimal with a point whatever the locale: coordinates with up to 15 significant
/// digits and 12 decimals, radii and angles a little coarser (FormOf), so that writing what was
/// read from it gives the same bytes, up to coordinates of 1e9 mm.
///
/// `only` names the elements to be written, by index and in this order; empty for all, in the order
/// of the drawing. Indices that are none are passed over.
std::string DxfText(const Drawing& drawing, DxfVersion version,
                    const std::vector<std::size_t>& only = {});

/// Writes a file whole or not at all: beside its name first, then renamed. A file that is there is
/// replaced and keeps its permissions; a link stays one. Devices and pipes are written to directly.
///
/// Returns: an empty text where all went well, otherwise why it did not.
std::string WriteWholeFile(const std::string& path, const std::string& bytes);

}  // namespace drawing
