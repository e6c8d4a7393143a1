// The identities applications bind to: the type library, the class, its
// ProgID and the default interface with its two earlier versions. They are
// fixed for good, like the IDL that declares them.
#pragma once

#include <guiddef.h>

namespace telvaro::com {

// {4C93F8DD-15B8-41E9-A125-4A84D77E1B1A}, version 1.2
inline constexpr GUID kLibraryId = {0x4C93F8DD, 0x15B8, 0x41E9, {0xA1, 0x25, 0x4A, 0x84, 0xD7, 0x7E, 0x1B, 0x1A}};
inline constexpr unsigned short kLibraryMajor = 1;
inline constexpr unsigned short kLibraryMinor = 2;

// {6CE2A736-78E9-4882-B138-7048AE8A278F}
inline constexpr GUID kFunClassId = {0x6CE2A736, 0x78E9, 0x4882, {0xB1, 0x38, 0x70, 0x48, 0xAE, 0x8A, 0x27, 0x8F}};
inline constexpr const char* kProgId = "Telvaro.Fun";
inline constexpr const char* kClassName = "Fun";

// _Fun {CC6D850A-0003-43B1-AEE8-89E52B79C200}
inline constexpr GUID kFunInterfaceId = {0xCC6D850A, 0x0003, 0x43B1, {0xAE, 0xE8, 0x89, 0xE5, 0x2B, 0x79, 0xC2, 0x00}};
// Fun___v0 {D41F957A-54AD-4162-835A-6F914662BC33}
inline constexpr GUID kFunV0InterfaceId = {
    0xD41F957A, 0x54AD, 0x4162, {0x83, 0x5A, 0x6F, 0x91, 0x46, 0x62, 0xBC, 0x33}};
// Fun___v1 {4C0D0C89-3622-494B-8A64-7A494921F448}
inline constexpr GUID kFunV1InterfaceId = {
    0x4C0D0C89, 0x3622, 0x494B, {0x8A, 0x64, 0x7A, 0x49, 0x49, 0x21, 0xF4, 0x48}};

}  // namespace telvaro::com
