// morvane-cli: the line analysis of Morvane from the command line. The first argument
// names the command; each command has one line in the table below.
#include <csignal>
#include <exception>
#include <iostream>
#include <string>
#include <vector>

#include "cli/CliCommand.h"
#include "cli/CompareCommand.h"
#include "cli/FitCommand.h"
#include "cli/ImportCommand.h"
#include "cli/PredictCommand.h"
#include "cli/ReductionCommand.h"
#include "cli/ReportCommand.h"

namespace {

using morvane::cli::Command;

const Command kCommands[] = {
    {"report", morvane::cli::RunReport, morvane::cli::kReportUsage},
    {"compare", morvane::cli::RunCompare, morvane::cli::kCompareUsage},
    {"reduction", morvane::cli::RunReduction, morvane::cli::kReductionUsage},
    {"predict", morvane::cli::RunPredict, morvane::cli::kPredictUsage},
    {"import", morvane::cli::RunImport, morvane::cli::kImportUsage},
    {"fit", morvane::cli::RunFit, morvane::cli::kFitUsage},
};

std::string Usage() {
    std::string usage =
        "Usage: morvane-cli COMMAND [ARGUMENTS]\n"
        "       morvane-cli --help\n"
        "       morvane-cli --version\n"
        "\n"
        "Probit analysis of dose-response bioassays, from the command line.\n"
        "\n"
        "Commands:\n";
    for (const Command& command : kCommands)
        usage += command.usage;
    usage +=
        "\n"
        "Options:\n"
        "  --help       prints this usage and exits\n"
        "  --version    prints the version and exits\n"
        "\n"
        "Exit status: 0 done; 1 the line could not be calculated, the reason told on\n"
        "standard error; 2 a file that could not be read, or wrong usage.\n";
    return usage;
}

int Dispatch(const std::vector<std::string>& args) {
    if (args.empty()) {
        std::cerr << Usage();
        return 2;
    }
    if (args[0] == "--help" && args.size() == 1) {
        std::cout << Usage();
        return 0;
    }
    if (args[0] == "--version" && args.size() == 1) {
        std::cout << "morvane-cli " << MORVANE_VERSION << '\n';
        return 0;
    }
    for (const Command& command : kCommands) {
        if (args[0] != command.name)
            continue;
        const std::vector<std::string> rest(args.begin() + 1, args.end());
        const int status = command.run(rest, std::cout, std::cerr);
        if (status == morvane::cli::kShowHelp) {
            std::cout << Usage();
            return 0;
        }
        if (status == morvane::cli::kWrongUsage) {
            std::cerr << Usage();
            return 2;
        }
        return status;
    }
    std::cerr << Usage();
    return 2;
}

}  // namespace

int main(int argc, char** argv) {
    // Past the file-size limit of the process a write fails with EFBIG and is reported
    // as a failure, instead of the signal ending the program.
    std::signal(SIGXFSZ, SIG_IGN);
    std::ios::sync_with_stdio(false);
    try {
        const int status = Dispatch(std::vector<std::string>(argv + 1, argv + argc));
        std::cout.flush();
        return std::cout ? status : 1;
    } catch (const std::exception& error) {
        std::cerr << "Morvane stopped: " << error.what() << '\n';
        return 1;
    }
}
