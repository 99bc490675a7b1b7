// The host's recordsets, read by the names of ADO's members.
#pragma once

#include <map>
#include <utility>
#include <vector>

#include "component/host/HostRecordset.h"
#include "component/host/NamedObject.h"

namespace fetchkit {

// Columns are asked for by name, once each: a field's Value is that of the current row, as ADO's
// is.
class NamedRecordset : public HostRecordset {
 public:
  explicit NamedRecordset(HostPtr<IDispatch> object)
      : HostRecordset(std::move(object)), rows_(object_) {}

  bool Eof() override { return ToBoolean(rows_.Call(u"EOF")); }
  bool Bof() override { return ToBoolean(rows_.Call(u"BOF")); }
  void MoveFirst() override { rows_.Call(u"MoveFirst"); }
  void MoveLast() override { rows_.Call(u"MoveLast"); }
  void MoveNext() override { rows_.Call(u"MoveNext"); }
  std::int32_t RecordCount() override { return ToLong(rows_.Call(u"RecordCount")); }
  std::size_t Column(TextView name) override;
  std::vector<Text> ColumnNames() override;
  Value At(std::size_t column) override { return fields_.at(column).Call(u"Value"); }

 private:
  void Unbind() override;
  NamedObject Fields();

  NamedObject rows_;
  std::vector<NamedObject> fields_;
  std::map<Text, std::size_t, std::less<>> columns_;  // index in fields_ by the name as asked for
};

}  // namespace fetchkit
