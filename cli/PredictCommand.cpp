#include "cli/PredictCommand.h"

#include <optional>
#include <ostream>

#include "calculators/LinePredictor.h"
#include "cli/CliCommand.h"
#include "cli/ConsoleUserPort.h"
#include "core/NumberText.h"
#include "core/ProbitTables.h"

namespace morvane::cli {

namespace {

using Box = LinePredictor::Box;
using Button = LinePredictor::Button;

struct Query {
    bool dose;  // --dose, else --response
    std::string value;
};

struct PredictRequest {
    std::vector<std::string> points;  // D1 R1 D2 R2, or D R B
    bool twoPoints = false;
    std::vector<Query> queries;
};

// Remembers the last message, so that a command can tell which refusal it met.
class RecordingPort : public ConsoleUserPort {
  public:
    using ConsoleUserPort::ConsoleUserPort;
    Answer ask(const Message& message) override {
        last = message.text;
        return ConsoleUserPort::ask(message);
    }
    std::string last;
};

// Whether every character is one the number boxes take: they drop anything else,
// the minus sign too, and a value that lost characters would be another value.
bool TypableInBoxes(const std::string& value) {
    for (const char c : value)
        if (!((c >= '0' && c <= '9') || c == '.'))
            return false;
    return true;
}

bool IsArithmeticRefusal(const std::string& message) {
    return message == LinePredictor::kDoseOfZero || message == LinePredictor::kFlatLine ||
           message == LinePredictor::kDoseTooLarge;
}

std::optional<PredictRequest> ParseArguments(const std::vector<std::string>& args) {
    PredictRequest request;
    bool havePoints = false, havePoint = false, haveSlope = false;
    std::string slope;
    for (std::size_t i = 0; i < args.size(); ++i) {
        const std::string& arg = args[i];
        auto take = [&](std::size_t count, std::vector<std::string>& into) {
            if (i + count >= args.size())
                return false;
            for (std::size_t k = 0; k < count; ++k) {
                if (args[i + 1 + k].empty())
                    return false;
                into.push_back(args[i + 1 + k]);
            }
            i += count;
            return true;
        };
        std::vector<std::string> values;
        if (arg == "--points" && !havePoints && !havePoint) {
            if (!take(4, request.points))
                return std::nullopt;
            havePoints = true;
        } else if (arg == "--point" && !havePoints && !havePoint) {
            if (!take(2, request.points))
                return std::nullopt;
            havePoint = true;
        } else if (arg == "--slope" && !havePoints && !haveSlope) {
            if (!take(1, values))
                return std::nullopt;
            slope = values[0];
            haveSlope = true;
        } else if (arg == "--dose" || arg == "--response") {
            if (!take(1, values))
                return std::nullopt;
            request.queries.push_back({arg == "--dose", values[0]});
        } else {
            return std::nullopt;
        }
    }
    if (havePoint != haveSlope || (!havePoints && !havePoint))
        return std::nullopt;
    if (havePoint)
        request.points.push_back(slope);
    request.twoPoints = havePoints;
    return request;
}

}  // namespace

int RunPredict(const std::vector<std::string>& args, std::ostream& out, std::ostream& err) {
    for (const std::string& arg : args)
        if (arg == "--help")
            return kShowHelp;
    const std::optional<PredictRequest> request = ParseArguments(args);
    if (!request)
        return kWrongUsage;

    RecordingPort port(err);
    ProbitTables probit;
    LinePredictor calculator(probit, port);

    // The line: each value typed into its box, and the box left.
    const std::vector<Box> pointBoxes =
        request->twoPoints ? std::vector<Box>{Box::Text1, Box::Text2, Box::Text3, Box::Text4}
                           : std::vector<Box>{Box::Text7, Box::Text8, Box::Text9};
    for (const std::string& value : request->points) {
        if (!TypableInBoxes(value)) {
            port.tell(LinePredictor::kOnlyNumbers);
            return 1;
        }
    }
    for (std::size_t i = 0; i < pointBoxes.size(); ++i) {
        calculator.setText(pointBoxes[i], request->points[i]);
        if (port.written() > 0 || !calculator.leave(pointBoxes[i]))
            return 1;
    }
    const Box doseBox = request->twoPoints ? Box::Text5 : Box::Text11;
    const Box responseBox = request->twoPoints ? Box::Text6 : Box::Text10;
    if (!calculator.enabled(doseBox)) {
        port.tell("Morvane can't define a line from these values");
        return 1;
    }

    if (request->twoPoints) {
        out << "Slope\t" << calculator.Label6() << '\n';
        out << "Intercept\t" << calculator.Label9() << '\n';
    } else {
        out << "Slope\t" << PlainText(NumberOf(calculator.text(Box::Text9))) << '\n';
        out << "Intercept\t" << calculator.Label16() << '\n';
    }
    out << "Dose\tResponse %\n";

    bool fault = false;
    for (const Query& query : request->queries) {
        if (!TypableInBoxes(query.value)) {
            port.tell(LinePredictor::kOnlyNumbers);
            continue;
        }
        const Box box = query.dose ? doseBox : responseBox;
        const Button button = query.dose
                                  ? (request->twoPoints ? Button::Command2 : Button::Command6)
                                  : (request->twoPoints ? Button::Command3 : Button::Command5);
        const int before = port.written();
        calculator.setText(box, query.value);
        if (!calculator.leave(box))
            continue;
        calculator.press(button);
        if (port.written() != before) {
            fault = fault || IsArithmeticRefusal(port.last);
            continue;
        }
        if (query.dose)
            out << query.value << '\t' << calculator.text(responseBox) << '\n';
        else
            out << calculator.text(doseBox) << '\t' << query.value << '\n';
    }
    return fault ? 1 : 0;
}

}  // namespace morvane::cli
