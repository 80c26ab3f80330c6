#include "calculators/ReductionCalculator.h"

#include <array>
#include <cmath>

#include "core/NumberText.h"

namespace morvane {
namespace {

using Box = ReductionCalculator::Box;
using Tab = ReductionCalculator::Tab;

constexpr int kBoxCount = 10;
// Column widths of the result tables, in twips: the running number, then the values.
constexpr int kNumberColumnWidth = 500;
constexpr int kValueColumnWidth = 1300;
const char* const kInvalidValue = "invaled value!";

// The words of the checks, behind the caption of the box's label.
const char* const kGreaterThanZero = " value must be greater than 0";
const char* const kBetweenZeroAndHundred = " value must be tween 0 and 100";
const char* const kNotHundred = " value mustn't be = 100";
const char* const kNoZero = "Can't accept 0 value";

// The captions of the labels that the messages name.
const char* const kTreated = "treated";
const char* const kControl = "control";
const char* const kChangeInControl = " Change% in control plot";

int IndexOf(Box box) {
    return static_cast<int>(box);
}
int IndexOf(Tab tab) {
    return static_cast<int>(tab);
}

// The heading of each table, column 0 empty, the result column last.
std::vector<std::string> Headings(Tab tab) {
    switch (tab) {
        case Tab::Abbott:
            return {"", "n. t. after", "n. co. after", "corrected %"};
        case Tab::HendersonTilton:
            return {"",           "n. t. before", "n. co. before", "n. t. after", "n. co. after",
                    "corrected %"};
        case Tab::SchneiderOrelli:
            return {"", "M% in t.", "M% in co.", "corrected %"};
        case Tab::SunShepard:
            return {"", "M% in t", "Change% in co", "corrected %"};
        case Tab::Guide:
            break;
    }
    return {};
}

TextTable EmptyTable(Tab tab) {
    const std::vector<std::string> headings = Headings(tab);
    TextTable table(2, static_cast<int>(headings.size()));
    for (int col = 0; col < table.cols(); ++col) {
        table.setText(0, col, headings[col]);
        table.setColumnWidth(col, col == 0 ? kNumberColumnWidth : kValueColumnWidth);
    }
    return table;
}

}  // namespace

ReductionCalculator::ReductionCalculator(UserPort& port) : port_(port), texts_(kBoxCount) {
    for (int tab = 0; tab < kFormulaCount; ++tab)
        grids_.push_back(EmptyTable(static_cast<Tab>(tab)));
}

const std::string& ReductionCalculator::text(Box box) const {
    return texts_[IndexOf(box)];
}

void ReductionCalculator::setText(Box box, std::string text) {
    texts_[IndexOf(box)] = std::move(text);
}

const TextTable& ReductionCalculator::grid(Tab tab) const {
    return grids_.at(IndexOf(tab));
}

TextTable& ReductionCalculator::table(Tab tab) {
    return grids_.at(IndexOf(tab));
}

bool ReductionCalculator::leave(Box box) {
    const std::string& current = text(box);
    if (current.empty())
        return true;
    const auto value = ParseNumber(current);
    if (!value) {
        port_.warn(kInvalidValue);
        return false;
    }
    setText(box, PlainText(*value));
    return true;
}

double ReductionCalculator::valueOf(Box box) const {
    const auto value = ParseNumber(text(box));
    if (!value)
        throw Refusal{box};
    return *value;
}

void ReductionCalculator::refuse(Box box, const std::string& text) {
    Message message{text};
    message.title = kInvalidValue;
    port_.ask(message);
    throw Refusal{box, true};
}

Box ReductionCalculator::OK(Tab tab) {
    const std::vector<Box> boxes = Boxes(tab);
    if (boxes.empty())
        return Box::Text9;
    double result = 0;
    try {
        result = resultOf(tab);
        // A division by 0 (Sun-Shepard's change of -100) or an overflow has no result:
        // it is refused with the message of a value that doesn't convert.
        if (!std::isfinite(result))
            throw Refusal{boxes.back()};
    } catch (const Refusal& refusal) {
        // Any failure of a conversion, an empty box for one, ends in the one message.
        if (!refusal.told)
            port_.warn(kInvalidValue);
        return refusal.box;
    }
    addResultRow(tab, boxes, result);
    return boxes.front();
}

// The formula of a tab over its boxes, after their checks in order; a box that fails
// its check or holds no number throws a Refusal.
double ReductionCalculator::resultOf(Tab tab) {
    switch (tab) {
        case Tab::Abbott:
            if (valueOf(Box::Text9) < 0)
                refuse(Box::Text9, std::string(kTreated) + kGreaterThanZero);
            if (valueOf(Box::Text10) <= 0)
                refuse(Box::Text10, std::string(kControl) + kGreaterThanZero);
            return (1 - valueOf(Box::Text9) / valueOf(Box::Text10)) * 100;
        case Tab::HendersonTilton:
            if (valueOf(Box::Text4) == 0)
                refuse(Box::Text4, kNoZero);
            if (valueOf(Box::Text7) == 0)
                refuse(Box::Text7, kNoZero);
            return (1 - (valueOf(Box::Text6) * valueOf(Box::Text5)) /
                            (valueOf(Box::Text4) * valueOf(Box::Text7))) *
                   100;
        case Tab::SchneiderOrelli: {
            const double treated = valueOf(Box::Text1);
            if (treated < 0 || treated > 100)
                refuse(Box::Text1, std::string(kTreated) + kBetweenZeroAndHundred);
            const double control = valueOf(Box::Text2);
            if (control < 0 || control >= 100)
                refuse(Box::Text2, std::string(kControl) + kBetweenZeroAndHundred);
            return (treated - control) / (100 - control) * 100;
        }
        case Tab::SunShepard:
            if (valueOf(Box::Text13) == 100)
                refuse(Box::Text13, std::string(kChangeInControl) + kNotHundred);
            return (valueOf(Box::Text12) + valueOf(Box::Text13)) / (valueOf(Box::Text13) + 100) *
                   100;
        case Tab::Guide:
            break;
    }
    return 0;
}

// The boxes and the result go into a new last row of the tab's table.
void ReductionCalculator::addResultRow(Tab tab, const std::vector<Box>& boxes, double result) {
    TextTable& grid = table(tab);
    const int row = grid.rows() - 1;
    grid.setCurrent(row, 0);
    grid.setText(row, 0, std::to_string(row));
    for (std::size_t i = 0; i < boxes.size(); ++i)
        grid.setText(row, static_cast<int>(i) + 1, PlainText(valueOf(boxes[i])));
    grid.setText(row, grid.cols() - 1, FormatNumber(result, "0.00"));
    grid.addRow();
}

Box ReductionCalculator::EraseAll(Tab tab) {
    if (tab == Tab::Guide)
        return Box::Text9;
    TextTable& grid = table(tab);
    grid.setRows(2);
    for (int col = 0; col < grid.cols(); ++col)
        grid.setText(1, col, "");
    for (Box box : EraseAllBoxes(tab))
        setText(box, "");
    return *FirstBox(tab);
}

std::string ReductionCalculator::CopyTable(Tab tab) const {
    const TextTable& table = grid(tab);
    std::string text;
    for (int row = 0; row < table.rows(); ++row) {
        for (int col = 0; col < table.cols(); ++col) {
            if (col > 0)
                text += '\t';
            text += table.text(row, col);
        }
        text += '\n';
    }
    return text;
}

std::vector<Box> ReductionCalculator::Boxes(Tab tab) {
    switch (tab) {
        case Tab::Abbott:
            return {Box::Text9, Box::Text10};
        case Tab::HendersonTilton:
            return {Box::Text4, Box::Text5, Box::Text6, Box::Text7};
        case Tab::SchneiderOrelli:
            return {Box::Text1, Box::Text2};
        case Tab::SunShepard:
            return {Box::Text12, Box::Text13};
        case Tab::Guide:
            break;
    }
    return {};
}

std::vector<Box> ReductionCalculator::EraseAllBoxes(Tab tab) {
    if (tab == Tab::SunShepard)
        return {Box::Text1, Box::Text2};
    return Boxes(tab);
}

std::optional<Box> ReductionCalculator::FirstBox(Tab tab) {
    const std::vector<Box> boxes = Boxes(tab);
    if (boxes.empty())
        return std::nullopt;
    return boxes.front();
}

Tab ReductionCalculator::TabOf(Box box) {
    switch (box) {
        case Box::Text9:
        case Box::Text10:
            return Tab::Abbott;
        case Box::Text4:
        case Box::Text5:
        case Box::Text6:
        case Box::Text7:
            return Tab::HendersonTilton;
        case Box::Text1:
        case Box::Text2:
            return Tab::SchneiderOrelli;
        case Box::Text12:
        case Box::Text13:
            return Tab::SunShepard;
    }
    return Tab::Guide;
}

std::optional<Box> ReductionCalculator::NextBox(Box box) {
    const std::vector<Box> boxes = Boxes(TabOf(box));
    for (std::size_t i = 0; i + 1 < boxes.size(); ++i)
        if (boxes[i] == box)
            return boxes[i + 1];
    return std::nullopt;
}

std::optional<Box> ReductionCalculator::PreviousBox(Box box) {
    const std::vector<Box> boxes = Boxes(TabOf(box));
    for (std::size_t i = 1; i < boxes.size(); ++i)
        if (boxes[i] == box)
            return boxes[i - 1];
    return std::nullopt;
}

bool ReductionCalculator::IsLastBox(Box box) {
    return Boxes(TabOf(box)).back() == box;
}

bool ReductionCalculator::KeyAllowed(char key) {
    return (key >= '0' && key <= '9') || key == 8 || key == 13 || key == '.' || key == ',' ||
           key == '-';
}

const char* ReductionCalculator::TabCaption(Tab tab) {
    static const std::array<const char*, kTabCount> captions = {
        "Abbott", "Henderson - Tilton", "Schneider - Orelli", "Sun - Shepard", "Guide"};
    return captions[IndexOf(tab)];
}

const char* ReductionCalculator::BoxName(Box box) {
    static const std::array<const char*, kBoxCount> names = {"Text1",  "Text2", "Text4", "Text5",
                                                             "Text6",  "Text7", "Text9", "Text10",
                                                             "Text12", "Text13"};
    return names[IndexOf(box)];
}

}  // namespace morvane
