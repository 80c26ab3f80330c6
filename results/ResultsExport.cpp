#include "results/ResultsExport.h"

#include <algorithm>
#include <cctype>
#include <filesystem>
#include <system_error>

#include "core/Fault.h"
#include "document/FileBytes.h"

namespace morvane {
namespace {

std::string Lower(std::string text) {
    std::transform(text.begin(), text.end(), text.begin(),
                   [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
    return text;
}

bool EndsWith(const std::string& text, const std::string& end) {
    return text.size() >= end.size() &&
           text.compare(text.size() - end.size(), end.size(), end) == 0;
}

// Whether the folder's list of files with the pattern holds the title: a plain file
// of exactly that name. The list matches the pattern without regard to case.
bool FolderListHolds(const std::string& path, const std::string& pattern) {
    namespace fs = std::filesystem;
    const std::string title = ShortFileName(path);
    if (!EndsWith(Lower(title), Lower(pattern)))
        return false;
    std::error_code error;
    const fs::path folder = fs::path(path).parent_path();
    for (fs::directory_iterator it(folder.empty() ? fs::path(".") : folder, error), end;
         !error && it != end; it.increment(error)) {
        if (it->path().filename().string() == title && it->is_regular_file(error))
            return true;
    }
    return false;
}

}  // namespace

std::optional<PictureFormat> PictureFormatOf(const std::string& path) {
    const std::string name = Lower(ShortFileName(path));
    if (EndsWith(name, ".bmp"))
        return PictureFormat::Bmp;
    if (EndsWith(name, ".png"))
        return PictureFormat::Png;
    if (EndsWith(name, ".svg"))
        return PictureFormat::Svg;
    if (EndsWith(name, ".pdf"))
        return PictureFormat::Pdf;
    return std::nullopt;
}

std::optional<std::string> AskExportFile(UserPort& port, const FileDialog& dialog,
                                         const std::string& pattern) {
    return AskExportFile(port, dialog, [&pattern](const std::string&) { return pattern; });
}

std::optional<std::string> AskExportFile(
    UserPort& port, const FileDialog& dialog,
    const std::function<std::string(const std::string&)>& patternOf) {
    for (;;) {
        std::optional<std::string> path = port.saveFileName(dialog);
        if (!path)
            return std::nullopt;
        if (!FolderListHolds(*path, patternOf(*path)))
            return path;
        const std::string question = "File with the same name \"" + ShortFileName(*path) +
                                     "\" already exist.\nDo you want to replace the existing file?";
        if (port.ask(Message{question, Buttons::YesNo, Icon::Critical, Answer::No}) == Answer::Yes)
            return path;
    }
}

bool WriteExportFile(UserPort& port, const std::string& path, const std::string& bytes) {
    try {
        ReplaceFileContents(path, bytes);
        return true;
    } catch (const Fault& failure) {
        port.tellError(std::string(kSaveFailed) + "\n" + failure.what());
        return false;
    }
}

bool SaveSpreadsheet(UserPort& port, const std::function<std::string()>& compose,
                     const std::function<std::string()>& composeWorkbook) {
    const FileDialog dialog{"Save results as spreadsheet",
                            "Excel files (*.xls)|*.xls|Excel workbooks (*.xlsx)|*.xlsx", "", ""};
    auto isWorkbook = [](const std::string& chosen) {
        return EndsWith(Lower(ShortFileName(chosen)), ".xlsx");
    };
    const auto path = AskExportFile(port, dialog, [&](const std::string& chosen) {
        return std::string(isWorkbook(chosen) ? ".xlsx" : ".xls");
    });
    if (!path)
        return false;
    std::string bytes;
    try {
        bytes = isWorkbook(*path) ? composeWorkbook() : compose();
    } catch (const Fault& failure) {
        port.tellError(std::string(kSaveFailed) + "\n" + failure.what());
        return false;
    }
    return WriteExportFile(port, *path, bytes);
}

bool SaveChartBitmap(UserPort& port, const std::function<Drawing()>& compose,
                     const PictureEncoder& encode) {
    const Drawing picture = compose();
    const FileDialog dialog{"Save chart as bmp file",
                            "Bitmap files (*.bmp)|*.bmp|PNG pictures (*.png)|*.png|"
                            "SVG pictures (*.svg)|*.svg|PDF documents (*.pdf)|*.pdf",
                            "", ""};
    // The list of the folder shows the files of the extension that was typed, the
    // bitmaps when it is none of those offered.
    const auto path = AskExportFile(port, dialog, [](const std::string& chosen) {
        static constexpr const char* kPatterns[] = {".bmp", ".png", ".svg", ".pdf"};
        return std::string(
            kPatterns[static_cast<int>(PictureFormatOf(chosen).value_or(PictureFormat::Bmp))]);
    });
    if (!path)
        return false;
    std::string bytes;
    try {
        bytes = encode(picture, PictureFormatOf(*path).value_or(PictureFormat::Bmp));
    } catch (const Fault& failure) {
        port.tellError(std::string(kSaveFailed) + "\n" + failure.what());
        return false;
    }
    return WriteExportFile(port, *path, bytes);
}

}  // namespace morvane
