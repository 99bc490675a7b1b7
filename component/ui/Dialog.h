// A modal dialog in a real window: what all dialogs of the library have in common.
#pragma once

#include <atomic>
#include <cstdint>
#include <span>
#include <vector>

#include "component/Windows.h"
#include "component/ui/Fonts.h"
#include "fetchkit/base/Text.h"

namespace fetchkit::ui {

inline void RemoveHook(HHOOK hook) {
  UnhookWindowsHookEx(hook);
}

// A control of a template: which of a form's controls it shows, and how it follows when the dialog
// grows, in hundredths of the growth that move it and that are added to its size. Controls that are
// not listed stay where they are.
struct TemplateControl {
  TextView name;
  int index;  // in a control array, -1 for a single control
  int id;
  int moveX, moveY, growX, growY;
  int aloneTo = 0;  // the control to whose right edge it reaches while no other stands beside it
};

// The size that the user has left a dialog in, for the next one of its kind. Of all threads.
class LastSize {
 public:
  // Of the client area, in pixels at that resolution; {0, 0} before the first time.
  SIZE At(UINT dpi) const;
  void Set(SIZE size, UINT dpi);

 private:
  std::atomic<std::uint32_t> packed_{0};
};

// What a kind of dialog is made from.
struct DialogKind {
  int templateId;
  std::span<const TemplateControl> controls;
  // By how much it may be smaller than the template, in dialog units.
  int narrower, lower;
  LastSize& lastSize;
};

// Built from a dialog template of the resources, in the user's message font. It may be resized, is
// as large as the last one of its kind, scales with the monitor that it is on, and stands over the
// middle of its owner, which is disabled meanwhile, inside the work area. Errors inside a handler
// are noted and end the handler alone.
class Dialog {
 public:
  Dialog(HINSTANCE module, const DialogKind& kind) : module_(module), kind_(kind) {}
  virtual ~Dialog() = default;
  Dialog(const Dialog&) = delete;
  Dialog& operator=(const Dialog&) = delete;

  // Returns when the dialog is closed or its owner is gone. owner: null for none. False when the
  // system refuses a window.
  bool ShowModal(HWND owner);

  HWND window() const { return window_; }

 protected:
  // Controls are there, nothing is visible yet.
  virtual void OnInit() = 0;
  // The window is visible, or about to be, and complete.
  virtual void OnShown() {}
  virtual void OnCommand(int id, int code) = 0;
  // Answers whether result is the answer.
  virtual bool OnNotify(const NMHDR& notice, LRESULT& result) = 0;
  // Any other message; answers likewise.
  virtual bool OnMessage(UINT message, WPARAM first, LPARAM second, LRESULT& result);
  // After a change of size or resolution.
  virtual void OnLayout() {}
  // At the end of every message, the outermost one if they are nested.
  virtual void OnHandled() {}
  // The user closes the window by Escape, its button or its menu.
  virtual void OnCancel() = 0;

  // Ends ShowModal.
  void Close();

  std::span<const TemplateControl> templateControls() const { return kind_.controls; }
  HWND Window(int id) const { return GetDlgItem(window_, id); }
  // Whether a control with an aloneTo stands alone.
  void SetAlone(HWND control, bool alone);
  // Pixels of a length at 96 dots per inch, and of twips (1440 to the inch).
  int Pixels(int at96) const;
  int PixelsOfTwips(int twips) const;

 private:
  struct Placed {
    HWND control;
    RECT at;  // in the dialog's first size
    TemplateControl follows;
    bool alone = false;
  };

  static INT_PTR CALLBACK Procedure(HWND window, UINT message, WPARAM first, LPARAM second);
  INT_PTR Handle(UINT message, WPARAM first, LPARAM second);
  void Begin();
  UINT DpiOfTemplate() const;
  void PlaceOverOwner();
  void PlaceInside(RECT place);
  void Remember();
  void Arrange();
  void Rescale(UINT dpi, const RECT& suggested);

  HINSTANCE module_;
  DialogKind kind_;
  int depth_ = 0;  // messages that are being handled
  HWND window_ = nullptr;
  HWND owner_ = nullptr;
  UINT dpi_ = 96;
  Font font_;
  Counted<HHOOK, RemoveHook> hook_;  // while the controls are made
  SIZE firstClient_{};
  SIZE firstWindow_{};
  SIZE smallestWindow_{};
  std::vector<Placed> placed_;
};

}  // namespace fetchkit::ui
