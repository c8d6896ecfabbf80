// Look-alike contours: a contour is reduced to the lengths of its segments and the angles between
// them, so that place, direction and start do not count. The angle at a vertex is measured so that
// going straight on is pi.

#include <KTRCL_DataTypes/KTRCL_DataTypes.h>
#include <KTRCL_Geometry/KTRCL_Geometry.h>

#include <cmath>
#include <initializer_list>
#include <iostream>
#include <utility>

namespace {

// A closed contour of straight sides: pairs of a length and the angle behind it.
void Fill(GXLAContour& contour, std::initializer_list<std::pair<double, double>> sides) {
  for (const auto& [length, angle] : sides) {
    GXLAElementLine* line = new GXLAElementLine(length);
    contour.AddLineElement(line);  // the contour takes both over
    GXLAElementAngle* vertex = new GXLAElementAngle(angle, GXLATolerances().ToleranceAngle());
    contour.AddAngleElement(vertex);
  }
  contour.FillInGXLAContourHeaderData();
}

// Says why a comparison ended.
class Printer : public GXEvent1ParamSubscriber<const GXString&> {
 public:
  void OnFire(const GXString& text) override { std::cout << "  " << text.Str() << '\n'; }
};

bool Same(const GXLAContour& a, const GXLAContour& b) {
  Printer printer;
  GXEvent1Param<const GXString&> trace;
  trace.Subscribe(&printer);
  GXLATolerances tolerances;
  GXLAContour::eReversedGeometry reversed = GXLAContour::eGeometryNotSet;
  int startPosition = 0;
  return GXLAContour::HaveSameGeometry(a, b, reversed, startPosition,
                                       GXLAContour::eNmbSegmentsEqual, tolerances, &trace);
}

}  // namespace

int main() {
  // A right triangle with sides 30, 40 and 50, the same from another corner, and one with side 41.
  const double right = std::acos(0.0);
  const double atLong = std::atan2(30.0, 40.0);
  const double atShort = right - atLong;
  GXLAContour gusset(true, GXLAContour::GXLADirectionCCW);
  Fill(gusset, {{40.0, right}, {30.0, atShort}, {50.0, atLong}});
  GXLAContour elsewhere(true, GXLAContour::GXLADirectionCCW);
  Fill(elsewhere, {{30.0, atShort}, {50.0, atLong}, {40.0, right}});
  GXLAContour longer(true, GXLAContour::GXLADirectionCCW);
  Fill(longer, {{41.0, right}, {30.0, atShort}, {50.0, atLong}});

  const bool same = Same(gusset, elsewhere);
  std::cout << "started at another corner: " << (same ? "same" : "different") << '\n';
  const bool other = Same(gusset, longer);
  std::cout << "one side longer: " << (other ? "same" : "different") << '\n';

  gusset.ClearWithContent();
  elsewhere.ClearWithContent();
  longer.ClearWithContent();
  return same && !other ? 0 : 1;
}
