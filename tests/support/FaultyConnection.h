// A host's connection on which one statement goes wrong.
#pragma once

#include <stdexcept>
#include <utility>
#include <vector>

#include "fetchkit/host/SessionConnection.h"

namespace fetchkit::test {

enum class Fault {
  Refused,     // the operation answers False
  Throws,      // the operation throws
  OddThrow,    // the operation throws what is no std::exception
  NotWritten,  // the operation answers True and leaves its out-argument alone
  NoRows,
  Nulls,       // for values of the column, in every row
  WrongTypes,  // arrays for values of the column, in every row
  NoColumn,    // the column is missing
  CloseThrows  // giving the recordset back succeeds, and throws
};

// Hands everything on to another connection, but does wrong to one statement: the one before which
// `before` others were sent. Works on any connection and knows no test framework.
class FaultyConnection : public SessionConnection {
 public:
  // column: the one that the three faults in values are about.
  FaultyConnection(SessionConnectionPtr inner, Fault fault, int before = 0, TextView column = {})
      : inner_(std::move(inner)), fault_(fault), before_(before), column_(column) {}

  std::shared_ptr<fetchkit::HostContext> HostContext() override { return inner_->HostContext(); }
  void CloseRecordset(RecordsetPtr& recordset) override {
    auto* rows = dynamic_cast<Rows*>(recordset.get());
    inner_->CloseRecordset(rows == nullptr ? recordset : rows->inner);
    recordset.reset();
    if (rows != nullptr && fault_ == Fault::CloseThrows) throw std::runtime_error("close failed");
  }
  void RecordsetIsEmpty(RecordsetPtr& recordset, bool& isEmpty) override {
    auto* rows = dynamic_cast<Rows*>(recordset.get());
    inner_->RecordsetIsEmpty(rows == nullptr ? recordset : rows->inner, isEmpty);
    if (rows != nullptr && fault_ == Fault::NoRows) isEmpty = true;
  }
  bool OpenStaticRecordset(TextView sql, RecordsetPtr& recordset, std::int32_t cursorType,
                           std::int32_t lockType, std::int32_t commandType,
                           std::int32_t option) override {
    return Send(recordset, [&](RecordsetPtr& rows) {
      return inner_->OpenStaticRecordset(sql, rows, cursorType, lockType, commandType, option);
    });
  }
  bool OpenRecordset(TextView sql, RecordsetPtr& recordset, std::int32_t option1,
                     std::int32_t option2) override {
    return Send(recordset, [&](RecordsetPtr& rows) {
      return inner_->OpenRecordset(sql, rows, option1, option2);
    });
  }
  bool ExecuteSql(TextView sql, std::int32_t option, Value& out) override {
    return Send(out, [&](Value& value) { return inner_->ExecuteSql(sql, option, value); });
  }

 private:
  // The rows of the statement that goes wrong.
  struct Rows : Recordset {
    Rows(RecordsetPtr rows, Fault what, TextView which)
        : inner(std::move(rows)), fault(what), column(which) {}
    bool Eof() override { return fault == Fault::NoRows || inner->Eof(); }
    bool Bof() override { return fault == Fault::NoRows || inner->Bof(); }
    void MoveFirst() override { inner->MoveFirst(); }
    void MoveLast() override { inner->MoveLast(); }
    void MoveNext() override { inner->MoveNext(); }
    std::int32_t RecordCount() override {
      return fault == Fault::NoRows ? 0 : inner->RecordCount();
    }
    std::size_t Column(TextView name) override {
      if (fault == Fault::NoColumn && EqualFolded(name, column))
        throw std::runtime_error("no such column");
      return inner->Column(name);
    }
    std::vector<Text> ColumnNames() override { return inner->ColumnNames(); }
    Value At(std::size_t index) override {
      const bool spoilt = fault == Fault::Nulls || fault == Fault::WrongTypes;
      if (!spoilt || !EqualFolded(inner->ColumnNames().at(index), column)) return inner->At(index);
      return fault == Fault::Nulls ? Value(NullValue()) : Value(ValueArray());
    }

    RecordsetPtr inner;
    Fault fault;
    Text column;
  };

  static void Spoil(Value&) {}
  void Spoil(RecordsetPtr& rows) const { rows = std::make_shared<Rows>(rows, fault_, column_); }

  template <class Out, class Operation>
  bool Send(Out& out, Operation&& operation) {
    if (before_-- != 0) return operation(out);
    if (fault_ == Fault::Refused) return false;
    if (fault_ == Fault::Throws) throw std::runtime_error("statement failed");
    if (fault_ == Fault::OddThrow) throw 1;
    if (fault_ == Fault::NotWritten) return true;
    if (!operation(out)) return false;
    Spoil(out);
    return true;
  }

  SessionConnectionPtr inner_;
  Fault fault_;
  int before_;
  Text column_;
};

}  // namespace fetchkit::test
