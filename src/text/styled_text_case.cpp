#include "text/styled_text_case.h"

#include "common/utf8.h"

namespace tessarin {
namespace {

bool IsEven(char16_t unit) {
    return unit % 2 == 0;
}

bool InRange(char16_t unit, char16_t first, char16_t last) {
    return unit >= first && unit <= last;
}

// Latin Extended-A pairs an upper-case letter with the lower-case letter right after it; the
// pairs start on an even unit in three stretches and on an odd unit in two.
bool IsExtendedAUpper(char16_t unit) {
    if (InRange(unit, 0x0100, 0x0137) || InRange(unit, 0x014A, 0x0177)) return IsEven(unit);
    if (InRange(unit, 0x0139, 0x0148) || InRange(unit, 0x0179, 0x017E)) return !IsEven(unit);
    return false;
}

bool IsExtendedALower(char16_t unit) {
    if (InRange(unit, 0x0101, 0x0137) || InRange(unit, 0x014B, 0x0177)) return !IsEven(unit);
    if (InRange(unit, 0x013A, 0x0148) || InRange(unit, 0x017A, 0x017E)) return IsEven(unit);
    return false;
}

}  // namespace

char16_t ToUpperUnit(char16_t unit) {
    if (unit < 0x80) return InRange(unit, u'a', u'z') ? unit - 0x20 : unit;
    if (InRange(unit, 0x00E0, 0x00FE) && unit != 0x00F7) return unit - 0x20;
    if (unit == 0x00FF) return 0x0178;  // ÿ → Ÿ
    if (unit == 0x0131) return u'I';    // dotless i
    if (unit == 0x017F) return u'S';    // long s
    if (IsExtendedALower(unit)) return unit - 1;
    if (InRange(unit, 0x03B1, 0x03C1) || InRange(unit, 0x03C3, 0x03CB)) return unit - 0x20;
    if (unit == 0x03C2) return 0x03A3;  // final sigma
    if (unit == 0x03AC) return 0x0386;
    if (InRange(unit, 0x03AD, 0x03AF)) return unit - 0x25;
    if (unit == 0x03CC) return 0x038C;
    if (InRange(unit, 0x03CD, 0x03CE)) return unit - 0x3F;
    if (InRange(unit, 0x0430, 0x044F)) return unit - 0x20;
    if (InRange(unit, 0x0450, 0x045F)) return unit - 0x50;
    return unit;
}

char16_t ToLowerUnit(char16_t unit) {
    if (unit < 0x80) return InRange(unit, u'A', u'Z') ? unit + 0x20 : unit;
    if (InRange(unit, 0x00C0, 0x00DE) && unit != 0x00D7) return unit + 0x20;
    if (unit == 0x0178) return 0x00FF;  // Ÿ → ÿ
    if (unit == 0x0130) return u'i';    // dotted capital I
    if (IsExtendedAUpper(unit)) return unit + 1;
    if (InRange(unit, 0x0391, 0x03A1) || InRange(unit, 0x03A3, 0x03AB)) return unit + 0x20;
    if (unit == 0x0386) return 0x03AC;
    if (InRange(unit, 0x0388, 0x038A)) return unit + 0x25;
    if (unit == 0x038C) return 0x03CC;
    if (InRange(unit, 0x038E, 0x038F)) return unit + 0x3F;
    if (InRange(unit, 0x0410, 0x042F)) return unit + 0x20;
    if (InRange(unit, 0x0400, 0x040F)) return unit + 0x50;
    return unit;
}

char16_t FoldCaseUnit(char16_t unit) {
    if (unit < 0x80) return InRange(unit, u'A', u'Z') ? unit + 0x20 : unit;
    return ToLowerUnit(ToUpperUnit(unit));
}

bool IsWordUnit(char16_t unit) {
    if (unit < 0x80) {
        return InRange(unit, u'0', u'9') || InRange(unit, u'a', u'z') || InRange(unit, u'A', u'Z');
    }
    if (unit == 0x00AA || unit == 0x00B5 || unit == 0x00BA) return true;
    if (InRange(unit, 0x00C0, 0x024F)) return unit != 0x00D7 && unit != 0x00F7;
    if (InRange(unit, 0x0386, 0x03FF)) return unit != 0x0387;
    return InRange(unit, 0x0400, 0x0481) || InRange(unit, 0x048A, 0x052F);
}

std::string UpperCaseText(std::string_view utf8) {
    std::u16string units = Utf8ToUtf16(utf8);
    for (char16_t& unit : units)
        unit = ToUpperUnit(unit);
    return Utf16ToUtf8(units);
}

}  // namespace tessarin
