// Top-level windows, message boxes, the error log and the scrambling of short texts.
//
// Window handles are 32-bit and 0 means no window; coordinates are pixels. All windows are reached
// through the platform. What throws says so: Error (Overflow) comes from every member that computes
// with a rectangle, when its arithmetic leaves 32 bits.
#pragma once

#include <cstdint>

#include "fetchkit/base/Text.h"
#include "fetchkit/utility/WindowPosition.h"

// windows.h makes MessageBox a macro for one of two other names, which would rename the member in
// some programs and not in the library. Set aside up to the end of the class.
#pragma push_macro("MessageBox")
#undef MessageBox

namespace fetchkit {

class WindowServices {
 public:
  static std::int32_t GetActiveWindowHandle();
  static std::int32_t GetDesktopWindowHandle();
  static std::int32_t GetForegroundWindowHandle();

  // The first top-level window with that caption among the forms of the hosts (window class
  // "ThunderRT6FormDC"); 0 when there is none.
  static std::int32_t FindWindowHandle(TextView strCaption);

  // Whether the window is in the top-most band. A variable that holds 0 is set to the foreground
  // window, which callers rely on; the answer is then False when that window is another process's.
  static bool IsTopMostWindow(std::int32_t& hWnd);

  // Puts the window into the top-most band or out of it, shows it, and places it: centred with its
  // size kept, or, with wpManual, at the given numbers, each 0 standing for the window's own. With
  // wpDefault and any other mode it stays where it is. Nothing happens when hWnd is no window.
  static void SetWindowTopPos(std::int32_t hWnd, bool blnOnTop, WindowPositionConstants enmPosition,
                              std::int32_t lngLeft, std::int32_t lngTop, std::int32_t lngWidth,
                              std::int32_t lngHeight);

  // Gives the window the style bits of a pop-up window with border and system menu. Not enabled
  // toggles them: a window that lacks them gains them. Either way it becomes top-most, its place
  // kept. Nothing happens when hWnd is no window.
  static void SetPopupWindow(std::int32_t hWnd, bool blnEnabled);

  // The same for the extended style bit of a tool window.
  static void SetToolWindow(std::int32_t hWnd, bool blnEnabled);

  // The window's rectangle on the screen. False, and the outputs untouched, when hWnd is no window;
  // False, and the outputs 0, when the system does not tell.
  static bool GetWindowArea(std::int32_t hWnd, std::int32_t& lngLeft, std::int32_t& lngTop,
                            std::int32_t& lngWidth, std::int32_t& lngHeight);

  // Shows a message box and answers with the number of the button that was pressed, 0 when it could
  // not be shown. hWnd, or the
  // foreground window for 0, is taken out of the top-most band meanwhile, so that it does not hide
  // the box. enmButtons: the platform's number for buttons and icon.
  static std::int32_t MessageBox(TextView strMessage, std::int32_t enmButtons, TextView strTitle,
                                 std::int32_t hWnd);

#ifdef _WIN32
  // What a call of MessageBox becomes behind windows.h.
  static std::int32_t MessageBoxA(TextView strMessage, std::int32_t enmButtons, TextView strTitle,
                                  std::int32_t hWnd) {
    return MessageBox(strMessage, enmButtons, strTitle, hWnd);
  }
  static std::int32_t MessageBoxW(TextView strMessage, std::int32_t enmButtons, TextView strTitle,
                                  std::int32_t hWnd) {
    return MessageBox(strMessage, enmButtons, strTitle, hWnd);
  }
#endif

  // Scrambles a text; applied twice it gives the text back, as long as the ANSI code page has its
  // characters. Error (InvalidCall) above 23 characters, which is a limit that hosts know, and when
  // the result would hold a code that no character has: better no text than one that is lost. For
  // the same reason std::bad_alloc without memory.
  static Text Security(TextView strText);

  // Hands the description of the thread's last error, both texts and the number to the log
  // component of the host's environment, which is created on first use and kept for the thread. The
  // last error is that of the last public member but this one and the plain properties; "无" when
  // that met none. The component's answer; False when there is no component or it fails.
  static bool WriteLog(TextView strA, TextView strB, std::int32_t lngC);
};

}  // namespace fetchkit

#pragma pop_macro("MessageBox")
