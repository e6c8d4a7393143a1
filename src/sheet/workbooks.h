// The application's Workbooks collection: Add opens a new workbook with one
// empty worksheet and makes it the active one.
#pragma once

#include "sheet/application.h"

namespace telvaro::sheet {

class Workbooks : public Object {
public:
    explicit Workbooks(std::shared_ptr<SheetApplication> app) : app_(std::move(app)) {}
    Variant invoke(StringView member, InvokeKind kind, std::span<Variant> args) override;
    String typeName() const override { return u"Workbooks"; }

private:
    std::shared_ptr<SheetApplication> app_;
};

}  // namespace telvaro::sheet
