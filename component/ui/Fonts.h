// The font of the dialogs.
#pragma once

#include "component/Windows.h"
#include "component/ui/Counted.h"

namespace fetchkit::ui {

inline void DestroyFont(HFONT font) {
  DeleteObject(font);
}
using Font = Counted<HFONT, DestroyFont>;

// The font that the user has chosen for messages, at that resolution; where it lacks Chinese
// characters, the first of the usual Chinese fonts that the system has, in the same size.
LOGFONTW MessageFont(UINT dpi);

// Dots per inch of the monitor that the window is on, as far as the process is told of it; of the
// system on Windows that know only one.
UINT DpiOf(HWND window);
UINT SystemDpi();

// Leaves a dialog's answer to a change of resolution to the dialog, where the system would give
// one.
void ScaleByOneself(HWND dialog);

}  // namespace fetchkit::ui
