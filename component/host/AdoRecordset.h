// The host's recordsets, read early-bound as ADO.
#pragma once

#include <map>
#include <utility>
#include <vector>

#include "component/Windows.h"
#include "component/host/Ado.h"
#include "component/host/HostRecordset.h"
#include "component/platform/HostPtr.h"

namespace fetchkit {

// Columns are asked for by name, once each.
class AdoRecordset : public HostRecordset {
 public:
  // rows: the same object under ADO's interface.
  AdoRecordset(HostPtr<IDispatch> object, HostPtr<ado::Recordset> rows)
      : HostRecordset(std::move(object)), rows_(std::move(rows)) {}

  bool Eof() override;
  bool Bof() override;
  void MoveFirst() override;
  void MoveLast() override;
  void MoveNext() override;
  std::int32_t RecordCount() override;
  std::size_t Column(TextView name) override;
  std::vector<Text> ColumnNames() override;
  Value At(std::size_t column) override;

 private:
  void Unbind() override;
  ado::Recordset& Rows() const;
  HostPtr<ado::Fields> Fields() const;

  HostPtr<ado::Recordset> rows_;  // empty once it was given back
  std::vector<HostPtr<ado::Field>> fields_;
  std::map<Text, std::size_t, std::less<>> columns_;  // index in fields_ by the name as asked for
};

}  // namespace fetchkit
