// A recordset as the host's connection hands it back.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <vector>

#include "fetchkit/base/Text.h"
#include "fetchkit/base/Value.h"

namespace fetchkit {

// Rows of an opened statement, one of which is current. All operations may throw; what they throw
// is described as Error (Host) where the host says no more.
class Recordset {
 public:
  virtual ~Recordset() = default;

  // Behind the last row, before the first one; both when there is no row at all.
  virtual bool Eof() = 0;
  virtual bool Bof() = 0;

  virtual void MoveFirst() = 0;
  virtual void MoveLast() = 0;
  virtual void MoveNext() = 0;

  // Rows in all, or -1 when the cursor cannot tell.
  virtual std::int32_t RecordCount() = 0;

  // The index of a column, found without regard to letter case, the first of equal names. Throws
  // when there is no such column. Stays valid for the recordset's life, so that loops resolve a
  // name once and not per row.
  virtual std::size_t Column(TextView name) = 0;

  // The names of all columns, in the order of the statement.
  virtual std::vector<Text> ColumnNames() = 0;

  // The current row's value in that column. Throws when there is no current row.
  virtual Value At(std::size_t column) = 0;
};

using RecordsetPtr = std::shared_ptr<Recordset>;

}  // namespace fetchkit
