// The one exception type of the system.
#pragma once

#include <exception>
#include <string>

#include "fetchkit/base/Text.h"

namespace fetchkit {

// The numbers are those that a script host shows for the same mishap.
enum class ErrorKind {
  InvalidCall = 5,
  Overflow = 6,
  TypeMismatch = 13,
  ObjectMissing = 91,
  InvalidUseOfNull = 94,
  Host = 440,  // the host's connection or one of its recordsets reported the failure
};

class Error : public std::exception {
 public:
  Error(ErrorKind kind, TextView description);

  ErrorKind kind() const { return kind_; }
  const Text& description() const { return description_; }
  const char* what() const noexcept override { return utf8_.c_str(); }

 private:
  ErrorKind kind_;
  Text description_;
  std::string utf8_;
};

// A value that cannot be read as the type that was asked for.
class ConvertError : public Error {
 public:
  using Error::Error;
};

}  // namespace fetchkit
