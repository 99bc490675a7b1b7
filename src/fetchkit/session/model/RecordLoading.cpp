#include "fetchkit/session/model/RecordLoading.h"

#include <algorithm>

namespace fetchkit {

void NoteIncomplete(RecordLoad& load, TextView step, TextView reason) {
  load.incomplete = true;
  Step(u"Initialize: failing steps", [&] {
    Text name = Join(step, reason);
    if (std::find(load.failed.begin(), load.failed.end(), name) == load.failed.end())
      load.failed.push_back(std::move(name));
  });
}

LoaderRows::LoaderRows(const Session& session, RecordLoad& load, TextView step, TextView sql)
    : load_(load) {
  Step(step, [&] { rows_.emplace(MAction::ConnectionOf(session), sql, Cursor::Plain); });
  if (*this) return;
  load_.cutShort = true;
  NoteIncomplete(load_, step);
}

}  // namespace fetchkit
