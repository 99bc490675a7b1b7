// The tree of the filter dialog: a node for each filterable column that the search finds.
#pragma once

#include "fetchkit/dialogs/ControlModels.h"
#include "fetchkit/dialogs/FilterRows.h"
#include "fetchkit/listset/model/TypeDef.h"

namespace fetchkit {

// One column is the current one, whether its node is shown or not. Columns are named by their
// field, an index into the record's, -1 for none.
class FilterTree {
 public:
  // All must outlive the object.
  FilterTree(const ListType& list, const FilterRows& rows, SearchBox& search, TreeView& tree)
      : list_(list), rows_(rows), search_(search), tree_(tree) {}

  // The nodes that the search finds now.
  void Show();

  // Columns with a condition are bold.
  void ShowRows();

  // All columns; none is the current one.
  void Reset();
  void EndSearch();

  // The column to go to for what is in the search box; nothing typed is found in every one.
  int Found();

  void Select(int field);

  // Whether the tree may show it.
  bool Has(int field) const;

 private:
  int NodeOf(int field) const;

  const ListType& list_;
  const FilterRows& rows_;
  SearchBox& search_;
  TreeView& tree_;
  int current_ = -1;
};

}  // namespace fetchkit
