// The rows of the filter dialog's grid: one condition each, one row a field at most.
#pragma once

#include "fetchkit/base/Text.h"
#include "fetchkit/dialogs/ControlModels.h"
#include "fetchkit/listset/model/TypeDef.h"

namespace fetchkit {

// Fields are indexes into the record's; rows are the grid's, -1 for none.
class FilterRows {
 public:
  // How many conditions there may be, and what is said of one more.
  static constexpr int kMost = 26;
  static constexpr TextView kFullWarning =
      u"你设置的条件已经有25个之多了,你将不能再多设条件,只能修改或者减少已设条件.";

  // The grid must outlive the object.
  explicit FilterRows(MSFlexGrid& grid) : grid_(grid) {}

  // Sets the grid up, and adds a row for each filterable field that has a condition.
  void Load(const ListType& list);

  int Count() const { return grid_.Rows() - grid_.FixedRows(); }

  // From this number on no editor is opened for another condition.
  bool AreFull() const;

  // How many there are, and when that becomes of interest how many may be added.
  Text CountText() const;

  int RowOf(int field) const;
  int FieldOf(int row) const;  // std::out_of_range for a row that is not there
  int CurrentField() const { return FieldOf(grid_.Row()); }

  // Replaces the field's row or adds it at the end; it is the current one then.
  void Write(int field, const ListFieldType& description, const Text& text, const Text& value);

  // False when the field has no row; otherwise none is the current one.
  bool Remove(int field);

 private:
  MSFlexGrid& grid_;
};

}  // namespace fetchkit
