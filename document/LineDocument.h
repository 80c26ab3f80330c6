#pragma once
// The document of one line: the logic of the input window `main`, without a window.
//
// It is the workflow of the window's commands (New, Open, Save, Relative, the "save
// changes" question, the command left pending over a save, the channels TextMsg and
// Text1) over the parts it composes, each of which owns its state:
//   - DataTable: the input cells, Grid1 (the replicate rows, the store of the line)
//     and Grid2 (the response table derived from it), with the rules of entry;
//   - FileOptions: the options of the line, also the state of the options dialog, and
//     the defaults file;
//   - LineFile: which file the line is, whether it has unsaved changes, its writing;
//   - the notes (NotesSheet).
// What belongs to the window itself (enabling, focus, the pending command) is MainForm.
//
// Every question, message and file dialog goes through the UserPort, and the words
// of the line (DoseWord, UnitWord, EstimateWord) and the batch report live in the
// SharedRegisters; both are owned by the caller and must outlive the document. A
// window binds to this class: it reads the parts, calls the commands, and listens to
// a DocumentObserver for what to refresh or show.
//
// The user's commands never end in a fault: where the arithmetic fails (a control
// response of 100% divides by zero when responses are corrected for it) or a table
// holds what no number is, the command tells the user and leaves the document as it
// was, because nothing is changed before the new tables are whole. The routines other
// modules drive row by row (AcceptRow, RebuildResponseTable) throw Fault instead and
// leave the handling to their caller.

#include <cstdint>
#include <functional>
#include <optional>
#include <string>

#include "core/LineCalculation.h"
#include "core/SharedRegisters.h"
#include "core/TextTable.h"
#include "core/UserPort.h"
#include "document/DataTable.h"
#include "document/FileOptions.h"
#include "document/Focus.h"
#include "document/InfForm.h"
#include "document/LineFile.h"
#include "document/LineFileFormat.h"
#include "document/NotesSheet.h"
#include "document/SequentialFields.h"

namespace morvane {

// The commands that can wait for a save to end (PendingCommand).
enum class MainCommand : std::int16_t { None = 0, New = 1, Open = 2, Relative = 3 };

// The codes of the deferred command channel TextMsg.
enum class TextMsgCode {
    ResetLine = 1,
    NewFileTitle = 2,
    SpreadsheetRead = 3,
    Import = 4,  // PendingCommand := New, then the import
    RebuildResponseTable = 5,
    CalculateFile = 6,
    FormatTwoLevels = 7,
    AcceptRow = 8,
    FormatFourLevels = 9,
    Closing = 17,
};

// The codes of the options dialog's channel Text1.
enum class FileOptionsCode { OK = 1, Cancel = 2, LoadOptionDefaults = 3 };

// What the window listens to. Every call comes from inside a command, on the caller's
// thread; none is required.
class DocumentObserver {
  public:
    virtual ~DocumentObserver() = default;
    // Anything shown may have changed: tables, input cells, captions, enabling.
    virtual void documentChanged() {}
    virtual void focusRequested(Focus) {}
    // CommandNew has loaded the defaults and wants the options dialog shown; it stays
    // until FileOptionsOK or FileOptionsCancel hides it (optionsDialogHidden).
    virtual void optionsDialogShown() {}
    virtual void optionsDialogHidden() {}
    // CommandRelative passed its question: the comparison window takes main's place.
    virtual void relativeRequested() {}
    // TextMsgCode::Import: PendingCommand is New, CommandImport is to run again.
    virtual void importRequested() {}
    // TextMsgCode::SpreadsheetRead: the spreadsheet read is to start.
    virtual void spreadsheetReadRequested() {}
    // TextMsgCode::CalculateFile: the silent calculation of the loaded line.
    virtual void calculateFileRequested() {}
    // A save that ran for closing has finished, or TextMsgCode::Closing was allowed to
    // close the window: the program ends.
    virtual void programEndRequested() {}
};

// The state of the input window that belongs to no part of the line.
struct MainForm {
    std::string TextName;  // the treatment name box
    MainCommand PendingCommand = MainCommand::None;
    std::int16_t ClosingAfterSave = 0;  // 1 while the window closes through a save
    std::int16_t ImportAfterNew = 0;    // 1 while an import waits for the options dialog
    std::string ImportFile;             // the file an import reads

    bool CommandInfFormEnabled = false;
    bool CommandChgangeOptionsEnabled = false;
    bool TextNameEnabled = false;
    bool Enabled = true;  // main as a whole; off while a child dialog is open
    bool Visible = true;  // main is on the screen; off while another window stands in
    bool Picture1Visible = true;
    Focus focus = Focus::None;  // where the last command put the focus
};

// The values of the "Change options" dialog.
struct ChangeOptionsValues {
    std::string Combo5;  // the factor word
    std::string Text5;   // the units
    std::string Combo6;  // the abbreviation
    std::string Combo7;  // the alpha
};

class LineDocument {
  public:
    // programFolder: the folder of the program, where the defaults file ldDef is kept
    // (see DefaultsFilePath).
    LineDocument(SharedRegisters& shared, UserPort& port, std::string programFolder);

    void setObserver(DocumentObserver* observer) { observer_ = observer; }

    // ---- What the window reads.
    const MainForm& main() const { return form_; }
    const DataTable& table() const { return table_; }
    const LineFile& file() const { return file_; }
    const TextTable& Grid1() const { return table_.Grid1(); }
    const TextTable& Grid2() const { return table_.Grid2(); }
    const FileOptions& fileOptions() const { return options_; }
    const NotesSheet& notes() const { return notes_; }
    bool ControlPerTreatment() const { return table_.ControlPerTreatment(); }
    bool CalculateEnabled() const { return table_.CalculateEnabled(); }
    // What CalculateLine and CalculateFile read: Grid2, the layout, the alpha index and
    // FileTitle. It refers to Grid2 and is valid while the document is unchanged.
    CalculationInput calculationInput() const;
    const std::string& programFolder() const { return programFolder_; }

    // ---- The input cells and what the window sets directly.
    void setTextDose(std::string text) { table_.setTextDose(std::move(text)); }
    void setText1input(std::string text) { table_.setText1input(std::move(text)); }
    void setText2input(std::string text) { table_.setText2input(std::move(text)); }
    void setCheckCo(bool ticked);  // a click: the focus goes back to TextDose
    // The cell's text is replaced by the text of its value; a text that is no number
    // shows "invaled value!" and keeps the focus there (false). TextDose alone goes
    // on: a negative dose is emptied without a word.
    bool leaveTextDose();
    bool leaveText1input();
    bool leaveText2input();
    // TextName changed: Modified, CommandSave enabled, the treatment name copied.
    void setTextName(std::string text);
    void setGrid1Current(int row, int col) { table_.setCurrent(row, col); }
    void setMainVisible(bool visible) { form_.Visible = visible; }
    void setMainEnabled(bool enabled) { form_.Enabled = enabled; }
    void setPendingCommand(MainCommand command) { form_.PendingCommand = command; }
    void setImportAfterNew(std::int16_t value) { form_.ImportAfterNew = value; }
    void setImportFile(std::string path) { form_.ImportFile = std::move(path); }
    void setImportRowRefused(std::int16_t value) { table_.setImportRowRefused(value); }

    // ---- Data entry.
    // The Accept button: checks the input cells with a message for each fault, adds
    // the row, sorts, rebuilds Grid2.
    void CommandAccept();
    // The row in the input cells with the import's limits and without "Missing data":
    // true when added, false when refused with a message (ImportRowRefused := 1).
    // Neither rebuilds Grid2 nor refreshes; the caller rebuilds when it has finished.
    // Throws Fault when an input cell holds no number.
    bool AcceptRow();
    // Moves the current row of Grid1 back into the input cells.
    void CommandEdit();
    // Deletes the current row of Grid1 after a question.
    void CommandDel();
    // Empties the document: "no document", caption "Morvane", Grid1 of 3 columns.
    void ResetLine();
    void ClearResponseTable() { table_.ClearResponseTable(); }
    // Refills Grid2 from Grid1 (the matched layout when CheckCo is visible) and sets
    // the enabling of Calculate. Throws Fault, the document unchanged, when a cell holds
    // no number or a control mean of 100% leaves nothing to correct by.
    void RebuildResponseTable();

    // ---- Commands of the window and the routing around the file.
    // New: the "save changes" question, then the defaults loaded into the options
    // dialog, which is shown (optionsDialogShown); its OK or Cancel finishes the work.
    void CommandNew();
    // Open: the question, the open dialog, then OpenLineFile.
    void CommandOpen();
    // Open of a file named without the dialog (on the command line, dropped on the
    // window, picked from the recent files): the question of Open, then OpenLineFile.
    // Yes saves first and opens only when the save went through. False when nothing
    // was opened.
    bool CommandOpenFile(const std::string& path);
    // Save: asks about data left in the input cells; without a FilePath shows the save
    // dialog with the cleaned treatment name and asks before replacing an existing
    // line file (so the window's save dialog must not ask its own overwrite
    // question); writes the file whole; then runs the command left in PendingCommand
    // and ends the program when ClosingAfterSave is 1.
    void CommandSave();
    // Save under a new name: the save dialog even when the line has a file. A cancelled
    // or failed save keeps the line's file and state as they were.
    void CommandSaveAs();
    // Relative: the question, then relativeRequested.
    void CommandRelative();
    // The window is asked to close: the "save changes" question. True when it may
    // close now; false when it stays (Cancel, or Yes, whose save ends the program).
    bool QueryClose();
    // The deferred command channel: the code runs at once.
    void TextMsg(TextMsgCode code);
    // The channel as the program's other windows send it, a code as text ("1" to "9",
    // "17"); any other text does nothing.
    void TextMsg(const std::string& code);

    // ---- Reading files.
    // Reads the line file into the document as Open does after its dialog, and shows
    // the messages Open shows. False, with an empty document and the opening message
    // told, when the file cannot be read.
    bool OpenLineFile(const std::string& path);
    // Reads a file of the older layout through AcceptRow (Open does so at mark 1).
    bool ReadOlderFile(const std::string& path);
    // The silent reading of the comparison of lines: ResetLine, then the file into the
    // tables, then RebuildResponseTable. Leaves title, FilePath and Modified alone,
    // asks nothing, and reports a failure only through BatchFailed and BatchMessage
    // ("An error occurred while opening " BatchName, a line break, the error's text).
    // An older file gives only the rows of its first old table, as it always has in a
    // comparison.
    bool OpenLineForBatch(const std::string& path);

    // ---- The options dialog (FileOptions) and its channel Text1.
    FileOptions& fileOptionsControls() { return options_; }  // the dialog's controls
    // The OK routine: resets the document, sets up the tables for the options and
    // derives DoseWord, UnitWord and EstimateWord. With the dialog visible it asks
    // "Miss units" when there is no unit and saves the defaults when Check4 is ticked.
    void FileOptionsOK();
    // Cancel: the dialog hides, the document stays as it was before CommandNew.
    void FileOptionsCancel();
    void FileOptionsText1(FileOptionsCode code);
    // The channel as text: "1" OK, "2" Cancel, "3" LoadOptionDefaults; any other text
    // does nothing.
    void FileOptionsText1(const std::string& code);
    void SaveOptionDefaults();
    void LoadOptionDefaults();

    // ---- The "Change options" dialog.
    ChangeOptionsValues OpenChangeOptions();  // its values on opening; disables main
    void ChangeOptionsOK(const ChangeOptionsValues& values);
    void ChangeOptionsCancel();

    // ---- The notes sheet (Inf_form).
    InfForm OpenNotesSheet();  // the form filled from the notes; disables main
    void NotesOK(const InfForm& form);
    void NotesCancel();

  private:
    void notify();
    void setFocus(Focus focus);
    // Tells a refused row and puts the focus back in its cell.
    void refuse(const Refusal& refusal);
    // Runs one command of the table and shows the document again; a command stopped by a
    // fault is told to the user, and the data stay as they were.
    void runCommand(const std::function<void()>& command);
    std::string doseHeading() const;

    // The OK routine of the options dialog, in its steps.
    void applyOptionsDialog(bool visible);
    bool passUnitsQuestion();
    void layOutLine();
    void enableLine();
    void hideOptionsDialog();

    Answer askSaveChanges();
    bool passSaveChangesQuestion(MainCommand pendingCommand);
    void beginNewDocumentDialog();
    bool chooseSaveName();
    void dropPendingAfterFailedSave();
    void saveTail();

    // The steps of the readers.
    void ReadOptionsIntoDocument(FieldReader& in);
    void ReadNotesIntoDocument(FieldReader& in);
    void ApplyOlderFile(const OlderLineFile& file);
    void readOlderInto(const std::string& path, bool secondTableAccepted);

    SharedRegisters& shared_;
    UserPort& port_;
    std::string programFolder_;
    DocumentObserver* observer_ = nullptr;

    MainForm form_;
    DataTable table_;
    FileOptions options_;
    NotesSheet notes_;
    LineFile file_;

    // What Cancel of the options dialog gives back after CommandNew has loaded the
    // defaults into it.
    struct DialogSnapshot {
        FileOptions options;
        std::string DoseWord, UnitWord, EstimateWord;
    };
    std::optional<DialogSnapshot> beforeNew_;
};

// The name of the save dialog's suggestion: the treatment name without the characters
// a file name can't hold (the double quote, |, <, >, *, ?, :, \ and /). The scan moves
// on one place after each removal, so of two such characters side by side the second
// one stays: "a**b" gives "a*b".
std::string CleanFileName(const std::string& name);

// The message of a user's command stopped by a fault; the document is as it was.
std::string StoppedCommandMessage(const std::string& reason);

// The three lines that tell the user the file is of the older layout.
std::string OlderVersionLines(const std::string& fileTitle);

}  // namespace morvane
