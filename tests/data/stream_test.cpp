// Binary values through a Stream to files and back, the way the binary
// field methods use it, and the errors a caller meets on the way.
#include <gtest/gtest.h>

#include <fstream>

#include "data/byte_array.h"
#include "data/errors.h"
#include "data_support.h"

namespace telvaro::data::testing {
namespace {

namespace fs = std::filesystem;

std::string fileText(const fs::path& file) {
    std::ifstream in(file, std::ios::binary);
    return std::string(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>());
}

Variant bytes(std::string_view text) {
    return byteArray(std::span<const std::uint8_t>(reinterpret_cast<const std::uint8_t*>(text.data()), text.size()));
}

ObjectRef openBinaryStream() {
    ObjectRef stream = create(u"ADODB.Stream");
    stream->put(u"Type", Variant(1));
    stream->call(u"Open", {Variant::missing(), Variant(0), Variant(-1), Variant(u""), Variant(u"")});
    return stream;
}

TEST(Streams, AValueWrittenAndSavedIsTheFileLoadedAndReadBack) {
    fs::create_directories(driveFile(u"C:\\windows\\temp"));
    const std::string value("\x00\x01 foto \xff\r\n", 10);
    // Writing: Open, Type 1, Write, SaveToFile with overwrite, Close.
    ObjectRef out = create(u"ADODB.Stream");
    out->call(u"Open", {Variant::missing(), Variant(0), Variant(-1), Variant(u""), Variant(u"")});
    out->put(u"Type", Variant(1));
    out->call(u"Write", {bytes(value)});
    out->call(u"SaveToFile", {Variant(u"C:\\windows\\temp\\ResAdoStream.qzx"), Variant(2)});
    out->call(u"Close");
    EXPECT_EQ(fileText(driveFile(u"C:\\windows\\temp\\ResAdoStream.qzx")), value);
    // Overwritten by a shorter value: nothing of the old one stays.
    out->call(u"Open");
    out->put(u"Type", Variant(1));
    out->call(u"Write", {bytes("ab")});
    out->call(u"SaveToFile", {Variant(u"C:\\windows\\temp\\ResAdoStream.qzx"), Variant(2)});
    EXPECT_EQ(fileText(driveFile(u"C:\\windows\\temp\\ResAdoStream.qzx")), "ab");
    // Reading: Type 1, Open, LoadFromFile, Read -1.
    ObjectRef in = openBinaryStream();
    in->call(u"LoadFromFile", {Variant(u"C:\\windows\\temp\\ResAdoStream.qzx")});
    EXPECT_TRUE(identical(in->call(u"Read", {Variant(-1)}), bytes("ab")));
    EXPECT_EQ(in->call(u"Read").array().size(), 0u) << "everything was read";
    in->call(u"Close");
    EXPECT_EQ(toLong(in->get(u"State")), 0);
}

TEST(Streams, ABinaryFieldIsWrittenAsItsValue) {
    ObjectRef connection = memoryConnection({}, 3);
    ObjectRef rs = openRecordset(connection, u"SELECT x'00466F746F' AS Foto, 'texto' AS Nombre");
    ObjectRef stream = openBinaryStream();
    stream->call(u"Write", {rs->get(u"", {Variant(u"Foto")})});
    stream->call(u"SaveToFile", {Variant(u"C:\\foto.bin")});
    EXPECT_EQ(fileText(driveFile(u"C:\\foto.bin")), std::string("\0Foto", 5));
    EXPECT_EQ(errorNumberOf([&] { stream->call(u"Write", {rs->get(u"", {Variant(u"Nombre")})}); }),
              ado::InvalidArgument);
}

TEST(Streams, ReadsInPiecesAndEmptyFiles) {
    std::ofstream(driveFile(u"C:\\vacio.bin"), std::ios::binary).flush();
    ObjectRef stream = openBinaryStream();
    stream->call(u"LoadFromFile", {Variant(u"C:\\vacio.bin")});
    const Variant none = stream->call(u"Read");
    EXPECT_EQ(typeName(none), u"Byte()");
    EXPECT_EQ(none.array().size(), 0u);
    stream->call(u"Write", {bytes("abcdef")});
    stream->call(u"SaveToFile", {Variant(u"C:\\seis.bin")});
    stream->call(u"LoadFromFile", {Variant(u"C:\\seis.bin")});
    EXPECT_TRUE(identical(stream->call(u"Read", {Variant(4)}), bytes("abcd")));
    EXPECT_TRUE(identical(stream->call(u"Read", {Variant(4)}), bytes("ef")));
}

TEST(Streams, ErrorsOfFilesValuesAndStates) {
    fs::create_directories(driveFile(u"C:\\datos"));
    std::ofstream(driveFile(u"C:\\datos\\existe.bin"), std::ios::binary) << "x";
    // Each case runs its calls, in order, on a new open binary stream; the
    // last call fails with the error.
    struct Call {
        InvokeKind kind;
        const char16_t* member;
        std::vector<Variant> args;
    };
    constexpr auto M = InvokeKind::Method;
    constexpr auto P = InvokeKind::PropertyPut;
    struct Case {
        const char* what;
        std::vector<Call> calls;
        int error;
    };
    // clang-format off
    const Case cases[] = {
        {"load a missing file", {{M, u"LoadFromFile", {Variant(u"C:\\datos\\no.bin")}}}, ado::OpeningFile},
        {"save into a missing folder", {{M, u"SaveToFile", {Variant(u"C:\\falta\\a.bin"), Variant(2)}}}, ado::WritingFile},
        {"save over a file, no overwrite", {{M, u"SaveToFile", {Variant(u"C:\\datos\\existe.bin")}}}, ado::WritingFile},
        {"save option 3", {{M, u"SaveToFile", {Variant(u"C:\\datos\\b.bin"), Variant(3)}}}, ado::InvalidArgument},
        {"an empty path", {{M, u"LoadFromFile", {Variant(u"")}}}, ado::InvalidArgument},
        {"write text", {{M, u"Write", {Variant(u"texto")}}}, ado::InvalidArgument},
        {"read a negative count", {{M, u"Read", {Variant(-2)}}}, ado::InvalidArgument},
        {"type 3", {{P, u"Type", {Variant(3)}}}, ado::InvalidArgument},
        {"open twice", {{M, u"Open", {}}}, ado::ObjectOpen},
        {"open a source", {{M, u"Close", {}}, {M, u"Open", {Variant(u"URL=http://x")}}}, ado::NotCapable},
        {"type after writing", {{M, u"Write", {bytes("a")}}, {P, u"Type", {Variant(2)}}}, ado::IllegalOperation},
        {"read after close", {{M, u"Close", {}}, {M, u"Read", {}}}, ado::ObjectClosed},
    };
    // clang-format on
    for (const auto& c : cases) {
        ObjectRef stream = openBinaryStream();
        EXPECT_EQ(errorNumberOf([&] {
                      for (auto call : c.calls) stream->invoke(call.member, call.kind, call.args);
                  }),
                  c.error)
            << c.what;
    }
    EXPECT_EQ(fileText(driveFile(u"C:\\datos\\existe.bin")), "x") << "a refused save leaves the file as it was";
    EXPECT_FALSE(fs::exists(driveFile(u"C:\\datos\\existe.bin.telvaro-part")));
}

TEST(Streams, ATextStreamNeitherWritesNorReadsBytes) {
    ObjectRef stream = create(u"ADODB.Stream");
    EXPECT_EQ(toLong(stream->get(u"Type")), 2);
    stream->call(u"Open");
    EXPECT_EQ(errorNumberOf([&] { stream->call(u"Write", {bytes("a")}); }), ado::IllegalOperation);
    EXPECT_EQ(errorNumberOf([&] { stream->call(u"Read"); }), ado::IllegalOperation);
}

}  // namespace
}  // namespace telvaro::data::testing
