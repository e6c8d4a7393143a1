#include "data/errors.h"

namespace telvaro::data {

String adoDescription(int number) {
    switch (number) {
        case ado::InvalidArgument:
            return u"Arguments are of the wrong type, are out of acceptable range, or are in conflict with one "
                   u"another.";
        case ado::OpeningFile: return u"File could not be opened.";
        case ado::ReadingFile: return u"File could not be read.";
        case ado::WritingFile: return u"Write to file failed.";
        case ado::NoCurrentRecord:
            return u"Either BOF or EOF is True, or the current record has been deleted. Requested operation requires "
                   u"a current record.";
        case ado::IllegalOperation: return u"Operation is not allowed in this context.";
        case ado::NotCapable: return u"Object or provider is not capable of performing requested operation.";
        case ado::ItemNotFound:
            return u"Item cannot be found in the collection corresponding to the requested name or ordinal.";
        case ado::ObjectClosed: return u"Operation is not allowed when the object is closed.";
        case ado::ObjectOpen: return u"Operation is not allowed when the object is open.";
        case ado::ProviderNotFound: return u"Provider cannot be found. It may not be properly installed.";
        case ado::InvalidConnection:
            return u"The connection cannot be used to perform this operation. It is either closed or invalid in this "
                   u"context.";
        case ado::CannotRestart: return u"Rowset position cannot be restarted.";
        case ado::QueryTimeout: return u"Query timeout expired";
        case ado::CannotFetchBackwards: return u"Rowset does not support fetching backward.";
        default: return standardDescription(number);
    }
}

void raiseAdo(int number, StringView source) { throw RuntimeError(number, adoDescription(number), String(source)); }

void raiseProviderError(int number, StringView provider, StringView message, StringView sql) {
    // A statement is named whole up to a screenful; longer ones are cut.
    constexpr std::size_t kShownStatement = 1000;
    String description = String(message);
    while (!description.empty() &&
           (description.back() == u'\n' || description.back() == u'\r' || description.back() == u' '))
        description.pop_back();
    if (description.empty()) description = u"The database reported an error without a message.";
    if (!sql.empty()) {
        description += u" [SQL: ";
        description += sql.size() > kShownStatement ? String(sql.substr(0, kShownStatement)) + u"..." : String(sql);
        description += u"]";
    }
    throw RuntimeError(number, std::move(description), String(provider));
}

}  // namespace telvaro::data
