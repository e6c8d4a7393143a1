' Files, INI files, the registry, the environment and the regional settings
' through the Win32 services of the Windows build.
Dim folder, records, ini, key, r

folder = "C:\telvaro-tests\data\a\b"
fun.fsoCrearCarpeta folder
Check "folder created level by level", fun.fsoExisteCarpeta(folder), True
Check "temporary folder", Len(fun.fsoCarpetaSistema(2)) > 3, True
Check "unknown special folder", fun.fsoCarpetaSistema(3), ""

' 128-byte records addressed from 1, read back as the Variant written.
records = "C:\telvaro-tests\data\records.dat"
fun.fsoGrabaArchivo records, 2, "segundo"
fun.fsoGrabaArchivo records, 1, 3.5
Check "record 2", fun.fsoLeeArchivo(records, 2), "segundo"
Check "record 1", fun.fsoLeeArchivo(records, 1), 3.5
Check "an unwritten record is Empty", IsEmpty(fun.fsoLeeArchivo(records, 9)), True
On Error Resume Next
r = fun.fsoLeeArchivo(records, 0)
CheckError "record 0", 63
On Error Goto 0
fun.fsoBorraArchivo "C:\telvaro-tests\data\*.DAT"
Check "wildcard deletion", fun.fsoExisteArchivo(records), False

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

Check "change regional settings", fun.fn_CambiaConfRegional(), True
Check "verify regional settings", fun.fn_VerificaConfRegional(), True
Check "decimal point in force", CStr(fun.numTruncar("2.5", 1)), "2.5"

Done "system"
