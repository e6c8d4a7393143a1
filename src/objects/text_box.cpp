#include "objects/text_box.h"

#include <algorithm>

#include "runtime/error.h"

namespace telvaro::objects {

namespace {

enum Member { Text = 0, SelStart, SelLength, SelText, MaxLength, Locked };

}  // namespace

const MemberTable& TextBox::members() const {
    static const MemberTable table(commonMemberNames(),
                                   {u"Text", u"SelStart", u"SelLength", u"SelText", u"MaxLength", u"Locked"});
    return table;
}

int TextBox::defaultMember() const { return static_cast<int>(CommonMemberCount) + Text; }

void TextBox::setText(String text) {
    text_ = std::move(text);
    selStart_ = selLength_ = 0;
}

void TextBox::setSelStart(std::int32_t start) {
    if (start < 0) raise(err::InvalidPropertyValue);
    selStart_ = std::min(start, static_cast<std::int32_t>(text_.size()));
    selLength_ = 0;
}

void TextBox::setSelLength(std::int32_t length) {
    if (length < 0) raise(err::InvalidPropertyValue);
    selLength_ = std::min(length, static_cast<std::int32_t>(text_.size()) - selStart_);
}

Variant TextBox::dispatch(int id, const MemberCall& call) {
    if (id < CommonMemberCount) return dispatchCommon(id, call);
    switch (id - CommonMemberCount) {
        case Text:
            return property(
                call, [&] { return Variant(text_); }, [&](const Variant& v) { setText(textValue(v)); });
        case SelStart:
            return property(
                call, [&] { return Variant(selStart_); }, [&](const Variant& v) { setSelStart(longValue(v)); });
        case SelLength:
            return property(
                call, [&] { return Variant(selLength_); }, [&](const Variant& v) { setSelLength(longValue(v)); });
        case SelText:
            return property(
                call,
                [&] {
                    return Variant(
                        text_.substr(static_cast<std::size_t>(selStart_), static_cast<std::size_t>(selLength_)));
                },
                [&](const Variant& v) {
                    const String inserted = textValue(v);
                    text_.replace(static_cast<std::size_t>(selStart_), static_cast<std::size_t>(selLength_), inserted);
                    selStart_ += static_cast<std::int32_t>(inserted.size());
                    selLength_ = 0;
                });
        case MaxLength:
            return property(
                call, [&] { return Variant(maxLength); }, [&](const Variant& v) { maxLength = sizeValue(v); });
        case Locked:
            return property(
                call, [&] { return Variant(Boolean(locked)); },
                [&](const Variant& v) { locked = booleanValue(v).isTrue(); });
    }
    raiseNoSuchMember();
}

}  // namespace telvaro::objects
