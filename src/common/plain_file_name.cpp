#include "common/plain_file_name.h"

namespace tessarin {

bool IsPlainFileName(std::string_view name) {
    if (name.empty() || name == "." || name == "..") return false;
    return name.find_first_of(std::string_view("/\\\0", 3)) == std::string_view::npos;
}

}  // namespace tessarin
