// A program that includes the system's headers first, whose macros have names of the library's
// members, and still finds those in the library.
#include <windows.h>

#include "fetchkit/FetchKit.h"

int main() {
  const fetchkit::Utility utility;
  const std::int32_t window = utility.FindWindowHandle(u"FetchKit");
  return utility.MessageBox(u"FetchKit", 0, u"", window) +
         fetchkit::CurrentPlatform().Windows().MessageBox(u"FetchKit", 0, u"");
}
