// A host whose operations fail on purpose.
#pragma once

#include <array>
#include <initializer_list>
#include <memory>

#include "fetchkit/host/SessionConnection.h"

namespace fetchkit::test {

// How an operation fails. Each way concerns the operations that it makes sense for; a read of the
// login counts as a read of a cell.
enum class Fault {
  Refuses,        // a statement: answers False
  Throws,         // all but a look-up: raises in place of its work; giving back is done first
  ThrowsOddly,    // the same, with what is no std::exception; a statement has run by then
  NoRows,         // an opening: the recordset is empty
  Null,           // a cell is Null
  WrongType,      // a cell holds an array, which is neither a text nor a number
  ColumnMissing,  // a look-up of a column raises, which is all that a lost connection does there
  NotWritten      // an out-argument keeps what it held; an object of the login is null
};
inline constexpr std::array kFaults = {Fault::Refuses,       Fault::Throws,    Fault::ThrowsOddly,
                                       Fault::NoRows,        Fault::Null,      Fault::WrongType,
                                       Fault::ColumnMissing, Fault::NotWritten};
const char* NameOf(Fault fault);

// Passes everything on to another connection, whose login and recordsets it wraps, until told to
// fail. The connection must outlive its recordsets.
class FaultyConnection : public SessionConnection,
                         public std::enable_shared_from_this<FaultyConnection> {
 public:
  explicit FaultyConnection(SessionConnectionPtr inner) : inner_(std::move(inner)) {}

  // From now on the nth of the operations that the fault concerns fails (1: the next one), and with
  // forGood all that follow.
  void Fail(int nth, Fault fault, bool forGood);

  // Stops failing; how many operations failed since Fail.
  int Heal();

  int openRecordsets = 0;
  int givenBackTwice = 0;

  std::shared_ptr<fetchkit::HostContext> HostContext() override;
  void CloseRecordset(RecordsetPtr& recordset) override;
  void RecordsetIsEmpty(RecordsetPtr& recordset, bool& isEmpty) override;
  bool OpenStaticRecordset(TextView sql, RecordsetPtr& recordset, std::int32_t cursorType,
                           std::int32_t lockType, std::int32_t commandType,
                           std::int32_t option) override;
  bool OpenRecordset(TextView sql, RecordsetPtr& recordset, std::int32_t option1,
                     std::int32_t option2) override;
  bool ExecuteSql(TextView sql, std::int32_t option, Value& out) override;

  // For the wrappers. Whether this operation is to fail in that way; each asks once for every way
  // that concerns it.
  bool Fails(Fault fault);
  void MayThrow();
  Value Cell(Value value);

 private:
  template <class Open>
  bool Opened(RecordsetPtr& recordset, Open&& open);

  SessionConnectionPtr inner_;
  Fault fault_ = Fault::Throws;
  int left_ = 0;  // operations until the failing one; 0: none fails
  bool forGood_ = false;
  int failed_ = 0;
};

}  // namespace fetchkit::test
