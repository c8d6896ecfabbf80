// A drawing as it was read: elements in millimetres, where each came from, what was counted, what
// was left out, and what was wrong with the file.
#pragma once

#include <KTRCL_Geometry/elements/GX2DElements.h>

#include <cstddef>
#include <map>
#include <memory>
#include <string>
#include <vector>

namespace drawing {

/// How much a complaint matters.
enum class Severity {
  kNote,     ///< Worth knowing; the geometry is as drawn.
  kWarning,  ///< The geometry was read, but a person should look at it.
  kError     ///< Something that was drawn is not in the result.
};

/// "note", "warning" or "error".
const char* SeverityName(Severity severity);

/// One thing that was wrong or worth knowing, with what was done about it.
struct Complaint {
  std::string file;      ///< As it was named by the caller.
  std::size_t line = 0;  ///< Counted from 1; 0 where no line is meant.
  std::string entity;    ///< Type of the entity, empty where none is meant.
  std::string handle;    ///< Handle of the entity, empty where it has none.
  std::string what;      ///< What is wrong.
  std::string done;      ///< What was done about it; may be empty.
  Severity severity = Severity::kError;
};

/// One line of text: "file:line: severity: ENTITY handle: what; done". Parts that are not known are
/// left out, control characters become question marks.
std::string ToLine(const Complaint& complaint);

/// The length unit of a drawing.
struct Unit {
  int code = 0;                     ///< $INSUNITS; 0 also where the drawing names no unit.
  std::string name = "unitless";    ///< "mm", "inch", ...
  double millimetresPerUnit = 1.0;  ///< All lengths of the result have been multiplied by it.
  std::string source;               ///< Where the unit came from, in words.
  bool assumed = true;              ///< True where millimetres had to be taken for want of a unit.
};

/// The unit of a $INSUNITS code.
///
/// Returns: true with name and factor in `unit` for the codes 0 (unitless, taken as millimetres) to
/// 24;
///   false with the unit taken as millimetres for all others. `source` is written in both cases.
bool UnitFromCode(int code, Unit& unit);

/// Where an element came from. Colour 256 and linetype "BYLAYER" are what a drawing means when it
/// says nothing.
struct DrawnEntity {
  std::string type;
  std::string layer;
  int colour = 256;
  std::string linetype;
  std::string handle;
  std::size_t line = 0;  ///< The line that names its type, counted from 1.
  /// Names of the blocks it came out of, from the outermost in: "FRAME", "FRAME / BOLT"; empty for
  /// what was drawn in the model space itself.
  std::string block;
  std::size_t insertLine = 0;  ///< Line of the INSERT in the model space; 0 without a block.
};

/// What was drawn with length zero and has no element: a whole entity, which is refused, or a side
/// of a polyline, whose other sides may be in use. Every such side is one of these.
struct ZeroLengthEntity {
  DrawnEntity entity;
  GX2DPoint place;
};

/// One element of the drawing, in millimetres, in the plane z = 0.
struct DrawnElement {
  std::unique_ptr<GX2DElement>
      element;             ///< A line or an arc, never null in what the reader returns.
  std::size_t entity = 0;  ///< Index into Drawing::entities; a polyline has many elements.
};

/// What became of the curves of a drawing that are neither lines nor arcs.
struct CurveSummary {
  /// Entities; of arcs and polylines that an uneven scale has made elliptic, each such arc.
  std::size_t curves = 0;
  std::size_t circles = 0;  ///< Full circles that stand for them.
  std::size_t arcs = 0;     ///< Arcs; circles are not counted again.
  std::size_t lines = 0;
  double tolerance = 0.0;         ///< That was asked for, millimetres.
  double largestDeviation = 0.0;  ///< Measured between curves and elements, millimetres.
};

/// A drawing as it was read.
///
/// Every entity of the model space is counted once in `entitiesByType`, and every entity that comes
/// out of a block, once for each copy, in `blockEntitiesByType`; both in `entitiesByLayer`. Each of
/// them is either used (an entry in `entities`), of a kind that is not usable yet (`unusedByType`),
/// refused with a complaint (`refusedByType`), left out for its layer (`hiddenByLayer`), or an
/// INSERT in whose place the contents of its block stand (`expandedInserts`). Vertices, sequence
/// ends and attributes belong to the entity in front of them and are not counted. The contents of
/// block definitions are no geometry of the drawing by themselves.
struct Drawing {
  std::string file;
  bool usable = false;  ///< False where nothing at all could be read; `refusal` says why.
  std::string refusal;  ///< Empty for usable drawings.
  std::string version;  ///< $ACADVER as it stands in the file, empty where absent.
  Unit unit;
  std::vector<DrawnEntity> entities;   ///< The used ones, in the order of the file.
  std::vector<DrawnElement> elements;  ///< In the order of the file.
  CurveSummary curves;
  std::map<std::string, int> entitiesByType;
  std::map<std::string, int> blockEntitiesByType;
  std::map<std::string, int> entitiesByLayer;
  int expandedInserts = 0;
  std::map<std::string, int> unusedByType;
  std::map<std::string, int> refusedByType;
  /// Of the paper space, the blocks of layouts included; not in any of the other counts.
  std::map<std::string, int> paperSpaceByType;
  /// On layers off or frozen, by layer. Of an INSERT on a frozen layer only itself is counted.
  std::map<std::string, int> hiddenByLayer;
  std::vector<ZeroLengthEntity> zeroLength;  ///< In the order of the file.
  std::vector<Complaint> complaints;         ///< In the order of their lines.
};

/// A drawing with elements of its own, equal to those of `drawing`.
Drawing CopyOf(const Drawing& drawing);

/// Appends a complaint. `entity` names what it is about; null where it is about no entity.
void Complain(Drawing& drawing, Severity severity, std::size_t line, const DrawnEntity* entity,
              std::string what, std::string done);

}  // namespace drawing
