#pragma once
// The document of one line: the logic of the input window `main`, without a window.
//
// It owns the data set in two text tables: Grid1, the table of replicate rows
// (DoseRow), kept sorted by a hidden sort key, which is at once the store of the
// document; and Grid2, the response table (ResponseRow) derived from it after every
// change, which is what the calculation reads. Cell text is the data: numbers are
// written as text and read back from it. Beside the tables it holds the input cells,
// the options dialog's state (FileOptions), the notes, and the document state:
// Modified, FileTitle, FilePath, PendingCommand, ClosingAfterSave, OlderVersionFile.
//
// Every question, message and file dialog goes through the UserPort, and the words
// of the line (DoseWord, UnitWord, EstimateWord) and the batch report live in the
// SharedRegisters; both are owned by the caller and must outlive the document. A
// window binds to this class: it reads the state, calls the commands, and listens to
// a DocumentObserver for what to refresh or show.
//
// The user's commands never end in a fault: where the arithmetic fails (a control
// response of 100% divides by zero when responses are corrected for it) or a table
// holds what no number is, the command tells the user and leaves the document as it
// was. The routines other modules drive row by row (AcceptRow, RebuildResponseTable,
// the reading steps) throw Fault instead and leave the handling to their caller.

#include <cstdint>
#include <functional>
#include <optional>
#include <string>

#include "core/LineCalculation.h"
#include "core/NumberText.h"
#include "core/SharedRegisters.h"
#include "core/TextTable.h"
#include "core/UserPort.h"
#include "document/FileOptions.h"
#include "document/InfForm.h"
#include "document/LineFileFormat.h"
#include "document/NotesSheet.h"
#include "document/SequentialFields.h"

namespace morvane {

// Colours of the input window's tables. A back colour of none is the grid's default
// background, DefaultCellColor.
inline constexpr Color kControlColor{200, 255, 200};  // the cells of a control row
inline constexpr Color kBandColor{225, 225, 255};     // every other dose of treatments
inline constexpr std::optional<Color> DefaultCellColor{};

// Where the window is asked to put the keyboard focus.
enum class Focus {
    None,
    TextDose,
    Text1input,
    Text2input,
    CommandAccept,
    ComboUnit1,  // on the options dialog
    Text5,       // on the options dialog
};

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
    // TextMsg "4": PendingCommand is 1, CommandImport is to run again.
    virtual void importRequested() {}
    // TextMsg "3": the spreadsheet read is to start.
    virtual void spreadsheetReadRequested() {}
    // TextMsg "6": the silent calculation of the loaded line (CalculateFile).
    virtual void calculateFileRequested() {}
    // A save that ran for closing has finished, or TextMsg "17" was allowed to close
    // the window: the program ends.
    virtual void programEndRequested() {}
};

// The controls and variables of the input window, as the window shows them.
struct MainForm {
    TextTable Grid1;     // DoseRow table: heading, data rows, one empty last row
    TextTable Grid2;     // ResponseRow table, derived
    TextTable GridOldV;  // work space of the older-layout reader
    TextTable GridOldVt;

    std::string TextDose, Text1input, Text2input;  // the input cells
    std::int16_t CheckCo = 0;                      // ticked: the row is a control
    bool CheckCoVisible = false;  // ControlPerTreatment: shown beside the input cells
    bool Text2inputVisible = true;
    std::string Text1inputTip = "Responded", Text2inputTip = "Non responded";
    // Left edges in twips of CommandAccept, CommandEdit, CommandDel.
    int CommandAcceptLeft = 3350, CommandEditLeft = 4350, CommandDelLeft = 5325;
    std::string TextName;      // the treatment name
    std::string TextFileName;  // the suggested name of the save dialog
    std::string Caption = "Morvane";

    std::int16_t Modified = 0;          // the line has unsaved changes
    std::string FileTitle;              // name without folder; "New file" when unsaved
    std::string FilePath;               // full name; empty when unsaved
    std::int16_t PendingCommand = 0;    // 0 none, 1 New, 2 Open, 3 Relative
    std::int16_t ClosingAfterSave = 0;  // 1 while the window closes through a save
    std::int16_t OlderVersionFile = 0;  // 1: the document came from a file of mark 1
    std::int16_t RowsWereRemoved = 0;   // 1 from a delete or edit to the next accept
    std::int16_t ImportRowRefused = 0;  // 1 after AcceptRow refused a row
    std::int16_t ImportAfterNew = 0;    // 1 while an import waits for the options dialog
    std::string ImportFile;             // the file an import reads
    std::int16_t TotalColumn = 0;       // Grid1 column of the total (data types 0, 1)
    std::int16_t PercentColumn = 0;     // Grid1 column of the response %

    bool CommandSaveEnabled = false;
    bool CommandInfFormEnabled = false;
    bool CommandChgangeOptionsEnabled = false;
    bool TextNameEnabled = false;
    bool CommandCalcEnabled = false;
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
    const MainForm& main() const;
    const TextTable& Grid1() const { return main().Grid1; }
    const TextTable& Grid2() const { return main().Grid2; }
    const FileOptions& fileOptions() const { return options_; }
    const NotesSheet& notes() const { return notes_; }
    bool ControlPerTreatment() const { return form_.CheckCoVisible; }
    bool CalculateEnabled() const { return form_.CommandCalcEnabled; }
    // What CalculateLine and CalculateFile read: Grid2, the layout, the alpha index and
    // FileTitle. It refers to Grid2 and is valid while the document is unchanged.
    CalculationInput calculationInput() const;
    const std::string& programFolder() const { return programFolder_; }

    // ---- The input cells and what the window sets directly.
    void setTextDose(std::string text);
    void setText1input(std::string text);
    void setText2input(std::string text);
    void setCheckCo(bool ticked);  // a click: the focus goes back to TextDose
    // The cell's text is replaced by the text of its value; a text that is no number
    // shows "invaled value!" and keeps the focus there (false). TextDose alone goes
    // on: a negative dose is emptied without a word.
    bool leaveTextDose();
    bool leaveText1input();
    bool leaveText2input();
    // TextName changed: Modified, CommandSave enabled, the treatment name copied.
    void setTextName(std::string text);
    void setGrid1Current(int row, int col);
    void setMainVisible(bool visible);
    void setMainEnabled(bool enabled);
    void setPendingCommand(std::int16_t command) { form_.PendingCommand = command; }
    void setImportAfterNew(std::int16_t value) { form_.ImportAfterNew = value; }
    void setImportFile(std::string path) { form_.ImportFile = std::move(path); }
    void setImportRowRefused(std::int16_t value) { form_.ImportRowRefused = value; }

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
    void ClearResponseTable();
    // Refills Grid2 from Grid1 (the matched layout when CheckCo is visible) and sets
    // the enabling of Calculate. Throws Fault, the document unchanged, when a cell holds
    // no number or a control mean of 100% leaves nothing to correct by.
    void RebuildResponseTable();
    void RebuildMatchedResponseTable();

    // ---- Commands of the window and the routing around the file.
    // New: the "save changes" question, then the defaults loaded into the options
    // dialog, which is shown (optionsDialogShown); its OK or Cancel finishes the work.
    void CommandNew();
    // Open: the question, the open dialog, then OpenLineFile.
    void CommandOpen();
    // Save: asks about data left in the input cells; without a FilePath shows the save
    // dialog with the cleaned treatment name and asks before replacing an existing
    // line file (so the window's save dialog must not ask its own overwrite
    // question); writes the file whole; then runs the command left in PendingCommand
    // and ends the program when ClosingAfterSave is 1.
    void CommandSave();
    // Relative: the question, then relativeRequested.
    void CommandRelative();
    // The window is asked to close: the "save changes" question. True when it may
    // close now; false when it stays (Cancel, or Yes, whose save ends the program).
    bool QueryClose();
    // The deferred command channel: a code as text runs at once. Codes: "1" ResetLine,
    // "2" the new-file title, "3" the spreadsheet read, "4" PendingCommand := 1 and the
    // import, "5" RebuildResponseTable, "6" the silent calculation, "7" FormatTwoLevels,
    // "8" AcceptRow, "9" FormatFourLevels, "17" closing. Any other text does nothing.
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

    // The steps of the readers, for callers that read on their own.
    // The options record into the options dialog, then applied with it hidden.
    void ReadOptionsIntoDocument(FieldReader& in);
    // The size record and the table section into Grid1.
    void ReadTableIntoGrid1(FieldReader& in);
    // The notes record into the notes.
    void ReadNotesIntoDocument(FieldReader& in);
    // The options of an older file into the dialog, applied with it hidden; the old
    // tables into GridOldV and GridOldVt.
    void ApplyOlderFile(const OlderLineFile& file);
    // The replicates of an old table into the input cells, one row at a time from
    // firstRow (5 for GridOldV, 3 for GridOldVt), with perRow run after each. Throws
    // Fault when a cell holds no number.
    template <class PerRow>
    void ForEachOldReplicate(const TextTable& grid, int firstRow, PerRow perRow);

    // ---- The options dialog (FileOptions) and its channel Text1.
    FileOptions& fileOptionsControls() { return options_; }  // the dialog's controls
    // The OK routine: resets the document, sets up the tables for the options and
    // derives DoseWord, UnitWord and EstimateWord. With the dialog visible it asks
    // "Miss units" when there is no unit and saves the defaults when Check4 is ticked.
    void FileOptionsOK();
    // Cancel: the dialog hides, the document stays as it was before CommandNew.
    void FileOptionsCancel();
    // Text1 of FileOptions: "1" OK, "2" Cancel, "3" LoadOptionDefaults.
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
    // Runs a user's command; a fault in it restores the document as it was and tells
    // the user.
    void guarded(const std::function<void()>& body);
    void notify();
    void setFocus(Focus focus);
    void settleGrid1() const;
    void applyOptionsDialog(bool visible);
    Answer askSaveChanges();
    bool passSaveChangesQuestion(int pendingCommand);
    void readOlderInto(const std::string& path, bool secondTableAccepted);
    void saveTail();
    void paintControlRows();
    // Writes the checked row into the empty last row of Grid1 and adds a new empty row.
    void appendRow(double dose, double first, double second, bool control);
    void beginNewDocumentDialog();

    SharedRegisters& shared_;
    UserPort& port_;
    std::string programFolder_;
    DocumentObserver* observer_ = nullptr;

    mutable MainForm form_;
    FileOptions options_;
    NotesSheet notes_;

    // AcceptRow appends; the sort of Grid1 is done once before anything reads the
    // table, with the same stable result as a sort after each row.
    mutable bool sortPending_ = false;
    // Grid1's data rows are known to stand in the order of their sort keys (a file's
    // rows stand as the file has them).
    mutable bool knownSorted_ = true;
    // What Cancel of the options dialog gives back after CommandNew has loaded the
    // defaults into it.
    struct DialogSnapshot {
        FileOptions options;
        std::string DoseWord, UnitWord, EstimateWord;
    };
    std::optional<DialogSnapshot> beforeNew_;
};

template <class PerRow>
void LineDocument::ForEachOldReplicate(const TextTable& grid, int firstRow, PerRow perRow) {
    for (int c = 0; c < grid.cols(); c += 2) {
        if (grid.rows() == 0)
            return;
        const std::string& head = grid.text(0, c);
        if (head.empty())
            continue;
        const double dose = head == "control" ? 0.0 : NumberOf(head);
        for (int r = firstRow; r < grid.rows(); ++r) {
            if (grid.text(r, c).empty())
                continue;
            setTextDose(PlainText(dose));
            setText1input(PlainText(NumberOf(grid.text(r, c))));
            if (!grid.text(r, c + 1).empty())
                setText2input(PlainText(NumberOf(grid.text(r, c + 1))));
            perRow();
        }
    }
}

// The name of the save dialog's suggestion: the treatment name without the characters
// a file name can't hold (the double quote, |, <, >, *, ?, :, \ and /). The scan moves
// on one place after each removal, so of two such characters side by side the second
// one stays: "a**b" gives "a*b".
std::string CleanFileName(const std::string& name);

// The sort key of a row: the dose to the power 0.01 written "0.00000000000", then the
// label: a treatment at dose 10 gives "1.02329299228T", a control at 0
// "0.00000000000C".
std::string SortKey(double dose, const std::string& label);

// The message of a user's command stopped by a fault; the document is as it was.
std::string StoppedCommandMessage(const std::string& reason);

// The three lines that tell the user the file is of the older layout.
std::string OlderVersionLines(const std::string& fileTitle);

}  // namespace morvane
