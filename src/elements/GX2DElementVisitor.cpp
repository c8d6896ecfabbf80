// The visitor over the kinds of 2D elements, and the creator that copies an element by visiting it.
#include <KTRCL_Geometry/elements/GX2DElements.h>

GX2DElementVisitor::GX2DElementVisitor() : stop_(false) {}
GX2DElementVisitor::GX2DElementVisitor(const GX2DElementVisitor& other) = default;
GX2DElementVisitor& GX2DElementVisitor::operator=(const GX2DElementVisitor& other) = default;
GX2DElementVisitor::~GX2DElementVisitor() = default;

void GX2DElementVisitor::StopAcceptElementVisitor() { stop_ = true; }

bool GX2DElementVisitor::IsAcceptElementVisitorStopped() const { return stop_; }

GX2DElementCreator::GX2DElementCreator() : created_(nullptr) {}

::GX2DElement* GX2DElementCreator::GX2DElement(::GX2DElement& element) {
  GX2DElementCreator creator;
  element.Accept(creator);
  return creator.created_;
}

bool GX2DElementCreator::Visit(const GX2DArc& arc) {
  created_ = new GX2DArc(arc);
  return true;
}

bool GX2DElementCreator::Visit(const GX2DRectangle& rectangle) {
  created_ = new GX2DRectangle(rectangle);
  return true;
}

bool GX2DElementCreator::Visit(const GX2DLine& line) {
  created_ = new GX2DLine(line);
  return true;
}

bool GX2DElementCreator::Visit(const GX2DPoint& point) {
  created_ = new GX2DPoint(point);
  return true;
}
