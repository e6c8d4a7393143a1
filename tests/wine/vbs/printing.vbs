' Text cut to a printed width, measured by the platform in the caller's
' font (a StdFont), and the choice of a printer by its port. Wine has no
' printer here, so a port matches nothing and nothing changes.
Dim letra, lineas, cuantas, corto

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
On Error GoTo 0
Done "printing"
