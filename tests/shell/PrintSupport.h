#pragma once
// Reading a printed PDF back with poppler-utils: its text in reading order
// (pdftotext -layout), and its pages and their sizes (pdfinfo).

#include <QProcess>
#include <QRegularExpression>
#include <QString>
#include <QStringList>

namespace morvane::testing {

inline QString RunTool(const QString& program, const QStringList& arguments) {
    QProcess process;
    process.start(program, arguments);
    if (!process.waitForFinished(60000))
        return {};
    return QString::fromUtf8(process.readAllStandardOutput());
}

// The text of one page, or of all pages when page is 0.
inline QString PdfText(const QString& path, int page = 0) {
    QStringList arguments{"-layout"};
    if (page > 0)
        arguments << "-f" << QString::number(page) << "-l" << QString::number(page);
    return RunTool("pdftotext", arguments << path << "-");
}

inline int PdfPages(const QString& path) {
    const QRegularExpression pages("^Pages:\\s+(\\d+)", QRegularExpression::MultilineOption);
    const auto match = pages.match(RunTool("pdfinfo", {path}));
    return match.hasMatch() ? match.captured(1).toInt() : -1;
}

// "595x842" (portrait A4) or "842x595" (landscape), in whole points, for each page.
inline QStringList PdfPageSizes(const QString& path) {
    const int pages = PdfPages(path);
    const QString info = RunTool("pdfinfo", {"-f", "1", "-l", QString::number(pages), path});
    const QRegularExpression size("^Page\\s+\\d+ size:\\s+([\\d.]+) x ([\\d.]+) pts",
                                  QRegularExpression::MultilineOption);
    QStringList sizes;
    for (auto it = size.globalMatch(info); it.hasNext();) {
        const auto m = it.next();
        sizes << QString::number(qRound(m.captured(1).toDouble())) + "x" +
                     QString::number(qRound(m.captured(2).toDouble()));
    }
    return sizes;
}

inline int Count(const QString& text, const QString& word) {
    return static_cast<int>(text.count(word));
}

}  // namespace morvane::testing
