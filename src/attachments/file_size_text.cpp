#include "attachments/file_size_text.h"

#include <cmath>

namespace tessarin {
namespace {

struct SizeStep {
    std::uintmax_t kilobytesBelow;  // the step applies while length / 1024 is below this
    int decimals;
    std::uintmax_t divisor;
    const char* unit;
};

constexpr std::uintmax_t kKilo = 1024;
constexpr std::uintmax_t kMega = kKilo * kKilo;
constexpr std::uintmax_t kGiga = kMega * kKilo;

constexpr SizeStep kSteps[] = {
    {10, 2, kKilo, " KB"},          {100, 1, kKilo, " KB"},    {1000, 0, kKilo, " KB"},
    {10000, 2, kMega, " MB"},       {100000, 1, kMega, " MB"}, {1000000, 0, kMega, " MB"},
    {UINTMAX_MAX, 2, kGiga, " GB"},
};

std::string WithThousandsSeparators(std::uintmax_t number) {
    std::string digits = std::to_string(number);
    for (std::size_t position = digits.size(); position > 3; position -= 3) {
        digits.insert(position - 3, ",");
    }
    return digits;
}

// length / divisor with the given decimals, halves rounded up.
std::string Scaled(std::uintmax_t length, std::uintmax_t divisor, int decimals) {
    constexpr std::uintmax_t kPowersOfTen[] = {1, 10, 100};
    const std::uintmax_t scale = kPowersOfTen[decimals];
    const auto rounded = static_cast<std::uintmax_t>(
        std::floor(static_cast<long double>(length) * scale / divisor + 0.5L));
    std::string text = std::to_string(rounded / scale);
    if (decimals > 0) {
        std::string fraction = std::to_string(rounded % scale);
        text += "." + std::string(decimals - fraction.size(), '0') + fraction;
    }
    return text;
}

}  // namespace

std::string FormatFileSize(std::uintmax_t length) {
    if (length < kKilo) return WithThousandsSeparators(length) + " bytes";
    const std::uintmax_t kilobytes = length / kKilo;
    for (const SizeStep& step : kSteps) {
        if (kilobytes < step.kilobytesBelow) {
            return Scaled(length, step.divisor, step.decimals) + step.unit;
        }
    }
    return {};
}

}  // namespace tessarin
