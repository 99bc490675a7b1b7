// The host's recordsets, whichever way they are read.
#pragma once

#include <memory>
#include <utility>

#include "component/Windows.h"
#include "component/platform/HostPtr.h"
#include "fetchkit/host/Recordset.h"

namespace fetchkit {

class HostRecordset : public Recordset {
 public:
  // Read early-bound where the object has ADO's interface, otherwise by ADO's names. An object that
  // has neither can be given back like any other, but every reading of it is Error (Host).
  static std::shared_ptr<HostRecordset> Bind(HostPtr<IDispatch> object);

  // A recordset of one of the host's connections; Error (InvalidCall) for any other and for none.
  static HostRecordset& Of(const RecordsetPtr& recordset);

  // The reference, for a call of the host's that takes it away; reading is over then.
  IDispatch** GiveBack() {
    Unbind();
    return object_.InOut();
  }

  // The same for a call that looks at it and may exchange it. What was exchanged is taken and bound
  // anew.
  IDispatch** InOut() { return object_.InOut(); }
  HostPtr<IDispatch> Take() { return std::move(object_); }

 protected:
  explicit HostRecordset(HostPtr<IDispatch> object) : object_(std::move(object)) {}

  // Lets go of everything but object_.
  virtual void Unbind() = 0;

  HostPtr<IDispatch> object_;
};

}  // namespace fetchkit
