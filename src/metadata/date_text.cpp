#include "metadata/date_text.h"

#include <cctype>

namespace tessarin {
namespace {

constexpr int kTwoDigitYearPivot = 30;  // 00-29 are 2000-2029, 30-99 are 1930-1999

bool IsDigit(char character) {
    return std::isdigit(static_cast<unsigned char>(character)) != 0;
}

// A letter of a name: ASCII letters, the bytes of non-ASCII UTF-8 characters, and the
// point of an abbreviation ("févr.").
bool IsNameCharacter(char character) {
    const auto byte = static_cast<unsigned char>(character);
    return std::isalpha(byte) != 0 || byte >= 0x80 || character == '.';
}

// Anything but a letter or a digit, the point included ("1.3.2025").
bool IsSeparator(char character) {
    const auto byte = static_cast<unsigned char>(character);
    return std::isalnum(byte) == 0 && byte < 0x80;
}

std::string AsciiLower(std::string_view text) {
    std::string lower(text);
    for (char& character : lower) {
        character = static_cast<char>(std::tolower(static_cast<unsigned char>(character)));
    }
    return lower;
}

class DateReader {
  public:
    explicit DateReader(std::string_view text) : text_(text) {}

    bool AtEnd() const { return position_ == text_.size(); }

    std::optional<int> Number(std::size_t maxDigits) {
        std::size_t digits = 0;
        int value = 0;
        while (position_ < text_.size() && digits < maxDigits && IsDigit(text_[position_])) {
            value = value * 10 + (text_[position_++] - '0');
            ++digits;
        }
        if (digits == 0) return std::nullopt;
        lastDigits_ = digits;
        return value;
    }
    std::size_t LastDigits() const { return lastDigits_; }

    std::string_view Name() {
        const std::size_t start = position_;
        while (position_ < text_.size() && IsNameCharacter(text_[position_]))
            ++position_;
        return text_.substr(start, position_ - start);
    }

    // A pattern character that is no field: the same character, or for a separator any
    // separator.
    bool Literal(char expected, bool quoted) {
        if (AtEnd()) return false;
        const char actual = text_[position_];
        const bool matches =
            actual == expected || (!quoted && IsSeparator(expected) && IsSeparator(actual));
        if (matches) ++position_;
        return matches;
    }

  private:
    std::string_view text_;
    std::size_t position_ = 0;
    std::size_t lastDigits_ = 0;
};

// The month number of a name: full or abbreviated, in the language or in English.
std::optional<int> MonthOfName(std::string_view name, DateLanguage language) {
    const std::string wanted = AsciiLower(name);
    for (const DateLanguage names : {language, DateLanguage::English}) {
        for (int month = 1; month <= 12; ++month) {
            const LocalDateTime first{2000, month, 1};
            if (AsciiLower(FormatDate(first, "MMMM", names)) == wanted ||
                AsciiLower(FormatDate(first, "MMM", names)) == wanted) {
                return month;
            }
        }
    }
    return std::nullopt;
}

int FullYear(int year, std::size_t digits) {
    if (digits > 2) return year;
    return year < kTwoDigitYearPivot ? 2000 + year : 1900 + year;
}

std::string_view Trimmed(std::string_view text) {
    const auto blank = [](char character) {
        return character == ' ' || character == '\t' || character == '\r' || character == '\n';
    };
    while (!text.empty() && blank(text.front()))
        text.remove_prefix(1);
    while (!text.empty() && blank(text.back()))
        text.remove_suffix(1);
    return text;
}

// Reads one run of a pattern letter into the date; false when the text does not fit.
bool ReadField(DateReader& reader, char letter, std::size_t count, DateLanguage language,
               LocalDateTime& date) {
    if (letter == 'y') {
        const std::optional<int> year = reader.Number(count <= 2 ? 2 : 4);
        if (year) date.year = FullYear(*year, reader.LastDigits());
        return year.has_value();
    }
    if (count >= 3) {
        const std::string_view name = reader.Name();
        if (letter == 'd') return !name.empty();
        const std::optional<int> month = MonthOfName(name, language);
        if (month) date.month = *month;
        return month.has_value();
    }
    const std::optional<int> number = reader.Number(2);
    if (number) (letter == 'd' ? date.day : date.month) = *number;
    return number.has_value();
}

}  // namespace

std::optional<LocalDateTime> ParseDate(std::string_view text, std::string_view pattern,
                                       DateLanguage language) {
    DateReader reader(Trimmed(text));
    LocalDateTime date{0, 0, 0};
    bool quoted = false;
    for (std::size_t index = 0; index < pattern.size();) {
        const char letter = pattern[index];
        if (letter == '\'') {
            const bool doubled = index + 1 < pattern.size() && pattern[index + 1] == '\'';
            if (doubled && !reader.Literal('\'', true)) return std::nullopt;
            if (!doubled) quoted = !quoted;
            index += doubled ? 2 : 1;
            continue;
        }
        if (quoted || (letter != 'd' && letter != 'M' && letter != 'y')) {
            if (!reader.Literal(letter, quoted)) return std::nullopt;
            ++index;
            continue;
        }
        std::size_t count = 1;
        while (index + count < pattern.size() && pattern[index + count] == letter)
            ++count;
        if (!ReadField(reader, letter, count, language, date)) return std::nullopt;
        index += count;
    }
    if (!reader.AtEnd() || !IsValidDate(date.year, date.month, date.day)) return std::nullopt;
    return date;
}

std::optional<LocalDateTime> ParseShortDate(std::string_view text) {
    return ParseDate(text, ShortDatePattern(), CurrentDateLanguage());
}

std::string InvalidDateText(const MessageTexts& messages) {
    return messages.Message("InvalidDate") + " (" + ShortDatePattern() + ")";
}

std::string LongDateOfShortDateText(std::string_view text) {
    const std::optional<LocalDateTime> date = ParseShortDate(text);
    return date ? FormatLongDate(*date) : std::string(text);
}

}  // namespace tessarin
