// Every loose end keeps the nearest one that it may be joined with. The nearest pair of all is
// taken out of a heap; where one of the two is gone meanwhile, the other looks for its next
// nearest. Few ends can have the same one for their nearest, so that looking anew costs no more
// than the first look.
#include "drawing/LooseEndPairs.h"

#include "drawing/CurveMeasures.h"
#include "drawing/NearestPoints.h"

#include <algorithm>
#include <cmath>
#include <memory>
#include <queue>
#include <tuple>
#include <utility>

namespace drawing {

namespace {

// A chain whose ends are farther apart than this share of its length is not meant to be closed.
constexpr double kLeastLengthPerGap = 4.0;

constexpr std::size_t kNone = static_cast<std::size_t>(-1);

// What hangs together between two loose ends, while chains grow by being joined.
struct Chain {
  double length = 0.0;
  std::size_t elements = 0;
  bool hasArcs = false;
};

struct End {
  LooseEnd loose;
  std::size_t otherEnd = kNone;  // Of the same chain; none in networks that branch.
  std::size_t chain = 0;
  bool taken = false;
};

// Ordered by distance, then by the ends; ends are numbered by element, the start before the end.
struct Candidate {
  double distance = 0.0;
  std::size_t first = 0;
  std::size_t second = 0;
  std::size_t seeker = 0;

  bool operator>(const Candidate& other) const {
    return std::tie(distance, first, second, seeker) >
           std::tie(other.distance, other.first, other.second, other.seeker);
  }
};

class Pairing {
 public:
  Pairing(const Drawing& drawing, const std::vector<Network>& networks) {
    for (const Network& network : networks) AddNetwork(drawing, network);
    NumberEnds();
    std::vector<double> x;
    std::vector<double> y;
    for (const End& end : ends_) {
      x.push_back(end.loose.point.X);
      y.push_back(end.loose.point.Y);
    }
    nearest_ = std::make_unique<NearestPoints>(std::move(x), std::move(y));
  }

  std::vector<LooseEndPair> Run(double gap) {
    for (std::size_t i = 0; i < ends_.size(); ++i) Seek(i, gap);
    std::vector<LooseEndPair> pairs;
    while (!heap_.empty()) {
      const Candidate next = heap_.top();
      heap_.pop();
      if (ends_[next.seeker].taken) continue;
      const std::size_t partner = next.seeker == next.first ? next.second : next.first;
      if (ends_[partner].taken || !MayClose(next)) {
        Seek(next.seeker, gap);
        continue;
      }
      pairs.push_back({ends_[next.first].loose, ends_[next.second].loose, next.distance});
      Take(next.first, next.second);
    }
    return pairs;
  }

 private:
  static bool IsFinite(const GX2DPoint& p) { return std::isfinite(p.X) && std::isfinite(p.Y); }

  void AddNetwork(const Drawing& drawing, const Network& network) {
    if (network.looseEnds.empty()) return;
    const std::size_t first = ends_.size();
    for (const LooseEnd& loose : network.looseEnds) {
      if (!IsFinite(loose.point)) continue;
      End end;
      end.loose = loose;
      end.chain = chains_.size();
      ends_.push_back(end);
    }
    Chain chain;
    const bool isChain = network.kind == NetworkKind::kOpen && ends_.size() - first == 2;
    if (isChain) {
      ends_[first].otherEnd = first + 1;
      ends_[first + 1].otherEnd = first;
      for (const std::size_t index : network.elements) AddElement(drawing, index, chain);
      chain.elements -= std::min(chain.elements, network.specks.size());
    }
    chains_.push_back(chain);
  }

  static void AddElement(const Drawing& drawing, std::size_t index, Chain& chain) {
    const GX2DElement* const element = drawing.elements[index].element.get();
    if (element == nullptr) return;
    chain.length += ElementLength(*element);
    ++chain.elements;
    chain.hasArcs = chain.hasArcs || dynamic_cast<const GX2DArc*>(element) != nullptr;
  }

  // Networks come in the order of their first elements, their ends in that of the elements; both
  // together are to be in that of the elements.
  void NumberEnds() {
    std::vector<std::size_t> order(ends_.size());
    for (std::size_t i = 0; i < order.size(); ++i) order[i] = i;
    std::sort(order.begin(), order.end(), [this](std::size_t a, std::size_t b) {
      const LooseEnd& p = ends_[a].loose;
      const LooseEnd& q = ends_[b].loose;
      return std::make_tuple(p.element, !p.atStart) < std::make_tuple(q.element, !q.atStart);
    });
    std::vector<std::size_t> numberOf(order.size());
    for (std::size_t i = 0; i < order.size(); ++i) numberOf[order[i]] = i;
    std::vector<End> sorted;
    sorted.reserve(order.size());
    for (const std::size_t old : order) {
      sorted.push_back(ends_[old]);
      if (sorted.back().otherEnd != kNone)
        sorted.back().otherEnd = numberOf[sorted.back().otherEnd];
    }
    ends_ = std::move(sorted);
  }

  // What is told of the ends of a chain stays true until one of them is taken: nothing else can
  // make the chain longer.
  bool MayCloseOnItself(const Chain& chain, double distance) const {
    const bool liesOnItself = !chain.hasArcs && chain.elements <= 2;
    return !liesOnItself && chain.length > kLeastLengthPerGap * distance;
  }

  bool MayClose(const Candidate& candidate) const {
    const End& end = ends_[candidate.first];
    return end.otherEnd != candidate.second ||
           MayCloseOnItself(chains_[end.chain], candidate.distance);
  }

  // The nearest end that may be joined with this one comes into the heap.
  void Seek(std::size_t seeker, double gap) {
    std::size_t except = seeker;
    for (int round = 0; round < 2; ++round) {
      std::size_t other = 0;
      double distance = 0.0;
      if (!nearest_->NearestOther(seeker, except, other, distance)) return;
      if (!(distance <= gap) || !std::isfinite(distance)) return;
      const Candidate candidate = {distance, std::min(seeker, other), std::max(seeker, other),
                                   seeker};
      if (MayClose(candidate)) {
        heap_.push(candidate);
        return;
      }
      except = other;  // The only one that is left out: the other end of its own chain.
    }
  }

  void Take(std::size_t first, std::size_t second) {
    for (const std::size_t end : {first, second}) {
      ends_[end].taken = true;
      nearest_->Remove(end);
    }
    const std::size_t a = ends_[first].otherEnd;
    const std::size_t b = ends_[second].otherEnd;
    if (a == second) return;
    Chain joined;
    for (const std::size_t end : {first, second}) {
      const Chain& chain = chains_[ends_[end].chain];
      joined.length += chain.length;
      joined.elements += chain.elements;
      joined.hasArcs = joined.hasArcs || chain.hasArcs;
    }
    const bool isChain = a != kNone && b != kNone;
    if (a != kNone) ends_[a].otherEnd = isChain ? b : kNone;
    if (b != kNone) ends_[b].otherEnd = isChain ? a : kNone;
    if (!isChain) return;
    chains_[ends_[first].chain] = joined;
    ends_[a].chain = ends_[first].chain;
    ends_[b].chain = ends_[first].chain;
  }

  std::vector<End> ends_;
  std::vector<Chain> chains_;
  std::unique_ptr<NearestPoints> nearest_;
  std::priority_queue<Candidate, std::vector<Candidate>, std::greater<>> heap_;
};

}  // namespace

std::vector<LooseEndPair> PairLooseEnds(const Drawing& drawing,
                                        const std::vector<Network>& networks, double gap) {
  if (!(gap >= 0.0)) return {};
  return Pairing(drawing, networks).Run(gap);
}

}  // namespace drawing
