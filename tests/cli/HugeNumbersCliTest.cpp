// A line so flat that its estimates, or their limits, pass the largest number: the
// calculation stops with a clear message instead of showing 0 or a log value as a dose.
#include "CliRun.h"

namespace morvane::testing {
namespace {

const char* const kOptions = "1,0,\"mg\",\"\",1,\"Dose\",\"LD\",\"\",0,\"0.05\",0,0";

TEST(HugeNumbersCliTest, AnEstimateThatOverflowsStopsTheCalculation) {
    TempFolder folder;
    WriteBytes(folder.file("flat.mrv"),
               CurrentLineFile(kOptions, 6,
                               {{"T", "1", "100", "40", "40.000", "1.00000000000T"},
                                {"T", "1e100", "100", "50", "50.000", "9.99999999999T"},
                                {"T", "1e200", "100", "60", "60.000", "99.9999999999T"},
                                {"T", "1e300", "100", "70", "70.000", "999.999999999T"}},
                               R"("","","","")"));
    const CliResult result = RunCli({"report", "flat.mrv"}, folder.path());
    EXPECT_EQ(result.out, "");
    EXPECT_EQ(result.err,
              "Morvane stopped the calculation:\nthe LD75 or its limits are larger than any "
              "number can be (an overflow): the line is too flat to give them as doses.\nNo "
              "results were made.\n");
    EXPECT_EQ(result.status, 1);
}

}  // namespace
}  // namespace morvane::testing
