#include "document/LineFile.h"

#include "document/FileBytes.h"
#include "document/LineFileChecks.h"
#include "document/LineFileFormat.h"

namespace morvane {

void LineFile::Close() {
    fileTitle_.clear();
    filePath_.clear();
    caption_ = "Morvane";
}

void LineFile::NameNew() {
    fileTitle_ = "New file";
    caption_ = "Morvane, New file";
}

void LineFile::NameFile(const std::string& path) {
    ChooseName(path);
    ShowNameInCaption();
}

void LineFile::ChooseName(const std::string& path) {
    filePath_ = path;
    fileTitle_ = ShortFileName(path);
}

void LineFile::ForgetName() {
    filePath_.clear();
    fileTitle_ = "New file";
}

void LineFile::MarkChanged() {
    modified_ = 1;
    commandSaveEnabled_ = true;
}

void LineFile::MarkSaved() {
    modified_ = 0;
    commandSaveEnabled_ = false;
}

void LineFile::Write(const LineOptions& options, const TextTable& grid1,
                     const NotesSheet& notes) const {
    ReplaceFileContents(filePath_, WriteCheckedLineFile(options, grid1, notes));
}

}  // namespace morvane
