// The routines of the options dialogs: OK and Cancel of "New Line" (FileOptions), the
// defaults file, "Change options", and the notes sheet's OK and Cancel.
#include <filesystem>

#include "document/DefaultsFile.h"
#include "document/FileBytes.h"
#include "document/LineDocument.h"

namespace morvane {

void LineDocument::FileOptionsOK() {
    applyOptionsDialog(options_.Visible);
}

void LineDocument::applyOptionsDialog(bool visible) {
    // The document is reset first, before anything is tested: a No at "Miss units"
    // leaves it empty.
    TextMsg("1");
    LineOptions& c = options_.controls;
    if (c.Tab1 == 0) {
        c.Combo5 = "Dose";
        c.Combo6 = "LD";
        c.Text5.clear();
        c.Check3 = 0;
        if (c.FactorOption >= 1 && c.FactorOption <= 3) {
            static const char* const kEstimates[] = {"LD", "LC", "LT"};
            shared_.DoseWord = kFactorCaptions[c.FactorOption - 1];
            shared_.EstimateWord = kEstimates[c.FactorOption - 1];
            form_.CheckCoVisible = c.FactorOption == 3;
        }
        shared_.UnitWord = options_.LabelUnits;
    } else {
        options_.selectOption(1, shared_);
        if (!c.ComboUnit1.empty())
            options_.setComboUnit1("", shared_);
        if (!c.ComboUnit2.empty())
            options_.setComboUnit2("", shared_);
        shared_.DoseWord = c.Combo5;
        shared_.UnitWord = c.Text5;
        shared_.EstimateWord = c.Combo6;
        form_.CheckCoVisible = c.Check3 == 1;
    }

    if (visible) {
        if (shared_.UnitWord.empty()) {
            const Message question{
                "You didn't set the " + shared_.DoseWord + " unit\ndo you want to continue?",
                Buttons::YesNo, Icon::None, Answer::Yes, "Miss units"};
            if (port_.ask(question) == Answer::No) {
                setFocus(c.Tab1 == 0 ? Focus::ComboUnit1 : Focus::Text5);
                notify();
                return;
            }
            if (!c.ComboUnit2.empty())
                options_.setComboUnit2("", shared_);
        }
        if (c.Check4 == 1)
            SaveOptionDefaults();
    }

    TextTable& grid1 = form_.Grid1;
    TextTable& grid2 = form_.Grid2;
    switch (c.ComboDataType) {
        case 0:
            form_.Text2inputVisible = true;
            form_.Text1inputTip = "Responded";
            form_.Text2inputTip = "Non responded";
            grid1.setCols(7);
            grid1.setText(0, 2, "Responded");
            grid1.setText(0, 3, "Non responded");
            grid1.setText(0, 4, "Total");
            grid1.setText(0, 5, "Response\n%");
            form_.TotalColumn = 4;
            form_.PercentColumn = 5;
            break;
        case 1:
            form_.Text2inputVisible = true;
            form_.Text1inputTip = "Total number";
            form_.Text2inputTip = "Responded";
            grid1.setCols(6);
            grid1.setText(0, 2, "Total");
            grid1.setText(0, 3, "Responded");
            grid1.setText(0, 4, "Response\n%");
            form_.TotalColumn = 2;
            form_.PercentColumn = 4;
            break;
        default:
            form_.Text2inputVisible = false;
            form_.Text1inputTip = "Response %";
            form_.Text2inputTip.clear();
            grid1.setCols(4);
            grid1.setText(0, 2, "Response\n%");
            form_.PercentColumn = 2;  // TotalColumn is left as it was
            break;
    }
    const bool narrow = c.ComboDataType == 2;
    form_.CommandAcceptLeft = narrow ? 2350 : 3350;
    form_.CommandEditLeft = narrow ? 3350 : 4350;
    form_.CommandDelLeft = narrow ? 4325 : 5325;

    if (!form_.CheckCoVisible) {
        grid2.setCols(4);
        grid2.setText(0, 1, "Total");
        grid2.setText(0, 2, "Response\n%");
        grid2.setText(0, 3, "Corrected\nResponse\n%");
    } else {
        grid2.setCols(5);
        grid2.setText(0, 1, "Total");
        grid2.setText(0, 2, "Treated response\n%");
        grid2.setText(0, 3, "Control response\n%");
        grid2.setText(0, 4, "Corrected\nResponse\n%");
    }
    grid2.setRowHeight(0, 600);
    grid1.setRowHeight(0, 500);
    const std::string doseHeading = shared_.DoseWord + "\n(" + shared_.UnitWord + ")";
    grid1.setText(0, 1, doseHeading);
    grid2.setText(0, 0, doseHeading);
    for (TextTable* grid : {&grid1, &grid2})
        for (int col = 0; col < grid->cols(); ++col) {
            grid->setColumnWidth(col, 1000);
            grid->setColumnAlignment(col, 2);
        }
    grid1.setColumnWidth(0, 300);
    grid1.setColumnWidth(grid1.cols() - 1, 0);  // the sort key is never seen

    form_.Picture1Visible = true;
    grid1.setCurrent(1, 2);
    TextMsg("2");
    form_.CommandInfFormEnabled = true;
    form_.CommandChgangeOptionsEnabled = true;
    form_.TextNameEnabled = true;
    form_.Enabled = true;
    const bool wasShown = options_.Visible;
    options_.Visible = false;
    options_.endHighlight();
    beforeNew_.reset();
    if (wasShown && observer_)
        observer_->optionsDialogHidden();
    if (form_.Visible)
        setFocus(Focus::TextDose);
    notify();
    if (form_.ImportAfterNew == 1) {
        form_.ImportAfterNew = 0;
        TextMsg("4");
    }
}

void LineDocument::FileOptionsCancel() {
    form_.Enabled = true;
    form_.ImportAfterNew = 0;
    options_.Visible = false;
    options_.endHighlight();
    // The dialog holds the options of the open document. CommandNew loaded the
    // defaults into it; they are given back, so the document keeps its own options
    // and its words.
    if (beforeNew_) {
        options_ = beforeNew_->options;
        options_.Visible = false;
        shared_.DoseWord = beforeNew_->DoseWord;
        shared_.UnitWord = beforeNew_->UnitWord;
        shared_.EstimateWord = beforeNew_->EstimateWord;
        beforeNew_.reset();
    }
    if (observer_)
        observer_->optionsDialogHidden();
    notify();
}

void LineDocument::FileOptionsText1(const std::string& code) {
    if (code == "1") {
        FileOptionsOK();
    } else if (code == "2") {
        FileOptionsCancel();
    } else if (code == "3") {
        LoadOptionDefaults();
    }
}

void LineDocument::SaveOptionDefaults() {
    const std::string path = DefaultsFilePath(programFolder_);
    FieldWriter out;
    WriteOptionsRecord(out, options_.controls);
    try {
        std::error_code ignored;
        std::filesystem::create_directories(std::filesystem::path(path).parent_path(), ignored);
        ReplaceFileContents(path, out.bytes());
    } catch (const FileError& e) {
        port_.tell(std::string("An error occurred when saving default\n") + e.what());
    }
}

void LineDocument::LoadOptionDefaults() {
    std::string bytes;
    try {
        bytes = ReadFileBytes(DefaultsFilePath(programFolder_));
    } catch (const FileError& e) {
        if (!e.notFound())
            port_.tell(
                "An error occurred when loading default\nplease check your option and reset your "
                "default");
        return;
    }
    FieldReader in(bytes);
    try {
        ReadOptionsRecord(in, options_, shared_);
    } catch (const std::exception&) {
        // The controls keep what was read before the fault.
        port_.tell(
            "An error occurred when loading default\nplease check your option and reset your "
            "default");
    }
    notify();
}

ChangeOptionsValues LineDocument::OpenChangeOptions() {
    form_.Enabled = false;
    notify();
    return ChangeOptionsValues{shared_.DoseWord, shared_.UnitWord, shared_.EstimateWord,
                               options_.controls.Combo7};
}

void LineDocument::ChangeOptionsOK(const ChangeOptionsValues& values) {
    guarded([&] {
        LineOptions& c = options_.controls;
        c.Tab1 = 1;
        shared_.DoseWord = c.Combo5 = values.Combo5;
        shared_.UnitWord = c.Text5 = values.Text5;
        shared_.EstimateWord = c.Combo6 = values.Combo6;
        for (const char* alpha : kAlphaTexts)
            if (values.Combo7 == alpha)
                c.Combo7 = values.Combo7;
        const std::string doseHeading = shared_.DoseWord + "\n(" + shared_.UnitWord + ")";
        form_.Grid1.setText(0, 1, doseHeading);
        form_.Grid2.setText(0, 0, doseHeading);
        form_.Modified = 1;
        form_.CommandSaveEnabled = true;
        form_.Enabled = true;
    });
    form_.Enabled = true;
}

void LineDocument::ChangeOptionsCancel() {
    form_.Enabled = true;
    notify();
}

InfForm LineDocument::OpenNotesSheet() {
    form_.Enabled = false;
    notify();
    return InfForm(notes_);
}

void LineDocument::NotesOK(const InfForm& form) {
    notes_ = form.notes();
    // Setting the treatment name box is a change of it, and marks the file changed
    // even when no note differs.
    setTextName(notes_.TreatmentName);
    if (form.NotesChanged() == 1) {
        form_.Modified = 1;
        form_.CommandSaveEnabled = true;
    }
    form_.Enabled = true;
    notify();
}

void LineDocument::NotesCancel() {
    form_.Enabled = true;
    notify();
}

}  // namespace morvane
