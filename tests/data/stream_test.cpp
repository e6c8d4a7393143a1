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
    ObjectRef out = openBinaryStream();
    out->call(u"Write", {bytes(value)});
    out->call(u"SaveToFile", {Variant(u"C:\\windows\\temp\\ResAdoStream.qzx"), Variant(2)});
    out->call(u"Close");
    EXPECT_EQ(fileText(driveFile(u"C:\\windows\\temp\\ResAdoStream.qzx")), value);
    // Reading: Type 1, Open, LoadFromFile, Read -1.
    ObjectRef in = openBinaryStream();
    in->call(u"LoadFromFile", {Variant(u"C:\\windows\\temp\\ResAdoStream.qzx")});
    EXPECT_TRUE(identical(in->call(u"Read", {Variant(-1)}), bytes(value)));
    EXPECT_EQ(in->call(u"Read").array().size(), 0u) << "everything was read";
    in->call(u"Close");
    EXPECT_EQ(toLong(in->get(u"State")), 0);
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
    // Each case runs on a new open binary stream.
    // clang-format off
    const std::tuple<const char*, std::function<void(Object&)>, int> cases[] = {
        {"load a missing file", [](Object& s) { s.call(u"LoadFromFile", {Variant(u"C:\\datos\\no.bin")}); },
         ado::OpeningFile},
        {"save into a missing folder",
         [](Object& s) { s.call(u"SaveToFile", {Variant(u"C:\\falta\\a.bin"), Variant(2)}); }, ado::WritingFile},
        {"save over a file, no overwrite",
         [](Object& s) { s.call(u"SaveToFile", {Variant(u"C:\\datos\\existe.bin")}); }, ado::WritingFile},
        {"write text", [](Object& s) { s.call(u"Write", {Variant(u"texto")}); }, ado::InvalidArgument},
        {"open a source", [](Object& s) { s.call(u"Close"); s.call(u"Open", {Variant(u"URL=http://x")}); },
         ado::NotCapable},
        {"type after writing", [](Object& s) { s.call(u"Write", {bytes("a")}); s.put(u"Type", Variant(2)); },
         ado::IllegalOperation},
        {"read after close", [](Object& s) { s.call(u"Close"); s.call(u"Read"); }, ado::ObjectClosed},
    };
    // clang-format on
    for (const auto& [what, calls, error] : cases) {
        ObjectRef stream = openBinaryStream();
        EXPECT_EQ(errorNumberOf([&] { calls(*stream); }), error) << what;
    }
    EXPECT_EQ(fileText(driveFile(u"C:\\datos\\existe.bin")), "x") << "a refused save leaves the file as it was";
    EXPECT_FALSE(fs::exists(driveFile(u"C:\\datos\\existe.bin.telvaro-part")));
}

}  // namespace
}  // namespace telvaro::data::testing
