// Defines the identifiers of the type library and of the host's interfaces, once for all programs
// that use them.
#include <initguid.h>

#include "component/Windows.h"
#include "idl/FetchKit.h"
#include "idl/FetchKitHost.h"
