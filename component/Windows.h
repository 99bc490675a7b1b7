// The one way to the system's headers. Some of their macros have the names of this library's
// public members and would rename those, so they go.
#pragma once

#include <windows.h>

#include <commctrl.h>
#include <ocidl.h>
#include <oleauto.h>
#include <windowsx.h>

#undef FindWindowEx
#undef GetObject
#undef GetWindowLong
#undef MessageBox
#undef SetWindowLong
