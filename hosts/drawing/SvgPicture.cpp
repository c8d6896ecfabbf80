// Both parts share one scale.
#include "drawing/SvgPicture.h"

#include "drawing/ComparisonMarks.h"
#include "drawing/SvgScene.h"

#include <algorithm>
#include <cstdio>

namespace drawing {

namespace {

constexpr double kPanelWidth = 560.0;
constexpr double kPanelHeight = 440.0;
constexpr double kMargin = 30.0;
constexpr double kTop = 100.0;
constexpr double kBottom = 60.0;

std::string Escaped(const std::string& text) {
  std::string result;
  for (const char c : text) {
    switch (c) {
      case '&':
        result += "&amp;";
        break;
      case '<':
        result += "&lt;";
        break;
      case '>':
        result += "&gt;";
        break;
      case '"':
        result += "&quot;";
        break;
      default:
        // The document is plain ASCII, so that any file name gives a valid one.
        result += c >= ' ' && c <= '~' ? c : '?';
    }
  }
  return result;
}

std::string Text(double x, double y, const char* style, const std::string& text) {
  char head[120];
  std::snprintf(head, sizeof head, "<text x=\"%.1f\" y=\"%.1f\" class=\"%s\">", x, y, style);
  return head + Escaped(text) + "</text>\n";
}

// The verdict in lines that fit the width; words are not broken.
std::string Title(const std::string& verdict) {
  constexpr std::size_t kLettersPerLine = 112;
  std::string text;
  double y = 24.0;
  std::size_t begin = 0;
  while (begin < verdict.size()) {
    std::size_t end = verdict.size();
    if (end - begin > kLettersPerLine) {
      const std::size_t blank = verdict.rfind(' ', begin + kLettersPerLine);
      end = blank == std::string::npos || blank <= begin ? begin + kLettersPerLine : blank;
    }
    text += Text(kMargin, y, "title", verdict.substr(begin, end - begin));
    begin = end < verdict.size() && verdict[end] == ' ' ? end + 1 : end;
    y += 20.0;
  }
  return text;
}

std::string PathOf(const SvgPlacing& frame, const GX2DElmList& elements) {
  if (elements.empty()) return "";
  std::string path = "M " + frame.At(elements.front()->GetStartPoint()) + " ";
  for (GX2DElement* element : elements) path += SvgStrokeTo(frame, *element);
  return path + "Z ";
}

std::string Stroke(const std::string& path, bool differs) {
  return std::string("<path class=\"") + (differs ? "differs" : "same") + "\" d=\"" + path +
         "\"/>\n";
}

std::string Dot(const SvgPlacing& frame, const GX2DPoint& p, bool filled) {
  const std::string at = frame.At(p);
  const std::size_t blank = at.find(' ');
  return "<circle class=\"" + std::string(filled ? "start" : "other-start") + "\" cx=\"" +
         at.substr(0, blank) + "\" cy=\"" + at.substr(blank + 1) + "\" r=\"5\"/>\n";
}

const GX2DPoint& StartOf(const PartModel& part, int position, bool walkedBackward) {
  const auto count = part.outer->elements.size();
  const auto index = static_cast<std::size_t>(std::max(position, 0) / 2) % count;
  GX2DElement& element = *part.outer->elements[index];
  return walkedBackward ? element.GetEndPoint() : element.GetStartPoint();
}

std::string StartDots(const SvgPlacing& frame, const PartModel& part, const Comparison& comparison,
                      bool reference) {
  if (comparison.starts.empty()) return Dot(frame, StartOf(part, 0, false), true);
  if (reference) {
    return Dot(frame, StartOf(part, comparison.referencePosition, false), true);
  }
  const bool backward = comparison.sense == GXLAContour::eGeometryBackward;
  std::string dots;
  for (std::size_t i = 0; i < comparison.starts.size(); ++i) {
    if (i == comparison.bestStart) continue;
    dots += Dot(frame, StartOf(part, comparison.starts[i].position, backward), false);
  }
  const int best = comparison.starts[comparison.bestStart].position;
  return dots + Dot(frame, StartOf(part, best, backward), true);
}

std::string PartPicture(const SvgPlacing& frame, const PartModel& part, const Marks& marks) {
  std::string sheet = PathOf(frame, part.outer->elements);
  for (const auto& cutOut : part.cutOuts) sheet += PathOf(frame, cutOut->elements);
  std::string text = "<path class=\"sheet\" d=\"" + sheet + "\"/>\n";
  if (marks.segments.empty()) {
    text += Stroke(PathOf(frame, part.outer->elements), false);
  } else {
    for (std::size_t i = 0; i < part.outer->elements.size(); ++i) {
      GX2DElement& element = *part.outer->elements[i];
      text += Stroke("M " + frame.At(element.GetStartPoint()) + " " + SvgStrokeTo(frame, element),
                     marks.segments[i]);
    }
  }
  for (std::size_t i = 0; i < part.cutOuts.size(); ++i) {
    text += Stroke(PathOf(frame, part.cutOuts[i]->elements), marks.cutOuts.count(i) > 0);
  }
  return text;
}

double Scale(const PartModel& a, const PartModel& b) {
  double scale = 1e6;
  for (const PartModel* part : {&a, &b}) {
    const Box& box = part->outer->source->box;
    const double width = std::max(box.maxX - box.minX, 1e-6);
    const double height = std::max(box.maxY - box.minY, 1e-6);
    scale = std::min(
        {scale, (kPanelWidth - 2.0 * kMargin) / width, (kPanelHeight - 2.0 * kMargin) / height});
  }
  return scale;
}

SvgPlacing PanelFrame(const PartModel& part, double panelLeft, double scale) {
  const Box& box = part.outer->source->box;
  SvgPlacing frame;
  frame.fixedDecimals = true;
  frame.scale = scale;
  frame.minX = box.minX;
  frame.maxY = box.maxY;
  frame.left = panelLeft + 0.5 * (kPanelWidth - (box.maxX - box.minX) * scale);
  frame.top = kTop + 0.5 * (kPanelHeight - (box.maxY - box.minY) * scale);
  return frame;
}

std::string Head() {
  char text[400];
  std::snprintf(text, sizeof text,
                "<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"%.0f\" height=\"%.0f\" "
                "viewBox=\"0 0 %.0f %.0f\">\n",
                2.0 * kPanelWidth, kTop + kPanelHeight + kBottom, 2.0 * kPanelWidth,
                kTop + kPanelHeight + kBottom);
  return text + std::string(
                    "<style>\n"
                    "text { font-family: sans-serif; fill: #223; }\n"
                    ".title { font-size: 16px; font-weight: bold; }\n"
                    ".name { font-size: 14px; text-anchor: middle; }\n"
                    ".legend { font-size: 13px; }\n"
                    ".sheet { fill: #e4e9ee; fill-rule: evenodd; stroke: none; }\n"
                    ".same { fill: none; stroke: #2c4a66; stroke-width: 1.6; }\n"
                    ".differs { fill: none; stroke: #d2401f; stroke-width: 2.6; "
                    "stroke-dasharray: 7 4; }\n"
                    ".start { fill: #128a4a; stroke: none; }\n"
                    ".other-start { fill: #ffffff; stroke: #128a4a; stroke-width: 2; }\n"
                    "</style>\n<rect width=\"100%\" height=\"100%\" fill=\"#ffffff\"/>\n");
}

std::string Legend() {
  const double y = kTop + kPanelHeight + 34.0;
  char text[900];
  std::snprintf(
      text, sizeof text,
      "<path class=\"same\" d=\"M 30 %.1f L 70 %.1f\"/>\n<text x=\"78\" y=\"%.1f\" "
      "class=\"legend\">equal on both sides</text>\n<path class=\"differs\" d=\"M 240 %.1f L 280 "
      "%.1f\"/>\n<text x=\"288\" y=\"%.1f\" class=\"legend\">without an equal on the other "
      "side</text>\n<circle class=\"start\" cx=\"570\" cy=\"%.1f\" r=\"5\"/>\n<text x=\"582\" "
      "y=\"%.1f\" class=\"legend\">start point</text>\n<circle class=\"other-start\" cx=\"690\" "
      "cy=\"%.1f\" r=\"5\"/>\n<text x=\"702\" y=\"%.1f\" class=\"legend\">other matched start "
      "points</text>\n",
      y - 4.0, y - 4.0, y, y - 4.0, y - 4.0, y, y - 4.0, y, y - 4.0, y);
  return text;
}

}  // namespace

std::string ComparisonSvg(const PartModel& a, const PartModel& b, const Comparison& comparison) {
  Marks marksA;
  Marks marksB;
  MarkDifferences(a, b, comparison, marksA, marksB);
  const double scale = Scale(a, b);
  const SvgPlacing frameA = PanelFrame(a, 0.0, scale);
  const SvgPlacing frameB = PanelFrame(b, kPanelWidth, scale);
  std::string text = Head();
  text += Title(comparison.verdict);
  text += Text(0.5 * kPanelWidth, 90.0, "name", "A  " + a.drawing.file);
  text += Text(1.5 * kPanelWidth, 90.0, "name", "B  " + b.drawing.file);
  text += PartPicture(frameA, a, marksA) + StartDots(frameA, a, comparison, true);
  text += PartPicture(frameB, b, marksB) + StartDots(frameB, b, comparison, false);
  return text + Legend() + "</svg>\n";
}

}  // namespace drawing
