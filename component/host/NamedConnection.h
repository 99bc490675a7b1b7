// The host's connection object, called by name, as the core's.
#pragma once

#include <memory>
#include <utility>

#include "component/Windows.h"
#include "component/host/NamedObject.h"
#include "component/platform/HostPtr.h"
#include "fetchkit/host/SessionConnection.h"

namespace fetchkit {

// The members are those of ISessionConnection, with references as scripts have them. For languages
// without these, an opening may also answer with the recordset, or nothing, in place of True and
// False, and RecordsetIsEmpty with its Boolean.
class NamedConnection : public SessionConnection {
 public:
  // Error (TypeMismatch), which names them, when members are missing.
  static std::shared_ptr<NamedConnection> Bind(HostPtr<IDispatch> object);

  explicit NamedConnection(NamedObject host) : host_(std::move(host)) {}

  // The database's words for the last refusal, which a host may offer under that name.
  static Text LastRefusalOf(NamedObject& host);

  std::shared_ptr<fetchkit::HostContext> HostContext() override;
  void CloseRecordset(RecordsetPtr& recordset) override;
  void RecordsetIsEmpty(RecordsetPtr& recordset, bool& isEmpty) override;
  bool OpenStaticRecordset(TextView sql, RecordsetPtr& recordset, std::int32_t cursorType,
                           std::int32_t lockType, std::int32_t commandType,
                           std::int32_t option) override;
  bool OpenRecordset(TextView sql, RecordsetPtr& recordset, std::int32_t option1,
                     std::int32_t option2) override;
  bool ExecuteSql(TextView sql, std::int32_t option, Value& out) override;
  Text LastRefusal() override { return LastRefusalOf(host_); }

 private:
  bool Open(TextView member, TextView sql, RecordsetPtr& recordset,
            std::initializer_list<std::int32_t> options);

  NamedObject host_;
};

}  // namespace fetchkit
