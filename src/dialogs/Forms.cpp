#include "dialogs/Forms.h"

#include "dialogs/frmFilter.h"
#include "dialogs/frmMultiChoose.h"
#include "session/Session.h"

namespace fetchkit {

bool Forms::ShowFilter(ListType& list, Text& where, std::int32_t hWndOwner) {
  return frmFilter(MAction::CurrentSession(), view_).ShowFilter(list, where, hWndOwner);
}

MultiChooseResult Forms::ShowMultiChoose(const MultiChooseRequest& request) {
  return frmMultiChoose(view_).ShowMultiChoose(request);
}

}  // namespace fetchkit
