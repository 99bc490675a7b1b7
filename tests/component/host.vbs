' FetchKitHost.Odbc as scripts use it: every call by name.
'
'   cscript //nologo host.vbs ENGINE          the connection string comes in FETCHKIT_ODBC
'
' Prints what differs from what is expected, and as the last line how many checks failed.
Option Explicit

Dim failed, host, sample, entry, engine
failed = 0
engine = WScript.Arguments(0)
Main
WScript.Echo failed & " checks failed"

Sub Check(what, found, wanted)
  If found <> wanted Then
    failed = failed + 1
    sample.WriteLine what & ": " & found & " instead of " & wanted
  End If
End Sub

Sub Main()
  On Error Resume Next
  Run
  If Err.Number <> 0 Then
    failed = failed + 1
    WScript.Echo "stopped: " & Err.Number & " " & Err.Description
  End If
End Sub

Sub Run()
  Dim connectionString, connection, again
  connectionString = CreateObject("WScript.Shell").Environment("Process")("FETCHKIT_ODBC")
  Set sample = CreateObject("FetchKitHost.Sample")
  Set host = CreateObject("FetchKitHost.Odbc")
  Set entry = CreateObject("FetchKit.Interface")
  Refusals connectionString

  host.AccountType = 7
  host.Server = "DBSRV"
  host.UserId = "ACC01"
  host.LoginDate = "2004-03-17"
  host.OrganizationId = 3
  host.OperatorId = 2
  host.Password = "zwj2004"
  host.Item("#SSCustomerID") = "101"
  host.Open connectionString, engine
  Check "open", host.IsOpen, True
  Check "an item", host.Item("#SSCustomerID"), "101"
  Check "the login stays", host.UserId, "ACC01"
  entry.Initialize host.Connection
  ' The same login on the sample accounts, which need no driver.
  Set again = CreateObject("FetchKit.Interface")
  Dim organization, list
  organization = entry.LoginOrganizationName
  list = ListRows(entry, host, 102)
  again.Initialize sample.Connection("main")
  Check "the organization", organization, again.LoginOrganizationName
  Check "the list's rows", list, ListRows(again, sample, 102)
  Check "recordsets that are open", sample.OpenRecordsets, 0

  ByName
  ByReference host.Connection

  Set connection = host.Connection
  host.Close
  Check "closed", host.IsOpen, False
  Dim opened, rows
  opened = connection.OpenRecordset("SELECT 1 FROM DUAL", rows, 0, 0)
  Check "a statement after Close", opened, False
End Sub

' What goes wrong says why, and tells no secret.
Sub Refusals(connectionString)
  Dim wrong
  On Error Resume Next
  host.Open connectionString, "no such engine"
  Check "an engine that is none", InStr(Err.Description, "oracle, postgresql, mariadb, sqlite") > 0, True
  Err.Clear
  host.OpenRecordset "SELECT 1"
  Check "nothing open", InStr(Err.Description, "call Open first") > 0, True
  Err.Clear
  wrong = connectionString & "SecretOfMine"
  If engine = "sqlite" Then wrong = "Driver=no such driver;PWD=SecretOfMine"
  host.Open wrong, engine
  Check "a wrong password", Err.Number <> 0 And Len(Err.Description) > 20, True
  Check "a secret", InStr(Err.Description, "SecretOfMine"), 0
  Err.Clear
  host.StatementTimeout = -1
  Check "a time before 0", Err.Number <> 0, True
  Err.Clear
End Sub

' The rows of a view's saved list, read by name.
Function ListRows(library, source, view)
  Dim set_, sql, rows, field
  Set set_ = library.ListSet
  set_.ViewId = view
  sql = "Select" & set_.GetListSelect & " From " & set_.ListFrom & " Where " & set_.ListWhere
  If set_.ListPureWhere <> "" Then sql = sql & " And " & set_.ListPureWhere
  sql = sql & " Order By 1,2,3,4,5,6,7,8,9,10,11,12"
  Set rows = source.OpenRecordset(sql)
  ListRows = rows.RecordCount & " rows" & vbLf
  Do Until rows.EOF
    For Each field In rows.Fields
      If Not IsNull(field.Value) Then ListRows = ListRows & field.Value
      ListRows = ListRows & "|"
    Next
    ListRows = ListRows & vbLf
    rows.MoveNext
  Loop
  source.CloseRecordset rows
End Function

Sub ByName()
  Dim rows
  Set rows = host.OpenRecordset("SELECT lngOperatorID AS id, strOperatorName AS name, strOperatorCode || '' AS code FROM Operator ORDER BY 1")
  Check "State", rows.State, 1
  Check "the count of columns", rows.Fields.Count, 3
  Check "a name", LCase(rows.Fields(1).Name), "name"
  Check "a number's type", rows.Fields("ID").Type, 3
  Check "a text's type", rows.Fields("name").Type, 202
  Check "a column by the recordset itself", rows("name"), rows.Fields(1).Value
  Check "the kind of RecordCount", TypeName(rows.RecordCount), "Long"
  Check "BOF", rows.BOF, False
  Dim first
  first = rows("id")
  rows.MoveLast
  Check "the last row", rows("id") > first, True
  rows.MovePrevious
  rows.MoveNext
  rows.MoveNext
  Check "EOF", rows.EOF, True
  rows.MoveFirst
  rows.MovePrevious
  Check "before the first row", rows.BOF, True
  rows.MoveNext
  Check "back on the first row", rows("id"), first
  rows.Close
  Check "State of a closed one", rows.State, 0
  host.CloseRecordset rows
  On Error Resume Next
  rows.MoveNext
  Check "a closed one moves", Err.Number <> 0, True
  Err.Clear
End Sub

' The connection as a library sees it, with variables as by-reference arguments.
Sub ByReference(connection)
  Dim rows, isEmpty, opened, number
  opened = connection.OpenStaticRecordset("SELECT strOrganizationName FROM Organization WHERE 1 = 0", rows, 3, 1, 1, 0)
  Check "opened", opened, True
  connection.RecordsetIsEmpty rows, isEmpty
  Check "empty", isEmpty, True
  connection.CloseRecordset rows
  Check "given back", rows Is Nothing, True
  opened = connection.ExecuteSql("UPDATE Organization SET strOrganizationName = strOrganizationName WHERE lngOrganizationID = 3", 1, number)
  Check "rows that were changed", number, 1
  Check "the context", connection.HostContext.AccountLogin.UserId, "ACC01"
  Check "the context's item", connection.HostContext.LoginContext.Item("#SSCustomerID"), "101"
End Sub
