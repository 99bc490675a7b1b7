// UTF-8 at the rim: terminals, files and error texts of the language's own exceptions.
#pragma once

#include <string>
#include <string_view>

#include "fetchkit/base/Text.h"

namespace fetchkit {

// A lone surrogate becomes U+FFFD.
std::string ToUtf8(TextView text);

// A byte that belongs to no well-formed sequence becomes U+FFFD; the bytes behind it are read on.
Text FromUtf8(std::string_view bytes);

}  // namespace fetchkit
