#include "objects/font.h"

#include "runtime/error.h"

namespace telvaro::objects {

namespace {

enum Member { Name, Size, Bold, Italic, Underline, Strikethrough };

}  // namespace

const MemberTable& Font::members() const {
    static const MemberTable table{u"Name", u"Size", u"Bold", u"Italic", u"Underline", u"Strikethrough"};
    return table;
}

Variant Font::dispatch(int id, const MemberCall& call) {
    switch (id) {
        case Name:
            return property(
                call, [&] { return Variant(d_.name); }, [&](const Variant& v) { d_.name = textValue(v); });
        case Size:
            return property(
                call, [&] { return Variant(d_.size); },
                [&](const Variant& v) {
                    const double size = doubleValue(v);
                    if (!(size > 0 && size <= 2160)) raise(err::InvalidPropertyValue);
                    d_.size = size;
                });
        case Bold: return flagProperty(call, d_.bold);
        case Italic: return flagProperty(call, d_.italic);
        case Underline: return flagProperty(call, d_.underline);
        case Strikethrough: return flagProperty(call, d_.strikethrough);
    }
    raiseNoSuchMember();
}

}  // namespace telvaro::objects
