// Rows into and out of Grid1: Accept with its messages, AcceptRow for the readers
// and the import, Edit and Delete.
#include <cmath>

#include "core/NumberText.h"
#include "document/LineDocument.h"

namespace morvane {
namespace {

// The columns of Grid1 for a data type: label, dose, the values, the response % and
// the sort key.
int RequiredColumns(int dataType) {
    return dataType == 0 ? 7 : dataType == 1 ? 6 : 4;
}

const char* const kExtremeTail = "\nMorvane can't operate with these extreme values";
const char* const kZeroWithControls =
    "Cant accept 0 value when you have control associated each treatment.";
const char* const kRespondedAboveTotal = "Illogic data, Responded can't be greater than total";
const char* const kNilTotal = "Nil value can't be accepted as total number of individuals.";
const char* const kNoLine =
    "There is no line to take this row.\nStart a new file or open one first.";

}  // namespace

std::string SortKey(double dose, const std::string& label) {
    // The hundredth root squeezes doses from 1e-50 to 1e+50 into one fixed width, so
    // that the order of the texts is the order of the doses.
    return FormatNumber(std::pow(dose, 0.01), "0.00000000000") + label;
}

void LineDocument::appendRow(double dose, double first, double second, bool control) {
    TextTable& grid = form_.Grid1;
    const int row = grid.rows() - 1;  // the empty last row takes the new one
    const int last = grid.cols() - 1;
    grid.setText(row, 1, PlainText(dose));
    switch (options_.controls.ComboDataType) {
        case 2:
            grid.setText(row, 2, FormatNumber(first, "0.000"));
            break;
        case 1:
            grid.setText(row, 2, PlainText(first));
            grid.setText(row, 3, PlainText(second));
            grid.setText(row, 4, FormatNumber(second / first * 100, "0.000"));
            break;
        default:
            grid.setText(row, 2, PlainText(first));
            grid.setText(row, 3, PlainText(second));
            grid.setText(row, 4, PlainText(first + second));
            grid.setText(row, 5, FormatNumber(first / (first + second) * 100, "0.000"));
            break;
    }
    grid.setText(row, 0, "T");
    if (control) {
        for (int c = 2; c <= last; ++c)
            grid.setBack(row, c, kControlColor);
        grid.setText(row, 0, "C");
    }
    const std::string key = SortKey(dose, grid.text(row, 0));
    grid.setText(row, last, key);
    // The rows are sorted by their keys after each new row, stably, so a row that
    // sorts after the one before it stays where it is; otherwise the sort is done
    // once before the table is next read, with the same result.
    const bool inPlace = !sortPending_ && knownSorted_ &&
                         (row == 1 || CompareTextNoCase(key, grid.text(row - 1, last)) >= 0);
    if (!inPlace)
        sortPending_ = true;
    grid.addRow();
    grid.setCurrent(row, 2);
}

void LineDocument::CommandAccept() {
    guarded([this] {
        auto refuse = [this](const std::string& text, Focus focus) {
            port_.tell(text);
            setFocus(focus);
        };
        auto value = [](const std::string& cell, double& out) {
            const std::optional<double> v = ParseNumber(cell);
            if (v)
                out = *v;
            return v.has_value();
        };
        const int dataType = options_.controls.ComboDataType;
        if (form_.Grid1.cols() < RequiredColumns(dataType))
            return refuse(kNoLine, Focus::TextDose);

        double dose = 0;
        if (form_.TextDose.empty())
            return refuse("Missing data", Focus::TextDose);
        if (!value(form_.TextDose, dose))
            return refuse("invaled value!", Focus::TextDose);
        if (dose > 1e+40)
            return refuse(shared_.DoseWord + " value is verrry high." + kExtremeTail,
                          Focus::TextDose);
        if (dose != 0 && dose < 1e-08)
            return refuse(shared_.DoseWord + " value is verrry low." + kExtremeTail,
                          Focus::TextDose);
        if (form_.CheckCoVisible && dose == 0)
            return refuse(kZeroWithControls, Focus::TextDose);

        double first = 0, second = 0;
        if (form_.Text1input.empty())
            return refuse("Missing data", Focus::Text1input);
        if (!value(form_.Text1input, first))
            return refuse("invaled value!", Focus::Text1input);
        if (dataType == 2) {
            if (first > 100)
                return refuse("Illogic data, Response percentage can't exceed 100",
                              Focus::Text1input);
        } else {
            if (form_.Text2input.empty())
                return refuse("Missing data", Focus::Text2input);
            if (!value(form_.Text2input, second))
                return refuse("invaled value!", Focus::Text2input);
            if (dataType == 1) {
                if (second > first)
                    return refuse(kRespondedAboveTotal, Focus::Text1input);
                if (first == 0)
                    return refuse(kNilTotal, Focus::Text1input);
            } else if (first + second == 0) {
                return refuse(kNilTotal, Focus::Text1input);
            }
        }

        const bool control = form_.CheckCoVisible ? form_.CheckCo == 1 : dose == 0;
        appendRow(dose, first, second, control);
        form_.Text1input.clear();
        form_.Text2input.clear();  // TextDose keeps the dose for the next replicate
        if (form_.RowsWereRemoved == 1) {
            form_.RowsWereRemoved = 0;
            for (int r = 1; r < form_.Grid1.rows(); ++r)
                form_.Grid1.setRowHeight(r, 240);
        }
        RebuildResponseTable();
        form_.Modified = 1;
        form_.CommandSaveEnabled = true;
        setFocus(Focus::TextDose);
    });
}

bool LineDocument::AcceptRow() {
    auto refuse = [this](const std::string& text, Focus focus) {
        notify();
        port_.tell(text);
        form_.ImportRowRefused = 1;
        setFocus(focus);
        return false;
    };
    const int dataType = options_.controls.ComboDataType;
    const double dose = NumberOf(form_.TextDose);
    if (dose != 0 && (dose > 1e+50 || dose < 1e-50))
        return refuse(shared_.DoseWord + " value is verrry high or verry low." + kExtremeTail,
                      Focus::TextDose);
    if (form_.CheckCoVisible && dose == 0)
        return refuse(kZeroWithControls, Focus::TextDose);

    const double first = NumberOf(form_.Text1input);
    double second = 0;
    if (dataType == 2) {
        // The capital letter differs from Accept's message on purpose.
        if (first > 100)
            return refuse("Illogic data, Response Percentage can't exceed 100", Focus::Text1input);
    } else {
        second = NumberOf(form_.Text2input);
        if (dataType == 1) {
            if (second > first)
                return refuse(kRespondedAboveTotal, Focus::Text1input);
            if (first == 0)
                return refuse(kNilTotal, Focus::Text1input);
        } else if (first + second == 0) {
            return refuse(kNilTotal, Focus::Text1input);
        }
    }
    if (form_.Grid1.cols() < RequiredColumns(dataType))
        throw Fault("there is no line to take the row");

    const bool control = form_.CheckCoVisible ? form_.CheckCo == 1 : dose == 0;
    appendRow(dose, first, second, control);
    form_.TextDose.clear();
    form_.Text1input.clear();
    form_.Text2input.clear();
    form_.Modified = 1;
    form_.CommandSaveEnabled = true;
    return true;
}

void LineDocument::CommandEdit() {
    guarded([this] {
        TextTable& grid = form_.Grid1;
        const int row = grid.currentRow();
        if (row < 1 || row >= grid.rows() - 1)
            return;
        const std::string dose = PlainText(NumberOf(grid.text(row, 1)));
        const std::string first = PlainText(NumberOf(grid.text(row, 2)));
        form_.TextDose = dose;
        form_.Text1input = first;
        if (form_.Text2inputVisible)
            form_.Text2input = grid.text(row, 3);
        if (form_.CheckCoVisible)
            form_.CheckCo = grid.text(row, 0) == "C" ? 1 : 0;
        grid.removeRow(row);
        RebuildResponseTable();
        setFocus(Focus::Text1input);
        form_.RowsWereRemoved = 1;
        form_.Modified = 1;
        form_.CommandSaveEnabled = true;
    });
}

void LineDocument::CommandDel() {
    guarded([this] {
        TextTable& grid = form_.Grid1;
        const int row = grid.currentRow();
        if (row >= 1 && row < grid.rows() - 1) {
            const std::string response = grid.text(row, form_.PercentColumn);
            const Message question{
                "Do you want to delete the selected row with the response value " + response + "?",
                Buttons::OkCancel, Icon::Question, Answer::Cancel};
            if (port_.ask(question) == Answer::Ok) {
                grid.removeRow(row);
                RebuildResponseTable();
                form_.RowsWereRemoved = 1;
                form_.Modified = 1;
                form_.CommandSaveEnabled = true;
            }
        }
        setFocus(Focus::TextDose);
    });
}

}  // namespace morvane
