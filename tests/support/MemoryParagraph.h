// A paragraph tree in memory. Doubles are kept as they are, values and children in the order in
// which they came, and every call is written down.
//
//     support::MemoryParagraph root;
//     GXParagraph* paragraph = &root;
//     GXVector(1, 2, 3).Write("V", paragraph, 0);
//     EXPECT_EQ(root.Child("V").Number("X"), 1.0);
#pragma once

#include <KTRCL_DataTypes/GXParagraph.h>
#include <KTRCL_DataTypes/GXString.h>

#include <cstddef>
#include <memory>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

namespace support {

class MemoryParagraph : public GXParagraph {
 public:
  /// What one stored value is.
  struct Value {
    enum Kind { kAttributeText, kAttributeInt, kText, kInt, kDouble };
    Kind kind;
    std::string key;
    std::string text;     ///< Of the two kinds of text.
    int integer = 0;      ///< Of the two kinds of int.
    double number = 0.0;  ///< Of a double.
    int decimals = 0;     ///< Of a double, as handed in.
  };

  explicit MemoryParagraph(std::string name = "root") : name_(std::move(name)) {}
  MemoryParagraph(const MemoryParagraph&) = delete;
  MemoryParagraph& operator=(const MemoryParagraph&) = delete;
  ~MemoryParagraph() override = default;

  /// @name The interface under test
  GXString GetName() const override { return {name_}; }
  void SetAttribute(const GXString& key, const GXString& value) override {
    Store({Value::kAttributeText, key.Str(), value.Str(), 0, 0.0, 0}, "SetAttribute");
  }
  void SetAttribute(const GXString& key, const int& value) override {
    Store({Value::kAttributeInt, key.Str(), "", value, 0.0, 0}, "SetAttribute");
  }
  void AddString(const GXString& key, const GXString& value) override {
    Store({Value::kText, key.Str(), value.Str(), 0, 0.0, 0}, "AddString");
  }
  void AddInt(const GXString& key, const int& value) override {
    Store({Value::kInt, key.Str(), "", value, 0.0, 0}, "AddInt");
  }
  void AddDouble(const GXString& key, const double& value, const int& decimals) override {
    Store({Value::kDouble, key.Str(), "", 0, value, decimals}, "AddDouble");
  }
  GXString GetString(const GXString& key, const GXString& defaultValue, bool flag) const override {
    calls_.push_back("GetString " + key.Str() + (flag ? " flagged" : ""));
    const Value* const value = Find(Value::kText, key.Str());
    return value != nullptr ? GXString(value->text) : defaultValue;
  }
  double GetDouble(const GXString& key, const double& defaultValue) const override {
    calls_.push_back("GetDouble " + key.Str());
    const Value* const value = Find(Value::kDouble, key.Str());
    return value != nullptr ? value->number : defaultValue;
  }
  GXParagraph* AddParagraph(const GXString& key) override {
    calls_.push_back("AddParagraph " + key.Str());
    return &Grow(key.Str());
  }
  GXParagraph* FindParagraph(const GXString& key) const override {
    calls_.push_back("FindParagraph " + key.Str());
    for (const auto& child : children_) {
      if (child->name_ == key.Str()) {
        return child.get();
      }
    }
    return nullptr;
  }
  void GetParagraphs(GXParagraphList& paragraphs) const override {
    calls_.push_back("GetParagraphs");
    paragraphs.clear();
    for (const auto& child : children_) {
      paragraphs.push_back(child.get());
    }
  }

  /// @name What tests ask and prepare; these are not written down
  const std::vector<Value>& Values() const { return values_; }
  const std::vector<std::string>& Calls() const { return calls_; }
  void ForgetCalls() { calls_.clear(); }
  std::size_t ChildCount() const { return children_.size(); }
  MemoryParagraph& ChildAt(std::size_t position) const { return *children_.at(position); }

  /// The first child of a name; throws std::out_of_range when there is none.
  MemoryParagraph& Child(const std::string& name) const {
    for (const auto& child : children_) {
      if (child->name_ == name) {
        return *child;
      }
    }
    throw std::out_of_range("no child " + name + " in " + name_);
  }
  bool HasChild(const std::string& name) const {
    for (const auto& child : children_) {
      if (child->name_ == name) {
        return true;
      }
    }
    return false;
  }

  /// The first stored value of a key; throws std::out_of_range when there is none.
  double Number(const std::string& key) const { return Stored(Value::kDouble, key).number; }
  std::string TextOf(const std::string& key) const { return Stored(Value::kText, key).text; }
  int Integer(const std::string& key) const { return Stored(Value::kInt, key).integer; }
  bool Has(Value::Kind kind, const std::string& key) const { return Find(kind, key) != nullptr; }

  /// The keys of the stored values, in order.
  std::vector<std::string> Keys() const {
    std::vector<std::string> keys;
    for (const Value& value : values_) {
      keys.push_back(value.key);
    }
    return keys;
  }

  /// Appends a child for reading tests.
  MemoryParagraph& Grow(const std::string& name) {
    children_.push_back(std::make_unique<MemoryParagraph>(name));
    return *children_.back();
  }

 private:
  void Store(Value value, const char* call) {
    calls_.push_back(std::string(call) + " " + value.key);
    values_.push_back(std::move(value));
  }
  const Value* Find(Value::Kind kind, const std::string& key) const {
    for (const Value& value : values_) {
      if (value.kind == kind && value.key == key) {
        return &value;
      }
    }
    return nullptr;
  }
  const Value& Stored(Value::Kind kind, const std::string& key) const {
    const Value* const value = Find(kind, key);
    if (value == nullptr) {
      throw std::out_of_range("no value " + key + " in " + name_);
    }
    return *value;
  }

  std::string name_;
  std::vector<Value> values_;
  std::vector<std::unique_ptr<MemoryParagraph>> children_;
  mutable std::vector<std::string> calls_;
};

}  // namespace support
