#include "drawing/DxfLayers.h"

#include <unordered_set>

namespace drawing {
namespace {

constexpr int kFrozenFlag = 1;

}  // namespace

void DxfLayers::Add(const DxfRecord& record) {
  Layer layer{{}, LayerState::kShown};
  int flags = 0;
  int colour = 0;
  for (const DxfGroup& group : record.groups) {
    if (group.code == 2) layer.name = group.value;
    if (group.code == 70) ParseInteger(group.value, flags);
    if (group.code == 62) ParseInteger(group.value, colour);
  }
  if (colour < 0) layer.state = LayerState::kOff;
  if ((flags & kFrozenFlag) != 0) layer.state = LayerState::kFrozen;
  layers_.push_back(layer);
}

void DxfLayers::Index(const TextDecoder& texts) {
  hidden_.clear();
  std::unordered_set<std::string> defined;
  for (const Layer& layer : layers_) {
    const std::string key = NameKey(texts.Decode(layer.name).text);
    const bool first = defined.insert(key).second;
    if (first && layer.state != LayerState::kShown) hidden_.emplace(key, layer.state);
  }
}

LayerState DxfLayers::StateOf(const std::string& name) const {
  if (hidden_.empty()) return LayerState::kShown;
  const auto found = hidden_.find(NameKey(name));
  return found == hidden_.end() ? LayerState::kShown : found->second;
}

}  // namespace drawing
