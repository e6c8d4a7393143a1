' The message boxes, captured (No for a question, OK for a notice), and the
' error log given a script control and the script's own Err.
Class Named
    ' One member a line: Wine's VBScript reads only the first of a list.
    Public Name
    Public Parent
    Public Container
End Class

Dim form, frame, control, description, fso, logFile, lines

fun.fn_CambiaConfRegional
fun.CapturaMsgBox
Check "save? No", fun.MsgGuardarRegistro(), False
fun.MsgDatosGuardados
Check "a warning shown and refused, Advertir given as 1", fun.fn_ValidaCedula2("1710034066", 1), False

Set form = New Named
form.Name = "frmClientes"
Set frame = New Named
frame.Name = "Frame1"
Set control = New Named
control.Name = "txtCodigo"
Set control.Parent = form
Set control.Container = frame

Set fso = CreateObject("Scripting.FileSystemObject")
logFile = "C:\Errores\ErrLog\" & Month(Date) & ".txt"
If fso.FileExists(logFile) Then fso.DeleteFile logFile

On Error Resume Next
Err.Raise 5, "Clientes", "Falla de prueba"
description = Err.Description
fun.fn_LogErrores control, Err, "Validar"
On Error Goto 0
Check "the month's log file", fso.FileExists(logFile), True

lines = Split(fso.OpenTextFile(logFile).ReadAll, vbCrLf)
Check "two lines and the last line end", UBound(lines), CLng(2)
Check "the entry", lines(0), Right("0" & Day(Date), 2) & "/" & Right("0" & Month(Date), 2) & "/" & Year(Date) & _
    " - Módulo: frmClientes - Contenedor: Frame1 - Control: txtCodigo - Procedimiento: Validar - Error: " & description
Check "the separator", lines(1), String(127, "-")

' A text is no control: the error reaches the script.
On Error Resume Next
fun.fn_LogErrores "txtCodigo", Err
CheckError "a text is no control", 424
On Error Goto 0
fun.CapturaMsgBox True

Done "messages"
