#include "logs/add_log_to_story.h"

#include "common/date_format.h"
#include "common/file_io.h"
#include "common/read_only_file.h"
#include "common/xml_document.h"

namespace fs = std::filesystem;

namespace tessarin {
namespace {

void ReplaceLastSave(XmlNode metadata, const StoryContext& context, const LocalDateTime& now) {
    metadata.SelectSingleNode("LastSaveDate").Remove();
    XmlNode date = metadata.AppendElement("LastSaveDate");
    const ControlState* label = context.window.FindControl("lblLastSaveDate");
    date.SetAttribute("Name", label == nullptr ? std::string() : label->caption);
    date.SetText(LogDateAndTime(now));
    metadata.SelectSingleNode("LastSaveAuthor").Remove();
    metadata.AppendElement("LastSaveAuthor").SetText(context.configuration.identity.author);
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
    if (IsReadOnlyFile(story)) MakeWritable(story);
    if (WriteFileReplacing(story, document.SaveBytes())) return true;
    context.user.Tell(
        context.configuration.messages.Message("NotSavedStory") + ": " + story.string(),
        MessageIcon::Critical);
    return false;
}

std::string LogDateAndTime(const LocalDateTime& now) {
    return FormatShortDate(now) + " " + FormatTimeHourMinute(now);
}

std::string TransmissionLogText(std::string_view author, std::string_view destination,
                                const LocalDateTime& now) {
    return LogDateAndTime(now) + " - " + std::string(author) + " -> " + std::string(destination);
}

std::string BackupRestoredLogText(const StoryContext& context, const LocalDateTime& now) {
    const MessageTexts& messages = context.configuration.messages;
    return LogDateAndTime(now) + " - " + messages.Message("StoryBackupLabel") + " -> " +
           messages.Message("StoryLabel") + " [" + context.configuration.identity.author + "]";
}

}  // namespace tessarin
