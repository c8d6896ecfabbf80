// Header figures of a look-alike contour.
#include <KTRCL_Geometry/lookalike/GXLAElements.h>

GXLAContourParameters::GXLAContourParameters(bool closed, GXLAContourDirection direction)
    : TotalGeometryLength(0.0),
      TotalGeometryAngle(0.0),
      NumberOfLines(0),
      NumberOfArcs(0),
      Closed(closed),
      Direction(direction) {}

GXLAContourParameters::GXLAContourParameters(const GXLAContourParameters& other) = default;
GXLAContourParameters& GXLAContourParameters::operator=(const GXLAContourParameters& other) =
    default;
GXLAContourParameters::~GXLAContourParameters() = default;
