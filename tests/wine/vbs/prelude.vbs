' The checks every script below shares; the runner puts this text before
' each script. A script ends with Done, which exits with the number of
' failed checks.
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

' A caller's controls by position, walked with Count and Item (a script
' class has no enumerator), and a form holding them.
Class Collection
    Public Items
    Public Property Get Count(): Count = UBound(Items) + 1: End Property
    Public Default Property Get Item(i): Set Item = Items(i): End Property
End Class

Class Form
    Public Name
    Public Controls
End Class

Sub Done(name)
    WScript.Echo name & ": " & checks & " checks, " & failures & " failed"
    WScript.Quit failures
End Sub
