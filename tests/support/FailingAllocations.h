// Memory that runs out at a chosen moment.
#pragma once

#include <new>

namespace fetchkit::test {

// While it lives, the calling thread's allocations are counted, and the number-th of them from now
// on throws std::bad_alloc: that one alone, or all from it on. 0 lets every allocation through. One
// at a time on a thread; other threads go on as usual.
class FailingAllocations {
 public:
  enum class Lasting { Once, ForGood };

  explicit FailingAllocations(int number, Lasting lasting = Lasting::Once);
  ~FailingAllocations();
  FailingAllocations(const FailingAllocations&) = delete;
  FailingAllocations& operator=(const FailingAllocations&) = delete;

  // So far, the failed ones included.
  int Count() const;

  // Whether the one that was to fail came.
  bool Failed() const { return number_ != 0 && Count() >= number_; }

 private:
  int number_;
};

}  // namespace fetchkit::test
