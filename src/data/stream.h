// ADODB.Stream, for moving binary field values to and from files:
//
//   Type (1 binary, 2 text, the default; changed only at the start of the
//   stream); Open [Source], [Mode], [Options], [UserName], [Password] (an
//   empty stream: a Source is not supported, 3251); Write Buffer (a Byte
//   array, or a Field holding one; binary streams only); Read([NumBytes]) -> Byte array (-1, the
//   default, for all the rest); SaveToFile FileName, [Options] (1 create a
//   new file, the default; 2 create or overwrite); LoadFromFile FileName
//   (the whole file replaces the contents; the position goes back to the
//   start); Close; State.
//
// File names are Windows-form paths given to the host's path mapping. A
// file that cannot be opened is 3002, a failed or refused write 3004.
#pragma once

#include <cstdint>
#include <vector>

#include "data/data_services.h"
#include "runtime/object.h"

namespace telvaro::data {

class Stream : public Object {
public:
    explicit Stream(DataServices services) : services_(std::move(services)) {}
    Variant invoke(StringView member, InvokeKind kind, std::span<Variant> args) override;
    String typeName() const override { return u"Stream"; }

    void write(const std::vector<std::uint8_t>& bytes);
    std::vector<std::uint8_t> read(std::int64_t count);
    void saveToFile(StringView fileName, std::int32_t options);
    void loadFromFile(StringView fileName);

private:
    void requireOpen() const;
    void requireBinary() const;

    DataServices services_;
    bool open_ = false;
    std::int32_t type_ = 2;
    std::vector<std::uint8_t> bytes_;
    std::size_t position_ = 0;
};

}  // namespace telvaro::data
