// The list record on both sides of the edge. Every copy is deep.
#pragma once

#include "fetchkit/host/Recordset.h"
#include "fetchkit/listset/model/TypeDef.h"
#include "idl/FetchKit.h"

namespace fetchkit {

// A record of the system's kind with texts and an array of its own, which the caller frees (Clear,
// or what his language does with records).
::ListType RecordOf(const ListType& list);

// Error (InvalidCall) when its array is not one of list fields, or not of one dimension. An array
// that was never dimensioned is a list without fields.
ListType ListOf(const ::ListType& record);

// The same for late-bound callers: a variant that holds a record of its own, and what one holds, by
// value or by reference. ComError (DISP_E_TYPEMISMATCH) when that is no list record.
void LeaveRecord(const ListType& list, VARIANT* variant);
ListType ListOf(const VARIANT& variant);

// Frees the texts and the array; the record may be used again.
void Clear(::ListType& record);

// The caller's recordset as the core's; null for no object.
RecordsetPtr RowsOf(IDispatch* recordset);

}  // namespace fetchkit
