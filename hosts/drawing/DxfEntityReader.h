// The entities of a DXF file, one record after the other, into a drawing.
#pragma once

#include "drawing/CurveChains.h"
#include "drawing/Drawing.h"
#include "drawing/DxfCurves.h"
#include "drawing/DxfEntities.h"
#include "drawing/DxfTokens.h"

#include <cstddef>
#include <memory>
#include <string>
#include <vector>

namespace drawing {

/// Turns the records of entities into elements, counts and complaints of a drawing.
///
/// A POLYLINE spreads over several records and ends with SEQEND; it is open until then. What is
/// told once per drawing (heights, widths, ...) is tallied and told by TellTallies. Curves wait for
/// their neighbours until UseWaitingCurves.
class DxfEntityReader {
 public:
  /// `drawing` must outlive the reader; its unit and the tolerance of its curves count from the
  /// next entity on.
  explicit DxfEntityReader(Drawing& drawing);
  ~DxfEntityReader();

  /// Reads one record of a sequence of entities.
  void Read(const DxfRecord& record);

  /// Ends a sequence of entities: an open POLYLINE is used and complained about.
  void EndSequence();

  /// Ends a text that was cut off: an open POLYLINE is refused.
  void EndCutOff();

  /// Makes elements of the ELLIPSE and SPLINE entities that were read. Called once, at the end.
  void UseWaitingCurves();

  void TellTallies();

  bool SawEntity() const;

 private:
  // Something that is told once per drawing with the number of entities that show it.
  struct Tally {
    int count = 0;
    std::size_t firstLine = 0;
    void Add(std::size_t line);
  };
  struct OpenPolyline;

  DrawnEntity Describe();
  void Count(const DrawnEntity& entity);
  void Refuse(const DrawnEntity& entity, std::size_t line, std::string what);
  bool RefuseDamaged(const DrawnEntity& entity);
  void TellPassedOver();
  void TellDecimalComma(const DxfValues& values, const DrawnEntity& entity);

  void ReadOther();
  void ReadSimpleCurve(DxfValues& values, DrawnEntity entity);
  void ReadCurve(DxfValues& values, DrawnEntity entity);
  void UseVertices(const DxfCurve& curve, DrawnEntity entity);
  void UseTrace(CurveTrace trace, double elevation, DrawnEntity entity);
  bool IsHigh(double elevation) const;
  void TellCurveOddities(const DxfCurve& curve, const CurveTrace& trace, const DrawnEntity& entity);
  void UseBuilt(DrawnEntity entity);
  void TellOddities(const DrawnEntity& entity);

  void OpenSequence(DxfValues& values, DrawnEntity entity, bool paperSpace);
  void ReadVertex();
  void ReadSequenceEnd();
  void CloseSequence(bool ended);

  void Tell(const Tally& tally, Severity severity, const char* one, const char* many,
            const char* done);

  Drawing& drawing_;
  const DxfRecord* record_ = nullptr;
  ElementBuilder builder_;
  std::unique_ptr<OpenPolyline> polyline_;
  std::vector<DrawnCurve> curves_;
  std::size_t curveSamples_ = 0;  // Of all of them.
  bool attributesFollow_ = false;
  bool sawEntity_ = false;
  Tally heights_, widths_, flatSides_, shortArcs_, nearCircles_, foreignText_, invisible_;
};

}  // namespace drawing
