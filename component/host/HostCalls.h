// Calling the host: a refused call becomes the core's error.
#pragma once

#include "component/Windows.h"
#include "component/com/Bstr.h"

namespace fetchkit {

// Throws Error (Host) unless the call went through, with the description that the callee left, or
// the system's own for the number. callee: whom the description must come from; null when there is
// no object yet.
void Called(HRESULT result, IUnknown* callee);

}  // namespace fetchkit
