// Any bytes as a tree of paragraphs, and everything that the library reads from one. What could be
// loaded must come back from its own text.
#include "drawing/ParagraphJson.h"
#include "drawing/XmlParagraph.h"

#include <KTRCL_Geometry/KTRCL_Geometry.h>

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>

namespace {

// Reads a list, stores it, and reads it again.
template <typename List>
void Read(const GXString& key, GXParagraph* paragraph) {
  List list;
  list.Read(key, paragraph, 0);
  drawing::XmlDocument document;
  GXParagraph* const root = &document.Root();
  list.Write("list", root, 0);
  std::string error;
  drawing::XmlDocument loaded;
  if (!loaded.LoadText(document.Text(), error)) std::abort();
  GXParagraph* const stored = &loaded.Root();
  List back;
  back.Read("list", stored, 0);
  if (back.size() != list.size() || loaded.Text() != document.Text()) std::abort();
  back.ClearWithContents();
  list.ClearWithContents();
}

void ReadGeometry(GXParagraph* paragraph) {
  Read<GX2DElmList>("", paragraph);
  Read<GX3DElmList>("", paragraph);
  Read<GX2DElmList>("list", paragraph);
  GXMatrix matrix;
  matrix.Read("", paragraph);
  GXRotation rotation;
  rotation.Read("", paragraph);
  GXCoordSystem frame;
  frame.Read("", paragraph, 0);
  GXBoundBox box;
  box.Read("", paragraph, 0);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view bytes(reinterpret_cast<const char*>(data), size);
  drawing::XmlDocument document;
  std::string error;
  if (!document.LoadText(bytes, error)) {
    if (error.empty()) std::abort();
    return 0;
  }
  drawing::XmlDocument back;
  if (!back.LoadText(document.Text(), error)) std::abort();
  if (back.Text() != document.Text()) {
    // Attributes may have changed places, but only once.
    drawing::XmlDocument again;
    if (!again.LoadText(back.Text(), error) || again.Text() != back.Text()) std::abort();
  }
  if (drawing::ParagraphJson(document.Root()).dump().empty()) std::abort();
  ReadGeometry(&document.Root());
  GXParagraphList children;
  document.Root().GetParagraphs(children);
  std::size_t left = 20;
  for (GXParagraph* const child : children) {
    if (left-- == 0) break;
    ReadGeometry(child);
  }
  return 0;
}
