' A host that is a script: connection, login and recordsets are classes without any interface. The last
' line is what the caller checks: an error that nobody catches ends the script silently.
Option Explicit
Dim failures, heard, entry, diagnostics, host
failures = 0

Sub Check(what, got, wanted)
  If VarType(got) = VarType(wanted) Then
    If got = wanted Then Exit Sub
  End If
  failures = failures + 1
  WScript.Echo "FAILED: " & what & ": " & got & " (" & TypeName(got) & ") instead of " & wanted
End Sub

Class Login
  Public Property Get AccountTypeInfo
    Set AccountTypeInfo = Me
  End Property
  Public Property Get AccountLogin
    Set AccountLogin = Me
  End Property
  Public Property Get LoginContext
    Set LoginContext = Me
  End Property
  Public Property Get AccountType
    AccountType = 7
  End Property
  Public ServerName
  Public UserId
  Public LoginDate
  Public OrganizationId
  Public OperatorId
  Public Password
  Private Sub Class_Initialize
    ServerName = "DBSRV"
    UserId = "ACC01"
    LoginDate = "2004-03-17"
    OrganizationId = 20
    OperatorId = "3"
    Password = "secret"
  End Sub
  Public Function Item(name)
    If name <> "#SSCustomerID" Then Err.Raise 5, "Login", "There is no " & name
    Item = 12
  End Function
End Class

Class Field
  Public Owner
  Public Name
  Public Property Get Value
    Value = Owner.Cell(Name)
  End Property
End Class

Class FieldList
  Public Owner
  Public Property Get Count
    Count = Owner.Names.Count
  End Property
  Public Default Function Item(key)
    Dim found, all
    Set found = New Field
    Set found.Owner = Owner
    found.Name = key
    If VarType(key) <> vbString Then
      all = Owner.Names.Keys
      found.Name = all(key)
    End If
    Set Item = found
  End Function
End Class

' Rows of "column=value,column=value" with "/" between them; any other column holds 0.
Class Rows
  Public Names
  Public RecordCount
  Private lines
  Private at
  Public Sub Fill(text)
    Dim part
    Set Names = CreateObject("Scripting.Dictionary")
    RecordCount = 0
    If text = "" Then Exit Sub
    lines = Split(text, "/")
    RecordCount = UBound(lines) + 1
    For Each part In Split(lines(0), ",")
      Names.Add UCase(Left(part, InStr(part, "=") - 1)), True
    Next
  End Sub
  Public Function Cell(name)
    Dim part
    Cell = 0
    For Each part In Split(lines(at), ",")
      If UCase(Left(part, InStr(part, "="))) = UCase(name) & "=" Then
        Cell = Mid(part, InStr(part, "=") + 1)
        If Cell = "" Then Cell = Null
        Exit Function
      End If
    Next
  End Function
  Public Property Get EOF
    EOF = at >= RecordCount
  End Property
  Public Property Get BOF
    BOF = at < 0 Or RecordCount = 0
  End Property
  Public Property Get Fields
    Dim list
    Set list = New FieldList
    Set list.Owner = Me
    Set Fields = list
  End Property
  Public Sub MoveFirst
    at = 0
  End Sub
  Public Sub MoveLast
    at = RecordCount - 1
  End Sub
  Public Sub MoveNext
    at = at + 1
  End Sub
End Class

Class Connection
  Public Context
  Public OpenRows
  Public LastSql
  Public LastRefusal
  Public Changes
  Private Sub Class_Initialize
    Set Context = New Login
  End Sub
  Public Property Get HostContext
    Set HostContext = Context
  End Property
  Public Sub CloseRecordset(recordset)
    OpenRows = OpenRows - 1
    Set recordset = Nothing
  End Sub
  Public Sub RecordsetIsEmpty(recordset, isEmpty)
    isEmpty = recordset.RecordCount = 0
  End Sub
  Public Function OpenStaticRecordset(sql, recordset, cursorType, lockType, commandType, options)
    Check "the options", cursorType & lockType & commandType & options, "3110"
    OpenStaticRecordset = OpenRecordset(sql, recordset, 0, 0)
  End Function
  Public Function OpenRecordset(sql, recordset, option1, option2)
    Dim text
    LastSql = sql
    OpenRecordset = False
    If InStr(sql, "lngOrganizationID=77") Then
      LastRefusal = "table or view does not exist"
      Exit Function
    End If
    If InStr(sql, "lngOrganizationID=78") Then Err.Raise 1000, "Connection", "the line is dead"
    If InStr(sql, "FROM Business") Then
      text = "bytAccountProperty=1,lngCurrencyID=7,strStartDate=2003.1.1,strUserName=East,bytCurrencydec=2"
    ElseIf InStr(sql, "GaBaseInfo") Then
      text = "strAccountName=Group,strVersion=8.5,strGaUnitCode=DF"
    ElseIf InStr(sql, "SELECT lngOrganizationID,") Then
      text = "lngOrganizationID=20,strOrganizationCode=01-02,strOrganizationName=East,intlevel=2,blnIsDetail=1"
    ElseIf InStr(sql, "ORDER BY intYear") Then
      text = "strStartDate=2003-01-01,strEndDate=2003-01-31/strStartDate=2004-03-01,strEndDate=2004-03-31"
    ElseIf InStr(sql, "bytPeriod") Then
      text = "intYear=2004,bytPeriod=3"
    ElseIf InStr(sql, "FROM Operator") Then
      text = "lngOperatorId=3,strOperatorCode=003,strOperatorName=Li,strOperatorGroupName=books"
    ElseIf InStr(sql, "FROM SSCustomer") Then
      text = "lngSSCustomerId=12,strSSCustomerName=Sky,strFullName=Blue Sky"
    ElseIf InStr(sql, "lngOrganizationID=20") Then
      text = "strOrganizationCode=01-02"
    Else
      text = ""
    End If
    Set recordset = New Rows
    recordset.Fill text
    OpenRows = OpenRows + 1
    OpenRecordset = True
  End Function
  Public Function ExecuteSql(sql, options, out)
    Changes = Changes + 1
    ExecuteSql = True
  End Function
End Class

Class Ear
  Public Sub OnFailure(member, text, statement, databaseText)
    heard = heard & member & ":" & text & ":" & databaseText & ";"
    Err.Raise 5, "Ear", "nobody hears this"
  End Sub
End Class

Set host = New Connection
Set entry = CreateObject("FetchKit.Interface")
Set diagnostics = CreateObject("FetchKit.Diagnostics")
entry.Initialize host
Check "failures of a healthy login", diagnostics.FailureCount & diagnostics.LastFailure, "0"
Check "the login's state", diagnostics.LoginState & diagnostics.LoginReasons, "2"
Check "account", entry.Business.AccountName, "Group"
Check "organization", entry.LoginOrganizationCode, "01-02"
Check "end of the calendar", entry.LoginOrganization.EndDate, "2004-03-31"
Check "operator", entry.LoginOperator.OperatorName, "Li"
Check "customer", entry.CustomerSs.FullName, "Blue Sky"
Check "a service", entry.Activity.GetOrganizationCode(20), "01-02"
Check "recordsets not given back", host.OpenRows & "", "0"

Set diagnostics.Listener = New Ear
Check "a refusal", entry.Activity.GetOrganizationCode(77), ""
Check "the database's words", diagnostics.LastDatabaseText, "table or view does not exist"
Check "its statement", diagnostics.LastStatement, host.LastSql
Check "what was heard", heard, "Activity.GetOrganizationCode:" & _
      "The database refused the statement.:table or view does not exist;"
Check "an error", entry.Activity.GetOrganizationCode(78), ""
' Not every engine hands a class's words on; its number it does.
If diagnostics.LastText <> "the host answered 0x800A03E8" Then _
  Check "the script's words", diagnostics.LastText, "the line is dead"
Check "failures", diagnostics.FailureCount & "", "2"
diagnostics.Clear
Check "failures then", diagnostics.FailureCount & "", "0"
Set diagnostics.Listener = Nothing

WScript.Echo failures & " checks of a script's host failed"
