' Drives the registered component as a script does. The last line is what the caller checks: an error
' that nobody catches ends the script silently.
Option Explicit
Dim failures : failures = 0

Sub Check(what, got, wanted)
  If VarType(got) = VarType(wanted) Then
    If got = wanted Then Exit Sub
  End If
  failures = failures + 1
  WScript.Echo "FAILED: " & what & ": " & got & " (" & TypeName(got) & ") instead of " & wanted
End Sub

Dim entry, utility, activity, lists, owner, row, column, message, number, text
Set entry = CreateObject("FetchKit.Interface")
Set utility = CreateObject("FetchKit.Utility")
Set activity = CreateObject("FetchKit.Activity")
Set lists = CreateObject("FetchKit.ListSet")
Set owner = CreateObject("FetchKit.TypeDef")

Check "an omitted argument", utility.DecomposeInClause("lngID", "1,2", False), "(lngID In(1,2) )"
Check "a date", utility.NotNull(#2004-02-29#, 0), #2004-02-29#
Check "a Null", utility.NotNull(Null, "x"), "x"
Check "an array", utility.FormatString("{0}-{1}", Array("a", "b")), "a-b"
Check "by reference", utility.CellNameToRowCol("AB12", row, column), True
Check "the row", row, CLng(12)
Check "the column", column, CLng(28)
message = "before"
Check "a text by reference", utility.CellIsValid("A1", message), True
Check "the message", message, ""
lists.AccountName = "A"
Check "a property", lists.AccountName, "A"

' The number and the source of what raises.
On Error Resume Next
number = entry.LoginOrganization.BeginYear
Check "type mismatch", CLng(Err.Number), CLng(13)
Err.Clear
text = utility.Security("123456789012345678901234")
Check "invalid call", CLng(Err.Number), CLng(5)
Check "its source", Err.Source, "FetchKit"
Err.Clear
text = utility.GetSpace("a", 70000)
Check "overflow", CLng(Err.Number), CLng(6)
Err.Clear
On Error GoTo 0

WScript.Echo failures & " late-bound checks failed"
