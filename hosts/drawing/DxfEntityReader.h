// The entities of a DXF file, one record after the other, into a drawing.
#pragma once

#include "drawing/CurveChains.h"
#include "drawing/Drawing.h"
#include "drawing/DxfCurves.h"
#include "drawing/DxfDefinitions.h"
#include "drawing/DxfEntities.h"
#include "drawing/DxfPlacement.h"
#include "drawing/DxfReader.h"
#include "drawing/DxfTallies.h"
#include "drawing/DxfTokens.h"

#include <cstddef>
#include <memory>
#include <set>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace drawing {

struct DxfPolyline;

/// Turns the records of entities into elements, counts and complaints of a drawing.
///
/// A POLYLINE spreads over several records and ends with SEQEND; it is open until then. An INSERT
/// is replaced by the contents of its block, which obey the same rules as all else. What is told
/// once per drawing (heights, widths, ...) is tallied and told by TellTallies; what is wrong in a
/// block is told once, however often the block is inserted. Curves wait for their neighbours until
/// UseWaitingCurves.
class DxfEntityReader {
 public:
  /// `drawing` and `definitions` must outlive the reader; the unit of the drawing and the tolerance
  /// of its curves count from the next entity on. Blocks and layers are those that are indexed.
  DxfEntityReader(Drawing& drawing, const DxfDefinitions& definitions, const ReadOptions& options);
  ~DxfEntityReader();

  /// Reads one record of a sequence of entities.
  void Read(const DxfRecord& record);

  /// Ends a sequence of entities: an open POLYLINE is used and complained about.
  void EndSequence();

  /// Ends a text that was cut off: an open POLYLINE is refused.
  void EndCutOff();

  /// Makes elements of the curves that were read. Called once, at the end.
  void UseWaitingCurves();

  void TellTallies();

  bool SawEntity() const;

 private:
  DrawnEntity Describe();
  void TakeFromInsert(DrawnEntity& entity) const;
  std::string Decode(std::string_view bytes);
  void Count(const DrawnEntity& entity);
  void Say(Severity severity, std::size_t line, const DrawnEntity& entity, std::string what,
           std::string done);
  void Refuse(const DrawnEntity& entity, std::size_t line, std::string what);
  void RefuseZeroLength(const DrawnEntity& entity);
  bool RefuseDamaged(const DrawnEntity& entity);
  bool IsHidden(const DrawnEntity& entity) const;
  void LeaveOutHidden(const DrawnEntity& entity);
  void TellPassedOver();
  void TellDecimalComma(const DxfValues& values, const DrawnEntity& entity);

  void ReadOther();
  void ReadByType(DxfValues& values, DrawnEntity entity);
  void ReadSimpleCurve(DxfValues& values, DrawnEntity entity);
  void ReadCurve(DxfValues& values, DrawnEntity entity);
  std::string Trace(const Curve& curve, CurveTrace& trace);
  std::string TraceBuilt(std::vector<CurveTrace>& traces);
  void UseVertices(const DxfCurve& curve, DrawnEntity entity);
  void UseTrace(CurveTrace trace, const HeightRange& heights, DrawnEntity entity);
  bool IsHigh(const HeightRange& heights) const;
  void TellCurveOddities(const DxfCurve& curve, const CurveTrace& trace, const DrawnEntity& entity);
  void UseBuilt(DrawnEntity entity);
  void TellOddities(const DrawnEntity& entity);

  void ReadInsert(DxfValues& values, const DrawnEntity& entity);
  std::string ObstacleTo(const DxfBlock& block, const DrawnEntity& entity) const;
  bool Spend(const DxfBlock& block, const DxfInsert& insert);
  void ReadCopies(const DxfBlock& block, const DxfInsert& insert, const DrawnEntity& entity);
  void ReadContents(const DxfPlacement& placement);

  void OpenSequence(DxfValues& values, DrawnEntity entity, bool leftOut);
  void ReadVertex();
  void ReadSequenceEnd();
  void CloseSequence(bool ended);

  Drawing& drawing_;
  const DxfDefinitions& definitions_;
  bool allLayers_;
  double recordsLeft_;  // That inserts may still come to.
  double bytesLeft_;
  const DxfRecord* record_ = nullptr;
  DxfPlacement modelSpace_;
  const DxfPlacement* placement_ = &modelSpace_;
  std::set<std::pair<std::size_t, std::string>> toldInBlocks_;
  ElementBuilder builder_;
  std::unique_ptr<DxfPolyline> polyline_;
  std::vector<DrawnCurve> curves_;
  std::size_t curveSamples_ = 0;  // Of all of them.
  bool attributesFollow_ = false;
  bool sawEntity_ = false;
  DxfTallies tallies_;
};

}  // namespace drawing
