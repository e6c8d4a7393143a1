' Text cut to a printed width, measured by the platform in the caller's
' font (a StdFont), and printing with no printer: Wine has none here, so a
' port matches nothing and ImprimeForm skips every statement that needs one.
Class Label
    Public Caption
    Public Left
    Public Top
    Public Width
    Public Height
    Public Visible
    Public Tag
End Class

Dim letra, lineas, cuantas, corto, titulo, ficha

Set letra = CreateObject("StdFont")
letra.Name = "Arial"
letra.Size = 10

corto = fun.LimitaTamTexto("Una descripción bastante larga", 1000, letra)
Check "LimitaTamTexto cuts to a start of the text", InStr("Una descripción bastante larga", corto) = 1 And _
    Len(corto) > 0 And Len(corto) < Len("Una descripción bastante larga"), True
Check "LimitaTamTexto: what fits is kept whole", fun.LimitaTamTexto("Sí", 1000, letra), "Sí"

' The lines come as a String array, which a script cannot index (a script
' reads arrays of Variants only); the count comes back by reference.
cuantas = 0
lineas = fun.SeparaEnLineasImprimir(cuantas, "uno dos tres", 1000, letra)
Check "SeparaEnLineasImprimir gives an array", IsArray(lineas), True
Check "SeparaEnLineasImprimir breaks between words", cuantas >= 2, True

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
Set ficha.Controls = New Collection
ficha.Controls.Items = Array(titulo)
On Error Resume Next
fun.fn_FijaImpresora "NINGUNO:"
CheckError "a port that matches no printer", 0
fun.ImprimeForm ficha, ""
CheckError "ImprimeForm skips what it cannot print", 0
On Error GoTo 0
Done "printing"
