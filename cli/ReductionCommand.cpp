#include "cli/ReductionCommand.h"

#include <ostream>
#include <string_view>

#include "calculators/ReductionCalculator.h"
#include "cli/CliCommand.h"
#include "cli/ConsoleUserPort.h"
#include "core/NumberText.h"

namespace morvane::cli {

namespace {

using Tab = ReductionCalculator::Tab;

const char* const kInvalidValue = "invaled value!";

struct Formula {
    std::string_view name;
    Tab tab;
};

constexpr Formula kFormulas[] = {
    {"abbott", Tab::Abbott},
    {"henderson-tilton", Tab::HendersonTilton},
    {"schneider-orelli", Tab::SchneiderOrelli},
    {"sun-shepard", Tab::SunShepard},
};

// What the boxes would hold of the value: digits, the decimal point and the minus
// sign, and a number unless it is empty. The boxes also take the comma, which
// never makes a number, so it is refused here at once.
bool AcceptableValue(const std::string& value) {
    for (const char c : value)
        if (!((c >= '0' && c <= '9') || c == '.' || c == '-'))
            return false;
    return value.empty() || ParseNumber(value).has_value();
}

}  // namespace

int RunReduction(const std::vector<std::string>& args, std::ostream& out, std::ostream& err) {
    if (args.empty())
        return kWrongUsage;
    if (args[0] == "--help")
        return kShowHelp;
    const Formula* formula = nullptr;
    for (const Formula& f : kFormulas)
        if (f.name == args[0])
            formula = &f;
    if (formula == nullptr)
        return kWrongUsage;
    const std::vector<ReductionCalculator::Box> boxes = ReductionCalculator::Boxes(formula->tab);
    const std::size_t values = args.size() - 1;
    if (values % boxes.size() != 0)
        return kWrongUsage;

    ConsoleUserPort port(err);
    ReductionCalculator calculator(port);
    bool refused = false;
    for (std::size_t first = 1; first < args.size(); first += boxes.size()) {
        bool acceptable = true;
        for (std::size_t i = 0; i < boxes.size(); ++i)
            acceptable = acceptable && AcceptableValue(args[first + i]);
        if (!acceptable) {
            port.tell(kInvalidValue);
            refused = true;
            continue;
        }
        for (std::size_t i = 0; i < boxes.size(); ++i)
            calculator.setText(boxes[i], args[first + i]);
        const int rows = calculator.grid(formula->tab).rows();
        calculator.OK(formula->tab);
        if (calculator.grid(formula->tab).rows() == rows)
            refused = true;
    }
    out << calculator.CopyTable(formula->tab);
    return refused ? 1 : 0;
}

}  // namespace morvane::cli
