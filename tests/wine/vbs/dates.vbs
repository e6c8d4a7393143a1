' The date helpers from a script: Date arguments, Byte and Date results,
' the age phrase with its blanks, and conversion errors.
Dim r, today

' Day/month/year, as the applications expect.
fun.fn_CambiaConfRegional

Check "date for SQL text", fun.MyFecha("15/03/2024"), "2024-03-15"
Check "a text that is no date", fun.MyFecha("abc"), "abc"

Check "same day", fun.fecEdadExacta(DateSerial(2024, 7, 14), DateSerial(2024, 7, 14)), " 0 años con  0 meses y  0 días"
Check "45 days", fun.fecEdadExacta(DateSerial(2024, 2, 15), DateSerial(2024, 1, 1)), " 0 años con  1 mes y  14 días"
Check "366 days", fun.fecEdadExacta(DateSerial(2001, 1, 1), DateSerial(2000, 1, 1)), " 1 año con  0 meses y  1 día"
Check "twenty years", fun.fecEdadExacta(DateSerial(2020, 1, 1), DateSerial(2000, 1, 1)), " 20 años con  0 meses y  0 días"
Check "born tomorrow: the leap-day allowance", fun.fecEdadExacta(DateSerial(2024, 7, 14), DateSerial(2024, 7, 15)), _
    " 0 años con  0 meses y  0 días"
Check "born in two days", fun.fecEdadExacta(DateSerial(2024, 7, 14), DateSerial(2024, 7, 16)), ""
Check "dates as text", fun.fecEdadExacta("14/07/2024", "14/07/2024"), " 0 años con  0 meses y  0 días"

Check "leap February", fun.fecUltimoDiaMes(2, 2024), CByte(29)
Check "common February", fun.fecUltimoDiaMes(2, 2023), CByte(28)
Check "every fourth year", fun.fecUltimoDiaMes(2, 1900), CByte(29)
Check "April", fun.fecUltimoDiaMes(4, 2024), CByte(30)
Check "no month 13", fun.fecUltimoDiaMes(13, 2024), CByte(0)

Check "first day of a month", fun.FechaPrimerDia("15/03/2024"), DateSerial(2024, 3, 1)
Check "first day keeps the time", fun.FechaPrimerDia(DateSerial(2024, 3, 15) + TimeSerial(10, 30, 0)), _
    DateSerial(2024, 3, 1) + TimeSerial(10, 30, 0)
today = Date
r = fun.FechaPrimerDia()
Check "first day of this month", r, DateSerial(Year(today), Month(today), 1)

On Error Resume Next
r = fun.fecUltimoDiaMes(256, 2024)
CheckError "a month beyond a Byte", 6
r = fun.FechaPrimerDia("xyz")
CheckError "a text that is no date", 13
r = fun.fecEdadExacta("abc", Date)
CheckError "an age from no date", 13
On Error Goto 0

Done "dates"
