#include "document/InfForm.h"

#include <ctime>

namespace morvane {

InfForm::InfForm(const NotesSheet& notes)
    : text1_(notes.TreatmentName),
      text2_(notes.TreatedTarget),
      text3_(notes.ExperimentDate),
      text4_(notes.MoreInformation) {}

void InfForm::change(std::string& box, std::string text) {
    if (box == text)
        return;
    box = std::move(text);
    notesChanged_ = 1;
}

void InfForm::setText1(std::string text) {
    change(text1_, std::move(text));
}
void InfForm::setText2(std::string text) {
    change(text2_, std::move(text));
}
void InfForm::setText3(std::string text) {
    change(text3_, std::move(text));
}
void InfForm::setText4(std::string text) {
    change(text4_, std::move(text));
}

void InfForm::leaveText5() {
    if (text5_.empty())
        text5_ = "0";
}

bool InfForm::Text5KeyAllowed(char key) {
    return (key >= '0' && key <= '9') || key == 8 || key == 13;
}

bool InfForm::DateShortcut(std::chrono::year_month_day today) {
    long long days = 0;
    // A count of more than seven digits reaches before the year 100 from any date the
    // clock can give.
    if (text5_.size() > 7)
        return false;
    for (char c : text5_) {
        if (c < '0' || c > '9')
            return false;
        days = days * 10 + (c - '0');
    }
    if (!today.ok())
        return false;
    const std::chrono::year_month_day date{std::chrono::sys_days{today} - std::chrono::days{days}};
    if (!date.ok() || date.year() < std::chrono::year{100})
        return false;
    setText3(DateText(date));
    return true;
}

bool InfForm::DateShortcut() {
    const std::time_t now = std::time(nullptr);
    std::tm local{};
    localtime_r(&now, &local);
    return DateShortcut(
        std::chrono::year_month_day{std::chrono::year{local.tm_year + 1900},
                                    std::chrono::month{static_cast<unsigned>(local.tm_mon + 1)},
                                    std::chrono::day{static_cast<unsigned>(local.tm_mday)}});
}

NotesSheet InfForm::notes() const {
    return NotesSheet{text1_, text2_, text3_, text4_};
}

std::string DateText(std::chrono::year_month_day date) {
    auto two = [](unsigned v) {
        std::string s = std::to_string(v);
        return s.size() < 2 ? "0" + s : s;
    };
    std::string year = std::to_string(static_cast<int>(date.year()));
    while (year.size() < 4)
        year.insert(0, 1, '0');
    return two(static_cast<unsigned>(date.day())) + " / " +
           two(static_cast<unsigned>(date.month())) + " / " + year;
}

}  // namespace morvane
