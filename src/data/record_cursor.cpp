#include "data/record_cursor.h"

#include <limits>
#include <new>

#include "data/errors.h"
#include "data/names.h"

namespace telvaro::data {

namespace {
constexpr StringView kSource = u"ADODB.Recordset";
}

RecordCursor::RecordCursor(std::shared_ptr<ProviderSession> keepAlive, std::unique_ptr<ProviderCursor> cursor,
                           bool loadAll)
    : session_(std::move(keepAlive)),
      cursor_(std::move(cursor)),
      columns_(cursor_->columns()),
      rows_(columns_.size()),
      loaded_(loadAll) {
    try {
        if (loaded_) {
            while (cursor_->fetch(rows_)) {
                if (rows_.rowCount() > std::size_t(std::numeric_limits<std::int32_t>::max()) - 1) raise(err::Overflow);
            }
            cursor_.reset();
            session_.reset();
            current_ = 0;
        } else {
            atEnd_ = !cursor_->fetch(rows_);
            passed_ = atEnd_ ? 0 : 1;
        }
    } catch (const std::bad_alloc&) {
        raise(err::OutOfMemory);
    }
}

std::int32_t RecordCursor::columnIndex(StringView name) const {
    for (std::size_t i = 0; i < columns_.size(); ++i)
        if (sameName(columns_[i].name, name)) return static_cast<std::int32_t>(i);
    return -1;
}

std::int32_t RecordCursor::recordCount() const { return loaded_ ? static_cast<std::int32_t>(rows_.rowCount()) : -1; }

bool RecordCursor::bof() const {
    if (loaded_) return rows_.rowCount() == 0 || current_ < 0;
    return atEnd_ && passed_ == 0;
}

bool RecordCursor::eof() const {
    if (loaded_) return current_ >= static_cast<std::int64_t>(rows_.rowCount());
    return atEnd_;
}

std::int32_t RecordCursor::absolutePosition() const {
    if (!loaded_ || rows_.rowCount() == 0) return kPosUnknown;
    if (current_ < 0) return kPosBOF;
    if (eof()) return kPosEOF;
    return static_cast<std::int32_t>(current_ + 1);
}

void RecordCursor::setAbsolutePosition(std::int32_t position) {
    if (!loaded_) raiseAdo(ado::NotCapable, kSource);
    if (position < 1 || std::size_t(position) > rows_.rowCount()) raiseAdo(ado::InvalidArgument, kSource);
    current_ = position - 1;
}

void RecordCursor::moveFirst() {
    if (loaded_) {
        if (rows_.rowCount() == 0) raiseAdo(ado::NoCurrentRecord, kSource);
        current_ = 0;
        return;
    }
    // Still on the first row (or an empty result): nothing to restart.
    if (passed_ > 1 || (atEnd_ && passed_ > 0)) raiseAdo(ado::CannotRestart, kSource);
}

void RecordCursor::moveLast() {
    if (!loaded_) raiseAdo(ado::CannotFetchBackwards, kSource);
    if (rows_.rowCount() == 0) raiseAdo(ado::NoCurrentRecord, kSource);
    current_ = static_cast<std::int64_t>(rows_.rowCount()) - 1;
}

void RecordCursor::movePrevious() {
    if (!loaded_) raiseAdo(ado::CannotFetchBackwards, kSource);
    if (bof()) raiseAdo(ado::NoCurrentRecord, kSource);
    --current_;
}

void RecordCursor::moveNext() {
    if (eof()) raiseAdo(ado::NoCurrentRecord, kSource);
    if (loaded_) {
        ++current_;
        return;
    }
    rows_.clear();
    try {
        atEnd_ = !cursor_->fetch(rows_);
    } catch (...) {
        atEnd_ = true;
        cursor_.reset();
        throw;
    }
    if (atEnd_) {
        cursor_.reset();
        session_.reset();
    } else {
        ++passed_;
    }
}

std::size_t RecordCursor::currentRow() const {
    if (bof() || eof()) raiseAdo(ado::NoCurrentRecord, kSource);
    return loaded_ ? static_cast<std::size_t>(current_) : 0;
}

Variant RecordCursor::value(std::size_t column) const { return rows_.value(currentRow(), column); }

std::int32_t RecordCursor::actualSize(std::size_t column) const { return rows_.actualSize(currentRow(), column); }

}  // namespace telvaro::data
