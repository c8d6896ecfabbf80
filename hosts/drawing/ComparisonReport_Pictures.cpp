// A is drawn in solid lines and blue where it differs, B in dashed lines and red, in all pictures.
#include "drawing/ComparisonReportSections.h"
#include "drawing/CurveMeasures.h"
#include "drawing/HtmlPage.h"
#include "drawing/NumberText.h"
#include "drawing/SvgScene.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <set>
#include <string>
#include <vector>

namespace drawing {

namespace {

// Of very many marks each has less to say.
constexpr std::size_t kMostBadges = 24;
constexpr std::size_t kMostSpots = 2000;
constexpr std::size_t kMostGhosts = 200;

// Stands at the first difference; as short as it can be, for the margin of a picture is narrow.
constexpr const char* kFirst = "1st";

// A detail is shown where it enlarges at least so much.
constexpr double kLeastEnlargement = 2.5;

// One of the two parts, as it is drawn in a picture.
struct DrawnPart {
  const PartModel& part;
  bool isA = true;
  Placement placement;  // Into the coordinates of the picture.
};

std::size_t SegmentOf(const StripRow& row, bool ofA) { return ofA ? row.a : row.b; }

std::size_t CutOutOf(const CutOutRow& row, bool ofA) { return ofA ? row.a : row.b; }

const char* DifferenceClasses(bool isA) { return isA ? "solid blue thick" : "dashed red thick"; }

// What the other part has and this one lacks.
const char* GhostClasses(bool ofA) { return ofA ? "dotted blue" : "dotted red"; }

void AppendAllPlaced(const GX2DElmList& elements, const Placement& placement, GX2DElmList& placed) {
  for (const GX2DElement* element : elements) AppendPlaced(*element, placement, placed);
}

// Draws one part. In an overlay B's equal lines lie on those of A.
class PartPainter {
 public:
  PartPainter(const SvgScene& scene, const DrawnPart& drawn, const ComparisonFindings& findings,
              const char* equalClasses)
      : scene_(scene), drawn_(drawn), findings_(findings), equal_(equalClasses) {}

  // Only what meets the box is drawn.
  void DrawOnly(const Box& box) {
    window_ = box;
    hasWindow_ = true;
  }

  std::string Sheet() const {
    std::string data = ClosedData(drawn_.part.outer->elements);
    for (const auto& cutOut : drawn_.part.cutOuts) data += ClosedData(cutOut->elements);
    return SvgScene::Path("sheet", data);
  }

  // What is equal below, what differs above it.
  std::string Lines() const {
    std::string below;
    std::string above;
    AddOutline(below, above);
    for (const CutOutRow& row : findings_.cutOuts) {
      const std::size_t index = CutOutOf(row, drawn_.isA);
      if (index == kNoCutOut) continue;
      const GX2DElmList& elements = drawn_.part.cutOuts[index]->elements;
      const bool marked = IsMarked(row);
      (marked ? above : below) +=
          SvgScene::Path(Classes(marked, CutOutKey(row)), ClosedData(elements), CutOutKey(row));
    }
    return below + above;
  }

 private:
  std::string Classes(bool marked, const std::string& key) const {
    std::string classes = marked ? DifferenceClasses(drawn_.isA) : equal_;
    if (key == findings_.first.key) classes += " first";
    return classes;
  }

  bool IsSeen(const GX2DElmList& placed) const {
    return !hasWindow_ || Meet(BoxOfAll(placed), window_);
  }

  std::string ClosedData(const GX2DElmList& elements) const {
    GX2DElmList placed;
    AppendAllPlaced(elements, drawn_.placement, placed);
    return IsSeen(placed) ? scene_.ClosedPathData(placed) : "";
  }

  // Rows that the table shows are marked one by one, the others are drawn in one go.
  void AddOutline(std::string& below, std::string& above) const {
    std::string others;
    std::string otherDifferences;
    for (std::size_t i = 0; i < findings_.strip.rows.size(); ++i) {
      const StripRow& row = findings_.strip.rows[i];
      const std::size_t index = SegmentOf(row, drawn_.isA);
      if (index == kNoSegment) continue;
      GX2DElmList placed;
      AppendPlaced(*drawn_.part.outer->elements[index], drawn_.placement, placed);
      if (!IsSeen(placed)) continue;
      const std::string data = scene_.PathData(placed);
      const bool marked = IsMarked(findings_, row);
      if (i < findings_.firstShown || i >= findings_.lastShown) {
        (marked ? otherDifferences : others) += data;
        continue;
      }
      (marked ? above : below) +=
          SvgScene::Path(Classes(marked, OutlineKey(i)), data, OutlineKey(i));
    }
    below += SvgScene::Path(equal_, others);
    above += SvgScene::Path(DifferenceClasses(drawn_.isA), otherDifferences);
  }

  const SvgScene& scene_;
  const DrawnPart& drawn_;
  const ComparisonFindings& findings_;
  std::string equal_;
  Box window_;
  bool hasWindow_ = false;
};

// A place at which something is named.
struct NamedPlace {
  GX2DPoint place;
  std::string key;
  std::string text;
  bool marked = false;
};

GX2DPoint PlaceOfSegment(const DrawnPart& drawn, std::size_t index) {
  return drawn.placement.Apply(MiddleOf(*drawn.part.outer->elements[index]));
}

// A circle is named at its middle, anything else on its line, which is never beside the thing.
GX2DPoint PlaceOfCutOut(const DrawnPart& drawn, std::size_t index) {
  const GX2DElmList& elements = drawn.part.cutOuts[index]->elements;
  if (AsFullCircle(elements) != nullptr || elements.empty()) {
    return drawn.placement.Apply(MiddleOfCutOut(drawn.part, index));
  }
  return drawn.placement.Apply(MiddleOf(*elements.front()));
}

std::vector<NamedPlace> PlacesOf(const DrawnPart& drawn, const ComparisonFindings& findings) {
  std::vector<NamedPlace> places;
  for (std::size_t i = findings.firstShown; i < findings.lastShown; ++i) {
    const StripRow& row = findings.strip.rows[i];
    const std::size_t index = SegmentOf(row, drawn.isA);
    if (index == kNoSegment) continue;
    places.push_back({PlaceOfSegment(drawn, index), OutlineKey(i), std::to_string(i + 1),
                      IsMarked(findings, row)});
  }
  for (const CutOutRow& row : findings.cutOuts) {
    const std::size_t index = CutOutOf(row, drawn.isA);
    if (index == kNoCutOut) continue;
    places.push_back(
        {PlaceOfCutOut(drawn, index), CutOutKey(row), std::to_string(row.number), IsMarked(row)});
  }
  return places;
}

// Rings for everything that can be marked, badges at what differs and has none yet.
std::string Badges(const SvgScene& scene, const DrawnPart& drawn,
                   const ComparisonFindings& findings, std::set<std::string>& hasBadge) {
  std::string spots;
  std::string badges;
  std::string first;
  std::size_t count = 0;
  std::size_t named = 0;
  for (const NamedPlace& place : PlacesOf(drawn, findings)) {
    if (place.marked && !hasBadge.insert(place.key).second) continue;
    if (++count <= kMostSpots) spots += scene.Spot(place.place, place.key);
    if (place.key == findings.first.key) {
      first += scene.Badge(place.place, MarkShape::kDiamond, drawn.isA ? "blue first" : "red first",
                           kFirst, place.key);
    } else if (place.marked && ++named <= kMostBadges) {
      badges += scene.Badge(place.place, MarkShape::kRound, drawn.isA ? "blue" : "red", place.text,
                            place.key);
    }
  }
  return spots + badges + first;
}

// Where the walk of the strip begins.
struct WalkBegin {
  GX2DPoint place;
  GX2DPoint along;  // The middle of the first segment.
};

WalkBegin BeginOf(const DrawnPart& drawn, std::size_t segment, bool backward) {
  GX2DElement& element = *drawn.part.outer->elements[segment];
  return {drawn.placement.Apply(backward ? element.GetEndPoint() : element.GetStartPoint()),
          drawn.placement.Apply(MiddleOf(element))};
}

// A small arrow on the first segment.
std::string Arrow(const SvgScene& scene, const WalkBegin& begin) {
  const double x = begin.along.X - begin.place.X;
  const double y = begin.along.Y - begin.place.Y;
  const double length = std::hypot(x, y);
  if (!(length > 0.0)) return "";
  constexpr double kArrow = 13.0;
  const double size = std::min(0.5 * length, kArrow / scene.Placing().scale);
  const double alongX = size * x / length;
  const double alongY = size * y / length;
  const GX2DPoint& tip = begin.along;
  const GX2DPoint left(tip.X - alongX - 0.6 * alongY, tip.Y - alongY + 0.6 * alongX);
  const GX2DPoint right(tip.X - alongX + 0.6 * alongY, tip.Y - alongY - 0.6 * alongX);
  return SvgScene::Path("solid green thick", "M " + scene.Placing().At(left) + " L " +
                                                 scene.Placing().At(tip) + " L " +
                                                 scene.Placing().At(right) + " ");
}

std::string StartMark(const SvgScene& scene, const GX2DPoint& place, std::size_t number) {
  return scene.Badge(place, MarkShape::kSquare, "green", "S" + std::to_string(number));
}

std::string Starts(const SvgScene& scene, const DrawnPart& drawn, const ComparisonAccount& account,
                   const ComparisonFindings& findings) {
  const auto& rows = findings.strip.rows;
  const auto first = std::find_if(rows.begin(), rows.end(), [&](const StripRow& row) {
    return SegmentOf(row, drawn.isA) != kNoSegment;
  });
  if (first == rows.end()) return "";
  const bool backward = !drawn.isA && findings.strip.backward;
  const WalkBegin begin = BeginOf(drawn, SegmentOf(*first, drawn.isA), backward);
  std::string marks = Arrow(scene, begin);
  std::size_t number = 1;
  const std::size_t sides = drawn.part.outer->elements.size();
  for (std::size_t i = 0; i < account.comparison.starts.size() && !drawn.isA; ++i) {
    if (i == account.comparison.bestStart) continue;
    if (++number > kMostBadges) break;
    const int position = std::max(account.comparison.starts[i].position, 0);
    const std::size_t side = static_cast<std::size_t>(position) / 2 % sides;
    marks += StartMark(scene, BeginOf(drawn, side, backward).place, number);
  }
  return marks + StartMark(scene, begin.place, 1);
}

// Draws what the other part has alone, in the picture of the part that lacks it.
class GhostPainter {
 public:
  GhostPainter(const SvgScene& scene, const DrawnPart& other, const ComparisonFindings& findings)
      : scene_(scene), other_(other), findings_(findings) {}

  std::string Draw() {
    const ComparisonFindings& found = findings_;
    for (std::size_t i = found.firstShown; i < found.lastShown; ++i) {
      const std::size_t index = SegmentOf(found.strip.rows[i], other_.isA);
      if (index == kNoSegment || !found.strip.rows[i].Alone()) continue;
      GX2DElmList placed;
      AppendPlaced(*other_.part.outer->elements[index], other_.placement, placed);
      Add(placed, scene_.PathData(placed), OutlineKey(i), PlaceOfSegment(other_, index));
    }
    for (const CutOutRow& row : found.cutOuts) {
      const std::size_t index = CutOutOf(row, other_.isA);
      if (index == kNoCutOut || row.standing != CutOutStanding::kAlone) continue;
      GX2DElmList placed;
      AppendAllPlaced(other_.part.cutOuts[index]->elements, other_.placement, placed);
      Add(placed, scene_.ClosedPathData(placed), CutOutKey(row), PlaceOfCutOut(other_, index));
    }
    return ghosts_ + first_;
  }

 private:
  void Add(const GX2DElmList& placed, const std::string& data, const std::string& key,
           const GX2DPoint& place) {
    const bool first = key == findings_.first.key;
    if (placed.empty() || (++count_ > kMostGhosts && !first)) return;
    ghosts_ +=
        SvgScene::Path(GhostClasses(other_.isA) + std::string(first ? " first" : ""), data, key);
    if (!first) return;
    first_ += scene_.Badge(place, MarkShape::kDiamond, other_.isA ? "blue first" : "red first",
                           kFirst, key);
  }

  const SvgScene& scene_;
  const DrawnPart& other_;
  const ComparisonFindings& findings_;
  std::string ghosts_;
  std::string first_;
  std::size_t count_ = 0;
};

Box OuterBox(const PartModel& part) { return part.outer->source->box; }

// The cut-outs of the first difference, those of other shapes in its place included.
void AddFirstCutOuts(const DrawnPart& drawn, const ComparisonFindings& findings,
                     GX2DElmList& placed) {
  for (const CutOutRow& row : findings.cutOuts) {
    const std::size_t index = CutOutOf(row, drawn.isA);
    if (index == kNoCutOut || CutOutKey(row) != findings.first.key) continue;
    AppendAllPlaced(drawn.part.cutOuts[index]->elements, drawn.placement, placed);
  }
}

void AddFirstSegment(const DrawnPart& drawn, const ComparisonFindings& findings,
                     GX2DElmList& placed) {
  const std::size_t index = SegmentOf(findings.strip.rows[findings.first.segmentRow], drawn.isA);
  if (index == kNoSegment) return;
  AppendPlaced(*drawn.part.outer->elements[index], drawn.placement, placed);
}

// What is worth a nearer look.
struct Detail {
  std::string caption;
  Box box;  // In the coordinates of A.
};

// Of outlines that lie apart, the place where they do most: segments that differ in length may be
// long.
bool FindDetail(const GeometricVerdict& own, const DrawnPart& a, const DrawnPart& b,
                const ComparisonFindings& findings, Detail& detail) {
  const bool ofOutline = findings.first.segmentRow != kNoRow;
  if (ofOutline && own.outerDeviation > kPositionLimit) {
    detail.caption = "Farthest apart, " + FixedNumber(own.outerDeviation, 4) + " mm, enlarged";
    const GX2DPoint& p = own.outerPlace;
    detail.box = Grown({p.X, p.Y, p.X, p.Y}, 4.0 * own.outerDeviation);
    return true;
  }
  GX2DElmList placed;
  for (const DrawnPart* drawn : {&a, &b}) {
    if (ofOutline) AddFirstSegment(*drawn, findings, placed);
    if (findings.first.cutOutRow != kNoRow) AddFirstCutOuts(*drawn, findings, placed);
  }
  if (placed.empty()) return false;
  detail.caption = "The first difference, enlarged";
  detail.box = BoxOfAll(placed);
  return true;
}

double SizeOf(const Box& box) { return std::max(box.maxX - box.minX, box.maxY - box.minY); }

// Both parts, A below.
std::string OverlayContent(const SvgScene& scene, const DrawnPart& a, const DrawnPart& b,
                           const ComparisonFindings& findings, const Box* window) {
  PartPainter painterA(scene, a, findings, "solid ink");
  PartPainter painterB(scene, b, findings, "dashed faint");
  const std::string sheet = painterA.Sheet();
  if (window != nullptr) {
    painterA.DrawOnly(*window);
    painterB.DrawOnly(*window);
  }
  return sheet + painterA.Lines() + painterB.Lines();
}

// The frame of the whole picture, made smaller until it just holds the box.
SvgFrame FrameLike(const Box& whole, const Box& box) {
  const SvgFrame frame = FrameAround({whole});
  const double share =
      std::max((box.maxX - box.minX) / frame.width, (box.maxY - box.minY) / frame.height);
  return {share * frame.width, share * frame.height};
}

// Empty where it would enlarge little.
std::string DetailFigure(const GeometricVerdict& own, const DrawnPart& a, const DrawnPart& b,
                         const Box& whole, const ComparisonFindings& findings) {
  Detail detail;
  if (!FindDetail(own, a, b, findings, detail)) return "";
  const double size = std::max(SizeOf(detail.box), 1e-3);
  const Box box = Grown(detail.box, 0.15 * size);
  if (!(SizeOf(whole) > kLeastEnlargement * SizeOf(box))) return "";
  const SvgScene scene(box, FrameLike(whole, box));
  const Box window = Grown(box, 3.0 * size);
  return HtmlFigure(detail.caption, scene.Picture(detail.caption, "detail",
                                                  OverlayContent(scene, a, b, findings, &window)));
}

// Without the folders, which stand on top of the page.
std::string NameOfFile(const std::string& path) {
  const std::size_t slash = path.find_last_of("/\\");
  return slash == std::string::npos ? path : path.substr(slash + 1);
}

std::string SideFigure(const ComparisonAccount& account, const ComparisonFindings& findings,
                       const DrawnPart& drawn, const DrawnPart& other) {
  const SvgFrame frame = FrameAround({OuterBox(account.a), OuterBox(account.b)});
  const SvgScene scene(OuterBox(drawn.part), frame);
  std::set<std::string> hasBadge;
  const PartPainter painter(scene, drawn, findings, "solid ink");
  const std::string content =
      painter.Sheet() + painter.Lines() + GhostPainter(scene, other, findings).Draw() +
      Starts(scene, drawn, account, findings) + Badges(scene, drawn, findings, hasBadge);
  const std::string name = std::string(drawn.isA ? "A: " : "B: ") +
                           NameOfFile(drawn.part.drawing.file) +
                           (!drawn.isA && account.mirrored ? ", turned over" : "");
  return HtmlFigure(name, scene.Picture(name, drawn.isA ? "a" : "b", content));
}

}  // namespace

std::string SideBySideSection(const ComparisonAccount& account,
                              const ComparisonFindings& findings) {
  const Placement stay;
  const DrawnPart a{account.a, true, stay};
  const DrawnPart b{account.b, false, stay};
  const DrawnPart aOnB{account.a, true, Inverse(findings.placement)};
  const DrawnPart bOnA{account.b, false, findings.placement};
  return "<div class=\"side\">\n" + SideFigure(account, findings, a, bOnA) +
         SideFigure(account, findings, b, aOnB) + "</div>\n<ul class=\"legend\">\n" +
         HtmlLegendEntry("solid ink", "equal on both sides") +
         HtmlLegendEntry(DifferenceClasses(true), "differs, A") +
         HtmlLegendEntry(DifferenceClasses(false), "differs, B") +
         HtmlLegendEntry("dotted faint", "missing here, as the other part has it") +
         HtmlLegendEntry("", "1st: the first difference") +
         HtmlLegendEntry("solid green thick", findings.strip.matched
                                                  ? "S1: matched start and direction of the walk"
                                                  : "S1: where the outlines are put side by side") +
         "</ul>\n";
}

std::string OverlaySection(const ComparisonAccount& account, const ComparisonFindings& findings) {
  const DrawnPart a{account.a, true, {}};
  const DrawnPart b{account.b, false, findings.placement};
  GX2DElmList placed;
  AppendAllPlaced(account.b.outer->elements, b.placement, placed);
  const Box whole = Joined(OuterBox(account.a), BoxOfAll(placed));
  const SvgScene scene(whole);
  std::set<std::string> hasBadge;
  const std::string content = OverlayContent(scene, a, b, findings, nullptr) +
                              Badges(scene, a, findings, hasBadge) +
                              Badges(scene, b, findings, hasBadge);
  const std::string detail = DetailFigure(account.own, a, b, whole, findings);
  // Alone, the picture need not be as wide as the page.
  const char* const narrow = detail.empty() ? " style=\"max-width: 50rem\"" : "";
  return "<h2>B laid on A</h2>\n<div class=\"side\"" + std::string(narrow) + ">\n" +
         HtmlFigure("Both parts", scene.Picture("B laid on A", "overlay", content)) + detail +
         "</div>\n<ul class=\"legend\">\n" + HtmlLegendEntry("solid ink", "A") +
         HtmlLegendEntry("dashed faint", "B") +
         HtmlLegendEntry(DifferenceClasses(true), "A where it differs") +
         HtmlLegendEntry(DifferenceClasses(false), "B where it differs") + "</ul>\n";
}

}  // namespace drawing
