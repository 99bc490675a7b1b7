// What of a connection string must not be told.
#pragma once

#include <vector>

#include "fetchkit/base/Text.h"

namespace fetchkit::odbc {

class Secrets {
 public:
  explicit Secrets(TextView connectionString);

  // The text with *** for the whole connection string and for every password in it.
  Text Hide(TextView text) const;

 private:
  std::vector<Text> hidden_;
};

}  // namespace fetchkit::odbc
