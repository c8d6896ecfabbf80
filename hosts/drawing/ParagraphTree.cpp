#include "drawing/ParagraphTree.h"

#include <algorithm>
#include <charconv>
#include <stdexcept>
#include <system_error>
#include <utility>

namespace drawing {

namespace {

// So many entries are searched one by one; most paragraphs have fewer.
constexpr std::size_t kQuicklySearched = 16;

constexpr std::size_t kNowhere = static_cast<std::size_t>(-1);

std::size_t PlaceIn(const std::map<std::string, std::size_t>& places, const std::string& key) {
  const auto found = places.find(key);
  return found == places.end() ? kNowhere : found->second;
}

}  // namespace

TreeParagraph::TreeParagraph(std::string name) : name_(std::move(name)) {}
TreeParagraph::~TreeParagraph() = default;

GXString TreeParagraph::GetName() const { return name_; }

void TreeParagraph::SetAttribute(const GXString& key, const GXString& value) {
  SetAttributeText(key.Str(), value.Str(), Kind::kText);
}

void TreeParagraph::SetAttribute(const GXString& key, const int& value) {
  SetAttributeText(key.Str(), GXString(value, false).Str(), Kind::kInt);
}

void TreeParagraph::AddString(const GXString& key, const GXString& value) {
  AddValue(key.Str(), value.Str(), Kind::kText);
}

void TreeParagraph::AddInt(const GXString& key, const int& value) {
  AddValue(key.Str(), GXString(value, false).Str(), Kind::kInt);
}

void TreeParagraph::AddDouble(const GXString& key, const double& value, const int& decimals) {
  AddValue(key.Str(), GXString(value, decimals).Str(), Kind::kDouble);
}

GXString TreeParagraph::GetString(const GXString& key, const GXString& defaultValue,
                                  bool /*flag*/) const {
  const Value* const value = FindValue(key.Str());
  return value != nullptr ? GXString(value->text) : defaultValue;
}

double TreeParagraph::GetDouble(const GXString& key, const double& defaultValue) const {
  const Value* const value = FindValue(key.Str());
  double number = defaultValue;
  if (value != nullptr) NumberFromText(value->text, number);
  return number;
}

GXParagraph* TreeParagraph::AddParagraph(const GXString& key) {
  if (level_ >= kDeepestParagraph) {
    throw std::length_error("paragraphs are nested deeper than " +
                            std::to_string(kDeepestParagraph) + " levels");
  }
  auto child = std::make_unique<TreeParagraph>(key.Str());
  child->level_ = level_ + 1;
  TreeParagraph* const added = child.get();
  entries_.push_back({{}, std::move(child)});
  NoteEntry(entries_.size() - 1);
  return added;
}

GXParagraph* TreeParagraph::FindParagraph(const GXString& key) const {
  return FindChild(key.Str());
}

void TreeParagraph::GetParagraphs(GXParagraphList& paragraphs) const {
  paragraphs.clear();
  for (const Entry& entry : entries_) {
    if (entry.paragraph != nullptr) paragraphs.push_back(entry.paragraph.get());
  }
}

const std::string& TreeParagraph::Name() const { return name_; }

int TreeParagraph::Level() const { return level_; }

const std::vector<TreeParagraph::Value>& TreeParagraph::Attributes() const { return attributes_; }

const std::string* TreeParagraph::FindAttribute(const std::string& key) const {
  const std::size_t place = PlaceOfAttribute(key);
  return place == kNowhere ? nullptr : &attributes_[place].text;
}

const std::vector<TreeParagraph::Entry>& TreeParagraph::Entries() const { return entries_; }

TreeParagraph* TreeParagraph::FindChild(const std::string& name) const {
  if (index_ != nullptr) {
    const std::size_t place = PlaceIn(index_->paragraphs, name);
    return place == kNowhere ? nullptr : entries_[place].paragraph.get();
  }
  for (const Entry& entry : entries_) {
    if (entry.paragraph != nullptr && entry.paragraph->name_ == name) return entry.paragraph.get();
  }
  return nullptr;
}

void TreeParagraph::SortParagraphs(
    const std::function<bool(const TreeParagraph&, const TreeParagraph&)>& before) {
  std::vector<std::size_t> places;
  std::vector<TreeParagraph*> order;
  for (std::size_t i = 0; i < entries_.size(); ++i) {
    if (entries_[i].paragraph == nullptr) continue;
    places.push_back(i);
    order.push_back(entries_[i].paragraph.get());
  }
  std::stable_sort(order.begin(), order.end(),
                   [&](const TreeParagraph* p, const TreeParagraph* q) { return before(*p, *q); });
  for (const std::size_t place : places) entries_[place].paragraph.release();
  for (std::size_t i = 0; i < places.size(); ++i) entries_[places[i]].paragraph.reset(order[i]);
  if (index_ != nullptr) MakeIndex();
}

void TreeParagraph::SetAttributeText(const std::string& key, std::string text, Kind kind) {
  const std::size_t place = PlaceOfAttribute(key);
  if (place != kNowhere) {
    attributes_[place].text = std::move(text);
    attributes_[place].kind = kind;
    return;
  }
  attributes_.push_back({key, std::move(text), kind});
  NoteAttribute(attributes_.size() - 1);
}

void TreeParagraph::AddValue(const std::string& key, std::string text, Kind kind) {
  entries_.push_back({{key, std::move(text), kind}, nullptr});
  NoteEntry(entries_.size() - 1);
}

void TreeParagraph::MakeIndex() {
  index_ = std::make_unique<Index>();
  for (std::size_t i = 0; i < attributes_.size(); ++i) NoteAttribute(i);
  for (std::size_t i = 0; i < entries_.size(); ++i) NoteEntry(i);
}

void TreeParagraph::NoteAttribute(std::size_t position) {
  if (index_ != nullptr) {
    index_->attributes.emplace(attributes_[position].key, position);
  } else if (attributes_.size() + entries_.size() > kQuicklySearched) {
    MakeIndex();
  }
}

void TreeParagraph::NoteEntry(std::size_t position) {
  const Entry& entry = entries_[position];
  if (index_ == nullptr) {
    if (attributes_.size() + entries_.size() > kQuicklySearched) MakeIndex();
  } else if (entry.paragraph != nullptr) {
    index_->paragraphs.emplace(entry.paragraph->name_, position);
  } else {
    index_->values.emplace(entry.value.key, position);
  }
}

std::size_t TreeParagraph::PlaceOfAttribute(const std::string& key) const {
  if (index_ != nullptr) return PlaceIn(index_->attributes, key);
  for (std::size_t i = 0; i < attributes_.size(); ++i) {
    if (attributes_[i].key == key) return i;
  }
  return kNowhere;
}

const TreeParagraph::Value* TreeParagraph::FindValue(const std::string& key) const {
  if (index_ != nullptr) {
    const std::size_t place = PlaceIn(index_->values, key);
    return place == kNowhere ? nullptr : &entries_[place].value;
  }
  for (const Entry& entry : entries_) {
    if (entry.paragraph == nullptr && entry.value.key == key) return &entry.value;
  }
  return nullptr;
}

bool NumberFromText(const std::string& text, double& number) {
  double read = 0.0;
  const char* const end = text.data() + text.size();
  const auto result = std::from_chars(text.data(), end, read);
  if (result.ec != std::errc() || result.ptr != end) return false;
  number = read;
  return true;
}

}  // namespace drawing
