#pragma once
// The sequential comma format of line files, the defaults file and text imports: a
// stream of fields, each ended by a comma or a line end.
//
// Writing: integers as plain decimal digits, strings between double quotes with no
// escape, fields joined by one comma, a record ended by carriage return and line feed.
// Reading: a field runs to the next comma or line end; a field that opens with a
// double quote runs to the closing quote, commas and line ends inside kept, and what
// follows the quote up to the next comma or line end is dropped. A comma and a line
// end end a field alike, so the reader does not care how the fields are spread over
// lines. A string holding a double quote therefore ends early on reading and puts
// every later field out of step; the writer does not check for this.
//
// The bytes are the single-byte text of the machine that wrote them and are kept as
// they are: no character set is converted here.

#include <cstdint>
#include <string>
#include <string_view>

#include "core/Fault.h"

namespace morvane {

// A file that cannot be read as the layout says: the end came too early, a number
// field holds no number or one too large for its width. The text says which.
class FileFormatError : public Fault {
  public:
    using Fault::Fault;
};

class FieldReader {
  public:
    // Reads from the bytes, which must outlive the reader.
    explicit FieldReader(std::string_view bytes) : bytes_(bytes) {}

    // The next field's text: quotes taken off a quoted field, blanks around an
    // unquoted one. Throws FileFormatError at the end of the data.
    std::string readString();
    // The next field as a number that must fit in 16 or 32 bits: an empty field reads
    // as 0, a fraction is rounded to the even whole number. Throws FileFormatError.
    std::int16_t readInteger16();
    std::int32_t readInteger32();
    // The next field as a double; an empty field reads as 0.
    double readDouble();

    // Where the last field read stands, for messages: "line 3, field 2". Lines are
    // counted by the line ends that end fields, fields from 1 within a line.
    std::string lastFieldPosition() const;

    // True when no field is left.
    bool atEnd() const { return pos_ >= bytes_.size(); }
    // Bytes not yet read: a field takes at least one, so no more fields than this can
    // follow.
    std::size_t remaining() const { return bytes_.size() - pos_; }

  private:
    std::string_view bytes_;
    std::size_t pos_ = 0;
    int line_ = 1, field_ = 1;          // of the next field
    int lastLine_ = 1, lastField_ = 1;  // of the field read last
};

// A field's text as a message quotes it: between double quotes, cut to its first 60
// characters with "..." behind, and every byte that is no printable ASCII character
// shown as "?", so that a message never carries a file's raw bytes.
std::string QuoteField(std::string_view text);

// Builds the text of a file field by field.
class FieldWriter {
  public:
    void writeInteger(std::int64_t value);  // a field, then a comma or the record end
    void writeString(std::string_view text);
    // Ends the record: carriage return and line feed after the last field.
    void endRecord();
    // A cell of the table section: the quoted text and a comma behind it, no line
    // end, so that the fields of the next write follow on the same line.
    void writeCell(std::string_view text);

    const std::string& bytes() const { return out_; }
    std::string take() { return std::move(out_); }

  private:
    void separate();
    std::string out_;
    bool inRecord_ = false;
};

}  // namespace morvane
