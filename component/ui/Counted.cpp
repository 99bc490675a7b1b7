#include "component/ui/Counted.h"

namespace fetchkit::ui {
namespace {

LONG living = 0;

}  // namespace

LONG LivingResources() {
  return InterlockedCompareExchange(&living, 0, 0);
}

void NoteCreated() {
  InterlockedIncrement(&living);
}

void NoteDestroyed() {
  InterlockedDecrement(&living);
}

}  // namespace fetchkit::ui
