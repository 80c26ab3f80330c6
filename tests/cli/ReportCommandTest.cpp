// morvane-cli report, run as a whole process on line files written here, with its
// whole standard output, standard error and exit status compared.
//
// The expected tables were worked out from the method's rules (pooling of replicates
// and Abbott's correction, the printed probit tables, the provisional line and the
// cycles on working probits, Fieller's limits as Finney gives them, the number
// formats) by an independent re-derivation, and the rotenone figures agree with a
// maximum-likelihood probit fit to the fourth decimal of the LC50.

#include <gtest/gtest.h>

#include <ostream>
#include <string>
#include <vector>

#include "CliRun.h"

namespace morvane {
namespace {

using testing::CliTest;
using testing::CurrentLineFile;
using testing::WriteBytes;

class ReportCommandTest : public CliTest {
  protected:
    // Writes a line file of the current layout: the options record, the number of
    // columns of the table, its rows (label, dose, counts or percent, sort key) and
    // the notes record.
    void writeLineFile(const std::string& name, const std::string& options, int columns,
                       const std::vector<std::vector<std::string>>& rows,
                       const std::string& notes) {
        WriteBytes(folder.file(name), CurrentLineFile(options, columns, rows, notes));
    }
};

// --- Lines that are calculated --------------------------------------------------------

// Finney's rotenone assay, typed as totals and responded, concentrations in mg / L,\nwith an
// untreated control. The queries add the estimate at 50% (the 50% row\nagain) and the response at 4
// mg / L.
TEST_F(ReportCommandTest, TotalAndRespondedWithAControlAndQueries) {
    WriteBytes(folder.file("rotenone.mrv"), testing::RotenoneLineFile());
    expectRun({"report", "rotenone.mrv", "--percent", "50", "--dose", "4"},
              "Con.\tCon. * 1\tLog (Con. * 1)\tTreated\tObserved response %\tLinear response %\t"
              "Linear probit\n"
              "2.6\t2.6\t0.4150\t50\t12.000\t12.7684\t3.8623\n"
              "3.8\t3.8\t0.5798\t48\t33.333\t32.8458\t4.5558\n"
              "5.1\t5.1\t0.7076\t46\t52.174\t53.7287\t5.0936\n"
              "7.7\t7.7\t0.8865\t49\t85.714\t80.1320\t5.8464\n"
              "10.2\t10.2\t1.0086\t50\t88.000\t91.3014\t6.3602\n"
              "\n"
              "\n"
              "Slope\t4.2080\t+/-  0.4803\t\n"
              "Chi\t1.7328\ttabulated  7.8\t\n"
              "p\t0.6297\t\t\n"
              "h\t0.5776\t\t\n"
              "g\t0.0500\t\t\n"
              "r\t0.9892\ttabulated  0.878\t\n"
              "\n"
              "\n"
              "LC\tCon.\tLower limit\tUpper limit\t\n"
              "\tmg / L\tmg / L\tmg / L\t\n"
              "25\t3.3502\t2.8471\t3.7739\t\n"
              "50\t4.8457\t4.3641\t5.3552\t\n"
              "75\t7.0089\t6.2777\t8.0975\t\n"
              "90\t9.7707\t8.4051\t12.1718\t\n"
              "95\t11.9196\t9.9496\t15.6266\t\n"
              "99\t17.3058\t13.5868\t25.0888\t\n"
              "50\t4.8457\t4.3641\t5.3552\t\n"
              "36.30\t4\t3.5178\t4.4365\t\n",
              "", 0);
}

// Responded and non responded, two replicates a dose, pooled with their totals\nas weights; t at
// the 0.01 level.
TEST_F(ReportCommandTest, RespondedAndNonRespondedReplicatesWeightedAtTheOnePercentLevel) {
    writeLineFile("replicates.mrv", R"(0,0,"mg","",1,"Dose","LD","",0,"0.01",1,0)", 7,
                  {{"T", "1", "2", "18", "20", "10.000", "1.00000000000T"},
                   {"T", "1", "1", "9", "10", "10.000", "1.00000000000T"},
                   {"T", "2", "6", "14", "20", "30.000", "1.00695555006T"},
                   {"T", "2", "4", "16", "20", "20.000", "1.00695555006T"},
                   {"T", "4", "11", "9", "20", "55.000", "1.01395947979T"},
                   {"T", "4", "6", "4", "10", "60.000", "1.01395947979T"},
                   {"T", "8", "16", "4", "20", "80.000", "1.02101212571T"},
                   {"T", "8", "17", "3", "20", "85.000", "1.02101212571T"}},
                  R"("","","","")");
    expectRun({"report", "replicates.mrv"},
              "Dose\tDose * 1\tLog (Dose * 1)\tTreated\tObserved response %\tLinear response %\t"
              "Linear probit\n"
              "1\t1\t0.0000\t30\t10.000\t8.55705\t3.6307\n"
              "2\t2\t0.3010\t40\t25.000\t27.1793\t4.3926\n"
              "4\t4\t0.6021\t30\t56.667\t56.1455\t5.1547\n"
              "8\t8\t0.9031\t40\t82.500\t82.0298\t5.9166\n"
              "\n"
              "\n"
              "Slope\t2.5311\t+/-  0.3938\t\n"
              "Chi\t0.1881\ttabulated  6\t\n"
              "p\t0.9102\t\t\n"
              "h\t0.0940\t\t\n"
              "g\t0.1606\t\t\n"
              "r\t0.9980\ttabulated  0.95\t\n"
              "\n"
              "\n"
              "LD\tDose\tLower limit\tUpper limit\t\n"
              "\tmg\tmg\tmg\t\n"
              "25\t1.8815\t1.1413\t2.5318\t\n"
              "50\t3.4752\t2.5896\t4.8147\t\n"
              "75\t6.419\t4.6624\t11.5382\t\n"
              "90\t11.1512\t7.2394\t27.7039\t\n"
              "95\t15.5187\t9.2982\t47.4074\t\n"
              "99\t28.8447\t14.7101\t131.2414\t\n",
              "", 0);
}

// Response percentages against time, a control with each treatment: the 1 h\ntreatments are
// corrected by their 5% control, the 8 h one has none and stands\nuncorrected.
TEST_F(ReportCommandTest, ResponsePercentagesWithAControlForEachTreatment) {
    writeLineFile("paired.mrv", R"(2,0,"hour","",3,"Dose","LD","",0,"0.10",0,0)", 4,
                  {{"C", "1", "5.000", "1.00000000000C"},
                   {"T", "1", "15.000", "1.00000000000T"},
                   {"T", "1", "17.000", "1.00000000000T"},
                   {"C", "2", "4.000", "1.00695555006C"},
                   {"T", "2", "36.000", "1.00695555006T"},
                   {"C", "4", "6.000", "1.01395947979C"},
                   {"T", "4", "60.000", "1.01395947979T"},
                   {"T", "4", "64.000", "1.01395947979T"},
                   {"T", "8", "85.000", "1.02101212571T"}},
                  R"("","","","")");
    expectRun({"report", "paired.mrv", "--percent", "50", "--dose", "3"},
              "Time\tTime * 1\tLog (Time * 1)\tTreated\tObserved response %\tLinear response %\t"
              "Linear probit\n"
              "1\t1\t0.0000\t200\t11.579\t11.6374\t3.8063\n"
              "2\t2\t0.3010\t100\t33.333\t32.1837\t4.5374\n"
              "4\t4\t0.6021\t200\t59.574\t60.5934\t5.2687\n"
              "8\t8\t0.9031\t100\t85.000\t84.1266\t5.9998\n"
              "\n"
              "\n"
              "Slope\t2.4288\t+/-  0.1882\t\n"
              "Chi\t0.2084\ttabulated  6\t\n"
              "p\t0.9011\t\t\n"
              "h\t0.1042\t\t\n"
              "g\t0.0162\t\t\n"
              "r\t0.9995\ttabulated  0.95\t\n"
              "\n"
              "\n"
              "LT\tTime\tLower limit\tUpper limit\t\n"
              "\thour\thour\thour\t\n"
              "25\t1.6359\t1.4492\t1.8154\t\n"
              "50\t3.1007\t2.8339\t3.4063\t\n"
              "75\t5.8771\t5.2051\t6.8051\t\n"
              "90\t10.4501\t8.7857\t12.9914\t\n"
              "95\t14.7468\t11.9744\t19.1989\t\n"
              "99\t28.1348\t21.3379\t40.0625\t\n"
              "50\t3.1007\t2.8339\t3.4063\t\n"
              "48.61\t3\t2.7422\t3.2918\t\n",
              "", 0);
}

// A heterogeneous line: chi-square above the tabulated 7.8, so h is the\nchi-square ratio and t
// that of three degrees of freedom.
TEST_F(ReportCommandTest, HeterogeneousLineTakesTheTOfItsDegreesOfFreedom) {
    writeLineFile("heterogeneous.mrv", R"(1,0,"ug","ml",2,"Dose","LD","",0,"0.05",0,0)", 6,
                  {{"T", "1", "50", "5", "10.000", "1.00000000000T"},
                   {"T", "2", "50", "30", "60.000", "1.00695555006T"},
                   {"T", "4", "50", "18", "36.000", "1.01395947979T"},
                   {"T", "8", "50", "40", "80.000", "1.02101212571T"},
                   {"T", "16", "50", "38", "76.000", "1.02811382666T"}},
                  R"("","","","")");
    expectRun({"report", "heterogeneous.mrv"},
              "Con.\tCon. * 1\tLog (Con. * 1)\tTreated\tObserved response %\tLinear response %\t"
              "Linear probit\n"
              "1\t1\t0.0000\t50\t10.000\t21.8685\t4.2233\n"
              "2\t2\t0.3010\t50\t60.000\t36.1180\t4.6446\n"
              "4\t4\t0.6021\t50\t36.000\t52.6341\t5.0661\n"
              "8\t8\t0.9031\t50\t80.000\t68.7004\t5.4875\n"
              "16\t16\t1.2041\t50\t76.000\t81.8237\t5.9088\n"
              "\n"
              "\n"
              "Slope\t1.3998\t+/-  0.2081\t\n"
              "Chi\t26.1936\ttabulated  7.8\t\n"
              "p\t0\t\t\n"
              "h\t8.7312\t\t\n"
              "g\t1.9530\t\t\n"
              "r\t0.8282\ttabulated  0.878\t\n"
              "\n"
              "\n"
              "LC\tCon.\tLower limit\tUpper limit\t\n"
              "\tug / ml\tug / ml\tug / ml\t\n"
              "25\t1.1831\t\t\t\n"
              "50\t3.5881\t\t\t\n"
              "75\t10.8824\t\t\t\n"
              "90\t29.5416\t\t\t\n"
              "95\t53.6999\t\t\t\n"
              "99\t164.7259\t\t\t\n",
              "", 0);
}

// Ten insects a dose and a shallow line: g is above 0.4, so no limits, in the\nstandard rows or in
// the rows the queries add.
TEST_F(ReportCommandTest, GAbovePointFourLeavesEveryLimitEmpty) {
    writeLineFile("wide.mrv", R"(1,0,"mg","",1,"Dose","LD","",0,"0.05",0,0)", 6,
                  {{"T", "1", "10", "3", "30.000", "1.00000000000T"},
                   {"T", "2", "10", "4", "40.000", "1.00695555006T"},
                   {"T", "4", "10", "5", "50.000", "1.01395947979T"},
                   {"T", "8", "10", "7", "70.000", "1.02101212571T"}},
                  R"("","","","")");
    expectRun({"report", "wide.mrv", "--percent", "50", "--dose", "3"},
              "Dose\tDose * 1\tLog (Dose * 1)\tTreated\tObserved response %\tLinear response %\t"
              "Linear probit\n"
              "1\t1\t0.0000\t10\t30.000\t28.2751\t4.4253\n"
              "2\t2\t0.3010\t10\t40.000\t40.6809\t4.7643\n"
              "4\t4\t0.6021\t10\t50.000\t54.1169\t5.1034\n"
              "8\t8\t0.9031\t10\t70.000\t67.0876\t5.4423\n"
              "\n"
              "\n"
              "Slope\t1.1262\t+/-  0.6153\t\n"
              "Chi\t0.1231\ttabulated  6\t\n"
              "p\t0.9403\t\t\n"
              "h\t0.0616\t\t\n"
              "g\t1.1469\t\t\n"
              "r\t0.9830\ttabulated  0.95\t\n"
              "\n"
              "\n"
              "LD\tDose\tLower limit\tUpper limit\t\n"
              "\tmg\tmg\tmg\t\n"
              "25\t0.8154\t\t\t\n"
              "50\t3.2383\t\t\t\n"
              "75\t12.8604\t\t\t\n"
              "90\t44.4976\t\t\t\n"
              "95\t93.5262\t\t\t\n"
              "99\t376.6967\t\t\t\n"
              "50\t3.2383\t\t\t\n"
              "48.51\t3\t\t\t\n",
              "", 0);
}

// 33 doses: p is not computed and reads 0, no tabulated r, and the tabulated\nchi-square stays at
// that of 30 degrees of freedom.
TEST_F(ReportCommandTest, MoreThanThirtyDegreesOfFreedom) {
    writeLineFile("many.mrv", R"(2,0,"mg","",1,"Dose","LD","",0,"0.05",0,0)", 4,
                  {{"T", "1", "3.000", "1.00000000000T"},   {"T", "2", "6.000", "1.00695555006T"},
                   {"T", "3", "9.000", "1.01104669194T"},   {"T", "4", "12.000", "1.01395947979T"},
                   {"T", "5", "15.000", "1.01622459127T"},  {"T", "6", "18.000", "1.01807907781T"},
                   {"T", "7", "21.000", "1.01964966386T"},  {"T", "8", "24.000", "1.02101212571T"},
                   {"T", "9", "27.000", "1.02221541328T"},  {"T", "10", "30.000", "1.02329299228T"},
                   {"T", "11", "33.000", "1.02426875960T"}, {"T", "12", "36.000", "1.02516037780T"},
                   {"T", "13", "39.000", "1.02598127241T"}, {"T", "14", "42.000", "1.02674188813T"},
                   {"T", "15", "45.000", "1.02745051127T"}, {"T", "16", "48.000", "1.02811382666T"},
                   {"T", "17", "51.000", "1.02873730575T"}, {"T", "18", "54.000", "1.02932548375T"},
                   {"T", "19", "57.000", "1.02988216192T"}, {"T", "20", "60.000", "1.03041055791T"},
                   {"T", "21", "63.000", "1.03091341958T"}, {"T", "22", "66.000", "1.03139311223T"},
                   {"T", "23", "69.000", "1.03185168656T"}, {"T", "24", "72.000", "1.03229093212T"},
                   {"T", "25", "75.000", "1.03271241990T"}, {"T", "26", "78.000", "1.03311753651T"},
                   {"T", "27", "81.000", "1.03350751204T"}, {"T", "28", "84.000", "1.03388344273T"},
                   {"T", "29", "87.000", "1.03424630974T"}, {"T", "30", "90.000", "1.03459699473T"},
                   {"T", "31", "93.000", "1.03493629287T"}, {"T", "32", "96.000", "1.03526492384T"},
                   {"T", "33", "99.000", "1.03558354105T"}},
                  R"("","","","")");
    expectRun({"report", "many.mrv"},
              "Dose\tDose * 1\tLog (Dose * 1)\tTreated\tObserved response %\tLinear response %\t"
              "Linear probit\n"
              "1\t1\t0.0000\t100\t3.000\t0.14995\t2.0157\n"
              "2\t2\t0.3010\t100\t6.000\t1.47076\t2.8020\n"
              "3\t3\t0.4771\t100\t9.000\t4.12065\t3.2621\n"
              "4\t4\t0.6021\t100\t12.000\t7.91101\t3.5886\n"
              "5\t5\t0.6990\t100\t15.000\t12.3445\t3.8417\n"
              "6\t6\t0.7782\t100\t18.000\t17.0732\t4.0486\n"
              "7\t7\t0.8451\t100\t21.000\t21.8716\t4.2234\n"
              "8\t8\t0.9031\t100\t24.000\t26.5975\t4.3749\n"
              "9\t9\t0.9542\t100\t27.000\t31.1530\t4.5084\n"
              "10\t10\t1.0000\t100\t30.000\t35.4985\t4.6281\n"
              "11\t11\t1.0414\t100\t33.000\t39.5966\t4.7362\n"
              "12\t12\t1.0792\t100\t36.000\t43.4472\t4.8350\n"
              "13\t13\t1.1139\t100\t39.000\t47.0362\t4.9256\n"
              "14\t14\t1.1461\t100\t42.000\t50.3875\t5.0097\n"
              "15\t15\t1.1761\t100\t45.000\t53.5098\t5.0881\n"
              "16\t16\t1.2041\t100\t48.000\t56.4032\t5.1612\n"
              "17\t17\t1.2304\t100\t51.000\t59.0948\t5.2299\n"
              "18\t18\t1.2553\t100\t54.000\t61.5990\t5.2950\n"
              "19\t19\t1.2788\t100\t57.000\t63.9205\t5.3564\n"
              "20\t20\t1.3010\t100\t60.000\t66.0685\t5.4144\n"
              "21\t21\t1.3222\t100\t63.000\t68.0730\t5.4698\n"
              "22\t22\t1.3424\t100\t66.000\t69.9344\t5.5225\n"
              "23\t23\t1.3617\t100\t69.000\t71.6649\t5.5729\n"
              "24\t24\t1.3802\t100\t72.000\t73.2779\t5.6213\n"
              "25\t25\t1.3979\t100\t75.000\t74.7761\t5.6675\n"
              "26\t26\t1.4150\t100\t78.000\t76.1811\t5.7122\n"
              "27\t27\t1.4314\t100\t81.000\t77.4859\t5.7550\n"
              "28\t28\t1.4472\t100\t84.000\t78.7048\t5.7963\n"
              "29\t29\t1.4624\t100\t87.000\t79.8412\t5.8360\n"
              "30\t30\t1.4771\t100\t90.000\t80.9039\t5.8744\n"
              "31\t31\t1.4914\t100\t93.000\t81.9032\t5.9118\n"
              "32\t32\t1.5051\t100\t96.000\t82.8288\t5.9476\n"
              "33\t33\t1.5185\t100\t99.000\t83.7038\t5.9826\n"
              "\n"
              "\n"
              "Slope\t2.6123\t+/-  0.0974\t\n"
              "Chi\t160.8029\ttabulated  43.8\t\n"
              "p\t0\t\t\n"
              "h\t5.1872\t\t\n"
              "g\t0.0301\t\t\n"
              "r\t0.9178\t\t\n"
              "\n"
              "\n"
              "LD\tDose\tLower limit\tUpper limit\t\n"
              "\tmg\tmg\tmg\t\n"
              "25\t7.6591\t6.6647\t8.4171\t\n"
              "50\t13.8796\t12.4776\t15.3183\t\n"
              "75\t25.152\t22.8959\t28.4431\t\n"
              "90\t42.9506\t38.9482\t50.4012\t\n"
              "95\t59.1616\t53.2856\t71.2979\t\n"
              "99\t107.8643\t95.416\t137.3743\t\n",
              "", 0);
}

// Doses from 0.001: DoseScale 1000 heads the scaled columns; the estimates and\nthe queries are in
// the units typed. Words of the custom tab.
TEST_F(ReportCommandTest, SmallDosesAreScaledAndTheEstimatesComeBackInTheirUnits) {
    writeLineFile("scaled.mrv", R"(1,1,"","",1,"Temp.","RD","ppm",0,"0.05",0,0)", 6,
                  {{"T", "0.001", "40", "4", "10.000", "0.93325430080T"},
                   {"T", "0.002", "40", "12", "30.000", "0.93974559780T"},
                   {"T", "0.004", "40", "22", "55.000", "0.94628204535T"},
                   {"T", "0.008", "40", "32", "80.000", "0.95286395748T"}},
                  R"("","","","")");
    expectRun({"report", "scaled.mrv", "--percent", "12.5", "--dose", "0.003"},
              "Temp.\tTemp. * 1000\tLog (Temp. * 1000)\tTreated\tObserved response %\t"
              "Linear response %\tLinear probit\n"
              "0.001\t1\t0.0000\t40\t10.000\t10.5018\t3.7460\n"
              "0.002\t2\t0.3010\t40\t30.000\t28.9028\t4.4437\n"
              "0.004\t4\t0.6021\t40\t55.000\t55.6312\t5.1417\n"
              "0.008\t8\t0.9031\t40\t80.000\t79.9365\t5.8394\n"
              "\n"
              "\n"
              "Slope\t2.3179\t+/-  0.3568\t\n"
              "Chi\t0.0405\ttabulated  6\t\n"
              "p\t0.98\t\t\n"
              "h\t0.0202\t\t\n"
              "g\t0.0910\t\t\n"
              "r\t0.9996\ttabulated  0.95\t\n"
              "\n"
              "\n"
              "RD\tTemp.\tLower limit\tUpper limit\t\n"
              "\tppm\tppm\tppm\t\n"
              "25\t0.0018\t0.0013\t0.0022\t\n"
              "50\t0.0035\t0.0028\t0.0044\t\n"
              "75\t0.0068\t0.0052\t0.0104\t\n"
              "90\t0.0124\t0.0085\t0.0239\t\n"
              "95\t0.0178\t0.0114\t0.0397\t\n"
              "99\t0.035\t0.0193\t0.1035\t\n"
              "12.5\t0.0011\t0.0007\t0.0015\t\n"
              "44.12\t0.003\t0.0024\t0.0038\t\n",
              "", 0);
}

// Fewer respond at higher doses: the reverse slope is accepted. The dose of 99%\nis the small one;
// a dose outside answers "False".
TEST_F(ReportCommandTest, ReverseSlopeIsCalculatedAndItsQueriesAnswerFalseOutside) {
    writeLineFile("reverse.mrv", R"(1,0,"mg","",1,"Dose","LD","",0,"0.05",0,0)", 6,
                  {{"T", "1", "50", "45", "90.000", "1.00000000000T"},
                   {"T", "2", "50", "33", "66.000", "1.00695555006T"},
                   {"T", "4", "50", "20", "40.000", "1.01395947979T"},
                   {"T", "8", "50", "8", "16.000", "1.02101212571T"}},
                  R"("","","","")");
    expectRun({"report", "reverse.mrv", "--dose", "3", "--dose", "20", "--dose", "0.1"},
              "Dose\tDose * 1\tLog (Dose * 1)\tTreated\tObserved response %\tLinear response %\t"
              "Linear probit\n"
              "1\t1\t0.0000\t50\t90.000\t88.8245\t6.2175\n"
              "2\t2\t0.3010\t50\t66.000\t68.2695\t5.4753\n"
              "4\t4\t0.6021\t50\t40.000\t39.4688\t4.7329\n"
              "8\t8\t0.9031\t50\t16.000\t15.6473\t3.9907\n"
              "\n"
              "\n"
              "Slope\t-2.4657\t+/-  0.3247\t\n"
              "Chi\t0.1994\ttabulated  6\t\n"
              "p\t0.9051\t\t\n"
              "h\t0.0997\t\t\n"
              "g\t0.0666\t\t\n"
              "r\t-0.9986\ttabulated  0.95\t\n"
              "\n"
              "\n"
              "LD\tDose\tLower limit\tUpper limit\t\n"
              "\tmg\tmg\tmg\t\n"
              "25\t5.8523\t4.7024\t8.0306\t\n"
              "50\t3.1172\t2.5884\t3.7834\t\n"
              "75\t1.6604\t1.2445\t2.0405\t\n"
              "90\t0.9419\t0.6007\t1.2546\t\n"
              "95\t0.6709\t0.3843\t0.9478\t\n"
              "99\t0.3551\t0.1649\t0.5649\t\n"
              "51.64\t3\t2.4856\t3.6292\t\n"
              "2.37\t20\t13.0713\t40.2113\t\n",
              "False\n", 0);
}

// The rotenone assay in a file of the older layout: options in a record of
// twenty-two fields, replicates in a table with doses across the columns ("control"
// for the control), the first value of each in row 5. It reads into the same line.
TEST_F(ReportCommandTest, OlderLayoutReadsIntoTheSameLine) {
    const std::string empty12 = R"("","","","","","","","","","","","")";
    WriteBytes(folder.file("older.mrv"),
               "1,0,0,0,0,0\r\n"
               R"(1,"mg",0,"L",2,0,0,5,11,"","Dose","LD","",0,"0.05","","",0,0,0,"","")"
               "\r\n"
               R"("control","","2.6","","3.8","","5.1","","7.7","","10.2","")"
               "\r\n" +
                   empty12 + "\r\n" + empty12 + "\r\n" + empty12 + "\r\n" + empty12 + "\r\n" +
                   R"("49","0","50","6","48","16","46","24","49","42","50","44")"
                   "\r\n"
                   "0,0\r\n"
                   R"("")"
                   "\r\n"
                   R"("Rotenone","Macrosiphoniella sanborni","","")"
                   "\r\n");
    expectRun({"report", "older.mrv"},
              "Con.\tCon. * 1\tLog (Con. * 1)\tTreated\tObserved response %\tLinear response %\t"
              "Linear probit\n"
              "2.6\t2.6\t0.4150\t50\t12.000\t12.7684\t3.8623\n"
              "3.8\t3.8\t0.5798\t48\t33.333\t32.8458\t4.5558\n"
              "5.1\t5.1\t0.7076\t46\t52.174\t53.7287\t5.0936\n"
              "7.7\t7.7\t0.8865\t49\t85.714\t80.1320\t5.8464\n"
              "10.2\t10.2\t1.0086\t50\t88.000\t91.3014\t6.3602\n"
              "\n"
              "\n"
              "Slope\t4.2080\t+/-  0.4803\t\n"
              "Chi\t1.7328\ttabulated  7.8\t\n"
              "p\t0.6297\t\t\n"
              "h\t0.5776\t\t\n"
              "g\t0.0500\t\t\n"
              "r\t0.9892\ttabulated  0.878\t\n"
              "\n"
              "\n"
              "LC\tCon.\tLower limit\tUpper limit\t\n"
              "\tmg / L\tmg / L\tmg / L\t\n"
              "25\t3.3502\t2.8471\t3.7739\t\n"
              "50\t4.8457\t4.3641\t5.3552\t\n"
              "75\t7.0089\t6.2777\t8.0975\t\n"
              "90\t9.7707\t8.4051\t12.1718\t\n"
              "95\t11.9196\t9.9496\t15.6266\t\n"
              "99\t17.3058\t13.5868\t25.0888\t\n",
              "", 0);
}

// --- Lines that are refused -------------------------------------------------------------

// A line that the calculation refuses: its file (options record, columns of the
// table and rows; no notes) and the whole standard error. Nothing is written to the
// standard output and the exit status is 1.
struct RefusedLine {
    std::string name;
    std::string options;
    int columns;
    std::vector<std::vector<std::string>> rows;
    std::string err;
};

// Names the case in the test's listing.
void PrintTo(const RefusedLine& line, std::ostream* out) {
    *out << line.name;
}

class RefusedLineTest : public ReportCommandTest,
                        public ::testing::WithParamInterface<RefusedLine> {};

TEST_P(RefusedLineTest, IsToldAndMakesNoTables) {
    const RefusedLine& line = GetParam();
    writeLineFile(line.name + ".mrv", line.options, line.columns, line.rows, R"("","","","")");
    expectRun({"report", line.name + ".mrv"}, "", line.err, 1);
}

const RefusedLine kRefusedLines[] = {
    // Two doses: Calculate would be disabled.
    {"two",
     R"(1,0,"mg","",1,"Dose","LD","",0,"0.05",0,0)",
     6,
     {{"T", "1", "20", "5", "25.000", "1.00000000000T"},
      {"T", "2", "20", "12", "60.000", "1.00695555006T"}},
     "Can't calculate two\n"},
    // All 20 of 20 respond at 4 mg: a corrected 100% is refused.
    {"hundred",
     R"(1,0,"mg","",1,"Dose","LD","",0,"0.05",0,0)",
     6,
     {{"T", "1", "20", "5", "25.000", "1.00000000000T"},
      {"T", "2", "20", "12", "60.000", "1.00695555006T"},
      {"T", "4", "20", "20", "100.000", "1.01395947979T"}},
     "Your data contain unacceptable values and can't be calculated\n"
     "Corrected response percentage more than 99.9% or less than 0.1% cant be calculated.\n"},
    // A control for each treatment, and 4 h has its control only.
    {"onlycontrol",
     R"(2,0,"hour","",3,"Dose","LD","",0,"0.05",0,0)",
     4,
     {{"T", "1", "10.000", "1.00000000000T"},
      {"T", "2", "40.000", "1.00695555006T"},
      {"C", "4", "5.000", "1.01395947979C"},
      {"T", "8", "90.000", "1.02101212571T"}},
     "Morvane detected missing data\n"
     "line no. 3 which is labeled 4\n"
     "has only control value.\n"
     "Please add treated value or remove all the replicates of this point.\n"},
    // "10", "10.0" and "10.00" are three doses to the response table, with one log
    // dose: the slope would be infinite.
    {"samedose",
     R"(1,0,"mg","",1,"Dose","LD","",0,"0.05",0,0)",
     6,
     {{"T", "10", "20", "5", "25.000", "1.02329299228T"},
      {"T", "10.0", "20", "10", "50.000", "1.02329299228T"},
      {"T", "10.00", "20", "15", "75.000", "1.02329299228T"}},
     "Your data Revealed an illegal slope\n"
     "it has an infinite value\n"
     "so your data can't be calculated\n"},
    // Responses of 50, 50.001 and 50.002% over two decades.
    {"flat",
     R"(2,0,"mg","",1,"Dose","LD","",0,"0.05",0,0)",
     4,
     {{"T", "1", "50.000", "1.00000000000T"},
      {"T", "10", "50.001", "1.02329299228T"},
      {"T", "100", "50.002", "1.04712854805T"}},
     "Your data revealed an extreme flat slope\n"
     "it is less than 0.0001\n"
     "Morvane can't calculate it\n"},
    // From 10% to 90% between 1 and 1.0002 mg.
    {"steep",
     R"(1,0,"mg","",1,"Dose","LD","",0,"0.05",0,0)",
     6,
     {{"T", "1", "20", "2", "10.000", "1.00000000000T"},
      {"T", "1.0001", "20", "10", "50.000", "1.00000099995T"},
      {"T", "1.0002", "20", "18", "90.000", "1.00000199980T"}},
     "Your data revealed an extreme large slope\n"
     "it is more than  1000\n"
     "Morvane can't calculate it\n"},
    // Every dose kills half: the correlation of the provisional line divides by zero.
    {"even",
     R"(1,0,"mg","",1,"Dose","LD","",0,"0.05",0,0)",
     6,
     {{"T", "1", "20", "10", "50.000", "1.00000000000T"},
      {"T", "2", "20", "10", "50.000", "1.00695555006T"},
      {"T", "4", "20", "10", "50.000", "1.01395947979T"}},
     "Morvane stopped the calculation:\n"
     "every dose gives the same probit, so the correlation r divides by zero.\n"
     "No results were made.\n"},
};

INSTANTIATE_TEST_SUITE_P(Report, RefusedLineTest, ::testing::ValuesIn(kRefusedLines),
                         [](const ::testing::TestParamInfo<RefusedLine>& info) {
                             return info.param.name;
                         });

// Queries the results window refuses: percents of 0, 100 and 0.05 are out of\nscale; what the boxes
// can't take (a letter, a second point, a comma, an\nexponent, a sign, nothing) is an invalid
// value; a dose of 0 or one above the\ndose of 99% is out of scale.
TEST_F(ReportCommandTest, RefusedQueriesAreToldAndAddNoRow) {
    writeLineFile("refusedqueries.mrv", R"(1,0,"mg","",1,"Dose","LD","",0,"0.05",0,0)", 6,
                  {{"T", "1", "50", "5", "10.000", "1.00000000000T"},
                   {"T", "2", "50", "15", "30.000", "1.00695555006T"},
                   {"T", "4", "50", "30", "60.000", "1.01395947979T"},
                   {"T", "8", "50", "42", "84.000", "1.02101212571T"}},
                  R"("","","","")");
    expectRun({"report",    "refusedqueries.mrv",
               "--percent", "0",
               "--percent", "100",
               "--percent", "0.05",
               "--percent", "abc",
               "--percent", "1.2.3",
               "--percent", "12,5",
               "--dose",    "1e3",
               "--dose",    "0",
               "--dose",    "-2",
               "--dose",    "1000",
               "--percent", ""},
              "Dose\tDose * 1\tLog (Dose * 1)\tTreated\tObserved response %\tLinear response %\t"
              "Linear probit\n"
              "1\t1\t0.0000\t50\t10.000\t10.0374\t3.7205\n"
              "2\t2\t0.3010\t50\t30.000\t30.1920\t4.4811\n"
              "4\t4\t0.6021\t50\t60.000\t59.5593\t5.2419\n"
              "8\t8\t0.9031\t50\t84.000\t84.1918\t6.0025\n"
              "\n"
              "\n"
              "Slope\t2.5269\t+/-  0.3287\t\n"
              "Chi\t0.0061\ttabulated  6\t\n"
              "p\t0.9969\t\t\n"
              "h\t0.0031\t\t\n"
              "g\t0.0650\t\t\n"
              "r\t1.0000\ttabulated  0.95\t\n"
              "\n"
              "\n"
              "LD\tDose\tLower limit\tUpper limit\t\n"
              "\tmg\tmg\tmg\t\n"
              "25\t1.7355\t1.317\t2.1199\t\n"
              "50\t3.2089\t2.6755\t3.8855\t\n"
              "75\t5.9331\t4.7831\t8.0928\t\n"
              "90\t10.3166\t7.6514\t16.5187\t\n"
              "95\t14.365\t10.0526\t25.525\t\n"
              "99\t26.7277\t16.6592\t58.1291\t\n",
              "This value is out of scale\n"
              "This value is out of scale\n"
              "This value is out of scale\n"
              "invaled value!\n"
              "invaled value!\n"
              "invaled value!\n"
              "invaled value!\n"
              "This value is out of scale\n"
              "invaled value!\n"
              "This value is out of scale\n"
              "invaled value!\n",
              0);
}

// --- Files that can't be read -------------------------------------------------------------

TEST_F(ReportCommandTest, MissingFileIsAnOpeningError) {
    expectRun({"report", "absent.mrv"}, "",
              "An error occurred while opening this file.\nNo such file or directory\n", 2);
}

TEST_F(ReportCommandTest, FileThatIsNoLineFileIsAnOpeningError) {
    WriteBytes(folder.file("notes.mrv"), "hello\r\n");
    expectRun({"report", "notes.mrv"}, "",
              "An error occurred while opening this file.\n\"hello\" is not a number (line 1, "
              "field 1)\n",
              2);
}

TEST_F(ReportCommandTest, FileThatEndsEarlyIsAnOpeningError) {
    WriteBytes(folder.file("short.mrv"), "2,\"\",\"\",\"\",\"\",\"\"\r\n");
    expectRun({"report", "short.mrv"}, "",
              "An error occurred while opening this file.\nthe file ends before its last field "
              "(line 2, field 1)\n",
              2);
}

}  // namespace
}  // namespace morvane
