// A host that answers every statement, with whatever columns are asked for.
#pragma once

#include <functional>
#include <memory>
#include <vector>

#include "support/FakeConnection.h"

namespace fetchkit::test {

class AnyHost : public FakeConnection {
 public:
  std::function<int(TextView sql)> rows;          // below 0: the statement is refused
  std::function<Value(TextView column)> cell;     // asked anew at every read; may throw
  std::function<void(TextView sql)> onStatement;  // may be null; may throw

  bool OpenStaticRecordset(TextView sql, RecordsetPtr& recordset, std::int32_t, std::int32_t,
                           std::int32_t, std::int32_t) override {
    return Answer(sql, recordset);
  }
  bool OpenRecordset(TextView sql, RecordsetPtr& recordset, std::int32_t, std::int32_t) override {
    return Answer(sql, recordset);
  }
  bool ExecuteSql(TextView sql, std::int32_t, Value&) override {
    if (onStatement) onStatement(sql);
    return rows(sql) >= 0;
  }
  void CloseRecordset(RecordsetPtr& recordset) override {
    --openRecordsets;
    recordset.reset();
  }

 private:
  class Rows : public Recordset {
   public:
    Rows(const AnyHost& host, int count) : host_(host), count_(count) {}
    bool Eof() override { return row_ >= count_; }
    bool Bof() override { return count_ == 0; }
    void MoveFirst() override { row_ = 0; }
    void MoveLast() override { row_ = count_ - 1; }
    void MoveNext() override { ++row_; }
    std::int32_t RecordCount() override { return count_; }
    std::size_t Column(TextView name) override {
      names_.emplace_back(name);
      return names_.size() - 1;
    }
    std::vector<Text> ColumnNames() override { return names_; }
    Value At(std::size_t column) override { return host_.cell(names_.at(column)); }

   private:
    const AnyHost& host_;
    int count_;
    int row_ = 0;
    std::vector<Text> names_;
  };

  bool Answer(TextView sql, RecordsetPtr& recordset) {
    if (onStatement) onStatement(sql);
    const int count = rows(sql);
    if (count < 0) return false;
    recordset = std::make_shared<Rows>(*this, count);
    ++openRecordsets;
    return true;
  }
};

}  // namespace fetchkit::test
