#pragma once
// Line files for the tests and pictures of the comparison windows: field strains of
// one assay, each less susceptible than the one before, written in the current line
// file layout into a folder.

#include <QFile>
#include <QString>
#include <QStringList>
#include <cmath>
#include <cstdio>
#include <string>

namespace morvane::testing {

// Writes `count` line files "strain01.mrv" ... into the folder and returns their
// paths in order. Five doses of 50 individuals each; strain i starts at 1.3 to the
// power i and its doses rise by a factor that varies with i, so that slopes differ.
// `units` gives the units of each file in turn; files past its end have "mg".
inline QStringList WriteStrainFiles(const QString& folder, int count,
                                    const QString& prefix = "strain",
                                    const QStringList& units = {}) {
    static const int base[] = {5, 14, 26, 38, 46};
    QStringList paths;
    for (int i = 1; i <= count; ++i) {
        const QString path = QString("%1/%2%3.mrv").arg(folder, prefix).arg(i, 2, 10, QChar('0'));
        QString text = "2,\"\",\"\",\"\",\"\",\"\"\r\n";
        const QString unit = i - 1 < units.size() ? units[i - 1] : QString("mg");
        text += "1,0,\"" + unit + "\",\"\",1,\"Dose\",\"LD\",\"\",0,\"0.05\",0,0\r\n";
        text += "7,6\r\n";
        const double first = std::pow(1.3, i);
        const double step = 1.6 + (i % 4) * 0.4;
        for (int k = 0; k < 5; ++k) {
            const double dose = first * std::pow(step, k);
            const int responded = base[k] + (i + k) % 3 - 1;
            char cells[200];
            std::snprintf(cells, sizeof cells, "\"T\",\"%.15g\",\"50\",\"%d\",\"%.3f\",\"%.11fT\",",
                          dose, responded, responded / 50.0 * 100, std::pow(dose, 0.01));
            text += QString::fromLatin1(cells);
        }
        text += "\"T\",\"\",\"\",\"\"\r\n";
        QFile file(path);
        if (file.open(QIODevice::WriteOnly)) {
            file.write(text.toLatin1());
            paths << path;
        }
    }
    return paths;
}

}  // namespace morvane::testing
