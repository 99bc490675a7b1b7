// One stored property of a record class.
#pragma once

#include <utility>

namespace fetchkit {

// Reads like a member function: record.Level() is the property's Get, record.Level(3) its Let.
template <class T>
class Property {
 public:
  const T& operator()() const { return value_; }
  void operator()(T value) { value_ = std::move(value); }

 private:
  T value_{};
};

}  // namespace fetchkit
