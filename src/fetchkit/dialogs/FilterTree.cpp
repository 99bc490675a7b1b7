#include "fetchkit/dialogs/FilterTree.h"

#include <algorithm>
#include <utility>
#include <vector>

#include "fetchkit/listset/model/FieldType.h"

namespace fetchkit {
namespace {

TreeView::Picture PictureOf(const ListFieldType& field) {
  using Picture = TreeView::Picture;
  using Editor = FieldType::Editor;
  const FieldType* type = FieldTypeOf(field.strFieldType);
  if (type == nullptr) return Picture::Words;
  switch (type->EditedBy()) {
    case Editor::Numbers:
      return Picture::Number;
    case Editor::Periods:
    case Editor::Dates:
      return Picture::Date;
    case Editor::Codes:
    case Editor::Values:
      return Picture::List;
    case Editor::YesNo:
      return Picture::YesNo;
    case Editor::Texts:
      break;
  }
  return Picture::Words;
}

}  // namespace

void FilterTree::Show() {
  const ListSearch& search = search_.Search();
  std::vector<TreeView::Node> nodes;
  for (std::size_t i = 0; i < list_.ListField.size(); ++i) {
    const ListFieldType& field = list_.ListField[i];
    const int index = static_cast<int>(i);
    if (Has(index) && search.Matches(field.strListFieldDesc))
      nodes.push_back(
          {Join(u"KEY", i), field.strListFieldDesc, u"closed", index, PictureOf(field)});
  }
  tree_.SetNodes(std::move(nodes));
  tree_.SelectedItem(NodeOf(current_));
  ShowRows();
}

void FilterTree::ShowRows() {
  const auto& nodes = tree_.Nodes();
  for (std::size_t i = 0; i < nodes.size(); ++i)
    tree_.Bold(static_cast<int>(i), rows_.RowOf(nodes[i].Tag) >= 0);
}

void FilterTree::Reset() {
  current_ = -1;
  EndSearch();
}

void FilterTree::EndSearch() {
  search_.Text({});
  Show();
}

int FilterTree::Found() {
  const ListSearch& search = search_.Search();
  const auto& nodes = tree_.Nodes();
  const auto nodeAt = [&](int node) -> const TreeView::Node& {
    return nodes[static_cast<std::size_t>(node)];
  };
  const int found = ListSearch::FirstFound(
      static_cast<int>(nodes.size()), [&](int node) { return search.Rank(nodeAt(node).Text); });
  return found < 0 ? -1 : nodeAt(found).Tag;
}

void FilterTree::Select(int field) {
  current_ = field;
  tree_.SelectedItem(NodeOf(field));
}

bool FilterTree::Has(int field) const {
  const auto at = static_cast<std::size_t>(field);
  return at < list_.ListField.size() && list_.ListField[at].blnIsFilter;
}

int FilterTree::NodeOf(int field) const {
  const auto& nodes = tree_.Nodes();
  const auto node = std::find_if(nodes.begin(), nodes.end(),
                                 [field](const TreeView::Node& each) { return each.Tag == field; });
  return node == nodes.end() ? -1 : static_cast<int>(node - nodes.begin());
}

}  // namespace fetchkit
