#include "cli/ReportCommand.h"

#include <ostream>

#include "cli/ChartFiles.h"
#include "cli/CliCommand.h"
#include "cli/ConsoleUserPort.h"
#include "core/LineCalculation.h"
#include "core/LineFit.h"
#include "core/NumberText.h"
#include "core/SharedRegisters.h"
#include "document/FileBytes.h"
#include "document/LineDocument.h"
#include "results/LineResults.h"
#include "results/ResultsExport.h"
#include "results/ResultsWorkbook.h"
#include "results/TextMeasurer.h"

namespace morvane::cli {

namespace {

const char* const kOutOfScale = "This value is out of scale";
const char* const kInvalidValue = "invaled value!";

// Whether every character of the text is one the query boxes take.
bool TypableInQueryBox(const std::string& text) {
    if (text.empty())
        return false;
    for (const char key : text) {
        if (key == 8 || key == 13 || !ResultQueries::NumberBoxAcceptsKey(key))
            return false;
    }
    return true;
}

// One query as the user makes it: types the value into the box, leaves the box for
// "is", presses "is", and presses "Add to list >>" when it is enabled. A refusal has
// been told to the user through the port when this returns.
void RunQuery(ResultQueries& queries, const ReportQuery& query, UserPort& port) {
    // A box would swallow the other keys and calculate with what is left; here the
    // whole value is refused instead, so nothing else than what was asked is added.
    if (!TypableInQueryBox(query.value)) {
        port.tell(kInvalidValue);
        return;
    }
    const QueryPanels& panels = queries.panels();
    if (query.kind == ReportQuery::Kind::Percent) {
        queries.typeText3(query.value);
        queries.Text3LostFocus();
        if (!ParseNumber(panels.Text3))
            return;  // told "invaled value!"
        // "is" can't be pressed for 0, which is out of the scale of percents.
        if (!panels.Command3Enabled) {
            port.tell(kOutOfScale);
            return;
        }
        queries.Command3();
        if (panels.Command4Enabled)
            queries.Command4();
    } else {
        queries.typeText2(query.value);
        queries.Text2LostFocus();
        if (!ParseNumber(panels.Text2))
            return;
        // "is" can't be pressed for a dose of 0, which has no response.
        if (!panels.Command1Enabled) {
            port.tell(kOutOfScale);
            return;
        }
        queries.Command1();
        if (panels.Command2Enabled)
            queries.Command2();
    }
}

}  // namespace

std::string LineName(const std::string& fileTitle) {
    return fileTitle.size() > 4 ? fileTitle.substr(0, fileTitle.size() - 4) : std::string();
}

int ReportLine(const ReportRequest& request, std::ostream& out, std::ostream& err) {
    SharedRegisters shared;
    ConsoleUserPort port(err);
    const std::string title = ShortFileName(request.file);
    // The note that an older file will be saved in the current layout doesn't
    // concern a tool that never saves.
    port.setQuietText(OlderVersionLines(title));
    LineDocument document(shared, port, std::string());
    if (!document.OpenLineFile(request.file))
        return 2;
    port.setQuietText(std::string());

    if (!document.CalculateEnabled()) {
        err << "Can't calculate " << LineName(title) << '\n';
        return 1;
    }
    const FixedWidthTextMeasurer measurer;
    LineResults results(shared, port, measurer);
    const CalculationOutcome outcome = CalculateLine(document.calculationInput(), shared,
                                                     results.tables(), port, results.channel());
    if (outcome != CalculationOutcome::Completed)
        return 1;
    results.Activate();
    for (const ReportQuery& query : request.queries)
        RunQuery(results.queries(), query, port);
    const std::string& text = results.ComposeResultsText();
    out << text << '\n';
    // Below the tables, not in them: the tables stay the classical ones.
    if (const std::string note = UnsettledCyclesNote(shared.fit); !note.empty())
        out << note << '\n';
    if (!request.workbook.empty()) {
        try {
            ReplaceFileContents(
                request.workbook,
                ComposeResultsWorkbook(text, results.tables().Grid1, results.HeadingSingle()));
        } catch (const Fault& failure) {
            err << kSaveFailed << '\n' << failure.what() << '\n';
            return 1;
        }
    }
    if (!request.chart.empty() && !WriteLineChart(request.chart, results, shared, err))
        return 1;
    return 0;
}

int RunReport(const std::vector<std::string>& args, std::ostream& out, std::ostream& err) {
    ReportRequest request;
    bool haveFile = false;
    for (std::size_t i = 0; i < args.size(); ++i) {
        const std::string& arg = args[i];
        if (arg == "--help")
            return kShowHelp;
        if (arg == "--percent" || arg == "--dose") {
            if (i + 1 >= args.size())
                return kWrongUsage;
            const auto kind =
                arg == "--percent" ? ReportQuery::Kind::Percent : ReportQuery::Kind::Dose;
            request.queries.push_back({kind, args[++i]});
        } else if (arg == "--xlsx") {
            if (i + 1 >= args.size())
                return kWrongUsage;
            request.workbook = args[++i];
        } else if (arg == "--chart") {
            if (i + 1 >= args.size())
                return kWrongUsage;
            request.chart = args[++i];
            if (!ChartFileNameIsGood("report", request.chart, err))
                return 2;
        } else if (arg.size() > 1 && arg[0] == '-') {
            return kWrongUsage;
        } else if (!haveFile) {
            request.file = arg;
            haveFile = true;
        } else {
            return kWrongUsage;
        }
    }
    if (!haveFile)
        return kWrongUsage;
    return ReportLine(request, out, err);
}

}  // namespace morvane::cli
