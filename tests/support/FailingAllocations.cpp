#include "support/FailingAllocations.h"

#include <cstdlib>

namespace fetchkit::test {
namespace {

struct Plan {
  bool counts = false;
  int number = 0;
  bool forGood = false;
  int count = 0;
};

constinit thread_local Plan plan;

void* Allocate(std::size_t size) {
  if (plan.counts) {
    ++plan.count;
    if (plan.number != 0 && (plan.forGood ? plan.count >= plan.number : plan.count == plan.number))
      throw std::bad_alloc();
  }
  if (void* memory = std::malloc(size)) return memory;
  throw std::bad_alloc();
}

}  // namespace

FailingAllocations::FailingAllocations(int number, Lasting lasting) : number_(number) {
  plan = {true, number, lasting == Lasting::ForGood, 0};
}

FailingAllocations::~FailingAllocations() {
  plan = {};
}

int FailingAllocations::Count() const {
  return plan.count;
}

}  // namespace fetchkit::test

// The others of the standard library call these.
void* operator new(std::size_t size) {
  return fetchkit::test::Allocate(size);
}

// The sanitizer has one of its own, which does not go with the deletes below.
void* operator new(std::size_t size, const std::nothrow_t&) noexcept {
  try {
    return fetchkit::test::Allocate(size);
  } catch (const std::bad_alloc&) {
    return nullptr;
  }
}

void operator delete(void* memory) noexcept {
  std::free(memory);
}

void operator delete(void* memory, std::size_t) noexcept {
  std::free(memory);
}
