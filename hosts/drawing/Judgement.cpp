#include "drawing/Judgement.h"

#include "drawing/Mirroring.h"

#include <utility>

namespace drawing {

namespace {

DoubleVerdict JudgeOnce(const PartModel& a, const PartModel& b, const CompareOptions& options) {
  DoubleVerdict verdict;
  verdict.comparison = CompareParts(a, b, options);
  verdict.own = CompareGeometry(a, b, false, &verdict.comparison);
  verdict.disagreement = DisagreementText(a, b, verdict.comparison, verdict.own);
  return verdict;
}

// The words of a comparison with a mirror image: "Same: all ..." says of what.
void NameMirrorImage(DoubleVerdict& verdict) {
  const std::string same = "Same: ";
  std::string& words = verdict.comparison.verdict;
  if (words.compare(0, same.size(), same) != 0) return;
  words = "Same as the mirror image: " + words.substr(same.size());
}

}  // namespace

Judgement Judge(const PartModel& a, const PartModel& b, const CompareOptions& options,
                bool tryMirror) {
  Judgement judgement;
  judgement.verdict = JudgeOnce(a, b, options);
  if (!tryMirror || judgement.verdict.comparison.same) return judgement;
  judgement.turned = std::make_unique<PartModel>(MirroredPart(b));
  DoubleVerdict mirrored = JudgeOnce(a, *judgement.turned, options);
  mirrored.own.placement.mirrored = true;
  if (mirrored.comparison.same) {
    NameMirrorImage(mirrored);
    judgement.verdict = std::move(mirrored);
    judgement.mirrored = true;
  } else {
    judgement.mirrorImage = std::make_unique<DoubleVerdict>(std::move(mirrored));
  }
  return judgement;
}

}  // namespace drawing
