#include "drawing/PartDump.h"

#include "drawing/LookAlikeParts.h"

#include <KTRCL_Geometry/lookalike/CGXLAPartDump.h>

#include <cstddef>
#include <map>

namespace drawing {

namespace {

// Tells of every occurrence where it was drawn.
class Origins : public IGXLAPartDump_GXLAContourInstanceXmlAttribute {
 public:
  Origins(const PartModel& model, const LookAlikePart& part) : drawing_(model.drawing) {
    std::map<const Contour*, std::size_t> numbers;
    for (std::size_t i = 0; i < model.contours.size(); ++i) {
      numbers.emplace(model.contours[i].get(), i + 1);
    }
    for (std::size_t i = 0; i < part.instances.size(); ++i) {
      const Contour* const contour = model.cutOuts[i]->source;
      origins_[part.instances[i]] = {contour, numbers.at(contour)};
    }
  }

  void AddXmlAttribute(GXLAContourInstance* instance, GXParagraph* paragraph) override {
    const Origin& origin = origins_.at(instance);
    // No file that is read has so many contours or lines that an int would not hold them.
    paragraph->SetAttribute("CONTOUR", static_cast<int>(origin.number));
    // The elements of a contour are sorted as they stand in the file.
    const DrawnElement& first = drawing_.elements[origin.contour->origins.front()];
    if (first.entity >= drawing_.entities.size()) return;
    const DrawnEntity& entity = drawing_.entities[first.entity];
    paragraph->SetAttribute("LAYER", GXString(entity.layer));
    if (!entity.handle.empty()) paragraph->SetAttribute("HANDLE", GXString(entity.handle));
    paragraph->SetAttribute("LINE", static_cast<int>(entity.line));
  }

 private:
  struct Origin {
    const Contour* contour = nullptr;
    std::size_t number = 0;
  };

  const Drawing& drawing_;
  std::map<const GXLAContourInstance*, Origin> origins_;
};

bool HasLowerId(const TreeParagraph& p, const TreeParagraph& q) {
  return p.GetDouble("Id", 0.0) < q.GetDouble("Id", 0.0);
}

}  // namespace

TreeParagraph& DumpPart(const PartModel& model, TreeParagraph& parent) {
  GXLAPartList parts;
  GXLATolerances tolerances;
  const LookAlikePart made =
      MakeLookAlikePart(model, GXLAContour::eNmbSegmentsEqual, tolerances, parts);
  made.part->GetInternalLAContourList().ReNumberGXLAContourList();
  Origins origins(model, made);
  CGXLAPartDump::DoDump(*made.part, parent, model.drawing.file, &origins);
  // A paragraph that the parent had before may have the same name.
  TreeParagraph& dump = *parent.Entries().back().paragraph;
  dump.FindChild("IntGXLAContourManager")->SortParagraphs(HasLowerId);
  return dump;
}

}  // namespace drawing
