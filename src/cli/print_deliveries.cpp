#include "cli/print_deliveries.h"

namespace telvaro::cli {

std::shared_ptr<RecordingPrinting> recordPrinting(Platform& platform) {
    if (!platform.printingService()) return nullptr;
    auto recording = std::make_shared<RecordingPrinting>(platform.printingService());
    platform.use(std::shared_ptr<Printing>(recording));
    return recording;
}

nlohmann::ordered_json printedOf(const RecordingPrinting& printing) {
    auto out = nlohmann::ordered_json::array();
    for (const auto& d : printing.deliveries()) {
        if (d.printer.empty())
            out.push_back({{"file", toUtf8(d.file)}, {"pages", d.pages}});
        else
            out.push_back({{"printer", toUtf8(d.printer)}, {"job", d.job}, {"pages", d.pages}});
    }
    return out;
}

void reportPrinted(const RecordingPrinting& printing, std::ostream& err) {
    for (const auto& d : printing.deliveries()) {
        if (d.printer.empty())
            err << "telvaro: printed to " << toUtf8(d.file) << '\n';
        else
            err << "telvaro: printed on " << toUtf8(d.printer) << ", job " << d.job << '\n';
    }
}

}  // namespace telvaro::cli
