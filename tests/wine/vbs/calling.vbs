' How a script calls Fun: omitted optional arguments, variables passed by
' reference, Booleans, and the run-time errors it sees in Err.
Dim n, s, b, r, v

' Omitted optional arguments behave as their defaults.
Check "omitted PosInicio", fun.strCuentaCaracteres("a,b,c", ","), fun.strCuentaCaracteres("a,b,c", ",", 1)
Check "omitted Numero2Letra options", fun.Numero2Letra("21"), fun.Numero2Letra("21", 0, 2, "", "", 0, 1)
Check "omitted optional Variant of INI_LeerIni", fun.INI_LeerIni("C:\no-such.ini", "s", "k"), ""

' A variable holding text, passed to a by-reference Integer, is coerced
' and receives the coerced value.
n = "2"
Check "by-reference text to Integer", fun.strCuentaCaracteres("a,b,c", ",", n), 2
Check "written back as Integer", TypeName(n), "Integer"
s = 123
Check "by-reference number to String", fun.strCadenaEntrePosicion(s, 1, 3), "12"
Check "written back as String", TypeName(s), "String"

' Booleans are -1 and 0.
b = fun.fn_ValidaCedula("1710034065")
Check "True is -1", CInt(b), -1
Check "Boolean subtype", TypeName(b), "Boolean"
Check "False is 0", CInt(fun.fn_ValidaCedula("123")), 0

' Case-insensitive text comparison, accents kept apart.
Check "capitals equal small letters", fun.strCuentaCaracteres("AxBxC", "X"), 2
Check "accented capitals", fun.strCuentaCaracteres("Á-á", "á"), 2
Check "accents differ", fun.strCuentaCaracteres("aá", "a"), 1

' Run-time errors reach Err with the runtime's numbers.
On Error Resume Next
r = fun.strCuentaCaracteres("abc", "b", 40000)
CheckError "Integer overflow", 6
r = fun.numTruncar("abc", 2)
CheckError "type mismatch", 13
r = fun.strCuentaCaracteres("abc", "b", 0)
CheckError "invalid procedure call", 5
r = fun.fn_ValidaCedula2("1710034065")
CheckError "argument not optional", 449
r = fun.fn_ValidaCedula("1710034065", 1, 2)
CheckError "wrong number of arguments", 450
r = fun.NoSuchMethod()
CheckError "unknown method", 438
fun.fn_FijaImpresora "NINGUNO:"
CheckError "a printer port that matches nothing changes nothing", 0
Err.Clear
r = fun.numTruncar("abc", 2)
Check "error source", Err.Source, "Telvaro.Fun"
Check "error description", Err.Description, "Type mismatch"
On Error Goto 0

' Arrays come back as script arrays.
v = fun.fn_LlenaVector("a,b,c", 0)
Check "array upper bound", UBound(v), CLng(2)
Check "array element", v(1), "b"
Check "search in the array", fun.fn_BuscaEnVector(v, "C"), CLng(2)

Done "calling"
