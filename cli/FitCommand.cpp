#include "cli/FitCommand.h"

#include <ostream>

#include "cli/CliCommand.h"
#include "cli/ConsoleUserPort.h"
#include "cli/ReportCommand.h"
#include "core/NumberText.h"
#include "core/SharedRegisters.h"
#include "document/FileBytes.h"
#include "document/LineDocument.h"
#include "relative/LikelihoodData.h"
#include "relative/LikelihoodTables.h"
#include "relative/LineRatios.h"

namespace morvane::cli {

const char* const kFitUsage =
    "  fit FILE.mrv... [--model probit|logit] [--natural-response none|estimate|VALUE]\n"
    "      [--percent P]... [--reference N] [--json]\n"
    "      The maximum-likelihood analysis of each line beside the classical one:\n"
    "      P = C + (1 - C) F(a + b log10(dose)), F the normal (probit) or logistic\n"
    "      (logit) distribution, C the natural response. Prints intercept a and\n"
    "      slope b with their standard errors and covariance, the log-likelihood,\n"
    "      Pearson's chi-square with its degrees of freedom and p, h = chi-square /\n"
    "      df, the iterations, and the dose at each percent with 95% limits by\n"
    "      Fieller's theorem. When chi-square is significant (p below 0.05) the\n"
    "      data scatter more than the binomial allows: the variances are multiplied\n"
    "      by h and t with df degrees of freedom replaces the normal deviate, which\n"
    "      widens the limits; the table says so. Counts are needed: a line typed as\n"
    "      response percentages can't be fitted.\n"
    "        --model M             probit (the default) or logit\n"
    "        --natural-response C  none: C = 0 (the default, control rows unused);\n"
    "                              estimate: C fitted from the control rows and the\n"
    "                              treated rows together; a proportion from 0 to\n"
    "                              below 1: C fixed at it\n"
    "        --percent P           a percent response over the natural one, above\n"
    "                              0 and below 100; repeatable [25 50 75 90 95 99]\n"
    "        --reference N         with two files or more, the line that the others\n"
    "                              are compared with, by its place in the list [1]\n"
    "        --json                one JSON object with every figure at full\n"
    "                              precision instead of the tables: model,\n"
    "                              natural_response, lines (each line's fit and\n"
    "                              estimates) and comparison (ratios, tests,\n"
    "                              potency); docs/fit-json.md tells every member\n"
    "      With two files or more: each line's LD over the reference's at each\n"
    "      percent [50], with limits (the ratio test: the lines differ when the\n"
    "      limits exclude 1); the likelihood-ratio tests of parallelism (the same\n"
    "      slope) and equality (the same line) with chi-square, df and p; and where\n"
    "      the lines are parallel, the potency of each relative to the reference\n"
    "      (the reference's LD over the line's) from the common slope, with limits.\n";

namespace {

struct LoadedLine {
    std::string name;
    std::string file;
    std::string estimateWord;
    std::string unitWord;
    std::vector<DoseGroup> groups;
};

// Reads one line file; 0 when it was read, else the exit status.
int LoadLine(const std::string& path, LoadedLine& line, std::ostream& err) {
    SharedRegisters shared;
    ConsoleUserPort port(err);
    const std::string title = ShortFileName(path);
    port.setQuietText(OlderVersionLines(title));
    LineDocument document(shared, port, std::string());
    if (!document.OpenLineFile(path))
        return 2;
    line.name = LineName(title);
    line.file = path;
    line.estimateWord = shared.EstimateWord;
    line.unitWord = shared.UnitWord;
    LineGroups groups = DoseGroupsOf(document.Grid1(), document.fileOptions().controls.dataType());
    if (!groups.message.empty()) {
        err << "Can't fit " << line.name << ": " << groups.message << '\n';
        return 1;
    }
    line.groups = std::move(groups.groups);
    return 0;
}

bool ParsePercent(const std::string& text, double& value) {
    const auto number = ParseNumber(text);
    if (!number || !(*number > 0 && *number < 100))
        return false;
    value = *number;
    return true;
}

}  // namespace

int FitLines(const FitRequest& request, std::ostream& out, std::ostream& err) {
    std::vector<LoadedLine> lines(request.files.size());
    for (std::size_t k = 0; k < request.files.size(); ++k) {
        if (const int status = LoadLine(request.files[k], lines[k], err))
            return status;
    }
    std::vector<double> percents = request.percents;
    if (percents.empty())
        percents = {25, 50, 75, 90, 95, 99};
    std::vector<LikelihoodLineReport> reports;
    for (const LoadedLine& line : lines) {
        LikelihoodLineReport report{line.name,
                                    line.estimateWord,
                                    line.unitWord,
                                    FitLikelihoodLine(line.groups, request.options),
                                    {}};
        if (!report.fit.converged) {
            err << "Can't fit " << line.name << ": " << report.fit.message << '\n';
            return 1;
        }
        for (const double percent : percents)
            report.estimates.push_back(LikelihoodDoseAt(report.fit, percent));
        reports.push_back(std::move(report));
    }
    std::vector<LineComparison> comparisons;
    if (lines.size() > 1) {
        std::vector<std::vector<DoseGroup>> groups;
        for (const LoadedLine& line : lines)
            groups.push_back(line.groups);
        for (const double percent : request.percents.empty() ? std::vector<double>{50} : percents) {
            LineComparison comparison =
                CompareLikelihoodLines(groups, request.reference, percent, request.options);
            if (!comparison.done) {
                err << "Can't compare the lines: " << comparison.message << '\n';
                return 1;
            }
            comparisons.push_back(std::move(comparison));
        }
    }
    if (request.json)
        out << LikelihoodJson(reports, comparisons, request.options) << '\n';
    else
        out << LikelihoodText(reports, comparisons, request.options);
    return 0;
}

int RunFit(const std::vector<std::string>& args, std::ostream& out, std::ostream& err) {
    FitRequest request;
    std::string reference = "1";
    for (std::size_t i = 0; i < args.size(); ++i) {
        const std::string& arg = args[i];
        if (arg == "--help")
            return kShowHelp;
        const bool takesValue = arg == "--model" || arg == "--natural-response" ||
                                arg == "--percent" || arg == "--reference";
        if (takesValue && i + 1 >= args.size())
            return kWrongUsage;
        if (arg == "--model") {
            const std::string& model = args[++i];
            if (model == "probit")
                request.options.model = LinkModel::Probit;
            else if (model == "logit")
                request.options.model = LinkModel::Logit;
            else
                return kWrongUsage;
        } else if (arg == "--natural-response") {
            const std::string& value = args[++i];
            if (value == "none") {
                request.options.natural = {NaturalResponse::Kind::None, 0};
            } else if (value == "estimate") {
                request.options.natural = {NaturalResponse::Kind::Estimated, 0};
            } else {
                const auto c = ParseNumber(value);
                if (!c || !(*c >= 0 && *c < 1)) {
                    err << "The natural response must be none, estimate or a proportion from 0 "
                           "to below 1: "
                        << value << '\n';
                    return 2;
                }
                request.options.natural = {NaturalResponse::Kind::Fixed, *c};
            }
        } else if (arg == "--percent") {
            double percent = 0;
            if (!ParsePercent(args[++i], percent)) {
                err << "A percent must lie above 0 and below 100: " << args[i] << '\n';
                return 2;
            }
            request.percents.push_back(percent);
        } else if (arg == "--reference") {
            reference = args[++i];
        } else if (arg == "--json") {
            request.json = true;
        } else if (arg.size() > 1 && arg[0] == '-') {
            return kWrongUsage;
        } else {
            request.files.push_back(arg);
        }
    }
    if (request.files.empty())
        return kWrongUsage;
    const auto number = ParseNumber(reference);
    if (!number || *number != static_cast<int>(*number) || *number < 1 ||
        *number > static_cast<double>(request.files.size())) {
        err << "The reference must be the number of one of the " << request.files.size()
            << " files: " << reference << '\n';
        return 2;
    }
    request.reference = static_cast<int>(*number) - 1;
    return FitLines(request, out, err);
}

}  // namespace morvane::cli
