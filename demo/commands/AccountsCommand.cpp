#include "demo/SampleAccounts.h"
#include "demo/commands/Commands.h"

namespace fetchkit::demo {

int RunAccounts(Console& console) {
  console.BeginTable({"name", "account", "date", "organization", "operator", "customer", ""});
  for (const SampleLogin& login : SampleLogins())
    console.Row({std::string(login.name), std::string(login.userId), std::string(login.loginDate),
                 std::to_string(login.organizationId), std::to_string(login.operatorId),
                 std::string(login.ssCustomerId), std::string(login.description)});
  console.EndTable();
  console.Note("Begin with one of them: --login NAME");
  return 0;
}

}  // namespace fetchkit::demo
