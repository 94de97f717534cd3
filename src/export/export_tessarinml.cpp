#include "export/export_tessarinml.h"

#include "common/date_format.h"

namespace tessarin {

namespace {

void RemoveNotes(XmlNode& root) {
    for (XmlNode notes : root.SelectNodes("Notes"))
        notes.Remove();
    std::vector<XmlNode> notes = root.SelectSingleNode("Body").SelectNodes("//note");
    // From the last one, so that a note inside a note goes before the note that holds it.
    for (auto note = notes.rbegin(); note != notes.rend(); ++note)
        note->Remove();
}

void MakeReferencesBare(const XmlNode& root) {
    for (const std::string_view path : {"Images/ImageBag/Image", "Files/FileBag/File"}) {
        for (XmlNode file : root.SelectNodes(path)) {
            const std::string href = file.Attribute("href");
            const std::size_t separator = href.find_last_of("\\/");
            const std::string name =
                separator == std::string::npos ? href : href.substr(separator + 1);
            file.SetAttribute("href", "file:///" + name);
        }
    }
}

void ReplaceLastSave(XmlNode& metadata, const ExportContext& context) {
    metadata.SelectSingleNode("LastSaveDate").Remove();
    XmlNode date = metadata.AppendElement("LastSaveDate");
    const ControlState* label = context.window.FindControl("lblLastSaveDate");
    date.SetAttribute("Name", label == nullptr ? std::string() : label->caption);
    date.SetText(FormatShortDate(context.now) + " " + FormatTimeHourMinute(context.now));
    metadata.SelectSingleNode("LastSaveAuthor").Remove();
    metadata.AppendElement("LastSaveAuthor").SetText(context.userName);
}

}  // namespace

std::string ComposeTessarinML(XmlDocument& story, ExportMode mode, std::string_view logType,
                              std::string_view logLine, const ExportContext& context) {
    XmlNode root = story.DocumentElement();
    if (mode == ExportMode::Layout) {
        RemoveNotes(root);
        MakeReferencesBare(root);
    }
    if (XmlNode metadata = root.SelectSingleNode("Metadata")) ReplaceLastSave(metadata, context);
    if (context.configuration.ftpTransmission.LogsEnabled) {
        XmlNode log = root.FindOrAppendElement("Logs").AppendElement("Log");
        log.SetAttribute("Type", logType);
        log.SetText(logLine);
    }
    return story.SaveBytes();
}

void ExportTessarinML(ExportState& state, std::string_view logType, ExportMode mode,
                      const ExportContext& context) {
    const std::string name = BeginExport(state, ExportWriter::TessarinML, mode, context);
    std::optional<StagedStory> story = LoadStagedStoryOrShowError(state.ExportedFilePath, context);
    if (!story) return;
    StoreOriginalStoryPath(state, story->metadata);
    const std::string bytes =
        ComposeTessarinML(story->document, mode, logType, state.LogLine, context);
    if (mode == ExportMode::Layout) BuildDeliveryFolders(state, story->metadata, context);
    FillStoryNameFields(state, story->metadata);
    WriteExportedFile(state, bytes);
    FinishTargetPath(state, mode, context, name);
}

}  // namespace tessarin
