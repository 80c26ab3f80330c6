#include "core/NumberText.h"

#include <cctype>
#include <charconv>
#include <cmath>
#include <cstdio>
#include <cstdlib>

namespace morvane {
namespace {

// A finite nonzero double as its 15 significant decimal digits: value =
// 0.d1d2...d15 * 10^(exponent + 1), i.e. d1 stands at the place 10^exponent.
struct Digits15 {
    bool negative = false;
    std::string digits;  // exactly 15 characters '0'..'9', digits[0] != '0'
    int exponent = 0;
};

Digits15 ToDigits15(double value) {
    // Correctly rounded to 15 significant digits, as "%.14e" writes it.
    char buffer[64];
    const auto result =
        std::to_chars(buffer, buffer + sizeof buffer, value, std::chars_format::scientific, 14);
    Digits15 d;
    const char* p = buffer;
    if (*p == '-') {
        d.negative = true;
        ++p;
    }
    d.digits.reserve(15);
    d.digits.push_back(*p++);
    ++p;  // the point
    while (p < result.ptr && *p != 'e')
        d.digits.push_back(*p++);
    ++p;  // 'e'
    int exponent = 0;
    std::from_chars(*p == '+' ? p + 1 : p, result.ptr, exponent);
    d.exponent = exponent;
    return d;
}

std::string StripTrailingZeros(std::string digits) {
    while (digits.size() > 1 && digits.back() == '0')
        digits.pop_back();
    return digits;
}

std::string PlainFromDigits(bool negative, const std::string& significant, int exponent) {
    std::string out = negative ? "-" : "";
    const int n = static_cast<int>(significant.size());
    if (exponent >= 0) {
        if (n <= exponent + 1) {
            out += significant;
            out.append(static_cast<std::size_t>(exponent + 1 - n), '0');
        } else {
            out += significant.substr(0, static_cast<std::size_t>(exponent + 1));
            out += '.';
            out += significant.substr(static_cast<std::size_t>(exponent + 1));
        }
    } else {
        out += "0.";
        out.append(static_cast<std::size_t>(-exponent - 1), '0');
        out += significant;
    }
    return out;
}

std::string ExponentSuffix(int exponent, bool padTwo) {
    std::string out = exponent < 0 ? "E-" : "E+";
    std::string e = std::to_string(exponent < 0 ? -exponent : exponent);
    if (padTwo && e.size() < 2)
        e.insert(0, 1, '0');
    return out + e;
}

// Adds one at the last place of a digit string; returns true when it carried out of
// the first digit (the string then reads 1 followed by zeros, one digit longer).
bool IncrementDigits(std::string& digits) {
    for (std::size_t i = digits.size(); i-- > 0;) {
        if (digits[i] == '9') {
            digits[i] = '0';
        } else {
            ++digits[i];
            return false;
        }
    }
    digits.insert(0, 1, '1');
    return true;
}

std::string FormatFixed(double value, int decimals) {
    if (value == 0.0 || !std::isfinite(value)) {
        std::string out = "0";
        if (decimals > 0)
            out += "." + std::string(static_cast<std::size_t>(decimals), '0');
        return out;
    }
    const Digits15 d = ToDigits15(value);
    // Place values run from 10^exponent down; keep every digit at or above
    // 10^-decimals, round half away from zero on the first one dropped.
    const int keep = d.exponent + decimals + 1;
    std::string kept;  // digits of the rounded value in units of 10^-decimals
    if (keep >= static_cast<int>(d.digits.size())) {
        kept = d.digits + std::string(static_cast<std::size_t>(keep) - d.digits.size(), '0');
    } else if (keep >= 0) {
        kept = d.digits.substr(0, static_cast<std::size_t>(keep));
        if (d.digits[static_cast<std::size_t>(keep)] >= '5') {
            if (kept.empty())
                kept = "0";
            IncrementDigits(kept);
        }
        if (kept.empty())
            kept = "0";
    } else {
        kept = "0";
    }
    // Pad so that there is at least one integer digit.
    if (static_cast<int>(kept.size()) < decimals + 1)
        kept.insert(0, static_cast<std::size_t>(decimals + 1) - kept.size(), '0');
    std::string integer = kept.substr(0, kept.size() - static_cast<std::size_t>(decimals));
    std::size_t firstNonZero = integer.find_first_not_of('0');
    integer = firstNonZero == std::string::npos ? "0" : integer.substr(firstNonZero);
    const std::string fraction = kept.substr(kept.size() - static_cast<std::size_t>(decimals));
    const bool isZero = kept.find_first_not_of('0') == std::string::npos;
    // A value that rounds to zero is written without a sign: "-0.000" would only
    // puzzle the reader of a table.
    std::string out = (d.negative && !isZero) ? "-" : "";
    out += integer;
    if (decimals > 0)
        out += "." + fraction;
    return out;
}

std::string FormatExponent(double value, int mantissaDigits) {
    if (value == 0.0 || !std::isfinite(value))
        return std::string(static_cast<std::size_t>(mantissaDigits), '0') + "E+0";
    const Digits15 d = ToDigits15(value);
    std::string mantissa = d.digits.substr(0, static_cast<std::size_t>(mantissaDigits));
    int exponent = d.exponent - (mantissaDigits - 1);
    if (d.digits[static_cast<std::size_t>(mantissaDigits)] >= '5') {
        if (IncrementDigits(mantissa)) {
            mantissa.pop_back();
            ++exponent;
        }
    }
    return (d.negative ? "-" : "") + mantissa + ExponentSuffix(exponent, false);
}

// An overflow or a result that is no number stops the routine that made it, as the
// arithmetic fault it is: no table, file or message ever shows "Infinity" or "NaN", nor
// a made-up 0 in their place.
void CheckWritable(double value) {
    if (std::isnan(value))
        throw Fault("a result is no number (a division of zero by zero or the like)");
    if (std::isinf(value))
        throw Fault("a result is larger than any number can be (an overflow)");
}

bool IsBlank(char c) {
    return c == ' ' || c == '\t';
}

}  // namespace

std::string PlainText(double value) {
    if (value == 0.0)
        return "0";
    CheckWritable(value);
    const Digits15 d = ToDigits15(value);
    const std::string significant = StripTrailingZeros(d.digits);
    const int n = static_cast<int>(significant.size());
    const bool exponentForm = d.exponent >= 0 ? d.exponent + 1 > 15 : (-d.exponent - 1) + n > 15;
    if (!exponentForm)
        return PlainFromDigits(d.negative, significant, d.exponent);
    std::string out = d.negative ? "-" : "";
    out += significant.substr(0, 1);
    if (n > 1)
        out += "." + significant.substr(1);
    return out + ExponentSuffix(d.exponent, true);
}

std::string PlainDecimalText(double value) {
    if (value == 0.0)
        return "0";
    CheckWritable(value);
    const Digits15 d = ToDigits15(value);
    return PlainFromDigits(d.negative, StripTrailingZeros(d.digits), d.exponent);
}

std::string FormatNumber(double value, std::string_view pattern) {
    CheckWritable(value);
    const auto e = pattern.find_first_of("Ee");
    if (e != std::string_view::npos)
        return FormatExponent(value, static_cast<int>(e));
    const auto point = pattern.find('.');
    const int decimals =
        point == std::string_view::npos ? 0 : static_cast<int>(pattern.size() - point - 1);
    return FormatFixed(value, decimals);
}

namespace {

char typedDecimalSeparator = '.';

// The text with the locale's separator read as the point.
std::optional<std::string> WithDecimalPoint(std::string_view text) {
    if (typedDecimalSeparator == '.' || text.find(typedDecimalSeparator) == std::string_view::npos)
        return std::nullopt;
    std::string pointed(text);
    for (char& c : pointed) {
        if (c == typedDecimalSeparator)
            c = '.';
    }
    return pointed;
}

}  // namespace

void SetTypedDecimalSeparator(std::string_view separator) {
    const bool usable = separator.size() == 1 && separator[0] != '+' && separator[0] != '-' &&
                        !std::isdigit(static_cast<unsigned char>(separator[0])) &&
                        separator[0] != 'e' && separator[0] != 'E';
    typedDecimalSeparator = usable ? separator[0] : '.';
}

char TypedDecimalSeparator() {
    return typedDecimalSeparator;
}

namespace {

// The standard conversion, with the point as the only decimal separator.
std::optional<double> ParsePointNumber(std::string_view text) {
    std::size_t i = 0;
    std::size_t end = text.size();
    while (i < end && IsBlank(text[i]))
        ++i;
    while (end > i && IsBlank(text[end - 1]))
        --end;
    const std::string_view t = text.substr(i, end - i);
    std::size_t k = 0;
    if (k < t.size() && (t[k] == '+' || t[k] == '-'))
        ++k;
    std::size_t digits = 0;
    while (k < t.size() && std::isdigit(static_cast<unsigned char>(t[k])))
        ++k, ++digits;
    if (k < t.size() && t[k] == '.') {
        ++k;
        while (k < t.size() && std::isdigit(static_cast<unsigned char>(t[k])))
            ++k, ++digits;
    }
    if (digits == 0)
        return std::nullopt;
    if (k < t.size() && (t[k] == 'e' || t[k] == 'E')) {
        ++k;
        if (k < t.size() && (t[k] == '+' || t[k] == '-'))
            ++k;
        std::size_t expDigits = 0;
        while (k < t.size() && std::isdigit(static_cast<unsigned char>(t[k])))
            ++k, ++expDigits;
        if (expDigits == 0)
            return std::nullopt;
    }
    if (k != t.size())
        return std::nullopt;
    double v = 0;
    const char* first = t.data();
    if (*first == '+')
        ++first;
    const auto [stop, error] = std::from_chars(first, t.data() + t.size(), v);
    if (error == std::errc::result_out_of_range) {
        // Below the smallest double the standard conversion gives what strtod does;
        // above the largest there is no number.
        const double slow = std::strtod(std::string(t).c_str(), nullptr);
        if (std::isinf(slow))
            return std::nullopt;
        return slow;
    }
    if (error != std::errc() || stop != t.data() + t.size())
        return std::nullopt;
    return v;
}

}  // namespace

std::optional<double> ParseNumber(std::string_view text) {
    if (const std::optional<std::string> pointed = WithDecimalPoint(text)) {
        if (text.find('.') != std::string_view::npos)
            return std::nullopt;
        return ParsePointNumber(*pointed);
    }
    return ParsePointNumber(text);
}

double NumberOf(std::string_view text) {
    if (auto v = ParseNumber(text))
        return *v;
    throw Fault("\"" + std::string(text) + "\" is not a number");
}

double NumberOrZero(std::string_view text) {
    if (text.empty())
        return 0.0;
    return NumberOf(text);
}

std::optional<std::int32_t> RoundHalfEven32(double value) {
    const double r = std::nearbyint(value);  // default rounding mode: halves to even
    if (!(r >= -2147483648.0 && r <= 2147483647.0))
        return std::nullopt;
    return static_cast<std::int32_t>(r);
}

double Log10(double x) {
    return std::log(x) / std::log(10.0);
}

double PowerOfTen(double m) {
    return std::pow(10.0, m);
}

std::string RoundTripText(double value) {
    if (!std::isfinite(value))
        throw Fault("the value is not a finite number");
    char buffer[64];
    const auto result = std::to_chars(buffer, buffer + sizeof buffer, value);
    return std::string(buffer, result.ptr);
}

std::string SignificantText(double value, int digits) {
    if (!std::isfinite(value))
        throw Fault("the value is not a finite number");
    char buffer[64];
    std::snprintf(buffer, sizeof buffer, "%.*g", digits, value);
    return buffer;
}

}  // namespace morvane
