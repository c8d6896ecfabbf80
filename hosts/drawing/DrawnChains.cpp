#include "drawing/DrawnChains.h"

#include <utility>

namespace drawing {

namespace {

// Ends are numbered 2 i (start) and 2 i + 1 (end of element i).
class ChainWalk {
 public:
  ChainWalk(const Drawing& drawing, const std::vector<Network>& networks)
      : nodes_(FindNodes(drawing)),
        kinds_(drawing.elements.size(), NetworkKind::kSpeck),
        used_(drawing.elements.size(), true),
        ends_(nodes_.size()) {
    for (const Network& network : networks) TakeIn(network);
    for (std::size_t end = 0; end < nodes_.size(); ++end) {
      if (used_[end / 2] || nodes_[end] == kNoNode) continue;
      Node& node = ends_[nodes_[end]];
      ++node.count;
      node.mixed ^= end;
    }
  }

  std::vector<DrawnChain> Chains() {
    WalkFromNodes(1, 1);
    WalkFromNodes(3, ends_.size());
    WalkFromNodes(0, ends_.size());
    return std::move(chains_);
  }

 private:
  // Of two ends that meet, each is the mixture of the numbers less the other.
  struct Node {
    std::size_t count = 0;
    std::size_t mixed = 0;
  };

  void TakeIn(const Network& network) {
    if (network.kind == NetworkKind::kSpeck) return;
    for (const std::size_t element : network.elements) {
      kinds_[element] = network.kind;
      used_[element] = false;
    }
    for (const std::size_t element : network.specks) used_[element] = true;
  }

  std::size_t CountAt(std::size_t end) const {
    return nodes_[end] == kNoNode ? 0 : ends_[nodes_[end]].count;
  }

  void WalkFromNodes(std::size_t least, std::size_t most) {
    for (std::size_t end = 0; end < nodes_.size(); ++end) {
      const std::size_t count = CountAt(end);
      if (!used_[end / 2] && count >= least && count <= most) Walk(end);
    }
  }

  void Walk(std::size_t begin) {
    DrawnChain chain;
    chain.kind = kinds_[begin / 2];
    std::size_t end = begin;
    while (!used_[end / 2]) {
      used_[end / 2] = true;
      chain.strokes.push_back({end / 2, end % 2 == 1});
      const std::size_t exit = end ^ 1U;
      if (CountAt(exit) != 2) break;
      end = ends_[nodes_[exit]].mixed ^ exit;
    }
    // A circle has no ends; any other loop has come back to where it began.
    chain.closed = nodes_[begin] == kNoNode || (CountAt(begin) == 2 && end == begin);
    chains_.push_back(std::move(chain));
  }

  std::vector<std::size_t> nodes_;
  std::vector<NetworkKind> kinds_;
  std::vector<bool> used_;
  std::vector<Node> ends_;  // By node.
  std::vector<DrawnChain> chains_;
};

}  // namespace

std::vector<DrawnChain> ChainsOf(const Drawing& drawing, const std::vector<Network>& networks) {
  return ChainWalk(drawing, networks).Chains();
}

std::string ChainPathData(const SvgScene& scene, const Drawing& drawing, const DrawnChain& chain) {
  std::string data;
  for (const DrawnStroke& stroke : chain.strokes) {
    GX2DElement& element = *drawing.elements[stroke.element].element;
    if (data.empty()) {
      const GX2DPoint& begin = stroke.backward ? element.GetEndPoint() : element.GetStartPoint();
      data = "M " + scene.Placing().At(begin) + " ";
    }
    data += SvgStrokeTo(scene.Placing(), element, stroke.backward);
  }
  return chain.closed ? data + "Z " : data;
}

}  // namespace drawing
