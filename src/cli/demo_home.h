// The home folder the guided tour writes in: TELVARO_HOME when the user
// set it, else a new temporary folder, removed when the tour ends, so the
// tour never leaves an error log, registry or INI files in the user's own
// home folder.
#pragma once

#include <filesystem>
#include <ostream>

namespace telvaro::cli {

class DemoHome {
public:
    explicit DemoHome(std::ostream& out);
    ~DemoHome();
    DemoHome(const DemoHome&) = delete;
    DemoHome& operator=(const DemoHome&) = delete;

    const std::filesystem::path& folder() const { return folder_; }

private:
    std::filesystem::path folder_;
    bool temporary_ = false;
};

}  // namespace telvaro::cli
