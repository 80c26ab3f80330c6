// The workflow of the input window: its state, the input cells, the entry commands
// over the data table, and the command channel.
#include "document/LineDocument.h"

#include <exception>

#include "core/DoseEstimates.h"

namespace morvane {

LineDocument::LineDocument(SharedRegisters& shared, UserPort& port, std::string programFolder)
    : shared_(shared), port_(port), programFolder_(std::move(programFolder)) {}

CalculationInput LineDocument::calculationInput() const {
    return CalculationInput{table_.Grid2(), table_.ControlPerTreatment(), options_.TAlpha(),
                            file_.FileTitle()};
}

void LineDocument::notify() {
    if (observer_)
        observer_->documentChanged();
}

void LineDocument::setFocus(Focus focus) {
    form_.focus = focus;
    if (observer_)
        observer_->focusRequested(focus);
}

void LineDocument::refuse(const Refusal& refusal) {
    port_.warn(refusal.text);
    setFocus(refusal.focus);
}

void LineDocument::runCommand(const std::function<void()>& command) {
    try {
        command();
    } catch (const std::exception& e) {
        port_.tellError(StoppedCommandMessage(e.what()));
    }
    notify();
}

std::string StoppedCommandMessage(const std::string& reason) {
    return "Morvane stopped this command:\n" + reason + ".\nThe data were left as they were.";
}

std::string LineDocument::doseHeading() const {
    return shared_.DoseWord + "\n(" + shared_.UnitWord + ")";
}

// ---- Input cells.

void LineDocument::setCheckCo(bool ticked) {
    table_.setCheckCo(ticked);
    setFocus(Focus::TextDose);
}

bool LineDocument::leaveTextDose() {
    if (table_.leaveTextDose())
        return true;
    refuse({"invaled value!", Focus::TextDose});
    return false;
}

bool LineDocument::leaveText1input() {
    if (table_.leaveText1input())
        return true;
    refuse({"invaled value!", Focus::Text1input});
    return false;
}

bool LineDocument::leaveText2input() {
    if (table_.leaveText2input())
        return true;
    refuse({"invaled value!", Focus::Text2input});
    return false;
}

void LineDocument::setTextName(std::string text) {
    // Every assignment counts as a change of the box, also one of the same text.
    form_.TextName = std::move(text);
    file_.MarkChanged();
    notes_.TreatmentName = form_.TextName;
}

// ---- Data entry.

void LineDocument::CommandAccept() {
    runCommand([this] {
        if (std::optional<Refusal> refusal =
                table_.CheckTypedRow(options_.tableRules(), shared_.DoseWord)) {
            refuse(*refusal);
        } else {
            table_.AcceptTypedRow(options_.tableRules());
            notify();
            file_.MarkChanged();
            setFocus(Focus::TextDose);
        }
    });
}

bool LineDocument::AcceptRow() {
    if (std::optional<Refusal> refusal =
            table_.AcceptRow(options_.tableRules(), shared_.DoseWord)) {
        notify();
        refuse(*refusal);
        return false;
    }
    file_.MarkChanged();
    return true;
}

void LineDocument::CommandEdit() {
    runCommand([this] {
        if (const std::optional<int> row = table_.CurrentDataRow()) {
            table_.EditRow(*row, options_.tableRules());
            notify();
            setFocus(Focus::Text1input);
            file_.MarkChanged();
        }
    });
}

void LineDocument::CommandDel() {
    runCommand([this] {
        if (const std::optional<int> row = table_.CurrentDataRow()) {
            const std::string& response = Grid1().text(*row, table_.layout().PercentColumn);
            const Message question{
                "Do you want to delete the selected row with the response value " + response + "?",
                Buttons::OkCancel, Icon::Question, Answer::Cancel};
            if (port_.ask(question) == Answer::Ok) {
                table_.DeleteRow(*row, options_.tableRules());
                notify();
                file_.MarkChanged();
            }
        }
        setFocus(Focus::TextDose);
    });
}

void LineDocument::RebuildResponseTable() {
    table_.RebuildResponseTable(options_.tableRules());
    notify();
}

// ---- Emptying the document.

void LineDocument::ResetLine() {
    form_.CommandInfFormEnabled = false;
    form_.CommandChgangeOptionsEnabled = false;
    shared_.UnitWord.clear();
    shared_.DoseWord.clear();
    shared_.EstimateWord.clear();
    file_.Close();
    table_.Reset();
    form_.ImportFile.clear();
    notes_ = NotesSheet{};
    setTextName("");
    file_.setOlderVersionFile(0);
    // A reset document has nothing that Cancel of the options dialog could give back.
    beforeNew_.reset();
    file_.MarkSaved();
}

// ---- The command channels. The codes as text are read here and nowhere else.

namespace {

std::optional<TextMsgCode> TextMsgCodeOf(const std::string& text) {
    static const std::pair<const char*, TextMsgCode> kCodes[] = {
        {"1", TextMsgCode::ResetLine},
        {"2", TextMsgCode::NewFileTitle},
        {"3", TextMsgCode::SpreadsheetRead},
        {"4", TextMsgCode::Import},
        {"5", TextMsgCode::RebuildResponseTable},
        {"6", TextMsgCode::CalculateFile},
        {"7", TextMsgCode::FormatTwoLevels},
        {"8", TextMsgCode::AcceptRow},
        {"9", TextMsgCode::FormatFourLevels},
        {"17", TextMsgCode::Closing},
    };
    for (const auto& [code, value] : kCodes)
        if (text == code)
            return value;
    return std::nullopt;
}

std::optional<FileOptionsCode> FileOptionsCodeOf(const std::string& text) {
    if (text == "1")
        return FileOptionsCode::OK;
    if (text == "2")
        return FileOptionsCode::Cancel;
    if (text == "3")
        return FileOptionsCode::LoadOptionDefaults;
    return std::nullopt;
}

}  // namespace

void LineDocument::TextMsg(const std::string& code) {
    if (const std::optional<TextMsgCode> value = TextMsgCodeOf(code))
        TextMsg(*value);
}

void LineDocument::FileOptionsText1(const std::string& code) {
    if (const std::optional<FileOptionsCode> value = FileOptionsCodeOf(code))
        FileOptionsText1(*value);
}

void LineDocument::TextMsg(TextMsgCode code) {
    switch (code) {
        case TextMsgCode::ResetLine:
            ResetLine();
            break;
        case TextMsgCode::NewFileTitle:
            file_.NameNew();
            break;
        case TextMsgCode::SpreadsheetRead:
            if (observer_)
                observer_->spreadsheetReadRequested();
            break;
        case TextMsgCode::Import:
            form_.PendingCommand = MainCommand::New;
            if (observer_)
                observer_->importRequested();
            break;
        case TextMsgCode::RebuildResponseTable:
            RebuildResponseTable();
            break;
        case TextMsgCode::CalculateFile:
            if (observer_)
                observer_->calculateFileRequested();
            break;
        case TextMsgCode::FormatTwoLevels:
            FormatTwoLevels(shared_);
            break;
        case TextMsgCode::AcceptRow:
            AcceptRow();
            break;
        case TextMsgCode::FormatFourLevels:
            FormatFourLevels(shared_);
            break;
        case TextMsgCode::Closing:
            if (QueryClose() && observer_)
                observer_->programEndRequested();
            break;
    }
}

}  // namespace morvane
