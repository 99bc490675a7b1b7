// The host's connection object as the core's.
#pragma once

#include <memory>
#include <utility>

#include "component/Windows.h"
#include "component/platform/HostPtr.h"
#include "fetchkit/host/SessionConnection.h"
#include "idl/FetchKitHost.h"

namespace fetchkit {

class HostConnection : public SessionConnection {
 public:
  // Binds to the host's interface, or to its names when the object has no such interface. Null for
  // no object; Error (TypeMismatch) for an object that has neither.
  static std::shared_ptr<SessionConnection> Bind(IUnknown* object);

  explicit HostConnection(HostPtr<ISessionConnection> host) : host_(std::move(host)) {}

  std::shared_ptr<fetchkit::HostContext> HostContext() override;
  void CloseRecordset(RecordsetPtr& recordset) override;
  void RecordsetIsEmpty(RecordsetPtr& recordset, bool& isEmpty) override;
  bool OpenStaticRecordset(TextView sql, RecordsetPtr& recordset, std::int32_t cursorType,
                           std::int32_t lockType, std::int32_t commandType,
                           std::int32_t option) override;
  bool OpenRecordset(TextView sql, RecordsetPtr& recordset, std::int32_t option1,
                     std::int32_t option2) override;
  bool ExecuteSql(TextView sql, std::int32_t option, Value& out) override;
  Text LastRefusal() override;

 private:
  HostPtr<ISessionConnection> host_;
};

}  // namespace fetchkit
