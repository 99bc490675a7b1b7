#include "fetchkit/dialogs/Forms.h"

#include "fetchkit/dialogs/frmFilter.h"
#include "fetchkit/dialogs/frmMultiChoose.h"
#include "fetchkit/session/model/Session.h"

namespace fetchkit {

bool Forms::ShowFilter(ListType& list, Text& where, std::int32_t hWndOwner) {
  return frmFilter(MAction::CurrentSession(), view_).ShowFilter(list, where, hWndOwner);
}

MultiChooseResult Forms::ShowMultiChoose(const MultiChooseRequest& request) {
  return frmMultiChoose(view_).ShowMultiChoose(request);
}

}  // namespace fetchkit
