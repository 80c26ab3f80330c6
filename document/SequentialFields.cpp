#include "document/SequentialFields.h"

#include <limits>

#include "core/NumberText.h"

namespace morvane {
namespace {

bool IsBlank(char c) {
    return c == ' ' || c == '\t';
}
bool EndsField(char c) {
    return c == ',' || c == '\r' || c == '\n';
}

std::int32_t WholeNumber(const std::string& field, std::int32_t least, std::int32_t most) {
    if (field.empty())
        return 0;
    const std::optional<double> value = ParseNumber(field);
    if (!value)
        throw FileFormatError(QuoteField(field) + " is not a number");
    const std::optional<std::int32_t> whole = RoundHalfEven32(*value);
    if (!whole || *whole < least || *whole > most) {
        const std::string quoted = QuoteField(field);
        throw FileFormatError("the number " + quoted.substr(1, quoted.size() - 2) +
                              " is too large for its field");
    }
    return *whole;
}

}  // namespace

std::string QuoteField(std::string_view text) {
    constexpr std::size_t kMost = 60;
    std::string out = "\"";
    for (std::size_t i = 0; i < text.size() && i < kMost; ++i) {
        const unsigned char c = static_cast<unsigned char>(text[i]);
        out += c >= 0x20 && c < 0x7F ? static_cast<char>(c) : '?';
    }
    if (text.size() > kMost)
        out += "...";
    out += '"';
    return out;
}

std::string FieldReader::lastFieldPosition() const {
    return "line " + std::to_string(lastLine_) + ", field " + std::to_string(lastField_);
}

std::string FieldReader::readString() {
    lastLine_ = line_;
    lastField_ = field_;
    while (pos_ < bytes_.size() && IsBlank(bytes_[pos_]))
        ++pos_;
    if (pos_ >= bytes_.size())
        throw FileFormatError("the file ends before its last field");
    std::string text;
    if (bytes_[pos_] == '"') {
        const std::size_t close = bytes_.find('"', pos_ + 1);
        if (close == std::string_view::npos) {
            text = std::string(bytes_.substr(pos_ + 1));
            pos_ = bytes_.size();
            return text;
        }
        text = std::string(bytes_.substr(pos_ + 1, close - pos_ - 1));
        pos_ = close + 1;
        // Whatever stands between the closing quote and the field's end is dropped.
        while (pos_ < bytes_.size() && !EndsField(bytes_[pos_]))
            ++pos_;
    } else {
        const std::size_t start = pos_;
        while (pos_ < bytes_.size() && !EndsField(bytes_[pos_]))
            ++pos_;
        std::size_t end = pos_;
        while (end > start && IsBlank(bytes_[end - 1]))
            --end;
        text = std::string(bytes_.substr(start, end - start));
    }
    if (pos_ < bytes_.size()) {
        const char c = bytes_[pos_++];
        if (c == '\r' && pos_ < bytes_.size() && bytes_[pos_] == '\n')
            ++pos_;
        if (c == ',') {
            ++field_;
        } else {
            ++line_;
            field_ = 1;
        }
    }
    return text;
}

std::int16_t FieldReader::readInteger16() {
    return static_cast<std::int16_t>(WholeNumber(readString(),
                                                 std::numeric_limits<std::int16_t>::min(),
                                                 std::numeric_limits<std::int16_t>::max()));
}

std::int32_t FieldReader::readInteger32() {
    return WholeNumber(readString(), std::numeric_limits<std::int32_t>::min(),
                       std::numeric_limits<std::int32_t>::max());
}

double FieldReader::readDouble() {
    const std::string field = readString();
    if (field.empty())
        return 0;
    const std::optional<double> value = ParseNumber(field);
    if (!value)
        throw FileFormatError(QuoteField(field) + " is not a number");
    return *value;
}

void FieldWriter::separate() {
    if (inRecord_)
        out_ += ',';
    inRecord_ = true;
}

void FieldWriter::writeInteger(std::int64_t value) {
    separate();
    out_ += std::to_string(value);
}

void FieldWriter::writeString(std::string_view text) {
    separate();
    out_ += '"';
    out_ += text;
    out_ += '"';
}

void FieldWriter::endRecord() {
    out_ += "\r\n";
    inRecord_ = false;
}

void FieldWriter::writeCell(std::string_view text) {
    separate();
    out_ += '"';
    out_ += text;
    out_ += "\",";
    inRecord_ = false;  // the comma behind the cell is written
}

}  // namespace morvane
