// The groups of a file one by one. What R2000 adds to R12 (handles, owners, subclass markers,
// blocks of the spaces, the root dictionary) stands beside it, so that the two can be compared.
#include "drawing/DxfWriter.h"

#include "drawing/DxfForms.h"
#include "drawing/DxfNames.h"

#include <algorithm>
#include <cstdio>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace drawing {

namespace {

constexpr int kColourByLayer = 256;
constexpr int kColourOfLayers = 7;
constexpr std::string_view kZero = "0.0";

// Handles of what every R2000 file holds. Tables own their records, the block records of the two
// spaces own their blocks and entities.
constexpr std::string_view kBlockRecordTable = "1";
constexpr std::string_view kLayerTable = "2";
constexpr std::string_view kStyleTable = "3";
constexpr std::string_view kLinetypeTable = "5";
constexpr std::string_view kViewTable = "6";
constexpr std::string_view kUcsTable = "7";
constexpr std::string_view kViewportTable = "8";
constexpr std::string_view kApplicationTable = "9";
constexpr std::string_view kDimensionStyleTable = "A";
constexpr std::string_view kRootDictionary = "C";
constexpr std::string_view kGroupDictionary = "D";
constexpr std::string_view kPlotStyleDictionary = "E";
constexpr std::string_view kPlotStyle = "F";
constexpr std::string_view kLayoutDictionary = "1A";
constexpr std::string_view kModelSpace = "1F";
constexpr std::string_view kPaperSpace = "1B";
constexpr std::size_t kFirstFreeHandle = 0x30;

// An element that is written, with the texts of its entity.
struct Entity {
  DxfForm form;
  std::string layer;
  std::string linetype;  // Empty where the layer decides.
  int colour = kColourByLayer;
};

struct Extent {
  double minX = 1e20;
  double minY = 1e20;
  double maxX = -1e20;
  double maxY = -1e20;

  void Add(const GX2DElement& element) {
    minX = std::min(minX, element.GetMinX());
    minY = std::min(minY, element.GetMinY());
    maxX = std::max(maxX, element.GetMaxX());
    maxY = std::max(maxY, element.GetMaxY());
  }
};

std::string UpperCase(std::string text) {
  for (char& c : text) {
    if (c >= 'a' && c <= 'z') c = static_cast<char>(c - 'a' + 'A');
  }
  return text;
}

bool IsStandard(const std::string& linetype) {
  const std::string name = UpperCase(linetype);
  return name == "BYLAYER" || name == "BYBLOCK" || name == "CONTINUOUS";
}

// The text of one file.
class Writing {
 public:
  explicit Writing(DxfVersion version) : modern_(version == DxfVersion::kR2000) {}

  void Collect(const Drawing& drawing, const std::vector<std::size_t>& only);
  std::string Text();

 private:
  void CollectElement(const Drawing& drawing, const DrawnElement& drawn);
  void SettleNames();

  void Group(int code, std::string_view value);
  void Whole(int code, long long value) { Group(code, std::to_string(value)); }
  void Figure(int code, double value) { Group(code, FigureText(value)); }
  void Point(int code, double x, double y);
  void Section(std::string_view name);
  void EndSection() { Group(0, "ENDSEC"); }
  std::string NewHandle();

  void Header();
  void Tables();
  void Table(std::string_view name, std::string_view handle, std::size_t records);
  void Record(std::string_view type, std::string_view handle, std::string_view owner,
              std::string_view subclass, std::string_view name);
  void Linetype(std::string_view handle, std::string_view name, std::string_view description);
  void Linetypes();
  void Layers();
  void OtherTables();
  void BlockRecords();
  void Blocks();
  void Block(std::string_view name, std::string_view owner, bool paper);
  void Objects();
  void Dictionary(std::string_view type, std::string_view handle, std::string_view owner);

  void Entities();
  void Begin(std::string_view type, const Entity& entity, std::string_view subclass);
  void Write(const Entity& entity);
  void WriteSide(const Entity& entity);
  void WriteVertex(const Entity& entity, double x, double y, double bulge);

  bool modern_;
  std::vector<Entity> entities_;
  std::vector<std::string> layers_;
  std::vector<std::string> linetypes_;  // Without the standard ones.
  Extent extent_;
  std::string text_;
  std::size_t lastHandle_ = kFirstFreeHandle - 1;
};

// ----- What is written

void Writing::CollectElement(const Drawing& drawing, const DrawnElement& drawn) {
  if (!drawn.element) return;
  std::unique_ptr<GX2DElement> read;
  Entity entity;
  entity.form = FormOf(*drawn.element, read);
  if (entity.form.kind == DxfForm::Kind::kNone) return;
  extent_.Add(*read);
  entity.layer = "0";
  if (drawn.entity < drawing.entities.size()) {
    const DrawnEntity& from = drawing.entities[drawn.entity];
    entity.layer = from.layer;
    if (UpperCase(from.linetype) != "BYLAYER") entity.linetype = from.linetype;
    if (from.colour >= 0 && from.colour < kColourByLayer) entity.colour = from.colour;
  }
  entities_.push_back(std::move(entity));
}

void Writing::Collect(const Drawing& drawing, const std::vector<std::size_t>& only) {
  if (only.empty()) {
    for (const DrawnElement& drawn : drawing.elements) CollectElement(drawing, drawn);
  }
  for (const std::size_t index : only) {
    if (index < drawing.elements.size()) CollectElement(drawing, drawing.elements[index]);
  }
  SettleNames();
}

void Writing::SettleNames() {
  DxfNames layers;
  DxfNames linetypes;
  layers.Add("0");
  for (const Entity& entity : entities_) {
    layers.Add(entity.layer);
    if (!entity.linetype.empty()) linetypes.Add(entity.linetype);
  }
  for (Entity& entity : entities_) {
    entity.layer = layers.Written(entity.layer);
    if (!entity.linetype.empty()) entity.linetype = linetypes.Written(entity.linetype);
  }
  layers_ = layers.Table();
  for (const std::string& name : linetypes.Table()) {
    if (!IsStandard(name)) linetypes_.push_back(name);
  }
}

std::string Writing::Text() {
  // The header names the first handle that is free, so it is written last.
  if (modern_) {
    Section("CLASSES");
    EndSection();
  }
  Tables();
  if (modern_) Blocks();
  Entities();
  if (modern_) Objects();
  Group(0, "EOF");
  const std::string body = std::exchange(text_, std::string());
  Header();
  return text_ + body;
}

// ----- Groups

void Writing::Group(int code, std::string_view value) {
  char head[16];
  std::snprintf(head, sizeof head, "%3d\n", code);
  text_ += head;
  text_ += value;
  text_ += '\n';
}

void Writing::Point(int code, double x, double y) {
  Figure(code, x);
  Figure(code + 10, y);
  Group(code + 20, kZero);
}

void Writing::Section(std::string_view name) {
  Group(0, "SECTION");
  Group(2, name);
}

std::string Writing::NewHandle() {
  char handle[24];
  std::snprintf(handle, sizeof handle, "%zX", ++lastHandle_);
  return handle;
}

// ----- Header and tables

void Writing::Header() {
  Section("HEADER");
  if (!modern_) Group(999, "All lengths are millimetres.");
  Group(9, "$ACADVER");
  Group(1, modern_ ? "AC1015" : "AC1009");
  if (!modern_) {
    Group(9, "$HANDLING");
    Whole(70, 1);
  }
  Group(9, "$HANDSEED");
  Group(5, NewHandle());
  if (modern_) {
    Group(9, "$INSUNITS");
    Whole(70, 4);
    Group(9, "$MEASUREMENT");
    Whole(70, 1);
  }
  Group(9, "$EXTMIN");
  Point(10, extent_.minX, extent_.minY);
  Group(9, "$EXTMAX");
  Point(10, extent_.maxX, extent_.maxY);
  EndSection();
}

void Writing::Table(std::string_view name, std::string_view handle, std::size_t records) {
  Group(0, "TABLE");
  Group(2, name);
  if (modern_) {
    Group(5, handle);
    Group(330, "0");
    Group(100, "AcDbSymbolTable");
  }
  Whole(70, static_cast<long long>(records));
}

void Writing::Record(std::string_view type, std::string_view handle, std::string_view owner,
                     std::string_view subclass, std::string_view name) {
  Group(0, type);
  if (modern_) {
    Group(type == "DIMSTYLE" ? 105 : 5, handle);
    Group(330, owner);
    Group(100, "AcDbSymbolTableRecord");
    Group(100, subclass);
  }
  Group(2, name);
  // Block records have no flags.
  if (type != "BLOCK_RECORD") Whole(70, 0);
}

void Writing::Linetype(std::string_view handle, std::string_view name,
                       std::string_view description) {
  Record("LTYPE", handle, kLinetypeTable, "AcDbLinetypeTableRecord", name);
  Group(3, description);
  Whole(72, 65);
  Whole(73, 0);
  Group(40, kZero);
}

void Writing::Linetypes() {
  Table("LTYPE", kLinetypeTable, linetypes_.size() + (modern_ ? 3 : 1));
  if (modern_) {
    Linetype("14", "ByBlock", "");
    Linetype("15", "ByLayer", "");
  }
  Linetype("16", modern_ ? "Continuous" : "CONTINUOUS", "Solid line");
  for (const std::string& name : linetypes_) {
    Linetype(modern_ ? NewHandle() : std::string(), name, "");
  }
  Group(0, "ENDTAB");
}

void Writing::Layers() {
  Table("LAYER", kLayerTable, layers_.size());
  for (const std::string& name : layers_) {
    const std::string handle = !modern_ ? "" : name == "0" ? "10" : NewHandle();
    Record("LAYER", handle, kLayerTable, "AcDbLayerTableRecord", name);
    Whole(62, kColourOfLayers);
    Group(6, modern_ ? "Continuous" : "CONTINUOUS");
    if (!modern_) continue;
    Whole(370, -3);
    Group(390, kPlotStyle);
  }
  Group(0, "ENDTAB");
}

void Writing::OtherTables() {
  Table("STYLE", kStyleTable, 1);
  Record("STYLE", "13", kStyleTable, "AcDbTextStyleTableRecord", "Standard");
  Group(40, kZero);
  Group(41, "1.0");
  Group(50, kZero);
  Whole(71, 0);
  Group(42, "2.5");
  Group(3, "txt");
  Group(4, "");
  Group(0, "ENDTAB");
  Table("VIEW", kViewTable, 0);
  Group(0, "ENDTAB");
  Table("UCS", kUcsTable, 0);
  Group(0, "ENDTAB");
  Table("APPID", kApplicationTable, 1);
  Record("APPID", "17", kApplicationTable, "AcDbRegAppTableRecord", "ACAD");
  Group(0, "ENDTAB");
  Table("DIMSTYLE", kDimensionStyleTable, 1);
  Group(100, "AcDbDimStyleTable");
  Record("DIMSTYLE", "18", kDimensionStyleTable, "AcDbDimStyleTableRecord", "Standard");
  Group(0, "ENDTAB");
}

void Writing::BlockRecords() {
  Table("BLOCK_RECORD", kBlockRecordTable, 2);
  Record("BLOCK_RECORD", kModelSpace, kBlockRecordTable, "AcDbBlockTableRecord", "*Model_Space");
  Group(340, "0");
  Record("BLOCK_RECORD", kPaperSpace, kBlockRecordTable, "AcDbBlockTableRecord", "*Paper_Space");
  Group(340, "0");
  Group(0, "ENDTAB");
}

void Writing::Tables() {
  Section("TABLES");
  if (modern_) {
    Table("VPORT", kViewportTable, 0);
    Group(0, "ENDTAB");
  }
  Linetypes();
  Layers();
  if (modern_) {
    OtherTables();
    BlockRecords();
  }
  EndSection();
}

// ----- Blocks and objects

void Writing::Block(std::string_view name, std::string_view owner, bool paper) {
  Group(0, "BLOCK");
  Group(5, NewHandle());
  Group(330, owner);
  Group(100, "AcDbEntity");
  if (paper) Whole(67, 1);
  Group(8, "0");
  Group(100, "AcDbBlockBegin");
  Group(2, name);
  Whole(70, 0);
  Point(10, 0.0, 0.0);
  Group(3, name);
  Group(1, "");
  Group(0, "ENDBLK");
  Group(5, NewHandle());
  Group(330, owner);
  Group(100, "AcDbEntity");
  if (paper) Whole(67, 1);
  Group(8, "0");
  Group(100, "AcDbBlockEnd");
}

void Writing::Blocks() {
  Section("BLOCKS");
  Block("*Model_Space", kModelSpace, false);
  Block("*Paper_Space", kPaperSpace, true);
  EndSection();
}

void Writing::Dictionary(std::string_view type, std::string_view handle, std::string_view owner) {
  Group(0, type);
  Group(5, handle);
  Group(330, owner);
  Group(100, "AcDbDictionary");
  Whole(281, 1);
}

void Writing::Objects() {
  Section("OBJECTS");
  Dictionary("DICTIONARY", kRootDictionary, "0");
  Group(3, "ACAD_GROUP");
  Group(350, kGroupDictionary);
  Group(3, "ACAD_LAYOUT");
  Group(350, kLayoutDictionary);
  Group(3, "ACAD_PLOTSTYLENAME");
  Group(350, kPlotStyleDictionary);
  Dictionary("DICTIONARY", kGroupDictionary, kRootDictionary);
  Dictionary("DICTIONARY", kLayoutDictionary, kRootDictionary);
  Dictionary("ACDBDICTIONARYWDFLT", kPlotStyleDictionary, kRootDictionary);
  Group(3, "Normal");
  Group(350, kPlotStyle);
  Group(100, "AcDbDictionaryWithDefault");
  Group(340, kPlotStyle);
  Group(0, "ACDBPLACEHOLDER");
  Group(5, kPlotStyle);
  Group(330, kPlotStyleDictionary);
  EndSection();
}

// ----- Entities

void Writing::Entities() {
  Section("ENTITIES");
  for (const Entity& entity : entities_) Write(entity);
  EndSection();
}

void Writing::Begin(std::string_view type, const Entity& entity, std::string_view subclass) {
  Group(0, type);
  Group(5, NewHandle());
  if (modern_) {
    Group(330, kModelSpace);
    Group(100, "AcDbEntity");
  }
  Group(8, entity.layer);
  if (!entity.linetype.empty()) Group(6, entity.linetype);
  if (entity.colour != kColourByLayer) Whole(62, entity.colour);
  if (modern_) Group(100, subclass);
}

void Writing::Write(const Entity& entity) {
  const auto& f = entity.form.figures;
  switch (entity.form.kind) {
    case DxfForm::Kind::kNone:
      return;
    case DxfForm::Kind::kLine:
      Begin("LINE", entity, "AcDbLine");
      Point(10, f[0], f[1]);
      Point(11, f[2], f[3]);
      return;
    case DxfForm::Kind::kCircle:
      Begin("CIRCLE", entity, "AcDbCircle");
      Point(10, f[0], f[1]);
      Figure(40, f[2]);
      return;
    case DxfForm::Kind::kArc:
      Begin("ARC", entity, "AcDbCircle");
      Point(10, f[0], f[1]);
      Figure(40, f[2]);
      if (modern_) Group(100, "AcDbArc");
      Figure(50, f[3]);
      Figure(51, f[4]);
      return;
    case DxfForm::Kind::kSide:
      WriteSide(entity);
      return;
  }
}

void Writing::WriteVertex(const Entity& entity, double x, double y, double bulge) {
  if (modern_) {
    Figure(10, x);
    Figure(20, y);
  } else {
    Begin("VERTEX", entity, "");
    Point(10, x, y);
  }
  if (bulge != 0.0) Figure(42, bulge);
}

void Writing::WriteSide(const Entity& entity) {
  const auto& f = entity.form.figures;
  if (modern_) {
    Begin("LWPOLYLINE", entity, "AcDbPolyline");
    Whole(90, 2);
  } else {
    Begin("POLYLINE", entity, "");
    Whole(66, 1);
    Point(10, 0.0, 0.0);
  }
  Whole(70, 0);
  WriteVertex(entity, f[0], f[1], f[4]);
  WriteVertex(entity, f[2], f[3], 0.0);
  if (!modern_) Begin("SEQEND", entity, "");
}

}  // namespace

std::string DxfText(const Drawing& drawing, DxfVersion version,
                    const std::vector<std::size_t>& only) {
  Writing writing(version);
  writing.Collect(drawing, only);
  return writing.Text();
}

}  // namespace drawing
