#include "cli/CompareCommand.h"

#include <unistd.h>

#include <deque>
#include <filesystem>
#include <iostream>
#include <optional>

#include "cli/ChartFiles.h"
#include "cli/CliCommand.h"
#include "cli/ConsoleUserPort.h"
#include "core/Fault.h"
#include "core/SharedRegisters.h"
#include "document/LineDocument.h"
#include "relative/DocumentLineCalculator.h"
#include "relative/LineBatch.h"
#include "relative/RelativeExport.h"
#include "relative/Rtvin.h"
#include "results/LineResults.h"
#include "results/ResultsExport.h"
#include "results/ResultsWorkbook.h"
#include "results/TextMeasurer.h"

namespace morvane::cli {

namespace {

constexpr int kRefused = 2;
constexpr int kFailed = 1;

// The console port that answers the comparison window's file dialog with the files
// of the command line, one after the other, and then cancels. It also keeps the
// progress line, which it clears before any message, so that a message starts a line
// of its own.
class ComparePort : public ConsoleUserPort {
  public:
    ComparePort(std::ostream& err, std::ostream* progress)
        : ConsoleUserPort(err), progress_(progress) {}
    std::deque<std::string> files;

    std::optional<std::string> openFileName(const FileDialog&) override {
        if (files.empty())
            return std::nullopt;
        std::string next = std::move(files.front());
        files.pop_front();
        return next;
    }
    Answer ask(const Message& message) override {
        clearProgress();
        return ConsoleUserPort::ask(message);
    }

    void showProgress(const BatchProgress& p) {
        if (!progress_)
            return;
        *progress_ << "\r\033[Kline " << p.line << " of " << p.lines << ": " << p.name
                   << std::flush;
        progressShown_ = true;
    }
    void clearProgress() {
        if (!progressShown_)
            return;
        *progress_ << "\r\033[K" << std::flush;
        progressShown_ = false;
    }

  private:
    std::ostream* progress_;
    bool progressShown_ = false;
};

// The value must be typable into the field: the window drops other keys.
bool Typable(RtvinFocus field, const std::string& value, const std::string& option,
             std::ostream& err) {
    for (const char key : value) {
        if (key == kBackspaceKey || key == kReturnKey || !Rtvin::KeyAccepted(field, key)) {
            const bool digitsOnly = field == RtvinFocus::Text3 || field == RtvinFocus::Text4;
            err << "compare: " << option << " \"" << value << "\": only digits"
                << (digitsOnly ? "" : ", the point and the comma") << " can be typed there\n";
            return false;
        }
    }
    return true;
}

// Picks the reference of a list: "first", "last" or the first item of that name.
bool ChooseReference(ListControl& list, const std::string& reference, const std::string& option,
                     std::ostream& err) {
    if (reference == "first") {
        list.listIndex = 0;
        return true;
    }
    if (reference == "last") {
        list.listIndex = list.lastIndex();
        return true;
    }
    for (int i = 1; i < list.lastIndex(); ++i) {
        if (list.items[static_cast<std::size_t>(i)] == reference) {
            list.listIndex = i;
            return true;
        }
    }
    err << "compare: " << option << " \"" << reference << "\": no line of that name\n";
    return false;
}

// Sets the window's controls as a user would, in the order of the window. Returns
// false when the window refused a value; its message has been written.
bool SetOptions(Rtvin& rtvin, const CompareRequest& request, ComparePort& port, std::ostream& err) {
    const int before = port.written();
    auto refused = [&] { return port.written() != before; };

    if (request.abbreviation) {
        rtvin.Combo1.text = *request.abbreviation;
        rtvin.Combo1LostFocus();
    }
    if (request.percent) {
        if (!Typable(RtvinFocus::Text1, *request.percent, "--percent", err))
            return false;
        rtvin.Text1.text = *request.percent;
        rtvin.Text1LostFocus(port);
        if (refused())
            return false;
    }

    if (!request.limits)
        rtvin.Check3Click(false);
    if (!request.significance && rtvin.Check1.enabled)
        rtvin.Check1.checked = false;
    if (!request.index)
        rtvin.Check4Click(false);
    if (!request.ratio)
        rtvin.Check5Click(false);
    if (!request.slope)
        rtvin.Check2.checked = false;
    if (request.slopeError)
        rtvin.Check7.checked = true;

    if (request.replaceAdded) {
        while (!rtvin.List1.items.empty()) {
            rtvin.List1Click(0);
            rtvin.Command3Click();
        }
    }
    for (const std::string& value : request.added) {
        if (!Typable(RtvinFocus::Text2, value, "--add", err))
            return false;
        rtvin.Text2Change(value);
        rtvin.Command2Click(port);
        if (refused())
            return false;
    }

    if (request.from) {
        if (!Typable(RtvinFocus::Text4, *request.from, "--from", err))
            return false;
        rtvin.Text4.text = *request.from;
        rtvin.Text4LostFocus(port);
        if (refused())
            return false;
    }
    if (request.to) {
        if (!Typable(RtvinFocus::Text3, *request.to, "--to", err))
            return false;
        rtvin.Text3.text = *request.to;
        rtvin.Text3LostFocus(port);
    }
    return !refused();
}

}  // namespace

namespace {

// The workbook and the chart that the request asks for beside the table text.
bool WriteCompareFiles(const CompareRequest& request, Rtvout& rtvout, SharedRegisters& shared,
                       UserPort& port, std::ostream& err) {
    if (!request.workbook.empty()) {
        std::string bytes;
        try {
            bytes = ComposeResultsWorkbook(RelativeTableText(rtvout), TextTable(0, 0), {});
        } catch (const Fault& failure) {
            err << kSaveFailed << '\n' << failure.what() << '\n';
            return false;
        }
        if (!WriteResultFile(request.workbook, bytes, err))
            return false;
    }
    return request.chart.empty() || WriteComparisonChart(request.chart, rtvout, shared, port, err);
}

}  // namespace

int CompareLines(const CompareRequest& request, std::ostream& out, std::ostream& err) {
    SharedRegisters shared;
    ComparePort port(err, request.progress);
    Rtvin rtvin;
    if (!SetOptions(rtvin, request, port, err))
        return kRefused;

    const int before = port.written();
    port.files.assign(request.files.begin(), request.files.end());
    rtvin.Command1Click(port);
    if (port.written() != before)
        return kRefused;  // a file title the window can't make a name of
    if (!ChooseReference(rtvin.Combo3, request.indexReference, "--index-ref", err) ||
        !ChooseReference(rtvin.Combo4, request.ratioReference, "--rr-ref", err))
        return kRefused;

    const FixedWidthTextMeasurer measurer;
    LineDocument document(shared, port, std::string());
    LineResults results(shared, port, measurer);
    DocumentLineCalculator calculator(document, results);

    BatchHooks hooks;
    hooks.progress = [&port](const BatchProgress& p) { port.showProgress(p); };
    hooks.showResults = [&] {
        port.clearProgress();
        WriteRelativeTable(*rtvin.rtvout(), out);
    };
    const BatchOutcome outcome = RunComparison(rtvin, shared, calculator, port, hooks);
    port.clearProgress();
    switch (outcome) {
        case BatchOutcome::Shown:
            return WriteCompareFiles(request, *rtvin.rtvout(), shared, port, err) ? 0 : kFailed;
        case BatchOutcome::LimitsInvalid:
            return kRefused;
        case BatchOutcome::Cancelled:
        case BatchOutcome::Failed:
            break;
    }
    return kFailed;
}

int RunCompare(const std::vector<std::string>& args, std::ostream& out, std::ostream& err) {
    CompareRequest request;
    bool optionsEnded = false;
    for (std::size_t i = 0; i < args.size(); ++i) {
        const std::string& arg = args[i];
        if (optionsEnded || arg.empty() || arg[0] != '-' || arg == "-") {
            request.files.push_back(arg);
            continue;
        }
        if (arg == "--") {
            optionsEnded = true;
            continue;
        }
        if (arg == "--help")
            return kShowHelp;
        std::string* value = nullptr;
        auto given = [](std::optional<std::string>& field) { return &field.emplace(); };
        if (arg == "--abbreviation") {
            value = given(request.abbreviation);
        } else if (arg == "--percent") {
            value = given(request.percent);
        } else if (arg == "--index-ref") {
            value = &request.indexReference;
        } else if (arg == "--rr-ref") {
            value = &request.ratioReference;
        } else if (arg == "--xlsx") {
            value = &request.workbook;
        } else if (arg == "--chart") {
            value = &request.chart;
        } else if (arg == "--from") {
            value = given(request.from);
        } else if (arg == "--to") {
            value = given(request.to);
        } else if (arg == "--add") {
            request.replaceAdded = true;
            request.added.emplace_back();
            value = &request.added.back();
        } else if (arg == "--no-add") {
            request.replaceAdded = true;
        } else if (arg == "--no-limits") {
            request.limits = false;
        } else if (arg == "--no-significance") {
            request.significance = false;
        } else if (arg == "--no-index") {
            request.index = false;
        } else if (arg == "--no-rr") {
            request.ratio = false;
        } else if (arg == "--no-slope") {
            request.slope = false;
        } else if (arg == "--slope-error") {
            request.slopeError = true;
        } else {
            return kWrongUsage;
        }
        if (value) {
            if (i + 1 >= args.size())
                return kWrongUsage;
            *value = args[++i];
        }
    }
    if (request.files.empty())
        return kWrongUsage;
    if (!request.chart.empty() && !ChartFileNameIsGood("compare", request.chart, err))
        return kRefused;
    // A folder would only fail later in the reading, with the system's terse words.
    for (const std::string& file : request.files) {
        std::error_code error;
        if (std::filesystem::is_directory(file, error)) {
            err << "compare: \"" << file
                << "\" is a folder; compare wants line files. Name the files, for example \""
                << (std::filesystem::path(file) / "*.mrv").string() << "\".\n";
            return kRefused;
        }
    }
    if (&err == &std::cerr && ::isatty(STDERR_FILENO))
        request.progress = &err;
    return CompareLines(request, out, err);
}

}  // namespace morvane::cli
