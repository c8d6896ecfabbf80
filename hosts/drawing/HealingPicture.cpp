#include "drawing/HealingPicture.h"

#include "drawing/DrawnChains.h"
#include "drawing/HtmlPage.h"
#include "drawing/NumberText.h"
#include "drawing/SvgScene.h"

#include <algorithm>
#include <cmath>
#include <map>
#include <utility>

namespace drawing {

namespace {

// Badges nearer to each other than this, in units of the picture, would lie on one another.
constexpr double kBadgeDistance = 44.0;

// More badges, or pins, than this cover the drawing.
constexpr std::size_t kMostBadges = 120;
constexpr std::size_t kMostPins = 300;

constexpr const char* kView = "drawing";

// Drawings of more chains than this are drawn in many paths: a browser works through a whole path
// for every patch of the picture, and leaves out only paths that lie elsewhere.
constexpr std::size_t kMostChainsInPath = 400;

// Of the picture, in units.
constexpr double kPatch = 80.0;

// Strokes of one style, by the patch in which they begin.
using Patches = std::map<std::pair<double, double>, std::string>;

// The paths of one picture by the kind of network.
struct Strokes {
  std::string area;
  Patches closed;
  Patches open;
  Patches branching;
  std::string specks;
};

std::pair<double, double> PatchOf(const SvgScene& scene, const Drawing& drawing,
                                  const DrawnChain& chain) {
  const double size = kPatch / scene.Placing().scale;
  const GX2DPoint& p = drawing.elements[chain.strokes.front().element].element->GetStartPoint();
  if (!std::isfinite(p.X) || !std::isfinite(p.Y)) return {0.0, 0.0};
  return {std::floor(p.X / size), std::floor(p.Y / size)};
}

Strokes StrokesOf(const SvgScene& scene, const Drawing& drawing,
                  const std::vector<Network>& networks) {
  Strokes strokes;
  const std::vector<DrawnChain> chains = ChainsOf(drawing, networks);
  for (const DrawnChain& chain : chains) {
    const std::string data = ChainPathData(scene, drawing, chain);
    const bool closed = chain.kind == NetworkKind::kClosed;
    Patches& patches = closed                             ? strokes.closed
                       : chain.kind == NetworkKind::kOpen ? strokes.open
                                                          : strokes.branching;
    const bool patched = chains.size() > kMostChainsInPath;
    patches[patched ? PatchOf(scene, drawing, chain) : std::make_pair(0.0, 0.0)] += data;
    // Holes are holes only within one path.
    if (closed) strokes.area += data;
  }
  for (const Network& network : networks) {
    if (network.kind != NetworkKind::kSpeck) continue;
    GX2DElement& element = *drawing.elements[network.elements.front()].element;
    strokes.specks += scene.DotData(element.GetStartPoint());
  }
  return strokes;
}

std::string Paths(const char* classes, const Patches& patches) {
  std::string paths;
  for (const auto& patch : patches) paths += SvgScene::Path(classes, patch.second);
  return paths;
}

std::string Drawn(const Strokes& strokes) {
  return SvgScene::Path("sheet", strokes.area) + Paths("solid ink", strokes.closed) +
         Paths("dotted purple", strokes.branching) + Paths("dashed red", strokes.open) +
         SvgScene::Path("dots faint", strokes.specks);
}

// What was taken away, each with its mark as far as the table goes.
std::string Removed(const SvgScene& scene, const Drawing& asRead,
                    const std::vector<Change>& changes) {
  std::string paths;
  std::string rest;
  for (std::size_t i = 0; i < changes.size(); ++i) {
    const Change& change = changes[i];
    if (change.kind != ChangeKind::kDuplicateRemoved &&
        change.kind != ChangeKind::kContainedRemoved) {
      continue;
    }
    for (std::size_t k = 1; k < change.elements.size(); ++k) {
      const std::size_t element = change.elements[k];
      if (element >= asRead.elements.size()) continue;
      const std::string data = scene.PathData(*asRead.elements[element].element);
      if (i < kMostRows) {
        paths += SvgScene::Path("dashdot blue thick", data, ChangeKey(i + 1));
      } else {
        rest += data;
      }
    }
  }
  return SvgScene::Path("dashdot blue thick", rest) + paths;
}

// Loose ends of one badge.
struct Cluster {
  GX2DPoint place;
  std::vector<std::size_t> numbers;
};

// Each loose end joins the first badge that is near, or begins one of its own. Those before stand
// in cells of the same size, so that only nine have to be looked at.
class Clusters {
 public:
  explicit Clusters(double distance) : distance_(distance) {}

  void Add(const GX2DPoint& p, std::size_t number) {
    const Cell cell{std::floor(p.X / distance_), std::floor(p.Y / distance_)};
    if (!std::isfinite(cell.first) || !std::isfinite(cell.second)) return;
    const std::size_t near = FindNear(p, cell);
    if (near < clusters_.size()) {
      clusters_[near].numbers.push_back(number);
      return;
    }
    cells_.emplace(cell, clusters_.size());
    clusters_.push_back({p, {number}});
  }

  const std::vector<Cluster>& All() const { return clusters_; }

 private:
  using Cell = std::pair<double, double>;

  std::size_t FindNear(const GX2DPoint& p, const Cell& cell) const {
    std::size_t near = clusters_.size();
    for (const double dx : {-1.0, 0.0, 1.0}) {
      for (const double dy : {-1.0, 0.0, 1.0}) {
        const auto range = cells_.equal_range({cell.first + dx, cell.second + dy});
        for (auto entry = range.first; entry != range.second; ++entry) {
          const GX2DPoint& q = clusters_[entry->second].place;
          const bool isNear = std::hypot(p.X - q.X, p.Y - q.Y) < distance_;
          near = isNear ? std::min(near, entry->second) : near;
        }
      }
    }
    return near;
  }

  double distance_;
  std::vector<Cluster> clusters_;
  std::multimap<Cell, std::size_t> cells_;
};

std::string Badges(const SvgScene& scene, const std::vector<Cluster>& clusters, bool open) {
  std::string badges;
  for (const Cluster& cluster : clusters) {
    std::string keys;
    for (const std::size_t number : cluster.numbers) {
      if (number <= kMostRows) keys += (keys.empty() ? "" : " ") + LooseEndKey(number);
    }
    badges += scene.Badge(cluster.place, open ? MarkShape::kSquare : MarkShape::kRound,
                          open ? "red" : "green", NumberRanges(cluster.numbers), keys);
  }
  return badges;
}

// Badges or dots of those that are open, or of the others.
std::string LooseEndMarks(const SvgScene& scene, const LooseEndAccount& account, bool open) {
  Clusters clusters(kBadgeDistance / scene.Placing().scale);
  std::string dots;
  for (std::size_t i = 0; i < account.ends.size(); ++i) {
    if (account.ends[i].open != open) continue;
    clusters.Add(account.ends[i].place, i + 1);
    dots += scene.DotData(account.ends[i].place);
  }
  if (clusters.All().size() <= kMostBadges) return Badges(scene, clusters.All(), open);
  return SvgScene::Path(open ? "dots thin square red" : "dots thin green", dots);
}

std::string Spots(const SvgScene& scene, const HealedDrawing& healed,
                  const LooseEndAccount& account) {
  std::string spots;
  for (std::size_t i = 0; i < std::min(healed.changes.size(), kMostRows); ++i) {
    spots += scene.Spot(healed.changes[i].place, ChangeKey(i + 1));
  }
  for (std::size_t i = 0; i < std::min(account.ends.size(), kMostRows); ++i) {
    spots += scene.Spot(account.ends[i].place, LooseEndKey(i + 1));
  }
  for (std::size_t i = 0; i < std::min(healed.overlapsLeft.size(), kMostRows); ++i) {
    spots += scene.Spot(healed.overlapsLeft[i].place, OverlapKey(i + 1));
  }
  return spots;
}

// Where something else was changed than ends joined and elements taken away.
bool HasPin(ChangeKind kind) {
  return kind != ChangeKind::kEndsJoined && kind != ChangeKind::kDuplicateRemoved &&
         kind != ChangeKind::kContainedRemoved && kind != ChangeKind::kPutInOrder;
}

std::string Pins(const SvgScene& scene, const std::vector<Change>& changes) {
  std::string pins;
  std::string dots;
  std::size_t count = 0;
  for (std::size_t i = 0; i < changes.size(); ++i) {
    if (!HasPin(changes[i].kind)) continue;
    ++count;
    dots += scene.DotData(changes[i].place);
    if (count > kMostPins || i >= kMostRows) continue;
    pins += scene.Pin(changes[i].place, MarkShape::kDiamond, "blue", ChangeKey(i + 1));
  }
  return count > kMostPins ? SvgScene::Path("dots thin blue", dots) : pins;
}

Box BoxOfDrawing(const Drawing& drawing, bool& found, Box box) {
  for (const DrawnElement& drawn : drawing.elements) {
    if (drawn.element == nullptr) continue;
    const Box own = BoxOf(*drawn.element);
    box = found ? Joined(box, own) : own;
    found = true;
  }
  return box;
}

std::string Entry(bool shown, const char* classes, const char* text) {
  return shown ? HtmlLegendEntry(classes, text) : "";
}

// What the pictures show, and no more.
std::string Legend(const Strokes& read, const Strokes& healed, const std::string& removed,
                   const std::string& pins, const LooseEndAccount& account) {
  return "<ul class=\"legend\">\n" +
         Entry(!read.closed.empty() || !healed.closed.empty(), "solid ink", "closed contour") +
         Entry(!read.open.empty() || !healed.open.empty(), "dashed red", "open") +
         Entry(!read.branching.empty() || !healed.branching.empty(), "dotted purple",
               "three or more ends meet") +
         Entry(!removed.empty(), "dashdot blue thick", "lay on another, taken away") +
         Entry(account.open < account.ends.size(), "dots green", "round: loose ends, joined") +
         Entry(account.open > 0, "dots square red", "square: loose ends, still open") +
         Entry(!pins.empty(), "dots blue", "diamond: tidied") +
         Entry(!read.specks.empty() || !healed.specks.empty(), "dots faint", "speck") + "</ul>\n";
}

std::string KindCounts(const DrawingFigures& figures) {
  std::string text =
      std::to_string(figures.closed) + " closed, " + std::to_string(figures.open) + " open";
  if (figures.branching > 0) text += ", " + std::to_string(figures.branching) + " branching";
  return text;
}

}  // namespace

std::string ChangeKey(std::size_t number) { return "c" + std::to_string(number); }

std::string LooseEndKey(std::size_t number) { return "e" + std::to_string(number); }

std::string OverlapKey(std::size_t number) { return "o" + std::to_string(number); }

std::string HealingPictures(const Drawing& asRead, const std::vector<Network>& readNetworks,
                            const HealedDrawing& healed, const LooseEndAccount& looseEnds) {
  bool found = false;
  const Box readBox = BoxOfDrawing(asRead, found, {});
  const SvgScene scene(BoxOfDrawing(healed.drawing, found, readBox));
  const Strokes read = StrokesOf(scene, asRead, readNetworks);
  const Strokes after = StrokesOf(scene, healed.drawing, healed.networks);
  const std::string removed = Removed(scene, asRead, healed.changes);
  const std::string pins = Pins(scene, healed.changes);
  const std::string marks = LooseEndMarks(scene, looseEnds, false) +
                            LooseEndMarks(scene, looseEnds, true) + Spots(scene, healed, looseEnds);
  const std::string readCounts = KindCounts(healed.before);
  const std::string afterCounts = KindCounts(healed.after);
  return "<div class=\"side\">\n" +
         HtmlFigure("As read: " + readCounts, scene.Picture("The drawing as read: " + readCounts,
                                                            kView, Drawn(read) + removed + marks)) +
         HtmlFigure("As healed: " + afterCounts,
                    scene.Picture("The drawing as healed: " + afterCounts, kView,
                                  Drawn(after) + pins + marks)) +
         "</div>\n" + Legend(read, after, removed, pins, looseEnds);
}

std::string NumberRanges(const std::vector<std::size_t>& numbers) {
  constexpr std::size_t kMostRanges = 2;
  std::string text;
  std::size_t ranges = 0;
  for (std::size_t i = 0; i < numbers.size();) {
    std::size_t last = i;
    while (last + 1 < numbers.size() && numbers[last + 1] == numbers[last] + 1) ++last;
    if (++ranges > kMostRanges) return text + " \u2026";
    text += (ranges > 1 ? ", " : "") + std::to_string(numbers[i]);
    if (last > i) text += "\u2013" + std::to_string(numbers[last]);
    i = last + 1;
  }
  return text;
}

}  // namespace drawing
