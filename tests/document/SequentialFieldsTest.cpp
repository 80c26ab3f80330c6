// The sequential comma format, field by field.
#include <gtest/gtest.h>

#include "document/SequentialFields.h"

namespace morvane {
namespace {

TEST(SequentialFieldsTest, WriterJoinsFieldsByCommasAndEndsRecords) {
    FieldWriter out;
    out.writeInteger(2);
    out.writeString("");
    out.writeString("a, b");
    out.endRecord();
    out.writeInteger(-32768);
    out.writeInteger(4);
    out.endRecord();
    out.writeCell("C");
    out.writeCell("0");
    out.writeString("note");
    out.endRecord();
    EXPECT_EQ(out.bytes(), "2,\"\",\"a, b\"\r\n-32768,4\r\n\"C\",\"0\",\"note\"\r\n");
}

TEST(SequentialFieldsTest, ACommaAndALineEndEndAFieldAlike) {
    FieldReader in("1,2\r\n3\n4\r5,\"six\"\r\n");
    EXPECT_EQ(in.readInteger16(), 1);
    EXPECT_EQ(in.readInteger16(), 2);
    EXPECT_EQ(in.readInteger16(), 3);
    EXPECT_EQ(in.readInteger16(), 4);
    EXPECT_EQ(in.readInteger16(), 5);
    EXPECT_EQ(in.readString(), "six");
    EXPECT_TRUE(in.atEnd());
    EXPECT_THROW(in.readString(), FileFormatError);
}

TEST(SequentialFieldsTest, QuotedStringsKeepCommasAndLineEnds) {
    FieldReader in("\"a,b\r\nc\",\"\",plain text ,\"x\"ignored,last");
    EXPECT_EQ(in.readString(), "a,b\r\nc");
    EXPECT_EQ(in.readString(), "");
    EXPECT_EQ(in.readString(), "plain text");
    EXPECT_EQ(in.readString(), "x");
    EXPECT_EQ(in.readString(), "last");
    EXPECT_TRUE(in.atEnd());
}

TEST(SequentialFieldsTest, AStringWithAQuoteEndsEarlyAndPutsTheFieldsOutOfStep) {
    FieldWriter out;
    out.writeString("say \"hi\", then");
    out.writeString("next");
    out.endRecord();
    FieldReader in(out.bytes());
    EXPECT_EQ(in.readString(), "say ");
    EXPECT_EQ(in.readString(), "then\"");
    EXPECT_EQ(in.readString(), "next");
}

TEST(SequentialFieldsTest, AnUnclosedQuoteRunsToTheEnd) {
    FieldReader in("\"open, never closed\r\n");
    EXPECT_EQ(in.readString(), "open, never closed\r\n");
    EXPECT_TRUE(in.atEnd());
}

TEST(SequentialFieldsTest, NumbersAreWholeAndFitTheirWidth) {
    FieldReader in(",\"7\", 12 ,2.5,3.5,32767,32768,-32769,abc,1e3,2147483648");
    EXPECT_EQ(in.readInteger16(), 0);   // empty
    EXPECT_EQ(in.readInteger16(), 7);   // quoted
    EXPECT_EQ(in.readInteger16(), 12);  // blanks
    EXPECT_EQ(in.readInteger16(), 2);   // halves to even
    EXPECT_EQ(in.readInteger16(), 4);
    EXPECT_EQ(in.readInteger16(), 32767);
    try {
        in.readInteger16();
        FAIL() << "32768 read into 16 bits";
    } catch (const FileFormatError& e) {
        EXPECT_STREQ(e.what(), "the number 32768 is too large for its field");
    }
    EXPECT_THROW(in.readInteger16(), FileFormatError);
    try {
        in.readInteger16();
        FAIL() << "a word read as a number";
    } catch (const FileFormatError& e) {
        EXPECT_STREQ(e.what(), "\"abc\" is not a number");
    }
    EXPECT_EQ(in.readInteger32(), 1000);
    EXPECT_THROW(in.readInteger32(), FileFormatError);
}

TEST(SequentialFieldsTest, DoublesReadAnyNumber) {
    FieldReader in("0.125,,-1E-05,x");
    EXPECT_EQ(in.readDouble(), 0.125);
    EXPECT_EQ(in.readDouble(), 0.0);
    EXPECT_EQ(in.readDouble(), -1e-05);
    EXPECT_THROW(in.readDouble(), FileFormatError);
}

TEST(SequentialFieldsTest, TheEndOfTheDataIsAnError) {
    FieldReader empty("");
    try {
        empty.readString();
        FAIL();
    } catch (const FileFormatError& e) {
        EXPECT_STREQ(e.what(), "the file ends before its last field");
    }
    FieldReader blanks("   ");
    EXPECT_THROW(blanks.readInteger16(), FileFormatError);
    FieldReader trailing("1,");
    EXPECT_EQ(trailing.readInteger16(), 1);
    EXPECT_THROW(trailing.readInteger16(), FileFormatError);
    EXPECT_EQ(FieldReader("abc").remaining(), 3u);
}

}  // namespace
}  // namespace morvane
