' Files, INI files, the registry and the environment through the Win32
' services of the Windows build.
Dim folder, ini, key, r, started

folder = "C:\telvaro-tests\data\a\b"
fun.fsoCrearCarpeta folder
Check "folder created level by level", fun.fsoExisteCarpeta(folder), True
Check "a folder is no file", fun.fsoExisteArchivo(folder), False
Check "temporary folder", Len(fun.fsoCarpetaSistema(2)) > 3, True
Check "unknown special folder", fun.fsoCarpetaSistema(3), ""

' 128-byte records addressed from 1.
fun.fsoGrabaArchivo "C:\telvaro-tests\data\records.dat", 2, "segundo"
fun.fsoGrabaArchivo "C:\telvaro-tests\data\records.dat", 1, 3.5
Check "record 2", fun.fsoLeeArchivo("C:\telvaro-tests\data\records.dat", 2), "segundo"
Check "record 1", fun.fsoLeeArchivo("C:\telvaro-tests\data\records.dat", 1), 3.5
Check "an unwritten record is Empty", IsEmpty(fun.fsoLeeArchivo("C:\telvaro-tests\data\records.dat", 9)), True
On Error Resume Next
r = fun.fsoLeeArchivo("C:\telvaro-tests\data\records.dat", 0)
CheckError "record 0", 63
On Error Goto 0

fun.fsoBorraArchivo "C:\telvaro-tests\data\*.DAT"
Check "wildcard deletion", fun.fsoExisteArchivo("C:\telvaro-tests\data\records.dat"), False
fun.fsoBorraArchivo "C:\telvaro-tests\data\missing.txt"
Check "a missing file is ignored", fun.fsoExisteArchivo("C:\telvaro-tests\data\missing.txt"), False

ini = "C:\telvaro-tests\data\app.ini"
fun.INI_GuardarIni ini, "Base", "Servidor", "local"
Check "INI round trip", fun.INI_LeerIni(ini, "base", "SERVIDOR"), "local"
Check "INI default", fun.INI_LeerIni(ini, "Base", "Falta", 7), "7"

key = fun.REG_PoneValor(1, "Software\TelvaroTests", "Nombre", "Quito")
Check "registry handle", key <> 0, True
fun.REG_PoneValor 1, "Software\TelvaroTests", "Numero", "12", 4
Check "registry text", fun.REG_BuscaRegistro(1, "Software\TelvaroTests", "Nombre"), "Quito"
Check "registry number", fun.REG_BuscaRegistro(1, "Software\TelvaroTests", "Numero"), CLng(12)
Check "registry missing value", IsEmpty(fun.REG_BuscaRegistro(1, "Software\TelvaroTests", "Falta")), True
Check "registry bad root", fun.REG_CreaClave(7, "Software\TelvaroTests"), CLng(0)

Check "computer name", Len(fun.fn_NombreComputador()) > 0, True
Check "user name", Len(fun.fn_NombreUsuarioWindows()) > 0, True
started = Timer
fun.fn_EsperaXSegundos 0
Check "a wait of 0 seconds returns", Timer - started < 2, True

' While captured, the library's message boxes close at once: Cancel, else
' No, else OK.
fun.CapturaMsgBox
Check "captured question", fun.MsgGuardarRegistro(), False
fun.MsgDatosGuardados
fun.CapturaMsgBox True

' The regional settings the applications expect.
Check "change regional settings", fun.fn_CambiaConfRegional(), True
Check "verify regional settings", fun.fn_VerificaConfRegional(), True
Check "decimal point in force", CStr(fun.numTruncar("2.5", 1)), "2.5"

Done "system"
