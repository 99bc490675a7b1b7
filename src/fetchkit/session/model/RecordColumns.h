// Tables of a record's columns, from which it is selected and copied.
#pragma once

#include "fetchkit/base/Text.h"
#include "fetchkit/base/Value.h"
#include "fetchkit/session/model/RecordLoading.h"
#include "fetchkit/session/model/Session.h"

namespace fetchkit {

// A table holds these in the order of copying, which shows: the first value that cannot be read
// ends it.
template <class Record>
struct RecordColumn {
  TextView expression;  // as selected; the row calls it by what follows its last dot or blank
  void (*copy)(Record& record, const Value& value);
  bool selectedLast = false;  // stands behind the others in the statement
};
inline constexpr bool kSelectedLast = true;

// The copy into a property through one of the conversions of Value.h or DateText.h.
template <auto property, auto convert, class Record>
void Into(Record& record, const Value& value) {
  (record.*property)(convert(value));
}

// The expressions with commas between them, as they follow "SELECT ".
template <class Columns>
Text SelectList(const Columns& columns) {
  Text list;
  for (const bool last : {false, true}) {
    for (const auto& column : columns)
      if (column.selectedLast == last) AppendWith(list, u',', column.expression);
  }
  return list;
}

// Runs use on the statement's first row, if there is one. False when the statement was refused or
// raised. Throws what the host's rows and use throw.
template <class Use>
bool WithFirstRow(const Session& session, RecordLoad& load, TextView step, TextView sql,
                  Use&& use) {
  LoaderRows rows(session, load, step, sql);
  if (!rows) return false;
  if (rows.HasRow()) use(rows);
  rows.Close();
  return true;
}

// Copies the columns of the statement's first row, if there is one; what was copied before a value
// that cannot be read stands. Answers and throws as WithFirstRow does; notes a row that is missing.
template <class Record, class Columns>
bool LoadFirstRow(const Session& session, RecordLoad& load, TextView step, TextView sql,
                  const Columns& columns, Record& record) {
  bool isThere = false;
  const bool answered = WithFirstRow(session, load, step, sql, [&](LoaderRows& row) {
    isThere = load.found = true;
    for (const auto& column : columns)
      column.copy(record, row[column.expression.substr(column.expression.find_last_of(u". ") + 1)]);
  });
  if (answered && !isThere) NoteIncomplete(load, step, u": no row");
  return answered;
}

}  // namespace fetchkit
