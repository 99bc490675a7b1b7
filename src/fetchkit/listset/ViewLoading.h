// Loading a view and the login operator's list over it.
//
// Both may call the host, which may call back: the record must be the caller's own.
#pragma once

#include "fetchkit/listset/LoadedParts.h"
#include "fetchkit/listset/model/TypeDef.h"
#include "fetchkit/session/model/Session.h"

namespace fetchkit::MListSet {

// Loads the texts of the record's view and then its columns (RefreshListField). Every error is
// skipped: what a failing step would have set stays as it was. A view id without a row leaves the
// view's texts alone and loads no columns.
void LoadView(Session& session, ListType& list, LoadedParts& loaded);

// Loads the columns of the record's view with the settings and conditions of the login operator's
// list in the login organization. Columns, intFixedCols and strListPureWhere are replaced together
// once all are read; until then the record keeps its own. A number that its place cannot hold is
// left out alone.
void RefreshListField(Session& session, ListType& list, LoadedParts& loaded);

// Takes what belongs to one view out of the record: its columns, their conditions, the list's id.
void DropFields(ListType& list) noexcept;

}  // namespace fetchkit::MListSet
