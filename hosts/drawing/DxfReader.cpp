// Bytes into records, records into sections; what stands in the section of entities goes to the
// reader of entities, what is defined elsewhere is collected for it.
//
// One pass over the text is enough where all definitions stand in front of the first entity. Where
// one comes later, what was found in the first pass serves a second one.
#include "drawing/DxfReader.h"

#include "drawing/DxfDefinitions.h"
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
enum class Place { kOutside, kEntities, kTables, kBlocks, kOtherSection, kLooseBlock };

// Contents of such blocks are those of a layout.
bool IsOfPaperSpace(const DxfRecord& block) {
  const std::string name = NameKey(DxfValues(block).Text(2));
  return name.compare(0, 12, "*paper_space") == 0 || name.compare(0, 12, "$paper_space") == 0;
}

// Belongs to the entity in front of it.
bool IsPartOfEntity(std::string_view type) {
  return type == "VERTEX" || type == "SEQEND" || type == "ATTRIB";
}

// One pass over a text.
class Reading {
 public:
  // A unit that is given decides; without one the header's counts. Definitions are collected into
  // `definitions`, or taken from there as they are where they are complete.
  Reading(std::string_view bytes, const std::string& name, const ReadOptions& options,
          const std::optional<Unit>& unit, DxfDefinitions& definitions, bool complete);

  Drawing Run();

  // The unit, where it stood behind the first entity and so came too late for it.
  const std::optional<Unit>& LateUnit() const { return lateUnit_; }

  // Something that entities may refer to was defined behind the first of them.
  bool IsLate() const { return lateUnit_.has_value() || lateDefinitions_; }

 private:
  void Tell(Severity severity, std::size_t line, std::string what, std::string done);
  void TellPassedOver();
  void ReadRecord();
  void ReadOutsideRecord();
  void ReadEntity();
  void ReadBlockRecord();
  bool Collects();
  void BeginSection();
  void EndSection();
  void ReadHeader();
  void ReadVersion(const DxfGroup& group);
  void ReadCodePage(const DxfGroup& group);
  void ReadUnit(const DxfGroup& group);
  void EndFile();
  void TellDefinitions();
  void TellUnit();

  DxfRecordReader records_;
  DxfRecord record_;
  Drawing drawing_;
  DxfDefinitions& definitions_;
  bool complete_;
  DxfEntityReader entities_;
  Place place_ = Place::kOutside;
  bool sawEnd_ = false;
  bool unitIsGiven_;
  bool unitIsRead_ = false;
  bool unitIsUnreadable_ = false;
  std::size_t unitLine_ = 0;
  std::optional<Unit> lateUnit_;
  bool lateDefinitions_ = false;
  bool indexed_ = false;
  bool inPaperSpaceBlock_ = false;
  bool codePageIsRead_ = false;
  int outsideCount_ = 0;
  std::size_t outsideLine_ = 0;
};

Reading::Reading(std::string_view bytes, const std::string& name, const ReadOptions& options,
                 const std::optional<Unit>& unit, DxfDefinitions& definitions, bool complete)
    : records_(bytes),
      definitions_(definitions),
      complete_(complete),
      entities_(drawing_, definitions, options),
      unitIsGiven_(unit.has_value()) {
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
    ReadEntity();
  } else if (place_ == Place::kBlocks) {
    ReadBlockRecord();
  } else if (place_ == Place::kTables || place_ == Place::kOtherSection) {
    if (place_ == Place::kTables && record_.type == "LAYER" && Collects()) {
      definitions_.layers.Add(record_);
    }
    TellPassedOver();
  } else {
    ReadOutsideRecord();
  }
}

void Reading::ReadEntity() {
  if (!indexed_) definitions_.Index();
  indexed_ = true;
  entities_.Read(record_);
}

// Whether a definition is to be taken over. One that comes behind entities is too late for them.
bool Reading::Collects() {
  if (indexed_ && !complete_) lateDefinitions_ = true;
  return !complete_;
}

void Reading::ReadBlockRecord() {
  if (record_.type == "BLOCK") {
    if (Collects()) definitions_.blocks.Begin(record_);
    inPaperSpaceBlock_ = IsOfPaperSpace(record_);
  } else if (record_.type == "ENDBLK") {
    if (!complete_) definitions_.blocks.End(record_);
    inPaperSpaceBlock_ = false;
  } else {
    if (!complete_) definitions_.blocks.Add(record_);
    if (inPaperSpaceBlock_ && !IsPartOfEntity(record_.type)) {
      ++drawing_.paperSpaceByType[std::string(record_.type)];
    }
  }
  TellPassedOver();
}

// Files without sections are used as if all of it were entities, what stands in blocks apart.
void Reading::ReadOutsideRecord() {
  if (record_.type == "BLOCK") place_ = Place::kLooseBlock;
  if (place_ == Place::kLooseBlock) {
    if (record_.type == "ENDBLK") place_ = Place::kOutside;
    ReadBlockRecord();
    return;
  }
  if (outsideCount_ == 0) outsideLine_ = record_.line;
  ++outsideCount_;
  ReadEntity();
}

void Reading::EndSection() {
  entities_.EndSequence();
  if (!complete_) definitions_.blocks.End(record_);
  inPaperSpaceBlock_ = false;
  place_ = Place::kOutside;
}

void Reading::BeginSection() {
  if (place_ != Place::kOutside && place_ != Place::kLooseBlock) {
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
  if (name == "TABLES") place_ = Place::kTables;
  if (name == "BLOCKS") place_ = Place::kBlocks;
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
    if (name == "$ACADVER" && value.code == 1 && drawing_.version.empty()) ReadVersion(value);
    if (name == "$DWGCODEPAGE" && value.code == 3 && !codePageIsRead_) ReadCodePage(value);
    if (name == "$INSUNITS" && value.code == 70) ReadUnit(value);
  }
}

void Reading::ReadVersion(const DxfGroup& group) {
  drawing_.version = ReadableText(Trim(group.value));
  if (Collects()) definitions_.texts.SetVersion(group.value);
}

void Reading::ReadCodePage(const DxfGroup& group) {
  codePageIsRead_ = true;
  if (complete_) return;
  Collects();
  if (!definitions_.texts.SetCodePage(group.value)) definitions_.unknownCodePage = group;
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
    if (!complete_) definitions_.blocks.End(record_);
    if (place_ != Place::kOutside && place_ != Place::kLooseBlock) {
      Tell(Severity::kWarning, record_.line, "the last section is not ended",
           "the end of the file ends it");
    }
    if (!records_.OnlyBlanksLeft()) {
      Tell(Severity::kWarning, record_.line, "there is more behind the end mark", "not read");
    }
  } else {
    entities_.EndCutOff();
    if (!complete_) definitions_.blocks.EndCutOff();
    Tell(Severity::kError, 0, "the end mark EOF is missing, the file may be cut off",
         "what was read is used");
  }
  if (outsideCount_ > 0) {
    Tell(Severity::kWarning, outsideLine_,
         std::to_string(outsideCount_) + " records stand outside a section, the first one here",
         "read like entities");
  }
  TellUnit();
  TellDefinitions();
  entities_.UseWaitingCurves();
  entities_.TellTallies();
  if (drawing_.elements.empty()) {
    Tell(Severity::kWarning, 0, "there is no element that can be used", "");
  }
}

void Reading::TellDefinitions() {
  if (lateDefinitions_) return;
  if (!indexed_) definitions_.Index();
  for (Complaint& complaint : definitions_.blocks.Complaints()) {
    complaint.file = drawing_.file;
    drawing_.complaints.push_back(std::move(complaint));
  }
  const DxfGroup& page = definitions_.unknownCodePage;
  if (page.line == 0 || definitions_.texts.IsUnicode()) return;
  Tell(Severity::kNote, page.line,
       "$DWGCODEPAGE \"" + ReadableText(Trim(page.value), kQuoteLimit) +
           "\" is no code page that is known",
       "names that are not UTF-8 are taken as Latin-1");
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
  DxfDefinitions definitions(bytes);
  Reading reading(bytes, name, options, std::nullopt, definitions, false);
  Drawing drawing = reading.Run();
  if (!reading.IsLate()) return drawing;
  Reading again(bytes, name, options, reading.LateUnit(), definitions, true);
  return again.Run();
}

Drawing ReadDrawing(const std::string& path, const ReadOptions& options) {
  std::string bytes;
  std::string problem = ReadBytes(path, bytes);
  if (!problem.empty()) return Refused(path, std::move(problem));
  return ReadDrawingText(bytes, path, options);
}

}  // namespace drawing
