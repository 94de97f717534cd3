#include "story/add_log_to_story.h"

#include <system_error>

#include "common/date_format.h"
#include "common/xml_document.h"

namespace fs = std::filesystem;

namespace tessarin {
namespace {

std::string DateAndTime(const LocalDateTime& now) {
    return FormatShortDate(now) + " " + FormatTimeHourMinute(now);
}

void ReplaceLastSave(XmlNode metadata, const StoryContext& context, const LocalDateTime& now) {
    metadata.SelectSingleNode("LastSaveDate").Remove();
    XmlNode date = metadata.AppendElement("LastSaveDate");
    const ControlState* label = context.window.FindControl("lblLastSaveDate");
    date.SetAttribute("Name", label == nullptr ? std::string() : label->caption);
    date.SetText(DateAndTime(now));
    metadata.SelectSingleNode("LastSaveAuthor").Remove();
    metadata.AppendElement("LastSaveAuthor").SetText(context.configuration.identity.author);
}

void MakeWritable(const fs::path& file) {
    std::error_code error;
    fs::permissions(file, fs::perms::owner_write, fs::perm_options::add, error);
}

}  // namespace

bool AddLogToStory(const fs::path& story, std::string_view type, std::string_view text,
                   const StoryContext& context, const LocalDateTime& now) {
    XmlDocument document;
    if (!document.LoadFile(story)) {
        context.user.Beep();
        context.user.Tell(
            FormatParseErrorStatus(story.string(), document.ParseError().value_or(XmlParseError{})),
            MessageIcon::Critical);
        return false;
    }
    XmlNode root = document.DocumentElement();
    if (XmlNode metadata = root.SelectSingleNode("Metadata"))
        ReplaceLastSave(metadata, context, now);
    XmlNode log = root.FindOrAppendElement("Logs").AppendElement("Log");
    if (!type.empty()) log.SetAttribute("Type", type);
    log.SetText(text);
    MakeWritable(story);
    if (document.SaveFile(story)) return true;
    context.user.Tell(
        context.configuration.messages.Message("NotSavedStory") + ": " + story.string(),
        MessageIcon::Critical);
    return false;
}

std::string BackupRestoredLogText(const StoryContext& context, const LocalDateTime& now) {
    const MessageTexts& messages = context.configuration.messages;
    return DateAndTime(now) + " - " + messages.Message("StoryBackupLabel") + " -> " +
           messages.Message("StoryLabel") + " [" + context.configuration.identity.author + "]";
}

}  // namespace tessarin
