// INI files: applications keep small settings (server name, last user,
// printer port) in profile files shared with Windows programs.
//
//     INI_GuardarIni("C:\App\app.ini", "Conexion", "Servidor", "srv01")
//     INI_LeerIni("C:\App\app.ini", "conexion", "SERVIDOR")      -> "srv01"
//     INI_LeerIni("C:\App\app.ini", "Conexion", "Puerto", "1433") -> "1433"
#pragma once

#include "runtime/variant.h"

namespace telvaro {
class Fun;
}

namespace telvaro::system {

String INI_LeerIni(Fun&, const String& lpFileName, const String& lpAppName, const String& lpKeyName,
                   const Variant& vDefault);
void INI_GuardarIni(Fun&, const String& lpFileName, const String& lpAppName, const String& lpKeyName,
                    const String& lpString);

}  // namespace telvaro::system
