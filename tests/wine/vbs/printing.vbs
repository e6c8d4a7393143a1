' Text cut to a printed width, measured by the platform in the caller's font.
Dim letra, lineas, cuantas, corto

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

Done "printing"
