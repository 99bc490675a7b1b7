#include "component/host/HostRecordset.h"

#include "component/host/AdoRecordset.h"
#include "component/host/NamedRecordset.h"
#include "fetchkit/base/Error.h"

namespace fetchkit {

std::shared_ptr<HostRecordset> HostRecordset::Bind(HostPtr<IDispatch> object) {
  HostPtr<ado::Recordset> rows = object.As<ado::Recordset>(ado::Recordset::kId);
  if (!rows) rows = object.As<ado::Recordset>(ado::Recordset::kNewerId);
  if (rows) return std::make_shared<AdoRecordset>(std::move(object), std::move(rows));
  return std::make_shared<NamedRecordset>(std::move(object));
}

HostRecordset& HostRecordset::Of(const RecordsetPtr& recordset) {
  auto* own = dynamic_cast<HostRecordset*>(recordset.get());
  if (!own) throw Error(ErrorKind::InvalidCall, u"the recordset is not one of this connection");
  return *own;
}

}  // namespace fetchkit
