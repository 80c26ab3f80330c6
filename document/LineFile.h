#pragma once
// The line file of the document: which file the line is (FilePath, FileTitle, the
// window's Caption), whether it has unsaved changes (Modified, with the enabling of
// CommandSave), whether it came from a file of the older layout, and the writing of
// the line to it. A save writes a temporary file and renames it over the target, so
// that a failed save leaves the old file whole.

#include <cstdint>
#include <string>

#include "core/TextTable.h"
#include "document/FileOptions.h"
#include "document/NotesSheet.h"

namespace morvane {

class LineFile {
  public:
    const std::string& FileTitle() const { return fileTitle_; }  // "New file" when unsaved
    const std::string& FilePath() const { return filePath_; }    // empty when unsaved
    const std::string& Caption() const { return caption_; }
    const std::string& TextFileName() const { return textFileName_; }  // the save suggestion
    std::int16_t Modified() const { return modified_; }  // 1: the line has unsaved changes
    bool CommandSaveEnabled() const { return commandSaveEnabled_; }
    // 1: the document came from a file of mark 1.
    std::int16_t OlderVersionFile() const { return olderVersionFile_; }

    // No document: no title, no path, the caption "Morvane". Modified is left alone.
    void Close();
    // A new line not yet saved.
    void NameNew();
    // The line is the file at path (an opened or saved file), shown in the caption.
    void NameFile(const std::string& path);
    // The save dialog chose path; the caption waits until the name is taken.
    void ChooseName(const std::string& path);
    void ShowNameInCaption() { caption_ = "Morvane, " + fileTitle_; }
    // A save dialog's name was refused: the line is unsaved again.
    void ForgetName();
    void setTextFileName(std::string name) { textFileName_ = std::move(name); }
    void setOlderVersionFile(std::int16_t value) { olderVersionFile_ = value; }

    // A change of the line: Modified, and CommandSave enabled.
    void MarkChanged();
    // No change to save: Modified cleared, CommandSave disabled.
    void MarkSaved();
    // Modified cleared with CommandSave left as it is (an older file read through the
    // rows it accepted).
    void ClearModified() { modified_ = 0; }

    // Writes the line to FilePath. Throws FileError (or another std::exception) with
    // the file on the disk as it was.
    void Write(const LineOptions& options, const TextTable& grid1, const NotesSheet& notes) const;

  private:
    std::string fileTitle_, filePath_, caption_ = "Morvane", textFileName_;
    std::int16_t modified_ = 0;
    bool commandSaveEnabled_ = false;
    std::int16_t olderVersionFile_ = 0;
};

}  // namespace morvane
