#include <KTRCL_Geometry/elements/GX3DElements.h>

GX3DElement::GX3DElement() = default;
GX3DElement::GX3DElement(const GX3DElement& other) = default;
GX3DElement& GX3DElement::operator=(const GX3DElement& other) = default;
GX3DElement::~GX3DElement() = default;

void GX3DElement::Translate(const GXVector&) {}
void GX3DElement::Scale(const double&, const int&) {}
void GX3DElement::ScaleX(const double&, const int&) {}
void GX3DElement::ScaleY(const double&, const int&) {}
void GX3DElement::ScaleZ(const double&, const int&) {}
void GX3DElement::MirrorXY() {}
void GX3DElement::MirrorYZ() {}
void GX3DElement::MirrorXZ() {}
void GX3DElement::TransformGloLoc(const GX3DPoint&, const GXMatrix&) {}
void GX3DElement::TransformGloLoc(const GX3DPoint&, const GXColBasedTransformMatrix&) {}
void GX3DElement::TransformLocGlo(const GX3DPoint&, const GXMatrix&) {}
void GX3DElement::TransformLocGlo(const GX3DPoint&, const GXColBasedTransformMatrix&) {}
void GX3DElement::RotateX(const double&) {}
void GX3DElement::RotateY(const double&) {}
void GX3DElement::RotateZ(const double&) {}
void GX3DElement::RotateAxis(const GX3DLine&, const double&) {}
void GX3DElement::Rotate(const GXRotation&) {}
