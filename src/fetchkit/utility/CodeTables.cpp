#include "fetchkit/utility/CodeTables.h"

#include <algorithm>
#include <iterator>

namespace fetchkit {
namespace {

constexpr TextView kShortened[] = {u"CLASS1",  u"CLASS2",  u"CURRENCYS", u"CUSTOM0", u"CUSTOM1",
                                   u"CUSTOM2", u"CUSTOM3", u"CUSTOM4",   u"CUSTOM5"};
constexpr TextView kFlexible = u"FLEXIBLEFIELD";

// "01" to "30".
bool IsFlexibleNumber(TextView digits) {
  return digits.size() == 2 && digits >= u"01" && digits <= u"30" && digits[1] >= u'0' &&
         digits[1] <= u'9';
}

}  // namespace

TextView CodeStem(TextView tableName) {
  if (std::any_of(std::begin(kShortened), std::end(kShortened),
                  [&](TextView name) { return EqualFolded(name, tableName); })) {
    return tableName.substr(0, tableName.size() - 1);
  }
  if (EqualFolded(tableName.substr(0, kFlexible.size()), kFlexible) &&
      IsFlexibleNumber(tableName.substr(kFlexible.size()))) {
    return u"Field";
  }
  return tableName;
}

}  // namespace fetchkit
