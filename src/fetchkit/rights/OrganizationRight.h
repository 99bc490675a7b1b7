// Which codes the login organization may use.
#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <utility>
#include <vector>

#include "fetchkit/base/Text.h"
#include "fetchkit/session/model/Organization.h"
#include "fetchkit/session/model/Session.h"

namespace fetchkit {

// One per account and organization; asks through the calling thread's session. No member throws.
//
// How codes are allotted is this system's own choice: OrgCodeAllot holds a row for each code
// (lngKeyID) of a table that is allotted to an organization, and blnUse says whether it may be used
// or only seen. An organization without any row for a table may use all of its codes, and so may
// every organization of an account without that table. That there is no such table is believed only
// when the account's table of organizations answers right afterwards. What was read for a table, by
// its name in any letter case, is kept for the life of the object. Where the database does not
// answer, or does not say whether there is a row, no code may be used, and the next call asks
// again.
class OrganizationRight {
 public:
  // Whether every code of the table may be used. False on failure.
  bool HaveAllCodeUseRight(TextView strTableName);

  // The codes that may be used, as a condition to stand behind " And " in a statement on that
  // table; empty when all may be. "1=0" on failure.
  Text GetAllCodeUseRightSql(TextView strTableName);

  // Whether this one code may be used. False on failure.
  bool IsCanDoForActivity(TextView strTableName, std::int32_t lngKeyID);

  // The ids that may be used, ascending, comma-separated without blanks, "0" for none; empty when
  // all may be. "0" on failure.
  Text GetAllotItem(TextView strTableName);

  // Those of the comma-separated ids that may be used, in their order, "0" for none. "0" on
  // failure, to which an item that is no number belongs.
  Text GetAllotItem2(TextView strTableName, TextView strKeyIDs);

  // Reserved to the library: start-up hands over the record whose id every query uses.
  void SetOrganization(std::shared_ptr<const Organization> loginOrganization) {
    organization_ = std::move(loginOrganization);
  }

 private:
  struct Allotment {
    bool all = true;
    std::vector<std::int32_t> usable;  // ascending
    bool Holds(std::int32_t id) const;
  };

  std::int32_t OrganizationId() const;
  Allotment Read(TextView upperName) const;
  const Allotment& AllotmentOf(TextView tableName);

  std::shared_ptr<const Organization> organization_;
  std::map<Text, Allotment, std::less<>> allotments_;  // by the table's name in upper case
};

namespace MAction {

// The rights object of the login organization; never null.
std::shared_ptr<fetchkit::OrganizationRight> OrganizationRight(Session& session);

}  // namespace MAction
}  // namespace fetchkit
