// How every geometry class stores itself in a paragraph, the host's tree of named values, and comes
// back from it. Writers and readers of all classes stand side by side, so that their keys can be
// held against each other at a glance.

#include <KTRCL_DataTypes/GXParagraph.h>
#include <KTRCL_DataTypes/GXString.h>
#include <KTRCL_Geometry/elements/GX2DElements.h>
#include <KTRCL_Geometry/elements/GX3DElements.h>
#include <KTRCL_Geometry/elements/GXElementLists.h>
#include <KTRCL_Geometry/foundation/GXBoundBox.h>
#include <KTRCL_Geometry/foundation/GXCoordSystem.h>
#include <KTRCL_Geometry/foundation/GXMatrix.h>
#include <KTRCL_Geometry/foundation/GXRotation.h>
#include <KTRCL_Geometry/foundation/GXVector.h>

#include "elements/ElementSequences.h"

#include <cstddef>
#include <memory>
#include <string>
#include <utility>

namespace {

// Hands the third argument of `Write` and `Read` of a child; nobody looks at it.
constexpr int kUnused = 0;

constexpr char kPointTag[] = "POINT";
constexpr char kLineTag[] = "LINE";
constexpr char kRectangleTag[] = "RECT";
constexpr char kArcTag[] = "ARC";

// Where a `Write` puts its entries: a new child of that name, or the paragraph itself.
GXParagraph* Target(const GXString& key, GXParagraph* paragraph) {
  return key.Str().empty() ? paragraph : paragraph->AddParagraph(key);
}

// Where a `Read` finds its entries, or null when there is nothing to read.
GXParagraph* Source(const GXString& key, GXParagraph* paragraph) {
  if (paragraph == nullptr) return nullptr;
  return key.Str().empty() ? paragraph : paragraph->FindParagraph(key);
}

// Decimals below 0: nothing is rounded on the way out.
void WriteNumber(GXParagraph& target, const char* key, double value) {
  target.AddDouble(key, value, -1);
}

// A number that is absent becomes 0; it does not keep its old value.
double ReadNumber(const GXParagraph& source, const char* key) { return source.GetDouble(key, 0.0); }

void WriteNumbers(GXParagraph& target, const GX3DPoint& p) {
  WriteNumber(target, "X", p.X);
  WriteNumber(target, "Y", p.Y);
  WriteNumber(target, "Z", p.Z);
}

void ReadNumbers(const GXParagraph& source, GX3DPoint& p) {
  p.X = ReadNumber(source, "X");
  p.Y = ReadNumber(source, "Y");
  p.Z = ReadNumber(source, "Z");
}

// The keys of the nine numbers of a `GXMatrix`, row by row.
constexpr const char* kMatrixKeys[3][3] = {
    {"E11", "E12", "E13"}, {"E21", "E22", "E23"}, {"E31", "E32", "E33"}};

// The keys of the three vectors of a `GXColBasedTransformMatrix`.
constexpr const char* kFrameKeys[3] = {"P0", "P1", "P2"};

const char* TagOf(const GX2DElement* element) {
  if (dynamic_cast<const GX2DPoint*>(element) != nullptr) return kPointTag;
  if (dynamic_cast<const GX2DLine*>(element) != nullptr) return kLineTag;
  if (dynamic_cast<const GX2DRectangle*>(element) != nullptr) return kRectangleTag;
  if (dynamic_cast<const GX2DArc*>(element) != nullptr) return kArcTag;
  return nullptr;
}

const char* TagOf(const GX3DElement* element) {
  if (dynamic_cast<const GX3DPoint*>(element) != nullptr) return kPointTag;
  if (dynamic_cast<const GX3DLine*>(element) != nullptr) return kLineTag;
  if (dynamic_cast<const GX3DArc*>(element) != nullptr) return kArcTag;
  return nullptr;
}

// An empty element of the kind that the tag names, or null for a name that is no tag.
std::unique_ptr<GX2DElement> ElementOf(const std::string& tag, const GX2DElmList&) {
  if (tag == kPointTag) return std::make_unique<GX2DPoint>();
  if (tag == kLineTag) return std::make_unique<GX2DLine>();
  if (tag == kRectangleTag) return std::make_unique<GX2DRectangle>();
  if (tag == kArcTag) return std::make_unique<GX2DArc>();
  return nullptr;
}

std::unique_ptr<GX3DElement> ElementOf(const std::string& tag, const GX3DElmList&) {
  if (tag == kPointTag) return std::make_unique<GX3DPoint>();
  if (tag == kLineTag) return std::make_unique<GX3DLine>();
  if (tag == kArcTag) return std::make_unique<GX3DArc>();
  return nullptr;
}

template <typename List>
void WriteList(List& list, const GXString& key, GXParagraph* paragraph) {
  GXParagraph* const target = Target(key, paragraph);
  for (auto* const element : list) {
    const char* const tag = TagOf(element);
    if (tag != nullptr) element->Write(tag, target, kUnused);
  }
}

template <typename List>
void ReadList(List& list, const GXString& key, GXParagraph* paragraph) {
  GXParagraph* const source = Source(key, paragraph);
  if (source == nullptr) return;
  list.ClearWithContents();
  GXParagraphList children;
  source->GetParagraphs(children);
  for (GXParagraph* const child : children) {
    if (child == nullptr) continue;
    auto element = ElementOf(child->GetName().Str(), list);
    if (element == nullptr) continue;
    element->Read("", child, kUnused);
    ktrcl_internal::PushOwned(list, std::move(element));
  }
}

}  // namespace

// Bases

void GX2DElement::Write(const GXString&, GXParagraph* const&, const int&) {}

void GX2DElement::Read(const GXString&, GXParagraph* const&, const int&) {}

void GX3DElement::Write(const GXString&, GXParagraph* const&, const int&) {}

void GX3DElement::Read(const GXString&, GXParagraph* const&, const int&) {}

// Points

void GX2DPoint::Write(const GXString& key, GXParagraph* const& paragraph, const int&) {
  GXParagraph* const target = Target(key, paragraph);
  WriteNumber(*target, "X", X);
  WriteNumber(*target, "Y", Y);
}

void GX2DPoint::Read(const GXString& key, GXParagraph* const& paragraph, const int&) {
  GXParagraph* const source = Source(key, paragraph);
  if (source == nullptr) return;
  X = ReadNumber(*source, "X");
  Y = ReadNumber(*source, "Y");
}

GXString GX2DPoint::ToString(int decimals) const {
  // No blank behind the first colon: hosts compare and split this text as it is.
  return "X:" + GXString(X, decimals).Str() + " Y: " + GXString(Y, decimals).Str();
}

void GX3DPoint::Write(const GXString& key, GXParagraph* const& paragraph, const int&) {
  WriteNumbers(*Target(key, paragraph), *this);
}

void GX3DPoint::Read(const GXString& key, GXParagraph* const& paragraph, const int&) {
  GXParagraph* const source = Source(key, paragraph);
  if (source != nullptr) ReadNumbers(*source, *this);
}

// Lines

void GX2DLine::Write(const GXString& key, GXParagraph* const& paragraph, const int&) {
  GXParagraph* const target = Target(key, paragraph);
  Start.Write("Start", target, kUnused);
  End.Write("End", target, kUnused);
}

void GX2DLine::Read(const GXString& key, GXParagraph* const& paragraph, const int&) {
  GXParagraph* const source = Source(key, paragraph);
  if (source == nullptr) return;
  Start.Read("Start", source, kUnused);
  End.Read("End", source, kUnused);
}

void GX3DLine::Write(const GXString& key, GXParagraph* const& paragraph, const int&) {
  GXParagraph* const target = Target(key, paragraph);
  Start.Write("Start", target, kUnused);
  End.Write("End", target, kUnused);
}

void GX3DLine::Read(const GXString& key, GXParagraph* const& paragraph, const int&) {
  GXParagraph* const source = Source(key, paragraph);
  if (source == nullptr) return;
  Start.Read("Start", source, kUnused);
  End.Read("End", source, kUnused);
}

// Rectangle

void GX2DRectangle::Write(const GXString& key, GXParagraph* const& paragraph, const int&) {
  GXParagraph* const target = Target(key, paragraph);
  Corner1.Write("Corner1", target, kUnused);
  Corner2.Write("Corner2", target, kUnused);
}

void GX2DRectangle::Read(const GXString& key, GXParagraph* const& paragraph, const int&) {
  GXParagraph* const source = Source(key, paragraph);
  if (source == nullptr) return;
  Corner1.Read("Corner1", source, kUnused);
  Corner2.Read("Corner2", source, kUnused);
}

// Arcs

void GX2DArc::Write(const GXString& key, GXParagraph* const& paragraph, const int&) {
  GXParagraph* const target = Target(key, paragraph);
  Center.Write("Center", target, kUnused);
  Start.Write("Start", target, kUnused);
  Mid.Write("Mid", target, kUnused);
  End.Write("End", target, kUnused);
}

void GX2DArc::Read(const GXString& key, GXParagraph* const& paragraph, const int&) {
  GXParagraph* const source = Source(key, paragraph);
  if (source == nullptr) return;
  Center.Read("Center", source, kUnused);
  Start.Read("Start", source, kUnused);
  Mid.Read("Mid", source, kUnused);
  End.Read("End", source, kUnused);
}

void GX3DArc::Write(const GXString& key, GXParagraph* const& paragraph, const int&) {
  GXParagraph* const target = Target(key, paragraph);
  Center.Write("Center", target, kUnused);
  Start.Write("Start", target, kUnused);
  Mid.Write("Mid", target, kUnused);
  End.Write("End", target, kUnused);
}

void GX3DArc::Read(const GXString& key, GXParagraph* const& paragraph, const int&) {
  GXParagraph* const source = Source(key, paragraph);
  if (source == nullptr) return;
  Center.Read("Center", source, kUnused);
  Start.Read("Start", source, kUnused);
  Mid.Read("Mid", source, kUnused);
  End.Read("End", source, kUnused);
}

// Lists

void GX2DElmList::Write(const GXString& key, GXParagraph* const& paragraph, const int&) {
  WriteList(*this, key, paragraph);
}

void GX2DElmList::Read(const GXString& key, GXParagraph* const& paragraph, const int&) {
  ReadList(*this, key, paragraph);
}

void GX3DElmList::Write(const GXString& key, GXParagraph* const& paragraph, const int&) {
  WriteList(*this, key, paragraph);
}

void GX3DElmList::Read(const GXString& key, GXParagraph* const& paragraph, const int&) {
  ReadList(*this, key, paragraph);
}

// Vectors

void GXVector::Write(const GXString& key, GXParagraph* const& paragraph, const int&) const {
  GXParagraph* const target = Target(key, paragraph);
  WriteNumber(*target, "X", X);
  WriteNumber(*target, "Y", Y);
  WriteNumber(*target, "Z", Z);
}

void GXVector::Read(const GXString& key, GXParagraph* const& paragraph, const int&) {
  GXParagraph* const source = Source(key, paragraph);
  if (source == nullptr) return;
  X = ReadNumber(*source, "X");
  Y = ReadNumber(*source, "Y");
  Z = ReadNumber(*source, "Z");
}

void GX2DVector::Write(const GXString& key, GXParagraph* const& paragraph, const int&) const {
  GXParagraph* const target = Target(key, paragraph);
  WriteNumber(*target, "X", X);
  WriteNumber(*target, "Y", Y);
}

void GX2DVector::Read(const GXString& key, GXParagraph* const& paragraph, const int&) {
  GXParagraph* const source = Source(key, paragraph);
  if (source == nullptr) return;
  X = ReadNumber(*source, "X");
  Y = ReadNumber(*source, "Y");
}

// Matrices

void GXMatrix::Write(const GXString& key, GXParagraph* const& paragraph) {
  GXParagraph* const target = Target(key, paragraph);
  for (std::size_t row = 0; row < 3; ++row) {
    WriteNumber(*target, kMatrixKeys[row][0], Base[row].X);
    WriteNumber(*target, kMatrixKeys[row][1], Base[row].Y);
    WriteNumber(*target, kMatrixKeys[row][2], Base[row].Z);
  }
}

void GXMatrix::Read(const GXString& key, GXParagraph* const& paragraph) {
  GXParagraph* const source = Source(key, paragraph);
  if (source == nullptr) return;
  for (std::size_t row = 0; row < 3; ++row) {
    Base[row].X = ReadNumber(*source, kMatrixKeys[row][0]);
    Base[row].Y = ReadNumber(*source, kMatrixKeys[row][1]);
    Base[row].Z = ReadNumber(*source, kMatrixKeys[row][2]);
  }
}

void GXColBasedTransformMatrix::Write(const GXString& key, GXParagraph* const& paragraph,
                                      const int&) {
  GXParagraph* const target = Target(key, paragraph);
  for (std::size_t i = 0; i < 3; ++i) Base[i].Write(kFrameKeys[i], target, kUnused);
}

void GXColBasedTransformMatrix::Read(const GXString& key, GXParagraph* const& paragraph,
                                     const int&) {
  GXParagraph* const source = Source(key, paragraph);
  if (source == nullptr) return;
  for (std::size_t i = 0; i < 3; ++i) Base[i].Read(kFrameKeys[i], source, kUnused);
}

// Rotation

void GXRotation::Write(const GXString& key, GXParagraph* const& paragraph) {
  GXParagraph* const target = Target(key, paragraph);
  WriteNumber(*target, "A", A);
  WriteNumber(*target, "B", B);
  WriteNumber(*target, "C", C);
  target->AddString("O", ConvertOrd2String(O));
}

void GXRotation::Read(const GXString& key, GXParagraph* const& paragraph) {
  GXParagraph* const source = Source(key, paragraph);
  if (source == nullptr) return;
  A = ReadNumber(*source, "A");
  B = ReadNumber(*source, "B");
  C = ReadNumber(*source, "C");
  O = ConvertString2Ord(source->GetString("O", "", false));
}

// Coordinate system and box

bool GXCoordSystem::Write(const GXString& key, GXParagraph* const& paragraph, const int&) {
  GXParagraph* const target = Target(key, paragraph);
  WriteNumber(*target, "ORIGINX", Origin.X);
  WriteNumber(*target, "ORIGINY", Origin.Y);
  WriteNumber(*target, "ORIGINZ", Origin.Z);
  WriteNumber(*target, "ANGLEX", AngleX);
  WriteNumber(*target, "ANGLEY", AngleY);
  WriteNumber(*target, "ANGLEZ", AngleZ);
  return true;
}

bool GXCoordSystem::Read(const GXString& key, GXParagraph* const& paragraph, const int&) {
  GXParagraph* const source = Source(key, paragraph);
  if (source == nullptr) return false;
  Origin.X = ReadNumber(*source, "ORIGINX");
  Origin.Y = ReadNumber(*source, "ORIGINY");
  Origin.Z = ReadNumber(*source, "ORIGINZ");
  AngleX = ReadNumber(*source, "ANGLEX");
  AngleY = ReadNumber(*source, "ANGLEY");
  AngleZ = ReadNumber(*source, "ANGLEZ");
  return true;
}

bool GXBoundBox::Write(const GXString& key, GXParagraph* const& paragraph, const int&) {
  GXParagraph* const target = Target(key, paragraph);
  WriteNumbers(*target->AddParagraph("MIN"), Minimum);
  WriteNumbers(*target->AddParagraph("MAX"), Maximum);
  return true;
}

bool GXBoundBox::Read(const GXString& key, GXParagraph* const& paragraph, const int&) {
  GXParagraph* const source = Source(key, paragraph);
  if (source == nullptr) return false;
  const GXParagraph* const minimum = source->FindParagraph("MIN");
  if (minimum != nullptr) ReadNumbers(*minimum, Minimum);
  const GXParagraph* const maximum = source->FindParagraph("MAX");
  if (maximum != nullptr) ReadNumbers(*maximum, Maximum);
  return true;
}
