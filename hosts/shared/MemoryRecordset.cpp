#include "hosts/shared/MemoryRecordset.h"

#include <algorithm>
#include <utility>

#include "fetchkit/base/Error.h"

namespace fetchkit::hosts {
namespace {

[[noreturn]] void Fail(TextView what) {
  throw Error(ErrorKind::Host, what);
}

}  // namespace

MemoryRecordset::MemoryRecordset(std::vector<Text> names, std::vector<Value> cells)
    : names_(std::move(names)),
      cells_(std::move(cells)),
      rows_(names_.empty() ? 0 : cells_.size() / names_.size()) {}

void MemoryRecordset::MoveNext() {
  if (Eof()) Fail(u"The recordset has no current row.");
  if (!std::exchange(isBefore_, false)) ++row_;
}

void MemoryRecordset::MovePrevious() {
  if (Bof()) Fail(u"The recordset has no current row.");
  isBefore_ = row_ == 0;
  if (!isBefore_) --row_;
}

std::size_t MemoryRecordset::Column(TextView name) {
  const auto found = std::find_if(Open().names_.begin(), names_.end(),
                                  [&](const Text& own) { return EqualFolded(own, name); });
  if (found == names_.end()) Fail(Join(u"The recordset has no column ", name, u"."));
  return static_cast<std::size_t>(found - names_.begin());
}

Value MemoryRecordset::At(std::size_t column) {
  if (Eof() || isBefore_) Fail(u"The recordset has no current row.");
  if (column >= names_.size()) Fail(u"The recordset has no such column.");
  return cells_[row_ * names_.size() + column];
}

Text MemoryRecordset::FirstRow() const {
  Text text;
  for (std::size_t i = 0; rows_ > 0 && i < names_.size(); ++i) {
    const Value& cell = cells_[i];
    text.append(Join(text.empty() ? u"" : u", ", names_[i], u"=",
                     cell.IsNull() ? Text(u"-") : ToText(cell)));
  }
  return text;
}

bool MemoryRecordset::Close() {
  cells_ = {};
  return std::exchange(open_, false);
}

MemoryRecordset& MemoryRecordset::Open() {
  if (!open_) Fail(u"The recordset is closed.");
  return *this;
}

void MemoryRecordset::MoveTo(std::size_t row) {
  if (Open().rows_ == 0) Fail(u"The recordset has no rows.");
  row_ = row;
  isBefore_ = false;
}

}  // namespace fetchkit::hosts
