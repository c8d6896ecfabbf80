// Trees of paragraphs with whatever a host might store, and a description of a tree to compare.
#pragma once

#include "drawing/ParagraphTree.h"
#include "support/Random.h"

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <string>
#include <vector>

namespace support {

/// A text that no other text is part of: its length in front.
inline std::string Counted(const std::string& text) {
  return std::to_string(text.size()) + ":" + text;
}

/// Everything that a tree has to give back. Two trees with the same description are the same but
/// for the order of attributes and what values were stored as.
inline std::string Described(const drawing::TreeParagraph& paragraph) {
  std::vector<std::string> attributes;
  for (const auto& attribute : paragraph.Attributes()) {
    attributes.push_back("@" + Counted(attribute.key) + Counted(attribute.text));
  }
  std::sort(attributes.begin(), attributes.end());
  std::string text = "<" + Counted(paragraph.Name());
  for (const std::string& attribute : attributes) text += attribute;
  for (const auto& entry : paragraph.Entries()) {
    text += entry.paragraph != nullptr ? Described(*entry.paragraph)
                                       : "=" + Counted(entry.value.key) + Counted(entry.value.text);
  }
  return text + ">";
}

/// Any bytes, also null bytes, often ones that mean something to XML.
inline std::string RandomBytes(Random& random) {
  static const std::string kSpecial = "<>&\"'%_;:= \t\n\r]-!?#x0";
  std::string bytes;
  const int size = random.Int(0, 12);
  for (int i = 0; i < size; ++i) {
    const int kind = random.Int(0, 3);
    if (kind == 0) {
      bytes +=
          kSpecial[static_cast<std::size_t>(random.Int(0, static_cast<int>(kSpecial.size()) - 1))];
    } else if (kind == 1) {
      bytes += static_cast<char>(random.Int(0, 255));
    } else {
      bytes += static_cast<char>(random.Int('a', 'z'));
    }
  }
  return bytes;
}

/// Names that meet often, plain and otherwise, or any bytes.
inline std::string RandomName(Random& random) {
  static const std::vector<std::string> kNames = {
      "X",          "Y",     "LINE",  "2nd", "",         "with blank", "a:b",  "_value",
      "_paragraph", "_name", "_text", "xml", "XmlThing", "\xC3\xA4",   "\xE4", "a-b.c_d",
      "_attribute", "xmlns", "%41",   "-a",  "a\nb",     "]]>",        "<b>",  "_key"};
  if (random.Int(0, 4) == 0) return RandomBytes(random);
  return kNames[static_cast<std::size_t>(random.Int(0, static_cast<int>(kNames.size()) - 1))];
}

inline double FromBits(std::uint64_t bits) {
  double number = 0.0;
  std::memcpy(&number, &bits, sizeof number);
  return number;
}

/// Any double with equal probability of its bits; every fourth one subnormal.
inline double RandomDouble(Random& random) {
  const std::uint64_t bits = random.Engine()();
  return FromBits(random.Int(0, 3) == 0 ? bits & 0x800FFFFFFFFFFFFFULL : bits);
}

inline void GrowRandomly(drawing::TreeParagraph& paragraph, Random& random, int depth) {
  for (int i = random.Int(0, 3); i > 0; --i) {
    paragraph.SetAttribute(RandomName(random), GXString(RandomBytes(random)));
  }
  // Now and then more than are looked through one by one.
  for (int i = random.Int(0, random.Int(0, 9) == 0 ? 40 : 6); i > 0; --i) {
    switch (random.Int(0, 3)) {
      case 0:
        paragraph.AddString(RandomName(random), RandomBytes(random));
        break;
      case 1:
        paragraph.AddDouble(RandomName(random), RandomDouble(random), -1);
        break;
      case 2:
        paragraph.AddInt(RandomName(random), random.Int(-2147483647, 2147483647));
        break;
      default:
        paragraph.AddParagraph(RandomName(random));
        auto& child = *paragraph.Entries().back().paragraph;
        if (depth > 1) GrowRandomly(child, random, depth - 1);
    }
  }
}

}  // namespace support
