' What only a script's engine passes, to the registered component. The last line is what the caller
' checks: an error that nobody catches ends the script silently.
Option Explicit
Dim failures : failures = 0

Sub Check(what, got, wanted)
  If VarType(got) = VarType(wanted) Then
    If got = wanted Then Exit Sub
  End If
  failures = failures + 1
  WScript.Echo "FAILED: " & what & ": " & got & " (" & TypeName(got) & ") instead of " & wanted
End Sub

Dim utility, message, number, list, reason
Set utility = CreateObject("FetchKit.Utility")
Check "FetchKit.Activity", IsObject(CreateObject("FetchKit.Activity")), True
Check "FetchKit.ListSet", IsObject(CreateObject("FetchKit.ListSet")), True
Check "FetchKit.TypeDef", IsObject(CreateObject("FetchKit.TypeDef")), True
Check "a date", utility.NotNull(#2004-02-29#, 0), #2004-02-29#
Check "a Null", utility.NotNull(Null, "x"), "x"
Check "an array", utility.FormatString("{0}-{1}", Array("a", "b")), "a-b"
message = "before"
Check "a text by reference", utility.CellIsValid("A1", message), True
Check "the message", message, ""
Set list = CreateObject("FetchKit.ListSet")
Check "a condition of no column", list.SetCondition("a", "b", reason), False
Check "why", Len(reason) > 0, True
Check "no conditions", UBound(list.Conditions) < 0, True
On Error Resume Next
number = CreateObject("FetchKit.Interface").LoginOrganization.BeginYear
Check "type mismatch", Err.Source & " " & Err.Number, "FetchKit 13"
On Error GoTo 0

WScript.Echo failures & " late-bound checks failed"
