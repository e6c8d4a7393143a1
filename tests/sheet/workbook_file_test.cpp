// A workbook file's names: the first free one is published, a file already
// there is never replaced, no temporary name is left behind.
#include "sheet/workbook_file.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <set>
#include <sstream>

#include "runtime/error.h"
#include "support/support.h"

namespace fs = std::filesystem;
using namespace telvaro;
using namespace telvaro::sheet;

namespace {

fs::path freshFolder(const std::string& name) {
    const char* home = std::getenv("TELVARO_TEST_HOME");
    fs::path folder = fs::path(home ? home : fs::temp_directory_path().string()) / "workbook-file" / name;
    fs::remove_all(folder);
    fs::create_directories(folder);
    return folder;
}

void writeText(const fs::path& file, const std::string& text) { std::ofstream(file, std::ios::binary) << text; }

std::string readText(const fs::path& file) {
    std::ifstream in(file, std::ios::binary);
    std::ostringstream text;
    text << in.rdbuf();
    return text.str();
}

std::set<std::string> namesIn(const fs::path& folder) {
    std::set<std::string> names;
    for (const auto& entry : fs::directory_iterator(folder)) names.insert(entry.path().filename().string());
    return names;
}

}  // namespace

TEST(WorkbookFile, PublishTakesTheFirstFreeNameAndReplacesNothing) {
    const struct {
        std::set<std::string> taken;
        std::string published;
    } cases[] = {
        {{}, "Libro1.xlsx"},
        {{"Libro1.xlsx", "Libro3.xlsx"}, "Libro2.xlsx"},
        {{"Libro1.xlsx.part", "Libro01.xlsx"}, "Libro1.xlsx"},
    };
    int round = 0;
    for (const auto& c : cases) {
        // A name outside ASCII: the bytes of the name are the file system's.
        const fs::path folder = freshFolder("Años " + std::to_string(++round));
        for (const std::string& name : c.taken) writeText(folder / name, "was " + name);
        const fs::path temporary = reserveTemporary(folder);
        const std::string temporaryName = temporary.filename().string();
        EXPECT_EQ(temporary.parent_path(), folder);
        EXPECT_EQ(temporaryName.rfind(".libro-", 0), 0u) << temporaryName;
        EXPECT_EQ(temporaryName.size(), std::string(".libro-XXXXXX.part").size()) << temporaryName;
        writeText(temporary, "new workbook");

        const fs::path published = publish(temporary, folder, "Libro");
        EXPECT_EQ(published, folder / c.published);
        EXPECT_EQ(readText(published), "new workbook");
        std::set<std::string> expected = c.taken;
        expected.insert(c.published);
        EXPECT_EQ(namesIn(folder), expected) << c.published;
        for (const std::string& name : c.taken) EXPECT_EQ(readText(folder / name), "was " + name);
    }
}

TEST(WorkbookFile, TemporaryNamesAreNewEachTimeInAFolderThatIsThere) {
    const fs::path folder = freshFolder("temporaries");
    const fs::path first = reserveTemporary(folder), second = reserveTemporary(folder);
    EXPECT_NE(first, second);
    EXPECT_EQ(namesIn(folder).size(), 2u);
    removeFile(first);
    removeFile(second);
    EXPECT_TRUE(namesIn(folder).empty());
    EXPECT_EQ(errorNumberOf([&] { reserveTemporary(folder / "not-there"); }), 75);
}
