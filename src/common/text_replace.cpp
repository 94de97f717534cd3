#include "common/text_replace.h"

namespace tessarin {

void ReplaceAllInText(std::string& text, std::string_view from, std::string_view to) {
    std::size_t found = text.find(from);
    if (found == std::string::npos) return;
    std::string result;
    result.reserve(text.size() + (to.size() > from.size() ? text.size() / 4 : 0));
    std::size_t copied = 0;
    while (found != std::string::npos) {
        result.append(text, copied, found - copied);
        result += to;
        copied = found + from.size();
        found = text.find(from, copied);
    }
    result.append(text, copied, std::string::npos);
    text = std::move(result);
}

}  // namespace tessarin
