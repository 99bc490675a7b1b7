#include "demo/windows/exe/Calls.h"
#include "demo/windows/exe/LibrarySession.h"
#include "demo/windows/exe/ListOutput.h"
#include "demo/windows/exe/WindowsCommands.h"

namespace fetchkit::demo {

int ShowList(Console& console, const CommonOptions& options, const ListOptions& list) {
  LibrarySession session(console, options.trace);
  session.LogIn(options.login);
  const ComPtr<IListSet> set = ObjectOf(session.entry(), &IInterface::get_ListSet);
  OpenView(console, session, set, list.viewId);
  ShowConditions(console, set);
  ShowTexts(console, set);
  ShowRows(console, session, set, list.rows);
  return 0;
}

}  // namespace fetchkit::demo
