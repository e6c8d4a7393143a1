#include "data/stream.h"

#include <filesystem>
#include <fstream>
#include <iterator>

#include "data/byte_array.h"
#include "data/errors.h"
#include "data/members.h"

namespace telvaro::data {

namespace {

constexpr StringView kSource = u"ADODB.Stream";

constexpr std::int32_t kTypeBinary = 1;
constexpr std::int32_t kTypeText = 2;
constexpr std::int32_t kReadAll = -1;
constexpr std::int32_t kSaveCreateNotExist = 1;
constexpr std::int32_t kSaveCreateOverWrite = 2;

enum class Member { Type, Open, Write, Read, SaveToFile, LoadFromFile, Close, State };
constexpr MemberName<Member> kMembers[] = {
    {u"Type", Member::Type},
    {u"Open", Member::Open},
    {u"Write", Member::Write},
    {u"Read", Member::Read},
    {u"SaveToFile", Member::SaveToFile},
    {u"LoadFromFile", Member::LoadFromFile},
    {u"Close", Member::Close},
    {u"State", Member::State},
};

std::filesystem::path resolved(const DataServices& services, StringView fileName) {
    if (fileName.empty()) raiseAdo(ado::InvalidArgument, kSource);
    if (!services.resolvePath) raise(err::PathFileAccessError);
    return services.resolvePath(fileName);
}

}  // namespace

void Stream::requireOpen() const {
    if (!open_) raiseAdo(ado::ObjectClosed, kSource);
}

void Stream::requireBinary() const {
    requireOpen();
    if (type_ != kTypeBinary) raiseAdo(ado::IllegalOperation, kSource);
}

void Stream::write(const std::vector<std::uint8_t>& bytes) {
    requireBinary();
    // Writing at a position inside the stream overwrites from there.
    if (position_ + bytes.size() > bytes_.size()) bytes_.resize(position_ + bytes.size());
    std::copy(bytes.begin(), bytes.end(), bytes_.begin() + static_cast<std::ptrdiff_t>(position_));
    position_ += bytes.size();
}

std::vector<std::uint8_t> Stream::read(std::int64_t count) {
    requireBinary();
    if (count < kReadAll) raiseAdo(ado::InvalidArgument, kSource);
    const std::size_t rest = bytes_.size() - position_;
    const std::size_t taken = count == kReadAll ? rest : std::min<std::size_t>(rest, static_cast<std::size_t>(count));
    std::vector<std::uint8_t> out(bytes_.begin() + static_cast<std::ptrdiff_t>(position_),
                                  bytes_.begin() + static_cast<std::ptrdiff_t>(position_ + taken));
    position_ += taken;
    return out;
}

void Stream::saveToFile(StringView fileName, std::int32_t options) {
    requireOpen();
    if (options != kSaveCreateNotExist && options != kSaveCreateOverWrite) raiseAdo(ado::InvalidArgument, kSource);
    const std::filesystem::path file = resolved(services_, fileName);
    std::error_code ec;
    if (options == kSaveCreateNotExist && std::filesystem::exists(file, ec)) raiseAdo(ado::WritingFile, kSource);
    if (std::filesystem::is_directory(file, ec)) raiseAdo(ado::WritingFile, kSource);
    // The whole stream goes to a new file beside the old one, which it then
    // replaces, so a failed write never leaves half a file.
    std::filesystem::path temporary = file;
    temporary += ".telvaro-part";
    {
        std::ofstream out(temporary, std::ios::binary | std::ios::trunc);
        if (!out) raiseAdo(ado::WritingFile, kSource);
        out.write(reinterpret_cast<const char*>(bytes_.data()), static_cast<std::streamsize>(bytes_.size()));
        out.flush();
        if (!out) {
            out.close();
            std::filesystem::remove(temporary, ec);
            raiseAdo(ado::WritingFile, kSource);
        }
    }
    std::filesystem::rename(temporary, file, ec);
    if (ec) {
        std::filesystem::remove(temporary, ec);
        raiseAdo(ado::WritingFile, kSource);
    }
}

void Stream::loadFromFile(StringView fileName) {
    requireOpen();
    const std::filesystem::path file = resolved(services_, fileName);
    std::error_code ec;
    if (!std::filesystem::is_regular_file(file, ec)) raiseAdo(ado::OpeningFile, kSource);
    std::ifstream in(file, std::ios::binary);
    if (!in) raiseAdo(ado::OpeningFile, kSource);
    std::vector<std::uint8_t> bytes((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
    if (in.bad()) raiseAdo(ado::ReadingFile, kSource);
    bytes_ = std::move(bytes);
    position_ = 0;
}

Variant Stream::invoke(StringView member, InvokeKind kind, std::span<Variant> args) {
    const Member id = findMember(member, kMembers);
    switch (id) {
        case Member::Type:
            if (isWrite(kind)) {
                const std::int32_t type = toLong(assigned(args));
                if (type != kTypeBinary && type != kTypeText) raiseAdo(ado::InvalidArgument, kSource);
                if (position_ != 0) raiseAdo(ado::IllegalOperation, kSource);
                type_ = type;
                return {};
            }
            expectRead(kind, args);
            return Variant(type_);
        case Member::Open:
            expectRead(kind, args, 5);
            if (open_) raiseAdo(ado::ObjectOpen, kSource);
            if (given(args, 0) && !(args[0].isString() && args[0].get<String>().empty()))
                raiseAdo(ado::NotCapable, kSource);
            open_ = true;
            bytes_.clear();
            position_ = 0;
            return {};
        case Member::Write:
            expectRead(kind, args, 2);
            if (!given(args, 0)) raise(err::ArgumentNotOptional);
            requireBinary();
            {
                // A binary field passed as it is (rs("Foto")) gives its value.
                const Variant buffer = args[0].isObject() ? objectOf(args[0]).get(u"") : args[0];
                if (!buffer.isArray()) raiseAdo(ado::InvalidArgument, kSource);
                try {
                    write(bytesOf(buffer));
                } catch (const RuntimeError& e) {
                    if (e.number() == err::TypeMismatch) raiseAdo(ado::InvalidArgument, kSource);
                    throw;
                }
            }
            return {};
        case Member::Read: expectRead(kind, args, 1); return byteArray(read(longArg(args, 0, kReadAll)));
        case Member::SaveToFile:
            expectRead(kind, args, 2);
            if (!given(args, 0)) raise(err::ArgumentNotOptional);
            saveToFile(toString(args[0]), longArg(args, 1, kSaveCreateNotExist));
            return {};
        case Member::LoadFromFile:
            expectRead(kind, args, 1);
            if (!given(args, 0)) raise(err::ArgumentNotOptional);
            loadFromFile(toString(args[0]));
            return {};
        case Member::Close:
            expectRead(kind, args);
            requireOpen();
            open_ = false;
            bytes_.clear();
            bytes_.shrink_to_fit();
            position_ = 0;
            return {};
        case Member::State: expectRead(kind, args); return Variant(std::int32_t(open_ ? 1 : 0));
    }
    raiseNoSuchMember();
}

}  // namespace telvaro::data
