// Damaged files of every kind an import reads: bytes of the test files flipped, cut
// short or repeated, by a fixed seed so that every run tries the same files. Each
// import ends with the rows it took in Grid1, and a failure always tells the user.
#include <gtest/gtest.h>

#include <random>

#include "DocumentTestSupport.h"
#include "document/ImportWorkbook.h"

namespace morvane::testing {
namespace {

std::string DataFile(const std::string& name) {
    return std::string(MORVANE_IMPORT_DATA) + "/" + name;
}

std::string Damaged(std::string bytes, std::mt19937& random) {
    std::uniform_int_distribution<int> kind(0, 3);
    switch (kind(random)) {
        case 0:  // a few bytes changed
            for (int i = 0; i < 4 && !bytes.empty(); ++i)
                bytes[random() % bytes.size()] = static_cast<char>(random() & 0xFF);
            break;
        case 1:  // cut short
            bytes.resize(bytes.empty() ? 0 : random() % bytes.size());
            break;
        case 2:  // a run of bytes repeated
            if (!bytes.empty()) {
                const std::size_t at = random() % bytes.size();
                bytes.insert(at, bytes.substr(at, 1 + random() % 64));
            }
            break;
        default:  // one byte changed in each of many places
            for (std::size_t i = random() % 97; i < bytes.size(); i += 97 + random() % 97)
                bytes[i] = static_cast<char>(bytes[i] ^ (1 << (random() % 8)));
            break;
    }
    return bytes;
}

class ImportFuzzTest : public ::testing::TestWithParam<const char*> {};

TEST_P(ImportFuzzTest, DamagedFilesEndInRowsOrAMessage) {
    const std::string original = ReadBytes(DataFile(GetParam()));
    TempFolder folder;
    const std::string path = folder.file("damaged.bin");
    std::mt19937 random(20240501u);
    for (int round = 0; round < 150; ++round) {
        SharedRegisters shared;
        ScriptedUserPort port;
        LineDocument doc{shared, port, folder.path()};
        doc.CommandNew();
        doc.fileOptionsControls().setDataType(DataType::RespondedAndNonResponded);
        doc.fileOptionsControls().setComboUnit1("mg", shared);
        doc.FileOptionsOK();
        port.messages.clear();
        WriteBytes(path, Damaged(original, random));
        const ImportOutcome outcome = ImportDataFile(doc, port, path, SheetChoice{});
        ASSERT_EQ(doc.Grid1().rows() - 2, outcome.rowsTaken) << "round " << round;
        if (outcome.failed)
            ASSERT_FALSE(port.messages.empty()) << "round " << round;
        else
            ASSERT_TRUE(port.messages.empty())
                << "round " << round << ": " << port.messages[0].text;
    }
}

INSTANTIATE_TEST_SUITE_P(EveryKind, ImportFuzzTest,
                         ::testing::Values("counts.csv", "xlwt-counts.xls", "openpyxl-counts.xlsx",
                                           "handmade-percent.ods"));

}  // namespace
}  // namespace morvane::testing
