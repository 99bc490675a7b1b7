// ADO's Recordset, Fields and Field, as far as they are read here or by hosts' scripts, in the
// order of their slots.
//
// Members that nobody here calls keep their place under the number of their slot. They answer "not
// implemented", so that a host without ADO implements what is named and nothing else.
#pragma once

#include "component/Windows.h"

namespace fetchkit::ado {

// RecordCount and positions are as wide as a pointer.
using Position = LONG_PTR;

#define FETCHKIT_RESERVED_SLOT(number)               \
  virtual HRESULT STDMETHODCALLTYPE Slot##number() { \
    return E_NOTIMPL;                                \
  }

struct Field : IDispatch {
  static constexpr IID kId = {0x00000569, 0, 0x10, {0x80, 0, 0, 0xAA, 0, 0x6D, 0x2E, 0xA4}};

  FETCHKIT_RESERVED_SLOT(7)
  FETCHKIT_RESERVED_SLOT(8)
  FETCHKIT_RESERVED_SLOT(9)
  FETCHKIT_RESERVED_SLOT(10)
  virtual HRESULT STDMETHODCALLTYPE get_Name(BSTR* name) = 0;
  virtual HRESULT STDMETHODCALLTYPE get_Type(long* type) = 0;       // a DataTypeEnum
  virtual HRESULT STDMETHODCALLTYPE get_Value(VARIANT* value) = 0;  // of the current row
  FETCHKIT_RESERVED_SLOT(14)
};

struct Fields : IDispatch {
  static constexpr IID kId = {0x00000564, 0, 0x10, {0x80, 0, 0, 0xAA, 0, 0x6D, 0x2E, 0xA4}};

  virtual HRESULT STDMETHODCALLTYPE get_Count(long* count) = 0;
  virtual HRESULT STDMETHODCALLTYPE get_NewEnum(IUnknown** enumeration) = 0;
  FETCHKIT_RESERVED_SLOT(9)
  virtual HRESULT STDMETHODCALLTYPE get_Item(VARIANT nameOrIndex, Field** field) = 0;
};

struct Recordset : IDispatch {
  static constexpr IID kId = {0x00000556, 0, 0x10, {0x80, 0, 0, 0xAA, 0, 0x6D, 0x2E, 0xA4}};
  // The same interface as newer systems number it.
  static constexpr IID kNewerId = {0x00001556, 0, 0x10, {0x80, 0, 0, 0xAA, 0, 0x6D, 0x2E, 0xA4}};

  FETCHKIT_RESERVED_SLOT(7)
  FETCHKIT_RESERVED_SLOT(8)
  FETCHKIT_RESERVED_SLOT(9)
  FETCHKIT_RESERVED_SLOT(10)
  FETCHKIT_RESERVED_SLOT(11)
  FETCHKIT_RESERVED_SLOT(12)
  virtual HRESULT STDMETHODCALLTYPE get_BOF(VARIANT_BOOL* bof) = 0;
  FETCHKIT_RESERVED_SLOT(14)
  FETCHKIT_RESERVED_SLOT(15)
  FETCHKIT_RESERVED_SLOT(16)
  FETCHKIT_RESERVED_SLOT(17)
  FETCHKIT_RESERVED_SLOT(18)
  FETCHKIT_RESERVED_SLOT(19)
  virtual HRESULT STDMETHODCALLTYPE get_EOF(VARIANT_BOOL* eof) = 0;
  virtual HRESULT STDMETHODCALLTYPE get_Fields(Fields** fields) = 0;
  FETCHKIT_RESERVED_SLOT(22)
  FETCHKIT_RESERVED_SLOT(23)
  FETCHKIT_RESERVED_SLOT(24)
  FETCHKIT_RESERVED_SLOT(25)
  virtual HRESULT STDMETHODCALLTYPE get_RecordCount(Position* count) = 0;  // -1: not known
  FETCHKIT_RESERVED_SLOT(27)
  FETCHKIT_RESERVED_SLOT(28)
  FETCHKIT_RESERVED_SLOT(29)
  FETCHKIT_RESERVED_SLOT(30)
  FETCHKIT_RESERVED_SLOT(31)
  virtual HRESULT STDMETHODCALLTYPE Close() = 0;
  FETCHKIT_RESERVED_SLOT(33)
  FETCHKIT_RESERVED_SLOT(34)
  FETCHKIT_RESERVED_SLOT(35)
  virtual HRESULT STDMETHODCALLTYPE MoveNext() = 0;
  virtual HRESULT STDMETHODCALLTYPE MovePrevious() = 0;
  virtual HRESULT STDMETHODCALLTYPE MoveFirst() = 0;
  virtual HRESULT STDMETHODCALLTYPE MoveLast() = 0;
  FETCHKIT_RESERVED_SLOT(40)
  FETCHKIT_RESERVED_SLOT(41)
  FETCHKIT_RESERVED_SLOT(42)
  FETCHKIT_RESERVED_SLOT(43)
  FETCHKIT_RESERVED_SLOT(44)
  FETCHKIT_RESERVED_SLOT(45)
  FETCHKIT_RESERVED_SLOT(46)
  FETCHKIT_RESERVED_SLOT(47)
  FETCHKIT_RESERVED_SLOT(48)
  FETCHKIT_RESERVED_SLOT(49)
  FETCHKIT_RESERVED_SLOT(50)
  FETCHKIT_RESERVED_SLOT(51)
  FETCHKIT_RESERVED_SLOT(52)
  FETCHKIT_RESERVED_SLOT(53)
  FETCHKIT_RESERVED_SLOT(54)
  virtual HRESULT STDMETHODCALLTYPE get_State(long* state) = 0;  // 1: open, 0: closed
};

#undef FETCHKIT_RESERVED_SLOT

}  // namespace fetchkit::ado
