#include <KTRCL_Geometry/elements/GX2DElements.h>

GX2DElement::GX2DElement() = default;
GX2DElement::GX2DElement(const GX2DElement& other) = default;
GX2DElement& GX2DElement::operator=(const GX2DElement& other) = default;
GX2DElement::~GX2DElement() = default;

void GX2DElement::Translate(const double&, const double&) {}
void GX2DElement::RotateAxis(const GX2DPoint&, const double&) {}
void GX2DElement::Scale(const double&, const int&) {}
void GX2DElement::ScaleX(const double&, const int&) {}
void GX2DElement::ScaleY(const double&, const int&) {}
void GX2DElement::MirrorX() {}
void GX2DElement::MirrorY() {}
void GX2DElement::Reverse() {}
