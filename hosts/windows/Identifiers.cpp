// Defines the identifiers of the hosts' type library.
#include <initguid.h>

#include "component/Windows.h"
#include "idl/FetchKitHostLibrary.h"
