#include <fetchkit/base/Date.h>
#include <fetchkit/base/Utf8.h>
#include <fetchkit/session/Interface.h>

#include <cstdio>

int main() {
  fetchkit::Interface entry;
  entry.Initialize(nullptr);
  const auto leapDay = fetchkit::DateFromYmd(2004, 2, 29).value();
  std::printf("%s %d\n", fetchkit::ToUtf8(fetchkit::FormatDate(leapDay)).c_str(),
              static_cast<int>(entry.LoginOrganizationId()));
  fetchkit::ReleaseThread();
}
