// Sheet metal grows when it is bent. A strip that was measured flat and bent tells by how much (the
// K factor, the place of the neutral line in the sheet), and from it follows the blank of any other
// angle. The picture shows three bent corners and their blanks.
//
//     example-050-unfold-a-bend picture.svg      (without a name the picture goes to the console)

#include <KTRCL_DataTypes/KTRCL_DataTypes.h>
#include <KTRCL_Geometry/KTRCL_Geometry.h>

#include <cmath>
#include <fstream>
#include <iostream>
#include <sstream>

namespace {

const double kPi = std::acos(-1.0);

// All lengths in millimetres; flanges are measured along the outside, up to the virtual corner.
struct Bend {
  double first;
  double second;
  double angle;  // between the flanges, in degrees; 180 is flat
};

constexpr double kThickness = 2.0;
constexpr double kRadius = 3.0;  // inside

GXDoubleVector Figures(double first, double second) {
  GXDoubleVector figures;
  figures.push_back(first);
  figures.push_back(second);
  return figures;
}

// The entries before the bend, at index 0, are not read.
double KFactor(const Bend& bend, double flatLength) {
  return K_factor_by_unfolding_and_3D(kThickness, flatLength, Figures(bend.first, bend.second),
                                      Figures(0.0, kRadius), Figures(0.0, bend.angle));
}

double BendRadians(const Bend& bend) { return (180.0 - bend.angle) * kPi / 180.0; }

// What the virtual corner is longer than the straight part of a flange.
double Setback(const Bend& bend) {
  const double share = bend.angle <= 90.01 ? 1.0 : std::tan(BendRadians(bend) / 2.0);
  return (kRadius + kThickness) * share;
}

double BendZone(const Bend& bend, double k) {
  return BendRadians(bend) * (kRadius + k * kThickness);
}

double FlatLength(const Bend& bend, double k) {
  return bend.first + bend.second - 2.0 * Setback(bend) + BendZone(bend, k);
}

void Line(std::ostream& svg, const char* style, double x1, double y1, double x2, double y2) {
  svg << "<line class='" << style << "' x1='" << x1 << "' y1='" << -y1 << "' x2='" << x2 << "' y2='"
      << -y2 << "'/>\n";
}

// The corner from the side: the given lines, and where they end at the sheet's thickness, once with
// the material inside the angle and once outside.
int DrawCorner(std::ostream& svg, const Bend& bend) {
  const double radians = bend.angle * kPi / 180.0;
  const double tipX = -bend.second * std::cos(radians);
  const double tipY = bend.second * std::sin(radians);
  Line(svg, "part", -bend.first, 0.0, 0.0, 0.0);
  Line(svg, "part", 0.0, 0.0, tipX, tipY);

  int points = 0;
  for (const double side : {1.0, -1.0}) {
    double corner[2][3] = {};
    const int found = Cal_lines_with_thick(-bend.first, 0.0, 0.0, 0.0, tipX, tipY, -bend.first,
                                           side, radians, bend.second, kThickness, kRadius, corner);
    const char* style = side > 0.0 ? "inside" : "outside";
    if (found == 2) Line(svg, style, -bend.first, 0.0, corner[1][0], corner[1][1]);
    const double fromX = found == 2 ? corner[1][0] : 0.0;
    Line(svg, style, fromX, 0.0, corner[0][0], corner[0][1]);
    points += found;
  }
  return points;
}

void DrawBlank(std::ostream& svg, const Bend& bend, double k) {
  const double zone = BendZone(bend, k);
  const double start = bend.first - Setback(bend);
  svg << "<rect class='blank' x='" << -bend.first << "' y='14' height='8' width='"
      << FlatLength(bend, k) << "'/><rect class='zone' x='" << start - bend.first
      << "' y='14' height='8' width='" << zone << "'/><text x='" << -bend.first << "' y='30'>"
      << bend.angle << " degrees, blank " << FlatLength(bend, k) << " mm</text>\n";
}

}  // namespace

int main(int argc, char** argv) {
  // A strip of 85.82 mm was bent to 90 degrees; its flanges came out as 50 and 40 mm.
  const double k = KFactor({50.0, 40.0, 90.0}, 85.82);

  std::ostringstream svg;
  svg.precision(5);
  svg << "<svg xmlns='http://www.w3.org/2000/svg' viewBox='0 0 300 110' width='1200' "
         "height='440'>\n"
         "<style>text{font:5px sans-serif} line{stroke-width:.7;stroke-linecap:round}\n"
         ".part{stroke:#234} .inside{stroke:#c40;stroke-dasharray:2 1.5}"
         ".outside{stroke:#06a;stroke-dasharray:.1 1.5}\n.blank{fill:#ccd} "
         ".zone{fill:#e90}</style>\n"
         "<rect width='300' height='110' fill='#fff'/><text x='10' y='12'>K factor "
      << k << ", sheet " << kThickness << " mm, radius " << kRadius
      << " mm; material inside the angle (dashes) and outside (dots)</text>\n";

  bool right = k > 0.3 && k < 0.5;
  double left = 70.0;
  for (const double angle : {60.0, 90.0, 120.0}) {
    const Bend bend = {55.0, 35.0, angle};
    svg << "<g transform='translate(" << left << " 70)'>\n";
    right = DrawCorner(svg, bend) >= 3 && right;
    DrawBlank(svg, bend, k);
    svg << "</g>\n";
    left += 90.0;
    // The blank that was computed gives the same factor back.
    right = GXMath::AlmostEq(KFactor(bend, FlatLength(bend, k)), k, 1.0e-9) && right;
    std::cerr << angle << " degrees: blank " << FlatLength(bend, k) << " mm\n";
  }
  svg << "</svg>\n";
  if (argc > 1) {
    std::ofstream(argv[1]) << svg.str();
  } else {
    std::cout << svg.str();
  }
  return right ? 0 : 1;
}
