"""FetchKit from Python with pywin32: prints what stands in ../prints.txt.

    pip install pywin32
    python first_pywin32.py

Checked against the type library, not run.
"""
import datetime
import sys

import win32com.client

sys.stdout.reconfigure(encoding="utf-8")

# Keep one Interface for as long as the login is to last: when the last object of the library is gone,
# the system may let the library go, and the login with it.
host = win32com.client.gencache.EnsureDispatch("FetchKitHost.Sample")  # the sample account
fetch = win32com.client.gencache.EnsureDispatch("FetchKit.Interface")
fetch.Initialize(host.Connection("main"))  # once per login
if not fetch.LoginOrganizationName:
    sys.exit("The login did not come in.")

print(f"{fetch.LoginOrganizationCode} {fetch.LoginOrganizationName}, {fetch.LoginDate}")

# The result comes first, then the by-reference arguments in their order.
nothing = datetime.datetime(1899, 12, 30)
activity = fetch.Activity
found, first, last = activity.GetDateRange("本月", nothing, nothing)
if found:
    print(f"this month: {first:%Y-%m-%d} to {last:%Y-%m-%d}")

rights = fetch.LoginOperatorRight
print("right 12:", "yes" if rights.UserRight("12") else "no")

list_set = win32com.client.gencache.EnsureDispatch("FetchKit.ListSet")
list_set.ViewId = 103  # loads the view and the operator's list for it
print(f"list 103: SELECT{list_set.GetListSelect()} FROM {list_set.ListFrom} WHERE {list_set.ListWhere}")
