// The rows of a query as ADO shows them: a static, read-only cursor on the client's side.
//
// The system's own recordset cannot stand in everywhere, and the library reads ADO's interfaces
// whoever implements them. Scripts see the members' usual names.
#pragma once

#include <memory>

#include "component/com/ComPtr.h"
#include "component/host/Ado.h"
#include "demo/host/MemoryRecordset.h"

namespace fetchkit::demo {

// The recordset over those rows, with a reference for the caller: the living one or a new one.
// std::bad_alloc when there is no memory.
ado::Recordset* AdoRecordsetOf(std::shared_ptr<MemoryRecordset> rows);

// The rows behind an object of the above; null for any other object and for none.
std::shared_ptr<MemoryRecordset> RowsOf(IUnknown* object);

}  // namespace fetchkit::demo
