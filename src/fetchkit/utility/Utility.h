// The public class Utility.
#pragma once

#include "fetchkit/utility/CellNames.h"
#include "fetchkit/utility/GridAndKeys.h"
#include "fetchkit/utility/SqlClauses.h"
#include "fetchkit/utility/StringHelpers.h"
#include "fetchkit/utility/WindowServices.h"

namespace fetchkit {

// Without state; created by the host wherever it likes, or used without an object. Its members are
// those of the classes that it is made of, which promise what they do.
class Utility : public StringHelpers,
                public SqlClauses,
                public CellNames,
                public WindowServices,
                public GridAndKeys {};

// The same, under the name of the module.
using MUtility = Utility;

}  // namespace fetchkit
