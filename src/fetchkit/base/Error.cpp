#include "fetchkit/base/Error.h"

#include "fetchkit/base/Utf8.h"

namespace fetchkit {

Error::Error(ErrorKind kind, TextView description)
    : kind_(kind), description_(description), utf8_(ToUtf8(description)) {}

}  // namespace fetchkit
