// What a stored tree looks like, and trees made like others.
//
//     support::Layout(root);   // "Contour(LINE(Start(X Y) End(X Y)))"
#pragma once

#include "support/MemoryParagraph.h"

#include <cstddef>
#include <string>
#include <vector>

namespace support {

/// The calls that stored something, in order: numbers by their key, texts as text:key, children
/// with their own layout in brackets. Other calls stand as they are.
inline std::string Layout(const MemoryParagraph& paragraph) {
  std::string layout;
  std::size_t child = 0;
  for (const std::string& call : paragraph.Calls()) {
    const std::size_t blank = call.find(' ');
    const std::string name = call.substr(0, blank);
    const std::string key = blank == std::string::npos ? "" : call.substr(blank + 1);
    layout += layout.empty() ? "" : " ";
    if (name == "AddDouble") {
      layout += key;
    } else if (name == "AddString") {
      layout += "text:" + key;
    } else if (name == "AddParagraph") {
      layout += key + "(" + Layout(paragraph.ChildAt(child)) + ")";
      ++child;
    } else {
      layout += call;
    }
  }
  return layout;
}

/// The stored doubles of a tree and their decimals, depth first.
inline void CollectDoubles(const MemoryParagraph& paragraph, std::vector<double>& numbers,
                           std::vector<int>& decimals) {
  for (const MemoryParagraph::Value& value : paragraph.Values()) {
    if (value.kind == MemoryParagraph::Value::kDouble) {
      numbers.push_back(value.number);
      decimals.push_back(value.decimals);
    }
  }
  for (std::size_t i = 0; i < paragraph.ChildCount(); ++i) {
    CollectDoubles(paragraph.ChildAt(i), numbers, decimals);
  }
}

/// Gives a paragraph the children of another, all the way down, and none of its values.
inline void GrowLike(const MemoryParagraph& model, MemoryParagraph& paragraph) {
  for (std::size_t i = 0; i < model.ChildCount(); ++i) {
    GrowLike(model.ChildAt(i), paragraph.Grow(model.ChildAt(i).GetName().Str()));
  }
}

/// The same with the numbers and texts.
inline void CopyInto(const MemoryParagraph& model, MemoryParagraph& paragraph) {
  for (const MemoryParagraph::Value& value : model.Values()) {
    if (value.kind == MemoryParagraph::Value::kDouble) {
      paragraph.AddDouble(value.key, value.number, value.decimals);
    } else if (value.kind == MemoryParagraph::Value::kText) {
      paragraph.AddString(value.key, value.text);
    }
  }
  for (std::size_t i = 0; i < model.ChildCount(); ++i) {
    CopyInto(model.ChildAt(i), paragraph.Grow(model.ChildAt(i).GetName().Str()));
  }
}

}  // namespace support
