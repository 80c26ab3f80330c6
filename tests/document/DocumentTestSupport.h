#pragma once
// What the tests of the line document share: a document over scripted answers with a
// program folder of its own, and the user's ways of starting a line and typing rows.

#include <gtest/gtest.h>
#include <stdlib.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>

#include "core/SharedRegisters.h"
#include "document/FileBytes.h"
#include "document/LineDocument.h"
#include "support/ScriptedUserPort.h"
#include "support/TestFiles.h"

namespace morvane::testing {

inline std::string FixturePath(const std::string& name) {
    return std::string(MORVANE_DOCUMENT_FIXTURES) + "/" + name;
}

inline ::testing::AssertionResult SameCells(const TextTable& a, const TextTable& b) {
    if (a.rows() != b.rows() || a.cols() != b.cols())
        return ::testing::AssertionFailure()
               << a.rows() << "x" << a.cols() << " against " << b.rows() << "x" << b.cols();
    for (int r = 0; r < a.rows(); ++r)
        for (int c = 0; c < a.cols(); ++c)
            if (!(a.cell(r, c) == b.cell(r, c)))
                return ::testing::AssertionFailure()
                       << "cell " << r << "," << c << ": \"" << a.text(r, c) << "\" against \""
                       << b.text(r, c) << "\" (or their colours)";
    return ::testing::AssertionSuccess();
}

// Records what the document announces.
struct RecordingObserver : DocumentObserver {
    int changes = 0, shown = 0, hidden = 0, relative = 0, imports = 0, ends = 0, calculations = 0,
        spreadsheets = 0;
    std::vector<Focus> focus;
    void documentChanged() override { ++changes; }
    void focusRequested(Focus f) override { focus.push_back(f); }
    void optionsDialogShown() override { ++shown; }
    void optionsDialogHidden() override { ++hidden; }
    void relativeRequested() override { ++relative; }
    void importRequested() override { ++imports; }
    void programEndRequested() override { ++ends; }
    void calculateFileRequested() override { ++calculations; }
    void spreadsheetReadRequested() override { ++spreadsheets; }
};

class DocumentTest : public ::testing::Test {
  protected:
    DocumentTest() { doc.setObserver(&observer); }

    // A new line as the user makes one: New, then the options dialog filled in and OK.
    // The unit picks the factor type as the dialog's rules do.
    void StartLine(DataType dataType, const std::string& unit1 = "mg",
                   const std::string& unit2 = "", FactorOption factor = FactorOption::None) {
        if (doc.file().Modified() == 1)
            port.answers.push_back(Answer::No);  // don't save
        doc.CommandNew();
        ASSERT_TRUE(doc.fileOptions().Visible);
        FileOptions& o = doc.fileOptionsControls();
        o.setDataType(dataType);
        o.setComboUnit1(unit1, shared);
        o.setComboUnit2(unit2, shared);
        if (factor != FactorOption::None)
            o.selectOption(factor, shared);
        doc.FileOptionsOK();
        ASSERT_FALSE(doc.fileOptions().Visible);
    }

    // A line on the "Customize units" tab.
    void StartCustomLine(DataType dataType, bool controlEach, const std::string& factor = "Dose",
                         const std::string& abbreviation = "LD", const std::string& units = "mg") {
        if (doc.file().Modified() == 1)
            port.answers.push_back(Answer::No);  // don't save
        doc.CommandNew();
        FileOptions& o = doc.fileOptionsControls();
        o.setDataType(dataType);
        o.controls.setUnitsTab(UnitsTab::CustomizeUnits);
        o.controls.Combo5 = factor;
        o.controls.Combo6 = abbreviation;
        o.controls.Text5 = units;
        o.controls.Check3 = controlEach ? 1 : 0;
        doc.FileOptionsOK();
    }

    void SetWeighting(bool on) { doc.fileOptionsControls().controls.Check2 = on ? 1 : 0; }

    // A row typed into the input cells, each cell left as the focus moves on, then
    // Accept.
    void Type(const std::string& dose, const std::string& first, const std::string& second = "",
              bool control = false) {
        doc.setTextDose(dose);
        doc.leaveTextDose();
        doc.setText1input(first);
        doc.leaveText1input();
        if (doc.table().layout().Text2inputVisible) {
            doc.setText2input(second);
            doc.leaveText2input();
        }
        if (doc.table().layout().CheckCoVisible)
            doc.setCheckCo(control);
        doc.CommandAccept();
    }

    // The row's cell texts joined by "|".
    std::string Row(const TextTable& grid, int row) const {
        std::string out;
        for (int c = 0; c < grid.cols(); ++c)
            out += (c ? "|" : "") + grid.text(row, c);
        return out;
    }

    std::string LastMessage() const {
        return port.messages.empty() ? std::string() : port.messages.back().text;
    }

    SharedRegisters shared;
    ScriptedUserPort port;
    TempFolder folder;
    LineDocument doc{shared, port, folder.path()};
    RecordingObserver observer;
};

}  // namespace morvane::testing
