// The whole public interface of the library, in reading order.
#pragma once

// clang-format off
#include <KTRCL_Geometry/foundation/GXKTRCL_GeometryInit.h>
#include <KTRCL_Geometry/foundation/GXVector.h>
#include <KTRCL_Geometry/foundation/GXMatrix.h>
#include <KTRCL_Geometry/foundation/GXRotation.h>
#include <KTRCL_Geometry/foundation/GXDoubleIntegerPair.h>
#include <KTRCL_Geometry/elements/GX2DElements.h>
#include <KTRCL_Geometry/elements/GX3DElements.h>
#include <KTRCL_Geometry/elements/GXElementLists.h>
#include <KTRCL_Geometry/foundation/GXCoordSystem.h>
#include <KTRCL_Geometry/foundation/GXBoundBox.h>
#include <KTRCL_Geometry/contour/GXGeometry.h>
#include <KTRCL_Geometry/contour/GX2DSurroundPolygon.h>
#include <KTRCL_Geometry/contour/GXApproximatePoints.h>
#include <KTRCL_Geometry/contour/GXGeometryFunctions.h>
#include <KTRCL_Geometry/contour/GXPolygonTriangulation.h>
#include <KTRCL_Geometry/lookalike/GXLAElements.h>
#include <KTRCL_Geometry/lookalike/GXLAContour.h>
#include <KTRCL_Geometry/lookalike/GXLAContourInstance.h>
#include <KTRCL_Geometry/lookalike/GXLAPart.h>
#include <KTRCL_Geometry/lookalike/GXLAEquality.h>
#include <KTRCL_Geometry/lookalike/CGXLAElementMerge.h>
#include <KTRCL_Geometry/lookalike/CGXLAPartDump.h>
#include <KTRCL_Geometry/kernel/Kernel.h>
// clang-format on
