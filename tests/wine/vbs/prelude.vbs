' The checks the runner puts before each script; Done exits with the number
' of failed checks.
Option Explicit
Dim fun, checks, failures
Set fun = CreateObject("Telvaro.Fun")
checks = 0
failures = 0

Sub Fail(label, detail)
    failures = failures + 1
    WScript.Echo "FAIL " & label & ": " & detail
End Sub

' Same subtype and same value.
Sub Check(label, got, expected)
    checks = checks + 1
    If TypeName(got) <> TypeName(expected) Then
        Fail label, "got " & TypeName(got) & " [" & got & "], expected " & TypeName(expected) & " [" & expected & "]"
    ElseIf got <> expected Then
        Fail label, "got [" & got & "], expected [" & expected & "]"
    End If
End Sub

' The run-time error of the statement just run under On Error Resume Next.
Sub CheckError(label, expected)
    checks = checks + 1
    If Err.Number <> expected Then Fail label, "error " & Err.Number & " (" & Err.Description & "), expected " & expected
    Err.Clear
End Sub

Sub Done(name)
    WScript.Echo name & ": " & checks & " checks, " & failures & " failed"
    WScript.Quit failures
End Sub

' A connection to the script's own database on the test ADO server, with a
' client cursor: it counts its rows, as the list and grid loaders need.
Function OpenTestDatabase()
    Set OpenTestDatabase = CreateObject("ADODB.Connection")
    OpenTestDatabase.CursorLocation = 3
    OpenTestDatabase.Open "Driver={SQLite3};Database=" & TestDatabase & ";"
End Function
