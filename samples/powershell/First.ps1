# FetchKit from Windows PowerShell: powershell -File First.ps1 prints what stands in ..\prints.txt.
# Checked against the type library, not run.
$ErrorActionPreference = 'Stop'
[Console]::OutputEncoding = [Text.Encoding]::UTF8

# Keep one Interface for as long as the login is to last: when the last object of the library is gone,
# the system may let the library go, and the login with it.
$host1 = New-Object -ComObject FetchKitHost.Sample   # the sample account; $host is PowerShell's own
$fetch = New-Object -ComObject FetchKit.Interface
$connection = $host1.Connection('main')
$fetch.Initialize([ref]$connection)                  # once per login
if ($fetch.LoginOrganizationName -eq '') { throw 'The login did not come in.' }

"$($fetch.LoginOrganizationCode) $($fetch.LoginOrganizationName), $($fetch.LoginDate)"

# By-reference arguments need [ref] and a date that OLE can hold: [datetime]::MinValue is none.
$first = [datetime]'1899-12-30'
$last = [datetime]'1899-12-30'
$month = [string][char]0x672C + [char]0x6708         # the file holds ASCII alone
$activity = $fetch.Activity
if ($activity.GetDateRange($month, [ref]$first, [ref]$last)) {
  "this month: $($first.ToString('yyyy-MM-dd')) to $($last.ToString('yyyy-MM-dd'))"
}

$rights = $fetch.LoginOperatorRight
"right 12: $(if ($rights.UserRight('12')) { 'yes' } else { 'no' })"

$list = New-Object -ComObject FetchKit.ListSet
$list.ViewId = 103                                   # loads the view and the operator's list for it
"list 103: SELECT$($list.GetListSelect()) FROM $($list.ListFrom) WHERE $($list.ListWhere)"
