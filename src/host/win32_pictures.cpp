#include "host/win32_pictures.h"

#include <windows.h>
#include <ole2.h>
#include <olectl.h>

#include <cstring>

#include "platform/win32/win32_text.h"
#include "runtime/error.h"
#include "runtime/object.h"
#include "runtime/text.h"

namespace telvaro::win32 {

namespace {

// An automation picture: Handle (the default member), hPal, Type, Width and
// Height (HIMETRIC), read from the platform's IPicture. An empty picture
// has none.
class PlatformPicture : public Object {
public:
    explicit PlatformPicture(IPicture* picture, String source) : picture_(picture), source_(std::move(source)) {}
    ~PlatformPicture() override {
        if (picture_) picture_->Release();
    }
    PlatformPicture(const PlatformPicture&) = delete;
    PlatformPicture& operator=(const PlatformPicture&) = delete;

    String typeName() const override { return u"Picture"; }
    IPicture* nativePicture() const { return picture_; }

    Variant invoke(StringView member, InvokeKind kind, std::span<Variant> args) override {
        const bool isGet = kind == InvokeKind::PropertyGet || kind == InvokeKind::Method;
        const bool known = member.empty() || textEquals(member, u"Handle") || textEquals(member, u"hPal") ||
                           textEquals(member, u"Type") || textEquals(member, u"Width") || textEquals(member, u"Height");
        if (!known) raiseNoSuchMember();
        if (!isGet) raise(383);
        if (!args.empty()) raise(err::WrongNumberOfArguments);
        if (!picture_) return Variant(std::int32_t{0});
        if (member.empty() || textEquals(member, u"Handle")) {
            OLE_HANDLE h = 0;
            picture_->get_Handle(&h);
            return Variant(static_cast<std::int32_t>(h));
        }
        if (textEquals(member, u"hPal")) {
            OLE_HANDLE h = 0;
            picture_->get_hPal(&h);
            return Variant(static_cast<std::int32_t>(h));
        }
        if (textEquals(member, u"Type")) {
            SHORT type = 0;
            picture_->get_Type(&type);
            return Variant(static_cast<std::int16_t>(type));
        }
        OLE_XSIZE_HIMETRIC size = 0;
        if (textEquals(member, u"Width"))
            picture_->get_Width(&size);
        else
            picture_->get_Height(&size);
        return Variant(static_cast<std::int32_t>(size));
    }

private:
    IPicture* picture_;
    String source_;
};

}  // namespace

ObjectRef platformPicture(IPicture* picture, String source) {
    return std::make_shared<PlatformPicture>(picture, std::move(source));
}

IDispatch* pictureDispatch(const Object& object) {
    const auto* picture = dynamic_cast<const PlatformPicture*>(&object);
    if (!picture || !picture->nativePicture()) return nullptr;
    IDispatch* dispatch = nullptr;
    picture->nativePicture()->QueryInterface(IID_IDispatch, reinterpret_cast<void**>(&dispatch));
    return dispatch;
}

ObjectRef Win32Pictures::fromPixels(std::int32_t width, std::int32_t height, std::span<const std::uint32_t> pixels,
                                    StringView name) {
    if (width <= 0 || height <= 0 ||
        pixels.size() != static_cast<std::size_t>(width) * static_cast<std::size_t>(height))
        raise(err::InvalidProcedureCall);
    BITMAPINFO info{};
    info.bmiHeader.biSize = sizeof(BITMAPINFOHEADER);
    info.bmiHeader.biWidth = width;
    info.bmiHeader.biHeight = -height;  // top-down, as the pixels come
    info.bmiHeader.biPlanes = 1;
    info.bmiHeader.biBitCount = 32;
    info.bmiHeader.biCompression = BI_RGB;
    void* bits = nullptr;
    HBITMAP bitmap = CreateDIBSection(nullptr, &info, DIB_RGB_COLORS, &bits, nullptr, 0);
    if (!bitmap || !bits) raise(err::OutOfMemory);
    std::memcpy(bits, pixels.data(), pixels.size() * sizeof(std::uint32_t));  // BGRA in memory, as 0xAARRGGBB

    PICTDESC desc{};
    desc.cbSizeofstruct = sizeof(PICTDESC);
    desc.picType = PICTYPE_BITMAP;
    desc.bmp.hbitmap = bitmap;
    IPicture* picture = nullptr;
    if (FAILED(OleCreatePictureIndirect(&desc, IID_IPicture, TRUE, reinterpret_cast<void**>(&picture)))) {
        DeleteObject(bitmap);
        raise(err::OutOfMemory);
    }
    return std::make_shared<PlatformPicture>(picture, String(name));
}

ObjectRef Win32Pictures::load(StringView windowsPath) {
    if (windowsPath.empty()) return std::make_shared<PlatformPicture>(nullptr, String());
    std::wstring path = wide(windowsPath);
    if (GetFileAttributesW(path.c_str()) == INVALID_FILE_ATTRIBUTES) raise(err::FileNotFound);
    IPicture* picture = nullptr;
    if (FAILED(OleLoadPicturePath(path.data(), nullptr, 0, 0, IID_IPicture, reinterpret_cast<void**>(&picture))))
        raise(481);
    return std::make_shared<PlatformPicture>(picture, String(windowsPath));
}

}  // namespace telvaro::win32
