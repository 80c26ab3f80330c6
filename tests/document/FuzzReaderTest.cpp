// Thousands of damaged, truncated and foreign files through the readers. Whatever the
// bytes, a reading ends in one of two ways: the document holds the file (and saves it
// again to the same cells), or the user is told "An error occurred while opening this
// file." and the document is empty. Nothing crashes or hangs.
#include <random>

#include "DocumentTestSupport.h"

namespace morvane::testing {
namespace {

class FuzzReaderTest : public DocumentTest {
  protected:
    FuzzReaderTest() { doc.setObserver(nullptr); }

    // A file of the current layout with some of everything: controls, replicates,
    // notes with commas and line ends.
    static std::string RichFile() {
        SharedRegisters shared;
        ScriptedUserPort port;
        TempFolder folder;
        LineDocument doc(shared, port, folder.path());
        doc.CommandNew();
        doc.fileOptionsControls().setComboUnit1("hour", shared);
        doc.fileOptionsControls().controls.Check2 = 1;
        doc.FileOptionsOK();
        const char* rows[][4] = {{"1", "3", "17", "0"}, {"1", "1", "19", "1"},
                                 {"2", "8", "12", "0"}, {"4", "15", "5", "0"},
                                 {"4", "2", "18", "1"}, {"8", "19", "1", "0"}};
        for (const auto& row : rows) {
            doc.setTextDose(row[0]);
            doc.setText1input(row[1]);
            doc.setText2input(row[2]);
            doc.setCheckCo(row[3][0] == '1');
            doc.CommandAccept();
        }
        doc.setTextName("Name, with comma");
        InfForm notes = doc.OpenNotesSheet();
        notes.setText4("two\r\nlines");
        doc.NotesOK(notes);
        return WriteLineFile(doc.fileOptions().controls, doc.Grid1(), doc.notes());
    }

    // Opens the bytes and checks that the reading ended as it must.
    void Check(const std::string& bytes, const std::string& what) {
        SCOPED_TRACE(what);
        const std::string path = folder.file("fuzz.mrv");
        WriteBytes(path, bytes);
        port.messages.clear();
        port.answers.clear();
        const bool opened = doc.OpenLineFile(path);
        const LineFile& file = doc.file();
        if (!opened) {
            ASSERT_FALSE(port.messages.empty());
            EXPECT_EQ(
                port.messages.back().text.rfind("An error occurred while opening this file.\n", 0),
                0u)
                << port.messages.back().text;
            // The message never carries the file's raw bytes, nor more than a short quote.
            for (const char c : port.messages.back().text)
                EXPECT_TRUE((c >= 0x20 && c < 0x7F) || c == '\n') << port.messages.back().text;
            EXPECT_LE(port.messages.back().text.size(), 240u) << port.messages.back().text;
            EXPECT_EQ(file.Caption(), "Morvane");
            EXPECT_EQ(file.FilePath(), "");
            EXPECT_EQ(doc.Grid1().rows(), 2);
            EXPECT_EQ(doc.Grid1().cols(), 3);
            EXPECT_EQ(doc.Grid2().rows(), 2);
            EXPECT_EQ(file.Modified(), 0);
            EXPECT_FALSE(doc.CalculateEnabled());
            ++failures;
        } else {
            EXPECT_EQ(file.FilePath(), path);
            EXPECT_EQ(file.Caption(), "Morvane, fuzz.mrv");
            EXPECT_EQ(file.Modified(), 0);
            ASSERT_GE(doc.Grid1().rows(), 2);
            for (int c = 0; c < doc.Grid1().cols(); ++c)
                EXPECT_EQ(doc.Grid1().text(doc.Grid1().rows() - 1, c), "");
            // Typing into what was read tells the user or takes the row, never more.
            const std::size_t told = port.messages.size();
            doc.setTextDose("3");
            doc.setText1input("5");
            doc.setText2input("5");
            doc.CommandAccept();
            EXPECT_LE(port.messages.size(), told + 1);
            // What was read is saved and read back to the same cells, unless a text holds
            // a double quote, which the format can't carry.
            if (file.OlderVersionFile() == 0 && !HoldsAQuote()) {
                const TextTable grid1 = doc.Grid1();
                const std::string again = folder.file("again.mrv");
                WriteBytes(again, WriteLineFile(doc.fileOptions().controls, grid1, doc.notes()));
                LineDocument other(shared, port, folder.path());
                EXPECT_TRUE(other.OpenLineFile(again)) << port.messages.back().text;
                EXPECT_TRUE(SameCells(other.Grid1(), grid1));
            }
            ++successes;
        }
        // The silent reading of the comparison ends in its registers, whatever the bytes.
        shared.BatchFailed = 0;
        shared.BatchName = "fuzz";
        const std::size_t told = port.messages.size();
        const bool batch = doc.OpenLineForBatch(path);
        if (!batch) {
            EXPECT_EQ(shared.BatchFailed, 1);
            EXPECT_EQ(shared.BatchMessage.rfind("An error occurred while opening fuzz\n", 0), 0u);
        }
        for (std::size_t i = told; i < port.messages.size(); ++i)  // AcceptRow's refusals only
            EXPECT_NE(port.messages[i].text.find("Illogic data"), std::string::npos)
                << port.messages[i].text;
    }

    bool HoldsAQuote() const {
        std::string texts = doc.Grid1().dump();
        const NotesSheet& n = doc.notes();
        const LineOptions& o = doc.fileOptions().controls;
        for (const std::string* t :
             {&n.TreatmentName, &n.TreatedTarget, &n.ExperimentDate, &n.MoreInformation,
              &o.ComboUnit1, &o.ComboUnit2, &o.Combo5, &o.Combo6, &o.Text5, &o.Combo7})
            texts += *t;
        return texts.find('"') != std::string::npos;
    }

    int successes = 0;
    int failures = 0;
};

TEST_F(FuzzReaderTest, EveryTruncationOfAFile) {
    const std::string sources[] = {RichFile(), ReadBytes(FixturePath("worked-type1.mrv")),
                                   ReadBytes(FixturePath("older-type1.mrv")),
                                   ReadBytes(FixturePath("older-time.mrv"))};
    for (const std::string& source : sources)
        for (std::size_t n = 0; n <= source.size(); ++n)
            Check(source.substr(0, n), "first " + std::to_string(n) + " bytes");
    EXPECT_GT(successes, 4);
    EXPECT_GT(failures, 400);
}

TEST_F(FuzzReaderTest, MutatedFiles) {
    std::mt19937 random(20240305);
    const std::string sources[] = {RichFile(), ReadBytes(FixturePath("older-time.mrv"))};
    const std::string alphabet = "0123456789,\"\r\n-.Ee TC \x00\xff";
    for (int i = 0; i < 3000; ++i) {
        std::string bytes = sources[i % 2];
        const int edits = 1 + static_cast<int>(random() % 4);
        for (int e = 0; e < edits && !bytes.empty(); ++e) {
            const std::size_t at = random() % bytes.size();
            const char c = alphabet[random() % alphabet.size()];
            switch (random() % 3) {
                case 0:
                    bytes[at] = c;
                    break;
                case 1:
                    bytes.insert(bytes.begin() + static_cast<std::ptrdiff_t>(at), c);
                    break;
                default:
                    bytes.erase(at, 1 + random() % 8);
                    break;
            }
        }
        Check(bytes, "mutation " + std::to_string(i));
        if (HasFatalFailure())
            return;
    }
    EXPECT_GT(successes, 100);
    EXPECT_GT(failures, 100);
}

TEST_F(FuzzReaderTest, RandomFiles) {
    std::mt19937 random(7);
    const std::string alphabet = "0123456789,,,\"\"\r\n-.E abc";
    for (int i = 0; i < 2000; ++i) {
        std::string bytes;
        if (i % 3 == 0)
            bytes = (i % 2 ? "2," : "1,");  // a mark, so the readers go further
        const std::size_t length = random() % 300;
        for (std::size_t k = 0; k < length; ++k)
            bytes += i % 5 == 0 ? static_cast<char>(random() % 256)
                                : alphabet[random() % alphabet.size()];
        Check(bytes, "random " + std::to_string(i));
        if (HasFatalFailure())
            return;
    }
    EXPECT_GT(failures, 1000);
}

TEST_F(FuzzReaderTest, SizesThatNoFileCouldFill) {
    const std::string head =
        "2,\"\",\"\",\"\",\"\",\"\"\r\n0,0,\"mg\",\"\",1,\"Dose\",\"LD\",\"\",0,\"0.05\",0,0\r\n";
    Check(head + "32767,32767\r\n\"a\",", "a huge table");
    EXPECT_EQ(
        port.messages.back().text,
        "An error occurred while opening this file.\nthe file ends before the end of the table "
        "(line 3, field 2)");
    Check(head + "-5,7\r\n", "a negative row count");
    Check(head + "1,7\r\n\"\",\"\",\"\",\"\"\r\n", "no room for the empty row");
    Check(head + "2,0\r\n\"\",\"\",\"\",\"\"\r\n", "no columns");
    Check(
        "1,0,0,0,0,0\r\n0,\"\",0,\"\",1,0,\"\",32767,32767,\"\",\"\",\"\",\"\",0,\"0.05\",\"\","
        "\"\",0,0,"
        "0,\"\",\"\"\r\n",
        "a huge old table");
    EXPECT_EQ(failures, 5);
}

}  // namespace
}  // namespace morvane::testing
