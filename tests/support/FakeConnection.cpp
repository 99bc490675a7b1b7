#include "support/FakeConnection.h"

#include <gtest/gtest.h>

#include <stdexcept>

#include "fetchkit/base/Utf8.h"

namespace fetchkit::test {
namespace {

class FakeRecordset : public Recordset {
 public:
  FakeRecordset(FakeConnection& host, const Answer& answer) : host_(host), answer_(answer) {}

  bool Eof() override { return row_ >= RecordCount(); }
  bool Bof() override { return RecordCount() == 0; }
  void MoveFirst() override { Now(), row_ = 0; }
  void MoveLast() override { row_ = RecordCount() - 1; }
  void MoveNext() override { Now(), ++row_; }
  std::int32_t RecordCount() override { return static_cast<int>(Now().rows.size()); }
  std::size_t Column(TextView name) override {
    std::vector<Text>& columns = Now().columns;
    for (std::size_t i = 0; i < columns.size(); ++i)
      if (EqualFolded(columns[i], name)) return i;
    if (!answer_.cell) throw std::runtime_error("no column " + ToUtf8(name));
    columns.emplace_back(name);
    return columns.size() - 1;
  }
  std::vector<Text> ColumnNames() override { return Now().columns; }
  Value At(std::size_t column) override {
    if (row_ < 0 || Eof()) throw std::runtime_error("no current row");
    if (row_ == answer_.throwAtRow) throw std::runtime_error("row lost");
    if (answer_.cell) return answer_.cell(answer_.columns.at(column));
    return answer_.rows.at(static_cast<std::size_t>(row_)).at(column);
  }

  bool CloseThrows() const { return answer_.closeThrows; }

  bool open = true;

 private:
  Answer& Now() {
    host_.CallBack();
    return answer_;
  }

  FakeConnection& host_;
  Answer answer_;
  int row_ = 0;
};

// Host objects over the connection's login; each read may be spoilt.
class FakeContext : public HostContext,
                    public HostAccountType,
                    public HostAccountLogin,
                    public HostLoginContext,
                    public std::enable_shared_from_this<FakeContext> {
 public:
  explicit FakeContext(std::shared_ptr<FakeConnection> connection)
      : connection_(std::move(connection)) {}

  std::shared_ptr<HostAccountType> AccountTypeInfo() override {
    return Part<HostAccountType>("AccountTypeInfo");
  }
  std::shared_ptr<HostAccountLogin> AccountLogin() override {
    return Part<HostAccountLogin>("AccountLogin");
  }
  std::shared_ptr<HostLoginContext> LoginContext() override {
    return Part<HostLoginContext>("LoginContext");
  }
  Value AccountType() override { return Read("AccountType", login().accountType); }
  Value ServerName() override { return Read("ServerName", login().server); }
  Value UserId() override { return Read("UserId", login().user); }
  Value LoginDate() override { return Read("LoginDate", login().loginDate); }
  Value OrganizationId() override { return Read("OrganizationId", login().organizationId); }
  Value OperatorId() override { return Read("OperatorId", login().operatorId); }
  Value Password() override { return Read("Password", login().password); }
  Value Item(TextView name) override {
    if (name != u"#SSCustomerID") throw std::runtime_error("no such item");
    return Read("Item", login().customer);
  }

 private:
  const FakeLogin& login() const { return connection_->login; }
  Value Read(const char* name, const Value& value) const {
    if (login().spoilt.contains(name)) throw std::runtime_error(std::string("spoilt: ") + name);
    return value;
  }
  template <class Object>
  std::shared_ptr<Object> Part(const char* name) {
    if (login().absent.contains(name)) return nullptr;
    return shared_from_this();
  }

  std::shared_ptr<FakeConnection> connection_;
};

}  // namespace

FakeConnection::~FakeConnection() {
  EXPECT_EQ(openRecordsets, 0) << "a recordset was not given back";
}

std::vector<std::string> FakeConnection::TakeSent() {
  return std::exchange(sent_, {});
}

void FakeConnection::CallBack() {
  if (std::exchange(calling_, true)) return;
  if (onOperation) onOperation();
  ++operations;
  calling_ = false;
}

std::shared_ptr<HostContext> FakeConnection::HostContext() {
  CallBack();
  if (login.absent.contains("HostContext")) return nullptr;
  return std::make_shared<FakeContext>(shared_from_this());
}

void FakeConnection::CloseRecordset(RecordsetPtr& recordset) {
  CallBack();
  auto* fake = dynamic_cast<FakeRecordset*>(recordset.get());
  ASSERT_NE(fake, nullptr) << "a recordset of somebody else, or none, was given back";
  EXPECT_TRUE(fake->open) << "a recordset was given back twice";
  fake->open = false;
  --openRecordsets;
  const bool throws = fake->CloseThrows();
  recordset.reset();
  if (throws) throw std::runtime_error("close failed");
}

void FakeConnection::RecordsetIsEmpty(RecordsetPtr& recordset, bool& isEmpty) {
  if (!unsaid) isEmpty = recordset->Bof() && recordset->Eof();
}

bool FakeConnection::OpenStaticRecordset(TextView sql, RecordsetPtr& recordset,
                                         std::int32_t cursorType, std::int32_t lockType,
                                         std::int32_t commandType, std::int32_t option) {
  EXPECT_EQ((std::vector{cursorType, lockType, commandType, option}), (std::vector{3, 1, 1, 0}));
  return Open("static: ", sql, recordset);
}

bool FakeConnection::OpenRecordset(TextView sql, RecordsetPtr& recordset, std::int32_t option1,
                                   std::int32_t option2) {
  EXPECT_EQ((std::vector{option1, option2}), (std::vector{0, 0}));
  return Open("", sql, recordset);
}

bool FakeConnection::ExecuteSql(TextView sql, std::int32_t option, Value& out) {
  EXPECT_EQ(option, 1);
  if (Send("execute: ", sql) == nullptr) return false;
  out = Value();
  return true;
}

const Answer* FakeConnection::Send(const std::string& prefix, TextView sql) {
  CallBack();
  sent_.push_back(prefix + ToUtf8(sql));
  const auto own = answers_.find(sql);
  const Answer* answer = own != answers_.end() ? &own->second : fallback ? fallback(sql) : nullptr;
  EXPECT_NE(answer, nullptr) << "unexpected statement: " << ToUtf8(sql);
  if (answer == nullptr || answer->kind == Answer::Kind::Refused) return nullptr;
  if (answer->kind == Answer::Kind::Throws) throw std::runtime_error("statement failed");
  if (answer->kind == Answer::Kind::OddThrow) throw 1;
  return answer;
}

bool FakeConnection::Open(const std::string& prefix, TextView sql, RecordsetPtr& recordset) {
  const Answer* answer = Send(prefix, sql);
  if (answer == nullptr) return false;
  if (answer->kind == Answer::Kind::NoRecordset) return true;
  recordset = std::make_shared<FakeRecordset>(*this, *answer);
  ++openRecordsets;
  return true;
}

}  // namespace fetchkit::test
