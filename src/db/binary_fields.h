// Binary field values (pictures, scanned documents) to and from files,
// through an ADO Stream and a scratch file. A form reads a file into a
// field with regLeeStream and shows a field's picture with regImgStream:
//
//     rs("Foto") = regLeeStream("C:\Fotos\1710034065.jpg")
//     picFoto.Picture = regImgStream(rs("Foto"))
//
// The scratch file is "ResAdoStream.qzx" in the folder "windows\temp" of the
// drive the application runs from (the first three characters of its
// path: "C:\windows\temp\ResAdoStream.qzx"); each call overwrites it. The
// folder must exist: it is never created. Nothing is trapped: a missing
// file or folder, or a value that is no binary data, reaches the caller as
// the Stream's own error.
#pragma once

#include "runtime/object.h"

namespace telvaro {
class Fun;
}

namespace telvaro::db {

// The whole file as a Byte array, for assigning to a binary field.
Variant regLeeStream(Fun&, const String& RutaArchivo);
// Writes the value to RutaArch (a full file path), or to the scratch file
// when RutaArch is empty, and answers the path written.
String regGuardaStream(Fun&, const Variant& CampoStream, const String& RutaArch);
// Writes the value as regGuardaStream does and answers the picture in the
// file written.
ObjectRef regImgStream(Fun&, const Variant& CampoStream, const String& RutaArch);

// The scratch file's folder and path for an application path: its first
// three characters (the drive root) + "windows\temp".
String scratchFolder(const String& applicationPath);
String scratchFile(const String& applicationPath);

}  // namespace telvaro::db
