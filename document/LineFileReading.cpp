// Reading line files into the document: the current layout, the older layout through
// AcceptRow, and the silent reading of the comparison of lines. Whatever the bytes, a
// file that can't be read ends in the opening message and an empty document.
#include <algorithm>

#include "document/FileBytes.h"
#include "document/LineDocument.h"
#include "document/LineFileChecks.h"

namespace morvane {
namespace {

const char* const kOpeningError = "An error occurred while opening this file.\n";

std::int16_t ListValue(std::int16_t value, int count, const char* what) {
    if (value < 0 || value >= count)
        throw FileFormatError(std::to_string(value) + " is not a value of the " + what);
    return value;
}

}  // namespace

void LineDocument::ReadOptionsIntoDocument(FieldReader& in) {
    ReadOptionsRecord(in, options_, shared_);
    applyOptionsDialog(false);
}

void DataTable::ReadTableIntoGrid1(FieldReader& in) {
    const TableSize size = ReadSizeRecord(in);
    // The heading and the empty last row are counted; the columns are those of the
    // file, whatever the options say.
    CheckTableSize(size, in);
    Grid1();
    TextTable& grid = grid1_;
    grid.setCols(size.cols);
    grid.setRows(size.rows);
    for (int r = 1; r <= size.rows - 2; ++r)
        for (int c = 0; c < size.cols; ++c)
            grid.setText(r, c, in.readString());
    // The rows stand as the file has them; the next accepted row sorts them.
    const int key = size.cols - 1;
    knownSorted_ = true;
    for (int r = 2; r <= size.rows - 2 && knownSorted_; ++r)
        knownSorted_ = CompareTextNoCase(grid.text(r - 1, key), grid.text(r, key)) <= 0;
    sortPending_ = false;
}

void LineDocument::ReadNotesIntoDocument(FieldReader& in) {
    notes_ = ReadNotesRecord(in);
}

void DataTable::paintControlRows() {
    TextTable& grid = grid1_;
    for (int r = 1; r < grid.rows(); ++r)
        if (grid.text(r, dosecol::Label) == "C")
            for (int c = dosecol::FirstValue; c < grid.cols(); ++c)
                grid.setBack(r, c, kControlColor);
}

bool LineDocument::OpenLineFile(const std::string& path) {
    ResetLine();
    try {
        const std::string bytes = ReadLineFileBytes(path);
        CheckCurrentLayout(bytes, options_, shared_);  // nothing of a bad file gets in
        FieldReader in(bytes);
        if (ReadVersionRecord(in) == 1) {
            notify();
            port_.tell(OlderVersionLines(ShortFileName(path)));
            return ReadOlderFile(path);
        }
        ReadOptionsIntoDocument(in);
        table_.ReadTableIntoGrid1(in);
        ReadNotesIntoDocument(in);
        file_.NameFile(path);
        table_.paintControlRows();
        table_.setCurrent(Grid1().currentRow(), dosecol::FirstValue);
        form_.CommandInfFormEnabled = true;
        form_.CommandChgangeOptionsEnabled = true;
        form_.TextNameEnabled = true;
        setTextName(notes_.TreatmentName);
        RebuildResponseTable();
        file_.MarkSaved();
        notify();
        return true;
    } catch (const std::exception& e) {
        notify();
        port_.tellError(kOpeningError + ShortErrorText(e.what()));
        ResetLine();
        notify();
        return false;
    }
}

void LineDocument::ApplyOlderFile(const OlderLineFile& file) {
    LineOptions& c = options_.controls;
    options_.setDataType(static_cast<DataType>(ListValue(file.dataType, 3, "input data type")));
    options_.setComboUnit1(file.unit1, shared_);
    options_.setComboUnit2(file.unit2, shared_);
    if (std::find(std::begin(kAlphaTexts), std::end(kAlphaTexts), file.alpha) ==
        std::end(kAlphaTexts))
        throw FileFormatError("\"" + file.alpha + "\" is not a value of the probability of T");
    c.Combo7 = file.alpha;
    c.Check2 = ListValue(file.replicatesFlag, 3, "replicates flag");
    if (file.factorSelector >= 1 && file.factorSelector <= 3) {
        c.setUnitsTab(UnitsTab::AdjustUnits);
        options_.selectOption(static_cast<FactorOption>(file.factorSelector), shared_);
    } else if (file.factorSelector == 4) {
        c.setUnitsTab(UnitsTab::CustomizeUnits);
    }
    c.Combo5 = file.customFactor;
    c.Combo6 = file.customAbbreviation;
    c.Text5 = file.customUnits;
    c.Check3 = ListValue(file.controlFlag, 3, "control flag");
    applyOptionsDialog(false);
    notes_ = file.notes;
}

void LineDocument::readOlderInto(const std::string& path, bool secondTableAccepted) {
    const std::string bytes = ReadLineFileBytes(path);
    FieldReader in(bytes);
    const OlderLineFile file = ReadOlderLayout(in);
    ApplyOlderFile(file);
    // The first table holds treatments (and the doses named "control"): whatever the
    // user ticked before, the box is clear while it is read.
    table_.setCheckCo(false);
    table_.ForEachOldReplicate(file.GridOldV, oldcol::GridOldVFirstRow, [this] { AcceptRow(); });
    if (table_.ControlPerTreatment()) {
        table_.setCheckCo(true);
        if (secondTableAccepted)
            table_.ForEachOldReplicate(file.GridOldVt, oldcol::GridOldVtFirstRow,
                                       [this] { AcceptRow(); });
        else
            table_.ForEachOldReplicate(file.GridOldVt, oldcol::GridOldVtFirstRow, [] {});
        table_.setCheckCo(false);
    }
}

bool LineDocument::ReadOlderFile(const std::string& path) {
    const FileOptions optionsBefore = options_;  // a file that fails leaves none of its own
    try {
        readOlderInto(path, true);
        file_.NameFile(path);
        form_.TextNameEnabled = true;
        setTextName(notes_.TreatmentName);
        form_.CommandInfFormEnabled = true;
        form_.CommandChgangeOptionsEnabled = true;
        RebuildResponseTable();
        file_.setOlderVersionFile(1);
        file_.ClearModified();  // CommandSave stays enabled: the rows were accepted
        notify();
        return true;
    } catch (const std::exception& e) {
        ResetLine();
        options_ = optionsBefore;
        notify();
        port_.tellError(kOpeningError + ShortErrorText(e.what()));
        return false;
    }
}

bool LineDocument::OpenLineForBatch(const std::string& path) {
    auto fail = [this](const std::exception& e) {
        shared_.BatchMessage = "An error occurred while opening " + shared_.BatchName + "\n" +
                               ShortErrorText(e.what());
        shared_.BatchFailed = 1;
        return false;
    };
    TextMsg(TextMsgCode::ResetLine);
    std::int16_t mark = 0;
    try {
        const std::string bytes = ReadLineFileBytes(path);
        FieldReader in(bytes);
        mark = ReadVersionRecord(in);
        if (mark != 1) {
            ReadOptionsIntoDocument(in);
            table_.ReadTableIntoGrid1(in);
            ReadNotesIntoDocument(in);
            TextMsg(TextMsgCode::RebuildResponseTable);
            return true;
        }
    } catch (const std::exception& e) {
        return fail(e);
    }
    try {
        // In a comparison the rows of the second old table fill the input cells but
        // are sent nowhere, so an older file gives only its first table's rows.
        readOlderInto(path, false);
        TextMsg(TextMsgCode::RebuildResponseTable);
        return true;
    } catch (const std::exception& e) {
        TextMsg(TextMsgCode::ResetLine);
        return fail(e);
    }
}

}  // namespace morvane
