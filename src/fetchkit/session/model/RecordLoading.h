// How the loaders of the login's records go on after a fault, and what is remembered of it for the
// next Initialize and for the state of the login.
#pragma once

#include <cstddef>
#include <optional>

#include "fetchkit/base/Guard.h"
#include "fetchkit/base/Text.h"
#include "fetchkit/base/Value.h"
#include "fetchkit/host/OpenedRecordset.h"
#include "fetchkit/session/model/Session.h"

namespace fetchkit {

// Remembers a step that brought less than it should. Never throws.
void NoteIncomplete(RecordLoad& load, TextView step, TextView reason = {});

// Runs the loader if the record is due. Afterwards it is due no more, unless the loader was cut
// short or did not end.
template <class Loader>
void LoadIfDue(RecordLoad& load, Loader&& loader) {
  if (!load.due) return;
  load = RecordLoad();
  load.due = true;
  loader();
  load.due = load.cutShort;
}

// Runs a part of a loader, which its first error ends. A value that cannot be read and a column
// that is not there will be the same the next time; any other error cuts the loader short.
template <class Body>
void LoadPart(RecordLoad& load, TextView step, Body&& body) {
  load.seeksColumn = false;
  const Ending ending = StepEnding(step, body);
  if (ending == Ending::Through) return;
  NoteIncomplete(load, step);
  if (ending == Ending::Fault && !load.seeksColumn) load.cutShort = true;
}

// The rows of a loader's statement, to be used within a LoadPart.
class LoaderRows {
 public:
  // Opens the statement. A refusal cuts the loader short, and so does an open that raises: it is
  // told under the step's name and leaves the object closed like a refusal.
  LoaderRows(const Session& session, RecordLoad& load, TextView step, TextView sql);

  explicit operator bool() const { return rows_ && *rows_; }
  bool HasRow() { return rows_ && rows_->HasRow(); }
  Recordset* operator->() const { return rows_->operator->(); }

  std::size_t Column(TextView name) {
    load_.seeksColumn = true;
    const std::size_t column = (*this)->Column(name);
    load_.seeksColumn = false;
    return column;
  }
  Value operator[](TextView column) { return (*this)->At(Column(column)); }

  // Throws what the host throws.
  void Close() { rows_->Close(); }

 private:
  RecordLoad& load_;
  std::optional<OpenedRecordset> rows_;
};

}  // namespace fetchkit
