#include "drawing/ComparisonReportSections.h"
#include "drawing/HtmlPage.h"
#include "drawing/NumberText.h"
#include "drawing/Report.h"
#include "drawing/SvgScene.h"

#include <algorithm>
#include <cstddef>
#include <string>
#include <vector>

namespace drawing {

namespace {

// The band is drawn in a plane of its own, lengths to the right, A above B.
constexpr double kBandWidth = 1000.0;
constexpr double kBandHeight = 60.0;
constexpr double kBulge = 16.0;

// Segments of no length would not be seen.
constexpr double kLeastWidth = 3.0;

// One at which no line is broken.
constexpr const char* kBlank = "\xC2\xA0";

double LengthOf(const std::vector<OutlineSegment>& segments, std::size_t index) {
  return index == kNoSegment ? 0.0 : segments[index].length;
}

// A segment of the band from its left end on: a line is straight, an arc bends the way it bulges.
std::string BandData(const SvgScene& scene, const OutlineSegment& segment, double x, double width,
                     double y) {
  const SvgPlacing& placing = scene.Placing();
  const double bend = segment.radius < 0.0 ? -kBulge : kBulge;
  std::string data = "M " + placing.At({x, y}) + " ";
  if (segment.isArc) data += "Q " + placing.At({x + 0.5 * width, y + bend}) + " ";
  return data + (segment.isArc ? "" : "L ") + placing.At({x + width, y}) + " ";
}

std::string Tick(const SvgScene& scene, double x, double y) {
  return "M " + scene.Placing().At({x, y - 4.0}) + " L " + scene.Placing().At({x, y + 4.0}) + " ";
}

// Draws the shown rows one behind the other.
class BandPainter {
 public:
  BandPainter(const SvgScene& scene, const ComparisonFindings& findings)
      : scene_(scene), findings_(findings) {}

  std::string Draw() {
    double total = 0.0;
    for (std::size_t i = findings_.firstShown; i < findings_.lastShown; ++i) total += WidthOf(i);
    const std::size_t count = findings_.lastShown - findings_.firstShown;
    const double least = std::min(kLeastWidth, kBandWidth / static_cast<double>(count + 1));
    const double forLengths = kBandWidth - least * static_cast<double>(count);
    scale_ = total > 0.0 ? forLengths / total : 0.0;
    double x = 0.0;
    for (std::size_t i = findings_.firstShown; i < findings_.lastShown; ++i) {
      const double width = least + scale_ * WidthOf(i);
      if (i == findings_.first.segmentRow) middleOfFirst_ = x + 0.5 * width;
      Add(i, true, x, least);
      Add(i, false, x, least);
      x += width;
    }
    return SvgScene::Path("solid faint thin", ticks_) + below_ + above_;
  }

  // Of the row that is the first difference, where it has been drawn.
  std::string FirstBadge() const {
    if (findings_.first.segmentRow == kNoRow) return "";
    return scene_.Badge({middleOfFirst_, kBandHeight}, MarkShape::kDiamond, "blue first", "1st",
                        findings_.first.key);
  }

 private:
  double WidthOf(std::size_t i) const {
    const StripRow& row = findings_.strip.rows[i];
    return std::max(LengthOf(findings_.strip.a, row.a), LengthOf(findings_.strip.b, row.b));
  }

  void Add(std::size_t i, bool ofA, double x, double least) {
    const StripRow& row = findings_.strip.rows[i];
    const std::size_t index = ofA ? row.a : row.b;
    if (index == kNoSegment) return;
    const OutlineSegment& segment = (ofA ? findings_.strip.a : findings_.strip.b)[index];
    const double y = ofA ? kBandHeight : 0.0;
    const bool marked = IsMarked(findings_, row);
    std::string classes = "solid ink";
    if (marked) classes = ofA ? "solid blue thick" : "dashed red thick";
    if (OutlineKey(i) == findings_.first.key) classes += " first";
    ticks_ += Tick(scene_, x, y);
    (marked ? above_ : below_) += SvgScene::Path(
        classes, BandData(scene_, segment, x, least + scale_ * segment.length, y), OutlineKey(i));
  }

  const SvgScene& scene_;
  const ComparisonFindings& findings_;
  double scale_ = 0.0;
  double middleOfFirst_ = 0.0;
  std::string ticks_;
  std::string below_;
  std::string above_;
};

std::string Band(const ComparisonFindings& findings) {
  const Box box{0.0, 0.0, kBandWidth, kBandHeight};
  const SvgScene scene(box, {kBandWidth, kBandHeight});
  BandPainter painter(scene, findings);
  std::string content = painter.Draw();
  content += scene.Badge({0.0, kBandHeight}, MarkShape::kSquare, "green", "A") +
             scene.Badge({0.0, 0.0}, MarkShape::kSquare, "green", "B") + painter.FirstBadge();
  return HtmlFigure("Segment by segment, A above B",
                    scene.Picture("Lengths of both outlines", "band", content));
}

std::string KindText(const std::vector<OutlineSegment>& segments, std::size_t index) {
  if (index == kNoSegment) return "\xE2\x80\x93";  // An en dash: none.
  const OutlineSegment& segment = segments[index];
  if (!segment.isArc) return "line";
  const bool inward = segment.radius < 0.0;
  return std::string("arc") + kBlank + "R" +
         ShortNumber(inward ? -segment.radius : segment.radius) +
         (inward ? std::string(kBlank) + "inward" : "");
}

std::string LengthText(const std::vector<OutlineSegment>& segments, std::size_t index) {
  return index == kNoSegment ? "" : Millimetres(segments[index].length);
}

std::string AngleText(std::size_t index, double angle) {
  constexpr int kDecimals = 3;
  return index == kNoSegment ? "" : FixedNumber(InnerDegrees(angle), kDecimals);
}

std::string WordsOf(const StripRow& row) {
  if (row.Alone()) return row.a == kNoSegment ? "only in B" : "only in A";
  std::string words;
  const auto add = [&words](bool differs, const char* word) {
    if (differs) words += (words.empty() ? "" : ", ") + std::string(word);
  };
  add(row.kindDiffers, "kind");
  add(row.lengthDiffers, "length");
  add(row.angleDiffers, "angle");
  add(row.radiusDiffers, "radius");
  return words.empty() ? words
                       : words + (words.find(',') == std::string::npos ? " differs" : " differ");
}

std::string Table(const ComparisonFindings& findings) {
  const OutlineStrip& strip = findings.strip;
  HtmlTable table("rlrlrrrrl",
                  {"", "A", "length A", "B", "length B", "difference", "angle A", "angle B", ""});
  for (std::size_t i = findings.firstShown; i < findings.lastShown; ++i) {
    const StripRow& row = strip.rows[i];
    const bool first = i == findings.first.segmentRow;
    std::string words = WordsOf(row);
    if (first) words.insert(0, words.empty() ? "first difference" : "first difference: ");
    const std::string difference =
        row.Alone() ? "" : Millimetres(strip.a[row.a].length - strip.b[row.b].length);
    table.Row({std::to_string(i + 1), KindText(strip.a, row.a), LengthText(strip.a, row.a),
               KindText(strip.b, row.b), LengthText(strip.b, row.b), difference,
               AngleText(row.a, row.angleA), AngleText(row.b, row.angleB), words},
              OutlineKey(i),
              first                     ? "loud first"
              : IsMarked(findings, row) ? "loud"
                                        : "");
  }
  return table.Html();
}

std::string Introduction(const OutlineStrip& strip) {
  std::string text = strip.matched
                         ? "From the start that the library matched and that fits best"
                         : "Without a matched start, side by side where most segments agree";
  text += strip.backward ? ", B walked against the direction in which it is drawn. " : ". ";
  return text +
         "Lengths in millimetres, angles in degrees on the inner side, between a segment and the "
         "next one of the walk.";
}

}  // namespace

std::string StripSection(const ComparisonFindings& findings) {
  const std::size_t rows = findings.strip.rows.size();
  std::string section = "<h2>Lengths and angles of the outlines</h2>\n";
  if (rows == 0) return section + "<p>There are none.</p>\n";
  section += Band(findings) + "<p class=\"quiet\">" + HtmlText(Introduction(findings.strip));
  if (findings.lastShown - findings.firstShown < rows) {
    section += " Of " + std::to_string(rows) + " rows, " + std::to_string(findings.firstShown + 1) +
               " to " + std::to_string(findings.lastShown) + " are shown.";
  }
  return section + "</p>\n" + Table(findings);
}

}  // namespace drawing
