// Writing a list back.
#pragma once

#include "fetchkit/listset/model/TypeDef.h"
#include "fetchkit/session/model/Session.h"

namespace fetchkit::MListSet {

// Saves the whole list for the login operator and organization: its row when it is new, its fields
// and their settings, its conditions. After a first save the record holds the new ids, so that a
// second one takes the update path. Each step stops at its first failure and the next one runs:
// a list that could not be inserted keeps id 0, and its conditions are saved under id 0.
void SaveList(Session& session, ListType& list);

// Replaces the stored conditions by those of the record, in one anonymous block. When the database
// refuses it, the stored conditions are as the database keeps them after a failed block. A list
// that was never saved writes under id 0, which is nobody's.
void SaveConditions(Session& session, const ListType& list);

}  // namespace fetchkit::MListSet
