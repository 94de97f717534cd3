#include "tools/tips_of_the_day.h"

#include "common/xml_document.h"
#include "config/messages_section.h"
#include "config/text_trim.h"

namespace tessarin {
namespace {

constexpr std::string_view kRootName = "TipOfTheDay";

}  // namespace

TipsOfTheDay ReadTipsOfTheDay(const std::filesystem::path& file) {
    TipsOfTheDay result;
    std::error_code error;
    if (!std::filesystem::exists(file, error)) return result;
    XmlDocument document;
    if (!document.LoadFile(file)) {
        result.problem = FormatParseErrorStatus(file.string(), *document.ParseError());
        return result;
    }
    const XmlNode root = document.DocumentElement();
    if (root.Name() != kRootName) {
        result.problem = file.string() + ": the root element is not " + std::string(kRootName);
        return result;
    }
    for (const XmlNode& tip : root.SelectNodes("Tip")) {
        const std::string text = WithLineBreaks(TrimWhitespace(tip.Text()));
        if (!text.empty()) result.tips.push_back(text);
    }
    return result;
}

std::size_t TipInRing(std::int64_t index, std::size_t count) {
    const auto size = static_cast<std::int64_t>(count);
    return static_cast<std::size_t>(((index % size) + size) % size);
}

std::size_t FirstTipToShow(const TipOfTheDaySection& tips, std::size_t count) {
    return TipInRing(tips.LastTipOfTheDay, count);
}

void RememberTips(Preferences& preferences, ProfileFile& profile, std::size_t shown,
                  bool showAtStartup) {
    TipOfTheDaySection& tips = preferences.TipOfTheDay;
    tips.LastTipOfTheDay = static_cast<std::int32_t>(shown + 1);
    tips.ShowTipsAtStartup = showAtStartup;
    WriteTipOfTheDay(profile, tips);
}

}  // namespace tessarin
