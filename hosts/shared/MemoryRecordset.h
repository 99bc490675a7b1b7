// The rows of a query, read into memory.
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "fetchkit/base/Text.h"
#include "fetchkit/base/Value.h"
#include "fetchkit/host/Recordset.h"

namespace fetchkit::hosts {

// Error (Host) for every operation once it is closed, and for moves and reads that have no row.
class MemoryRecordset : public Recordset {
 public:
  // The cells row by row: a whole number of rows.
  MemoryRecordset(std::vector<Text> names, std::vector<Value> cells);

  bool Eof() override { return Open().row_ == rows_; }
  bool Bof() override { return Open().rows_ == 0 || isBefore_; }
  void MoveFirst() override { MoveTo(0); }
  void MoveLast() override { MoveTo(rows_ - 1); }
  void MoveNext() override;
  void MovePrevious();
  std::int32_t RecordCount() override { return static_cast<std::int32_t>(Open().rows_); }
  std::size_t Column(TextView name) override;
  std::vector<Text> ColumnNames() override { return Open().names_; }
  Value At(std::size_t column) override;

  // All of them, row by row.
  const std::vector<Value>& cells() { return Open().cells_; }

  // "column=value, ..." of the first row; Null is shown as -.
  Text FirstRow() const;

  // Frees the rows. False when it was closed before.
  bool Close();

 private:
  MemoryRecordset& Open();
  void MoveTo(std::size_t row);

  std::vector<Text> names_;
  std::vector<Value> cells_;  // row by row
  std::size_t rows_;
  std::size_t row_ = 0;
  bool isBefore_ = false;  // before the first row, which row_ then is
  bool open_ = true;
};

}  // namespace fetchkit::hosts
