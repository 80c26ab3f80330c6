#pragma once
// The probit converter that the user opens from the input window ("Probit"): response
// percent to probit and back on its first tab, the working probit and weighting
// coefficient of an expected probit on its second. The conversions are those of the
// probit tables (core/ProbitTables.h), run in their visible branch, where a percent
// outside 0.1 to 99.9 reads "out of scale" rather than the probits 1 and 9.
//
// The converter works on the program's one ProbitTables object, which it borrows
// while it is open: Open shows the tables' dialog branch and Close unloads them, which
// empties their outputs. Each box runs its transform as soon as its text changes. A
// result that changes sets a small panel sliding down its strip, a visual mark that a
// new result is there.

#include <string>

#include "core/ProbitTables.h"

namespace morvane {

// A panel that slides down 200 twips a tick from its resting place above the strip
// until its top reaches 600 or more, then goes back to rest and stops.
class SlidingPanel {
  public:
    static constexpr int kRestTop = -500;
    static constexpr int kStep = 200;
    static constexpr int kEndTop = 600;

    int top() const { return top_; }
    bool running() const { return running_; }
    void start() { running_ = true; }
    // One tick of the panel's timer.
    void tick();

  private:
    int top_ = kRestTop;
    bool running_ = false;
};

class ProbitConverter {
  public:
    // The boxes: 1 the percent to convert, 2 the probit to convert back, 3 the
    // expected probit Y, 4 the response percent of the working probit.
    enum class Box { Text1 = 1, Text2, Text3, Text4 };

    // The tables must outlive the converter.
    explicit ProbitConverter(ProbitTables& probit);

    // Loading and showing: the tables in their dialog branch, the four boxes empty.
    void Open();
    // Unloading: the tables hidden again, their outputs emptied.
    void Close();
    bool isOpen() const { return open_; }

    // A box's text changed: its transform runs at once. A text that is no number
    // leaves the box's results empty until it is one.
    void setText(Box box, const std::string& text);
    const std::string& text(Box box) const;

    // Leaving a box that isn't empty: its text becomes the plain text of its number
    // ("05" becomes "5"). False, the text unchanged, when it holds no number.
    bool leave(Box box);

    // Whether a box takes a typed key: the conversion boxes take digits, ".", ",",
    // backspace (8) and Enter (13); the working-probit boxes the same without Enter.
    static bool KeyAllowed(Box box, char key);

    // The results.
    const std::string& Label1() const;   // the probit of Text1
    const std::string& Label2() const;   // the percent of Text2
    const std::string& Label12() const;  // the working probit
    const std::string& Label13() const;  // the weighting coefficient

    // Where the focus goes when the form activates (Text1) and on a tab change
    // (Text1 for tab 0, Text3 for tab 1).
    static Box FocusOnActivate() { return Box::Text1; }
    static Box FocusOnTab(int tab) { return tab == 1 ? Box::Text3 : Box::Text1; }

    // The panels that slide when Label1 (Picture3) or Label2 (Picture4) changes.
    SlidingPanel& Picture3() { return picture3_; }
    SlidingPanel& Picture4() { return picture4_; }

  private:
    ProbitTables& probit_;
    bool open_ = false;
    std::string text1_, text2_;
    // The boxes whose text is no number: their results read empty.
    bool invalid1_ = false, invalid2_ = false, invalid3_ = false, invalid4_ = false;
    std::string typed3_, typed4_;  // the texts of boxes 3 and 4
    SlidingPanel picture3_, picture4_;
};

}  // namespace morvane
