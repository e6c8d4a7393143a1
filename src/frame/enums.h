// The public enumerations and records of the library, for C++ callers and
// method code. Every enumeration is 32-bit signed; members keep their
// published names and values.
#pragma once

#include <cstdint>

#include "runtime/variant.h"

namespace telvaro {

enum class PermisosShareFolder : std::int32_t {
    pACCESS_READ = 1,
    pACCESS_WRITE = 2,
    pACCESS_CREATE = 4,
    pACCESS_EXEC = 8,
    pACCESS_DELETE = 16,
    pACCESS_ATRIB = 32,
    pACCESS_PERM = 64,
    pACCESS_ALL = 127,
    pWNTYPE_DRIVE = 1,
    pSHI_USES_UNLIMITED = -1,
};
enum class eTipoRecurso : std::int32_t { rSTYPE_DISKTREE = 0, rSTYPE_PRINTQ = 1, rSTYPE_DEVICE = 2, rSTYPE_IPC = 3 };
enum class ClavesRegistro : std::int32_t {
    HKEY_CLASSES_ROOT_ = 0,
    HKEY_CURRENT_USER_ = 1,
    HKEY_LOCAL_MACHINE_ = 2,
    HKEY_USERS_ = 3,
};
enum class TipoCarpetaSys : std::int32_t { deWindows = 0, deSystem = 1, deTemp = 2 };
enum class TipoAtributoArch : std::int32_t { aSoloLectura = 0, aDeSistema = 1, aArchivo = 2, aOculto = 3, aNormal = 4 };
enum class TipoUnidad : std::int32_t {
    uDiscoDuro = 0,
    uCDRom = 1,
    uDeRed = 2,
    uDiscoRAM = 3,
    uDesconocido = 4,
    uRemovible = 5,
};
enum class enMouseEvent : std::int32_t {
    LeftBtnDown = 2,
    LeftBtnUp = 4,
    MiddleBtnDown = 32,
    MiddleBtnUp = 64,
    RightBtnDown = 8,
    RightBtnUp = 16,
    MouseMove = 1,
    Absolute = -32768,
};
enum class enBotonMouse : std::int32_t { btnIzquierdo = 0, btnDerecho = 1, btnMedio = 2 };
enum class enMode : std::int32_t { bTwips = 0, bPixeles = 1, bMilimetros = 2, bCentimetros = 3, bPulgadas = 4 };
enum class eSexo : std::int32_t { Femenino = 0, Masculino = 1 };
enum class LadoCadena : std::int32_t { Izquierdo = 0, Derecho = 1 };
enum class TipoDato : std::int32_t { String_ = 0, Numero_ = 1, Fecha_ = 2 };
enum class ConstApagar : std::int32_t { CerrarSesion_ = 0, Apagar_ = 1, Reiniciar_ = 2 };

#pragma pack(push, 1)
struct POINTAPI {
    std::int32_t x;
    std::int32_t y;
};
struct RECT {
    std::int32_t Left;
    std::int32_t Top;
    std::int32_t Right;
    std::int32_t Bottom;
};
#pragma pack(pop)
static_assert(sizeof(POINTAPI) == 8 && sizeof(RECT) == 16);

struct CoordenadasMouse {
    Variant x;
    Variant y;
};

}  // namespace telvaro
