#pragma once

#include <functional>
#include <map>
#include <span>
#include <string>
#include <string_view>

#include "common/xml_document.h"

namespace tessarin {

// The message texts of the Messages section, one per key, with an English default for each.

struct MessageDefault {
    std::string_view key;
    std::string_view text;
};

// Every key of Messages with its default, in reading order.
std::span<const MessageDefault> MessageDefaults();

class MessageTexts {
  public:
    // The text as configured, with the two characters "\n" still in it; empty for an
    // unknown key or when the section was missing.
    const std::string& Raw(std::string_view key) const;

    // The text ready to show: each two-character "\n" turned into a line break.
    std::string Message(std::string_view key) const;

    void Clear() { texts_.clear(); }
    void Set(std::string_view key, std::string text);

  private:
    std::map<std::string, std::string, std::less<>> texts_;
};

// A configured text ready to show: each two-character "\n" turned into a line break. Messages
// and tool tips alike may hold it.
std::string WithLineBreaks(std::string_view text);

// Replaces every "###" in text by value.
std::string ReplacePlaceholder(std::string_view text, std::string_view value);

// Reads Messages: each key takes its element's text, or its default when that is empty.
// afterNotMultipleInstance runs right after NotMultipleInstance is read, so that the
// single-instance rule can show that text. A missing section sets no defaults, leaves
// every text empty, and does not call afterNotMultipleInstance.
void ReadMessages(const XmlNode& section, MessageTexts& messages,
                  const std::function<void()>& afterNotMultipleInstance);

}  // namespace tessarin
