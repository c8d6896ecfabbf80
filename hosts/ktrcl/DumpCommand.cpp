#include "drawing/DxfReader.h"
#include "drawing/ParagraphJson.h"
#include "drawing/PartDump.h"
#include "drawing/XmlParagraph.h"

#include "ktrcl/Admission.h"
#include "ktrcl/Commands.h"

#include <iostream>

namespace ktrcl {

int RunDump(const DumpRequest& request) {
  const drawing::ReadOptions reading = ToReadOptions(request.reading);
  const drawing::PartModel part =
      drawing::BuildPart(drawing::ReadDrawing(request.file, reading), request.part);
  if (!Admit(part, "dump")) return kUnusable;
  drawing::TreeParagraph root("dump");
  const drawing::TreeParagraph& dump = drawing::DumpPart(part, root);
  if (request.json) {
    std::cout << drawing::ParagraphJson(dump).dump(2) << "\n";
  } else {
    std::cout << drawing::XmlText(dump);
  }
  return kSame;
}

}  // namespace ktrcl
