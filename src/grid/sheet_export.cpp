#include "grid/sheet_export.h"

#include "context/frm_prog.h"
#include "context/fun.h"
#include "runtime/convert.h"

namespace telvaro::grid {

callers::SpreadsheetApplication createSpreadsheet(Fun& fun) {
    return callers::SpreadsheetApplication(fun.platform().objectFactory().create(u"Excel.Application"));
}

void ColumnLetter::setWidth(const callers::Worksheet& sheet, const Variant& width) const {
    if (code_ < u'A' || code_ > u'Z') raise(err::TypeMismatch);
    sheet.columns(Variant(String(1, code()))).setColumnWidth(width);
}

void ColumnLetter::advance() {
    if (code_ + 1 > 0xFFFF) raise(err::InvalidProcedureCall);
    ++code_;
}

ExportProgress::ExportProgress(Fun& fun, SkipErrors& onError)
    : onError_(onError), form_(onError.value([&] { return frmProg(fun); })) {}

void ExportProgress::start(const Variant& maximum) {
    if (!form_) return;
    onError_([&] { form_->setMax(maximum); });
    onError_([&] { form_->setValue(Variant(std::int32_t(0))); });
    onError_([&] { form_->show(); });
    onError_([&] { form_->zOrder(Variant(std::int16_t(0))); });
}

void ExportProgress::step(const std::function<Variant()>& total) {
    if (!form_) return;
    // A bar that refused a value refuses it again while it still reads the
    // value it read then: nothing else sets the bar while the rows are
    // copied. A long export without a count (Max stays 100) so does not
    // raise and skip one error a row.
    std::optional<std::int32_t> next;
    bool set = false;
    onError_([&] {
        next = Int32::of(toLong(form_->value()) + std::int64_t{1}).value();
        if (next == refused_) return;
        form_->setValue(Variant(*next));
        set = true;
    });
    if (next && !set) refused_ = next;
    onError_([&] {
        String caption = u"Progreso . . .      (";
        caption += toString(form_->value());
        caption += u" de ";
        caption += toString(total());
        caption += u')';
        form_->setCaption(Variant(std::move(caption)));
    });
}

void ExportProgress::finish() {
    if (!form_) return;
    onError_([&] { form_->unload(); });
}

}  // namespace telvaro::grid
