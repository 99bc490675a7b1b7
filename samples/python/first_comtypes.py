"""FetchKit from Python with comtypes: prints what stands in ../prints.txt.

    pip install comtypes
    python first_comtypes.py

Checked against the type library, not run.
"""
import datetime
import sys

import comtypes.client

sys.stdout.reconfigure(encoding="utf-8")

# Keep one Interface for as long as the login is to last: when the last object of the library is gone,
# the system may let the library go, and the login with it.
host = comtypes.client.CreateObject("FetchKitHost.Sample")  # the sample account
fetch = comtypes.client.CreateObject("FetchKit.Interface")
fetch.Initialize(host.Connection("main"))  # once per login
if not fetch.LoginOrganizationName:
    sys.exit("The login did not come in.")

print(f"{fetch.LoginOrganizationCode} {fetch.LoginOrganizationName}, {fetch.LoginDate}")


def date(days):
    """comtypes hands dates over as numbers of days since 1899-12-30."""
    return datetime.date(1899, 12, 30) + datetime.timedelta(days=int(days))


# The by-reference arguments come first, in their order, then the result.
activity = fetch.Activity
first, last, found = activity.GetDateRange("本月", 0.0, 0.0)
if found:
    print(f"this month: {date(first)} to {date(last)}")

rights = fetch.LoginOperatorRight
print("right 12:", "yes" if rights.UserRight("12") else "no")

list_set = comtypes.client.CreateObject("FetchKit.ListSet")
list_set.ViewId = 103  # loads the view and the operator's list for it
print(f"list 103: SELECT{list_set.GetListSelect()} FROM {list_set.ListFrom} WHERE {list_set.ListWhere}")
