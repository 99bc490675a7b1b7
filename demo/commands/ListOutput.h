// What the subcommands show of a list.
#pragma once

#include "demo/commands/DemoSession.h"
#include "demo/console/Console.h"
#include "fetchkit/listset/ListSet.h"

namespace fetchkit::demo {

// The columns that have a condition, in both its forms.
void ShowConditions(Console& console, const ListType& list);

// The four texts of which a host makes its query.
struct ListTexts {
  Text from;
  Text where;
  Text pureWhere;
  Text select;
};
ListTexts TextsOf(const ListSet& set);
void ShowTexts(Console& console, const ListTexts& texts);

// The rows of that query, at most so many.
void ShowRows(Console& console, DemoSession& session, const ListType& list, const ListTexts& texts,
              int most);

}  // namespace fetchkit::demo
