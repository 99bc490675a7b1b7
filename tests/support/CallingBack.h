// A host that handles messages while it works, so that the library is called from inside it.
#pragma once

#include <functional>
#include <memory>
#include <utility>

#include "fetchkit/host/SessionConnection.h"

namespace fetchkit::test {

// Passes on to another host and calls back in front of each operation, its recordsets' included;
// operations that a call back causes do not call back.
class CallingBack : public SessionConnection {
 public:
  explicit CallingBack(SessionConnectionPtr host) : host_(std::move(host)) {}

  std::function<void()> onOperation;
  int operations = 0;

  std::shared_ptr<fetchkit::HostContext> HostContext() override {
    CallBack();
    return host_->HostContext();
  }
  void CloseRecordset(RecordsetPtr& recordset) override {
    CallBack();
    RecordsetPtr inner = std::static_pointer_cast<Rows>(std::exchange(recordset, nullptr))->inner;
    host_->CloseRecordset(inner);
  }
  void RecordsetIsEmpty(RecordsetPtr& recordset, bool& isEmpty) override {
    CallBack();
    host_->RecordsetIsEmpty(static_cast<Rows&>(*recordset).inner, isEmpty);
  }
  bool OpenStaticRecordset(TextView sql, RecordsetPtr& recordset, std::int32_t cursorType,
                           std::int32_t lockType, std::int32_t commandType,
                           std::int32_t option) override {
    CallBack();
    return Wrapped(recordset, host_->OpenStaticRecordset(sql, recordset, cursorType, lockType,
                                                         commandType, option));
  }
  bool OpenRecordset(TextView sql, RecordsetPtr& recordset, std::int32_t option1,
                     std::int32_t option2) override {
    CallBack();
    return Wrapped(recordset, host_->OpenRecordset(sql, recordset, option1, option2));
  }
  bool ExecuteSql(TextView sql, std::int32_t option, Value& out) override {
    CallBack();
    return host_->ExecuteSql(sql, option, out);
  }

 private:
  struct Rows : Recordset {
    Rows(CallingBack& of, RecordsetPtr rows) : host(of), inner(std::move(rows)) {}
    bool Eof() override { return Of().Eof(); }
    bool Bof() override { return Of().Bof(); }
    void MoveFirst() override { Of().MoveFirst(); }
    void MoveLast() override { Of().MoveLast(); }
    void MoveNext() override { Of().MoveNext(); }
    std::int32_t RecordCount() override { return Of().RecordCount(); }
    std::size_t Column(TextView name) override { return Of().Column(name); }
    std::vector<Text> ColumnNames() override { return Of().ColumnNames(); }
    Value At(std::size_t column) override { return Of().At(column); }

    Recordset& Of() {
      host.CallBack();
      return *inner;
    }

    CallingBack& host;
    RecordsetPtr inner;
  };

  bool Wrapped(RecordsetPtr& recordset, bool opened) {
    if (opened) recordset = std::make_shared<Rows>(*this, std::move(recordset));
    return opened;
  }
  void CallBack() {
    if (std::exchange(calling_, true)) return;
    if (onOperation) onOperation();
    ++operations;
    calling_ = false;
  }

  SessionConnectionPtr host_;
  bool calling_ = false;
};

}  // namespace fetchkit::test
