// Drawings as they come: polygons in loose lines, shuffled, turned round, partly drawn twice, and
// with gaps where asked for.
#pragma once

#include "drawing/Drawing.h"

#include <KTRCL_Geometry/elements/GX2DElements.h>

#include <cmath>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <random>
#include <utility>
#include <vector>

namespace benchmarks {

/// Numbers that are the same with every standard library.
class Numbers {
 public:
  std::size_t Below(std::size_t limit) { return static_cast<std::size_t>(engine_() % limit); }

 private:
  std::mt19937_64 engine_{20240229};
};

/// One end of each line is moved away from the corner by this share of the lines.
inline constexpr std::size_t kGapEvery = 20;
/// One line of so many is drawn twice.
inline constexpr std::size_t kTwiceEvery = 10;

/// Polygons of ten sides, 20 mm across, in a square grid with 30 mm from centre to centre, until
/// there are `count` lines, the doubled ones included.
inline drawing::Drawing LooseLines(std::size_t count, double gap) {
  constexpr std::size_t kSides = 10;
  constexpr double kTurn = 0.62831853071795865;  // A tenth of a full turn.
  const std::size_t columns =
      static_cast<std::size_t>(std::ceil(std::sqrt(static_cast<double>(count) / kSides)));
  std::vector<std::unique_ptr<GX2DLine>> lines;
  Numbers numbers;
  for (std::size_t polygon = 0; lines.size() < count; ++polygon) {
    const double x = 30.0 * static_cast<double>(polygon % columns);
    const double y = 30.0 * static_cast<double>(polygon / columns);
    const auto corner = [&](std::size_t i) {
      const double angle = kTurn * static_cast<double>(i % kSides) + 0.1;
      return GX2DPoint(x + 10.0 * std::cos(angle), y + 10.0 * std::sin(angle));
    };
    for (std::size_t i = 0; i < kSides && lines.size() < count; ++i) {
      GX2DPoint p = corner(i);
      const GX2DPoint q = corner(i + 1);
      if (gap > 0.0 && lines.size() % kGapEvery == 0) {
        const double share = gap / std::hypot(q.X - p.X, q.Y - p.Y);
        p = GX2DPoint(p.X + share * (q.X - p.X), p.Y + share * (q.Y - p.Y));
      }
      const std::size_t copies = lines.size() % kTwiceEvery == 0 ? 2 : 1;
      for (std::size_t copy = 0; copy < copies && lines.size() < count; ++copy) {
        const bool turned = numbers.Below(2) == 1;
        const GX2DPoint& from = turned ? q : p;
        const GX2DPoint& to = turned ? p : q;
        lines.push_back(std::make_unique<GX2DLine>(from.X, from.Y, to.X, to.Y));
      }
    }
  }
  for (std::size_t i = lines.size(); i > 1; --i) std::swap(lines[i - 1], lines[numbers.Below(i)]);
  drawing::Drawing drawing;
  drawing.usable = true;
  drawing.file = "loose.dxf";
  for (std::unique_ptr<GX2DLine>& line : lines) {
    drawing::DrawnEntity entity;
    entity.type = "LINE";
    entity.layer = "CUT";
    entity.linetype = "BYLAYER";
    entity.line = 10 * drawing.entities.size() + 1;
    drawing.elements.push_back({std::move(line), drawing.entities.size()});
    drawing.entities.push_back(std::move(entity));
  }
  return drawing;
}

}  // namespace benchmarks
