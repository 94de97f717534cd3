#pragma once

#include <gtest/gtest.h>

#include <string>
#include <string_view>

namespace tessarin::testing {

// Replaces the first occurrence of from in text, so that an expected file can be written as
// another one with a few changes; the test fails when from is not there.
inline void ReplaceOnce(std::string& text, std::string_view from, std::string_view to) {
    const std::size_t at = text.find(from);
    ASSERT_NE(at, std::string::npos) << from;
    text.replace(at, from.size(), to);
}

}  // namespace tessarin::testing
