#include "cli/ImportCommand.h"

#include <filesystem>
#include <ostream>

#include "cli/CliCommand.h"
#include "cli/ConsoleUserPort.h"
#include "core/SharedRegisters.h"
#include "document/FileBytes.h"
#include "document/ImportWorkbook.h"
#include "document/LineDocument.h"
#include "document/LineFileChecks.h"

namespace morvane::cli {

int ImportLine(const ImportRequest& request, std::ostream& out, std::ostream& err) {
    std::error_code ignored;
    if (!request.force && std::filesystem::exists(request.out, ignored)) {
        err << request.out << " exists; give --force to replace it\n";
        return 2;
    }
    SharedRegisters shared;
    ConsoleUserPort port(err);
    // The note that an older file will be saved in the current layout is not about
    // the new line.
    port.setQuietText(OlderVersionLines(ShortFileName(request.options)));
    LineDocument document(shared, port, std::string());
    if (!document.OpenLineFile(request.options))
        return 2;
    port.setQuietText(std::string());
    // The options dialog's OK, unseen: an empty line laid out for the file's options.
    document.FileOptionsOK();

    const int before = port.written();
    const ImportOutcome outcome =
        ImportDataFile(document, port, request.data, SheetChoice{request.sheet, request.header});
    if (outcome.failed || port.written() != before)
        return 1;
    if (outcome.rowsTaken == 0) {
        err << "There is no row to import in " << request.data << '\n';
        return 1;
    }
    try {
        ReplaceFileContents(request.out, WriteCheckedLineFile(document.fileOptions().controls,
                                                              document.Grid1(), document.notes()));
    } catch (const std::exception& e) {
        err << "Can't save " << request.out << '\n' << e.what() << '\n';
        return 1;
    }
    out << outcome.rowsTaken << (outcome.rowsTaken == 1 ? " row" : " rows") << " imported into "
        << request.out << '\n';
    return 0;
}

int RunImport(const std::vector<std::string>& args, std::ostream& out, std::ostream& err) {
    ImportRequest request;
    bool haveData = false;
    for (std::size_t i = 0; i < args.size(); ++i) {
        const std::string& arg = args[i];
        if (arg == "--help")
            return kShowHelp;
        if (arg == "--options" || arg == "--out" || arg == "--sheet") {
            if (i + 1 >= args.size())
                return kWrongUsage;
            std::string& target = arg == "--options" ? request.options
                                  : arg == "--out"   ? request.out
                                                     : request.sheet;
            target = args[++i];
        } else if (arg == "--header") {
            request.header = true;
        } else if (arg == "--force") {
            request.force = true;
        } else if (arg.size() > 1 && arg[0] == '-') {
            return kWrongUsage;
        } else if (!haveData) {
            request.data = arg;
            haveData = true;
        } else {
            return kWrongUsage;
        }
    }
    if (!haveData || request.options.empty() || request.out.empty())
        return kWrongUsage;
    return ImportLine(request, out, err);
}

}  // namespace morvane::cli
