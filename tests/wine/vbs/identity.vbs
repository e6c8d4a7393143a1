' Cédula and RUC checks from a script, with the warning prompt answered
' by the capture of the library's message boxes (No, for a Yes/No box).
Dim r, cedula

Check "format: the reserved number", fun.fn_ValidaCedula("9999999999"), False
Check "format: letters count", fun.fn_ValidaCedula("abcdefghij"), True
Check "format: nine characters", fun.fn_ValidaCedula("171003406"), False
Check "a valid cédula", fun.fn_ValidaCedula2("1710034065", False), True
Check "a wrong check digit", fun.fn_ValidaCedula2("1710034066", False), False
Check "third digit 7 fails", fun.fn_ValidaCedula2("1770034062", False), False
Check "third digit 6 passes", fun.fn_ValidaCedula2("1760034064", False), True
Check "code 1: valid", fun.fn_ValidaCedula3("1710034065", False), 1
Check "code 0: not valid", fun.fn_ValidaCedula3("1710034066", False), 0

Check "a private company", fun.fn_ValidaRUC2("1790011674001", False), True
Check "a public entity", fun.fn_ValidaRUC2("1760001550001", False), True
Check "a natural person", fun.fn_ValidaRUC2("1710034065001", False), True
Check "a person's RUC skips the check digit", fun.fn_ValidaRUC2("1710034066001", False), True
Check "establishment 004", fun.fn_ValidaRUC("1710034065004"), False
Check "RUC3 is a Boolean", fun.fn_ValidaRUC3("0990004196001", False), True

' A variable passed by reference comes back unchanged.
cedula = "1710034065"
r = fun.fn_ValidaCedula2(cedula, False)
Check "the cédula variable is unchanged", cedula, "1710034065"

' Advertir set: the prompt is shown and closed with No.
fun.CapturaMsgBox
Check "warned and refused", fun.fn_ValidaCedula2("1710034066", True), False
Check "warned and refused, code 0", fun.fn_ValidaCedula3("1710034066", True), 0
Check "establishment 002", fun.fn_ValidaRUC2("1790011674002", False), True
Check "any non-zero Advertir warns", fun.fn_ValidaRUC2("1790011675001", 1), False
fun.CapturaMsgBox True

On Error Resume Next
r = fun.fn_ValidaCedula2("1a10034065", False)
CheckError "a letter among the digits", 13
r = fun.fn_ValidaRUC2("1790011a74001", False)
Check "a letter in a RUC reads as 0", r, False
CheckError "and raises nothing", 0
On Error Goto 0

Done "identity"
