// A contour as a sequence of lengths and angles: filling it, its header and the circular steps.
#include <KTRCL_Geometry/lookalike/GXLAContour.h>

#include "lookalike/ElementFigure.h"

namespace {

using ktrcl_internal::ElementFigure;
using ktrcl_internal::ElementKind;
using ktrcl_internal::FigureOf;

// The end is no resting place: behind the last element comes the first.
template <typename Contour, typename Iterator>
void StepForward(Contour& contour, Iterator& it) {
  if (contour.empty()) return;
  if (it == contour.end()) it = contour.begin();
  ++it;
  if (it == contour.end()) it = contour.begin();
}

// A reverse iterator reads the element in front of its underlying position, so here the beginning
// is no resting place.
template <typename Contour, typename ReverseIterator>
void StepBackward(Contour& contour, ReverseIterator& it) {
  if (contour.empty()) return;
  auto position = it.base();
  if (position == contour.begin()) position = contour.end();
  --position;
  if (position == contour.begin()) position = contour.end();
  it = ReverseIterator(position);
}

}  // namespace

GXLAContour::GXLAContour(bool closed, GXLAContourDirection direction)
    : GXLAContourParameters(closed, closed ? direction : GXLADirectionNone), ContourIndex(-1) {}

GXLAContour::GXLAContour(const GXLAContour& other) = default;
GXLAContour& GXLAContour::operator=(const GXLAContour& other) = default;

GXLAContour::~GXLAContour() { ClearWithContent(); }

bool GXLAContour::AddLineElement(GXLAElementLine*& element) {
  if (element == nullptr) return false;
  push_back(element);
  TotalGeometryLength += element->GetSegmentLength();
  ++NumberOfLines;
  return true;
}

bool GXLAContour::AddArcElement(GXLAElementArc*& element) {
  if (element == nullptr) return false;
  push_back(element);
  TotalGeometryLength += element->GetSegmentLength();
  ++NumberOfArcs;
  return true;
}

bool GXLAContour::AddAngleElement(GXLAElementAngle*& element) {
  if (element == nullptr) return false;
  push_back(element);
  TotalGeometryAngle += element->GetAngle();
  return true;
}

void GXLAContour::FillInGXLAContourHeaderData() {
  TotalGeometryLength = 0.0;
  TotalGeometryAngle = 0.0;
  NumberOfLines = 0;
  NumberOfArcs = 0;
  for (const GXLAElement* element : *this) {
    const ElementFigure figure = FigureOf(element);
    switch (figure.Kind) {
      case ElementKind::kLine:
        ++NumberOfLines;
        TotalGeometryLength += figure.Value;
        break;
      case ElementKind::kArc:
        ++NumberOfArcs;
        TotalGeometryLength += figure.Value;
        break;
      case ElementKind::kAngle:
        TotalGeometryAngle += figure.Value;
        break;
      case ElementKind::kNone:
        break;
    }
  }
}

void GXLAContour::ClearWithContent() {
  for (GXLAElement* element : *this) delete element;
  clear();
}

bool GXLAContour::IsClosed() const { return Closed; }

bool GXLAContour::IsOpen() const { return !Closed; }

void GXLAContour::SetLAContourClosed() { Closed = true; }

void GXLAContour::SetLAContourOpen() { Closed = false; }

GXLAContour::GXLAContourDirection GXLAContour::GetContourDirection() const { return Direction; }

bool GXLAContour::IsContourDirectionCW() const { return Direction == GXLADirectionCW; }

bool GXLAContour::IsContourDirectionCCW() const { return Direction == GXLADirectionCCW; }

void GXLAContour::SetContourDirectionCW() { Direction = GXLADirectionCW; }

void GXLAContour::SetContourDirectionCCW() { Direction = GXLADirectionCCW; }

void GXLAContour::InvertContourDirection() {
  if (Direction == GXLADirectionCW) {
    Direction = GXLADirectionCCW;
  } else if (Direction == GXLADirectionCCW) {
    Direction = GXLADirectionCW;
  }
}

GXString GXLAContour::GetContourDirectionAsString() const {
  if (Direction == GXLADirectionCW) return GXString("CW");
  if (Direction == GXLADirectionCCW) return GXString("CCW");
  return GXString("---");
}

int GXLAContour::GetNumberOfLines() const { return NumberOfLines; }

int GXLAContour::GetNumberOfArcs() const { return NumberOfArcs; }

double GXLAContour::GetTotalGeometryLength() const { return TotalGeometryLength; }

double GXLAContour::GetTotalGeometryAngle() const { return TotalGeometryAngle; }

void GXLAContour::SetContourIndex(int index) { ContourIndex = index; }

int GXLAContour::GetContourIndex() const { return ContourIndex; }

void GXLAContour::GetNextCircIt(iterator& it) { StepForward(*this, it); }

void GXLAContour::GetNextCircIt(reverse_iterator& it) { StepBackward(*this, it); }

void GXLAContour::GetNextCircIt(const_iterator& it) const { StepForward(*this, it); }

void GXLAContour::GetNextCircIt(const_reverse_iterator& it) const { StepBackward(*this, it); }
