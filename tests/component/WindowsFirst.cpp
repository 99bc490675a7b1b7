// The library's members are found behind the system's macros of the same names, too.
#include <windows.h>

#include "fetchkit/FetchKit.h"

int main() {
  const fetchkit::Utility utility;
  const std::int32_t window = utility.FindWindowHandle(u"FetchKit");
  return utility.MessageBox(u"FetchKit", 0, u"", window) +
         fetchkit::CurrentPlatform().Windows().MessageBox(u"FetchKit", 0, u"");
}
