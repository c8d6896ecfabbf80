// Filling a part: the external contour, and the cut-outs that fall into groups of one shape while
// they are added.
#include <KTRCL_Geometry/lookalike/GXLAPart.h>

#include <memory>

namespace {

// A copied contour shares its elements with the host's. As long as no part has taken it, it must go
// without them.
struct ForgetElements {
  void operator()(GXLAContour* contour) const {
    contour->clear();
    delete contour;
  }
};

using ContourCopy = std::unique_ptr<GXLAContour, ForgetElements>;

// A part may be filled in a process that runs out of memory: everything that can fail happens
// before the first of the part's lists changes, since moving a finished node over cannot.
class PendingInstance {
 public:
  PendingInstance(const GX2DElmList& elements, GXLAContour* contour, bool reversed,
                  int startPosition)
      : instance_(
            std::make_unique<GXLAContourInstance>(elements, contour, reversed, startPosition)),
        owned_(1, instance_.get()),
        grouped_(1, instance_.get()) {}

  GXLAContourInstance* MoveTo(GXLAContourInstanceList& instances,
                              GXLAContourInstanceRefList& group) {
    instances.splice(instances.end(), owned_);
    group.splice(group.end(), grouped_);
    return instance_.release();
  }

 private:
  std::unique_ptr<GXLAContourInstance> instance_;
  std::list<GXLAContourInstance*> owned_;
  std::list<GXLAContourInstance*> grouped_;
};

}  // namespace

GXLAPartVisitor::~GXLAPartVisitor() = default;

GXLAPart::GXLAPart() : ExternalLAContour(nullptr), ExternalLAContourInstance(nullptr) {}

GXLAPart::GXLAPart(const GXLAPart& other) = default;
GXLAPart& GXLAPart::operator=(const GXLAPart& other) = default;

GXLAPart::~GXLAPart() {
  delete ExternalLAContour;
  delete ExternalLAContourInstance;
}

GXLAContourInstance* GXLAPart::AddExternalContourInstance(GX2DElmList& elements,
                                                          const GXLAContour& contour) {
  ContourCopy copy(new GXLAContour(contour));
  ExternalLAContourInstance = new GXLAContourInstance(elements, copy.get(), false, 0);
  ExternalLAContour = copy.release();
  return ExternalLAContourInstance;
}

GXLAContourInstance* GXLAPart::AddInternalContourInstance(GX2DElmList& elements,
                                                          const GXLAContour& contour,
                                                          GXLAContour::eNmbSegmentsMode mode,
                                                          GXLATolerances& tolerances,
                                                          GXEvent1Param<const GXString&>* trace) {
  for (GXLAContour* shape : InternalLAContours) {
    if (shape == nullptr) return nullptr;
    // Open contours match without writing either of the two.
    GXLAContour::eReversedGeometry reversed = GXLAContour::eGeometryNotSet;
    int startPosition = 0;
    if (GXLAContour::HaveSameGeometry(*shape, contour, reversed, startPosition, mode, tolerances,
                                      trace)) {
      PendingInstance pending(elements, shape, reversed != GXLAContour::eGeometryNotSet,
                              startPosition);
      return pending.MoveTo(InternalLAContourInstances, InternalLAContourManager[shape]);
    }
  }

  ContourCopy copy(new GXLAContour(contour));
  PendingInstance pending(elements, copy.get(), false, 0);
  const auto group = InternalLAContourManager.try_emplace(copy.get()).first;
  try {
    InternalLAContours.AddElementSortTotalGeometryLengthDesc(*copy);
  } catch (...) {
    InternalLAContourManager.erase(group);
    throw;
  }
  copy.release();
  return pending.MoveTo(InternalLAContourInstances, group->second);
}

GXLAContour* GXLAPart::GetExternalLAContour() const { return ExternalLAContour; }

GXLAContourInstance* GXLAPart::GetExternalLAContourInstance() const {
  return ExternalLAContourInstance;
}

GXLAContourList& GXLAPart::GetInternalLAContourList() { return InternalLAContours; }

GXLAContourInstanceList& GXLAPart::GetInternalLAContourInstanceList() {
  return InternalLAContourInstances;
}

GXLAContourManager& GXLAPart::GetInternalLAContourManager() { return InternalLAContourManager; }

bool GXLAPart::Accept(GXLAPartVisitor& visitor) { return visitor.Visit(*this); }

GXLAPartList::GXLAPartList() = default;
GXLAPartList::GXLAPartList(const GXLAPartList& other) = default;
GXLAPartList& GXLAPartList::operator=(const GXLAPartList& other) = default;

GXLAPartList::~GXLAPartList() { ClearWithContents(); }

void GXLAPartList::ClearWithContents() {
  for (GXLAPart* part : *this) delete part;
  clear();
}

bool GXLAPartList::Accept(GXLAPartVisitor& visitor) {
  for (GXLAPart* part : *this) {
    if (part != nullptr && !part->Accept(visitor)) return false;
  }
  return true;
}

GXLAPartCreator::GXLAPartCreator(GXLAPartList& parts) : parts_(parts) {}

GXLAPartCreator::~GXLAPartCreator() = default;

GXLAPart* GXLAPartCreator::CreateLAPart() {
  auto part = std::make_unique<GXLAPart>();
  parts_.push_back(part.get());
  return part.release();
}

GXLAPartsEqual& GXLAPartsEqual::operator=(const GXLAPartsEqual& other) = default;
