// A portable host behind the COM interfaces that the component binds to, with the mishaps that a
// host's objects can bring.
#pragma once

#include <functional>
#include <memory>
#include <set>
#include <string>

#include "component/Windows.h"
#include "component/com/ComPtr.h"
#include "fetchkit/host/SessionConnection.h"
#include "idl/FetchKitHost.h"

namespace fetchkit::test {

// What the objects of one host share. It outlives them.
struct HostPlan {
  long references = 0;  // to all living objects of the host together
  int calls = 0;        // of the host's own members, reference counting apart
  int failAt = 0;       // the call with this number fails; 0: none does
  HRESULT failure = E_FAIL;
  std::function<void(const char* member)> onCall;

  // What whole numbers in recordsets are handed out as; VT_EMPTY: as they are. VT_BOOL: only those
  // of flags.
  VARTYPE numbersAs = VT_EMPTY;
  std::set<std::string> nullObjects;  // members that answer with success and no object
  bool otherRecordsets = false;       // recordsets lack ADO's interface
  ComPtr<IDispatch> recordset;        // handed out at every open operation instead of the rows
};

// The connection's COM object.
ComPtr<ISessionConnection> MakeComHost(SessionConnectionPtr connection,
                                       std::shared_ptr<HostPlan> plan);

}  // namespace fetchkit::test
