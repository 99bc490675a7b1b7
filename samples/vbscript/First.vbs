' FetchKit from VBScript: cscript //nologo First.vbs prints what stands in ../prints.txt.
'
' The file holds ASCII alone, so that it reads the same under every code page: other characters go
' through the sample host's Unescaped, and its WriteLine prints UTF-8.
Option Explicit

' Keep one Interface for as long as the login is to last: when the last object of the library is gone,
' the system may let the library go, and the login with it.
Dim host, fetch
Set host = CreateObject("FetchKitHost.Sample")     ' the sample account; yours is the host's connection
Set fetch = CreateObject("FetchKit.Interface")
fetch.Initialize host.Connection("main")           ' once per login
If fetch.LoginOrganizationName = "" Then
  WScript.Echo "The login did not come in."
  WScript.Quit 1
End If

host.WriteLine fetch.LoginOrganizationCode & " " & fetch.LoginOrganizationName & ", " & fetch.LoginDate

' By-reference arguments are written back into variables of any type that converts.
Dim first, last
first = CDate(0)
last = CDate(0)
If fetch.Activity.GetDateRange(host.Unescaped("\u672C\u6708"), first, last) Then
  host.WriteLine "this month: " & Iso(first) & " to " & Iso(last)
End If

Dim answer
answer = "no"
If fetch.LoginOperatorRight.UserRight("12") Then answer = "yes"
host.WriteLine "right 12: " & answer

Dim list
Set list = CreateObject("FetchKit.ListSet")
list.ViewId = 103                                  ' loads the view and the operator's list for it
host.WriteLine "list 103: SELECT" & list.GetListSelect & " FROM " & list.ListFrom & " WHERE " & list.ListWhere

Function Iso(value)
  Iso = Year(value) & "-" & Right("0" & Month(value), 2) & "-" & Right("0" & Day(value), 2)
End Function
