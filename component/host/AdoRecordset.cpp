#include "component/host/AdoRecordset.h"

#include <algorithm>
#include <cstdint>
#include <limits>
#include <utility>

#include "component/com/Bstr.h"
#include "component/com/Variants.h"
#include "component/host/HostCalls.h"
#include "fetchkit/base/Error.h"

namespace fetchkit {

void AdoRecordset::Unbind() {
  fields_.clear();
  columns_.clear();
  rows_ = {};
}

ado::Recordset& AdoRecordset::Rows() const {
  if (!rows_) throw Error(ErrorKind::Host, u"the recordset was given back");
  return *rows_.get();
}

bool AdoRecordset::Eof() {
  VARIANT_BOOL eof = VARIANT_TRUE;
  Called(Rows().get_EOF(&eof), rows_.get());
  return eof != VARIANT_FALSE;
}

bool AdoRecordset::Bof() {
  VARIANT_BOOL bof = VARIANT_TRUE;
  Called(Rows().get_BOF(&bof), rows_.get());
  return bof != VARIANT_FALSE;
}

void AdoRecordset::MoveFirst() {
  Called(Rows().MoveFirst(), rows_.get());
}

void AdoRecordset::MoveLast() {
  Called(Rows().MoveLast(), rows_.get());
}

void AdoRecordset::MoveNext() {
  Called(Rows().MoveNext(), rows_.get());
}

std::int32_t AdoRecordset::RecordCount() {
  ado::Position count = -1;
  Called(Rows().get_RecordCount(&count), rows_.get());
  return static_cast<std::int32_t>(
      std::min<ado::Position>(count, std::numeric_limits<std::int32_t>::max()));
}

HostPtr<ado::Fields> AdoRecordset::Fields() const {
  HostPtr<ado::Fields> fields;
  Called(Rows().get_Fields(fields.Out()), rows_.get());
  if (!fields) throw Error(ErrorKind::Host, u"the recordset has no fields");
  return fields;
}

std::vector<Text> AdoRecordset::ColumnNames() {
  const HostPtr<ado::Fields> fields = Fields();
  long count = 0;
  Called(fields->get_Count(&count), fields.get());
  std::vector<Text> names;
  VARIANT key;
  VariantInit(&key);
  key.vt = VT_I4;
  for (key.lVal = 0; key.lVal < count; ++key.lVal) {
    HostPtr<ado::Field> field;
    Called(fields->get_Item(key, field.Out()), fields.get());
    if (!field) throw Error(ErrorKind::Host, u"the recordset lacks a field");
    Bstr name;
    Called(field->get_Name(name.Out()), field.get());
    names.emplace_back(name.view());
  }
  return names;
}

std::size_t AdoRecordset::Column(TextView name) {
  if (const auto known = columns_.find(name); known != columns_.end()) return known->second;
  const HostPtr<ado::Fields> fields = Fields();
  const Bstr text(name);
  VARIANT key;
  VariantInit(&key);
  key.vt = VT_BSTR;
  key.bstrVal = text.get();
  HostPtr<ado::Field> field;
  Called(fields->get_Item(key, field.Out()), fields.get());
  if (!field) throw Error(ErrorKind::Host, u"the recordset has no field of that name");
  fields_.push_back(std::move(field));
  columns_.emplace(name, fields_.size() - 1);
  return fields_.size() - 1;
}

Value AdoRecordset::At(std::size_t column) {
  Variant value;
  ado::Field& field = *fields_.at(column).get();
  Called(field.get_Value(value.Out()), &field);
  return ValueOf(value.get());
}

}  // namespace fetchkit
