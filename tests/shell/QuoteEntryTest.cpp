// The double quote is refused in every box whose text goes into a line file: the
// treatment name, the notes, the units and the custom words of both options dialogs.
// The box keeps its text, the document never sees the quote, and the user reads why.

#include <QPlainTextEdit>
#include <QTest>

#include "ShellTestSupport.h"
#include "document/TextFields.h"
#include "shell/ChangeOptionsDialog.h"
#include "shell/NotesDialog.h"

using namespace morvane;
using namespace morvane::testing;

namespace {

const QString kRefused =
    "A double quote (\") can't be used here: a line file can't keep it.\nUse two single quotes "
    "('') instead.";

}  // namespace

class QuoteEntryTest : public QObject {
    Q_OBJECT

    // Types "ab\"c" at the end of the box: the quote is refused and told once, the rest
    // is taken.
    static void TypeWithAQuote(ShellFixture& f, QWidget* box) {
        const int before = static_cast<int>(f.port.messages.size());
        box->setFocus(Qt::MouseFocusReason);
        QTest::keyClick(box, Qt::Key_End);
        QTest::keyClicks(box, "ab\"c");
        QCoreApplication::processEvents();
        QCOMPARE(static_cast<int>(f.port.messages.size()), before + 1);
        QCOMPARE(f.port.lastText(), kRefused);
    }

  private slots:
    void theMessage() { QCOMPARE(QString(kDoubleQuoteRefused), kRefused); }

    void theTreatmentName() {
        ShellFixture f;
        MainWindow& main = f.program->mainWindow();
        QVERIFY(ShowActive(main));
        NewLine(f);
        TypeInto(main.TextName(), "Perm");
        TypeWithAQuote(f, main.TextName());
        QCOMPARE(main.TextName()->text(), QString("Permabc"));
        QCOMPARE(Text(f.program->document().notes().TreatmentName), QString("Permabc"));
        // A paste is refused as typing is.
        main.TextName()->insert("x\"y");
        QCoreApplication::processEvents();
        QCOMPARE(main.TextName()->text(), QString("Permabc"));
        QCOMPARE(f.port.lastText(), kRefused);
    }

    void theNotes() {
        ShellFixture f;
        MainWindow& main = f.program->mainWindow();
        QVERIFY(ShowActive(main));
        NewLine(f);
        Click(main.CommandInf_form());
        NotesDialog* notes = f.program->notesDialog();
        QVERIFY(notes && notes->isVisible());
        for (QLineEdit* box : {notes->Text1(), notes->Text2(), notes->Text3()}) {
            TypeWithAQuote(f, box);
            QCOMPARE(box->text(), QString("abc"));
        }
        TypeWithAQuote(f, notes->Text4());
        QCOMPARE(notes->Text4()->toPlainText(), QString("abc"));
        Click(notes->Command1());
        const NotesSheet& sheet = f.program->document().notes();
        QCOMPARE(Text(sheet.TreatmentName), QString("abc"));
        QCOMPARE(Text(sheet.TreatedTarget), QString("abc"));
        QCOMPARE(Text(sheet.ExperimentDate), QString("abc"));
        QCOMPARE(Text(sheet.MoreInformation), QString("abc"));
    }

    void theNewLineDialog() {
        ShellFixture f;
        MainWindow& main = f.program->mainWindow();
        QVERIFY(ShowActive(main));
        Click(main.CommandNew());
        OptionsDialog& options = f.program->optionsDialog();
        QVERIFY(options.isVisible());
        TypeInto(options.ComboUnit1()->lineEdit(), "m");
        TypeWithAQuote(f, options.ComboUnit1()->lineEdit());
        QCOMPARE(options.ComboUnit1()->currentText(), QString("mabc"));
        TypeInto(options.ComboUnit2()->lineEdit(), "l");
        TypeWithAQuote(f, options.ComboUnit2()->lineEdit());
        QCOMPARE(options.ComboUnit2()->currentText(), QString("labc"));
        TypeWithAQuote(f, options.Combo5()->lineEdit());
        TypeWithAQuote(f, options.Combo6()->lineEdit());
        TypeWithAQuote(f, options.Text5());
        QCOMPARE(options.Text5()->text(), QString("abc"));
        const LineOptions& controls = f.program->document().fileOptions().controls;
        QCOMPARE(Text(controls.ComboUnit1), QString("mabc"));
        QCOMPARE(Text(controls.Text5), QString("abc"));
        QVERIFY(Text(controls.Combo5).indexOf('"') < 0);
        QVERIFY(Text(controls.Combo6).indexOf('"') < 0);
    }

    void theChangeOptionsDialog() {
        ShellFixture f;
        MainWindow& main = f.program->mainWindow();
        QVERIFY(ShowActive(main));
        NewLine(f);
        Click(main.CommandChgangeOptions());
        ChangeOptionsDialog* change = f.program->changeOptionsDialog();
        QVERIFY(change && change->isVisible());
        TypeWithAQuote(f, change->Text5());
        QCOMPARE(change->Text5()->text(), QString("mgabc"));
        TypeWithAQuote(f, change->Combo5()->lineEdit());
        QCOMPARE(change->Combo5()->currentText(), QString("Doseabc"));
        TypeWithAQuote(f, change->Combo6()->lineEdit());
        QCOMPARE(change->Combo6()->currentText(), QString("LDabc"));
        Click(change->Cancel());
    }
};

QTEST_MAIN(QuoteEntryTest)
#include "QuoteEntryTest.moc"
