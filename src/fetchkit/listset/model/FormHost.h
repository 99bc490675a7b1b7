// Who opens the dialogs.
#pragma once

#include <cstdint>

#include "fetchkit/base/Text.h"
#include "fetchkit/base/Value.h"
#include "fetchkit/host/Recordset.h"
#include "fetchkit/listset/model/TypeDef.h"

namespace fetchkit {

// What the multi-choose dialog is opened with.
struct MultiChooseRequest {
  RecordsetPtr oCodeRs;  // the codes, read from the current row on; not closed; null with IsEnum
  Text strCodeName;      // the kind of item
  Text strChoosedCond;   // the condition text so far
  bool IsEnum = false;
  Value arrEnum;  // enumeration texts, index 0 unused
  std::int32_t hWndOwner = 0;
};

struct MultiChooseResult {
  bool bOk = false;
  Text condition;    // empty unless bOk
  Text strShowCond;  // the items for display; empty unless bOk
};

// Shows the library's dialogs, modally. A host without windows has none.
class FormHost {
 public:
  virtual ~FormHost() = default;

  // Lets the user edit the conditions of list. True: confirmed, or nothing to filter; list and
  // where hold the result then, and are as they were otherwise.
  virtual bool ShowFilter(ListType& list, Text& where, std::int32_t hWndOwner) = 0;

  virtual MultiChooseResult ShowMultiChoose(const MultiChooseRequest& request) = 0;
};

}  // namespace fetchkit
