#include "db/binary_fields.h"

#include "callers/stream.h"
#include "context/fun.h"
#include "system/files.h"

namespace telvaro::db {

namespace {

constexpr StringView kScratchName = u"ResAdoStream.qzx";

callers::Stream newStream(Fun& fun) { return callers::Stream(fun.platform().objectFactory().create(u"ADODB.Stream")); }

String driveRoot(const String& applicationPath) { return applicationPath.substr(0, 3); }

String applicationPath(Fun& fun) { return fun.platform().fileSystem().applicationPath(); }

// Steps 1 to 5 of regGuardaStream; the path written.
String saveValue(Fun& fun, const Variant& CampoStream, const String& RutaArch) {
    const String appPath = applicationPath(fun);
    const String folder = RutaArch.empty() ? scratchFolder(appPath) : RutaArch;
    const callers::Stream stream = newStream(fun);
    stream.openEmpty();
    stream.setType(callers::Stream::kTypeBinary);
    stream.write(CampoStream);
    // The folder goes to fsoCrearCarpeta only when it exists already, so a
    // missing scratch folder stays missing and the save below fails.
    if (system::fsoExisteCarpeta(fun, folder).isTrue()) system::fsoCrearCarpeta(fun, folder);
    const String file = RutaArch.empty() ? folder + u"\\" + String(kScratchName) : RutaArch;
    stream.saveToFile(file, callers::Stream::kSaveCreateOverWrite);
    stream.close();
    return file;
}

}  // namespace

String scratchFolder(const String& applicationPath) { return driveRoot(applicationPath) + u"windows\\temp"; }

String scratchFile(const String& applicationPath) {
    return scratchFolder(applicationPath) + u"\\" + String(kScratchName);
}

Variant regLeeStream(Fun& fun, const String& RutaArchivo) {
    const callers::Stream stream = newStream(fun);
    stream.setType(callers::Stream::kTypeBinary);
    stream.openEmpty();
    stream.loadFromFile(RutaArchivo);
    Variant bytes = stream.read(callers::Stream::kReadAll);
    stream.close();
    return bytes;
}

String regGuardaStream(Fun& fun, const Variant& CampoStream, const String& RutaArch) {
    const String written = saveValue(fun, CampoStream, RutaArch);
    // The path given, as given; else the scratch file of the application's
    // drive, read again as the method's last step.
    return RutaArch.empty() ? scratchFile(applicationPath(fun)) : written;
}

ObjectRef regImgStream(Fun& fun, const Variant& CampoStream, const String& RutaArch) {
    const String written = saveValue(fun, CampoStream, RutaArch);
    return fun.platform().pictures().load(written);
}

}  // namespace telvaro::db
