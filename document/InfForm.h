#pragma once
// The notes sheet, Inf_form ("Information sheet"): four boxes filled from the notes,
// a shortcut that writes a date some days back, and the flag that tells whether a note
// was changed. The form's OK and Cancel belong to the document (LineDocument::NotesOK).

#include <chrono>
#include <cstdint>
#include <string>

#include "document/NotesSheet.h"

namespace morvane {

class InfForm {
  public:
    InfForm() = default;
    // Filled from the notes; filling the boxes is no change.
    explicit InfForm(const NotesSheet& notes);

    const std::string& Text1() const { return text1_; }  // "Treatment name"
    const std::string& Text2() const { return text2_; }  // "Treated target"
    const std::string& Text3() const { return text3_; }  // "Experiment date"
    const std::string& Text4() const { return text4_; }  // "More information"
    const std::string& Text5() const { return text5_; }  // "days ago"
    // 1 once a box's text has changed since the form was filled.
    std::int16_t NotesChanged() const { return notesChanged_; }

    // The user's edits; a text that differs from the box's sets NotesChanged.
    void setText1(std::string text);
    void setText2(std::string text);
    void setText3(std::string text);
    void setText4(std::string text);
    void setText5(std::string text) { text5_ = std::move(text); }
    // Leaving "days ago" empty puts "0" in it.
    void leaveText5();
    // Only digits, backspace and Enter can be typed in "days ago".
    static bool Text5KeyAllowed(char key);

    // Enter in "days ago" or "OK >>": Text3 := the day that many days before today,
    // written "dd / mm / yyyy". False, with nothing changed, when the count is no
    // whole number or reaches before the year 100.
    bool DateShortcut(std::chrono::year_month_day today);
    // The same with today's date of the machine's clock in local time.
    bool DateShortcut();

    // The notes as the boxes hold them.
    NotesSheet notes() const;

  private:
    void change(std::string& box, std::string text);

    std::string text1_, text2_, text3_, text4_;
    std::string text5_ = "0";
    std::int16_t notesChanged_ = 0;
};

// A date written "dd / mm / yyyy".
std::string DateText(std::chrono::year_month_day date);

}  // namespace morvane
