' Text cut to a printed width, measured by the platform in the caller's
' font (a StdFont), and the choice of a printer by its port. Wine has no
' printer here, so a port matches nothing and nothing changes.
' A form of one label, for ImprimeForm: with no printer under Wine every
' statement that needs one is skipped, and the call returns.
Class Label
    Public Caption
    Public Left
    Public Top
    Public Width
    Public Height
    Public Visible
    Public Tag
End Class

Class Controles
    Public Items
    Public Property Get Count()
        Count = UBound(Items) + 1
    End Property
    Public Default Property Get Item(i)
        Set Item = Items(i)
    End Property
End Class

Class Form
    Public Name
    Public Controls
End Class

Dim letra, lineas, cuantas, corto, titulo, ficha

Set letra = CreateObject("StdFont")
letra.Name = "Arial"
letra.Size = 10

corto = fun.LimitaTamTexto("Una descripción bastante larga", 1000, letra)
Check "LimitaTamTexto keeps a start of the text", InStr("Una descripción bastante larga", corto), CLng(1)
checks = checks + 1
If Len(corto) = 0 Or Len(corto) >= Len("Una descripción bastante larga") Then Fail "LimitaTamTexto cuts", "[" & corto & "]"
Check "LimitaTamTexto: what fits is kept whole", fun.LimitaTamTexto("Sí", 1000, letra), "Sí"

cuantas = 0
lineas = fun.SeparaEnLineasImprimir(cuantas, "uno dos tres", 1000, letra)
' The lines come as a String array, which a script cannot index (a script
' reads arrays of Variants only); the count comes back by reference.
checks = checks + 1
If Not IsArray(lineas) Then Fail "SeparaEnLineasImprimir gives an array", TypeName(lineas)
checks = checks + 1
If cuantas < 2 Then Fail "SeparaEnLineasImprimir breaks between words", cuantas & " line(s)"

On Error Resume Next
fun.fn_FijaImpresora "NINGUNO:"
CheckError "a port that matches no printer", 0
Set titulo = New Label
titulo.Caption = "FACTURA"
titulo.Left = 600
titulo.Top = 300
titulo.Width = 3000
titulo.Height = 300
titulo.Visible = True
titulo.Tag = ""
Set ficha = New Form
ficha.Name = "frmFactura"
Set ficha.Controls = New Controles
ficha.Controls.Items = Array(titulo)
fun.ImprimeForm ficha, ""
CheckError "ImprimeForm skips what it cannot print", 0
On Error GoTo 0
Done "printing"
