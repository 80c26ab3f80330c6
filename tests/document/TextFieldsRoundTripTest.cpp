// Every printable character but the double quote, typed into every text box whose text
// goes into a line file, reads back as it was typed after Save and Open. The double
// quote is the one character the layout cannot keep (TextFields.h).
#include "DocumentTestSupport.h"
#include "document/TextFields.h"

namespace morvane::testing {
namespace {

// The printable ASCII characters but the double quote, from the blank to the tilde.
std::string Printable() {
    std::string text;
    for (char c = ' '; c <= '~'; ++c)
        if (c != '"')
            text += c;
    return text;
}

class TextFieldsRoundTripTest : public DocumentTest {
  protected:
    // Types the notes and the treatment name, saves, opens the file in a new document
    // and gives it back.
    void TypeNotes(const std::string& text) {
        doc.setTextName("name " + text);
        InfForm notes = doc.OpenNotesSheet();
        notes.setText2("target " + text);
        notes.setText3("date " + text);
        notes.setText4("more " + text + "\r\nsecond line " + text);
        doc.NotesOK(notes);
    }

    void SaveAndReopen(LineDocument& other) {
        const std::string path = folder.file("every character.mrv");
        doc.setTextDose("");
        port.saveAnswers.push_back(path);
        doc.CommandSave();
        ASSERT_EQ(doc.file().Modified(), 0) << LastMessage();
        ASSERT_TRUE(other.OpenLineFile(path)) << LastMessage();
    }

    void ExpectSameNotes(const LineDocument& other) {
        const std::string text = Printable();
        EXPECT_EQ(other.notes().TreatmentName, "name " + text);
        EXPECT_EQ(other.notes().TreatedTarget, "target " + text);
        EXPECT_EQ(other.notes().ExperimentDate, "date " + text);
        EXPECT_EQ(other.notes().MoreInformation, "more " + text + "\r\nsecond line " + text);
        EXPECT_EQ(other.main().TextName, "name " + text);
    }
};

TEST_F(TextFieldsRoundTripTest, TheRuleRefusesOnlyANewDoubleQuote) {
    EXPECT_TRUE(TextFieldTakes("", Printable()));
    EXPECT_FALSE(TextFieldTakes("ab", "a\"b"));
    EXPECT_TRUE(TextFieldTakes("a\"b", "a\"bc"));  // a quote read from a file stays
    EXPECT_FALSE(TextFieldTakes("a\"b", "a\"b\""));
}

TEST_F(TextFieldsRoundTripTest, TheUnitsAndTheNotesOfTheAdjustedUnitsTab) {
    const std::string text = Printable();
    StartLine(DataType::TotalAndResponded, "u1 " + text, "u2 " + text);
    Type("1", "20", "5");
    Type("2", "20", "10");
    TypeNotes(text);
    const LineOptions typed = doc.fileOptions().controls;
    EXPECT_EQ(typed.ComboUnit1, "u1 " + text);
    EXPECT_EQ(typed.ComboUnit2, "u2 " + text);
    LineDocument other(shared, port, folder.path());
    SaveAndReopen(other);
    EXPECT_EQ(other.fileOptions().controls, typed);
    EXPECT_TRUE(SameCells(other.Grid1(), doc.Grid1()));
    ExpectSameNotes(other);
}

TEST_F(TextFieldsRoundTripTest, TheCustomWordsOfTheCustomizedUnitsTab) {
    const std::string text = Printable();
    StartCustomLine(DataType::TotalAndResponded, false, "factor " + text, "abbreviation " + text,
                    "units " + text);
    Type("1", "20", "5");
    Type("2", "20", "10");
    TypeNotes(text);
    const LineOptions typed = doc.fileOptions().controls;
    EXPECT_EQ(typed.Combo5, "factor " + text);
    EXPECT_EQ(typed.Combo6, "abbreviation " + text);
    EXPECT_EQ(typed.Text5, "units " + text);
    LineDocument other(shared, port, folder.path());
    SaveAndReopen(other);
    EXPECT_EQ(other.fileOptions().controls, typed);
    EXPECT_TRUE(SameCells(other.Grid1(), doc.Grid1()));
    ExpectSameNotes(other);
}

}  // namespace
}  // namespace morvane::testing
