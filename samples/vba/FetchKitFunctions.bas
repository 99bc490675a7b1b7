Attribute VB_Name = "FetchKitFunctions"
' Worksheet functions over FetchKit: import this module (File, Import File) into a workbook. Needs no
' reference. Checked against the type library, not run.
'
'   =FetchRangeBegin("...")   first day of a date keyword or of a custom range
'   =FetchRangeEnd("...")     last day of it
'   =FetchHasRight("12,15")   whether the operator holds all of these rights
'   =FetchListSql(103)        the statement of the operator's list over a view
'
' FirstCalls prints what stands in ..\prints.txt into the Immediate window. The file holds ASCII alone,
' so that it is imported the same under every code page.
Option Explicit

' Keep one Interface for as long as the login is to last: when the last object of the library is gone,
' the system may let the library go, and the login with it. These live until the workbook is closed or
' the project is reset; the next call logs in again then.
Private mFetch As Object
Private mHost As Object

' Logged in at the first call. Raises what CreateObject raises when the DLL is not registered for this
' Excel's number of bits.
Private Function Fetch() As Object
    If mFetch Is Nothing Then
        Dim connection As Object
        Set mHost = CreateObject("FetchKitHost.Sample")    ' the sample account; yours is HostConnection.cls
        Set connection = mHost.Connection("main")
        Dim entry As Object
        Set entry = CreateObject("FetchKit.Interface")
        entry.Initialize connection                        ' once per login
        If entry.LoginOrganizationName = "" Then Err.Raise vbObjectError + 1, "FetchKit", "The login did not come in."
        Set mFetch = entry
    End If
    Set Fetch = mFetch
End Function

' To be called when the host's login changes, and from Workbook_BeforeClose.
Public Sub FetchLogOut()
    Set mFetch = Nothing
    Set mHost = Nothing
End Sub

Public Function FetchRangeBegin(ByVal keyword As String) As Variant
    Dim first As Date, last As Date
    Dim activity As Object
    On Error GoTo Failed
    Set activity = Fetch().Activity
    If activity.GetDateRange(keyword, first, last) Then
        FetchRangeBegin = first
    Else
        FetchRangeBegin = CVErr(xlErrNA)                   ' no keyword, or no such period
    End If
    Exit Function
Failed:
    FetchRangeBegin = CVErr(xlErrValue)
End Function

Public Function FetchRangeEnd(ByVal keyword As String) As Variant
    Dim first As Date, last As Date
    Dim activity As Object
    On Error GoTo Failed
    Set activity = Fetch().Activity
    If activity.GetDateRange(keyword, first, last) Then
        FetchRangeEnd = last
    Else
        FetchRangeEnd = CVErr(xlErrNA)
    End If
    Exit Function
Failed:
    FetchRangeEnd = CVErr(xlErrValue)
End Function

Public Function FetchHasRight(ByVal rightIds As String) As Variant
    Dim rights As Object
    On Error GoTo Failed
    Set rights = Fetch().LoginOperatorRight
    FetchHasRight = rights.UserRight(rightIds)
    Exit Function
Failed:
    FetchHasRight = CVErr(xlErrValue)
End Function

Public Function FetchListSql(ByVal viewNumber As Long) As Variant
    Dim list As Object, where As String
    On Error GoTo Failed
    Fetch                                                  ' logs in
    Set list = CreateObject("FetchKit.ListSet")
    list.ViewId = viewNumber                               ' loads the view and the operator's list for it
    where = list.ListWhere
    If list.ListPureWhere <> "" Then
        If where <> "" Then where = where & " AND "
        where = where & list.ListPureWhere
    End If
    FetchListSql = "SELECT" & list.GetListSelect & " FROM " & list.ListFrom
    If where <> "" Then FetchListSql = FetchListSql & " WHERE " & where
    Exit Function
Failed:
    FetchListSql = CVErr(xlErrValue)
End Function

Public Sub FirstCalls()
    Dim fetch1 As Object, month As String
    Set fetch1 = Fetch()
    Debug.Print fetch1.LoginOrganizationCode & " " & fetch1.LoginOrganizationName & ", " & fetch1.LoginDate
    month = ChrW(&H672C) & ChrW(&H6708)
    Debug.Print "this month: " & Format(FetchRangeBegin(month), "yyyy-mm-dd") & " to " & _
                Format(FetchRangeEnd(month), "yyyy-mm-dd")
    Debug.Print "right 12: " & IIf(FetchHasRight("12"), "yes", "no")
    Debug.Print "list 103: " & FetchListSql(103)
End Sub
