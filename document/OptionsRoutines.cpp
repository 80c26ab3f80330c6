// The routines of the options dialogs: OK and Cancel of "New Line" (FileOptions), the
// defaults file, "Change options", and the notes sheet's OK and Cancel.
#include "document/DefaultsFile.h"
#include "document/FileBytes.h"
#include "document/LineDocument.h"

namespace morvane {

void LineDocument::FileOptionsOK() {
    applyOptionsDialog(options_.Visible);
}

// The OK routine, also run with the dialog hidden when a file's options are read.
void LineDocument::applyOptionsDialog(bool visible) {
    // The document is reset first, before anything is tested: a No at "Miss units"
    // leaves it empty.
    TextMsg(TextMsgCode::ResetLine);
    if (const std::optional<bool> controlEach = options_.DeriveLineWords(shared_))
        table_.setControlPerTreatment(*controlEach);
    if (visible) {
        if (!passUnitsQuestion())
            return;
        if (options_.controls.Check4 == 1)
            SaveOptionDefaults();
    }
    layOutLine();
    enableLine();
    hideOptionsDialog();
    if (form_.Visible)
        setFocus(Focus::TextDose);
    notify();
    if (form_.ImportAfterNew == 1) {
        form_.ImportAfterNew = 0;
        TextMsg(TextMsgCode::Import);
    }
}

// "Miss units": a line without a unit goes on only at Yes.
bool LineDocument::passUnitsQuestion() {
    if (!shared_.UnitWord.empty())
        return true;
    const Message question{
        "You didn't set the " + shared_.DoseWord + " unit\ndo you want to continue?",
        Buttons::YesNo, Icon::None, Answer::Yes, "Miss units"};
    if (port_.ask(question) == Answer::No) {
        const bool adjust = options_.controls.unitsTab() == UnitsTab::AdjustUnits;
        setFocus(adjust ? Focus::ComboUnit1 : Focus::Text5);
        notify();
        return false;
    }
    if (!options_.controls.ComboUnit2.empty())
        options_.setComboUnit2("", shared_);
    return true;
}

void LineDocument::layOutLine() {
    table_.LayOut(options_.controls.dataType(), table_.ControlPerTreatment(), doseHeading());
    form_.Picture1Visible = true;
}

// The new line is named "New file" and its commands are enabled.
void LineDocument::enableLine() {
    TextMsg(TextMsgCode::NewFileTitle);
    form_.CommandInfFormEnabled = true;
    form_.CommandChgangeOptionsEnabled = true;
    form_.TextNameEnabled = true;
    form_.Enabled = true;
}

void LineDocument::hideOptionsDialog() {
    const bool wasShown = options_.Visible;
    options_.Visible = false;
    options_.endHighlight();
    beforeNew_.reset();
    if (wasShown && observer_)
        observer_->optionsDialogHidden();
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

void LineDocument::FileOptionsText1(FileOptionsCode code) {
    switch (code) {
        case FileOptionsCode::OK:
            FileOptionsOK();
            break;
        case FileOptionsCode::Cancel:
            FileOptionsCancel();
            break;
        case FileOptionsCode::LoadOptionDefaults:
            LoadOptionDefaults();
            break;
    }
}

void LineDocument::SaveOptionDefaults() {
    try {
        WriteOptionDefaults(programFolder_, options_.controls);
    } catch (const FileError& e) {
        port_.tellError(std::string("An error occurred when saving default\n") + e.what());
    }
}

void LineDocument::LoadOptionDefaults() {
    const DefaultsReading reading = ReadOptionDefaults(programFolder_, options_, shared_);
    if (reading == DefaultsReading::Missing)
        return;
    if (reading != DefaultsReading::Loaded)
        port_.tell(
            "An error occurred when loading default\nplease check your option and reset your "
            "default");
    if (reading != DefaultsReading::Unreadable)
        notify();
}

ChangeOptionsValues LineDocument::OpenChangeOptions() {
    form_.Enabled = false;
    notify();
    return ChangeOptionsValues{shared_.DoseWord, shared_.UnitWord, shared_.EstimateWord,
                               options_.controls.Combo7};
}

void LineDocument::ChangeOptionsOK(const ChangeOptionsValues& values) {
    LineOptions& c = options_.controls;
    c.setUnitsTab(UnitsTab::CustomizeUnits);
    shared_.DoseWord = c.Combo5 = values.Combo5;
    shared_.UnitWord = c.Text5 = values.Text5;
    shared_.EstimateWord = c.Combo6 = values.Combo6;
    for (const char* alpha : kAlphaTexts)
        if (values.Combo7 == alpha)
            c.Combo7 = values.Combo7;
    table_.setDoseHeading(doseHeading());
    file_.MarkChanged();
    form_.Enabled = true;
    notify();
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
    if (form.NotesChanged() == 1)
        file_.MarkChanged();
    form_.Enabled = true;
    notify();
}

void LineDocument::NotesCancel() {
    form_.Enabled = true;
    notify();
}

}  // namespace morvane
