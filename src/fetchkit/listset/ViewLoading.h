// Loading a view and the login operator's list over it.
#pragma once

#include <cstdint>

#include "fetchkit/listset/model/TypeDef.h"
#include "fetchkit/session/model/Session.h"

namespace fetchkit::MListSet {

// Loads the view's texts into the record and then its columns (RefreshListField). Every error is
// skipped: what a failing step would have set stays as it was. A view id without a row leaves the
// view's texts alone and loads no columns.
void LoadView(Session& session, std::int32_t viewId, ListType& list);

// Loads the columns of the record's view with the settings and conditions of the login operator's
// list in the login organization. Columns, intFixedCols and strListPureWhere are replaced once the
// statement has opened; what was read before an error stands. Unsaved edits are gone.
void RefreshListField(Session& session, ListType& list);

}  // namespace fetchkit::MListSet
