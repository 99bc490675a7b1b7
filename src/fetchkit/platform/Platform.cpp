#include "fetchkit/platform/Platform.h"

#include <atomic>

namespace fetchkit {
namespace {

std::atomic<Platform*> installed = nullptr;

}  // namespace

Platform& CurrentPlatform() {
  if (Platform* platform = installed.load(std::memory_order_acquire)) return *platform;
  return DefaultPlatform();
}

Platform* SetPlatform(Platform* platform) {
  return installed.exchange(platform);
}

}  // namespace fetchkit
