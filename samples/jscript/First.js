// FetchKit from JScript: cscript //nologo First.js prints what stands in First.txt.
//
// JScript passes every argument by value: what a member writes back into its arguments is lost, only
// its result arrives. A date range is taken from a list's condition then, or by another language.

// Keep one Interface for as long as the login is to last: when the last object of the library is gone,
// the system may let the library go, and the login with it.
var host = new ActiveXObject("FetchKitHost.Sample");   // the sample account; yours is the host's connection
var fetch = new ActiveXObject("FetchKit.Interface");
fetch.Initialize(host.Connection("main"));             // once per login
if (fetch.LoginOrganizationName == "") {
  WScript.Echo("The login did not come in.");
  WScript.Quit(1);
}

host.WriteLine(fetch.LoginOrganizationCode + " " + fetch.LoginOrganizationName + ", " + fetch.LoginDate);

var known = fetch.Activity.GetDateRange("\u672C\u6708", 0, 0);
host.WriteLine("this month is a range: " + (known ? "yes" : "no"));

host.WriteLine("right 12: " + (fetch.LoginOperatorRight.UserRight("12") ? "yes" : "no"));

var list = new ActiveXObject("FetchKit.ListSet");
list.ViewId = 103;                                     // loads the view and the operator's list for it
host.WriteLine("list 103: SELECT" + list.GetListSelect() + " FROM " + list.ListFrom + " WHERE " + list.ListWhere);
