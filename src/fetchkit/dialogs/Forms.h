// Opens the library's dialogs over a view.
#pragma once

#include "fetchkit/dialogs/FormView.h"
#include "fetchkit/listset/model/FormHost.h"

namespace fetchkit {

// To be installed with SetFormHost. Each call makes a form of its own, works with the calling
// thread's session, and ends the form before it returns.
class Forms final : public FormHost {
 public:
  // Not owned; must outlive the object.
  explicit Forms(FormView& view) : view_(view) {}

  bool ShowFilter(ListType& list, Text& where, std::int32_t hWndOwner) override;
  MultiChooseResult ShowMultiChoose(const MultiChooseRequest& request) override;

 private:
  FormView& view_;
};

}  // namespace fetchkit
