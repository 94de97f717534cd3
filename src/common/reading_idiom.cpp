#include "common/reading_idiom.h"

#include "common/number_parse.h"

namespace tessarin {

std::int32_t NumberOr(std::string_view text, std::int32_t fallback) {
    return text.empty() ? fallback : ParseLeadingInteger(text);
}

}  // namespace tessarin
