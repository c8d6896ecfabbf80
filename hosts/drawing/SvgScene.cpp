// Drawing coordinates have y upward, the picture has it downward, so a counter-clockwise arc has
// the sweep flag 0.
#include "drawing/SvgScene.h"

#include "drawing/CurveMeasures.h"
#include "drawing/HtmlPage.h"
#include "drawing/NumberText.h"

#include <algorithm>
#include <cmath>

namespace drawing {

namespace {

// A half turn is not large, to whichever side of it the ends of the arc were rounded.
constexpr double kLargeSweep = 3.141592653589793 + 1e-5;

// A millionth of the frame: at a zoom of a thousand a step is one pixel.
constexpr int kDecimals = 3;
constexpr double kFrameSize = 1000.0;
constexpr double kMargin = 70.0;
constexpr double kLeastExtent = 1e-6;

// Width by height of a frame stays between these.
constexpr double kLeastAspect = 1.0;
constexpr double kMostAspect = 2.2;

std::string Number(double value, bool fixedDecimals) {
  std::string text = FixedNumber(std::isfinite(value) ? value : 0.0, kDecimals);
  if (fixedDecimals) return text;
  text.erase(text.find_last_not_of('0') + 1);
  if (text.back() == '.') text.pop_back();
  return text;
}

std::string HalfTurn(const SvgPlacing& placing, const std::string& radius, bool clockwise,
                     const GX2DPoint& end) {
  return "A " + radius + " " + radius + " 0 0 " + (clockwise ? "1 " : "0 ") + placing.At(end) + " ";
}

std::string ArcTo(const SvgPlacing& placing, const GX2DArc& arc, bool backward) {
  const double radius = arc.Radius();
  const std::string length = placing.Length(radius);
  const bool clockwise = arc.IsClockwise() != backward;
  const bool large = ElementLength(arc) > kLargeSweep * radius;
  const bool round = arc.IsCircle();
  const GX2DPoint& end = round || backward ? arc.Start : arc.End;
  // Between two equal places an arc command draws nothing.
  if (round || (large && placing.At(arc.Start) == placing.At(arc.End))) {
    const GX2DPoint opposite(2.0 * arc.Center.X - arc.Start.X, 2.0 * arc.Center.Y - arc.Start.Y);
    return HalfTurn(placing, length, clockwise, opposite) +
           HalfTurn(placing, length, clockwise, end);
  }
  return "A " + length + " " + length + (large ? " 0 1 " : " 0 0 ") + (clockwise ? "1 " : "0 ") +
         placing.At(end) + " ";
}

double Extent(double low, double high) {
  const double extent = high - low;
  return std::isfinite(extent) ? std::max(extent, kLeastExtent) : kLeastExtent;
}

std::string Attribute(const char* name, std::string_view value) {
  if (value.empty()) return "";
  return std::string(" ") + name + "=\"" + HtmlText(value) + "\"";
}

// The outline of a mark around the origin, in pixels; `half` is half of its height, `reach` half of
// its width.
std::string Outline(MarkShape shape, double reach, double half) {
  const std::string w = ShortNumber(reach);
  const std::string h = ShortNumber(half);
  if (shape == MarkShape::kDiamond) {
    const std::string tip = ShortNumber(reach + 0.5 * half);
    return "<path d=\"M-" + tip + " 0L-" + w + " -" + h + "H" + w + "L" + tip + " 0L" + w + " " +
           h + "H-" + w + "Z\"/>";
  }
  const std::string round = shape == MarkShape::kRound ? " rx=\"" + h + "\"" : "";
  return "<rect x=\"-" + w + "\" y=\"-" + h + "\" width=\"" + ShortNumber(2.0 * reach) +
         "\" height=\"" + ShortNumber(2.0 * half) + "\"" + round + "/>";
}

std::size_t CharactersIn(std::string_view text) {
  return static_cast<std::size_t>(std::count_if(text.begin(), text.end(), [](char c) {
    return (static_cast<unsigned char>(c) & 0xC0U) != 0x80U;
  }));
}

}  // namespace

std::string SvgPlacing::At(const GX2DPoint& p) const {
  return Number(left + (p.X - minX) * scale, fixedDecimals) + " " +
         Number(top + (maxY - p.Y) * scale, fixedDecimals);
}

std::string SvgPlacing::Length(double millimetres) const {
  return Number(millimetres * scale, fixedDecimals);
}

std::string SvgStrokeTo(const SvgPlacing& placing, GX2DElement& element, bool backward) {
  const auto* arc = dynamic_cast<const GX2DArc*>(&element);
  if (arc != nullptr) return ArcTo(placing, *arc, backward);
  return "L " + placing.At(backward ? element.GetStartPoint() : element.GetEndPoint()) + " ";
}

SvgFrame FrameAround(const std::vector<Box>& boxes) {
  SvgFrame frame{kLeastExtent, kLeastExtent};
  for (const Box& box : boxes) {
    frame.width = std::max(frame.width, Extent(box.minX, box.maxX));
    frame.height = std::max(frame.height, Extent(box.minY, box.maxY));
  }
  frame.width = std::max(frame.width, kLeastAspect * frame.height);
  frame.height = std::max(frame.height, frame.width / kMostAspect);
  return frame;
}

Box Joined(const Box& p, const Box& q) {
  return {std::min(p.minX, q.minX), std::min(p.minY, q.minY), std::max(p.maxX, q.maxX),
          std::max(p.maxY, q.maxY)};
}

Box BoxOfAll(const GX2DElmList& elements) {
  Box box;
  bool first = true;
  for (GX2DElement* element : elements) {
    box = first ? BoxOf(*element) : Joined(box, BoxOf(*element));
    first = false;
  }
  return box;
}

SvgScene::SvgScene(const Box& box, const SvgFrame& frame) {
  const double width = std::max(frame.width, kLeastExtent);
  const double height = std::max(frame.height, kLeastExtent);
  placing_.scale = kFrameSize / std::max(width, height);
  width_ = width * placing_.scale + 2.0 * kMargin;
  height_ = height * placing_.scale + 2.0 * kMargin;
  placing_.minX = box.minX;
  placing_.maxY = box.maxY;
  placing_.left = 0.5 * (width_ - Extent(box.minX, box.maxX) * placing_.scale);
  placing_.top = 0.5 * (height_ - Extent(box.minY, box.maxY) * placing_.scale);
}

SvgScene::SvgScene(const Box& box) : SvgScene(box, FrameAround({box})) {}

const SvgPlacing& SvgScene::Placing() const { return placing_; }

std::string SvgScene::PathData(GX2DElement& element) const {
  return "M " + placing_.At(element.GetStartPoint()) + " " + SvgStrokeTo(placing_, element);
}

std::string SvgScene::PathData(const GX2DElmList& elements) const {
  std::string data;
  std::string pen;
  for (GX2DElement* element : elements) {
    const std::string start = placing_.At(element->GetStartPoint());
    if (start != pen) data += "M " + start + " ";
    data += SvgStrokeTo(placing_, *element);
    pen = placing_.At(element->GetEndPoint());
  }
  return data;
}

std::string SvgScene::ClosedPathData(const GX2DElmList& elements) const {
  const std::string data = PathData(elements);
  return data.empty() ? data : data + "Z ";
}

std::string SvgScene::Path(std::string_view classes, std::string_view data, std::string_view mark) {
  if (data.empty()) return "";
  std::string path = "<path" + Attribute("class", classes) + Attribute("data-mark", mark) + " d=\"";
  path += data.substr(0, data.find_last_not_of(' ') + 1);
  return path + "\"/>\n";
}

std::string SvgScene::DotData(const GX2DPoint& place) const {
  // A stroke without any length is left out by some printers.
  return "M " + placing_.At(place) + " h 0.01 ";
}

std::string SvgScene::Group(const GX2DPoint& place, std::string_view classes, std::string_view mark,
                            std::string_view content) const {
  std::string group = "<g" + Attribute("class", classes) + Attribute("data-mark", mark) +
                      " transform=\"translate(" + placing_.At(place) + ")\"><g class=\"size\">";
  group += content;
  return group + "</g></g>\n";
}

std::string SvgScene::Badge(const GX2DPoint& place, MarkShape shape, std::string_view colour,
                            std::string_view text, std::string_view mark) const {
  constexpr double kHalfHeight = 8.0;
  constexpr double kLetter = 3.4;
  const double reach =
      std::max(kHalfHeight, 4.0 + kLetter * static_cast<double>(CharactersIn(text)));
  const bool right = placing_.left + (place.X - placing_.minX) * placing_.scale >= 0.5 * width_;
  const bool below = placing_.top + (placing_.maxY - place.Y) * placing_.scale >= 0.5 * height_;
  const std::string x = ShortNumber((right ? 1.0 : -1.0) * (4.0 + 0.5 * reach));
  const std::string y = below ? "17" : "-17";
  std::string content = "<path class=\"lead-line\" d=\"M0 0L" + x + " " + y +
                        "\"/><circle class=\"pin\" r=\"2.5\"/><g transform=\"translate(" + x + " " +
                        y + ")\">" + Outline(shape, reach, kHalfHeight) + "<text y=\"4\">" +
                        HtmlText(text) + "</text></g>";
  return Group(place, "badge " + std::string(colour), mark, content);
}

std::string SvgScene::Pin(const GX2DPoint& place, MarkShape shape, std::string_view colour,
                          std::string_view mark) const {
  constexpr double kHalf = 4.0;
  const double reach = shape == MarkShape::kDiamond ? 0.0 : kHalf;
  const double half = shape == MarkShape::kDiamond ? 5.0 : kHalf;
  std::string outline = Outline(shape, reach, half);
  if (shape == MarkShape::kDiamond) outline = "<path d=\"M-5 0L0 -5L5 0L0 5Z\"/>";
  return Group(place, "badge " + std::string(colour), mark, "<g class=\"pin\">" + outline + "</g>");
}

std::string SvgScene::Spot(const GX2DPoint& place, std::string_view mark) const {
  return Group(place, "spot", mark, "<circle r=\"11\"/><circle class=\"pin\" r=\"1\"/>");
}

std::string SvgScene::Picture(std::string_view label, std::string_view view,
                              std::string_view content) const {
  const std::string width = Number(width_, false);
  std::string svg = "<svg class=\"picture\" viewBox=\"0 0 " + width + " " + Number(height_, false) +
                    "\" style=\"--w:" + width + "\" role=\"group\"" +
                    Attribute("aria-label", label) + Attribute("data-view", view) + ">\n";
  svg += content;
  return svg + "</svg>\n";
}

}  // namespace drawing
