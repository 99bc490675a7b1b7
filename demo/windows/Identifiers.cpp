// Defines the identifiers of the sample host's type library.
#include <initguid.h>

#include "component/Windows.h"
#include "idl/FetchKitDemoHost.h"
