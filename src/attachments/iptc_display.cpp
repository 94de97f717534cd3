#include "attachments/iptc_display.h"

#include "common/text_replace.h"
#include "common/windows1252.h"

namespace tessarin {
namespace {

// One replacement of the accents table: a Windows-1252 character given by its code, or,
// when the code is 0, a temporary mark.
struct AccentReplacement {
    unsigned char code;
    std::string_view mark;
    std::string_view replacement;
};

// The order is the design: the marks stand for letters whose own codes are sources further
// down, and are resolved only once those codes have been replaced.
constexpr AccentReplacement kMacintoshAccents[] = {
    {128, "", "\u00C4"},       {131, "", "\u00C9"},       {133, "", "\u00D6"},
    {134, "", "\u00DC"},       {136, "", "\u00E0"},       {137, "", "\u00E2"},
    {138, "", "\u00E4"},       {139, "", "\u00E3"},       {141, "", "&ccedil;"},
    {142, "", "&eacute;"},     {143, "", "&egrave;"},     {144, "", "\u00EA"},
    {145, "", "&euml;"},       {148, "", "\u00EE"},       {149, "", "&iuml;"},
    {150, "", "\u00F1"},       {153, "", "&ocirc;"},      {154, "", "\u00F6"},
    {155, "", "\u00F5"},       {157, "", "\u00F9"},       {158, "", "\u00FB"},
    {159, "", "\u00FC"},       {0xD5, "", "'"},           {189, "", "\""},
    {161, "", "\u00B0"},       {199, "", "\u00AB"},       {200, "", "\u00BB"},
    {229, "", "\u00C2"},       {230, "", "\u00CA"},       {231, "", "\u00C1"},
    {0, "&ccedil;", "\u00E7"}, {232, "", "\u00CB"},       {0, "&egrave;", "\u00E8"},
    {233, "", "\u00C8"},       {0, "&eacute;", "\u00E9"}, {235, "", "\u00CE"},
    {0, "&euml;", "\u00EB"},   {236, "", "\u00CF"},       {239, "", "\u00D4"},
    {0, "&iuml;", "\u00EF"},   {243, "", "\u00DB"},       {244, "", "\u00D9"},
    {0, "&ocirc;", "\u00F4"},
};

void RestoreMacintoshAccents(std::string& text) {
    for (const AccentReplacement& entry : kMacintoshAccents) {
        const std::string source = entry.code == 0
                                       ? std::string(entry.mark)
                                       : Windows1252ToUtf8(std::string(1, char(entry.code)));
        ReplaceAllInText(text, source, entry.replacement);
    }
}

}  // namespace

std::string DisplayText(std::string_view value, bool macintoshAccents) {
    std::string text(value);
    for (std::string_view lineBreak : {"\r\n", "\r", "\n", "\t"})
        ReplaceAllInText(text, lineBreak, "/");
    if (macintoshAccents) RestoreMacintoshAccents(text);
    return text;
}

std::string IptcLabel(const InterfaceSettings& interface, const IptcDataset& dataset) {
    const std::string& caption = interface.Caption(dataset.labelKey);
    return caption.empty() ? std::string(dataset.defaultLabel) : caption;
}

std::vector<IptcDisplayLine> IptcDisplayLines(const IptcData& data,
                                              const InterfaceSettings& interface,
                                              bool macintoshAccents) {
    const bool restoreAccents = macintoshAccents && !data.declaredUtf8;
    std::vector<IptcDisplayLine> lines;
    for (const IptcDataset& dataset : IptcDatasets()) {
        const std::string value = data.Value(dataset.number);
        if (value.empty()) continue;
        lines.push_back({IptcLabel(interface, dataset), DisplayText(value, restoreAccents)});
    }
    return lines;
}

std::vector<std::string> IptcSegmentLines(const IptcData& data, bool macintoshAccents) {
    const bool restoreAccents = macintoshAccents && !data.declaredUtf8;
    std::vector<std::string> lines;
    for (const IptcUnnamedDataset& dataset : data.unnamed) {
        lines.push_back("Segment " + std::to_string(dataset.number) + ": " +
                        DisplayText(dataset.text, restoreAccents));
    }
    return lines;
}

}  // namespace tessarin
