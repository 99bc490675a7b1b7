// The organization that the operator is logged into.
#pragma once

#include <cstdint>
#include <memory>

#include "fetchkit/base/Property.h"
#include "fetchkit/base/Text.h"
#include "fetchkit/session/model/Session.h"

namespace fetchkit {

// One per account and organization id: its own row, its place in the tree of organizations, and
// its accounting calendar as seen on the login date. The lists of ids are comma-separated decimal
// numbers without blanks, "0" when there are none, ready for "IN (...)".
class Organization {
 public:
  Property<std::int32_t> OrganizationID;
  Property<Text> OrganizationCode;  // levels joined by "-", such as "01-02-05"
  Property<Text> OrganizationName;
  Property<Text> OrganizationFullName;

  // The account's property of the calling thread's session, but 2 when its group database type
  // and its property are both 1. 0 without memory.
  std::uint8_t OrganizationProperty() const;

  Property<std::int16_t> Level;  // 1 for a root
  Property<Text> CreateDate;     // "yyyy-MM-dd"
  Property<Text> StartDate;      // "yyyy-MM-dd"
  Property<Text> BeginDate;      // first day of the first accounting period, as stored
  Property<Text> EndDate;        // last day of the last accounting period, as stored

  // Always throws ConvertError (TypeMismatch): it reads a text that nothing fills. Hosts know it
  // that way; it is not derived from BeginDate.
  std::int16_t BeginYear() const;

  Property<std::int16_t> ThisYear;  // of the login date; kept when no period contains it
  Property<std::uint8_t> ThisPeriod;
  Property<bool> IsBase;
  bool IsRoot() const { return Level() == 1; }
  Property<bool> IsCenter;
  Property<bool> IsCache;
  Property<bool> IsCached;  // never loaded
  Property<bool> IsDetail;
  Property<bool> IsInitialized;
  Property<bool> IsInActive;
  Property<bool> IsControl;
  Property<bool> IsVoucher;
  Property<bool> IsDBOrganization;                   // never loaded
  Property<std::int32_t> ParentLevelOrganizationId;  // 0 for a root
  Property<Text> PrevLevelOrganizationId;            // all ancestors, root first
  Property<Text> NextLevelOrganizationId;            // all descendants, by level, then id
  Property<Text> NextLevelDirectOrganizationID;      // the children

  // The own id, then "," and the descendants; a leaf reads its own id and ",0". Empty without
  // memory.
  Text LowerOrganizationId() const;

  Property<std::uint8_t> ThisQuarter;
  Property<std::uint8_t> ThisHalfYear;
  Property<std::uint8_t> GroupDBType;  // the account's, copied at every Initialize

 private:
  Text beginYear_;
};

namespace MAction {

// The organization of the current login; never null, empty until Initialize has loaded it.
std::shared_ptr<fetchkit::Organization> LoginOrganization(Session& session);

// Fills the record with seven statements when session.OrganizationLoad is due: its row (by the
// login id), then the tree and the calendar (by the id that the object holds, 0 if it was never
// found). The three parts trap their errors apart; what was set before an error stands. A statement
// that raises is passed over like one that is refused.
void LoadOrganization(Session& session, fetchkit::Organization& organization);

}  // namespace MAction
}  // namespace fetchkit
