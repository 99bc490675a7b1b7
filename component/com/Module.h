// The DLL as a whole: where it is, and what keeps it loaded.
#pragma once

#include "component/Windows.h"
#include "fetchkit/base/Text.h"

namespace fetchkit::Module {

// Noted when the DLL is loaded. source: the name that callers see as the source of its errors; a
// literal.
void SetHandle(HINSTANCE module, TextView source);
HINSTANCE Handle();
TextView Source();

// The DLL's full path.
Text Path();

// Living COM objects and locks of clients; while there are any the DLL must stay.
void Enter();
void Leave();
bool IsUsed();

}  // namespace fetchkit::Module
