// Runs the tests in a single-threaded apartment, like a host's user interface thread.
#include <gmock/gmock.h>

#include "component/Windows.h"

int main(int argc, char** argv) {
  testing::InitGoogleMock(&argc, argv);
  if (FAILED(CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED))) return 2;
  const int result = RUN_ALL_TESTS();
  CoUninitialize();
  return result;
}
