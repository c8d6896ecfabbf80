// Bytes into records, records into sections; what stands in the section of entities goes to the
// reader of entities.
#include "drawing/DxfReader.h"

#include "drawing/DxfEntityReader.h"
#include "drawing/DxfTokens.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <memory>
#include <optional>
#include <utility>

namespace drawing {
namespace {

constexpr std::size_t kLargestFile = std::size_t{256} << 20;
constexpr std::size_t kQuoteLimit = 40;

// The whole signature goes on with "\r\n\x1a\0"; transfers as text have been seen to change that.
constexpr std::string_view kBinarySignature = "AutoCAD Binary DXF";

constexpr std::array<std::string_view, 7> kSectionsWithoutEntities = {
    "HEADER", "CLASSES", "TABLES", "BLOCKS", "OBJECTS", "THUMBNAILIMAGE", "ACDSDATA"};

// Where a record stands.
enum class Place { kOutside, kEntities, kOtherSection, kLooseBlock };

// One pass over a text.
class Reading {
 public:
  // A unit that is given decides; without one the header's counts.
  Reading(std::string_view bytes, const std::string& name, const ReadOptions& options,
          const std::optional<Unit>& unit);

  Drawing Run();

  // The unit, where it stood behind the first entity and so came too late for it.
  const std::optional<Unit>& LateUnit() const { return lateUnit_; }

 private:
  void Tell(Severity severity, std::size_t line, std::string what, std::string done);
  void TellPassedOver();
  void ReadRecord();
  void ReadOutsideRecord();
  void BeginSection();
  void EndSection();
  void ReadHeader();
  void ReadUnit(const DxfGroup& group);
  void EndFile();
  void TellUnit();

  DxfRecordReader records_;
  DxfRecord record_;
  Drawing drawing_;
  DxfEntityReader entities_;
  Place place_ = Place::kOutside;
  bool sawEnd_ = false;
  bool unitIsGiven_;
  bool unitIsRead_ = false;
  bool unitIsUnreadable_ = false;
  std::size_t unitLine_ = 0;
  std::optional<Unit> lateUnit_;
  int outsideCount_ = 0;
  std::size_t outsideLine_ = 0;
};

Reading::Reading(std::string_view bytes, const std::string& name, const ReadOptions& options,
                 const std::optional<Unit>& unit)
    : records_(bytes), entities_(drawing_), unitIsGiven_(unit.has_value()) {
  drawing_.file = name;
  drawing_.curves.tolerance = options.curveTolerance;
  drawing_.unit.source = "no $INSUNITS, taken as millimetres";
  if (unit) drawing_.unit = *unit;
}

void Reading::Tell(Severity severity, std::size_t line, std::string what, std::string done) {
  Complain(drawing_, severity, line, nullptr, std::move(what), std::move(done));
}

void Reading::TellPassedOver() {
  if (record_.damage.empty()) return;
  Tell(Severity::kWarning, record_.damageLine, record_.damage, "passed over up to the next record");
}

Drawing Reading::Run() {
  std::string problem;
  std::size_t line = 0;
  if (!records_.Start(problem, line)) {
    drawing_.refusal = "it is no DXF: ";
    if (line > 0) drawing_.refusal += "line " + std::to_string(line) + ": ";
    drawing_.refusal += problem;
    return std::move(drawing_);
  }
  drawing_.usable = true;
  if (!problem.empty()) {
    Tell(Severity::kError, line, problem, "passed over up to the first record");
  }
  while (!sawEnd_ && records_.Next(record_)) ReadRecord();
  EndFile();
  std::stable_sort(drawing_.complaints.begin(), drawing_.complaints.end(),
                   [](const Complaint& a, const Complaint& b) { return a.line < b.line; });
  return std::move(drawing_);
}

void Reading::ReadRecord() {
  if (record_.type == "EOF") {
    sawEnd_ = true;
  } else if (record_.type == "SECTION") {
    BeginSection();
  } else if (record_.type == "ENDSEC") {
    EndSection();
    TellPassedOver();
  } else if (place_ == Place::kEntities) {
    entities_.Read(record_);
  } else if (place_ == Place::kOtherSection) {
    TellPassedOver();
  } else {
    ReadOutsideRecord();
  }
}

// Files without sections are used as if all of it were entities; the contents of blocks are not.
void Reading::ReadOutsideRecord() {
  if (record_.type == "BLOCK") place_ = Place::kLooseBlock;
  if (place_ == Place::kLooseBlock) {
    if (record_.type == "ENDBLK") place_ = Place::kOutside;
    TellPassedOver();
    return;
  }
  if (outsideCount_ == 0) outsideLine_ = record_.line;
  ++outsideCount_;
  entities_.Read(record_);
}

void Reading::EndSection() {
  entities_.EndSequence();
  place_ = Place::kOutside;
}

void Reading::BeginSection() {
  if (place_ == Place::kEntities || place_ == Place::kOtherSection) {
    Tell(Severity::kWarning, record_.line, "a section begins within another",
         "the one before is taken as ended");
  }
  EndSection();
  TellPassedOver();
  place_ = Place::kOtherSection;
  if (record_.groups.empty() || record_.groups.front().code != 2) {
    Tell(Severity::kError, record_.line, "a section has no name", "what stands in it is not used");
    return;
  }
  const std::string_view name = Trim(record_.groups.front().value);
  if (name == "ENTITIES") {
    place_ = Place::kEntities;
    return;
  }
  if (name == "HEADER") ReadHeader();
  const auto known =
      std::find(kSectionsWithoutEntities.begin(), kSectionsWithoutEntities.end(), name);
  if (known != kSectionsWithoutEntities.end()) return;
  Tell(Severity::kWarning, record_.line,
       "the section \"" + ReadableText(name, kQuoteLimit) + "\" is not known",
       "what stands in it is not used");
}

// The variables of the header: a name in group 9, its value in the group behind it.
void Reading::ReadHeader() {
  for (std::size_t i = 0; i + 1 < record_.groups.size(); ++i) {
    if (record_.groups[i].code != 9) continue;
    const DxfGroup& value = record_.groups[i + 1];
    const std::string_view name = Trim(record_.groups[i].value);
    if (name == "$ACADVER" && value.code == 1 && drawing_.version.empty()) {
      drawing_.version = ReadableText(Trim(value.value));
    }
    if (name == "$INSUNITS" && value.code == 70) ReadUnit(value);
  }
}

void Reading::ReadUnit(const DxfGroup& group) {
  Unit unit;
  int code = 0;
  const bool readable = ParseInteger(group.value, code);
  if (readable) UnitFromCode(code, unit);
  if (!readable) unit.source = "$INSUNITS is no whole number, taken as millimetres";
  if (unitIsRead_) {
    if (unit.code == drawing_.unit.code) return;
    Tell(Severity::kWarning, group.line, "$INSUNITS is given again with another value",
         "the first one counts");
    return;
  }
  unitIsRead_ = true;
  unitIsUnreadable_ = !readable;
  unitLine_ = group.line;
  if (!readable) {
    Tell(Severity::kWarning, group.line,
         "$INSUNITS is \"" + ReadableText(Trim(group.value), kQuoteLimit) + "\", no whole number",
         "lengths are taken as millimetres");
  }
  if (entities_.SawEntity()) {
    Tell(Severity::kNote, group.line, "the unit stands behind the entities", "it counts for all");
  }
  if (unitIsGiven_) return;
  drawing_.unit = unit;
  if (entities_.SawEntity()) lateUnit_ = unit;
}

void Reading::EndFile() {
  if (sawEnd_) {
    entities_.EndSequence();
    if (place_ == Place::kEntities || place_ == Place::kOtherSection) {
      Tell(Severity::kWarning, record_.line, "the last section is not ended",
           "the end of the file ends it");
    }
    if (!records_.OnlyBlanksLeft()) {
      Tell(Severity::kWarning, record_.line, "there is more behind the end mark", "not read");
    }
  } else {
    entities_.EndCutOff();
    Tell(Severity::kError, 0, "the end mark EOF is missing, the file may be cut off",
         "what was read is used");
  }
  if (outsideCount_ > 0) {
    Tell(Severity::kWarning, outsideLine_,
         std::to_string(outsideCount_) + " records stand outside a section, the first one here",
         "read like entities");
  }
  TellUnit();
  entities_.UseWaitingCurves();
  entities_.TellTallies();
  if (drawing_.elements.empty()) {
    Tell(Severity::kWarning, 0, "there is no element that can be used", "");
  }
}

void Reading::TellUnit() {
  if (!drawing_.unit.assumed || unitIsUnreadable_) return;
  const bool unknownCode = drawing_.unit.code != 0;
  Tell(unknownCode ? Severity::kWarning : Severity::kNote, unitLine_,
       unitIsRead_ ? "$INSUNITS " + std::to_string(drawing_.unit.code) + " names no unit"
                   : "the drawing names no unit",
       "lengths are taken as millimetres");
}

Drawing Refused(const std::string& name, std::string why) {
  Drawing drawing;
  drawing.file = name;
  drawing.unit.source = "the file was not read";
  drawing.refusal = std::move(why);
  return drawing;
}

// Returns: an empty text where all went well, otherwise why it did not.
std::string ReadBytes(const std::string& path, std::string& bytes) {
  const std::unique_ptr<std::FILE, int (*)(std::FILE*)> file(std::fopen(path.c_str(), "rb"),
                                                             &std::fclose);
  if (!file) return std::string("it cannot be opened: ") + std::strerror(errno);
  constexpr std::size_t kChunk = std::size_t{1} << 20;
  while (true) {
    const std::size_t before = bytes.size();
    if (before > kLargestFile) return "it is larger than 256 MiB";
    bytes.resize(before + kChunk);
    const std::size_t count = std::fread(&bytes[before], 1, kChunk, file.get());
    const int reason = errno;
    bytes.resize(before + count);
    if (count == kChunk) continue;
    if (std::ferror(file.get()) == 0) return std::string();
    return std::string("it cannot be read: ") + std::strerror(reason);
  }
}

bool IsBlankText(std::string_view bytes) {
  return bytes.find_first_not_of(std::string_view(" \t\r\n\0", 5)) == std::string_view::npos;
}

}  // namespace

Drawing ReadDrawingText(std::string_view bytes, const std::string& name,
                        const ReadOptions& options) {
  if (bytes.substr(0, kBinarySignature.size()) == kBinarySignature) {
    return Refused(name, "it is a binary DXF; only text DXF can be read");
  }
  if (bytes.size() > kLargestFile) return Refused(name, "it is larger than 256 MiB");
  if (IsBlankText(bytes)) return Refused(name, bytes.empty() ? "it is empty" : "it is blank");
  Reading reading(bytes, name, options, std::nullopt);
  Drawing drawing = reading.Run();
  if (!reading.LateUnit()) return drawing;
  Reading again(bytes, name, options, reading.LateUnit());
  return again.Run();
}

Drawing ReadDrawing(const std::string& path, const ReadOptions& options) {
  std::string bytes;
  std::string problem = ReadBytes(path, bytes);
  if (!problem.empty()) return Refused(path, std::move(problem));
  return ReadDrawingText(bytes, path, options);
}

}  // namespace drawing
