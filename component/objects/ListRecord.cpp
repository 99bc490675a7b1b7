#include "component/objects/ListRecord.h"

#include <utility>

#include "component/com/Boundary.h"
#include "component/com/Bstr.h"
#include "component/com/TypeLibrary.h"
#include "component/host/HostRecordset.h"
#include "fetchkit/base/Error.h"

namespace fetchkit {
namespace {

// __uuidof's stand-in: the tool chain writes no identifiers of records into the generated header.
constexpr GUID kListFieldType = {
    0x650C0E09, 0xAB0E, 0x49DF, {0x8F, 0x7F, 0xA9, 0x21, 0xB9, 0x4C, 0x2D, 0xD6}};
constexpr GUID kListType = {
    0x48901E08, 0xD41C, 0x49AE, {0x9C, 0x27, 0x2B, 0x1A, 0x27, 0xFF, 0x46, 0x51}};

// Every field of the records once, for both directions.
template <class From, class To, class Copy>
void CopyFieldMembers(const From& from, To& to, const Copy& copy) {
  copy(from.lngViewFieldID, to.lngViewFieldID);
  copy(from.lngViewFieldNO, to.lngViewFieldNO);
  copy(from.lngListFieldID, to.lngListFieldID);
  copy(from.lngListFieldNO, to.lngListFieldNO);
  copy(from.lngDisplayWidth, to.lngDisplayWidth);
  copy(from.strPath, to.strPath);
  copy(from.blnIsMust, to.blnIsMust);
  copy(from.blnIsPrep, to.blnIsPrep);
  copy(from.blnIsFilter, to.blnIsFilter);
  copy(from.blnIsMuliCond, to.blnIsMuliCond);
  copy(from.blnIsChoose, to.blnIsChoose);
  copy(from.blnIsFixed, to.blnIsFixed);
  copy(from.blnIsFind, to.blnIsFind);
  copy(from.blnIsNotList, to.blnIsNotList);
  copy(from.blnIsFilt, to.blnIsFilt);
  copy(from.blnNotZero, to.blnNotZero);
  copy(from.blnIsChoosed, to.blnIsChoosed);
  copy(from.bytHead, to.bytHead);
  copy(from.bytFieldSize, to.bytFieldSize);
  copy(from.bytPrepOrder, to.bytPrepOrder);
  copy(from.bytFieldDec, to.bytFieldDec);
  copy(from.bytFormat, to.bytFormat);
  copy(from.bytSort, to.bytSort);
  copy(from.strBiaTableName, to.strBiaTableName);
  copy(from.strListFieldDesc, to.strListFieldDesc);
  copy(from.strKeyField, to.strKeyField);
  copy(from.strTableName, to.strTableName);
  copy(from.strFieldName, to.strFieldName);
  copy(from.strFieldType, to.strFieldType);
  copy(from.strGroup, to.strGroup);
  copy(from.strFilter, to.strFilter);
  copy(from.strCodeID, to.strCodeID);
  copy(from.strExtValue, to.strExtValue);
}

template <class From, class To, class Copy>
void CopyListMembers(const From& from, To& to, const Copy& copy) {
  copy(from.lngViewID, to.lngViewID);
  copy(from.lngListID, to.lngListID);
  copy(from.strViewName, to.strViewName);
  copy(from.strListName, to.strListName);
  copy(from.strListFrom, to.strListFrom);
  copy(from.strListWhere, to.strListWhere);
  copy(from.strListPureWhere, to.strListPureWhere);
  copy(from.strCurTable, to.strCurTable);
  copy(from.strPrimaryKey, to.strPrimaryKey);
  copy(from.intFixedCols, to.intFixedCols);
}

struct ToRecord {
  void operator()(const Text& from, BSTR& to) const { to = NewBstr(from); }
  void operator()(bool from, VARIANT_BOOL& to) const { to = from ? VARIANT_TRUE : VARIANT_FALSE; }
  template <class Number, class Raw>
  void operator()(Number from, Raw& to) const {
    to = from;
  }
};

struct FromRecord {
  void operator()(BSTR from, Text& to) const { to = ViewOf(from); }
  void operator()(VARIANT_BOOL from, bool& to) const { to = from != VARIANT_FALSE; }
  template <class Raw, class Number>
  void operator()(Raw from, Number& to) const {
    to = static_cast<Number>(from);
  }
};

// Access to an array's data while it lives.
class ArrayData {
 public:
  explicit ArrayData(SAFEARRAY* array) : array_(array) {
    const HRESULT result = SafeArrayAccessData(array, &data_);
    if (FAILED(result)) throw ComError{result};
  }
  ~ArrayData() { SafeArrayUnaccessData(array_); }
  ArrayData(const ArrayData&) = delete;
  ArrayData& operator=(const ArrayData&) = delete;

  ::ListFieldType* fields() const { return static_cast<::ListFieldType*>(data_); }

 private:
  SAFEARRAY* array_;
  void* data_ = nullptr;
};

// Frees what has been built when a text cannot be.
class Building {
 public:
  ~Building() { Clear(record); }
  ::ListType record{};
};

}  // namespace

::ListType RecordOf(const ListType& list) {
  Building building;
  ::ListType& record = building.record;
  CopyListMembers(list, record, ToRecord());
  SAFEARRAYBOUND bound{static_cast<ULONG>(list.ListField.size()), 0};
  record.ListField =
      SafeArrayCreateEx(VT_RECORD, 1, &bound, TypeLibrary::Record(kListFieldType).get());
  if (!record.ListField) throw std::bad_alloc();
  const ArrayData data(record.ListField);
  ::ListFieldType* to = data.fields();
  for (const ListFieldType& from : list.ListField)
    CopyFieldMembers(from, *to++, ToRecord());
  return std::exchange(record, {});
}

ListType ListOf(const ::ListType& record) {
  ListType list;
  CopyListMembers(record, list, FromRecord());
  SAFEARRAY* array = record.ListField;
  if (!array || SafeArrayGetDim(array) == 0) return list;
  LONG lower = 0;
  LONG upper = -1;
  if (SafeArrayGetDim(array) != 1 || SafeArrayGetElemsize(array) != sizeof(::ListFieldType) ||
      FAILED(SafeArrayGetLBound(array, 1, &lower)) || FAILED(SafeArrayGetUBound(array, 1, &upper)))
    throw Error(ErrorKind::InvalidCall, u"ListField must be an array of ListFieldType");
  if (upper < lower) return list;
  const ArrayData data(array);
  list.ListField.resize(static_cast<std::size_t>(upper - lower) + 1);
  const ::ListFieldType* from = data.fields();
  for (ListFieldType& to : list.ListField)
    CopyFieldMembers(*from++, to, FromRecord());
  return list;
}

void LeaveRecord(const ListType& list, VARIANT* variant) {
  ComPtr<IRecordInfo> type = TypeLibrary::Record(kListType);
  Building building;
  building.record = RecordOf(list);
  auto* place = static_cast<::ListType*>(type->RecordCreate());
  if (!place) throw std::bad_alloc();
  *place = std::exchange(building.record, {});
  VariantInit(variant);
  variant->vt = VT_RECORD;
  variant->pvRecord = place;
  variant->pRecInfo = type.Detach();
}

ListType ListOf(const VARIANT& variant) {
  const bool isVariable = variant.vt == (VT_BYREF | VT_VARIANT) && variant.pvarVal;
  const VARIANT& held = isVariable ? *variant.pvarVal : variant;
  GUID type{};
  if ((held.vt & ~VT_BYREF) != VT_RECORD || !held.pvRecord || !held.pRecInfo ||
      FAILED(held.pRecInfo->GetGuid(&type)) || type != kListType)
    throw ComError{DISP_E_TYPEMISMATCH};
  return ListOf(*static_cast<const ::ListType*>(held.pvRecord));
}

void Clear(::ListType& record) {
  for (BSTR* text :
       {&record.strViewName, &record.strListName, &record.strListFrom, &record.strListWhere,
        &record.strListPureWhere, &record.strCurTable, &record.strPrimaryKey})
    SysFreeString(*text);
  if (record.ListField) SafeArrayDestroy(record.ListField);
  record = {};
}

RecordsetPtr RowsOf(IDispatch* recordset) {
  if (!recordset) return nullptr;
  return HostRecordset::Bind(ComPtr<IDispatch>(recordset));
}

}  // namespace fetchkit
