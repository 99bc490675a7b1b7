// FetchKit.dll with a sample login.
#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "component/com/ComPtr.h"
#include "demo/SampleHost.h"
#include "demo/console/Console.h"
#include "demo/console/StatementList.h"
#include "idl/FetchKit.h"

namespace fetchkit::demo {

// The calling thread is a single-threaded apartment while it lives.
class Apartment {
 public:
  Apartment();
  ~Apartment();
  Apartment(const Apartment&) = delete;
  Apartment& operator=(const Apartment&) = delete;
};

class LibrarySession {
 public:
  // trace: show every statement whole. std::runtime_error, with what to do about it, when the
  // library cannot be activated.
  LibrarySession(Console& console, bool trace);
  LibrarySession(const LibrarySession&) = delete;
  LibrarySession& operator=(const LibrarySession&) = delete;
  ~LibrarySession();

  // Hands the library the connection of that login. std::invalid_argument for a name that is none.
  void LogIn(std::string_view loginName);

  // The same login at a server of another name: to the library an account that it has not seen, so
  // that nothing is cached yet.
  void LogInAfresh();

  const ComPtr<IInterface>& entry() const { return entry_; }
  const std::shared_ptr<TracedConnection>& connection() const { return host_.connection(); }
  ComPtr<IActivity> Activity() const;

  // Runs work, then prints the statements it sent and their number.
  template <class Work>
  void Run(Work&& work) {
    host_.reports().clear();
    work();
    ListStatements(console_, host_.reports(), trace_);
    CountStatements(console_, host_.reports().size());
  }

  // Runs work without printing anything; answers how many statements it sent.
  template <class Work>
  std::size_t Count(Work&& work) {
    host_.reports().clear();
    work();
    return host_.reports().size();
  }

  // Why the last statement was refused.
  std::string LastRefusal() const;

 private:
  void Initialize();

  Apartment apartment_;
  Console& console_;
  bool trace_;
  int freshLogins_ = 0;
  SampleHost host_;
  ComPtr<IInterface> entry_;
};

}  // namespace fetchkit::demo
