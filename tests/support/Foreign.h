// Elements that the library does not know, and elements that write down their own end.
//
//     support::Foreign2D stranger({0, 0}, {4, 3});       // no kind of its own, accepts no visitor
//     std::vector<std::string> log;
//     list.push_back(new support::Logged<GX2DLine>(log, "a", support::Line(0, 0, 1, 0)));
//     list.ClearWithContents();                          // log is {"a"}
#pragma once

#include <KTRCL_Geometry/elements/GX2DElements.h>
#include <KTRCL_Geometry/elements/GX3DElements.h>

#include <algorithm>
#include <string>
#include <utility>
#include <vector>

namespace support {

/// A 2D element of a kind of its own: overrides what it must and nothing more. `Accept` calls no
/// `Visit` and returns `accepted`.
class Foreign2D : public GX2DElement {
 public:
  GX2DPoint Start;
  GX2DPoint End;
  bool accepted = true;

  Foreign2D(const GX2DPoint& start, const GX2DPoint& end) : Start(start), End(end) {}

  Foreign2D* Clone() const override { return new Foreign2D(*this); }
  bool Accept(GX2DElementVisitor& /*visitor*/) override { return accepted; }
  double Len() const override { return 1.0; }
  bool GetParametricPoint(GX2DPoint& /*out*/, const double& /*t*/) const override { return false; }
  double GetMinX() const override { return std::min(Start.X, End.X); }
  double GetMaxX() const override { return std::max(Start.X, End.X); }
  double GetMinY() const override { return std::min(Start.Y, End.Y); }
  double GetMaxY() const override { return std::max(Start.Y, End.Y); }
  GX2DPoint& GetStartPoint() override { return Start; }
  GX2DPoint& GetEndPoint() override { return End; }
  void AddAsPolygon(GX2DElmList& /*list*/) const override {}
};

/// The same in space.
class Foreign3D : public GX3DElement {
 public:
  GX3DPoint Start;
  GX3DPoint End;

  Foreign3D(const GX3DPoint& start, const GX3DPoint& end) : Start(start), End(end) {}

  double GetMinX() const override { return std::min(Start.X, End.X); }
  double GetMaxX() const override { return std::max(Start.X, End.X); }
  double GetMinY() const override { return std::min(Start.Y, End.Y); }
  double GetMaxY() const override { return std::max(Start.Y, End.Y); }
  double GetMinZ() const override { return std::min(Start.Z, End.Z); }
  double GetMaxZ() const override { return std::max(Start.Z, End.Z); }
  bool IsActuallyAPoint() override { return false; }
  GX3DPoint& GetStartPoint() override { return Start; }
  GX3DPoint& GetEndPoint() override { return End; }
};

/// An element or list that appends its name to a log when it is destroyed.
template <typename Kind>
class Logged : public Kind {
 public:
  template <typename... Arguments>
  Logged(std::vector<std::string>& log, std::string name, const Arguments&... arguments)
      : Kind(arguments...), log_(log), name_(std::move(name)) {}
  Logged(const Logged&) = delete;
  Logged& operator=(const Logged&) = delete;
  ~Logged() override { log_.push_back(name_); }

 private:
  std::vector<std::string>& log_;
  std::string name_;
};

}  // namespace support
