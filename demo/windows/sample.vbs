' The sample accounts through FetchKit from a script, every call late-bound: prints what the
' console demo's commands of the same names print.
'
'   regsvr32 FetchKit.dll & regsvr32 FetchKitHost.dll    once, both of the script host's bits
'   cscript //nologo sample.vbs dates|rights|format [LOGIN]
'
' The file holds ASCII alone, so that it reads the same under every code page: other characters are
' written \uXXXX and go through the host's Unescaped.
Option Explicit

Dim host, entry, diagnostics, connection, loginName, freshLogins
freshLogins = 0
Main

Sub Main()
  Dim command
  command = "login"
  If WScript.Arguments.Count > 0 Then command = WScript.Arguments(0)
  loginName = "main"
  If WScript.Arguments.Count > 1 Then loginName = WScript.Arguments(1)
  On Error Resume Next
  Run command
  If Err.Number <> 0 Then Fail Err.Description & " (" & Err.Number & ", " & Err.Source & ")"
End Sub

Sub Run(command)
  Set host = CreateObject("FetchKitHost.Sample")
  Set entry = CreateObject("FetchKit.Interface")
  Set diagnostics = CreateObject("FetchKit.Diagnostics")
  LogIn ""
  Select Case command
    Case "dates" ShowDates
    Case "rights" ShowRights
    Case "format" ShowFormats
    Case Else ShowLogin
  End Select
  ' The library gives back what it opens, whatever it was asked.
  If host.OpenRecordsets <> 0 Then Fail host.OpenRecordsets & " recordsets were not given back"
  ' What fails is quiet, but it is counted.
  If diagnostics.FailureCount <> 0 Then Fail diagnostics.LastFailure
End Sub

Sub Fail(why)
  If IsObject(host) Then
    host.WriteLine "sample.vbs: " & why
  Else
    WScript.Echo "sample.vbs: " & why
  End If
  WScript.Quit 1
End Sub

Sub LogIn(server)
  Set connection = host.Connection(loginName, server)
  entry.Initialize connection
  host.ForgetStatements
End Sub

' At a server of another name it is an account that the library has not seen: nothing is cached.
Sub LogInAfresh()
  freshLogins = freshLogins + 1
  LogIn "DBSRV" & freshLogins
End Sub

Sub Heading(text)
  host.WriteLine ""
  host.WriteLine text
End Sub

' Not every script engine has Join.
Sub Row(cells)
  Dim i, line
  line = cells(0)
  For i = 1 To UBound(cells)
    line = line & vbTab & cells(i)
  Next
  host.WriteLine line
End Sub

Function YesNo(flag)
  If flag Then
    YesNo = "yes"
  Else
    YesNo = "no"
  End If
End Function

Function OrAll(restriction)
  OrAll = restriction
  If restriction = "" Then OrAll = "(all codes)"
End Function

Sub ShowStatements()
  Dim i
  For i = 1 To host.StatementCount
    Row Array(Right("  " & i, 3), host.StatementAnswer(i), host.StatementText(i))
  Next
  If host.StatementCount = 1 Then
    host.WriteLine "1 statement"
  Else
    host.WriteLine host.StatementCount & " statements"
  End If
  host.ForgetStatements
End Sub

Sub ShowLogin()
  Dim middot
  middot = host.Unescaped(" \u00B7 ")
  host.WriteLine entry.Business.AccountName & middot & entry.LoginOrganizationCode & " " & _
                 entry.LoginOrganizationName & middot & entry.LoginOperator.OperatorName & _
                 middot & entry.CustomerSs.CustomerName & middot & entry.LoginDate
End Sub

' ---- dates

Function IsoDate(value)
  IsoDate = Year(value) & "-" & Right("0" & Month(value), 2) & "-" & Right("0" & Day(value), 2)
End Function

' The range of a keyword and the statements that it costs the first and the second time.
Function Evaluate(keyword, financial)
  Dim again, found, dateNow, dateBegin, dateEnd, cost(1), range
  LogInAfresh
  dateBegin = CDate(0)
  dateEnd = CDate(0)
  For again = 0 To 1
    host.ForgetStatements
    dateNow = CDate(0)
    found = entry.Activity.GetBeginAndEndDate(keyword, dateNow, dateBegin, dateEnd, financial)
    cost(again) = host.StatementCount
  Next
  range = "-"
  If found Then range = IsoDate(dateBegin) & host.Unescaped(" \u2013 ") & IsoDate(dateEnd)
  Evaluate = range & vbTab & cost(0) & vbTab & cost(1)
End Function

Sub ShowDates()
  Dim keyword
  Heading "Date ranges on " & entry.LoginDate
  Row Array("keyword", "calendar", "statements", "again", "accounting", "statements", "again")
  For Each keyword In host.Keywords
    Row Array(keyword, Evaluate(keyword, False), Evaluate(keyword, True))
  Next
  keyword = host.Unescaped("\u81EA\u5B9A\u4E49:2004-03-31,2004-01-01")
  Row Array(keyword, Evaluate(keyword, False), Evaluate(keyword, True))
End Sub

' ---- rights

Sub ShowRights()
  Dim rights, allotted, item
  Set rights = entry.LoginOperatorRight
  Set allotted = entry.LoginOrganizationRight

  Heading "Function rights of " & entry.LoginOperator.OperatorName & " in " & _
          entry.LoginOrganizationName
  Row Array("UserRight", "")
  For Each item In Array("12", "12,15", "12,45", "31,101", "999", "1", "")
    Row Array("""" & item & """", YesNo(rights.UserRight(item)))
  Next
  ShowStatements

  Heading "All-codes rights and restrictions, by code table"
  Row Array("table", "query all", "use all", "GetUserQueryRight")
  For Each item In Array("Account", "Department", "Class1", "Customer")
    Row Array(item, YesNo(rights.HaveAllCodeQueryRight(item)), _
              YesNo(rights.HaveAllCodeUseRight(item)), OrAll(rights.GetUserQueryRight(item)))
  Next
  ShowStatements

  Heading "Codes allotted to the organization"
  Row Array("table", "use all", "GetAllCodeUseRightSql")
  For Each item In Array("Account", "Department", "Class1")
    Row Array(item, YesNo(allotted.HaveAllCodeUseRight(item)), _
              OrAll(allotted.GetAllCodeUseRightSql(item)))
  Next
  ShowStatements
End Sub

' ---- amounts and clauses

Function Ids(count)
  Dim id
  Ids = "1"
  For id = 2 To count
    Ids = Ids & "," & id
  Next
End Function

Sub ShowLongList(name, sql, separator)
  Dim group, sizes, dots
  dots = host.Unescaped("\u2026")
  sizes = ""
  For Each group In Split(sql, separator)
    If sizes <> "" Then sizes = sizes & ", "
    sizes = sizes & (UBound(Split(group, ",")) + 1)
  Next
  Row Array(name, sizes, Left(sql, 24) & dots, dots & Right(sql, 16))
End Sub

Sub ShowFormats()
  Dim activity, utility
  Set activity = entry.Activity
  Set utility = CreateObject("FetchKit.Utility")

  Heading "Amounts, in the account's currency"
  Row Array("FormatValue 1234.5", activity.FormatValue(1234.5))
  Row Array("FormatValue 2.345", activity.FormatValue(2.345))
  Row Array("FormatValue -0.005", activity.FormatValue(-0.005))
  Row Array("FormatValue 1000000000000000", activity.FormatValue(1E15))
  Row Array("GetFormat 2", activity.GetFormat(2))
  Row Array("FourLostFiveAdd 2.345, 2", utility.FourLostFiveAdd(2.345, 2))
  Row Array("C2Dbl 1,234.5", utility.C2Dbl("1,234.5"))
  ShowStatements

  Heading "Clauses"
  Row Array("FormatDateCond", _
            utility.FormatDateCond("V.strDate", "2004-03-01", "2004-03-31", True))
  Row Array("FormatCond", utility.FormatCond("V.blnPosted=1"))
  Row Array("FormatLink", utility.FormatLink("b=2", "a=1", " And "))
  Row Array("DecomposeInClause", utility.DecomposeInClause("V.strCode", "01,02", True, ""))
  Row Array("FormatSQL", activity.FormatSQL("a || Upper(b)"))
  Row Array("CellNameToAbsolute AB12", utility.CellNameToAbsolute("AB12"))
  Row Array("CellColToString 40", utility.CellColToString(40))

  Heading "An IN list of 2,500 ids"
  Row Array("", "groups of", "begins", "ends")
  ShowLongList "DecomposeInClause", utility.DecomposeInClause("lngID", Ids(2500), False, ""), " OR "
  ShowLongList "SplitInClause", utility.SplitInClause(Ids(2500), ",", "lngID"), " Or "
End Sub
