// The DLL as a whole: where it is, and what keeps it loaded.
#pragma once

#include "base/Text.h"
#include "component/Windows.h"

namespace fetchkit::Module {

// Noted when the DLL is loaded.
void SetHandle(HINSTANCE module);
HINSTANCE Handle();

// The DLL's full path.
Text Path();

// Living COM objects and locks of clients; while there are any the DLL must stay.
void Enter();
void Leave();
bool IsUsed();

}  // namespace fetchkit::Module
