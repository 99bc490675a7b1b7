// A list set and its dialogs, whoever shows them: the linked library, or one that is called.
#pragma once

#include <cstdint>

#include "demo/commands/ListOutput.h"
#include "fetchkit/host/Recordset.h"
#include "fetchkit/listset/model/TypeDef.h"

namespace fetchkit::demo {

class ListDialogs {
 public:
  virtual ~ListDialogs() = default;

  // As the members of ListSet of the same names. List answers at least what is shown of it.
  virtual void ViewId(std::int32_t id) = 0;
  virtual ListType List() const = 0;
  virtual ListTexts Texts() const = 0;
  virtual bool ShowFilter() = 0;
  virtual Text ShowMultiChoose(const RecordsetPtr& rows, TextView caption, TextView condition,
                               Text& shown, bool& ok) = 0;
};

}  // namespace fetchkit::demo
