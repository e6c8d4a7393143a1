' How a script calls Fun: each type of result and argument, omitted optional
' arguments, by-reference variables, arrays, and the errors it sees in Err.
Dim n, s, b, r, v, cedula

' "." as the decimal mark and day/month/year, as the applications expect.
fun.fn_CambiaConfRegional

Check "Integer", fun.strCuentaCaracteres("a,b,c", ","), 2
Check "Integer from a Boolean test", fun.fn_ValidaCedula3("1710034065", False), 1
Check "Double", fun.StockResta(5.06, "2.08", 12), 2.1
Check "String", fun.numDecimal_a_Fraccion("3.5", 12), "3.06"
Check "Byte", fun.fecUltimoDiaMes(2, 2024), CByte(29)
Check "Date in, text out", fun.fecEdadExacta(DateSerial(2001, 1, 1), DateSerial(2000, 1, 1)), " 1 año con  0 meses y  1 día"
Check "Date out, its time kept", fun.FechaPrimerDia(DateSerial(2024, 3, 15) + TimeSerial(10, 30, 0)), _
    DateSerial(2024, 3, 1) + TimeSerial(10, 30, 0)
Check "a date as text", fun.MyFecha("15/03/2024"), "2024-03-15"
b = fun.fn_ValidaCedula("1710034065")
Check "True is -1", CInt(b), -1
Check "Boolean subtype", TypeName(b), "Boolean"
Check "False is 0", CInt(fun.fn_ValidaCedula("123")), 0

' Omitted optional arguments behave as their defaults, also in the middle.
Check "omitted PosInicio is 1", fun.strCuentaCaracteres(",a,b", ","), 2
Check "omitted optional Variant of INI_LeerIni", fun.INI_LeerIni("C:\no-such.ini", "s", "k"), ""
Check "arguments left out in the middle", fun.Numero2Letra("1234.56", , , "dólares", "centavos", 1, 1), _
    "mil doscientos treinta y cuatro dólares con cincuenta y seis centavos"
Check "an omitted date is today", fun.FechaPrimerDia(), DateSerial(Year(Date), Month(Date), 1)

' A variable of another type passed by reference is coerced and receives
' the coerced value; one the method leaves alone comes back unchanged.
n = "2"
Check "by-reference text to Integer", fun.strCuentaCaracteres("a,b,c", ",", n), 2
Check "written back as Integer", TypeName(n), "Integer"
s = 123
Check "by-reference number to String", fun.strCadenaEntrePosicion(s, 1, 3), "12"
Check "written back as String", TypeName(s), "String"
cedula = "1710034065"
r = fun.fn_ValidaCedula2(cedula, False)
Check "the cédula variable is unchanged", cedula, "1710034065"

' Text compared without case by the platform, accents kept apart.
Check "capitals equal small letters", fun.strCuentaCaracteres("AxBxC", "X"), 2
Check "accented capitals", fun.strCuentaCaracteres("Á-á", "á"), 2
Check "accents differ", fun.strCuentaCaracteres("aá", "a"), 1

' Arrays come back as script arrays and go in again.
v = fun.fn_LlenaVector("a,b,c", 0)
Check "array upper bound", UBound(v), CLng(2)
Check "array element", v(1), "b"
Check "an array argument, a Long result", fun.fn_BuscaEnVector(v, "C"), CLng(2)

' Run-time errors reach Err with the runtime's numbers, source and text.
On Error Resume Next
r = fun.strCuentaCaracteres("abc", "b", 40000)
CheckError "Integer overflow", 6
r = fun.numTruncar("abc", 2)
CheckError "type mismatch", 13
r = fun.strCuentaCaracteres("abc", "b", 0)
CheckError "invalid procedure call", 5
r = fun.numEsMultiplo(10, 0)
CheckError "division by zero", 11
r = fun.fn_ValidaCedula2("1710034065")
CheckError "argument not optional", 449
r = fun.NoSuchMethod()
CheckError "unknown method", 438
r = fun.numTruncar("abc", 2)
Check "error source", Err.Source, "Telvaro.Fun"
Check "error description", Err.Description, "Type mismatch"
On Error Goto 0

Done "calling"
