// Numbers too large to add up: a total that overflows stops the command with a clear
// message and leaves the data as they were, and a file that holds such numbers is not
// opened. No table ever shows "Infinity" or "NaN".
#include "DocumentTestSupport.h"

namespace morvane::testing {
namespace {

class HugeNumbersTest : public DocumentTest {
  protected:
    bool AnyCellHolds(const TextTable& grid, const std::string& word) {
        for (int r = 0; r < grid.rows(); ++r)
            for (int c = 0; c < grid.cols(); ++c)
                if (grid.text(r, c).find(word) != std::string::npos)
                    return true;
        return false;
    }
};

TEST_F(HugeNumbersTest, TotalsThatOverflowStopTheAcceptAndKeepTheData) {
    StartLine(DataType::TotalAndResponded, "mg");  // "Total and Responded"
    Type("5", "1e308", "1");
    const TextTable grid1 = doc.Grid1();
    const TextTable grid2 = doc.Grid2();
    port.messages.clear();
    Type("5", "1e308", "2");
    EXPECT_EQ(LastMessage(),
              "Morvane stopped this command:\na result is larger than any number can be (an "
              "overflow).\nThe data were left as they were.");
    EXPECT_TRUE(SameCells(doc.Grid1(), grid1));
    EXPECT_TRUE(SameCells(doc.Grid2(), grid2));
    EXPECT_FALSE(AnyCellHolds(doc.Grid2(), "Infinity"));
}

TEST_F(HugeNumbersTest, AFileWhoseTotalsOverflowIsNotOpened) {
    const std::string path = folder.file("huge totals.mrv");
    WriteBytes(path,
               "2,\"\",\"\",\"\",\"\",\"\"\r\n1,0,\"mg\",\"\",1,\"Dose\",\"LD\",\"\",0,\"0.05\",0,0"
               "\r\n4,6\r\n\"T\",\"1\",\"1e308\",\"1\",\"0.000\",\"1.00000000000T\",\"T\",\"1\","
               "\"1e308\",\"1\",\"0.000\",\"1.00000000000T\",\"\",\"\",\"\",\"\"\r\n");
    EXPECT_FALSE(doc.OpenLineFile(path));
    EXPECT_EQ(LastMessage(),
              "An error occurred while opening this file.\na result is larger than any number "
              "can be (an overflow)");
    EXPECT_EQ(doc.Grid1().rows(), 2);
    EXPECT_FALSE(AnyCellHolds(doc.Grid2(), "Infinity"));
}

}  // namespace
}  // namespace morvane::testing
