' Quantities by the pack, numbers, formulas, amounts in words and lists as
' a script sees them: Double and String results, omitted arguments in the
' middle of a call, and the runtime's errors.
Dim r, list

' These methods read and write numbers with "." as the decimal mark.
fun.fn_CambiaConfRegional

Check "whole packs", fun.numFraccion_a_Decimal("3", 12), CDbl(3)
Check "packs and units", fun.numFraccion_a_Decimal("3.06", 12), 3.5
Check "a short fraction counts as decimals", fun.numFraccion_a_Decimal("5.3", 12), 7.5
Check "to the fractioned notation", fun.numDecimal_a_Fraccion("3.5", 12), "3.06"
Check "a negative quantity loses its fraction", fun.numDecimal_a_Fraccion("-3.5", 12), "-3"
Check "stock minus whole packs", fun.StockResta(10, "3", 12), CDbl(7)
Check "stock minus units", fun.StockResta(5.06, "2.08", 12), 2.1
Check "units carried into packs", fun.StockSuma(5.06, "0.08", 12), 6.02
Check "a multiple", fun.numEsMultiplo(12, 4), True
Check "not a multiple", fun.numEsMultiplo(10, 4), False
Check "integer part toward zero", fun.numParteEntera(-3.7), CDbl(-3)
Check "decimal part with its sign", fun.numParteDecimal(-2.25), -0.25
Check "truncation", fun.numTruncar(2.5679, 2), 2.56
Check "nothing to truncate", fun.numTruncar(2.5, 3), 2.5
Check "formula read left to right after fencing", fun.numCalculaFormula("1+2*3-4/2"), 1.5
Check "multiplication fenced before division", fun.numCalculaFormula("6/2*3"), CDbl(1)

' Arguments left out in the middle of the list take their defaults.
Check "amount in dollars", fun.Numero2Letra("1234.56", , , "dólares", "centavos", 1, 1), _
    "mil doscientos treinta y cuatro dólares con cincuenta y seis centavos"
Check "feminine currency by default", fun.Numero2Letra("21.01", , , "pesetas", "céntimos"), _
    "veintiuna pesetas con un céntimos"
Check "no cents", fun.Numero2Letra("12.345", , 0, "dólares", , 1), "doce dólares"
Check "filled with asterisks", fun.Numero2Letra("5", 30, 0, "dólares", , 1), "cinco dólares*****************"

list = fun.fn_LlenaVector("10;20;30", 0, ";")
Check "list from text", UBound(list) & ":" & list(0) & "+" & list(1) & "+" & list(2), "2:10+20+30"
Check "search in a list", fun.fn_BuscaEnVector(list, "30"), CLng(2)

On Error Resume Next
r = fun.numEsMultiplo(10, 0)
CheckError "a factor of 0", 11
r = fun.numFraccion_a_Decimal("5.06", 0)
CheckError "a pack size of 0", 11
r = fun.numParteEntera(3000000000)
CheckError "beyond a Long", 6
r = fun.numTruncar(2.5, -5)
CheckError "a negative kept length", 5
r = fun.Numero2Letra("doce")
CheckError "an amount that is no number", 13
r = fun.Numero2Letra("1e16")
CheckError "an amount too large", 6
Check "a missing parenthesis is supplied", fun.numCalculaFormula("(1+"), CDbl(1)
r = fun.numCalculaFormula("79228162514264337593543950335*10")
CheckError "a formula beyond a Decimal", 6
r = fun.numCalculaFormula("(-8)^0.5")
CheckError "a root of a negative number", 5
On Error Goto 0

Done "numbers"
