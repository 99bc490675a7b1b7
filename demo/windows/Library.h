// FetchKit.dll beside the program, called as any other program calls it.
#pragma once

#include <memory>
#include <string>

#include "component/com/ComPtr.h"
#include "demo/commands/ListDialogs.h"
#include "fetchkit/host/SessionConnection.h"
#include "idl/FetchKit.h"

namespace fetchkit::demo {

// std::runtime_error with the callee's own description, or the system's, unless the call went
// through.
void Check(HRESULT result);

// The calling thread is a single-threaded apartment while it lives.
class Apartment {
 public:
  Apartment();
  ~Apartment();
  Apartment(const Apartment&) = delete;
  Apartment& operator=(const Apartment&) = delete;
};

// The library's entry, logged in. std::runtime_error, with what to do about it, when it cannot be
// activated.
class Library {
 public:
  explicit Library(const SessionConnectionPtr& connection);
  Library(const Library&) = delete;
  Library& operator=(const Library&) = delete;
  ~Library();

  const ComPtr<IInterface>& entry() const { return entry_; }

 private:
  Apartment apartment_;
  ComPtr<IInterface> entry_;
};

// The library's dialogs in their windows, over the console's own where that has one.
std::unique_ptr<ListDialogs> OpenInWindows(const SessionConnectionPtr& connection);

}  // namespace fetchkit::demo
