// What the login operator may do in the login organization.
#pragma once

#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <utility>

#include "fetchkit/base/Text.h"
#include "fetchkit/session/model/Operator.h"
#include "fetchkit/session/model/Session.h"

namespace fetchkit {

// One per account, organization and operator; asks through the calling thread's session. No member
// throws: on failure, to which a host belongs that does not say whether there is a row, the
// Booleans are False.
class OperatorRight {
 public:
  // Whether the operator holds every right of the comma-separated list; True for an empty list, and
  // False for an operator without any right. The rights are read once per object, at the first
  // call, by two statements at most. When that fails the operator holds none from then on.
  // A right is looked for by the beginning of its number: who holds 12 seems to hold 1 as well.
  // Hosts know it that way.
  bool UserRight(TextView RightIDs);

  // Whether every code of the kind ("Account", "Department", ...) may be queried, or used. Asks the
  // database at every call; False where the operator has no row.
  bool HaveAllCodeQueryRight(TextView strCode) const;
  bool HaveAllCodeUseRight(TextView strCode) const;
  bool HaveAllAccountQueryRight() const { return HaveAllCodeQueryRight(u"Account"); }

  // The codes of a table that the operator may query, as a condition to stand behind " And " in a
  // statement on that table: empty when all may be. Kept per table, in any letter case, until
  // Clear. Where the database does not say whether all may be, the condition holds the rows to the
  // allotted codes, and is not kept; before the first login it is "1=0".
  //
  // Which codes those are is this system's own choice: GroupToRightDetail lists the codes
  // (lngKeyID) of a table that a right group reaches, in one organization or with organization 0 in
  // all of them; SelGroupRight says with blnQuery whether the group opens that table for queries;
  // and the groups are those that UserRight counts.
  Text GetUserQueryRight(TextView strTableName);

  // Forgets the conditions of GetUserQueryRight; the rights themselves stay.
  void Clear();

  // Reserved to the library: start-up hands over the record whose ids every query uses.
  void SetOperator(std::shared_ptr<const Operator> loginOperator) {
    operator_ = std::move(loginOperator);
  }

 private:
  const Operator& LoginOperator() const;
  Text ReadRights(Session& session) const;
  std::optional<bool> ReadAllRight(TextView strCode, TextView use) const;
  Text QueryCondition(TextView tableName) const;

  std::shared_ptr<const Operator> operator_;
  bool rightsLoaded_ = false;
  Text rights_;                                    // "," in front of each id
  std::map<Text, Text, std::less<>> queryRights_;  // by the table's name in upper case
};

namespace MAction {

// The rights object of the current login; never null.
std::shared_ptr<fetchkit::OperatorRight> OperatorRight(Session& session);

}  // namespace MAction
}  // namespace fetchkit
