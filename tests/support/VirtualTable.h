// Reads the order of virtual operations out of compiled classes.
//
// In the Itanium C++ ABI a pointer to a virtual member function holds 1 + 8 * its place in the
// table of its class; a virtual destructor takes two places. The end of a table is found by
// deriving: the first new operation of a derived class gets the place behind the last one.
//
//     support::Table().Destructor().Next("Len", &GXVector::Len)  ...  .End<GXVector>();
#pragma once

#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <type_traits>

namespace support {

/// One member of an overload set: Select<GXVector() const>(&GXVector::operator-).
template <typename Signature, typename Class>
constexpr auto Select(Signature Class::*member) {
  return member;
}

constexpr std::size_t kNotVirtual = static_cast<std::size_t>(-1);

template <typename Member>
std::size_t PlaceOf(Member member) {
  static_assert(std::is_member_function_pointer_v<Member>);
  static_assert(sizeof(Member) == 2 * sizeof(std::uintptr_t), "not the Itanium representation");
  std::uintptr_t word = 0;
  std::memcpy(&word, &member, sizeof word);
  // The address of a function that is not virtual is even.
  return word % 8 == 1 ? (word - 1) / 8 : kNotVirtual;
}

/// Adds one operation behind the last of a class.
template <typename Class>
class Behind : public Class {
 public:
  virtual void End() {}
};

/// Walks down the table of one class.
class Table {
 public:
  Table& Destructor() {
    next_ += 2;
    return *this;
  }

  template <typename Member>
  Table& Next(const char* name, Member member) {
    EXPECT_EQ(PlaceOf(member), next_) << name;
    ++next_;
    return *this;
  }

  template <typename Class>
  void End() {
    EXPECT_EQ(PlaceOf(&Behind<Class>::End), next_) << "the end of the table";
  }

 private:
  std::size_t next_ = 0;
};

}  // namespace support
