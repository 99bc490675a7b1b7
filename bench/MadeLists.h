// Hosts and lists of any size, made for the benchmarks.
#pragma once

#include <functional>
#include <memory>
#include <stdexcept>
#include <vector>

#include "fetchkit/FetchKit.h"

namespace fetchkit::bench {

// Rows made by a function, column by column; nothing is copied in beforehand, so that what is timed
// is the reader's work.
class MadeRows : public Recordset {
 public:
  using Cell = std::function<Value(std::size_t row, std::size_t column)>;
  MadeRows(std::vector<Text> columns, std::size_t rows, Cell cell)
      : columns_(std::move(columns)), rows_(rows), cell_(std::move(cell)) {}

  bool Eof() override { return row_ >= rows_; }
  bool Bof() override { return rows_ == 0; }
  void MoveFirst() override { row_ = 0; }
  void MoveLast() override { row_ = rows_ - 1; }
  void MoveNext() override { ++row_; }
  std::int32_t RecordCount() override { return static_cast<std::int32_t>(rows_); }
  std::size_t Column(TextView name) override {
    for (std::size_t i = 0; i < columns_.size(); ++i)
      if (EqualFolded(columns_[i], name)) return i;
    throw std::runtime_error("no such column");
  }
  std::vector<Text> ColumnNames() override { return columns_; }
  Value At(std::size_t column) override { return cell_(row_, column); }

 private:
  std::vector<Text> columns_;
  std::size_t rows_;
  Cell cell_;
  std::size_t row_ = 0;
};

// Answers every statement with the rows that make has for it; null means no row. Nothing is
// refused: what is timed is a healthy session.
class MadeConnection : public SessionConnection {
 public:
  using Make = std::function<RecordsetPtr(TextView sql)>;
  explicit MadeConnection(Make make) : make_(std::move(make)) {}

  std::shared_ptr<fetchkit::HostContext> HostContext() override { return nullptr; }
  void CloseRecordset(RecordsetPtr& recordset) override { recordset.reset(); }
  void RecordsetIsEmpty(RecordsetPtr& recordset, bool& isEmpty) override {
    isEmpty = recordset->Eof();
  }
  bool OpenStaticRecordset(TextView sql, RecordsetPtr& recordset, std::int32_t, std::int32_t,
                           std::int32_t, std::int32_t) override {
    recordset = make_(sql);
    if (!recordset) recordset = std::make_shared<MadeRows>(std::vector<Text>(), 0, nullptr);
    return true;
  }
  bool OpenRecordset(TextView sql, RecordsetPtr& recordset, std::int32_t, std::int32_t) override {
    return OpenStaticRecordset(sql, recordset, 0, 0, 0, 0);
  }
  bool ExecuteSql(TextView, std::int32_t, Value&) override { return true; }

 private:
  Make make_;
};

// A list of codes with names, of characters that are read in one way.
std::vector<Text> CodesAndNames(std::size_t count);

// The Pinyin initials of each text, by ICU.
std::vector<Text> InitialsByIcu(const std::vector<Text>& list);

}  // namespace fetchkit::bench
