#include <KTRCL_Geometry/foundation/GXKTRCL_GeometryInit.h>

GXKTRCL_GeometryInit& GXKTRCL_GeometryInit::operator=(const GXKTRCL_GeometryInit&) = default;

void GXKTRCL_GeometryInit::Init(void*) {}

void GXKTRCL_GeometryInit::Terminate() {}
