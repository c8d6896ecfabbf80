// Four constructions around a part, drawn as one picture: the ring of points around it, the turned
// box that is smallest, a parallel contour, and a curve of many points as few arcs.
//
//     example-040-around-a-part picture.svg      (without a name the picture goes to the console)

#include <KTRCL_DataTypes/KTRCL_DataTypes.h>
#include <KTRCL_Geometry/KTRCL_Geometry.h>

#include <cmath>
#include <fstream>
#include <iostream>
#include <memory>
#include <sstream>
#include <string>
#include <vector>

namespace {

// One of the four drawings: 110 x 85 mm with its y axis upwards.
class Panel {
 public:
  Panel(std::ostream& svg, double left, double top, const std::string& title) : svg_(svg) {
    svg_ << "<g transform='translate(" << left << ' ' << top << ")'><text x='4' y='10'>" << title
         << "</text><g transform='translate(10 75) scale(1 -1)'>\n";
  }
  Panel(const Panel&) = delete;
  Panel& operator=(const Panel&) = delete;
  ~Panel() { svg_ << "</g></g>\n"; }

  void Path(const std::vector<GX2DPoint>& points, const char* style) {
    svg_ << "<polyline class='" << style << "' points='";
    for (const GX2DPoint& p : points) svg_ << p.X << ',' << p.Y << ' ';
    svg_ << "'/>\n";
  }

  // Arcs are drawn by the short lines that the library makes of them.
  void Contour(const GX2DElmList& contour, const char* style) {
    for (GX2DElement* element : contour) {
      GX2DElmList lines;
      element->AddAsPolygon(lines);
      std::vector<GX2DPoint> points(1, element->GetStartPoint());
      for (GX2DElement* line : lines) points.push_back(line->GetEndPoint());
      Path(points, style);
    }
  }

  void Dot(const GX2DPoint& p, const char* style) {
    svg_ << "<circle class='" << style << "' cx='" << p.X << "' cy='" << p.Y << "' r='1'/>\n";
  }

 private:
  std::ostream& svg_;
};

std::unique_ptr<GX2DArc> Arc(const GX2DPoint& center, const GX2DPoint& start, const GX2DPoint& mid,
                             const GX2DPoint& end) {
  auto arc = std::make_unique<GX2DArc>(center, start, mid, end);
  arc->Normalize();  // the mid points below only tell the sense
  return arc;
}

// A bracket, counter-clockwise: two rounded corners, a slanted side, a half round notch.
void DrawBracket(GX2DElmList& contour) {
  contour.push_back(new GX2DLine(0, 0, 70, 0));
  contour.push_back(Arc({70, 15}, {70, 0}, {81, 4}, {85, 15}).release());
  contour.push_back(new GX2DLine(85, 15, 60, 50));
  contour.push_back(new GX2DLine(60, 50, 50, 50));
  contour.push_back(Arc({40, 50}, {50, 50}, {40, 40}, {30, 50}).release());
  contour.push_back(new GX2DLine(30, 50, 8, 50));
  contour.push_back(Arc({8, 42}, {8, 50}, {2, 48}, {0, 42}).release());
  contour.push_back(new GX2DLine(0, 42, 0, 0));
}

// The ring of vertices, its highest level, and the bare points with sharp corners.
bool DrawRing(Panel& panel, GX2DElmList& contour) {
  GX2DSurroundPolygon ring;
  ring.ConstructFrom2DElmList(contour, nullptr);
  std::vector<GX2DPoint> around;
  for (const GX2DSurroundPoint* vertex : ring) around.push_back(*vertex->Point);
  around.push_back(around.front());

  auto first = ring.begin(), last = ring.end(), left = ring.end(), right = ring.end();
  ring.GetTopMinLeftMaxRight(first, last, false, left, right);

  GX2DElmList corners;
  GXGeometry::GetSurroundingPolygon(&contour, &corners);

  panel.Contour(contour, "part");
  panel.Path(around, "made");
  for (GX2DElement* corner : corners) panel.Dot(corner->GetStartPoint(), "dot");
  panel.Dot(*(*left)->Point, "mark");
  panel.Dot(*(*right)->Point, "mark");
  return ring.size() > contour.size() && (*left)->Point->X < (*right)->Point->X;
}

// The part as it may come, turned, and the box that is smallest, turned back with it.
bool DrawSmallestBox(Panel& panel, const GX2DElmList& contour) {
  GX2DElmList turned;
  turned.Clone(contour);
  for (GX2DElement* element : turned) element->RotateAxis({40, 25}, -20.0);

  const double angle = GXGeometry::GetAngleWithMinBoundingBox(turned, 1.0, false);
  GX2DElmList upright;
  upright.Clone(turned);
  for (GX2DElement* element : upright) element->RotateAxis({40, 25}, angle);
  GXBoundBox box;
  upright.GetBoundBox(box);
  const GX3DPoint& low = box.Minimum;
  const GX3DPoint& high = box.Maximum;
  std::vector<GX2DPoint> corners = {
      {low.X, low.Y}, {high.X, low.Y}, {high.X, high.Y}, {low.X, high.Y}, {low.X, low.Y}};
  for (GX2DPoint& corner : corners) corner.RotateAxis({40, 25}, -angle);

  panel.Contour(turned, "part");
  panel.Path(corners, "made");
  return GXMath::AlmostEq(box.GetArea(), 85.0 * 50.0, 1.0e-6);
}

std::unique_ptr<GX2DElement> CopyOnTheRight(const GX2DElement& element, double distance) {
  if (const auto* line = dynamic_cast<const GX2DLine*>(&element)) {
    return std::make_unique<GX2DLine>(GXGeometryFunctions::GetRightLineAtDistance(*line, distance));
  }
  const auto& arc = dynamic_cast<const GX2DArc&>(element);
  return std::make_unique<GX2DArc>(GXGeometryFunctions::GetRightArcAtDistance(arc, distance));
}

bool Trim(GX2DElement* from, GX2DElement* to) {
  auto* line = dynamic_cast<GX2DLine*>(from);
  auto* nextLine = dynamic_cast<GX2DLine*>(to);
  auto* arc = dynamic_cast<GX2DArc*>(from);
  auto* nextArc = dynamic_cast<GX2DArc*>(to);
  if (line && nextLine)
    return GXGeometryFunctions::DoIntersection_FromLine_ToLine(*line, *nextLine);
  if (line) return GXGeometryFunctions::DoIntersection_FromLine_ToArc(*line, *nextArc);
  if (nextLine) return GXGeometryFunctions::DoIntersection_FromArc_ToLine(*arc, *nextLine);
  return GXGeometryFunctions::DoIntersection_FromArc_ToArc(*arc, *nextArc);
}

// The way of a tool of 4 mm radius around the part: copies on the right of a counter-clockwise
// contour, each trimmed with the next one.
bool DrawParallel(Panel& panel, const GX2DElmList& contour) {
  GX2DElmList parallel;
  for (GX2DElement* element : contour) {
    parallel.push_back(CopyOnTheRight(*element, 4.0).release());
  }
  bool trimmed = true;
  for (std::size_t i = 0; i < parallel.size(); ++i) {
    trimmed = Trim(parallel[i], parallel[(i + 1) % parallel.size()]) && trimmed;
  }
  for (GX2DElement* element : parallel) {
    if (auto* arc = dynamic_cast<GX2DArc*>(element)) arc->Normalize();
  }
  panel.Contour(contour, "part");
  panel.Contour(parallel, "made");
  return trimmed && parallel.IsFullyConnected();
}

// 601 points of an ellipse and the arcs that stay within 0.05 mm of them.
bool DrawCurve(Panel& panel) {
  std::vector<GX2DPoint> points;
  GXGeometry::ConvertEllipseToPoints({42, 27, 0}, {82, 27, 0}, 0.6, 0.0, 2.0 * std::acos(-1.0),
                                     points);
  GX2DElmList curve;
  GXApproximatePoints::ApproximateByLinesAndArcs(points, curve, 0.05);
  panel.Path(points, "part");
  for (std::size_t i = 0; i < curve.size(); ++i) {
    if (auto* arc = dynamic_cast<GX2DArc*>(curve[i])) arc->Normalize();
    panel.Dot(curve[i]->GetStartPoint(), "dot");
    panel.Dot(curve[i]->GetEndPoint(), "dot");
  }
  panel.Contour(curve, "made");
  std::cerr << points.size() << " points became " << curve.size() << " arcs\n";
  return !curve.empty() && curve.size() < 60;
}

}  // namespace

int main(int argc, char** argv) {
  std::ostringstream svg;
  svg << "<svg xmlns='http://www.w3.org/2000/svg' viewBox='0 0 220 180' width='880' height='720'>\n"
         "<style>text{font:5px sans-serif} polyline{fill:none;stroke-linecap:round}\n"
         ".part{stroke:#234;stroke-width:.7} .made{stroke:#c40;stroke-width:.5;"
         "stroke-dasharray:2 1.4}\n.dot{fill:#06a} .mark{fill:none;stroke:#080;stroke-width:.6}"
         "</style>\n<rect width='220' height='180' fill='#fff'/>\n";

  GX2DElmList contour;
  DrawBracket(contour);
  bool right = true;
  {
    Panel panel(svg, 0, 0, "Ring of points, sharp corners");
    right = DrawRing(panel, contour) && right;
  }
  {
    Panel panel(svg, 110, 0, "Smallest box");
    right = DrawSmallestBox(panel, contour) && right;
  }
  {
    Panel panel(svg, 0, 90, "Parallel contour at 4 mm");
    right = DrawParallel(panel, contour) && right;
  }
  {
    Panel panel(svg, 110, 90, "An ellipse as few arcs");
    right = DrawCurve(panel) && right;
  }
  svg << "</svg>\n";
  if (argc > 1) {
    std::ofstream(argv[1]) << svg.str();
  } else {
    std::cout << svg.str();
  }
  return right ? 0 : 1;
}
