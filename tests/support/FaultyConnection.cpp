#include "support/FaultyConnection.h"

#include <stdexcept>
#include <utility>

namespace fetchkit::test {
namespace {

struct NoException {};

class FaultyRecordset : public Recordset {
 public:
  FaultyRecordset(std::shared_ptr<FaultyConnection> host, RecordsetPtr inner, bool hasRows)
      : host_(std::move(host)), inner_(std::move(inner)), hasRows_(hasRows) {}

  bool Eof() override { return !hasRows_ || Rows().Eof(); }
  bool Bof() override { return !hasRows_ || Rows().Bof(); }
  void MoveFirst() override { Rows().MoveFirst(); }
  void MoveLast() override { Rows().MoveLast(); }
  void MoveNext() override { Rows().MoveNext(); }
  std::int32_t RecordCount() override { return Rows().RecordCount() * (hasRows_ ? 1 : 0); }
  std::size_t Column(TextView name) override {
    if (host_->Fails(Fault::ColumnMissing)) throw std::runtime_error("There is no such column.");
    return inner_->Column(name);
  }
  std::vector<Text> ColumnNames() override { return Rows().ColumnNames(); }
  Value At(std::size_t column) override {
    if (!hasRows_) throw std::runtime_error("There is no current row.");
    return host_->Cell(inner_->At(column));
  }

  bool HasRows() const { return hasRows_; }
  RecordsetPtr TakeInner() { return std::exchange(inner_, nullptr); }

 private:
  Recordset& Rows() const {
    host_->MayThrow();
    return *inner_;
  }

  std::shared_ptr<FaultyConnection> host_;
  RecordsetPtr inner_;  // null once it was given back
  bool hasRows_;
};

// The login and its three objects, which are there when the inner ones are.
class FaultyLogin : public HostContext,
                    public HostAccountType,
                    public HostAccountLogin,
                    public HostLoginContext,
                    public std::enable_shared_from_this<FaultyLogin> {
 public:
  FaultyLogin(std::shared_ptr<FaultyConnection> host, std::shared_ptr<HostContext> inner)
      : host_(std::move(host)), inner_(std::move(inner)) {}

  std::shared_ptr<HostAccountType> AccountTypeInfo() override {
    return Given<HostAccountType>(inner_->AccountTypeInfo());
  }
  std::shared_ptr<HostAccountLogin> AccountLogin() override {
    return Given<HostAccountLogin>(inner_->AccountLogin());
  }
  std::shared_ptr<HostLoginContext> LoginContext() override {
    return Given<HostLoginContext>(inner_->LoginContext());
  }

  Value AccountType() override { return host_->Cell(inner_->AccountTypeInfo()->AccountType()); }
  Value ServerName() override { return host_->Cell(inner_->AccountLogin()->ServerName()); }
  Value UserId() override { return host_->Cell(inner_->AccountLogin()->UserId()); }
  Value LoginDate() override { return host_->Cell(inner_->LoginContext()->LoginDate()); }
  Value OrganizationId() override { return host_->Cell(inner_->LoginContext()->OrganizationId()); }
  Value OperatorId() override { return host_->Cell(inner_->LoginContext()->OperatorId()); }
  Value Password() override { return host_->Cell(inner_->LoginContext()->Password()); }
  Value Item(TextView name) override { return host_->Cell(inner_->LoginContext()->Item(name)); }

 private:
  template <class Part>
  std::shared_ptr<Part> Given(const std::shared_ptr<Part>& inner) {
    host_->MayThrow();
    if (!inner || host_->Fails(Fault::NotWritten)) return nullptr;
    return shared_from_this();
  }

  std::shared_ptr<FaultyConnection> host_;
  std::shared_ptr<HostContext> inner_;
};

}  // namespace

const char* NameOf(Fault fault) {
  static constexpr std::array kNames = {"refuses", "throws",     "throws oddly",   "no rows",
                                        "null",    "wrong type", "column missing", "not written"};
  return kNames.at(static_cast<std::size_t>(fault));
}

void FaultyConnection::Fail(int nth, Fault fault, bool forGood) {
  fault_ = fault;
  left_ = nth;
  forGood_ = forGood;
  failed_ = 0;
}

int FaultyConnection::Heal() {
  left_ = 0;
  return failed_;
}

bool FaultyConnection::Fails(Fault fault) {
  if (fault != fault_ || left_ == 0) return false;
  if (left_ > 1) return --left_, false;
  if (!forGood_) left_ = 0;
  ++failed_;
  return true;
}

void FaultyConnection::MayThrow() {
  if (Fails(Fault::Throws)) throw std::runtime_error("The connection was lost.");
  if (Fails(Fault::ThrowsOddly)) throw NoException();
}

Value FaultyConnection::Cell(Value value) {
  MayThrow();
  if (Fails(Fault::Null)) return NullValue();
  if (Fails(Fault::WrongType)) return Value(ValueArray());
  return value;
}

std::shared_ptr<HostContext> FaultyConnection::HostContext() {
  MayThrow();
  if (Fails(Fault::NotWritten)) return nullptr;
  auto inner = inner_->HostContext();
  return inner ? std::make_shared<FaultyLogin>(shared_from_this(), std::move(inner)) : nullptr;
}

void FaultyConnection::CloseRecordset(RecordsetPtr& recordset) {
  RecordsetPtr inner = dynamic_cast<FaultyRecordset&>(*recordset).TakeInner();
  if (inner) {
    --openRecordsets;
    inner_->CloseRecordset(inner);
  } else {
    ++givenBackTwice;
  }
  recordset = nullptr;
  MayThrow();
}

void FaultyConnection::RecordsetIsEmpty(RecordsetPtr& recordset, bool& isEmpty) {
  MayThrow();
  if (Fails(Fault::NotWritten)) return;
  isEmpty = recordset->RecordCount() == 0;
}

template <class Open>
bool FaultyConnection::Opened(RecordsetPtr& recordset, Open&& open) {
  if (Fails(Fault::Throws)) throw std::runtime_error("The connection was lost.");
  if (Fails(Fault::Refuses)) return false;
  if (Fails(Fault::NotWritten)) return true;
  RecordsetPtr inner;
  if (!open(inner)) return false;
  if (Fails(Fault::ThrowsOddly)) {
    inner_->CloseRecordset(inner);
    throw NoException();
  }
  const bool hasRows = !Fails(Fault::NoRows);
  recordset = std::make_shared<FaultyRecordset>(shared_from_this(), std::move(inner), hasRows);
  ++openRecordsets;
  return true;
}

bool FaultyConnection::OpenStaticRecordset(TextView sql, RecordsetPtr& recordset,
                                           std::int32_t cursorType, std::int32_t lockType,
                                           std::int32_t commandType, std::int32_t option) {
  return Opened(recordset, [&](RecordsetPtr& inner) {
    return inner_->OpenStaticRecordset(sql, inner, cursorType, lockType, commandType, option);
  });
}

bool FaultyConnection::OpenRecordset(TextView sql, RecordsetPtr& recordset, std::int32_t option1,
                                     std::int32_t option2) {
  return Opened(recordset, [&](RecordsetPtr& inner) {
    return inner_->OpenRecordset(sql, inner, option1, option2);
  });
}

bool FaultyConnection::ExecuteSql(TextView sql, std::int32_t option, Value& out) {
  if (Fails(Fault::Throws)) throw std::runtime_error("The connection was lost.");
  if (Fails(Fault::Refuses)) return false;
  const bool done = inner_->ExecuteSql(sql, option, out);
  if (Fails(Fault::ThrowsOddly)) throw NoException();
  return done;
}

}  // namespace fetchkit::test
