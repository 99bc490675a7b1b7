#include "component/host/NamedRecordset.h"

#include <cstdint>

#include "component/com/Bstr.h"
#include "fetchkit/base/Error.h"

namespace fetchkit {
namespace {

// Fields(key), which is Fields.Item(key) where the collection names its default member so.
NamedObject Item(NamedObject& fields, const VARIANT& key) {
  NamedObject field(fields.Object(fields.Has(u"Item") ? u"Item" : u"", {&key, 1}));
  if (!field) throw Error(ErrorKind::Host, u"the recordset has no such field");
  return field;
}

}  // namespace

void NamedRecordset::Unbind() {
  fields_.clear();
  columns_.clear();
  rows_ = NamedObject({});
}

NamedObject NamedRecordset::Fields() {
  NamedObject fields(rows_.Object(u"Fields"));
  if (!fields) throw Error(ErrorKind::Host, u"the recordset has no fields");
  return fields;
}

std::size_t NamedRecordset::Column(TextView name) {
  if (const auto known = columns_.find(name); known != columns_.end()) return known->second;
  NamedObject fields = Fields();
  const Bstr text(name);
  fields_.push_back(Item(fields, Argument(text)));
  columns_.emplace(name, fields_.size() - 1);
  return fields_.size() - 1;
}

std::vector<Text> NamedRecordset::ColumnNames() {
  NamedObject fields = Fields();
  const std::int32_t count = ToLong(fields.Call(u"Count"));
  std::vector<Text> names;
  for (std::int32_t i = 0; i < count; ++i)
    names.push_back(ToText(Item(fields, Argument(i)).Call(u"Name")));
  return names;
}

}  // namespace fetchkit
