// The host's recordsets, read early-bound as ADO.
#pragma once

#include <map>
#include <vector>

#include "component/Windows.h"
#include "component/host/Ado.h"
#include "component/platform/HostPtr.h"
#include "fetchkit/host/Recordset.h"

namespace fetchkit {

// Columns are asked for by name, once each. An object that is no ADO recordset can be given back
// like any other, but every reading of it is Error (Host).
class AdoRecordset : public Recordset {
 public:
  explicit AdoRecordset(HostPtr<IDispatch> object);

  // The reference, for a call of the host's that takes it away; reading is over then.
  IDispatch** GiveBack();

  // The same for a call that looks at it and may exchange it.
  IDispatch** InOut();

  // To be called after InOut: follows an exchange.
  void Refresh();

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
  ado::Recordset& Rows() const;
  HostPtr<ado::Fields> Fields() const;

  HostPtr<IDispatch> object_;
  HostPtr<ado::Recordset> rows_;  // the same object under ADO's interface; empty when it has none
  std::vector<HostPtr<ado::Field>> fields_;
  std::map<Text, std::size_t, std::less<>> columns_;  // index in fields_ by the name as asked for
};

}  // namespace fetchkit
