// A font as controls and grids carry it: Name, Size (points), Bold, Italic,
// Underline, Strikethrough. Shared by reference: a control's `Font` is the
// control's own font object, so `Grid.Font.Size = 12` changes the grid.
#pragma once

#include "objects/caller_object.h"

namespace telvaro::objects {

struct FontDescription {
    String name = u"MS Sans Serif";
    double size = 8.25;
    bool bold = false;
    bool italic = false;
    bool underline = false;
    bool strikethrough = false;
};

class Font : public CallerObject {
public:
    Font() = default;
    explicit Font(FontDescription d) : d_(std::move(d)) {}

    String typeName() const override { return u"Font"; }

    const FontDescription& description() const { return d_; }
    FontDescription& description() { return d_; }

protected:
    const MemberTable& members() const override;
    int defaultMember() const override { return 0; }
    Variant dispatch(int id, const MemberCall& call) override;

private:
    FontDescription d_;
};

}  // namespace telvaro::objects
