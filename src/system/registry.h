// The registry: applications keep their settings (last company, server,
// window positions) under their own key, as text or 32-bit numbers.
//
//     REG_PoneValor(HKEY_CURRENT_USER_, "Software\Contable", "Empresa", "ACME")
//     REG_BuscaRegistro(HKEY_CURRENT_USER_, "Software\Contable", "Empresa") -> "ACME"
//     REG_PoneValor(HKEY_CURRENT_USER_, "Software\Contable", "Puerto", "1433", 4)
//     REG_BuscaRegistro(HKEY_CURRENT_USER_, "Software\Contable", "Puerto")  -> 1433 (Long)
//     REG_BuscaRegistro(HKEY_CURRENT_USER_, "Software\Contable", "Nada")    -> Empty
#pragma once

#include <cstdint>

#include "context/enums.h"
#include "runtime/variant.h"

namespace telvaro {
class Fun;
}

namespace telvaro::system {

std::int32_t REG_CreaClave(Fun&, ClavesRegistro Donde, const String& NuevaClave, Boolean CerrarClave);
std::int32_t REG_PoneValor(Fun&, ClavesRegistro Donde, const String& NombreClave, const String& NombreValor,
                           const Variant& ValoraPoner, std::int32_t TipoValor, const String& Nota);
Variant REG_BuscaRegistro(Fun&, ClavesRegistro Donde, const String& ClaveBuscar, const String& ValorBuscar);

}  // namespace telvaro::system
