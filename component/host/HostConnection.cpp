#include "component/host/HostConnection.h"

#include <utility>

#include "component/com/Bstr.h"
#include "component/com/Variants.h"
#include "component/host/ContextOfHost.h"
#include "component/host/HostCalls.h"
#include "component/host/HostRecordset.h"
#include "component/host/NamedConnection.h"

namespace fetchkit {
namespace {

// What an open operation answered: the recordset is taken over also when the answer is False, and
// then let go.
bool TakeOpened(HRESULT result, ISessionConnection* host, VARIANT_BOOL answer,
                HostPtr<IDispatch> opened, RecordsetPtr& recordset) {
  Called(result, host);
  if (answer == VARIANT_FALSE || !opened) return false;
  recordset = HostRecordset::Bind(std::move(opened));
  return true;
}

}  // namespace

std::shared_ptr<SessionConnection> HostConnection::Bind(IUnknown* object) {
  if (!object) return nullptr;
  const ComPtr<IUnknown> given(object);
  if (HostPtr<ISessionConnection> host = given.As<ISessionConnection>(IID_ISessionConnection))
    return std::make_shared<HostConnection>(std::move(host));
  return NamedConnection::Bind(given.As<IDispatch>(IID_IDispatch));
}

std::shared_ptr<HostContext> HostConnection::HostContext() {
  HostPtr<IHostContext> context;
  Called(host_->get_HostContext(context.Out()), host_.get());
  return ContextOfHost(context);
}

void HostConnection::CloseRecordset(RecordsetPtr& recordset) {
  if (!recordset) return;
  // Let go whatever the host answers; what it left in the variable goes with it.
  const RecordsetPtr closing = std::move(recordset);
  recordset = nullptr;
  Called(host_->CloseRecordset(HostRecordset::Of(closing).GiveBack()), host_.get());
}

void HostConnection::RecordsetIsEmpty(RecordsetPtr& recordset, bool& isEmpty) {
  HostRecordset& rows = HostRecordset::Of(recordset);
  VARIANT_BOOL empty = isEmpty ? VARIANT_TRUE : VARIANT_FALSE;
  IDispatch** object = rows.InOut();
  const IDispatch* before = *object;
  const HRESULT result = host_->RecordsetIsEmpty(object, &empty);
  if (*object != before) recordset = HostRecordset::Bind(rows.Take());
  Called(result, host_.get());
  isEmpty = empty != VARIANT_FALSE;
}

bool HostConnection::OpenStaticRecordset(TextView sql, RecordsetPtr& recordset,
                                         std::int32_t cursorType, std::int32_t lockType,
                                         std::int32_t commandType, std::int32_t option) {
  HostPtr<IDispatch> opened;
  VARIANT_BOOL answer = VARIANT_FALSE;
  const HRESULT result = host_->OpenStaticRecordset(Bstr(sql).get(), opened.Out(), cursorType,
                                                    lockType, commandType, option, &answer);
  return TakeOpened(result, host_.get(), answer, std::move(opened), recordset);
}

bool HostConnection::OpenRecordset(TextView sql, RecordsetPtr& recordset, std::int32_t option1,
                                   std::int32_t option2) {
  HostPtr<IDispatch> opened;
  VARIANT_BOOL answer = VARIANT_FALSE;
  const HRESULT result =
      host_->OpenRecordset(Bstr(sql).get(), opened.Out(), option1, option2, &answer);
  return TakeOpened(result, host_.get(), answer, std::move(opened), recordset);
}

bool HostConnection::ExecuteSql(TextView sql, std::int32_t option, Value& out) {
  Variant outValue(out);
  VARIANT_BOOL answer = VARIANT_FALSE;
  Called(host_->ExecuteSql(Bstr(sql).get(), option, outValue.InOut(), &answer), host_.get());
  return answer != VARIANT_FALSE;
}

Text HostConnection::LastRefusal() {
  NamedObject names{HostPtr<IDispatch>(ComPtr<IDispatch>(host_.get()))};
  return NamedConnection::LastRefusalOf(names);
}

}  // namespace fetchkit
