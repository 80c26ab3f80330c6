// The commands that replace or save the document, the "save changes" question they
// share, and the routing of a command left waiting for a save (PendingCommand).
#include <filesystem>

#include "document/FileBytes.h"
#include "document/LineDocument.h"
#include "document/LineFileChecks.h"

namespace morvane {
namespace {

bool IsRefusedInFileName(char c) {
    return c == '"' || c == '|' || c == '<' || c == '>' || c == '*' || c == '?' || c == ':' ||
           c == '\\' || c == '/';
}

bool EndsWithMrv(const std::string& name) {
    if (name.size() < 4)
        return false;
    std::string tail = name.substr(name.size() - 4);
    for (char& ch : tail)
        if (ch >= 'A' && ch <= 'Z')
            ch = static_cast<char>(ch - 'A' + 'a');
    return tail == ".mrv";
}

// The folder's list of line files (pattern "*.mrv") holds an entry spelt exactly as
// the title, case included.
bool LineFileListed(const std::string& folder, const std::string& title) {
    if (!EndsWithMrv(title))
        return false;
    std::error_code error;
    const std::filesystem::path entry =
        std::filesystem::path(folder.empty() ? "." : folder) / title;
    return std::filesystem::is_regular_file(entry, error);
}

const char* const kInputCellsLeft =
    "You still have a data in input cells\nData in input cells will not be included in the "
    "file.\nDo you want to continue and ignore these data?";

}  // namespace

std::string CleanFileName(const std::string& name) {
    std::string text = name;
    const std::size_t length = text.size();
    for (std::size_t i = 0; i < length; ++i) {
        if (i < text.size() && IsRefusedInFileName(text[i]))
            text.erase(i, 1);
    }
    return text;
}

std::string OlderVersionLines(const std::string& fileTitle) {
    return "\"" + fileTitle +
           "\" file belongs to older version.\nWhen you save this file, it'll be saved according "
           "to current version format.\nSo it'll not be accessible by the older version.";
}

Answer LineDocument::askSaveChanges() {
    std::string text =
        file_.OlderVersionFile() == 1 ? OlderVersionLines(file_.FileTitle()) + "\n" : "";
    if (file_.Modified() == 0)
        return Answer::No;
    text += "Do you want to save changes to \n" + file_.FileTitle() + "?";
    return port_.ask(
        Message{text, Buttons::YesNoCancel, Icon::Question, Answer::Yes, "save changes"});
}

// The "save changes" question before a command replaces the document. Yes saves
// first and leaves the command pending, so that the end of the save runs it again;
// Cancel puts the focus back in the dose cell. The command goes on only at No (or
// when nothing was asked).
bool LineDocument::passSaveChangesQuestion(MainCommand pendingCommand) {
    switch (askSaveChanges()) {
        case Answer::Yes:
            form_.PendingCommand = pendingCommand;
            CommandSave();
            return false;
        case Answer::Cancel:
            if (pendingCommand ==
                MainCommand::New)  // a cancelled New drops the import that was to follow
                form_.ImportAfterNew = 0;
            setFocus(Focus::TextDose);
            notify();
            return false;
        default:
            return true;
    }
}

void LineDocument::CommandNew() {
    if (passSaveChangesQuestion(MainCommand::New))
        beginNewDocumentDialog();
}

void LineDocument::beginNewDocumentDialog() {
    beforeNew_ = DialogSnapshot{options_, shared_.DoseWord, shared_.UnitWord, shared_.EstimateWord};
    form_.Enabled = false;
    FileOptionsText1(FileOptionsCode::LoadOptionDefaults);
    options_.Visible = true;
    if (observer_)
        observer_->optionsDialogShown();
    notify();
}

void LineDocument::CommandOpen() {
    if (!passSaveChangesQuestion(MainCommand::Open))
        return;
    const std::optional<std::string> path =
        port_.openFileName(FileDialog{"Open Morvane file", kLineFileFilter, "", ""});
    if (!path)
        return;  // cancelled: the document stays as it was
    OpenLineFile(*path);
}

bool LineDocument::CommandOpenFile(const std::string& path) {
    switch (askSaveChanges()) {
        case Answer::Yes:
            CommandSave();
            if (file_.Modified() != 0)
                return false;  // the save was cancelled or failed: nothing is opened
            break;
        case Answer::Cancel:
            setFocus(Focus::TextDose);
            notify();
            return false;
        default:
            break;
    }
    return OpenLineFile(path);
}

void LineDocument::CommandRelative() {
    if (!passSaveChangesQuestion(MainCommand::Relative))
        return;
    if (observer_)
        observer_->relativeRequested();
}

bool LineDocument::QueryClose() {
    switch (askSaveChanges()) {
        case Answer::Yes:
            form_.ClosingAfterSave = 1;
            CommandSave();
            return false;  // the end of the save ends the program
        case Answer::Cancel:
            return false;
        default:
            return true;
    }
}

// A failed or cancelled save drops a pending New or Open and the closing; a pending
// Relative stays.
void LineDocument::dropPendingAfterFailedSave() {
    if (form_.PendingCommand == MainCommand::New || form_.PendingCommand == MainCommand::Open)
        form_.PendingCommand = MainCommand::None;
    form_.ClosingAfterSave = 0;
}

void LineDocument::CommandSave() {
    if (!table_.Text1input().empty() || !table_.Text2input().empty()) {
        const Message question{kInputCellsLeft, Buttons::OkCancel, Icon::None, Answer::Cancel};
        if (port_.ask(question) == Answer::Cancel) {
            form_.PendingCommand = MainCommand::None;
            form_.ClosingAfterSave = 0;
            setFocus(Focus::TextDose);
            notify();
            return;
        }
    }
    file_.setTextFileName(CleanFileName(notes_.TreatmentName));
    if (file_.FilePath().empty() && !chooseSaveName()) {
        dropPendingAfterFailedSave();
        notify();
        return;
    }

    try {
        file_.Write(options_.controls, table_.Grid1(), notes_);
    } catch (const std::exception& e) {
        dropPendingAfterFailedSave();
        port_.tellError(std::string("An error occurred while saving this file.\n") + e.what());
        notify();
        return;
    }
    saveTail();
}

void LineDocument::CommandSaveAs() {
    const LineFile before = file_;
    file_.ForgetName();
    CommandSave();
    if (file_.FilePath().empty()) {
        file_ = before;
        notify();
    }
}

// The save dialog, asked again while the user refuses to replace an existing line
// file. False when it was cancelled.
bool LineDocument::chooseSaveName() {
    FileDialog dialog{"Save Morvane file", kLineFileFilter, file_.TextFileName(), ""};
    for (;;) {
        const std::optional<std::string> chosen = port_.saveFileName(dialog);
        if (!chosen)
            return false;
        file_.ChooseName(*chosen);
        const std::string& path = file_.FilePath();
        const std::string folder = path.substr(0, path.size() - file_.FileTitle().size());
        if (LineFileListed(folder, file_.FileTitle())) {
            const Message replace{
                "File with the same name \"" + file_.FileTitle() +
                    "\" already exist.\nDo you want to replace the existing file?",
                Buttons::YesNo, Icon::Critical, Answer::No};
            if (port_.ask(replace) == Answer::No) {
                file_.ForgetName();
                setFocus(Focus::TextDose);
                form_.ClosingAfterSave = 0;
                dialog.fileName = *chosen;
                continue;
            }
        }
        file_.ShowNameInCaption();
        return true;
    }
}

void LineDocument::saveTail() {
    file_.MarkSaved();
    notify();
    const MainCommand pending = form_.PendingCommand;
    form_.PendingCommand = MainCommand::None;
    switch (pending) {
        case MainCommand::New:
            CommandNew();
            break;
        case MainCommand::Open:
            CommandOpen();
            break;
        case MainCommand::Relative:
            CommandRelative();
            break;
        case MainCommand::None:
            break;
    }
    // Cleared only now: an older file opened by the pending Open loses its mark at once.
    file_.setOlderVersionFile(0);
    if (form_.ClosingAfterSave == 1 && observer_)
        observer_->programEndRequested();
    notify();
}

}  // namespace morvane
