#include "common/number_parse.h"

#include <locale.h>

#include <cmath>
#include <cstdlib>
#include <limits>
#include <string>

namespace tessarin {

namespace {

bool IsBlank(char c) {
    return c == ' ' || c == '\t' || c == '\r' || c == '\n';
}

bool IsDigit(char c) {
    return c >= '0' && c <= '9';
}

std::size_t SkipBlanks(std::string_view text, std::size_t position) {
    while (position < text.size() && IsBlank(text[position]))
        ++position;
    return position;
}

std::size_t SkipDigits(std::string_view text, std::size_t position) {
    while (position < text.size() && IsDigit(text[position]))
        ++position;
    return position;
}

// The extent of the number that starts at position: sign, digits, decimal point with
// digits, exponent. Empty when no digit is there.
std::string_view LeadingNumber(std::string_view text, std::size_t position) {
    const std::size_t start = position;
    if (position < text.size() && (text[position] == '+' || text[position] == '-')) ++position;
    const std::size_t integerEnd = SkipDigits(text, position);
    std::size_t end = integerEnd;
    bool hasDigits = integerEnd > position;
    if (end < text.size() && text[end] == '.') {
        const std::size_t fractionEnd = SkipDigits(text, end + 1);
        hasDigits = hasDigits || fractionEnd > end + 1;
        end = fractionEnd;
    }
    if (!hasDigits) return {};
    if (end < text.size() && (text[end] == 'e' || text[end] == 'E')) {
        std::size_t exponent = end + 1;
        if (exponent < text.size() && (text[exponent] == '+' || text[exponent] == '-')) {
            ++exponent;
        }
        const std::size_t exponentEnd = SkipDigits(text, exponent);
        if (exponentEnd > exponent) end = exponentEnd;
    }
    return text.substr(start, end - start);
}

// The C library's conversion in the "C" locale, so that the decimal point is always "."
// whatever locale the program runs in; it handles overflow and underflow.
double ConvertNumber(std::string_view number) {
    static const locale_t cLocale = newlocale(LC_NUMERIC_MASK, "C", static_cast<locale_t>(0));
    const std::string copy(number);
    return strtod_l(copy.c_str(), nullptr, cLocale);
}

}  // namespace

double ParseLeadingNumber(std::string_view text) {
    const std::string_view number = LeadingNumber(text, SkipBlanks(text, 0));
    return number.empty() ? 0.0 : ConvertNumber(number);
}

std::int32_t ParseLeadingInteger(std::string_view text) {
    const double value = std::trunc(ParseLeadingNumber(text));
    if (value <= std::numeric_limits<std::int32_t>::min()) {
        return std::numeric_limits<std::int32_t>::min();
    }
    if (value >= std::numeric_limits<std::int32_t>::max()) {
        return std::numeric_limits<std::int32_t>::max();
    }
    return static_cast<std::int32_t>(value);
}

bool IsNumeric(std::string_view text) {
    const std::size_t start = SkipBlanks(text, 0);
    const std::string_view number = LeadingNumber(text, start);
    return !number.empty() && SkipBlanks(text, start + number.size()) == text.size();
}

}  // namespace tessarin
