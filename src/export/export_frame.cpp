#include "export/export_frame.h"

#include <algorithm>
#include <filesystem>
#include <system_error>

#include "common/file_io.h"

namespace tessarin {

namespace {

// Paths of the configuration may be written with "\": on this system they are "/".
std::string NativeSeparators(std::string_view path) {
    std::string native(path);
    std::replace(native.begin(), native.end(), '\\', '/');
    return native;
}

std::string ExportTextsDirectory(const ExportContext& context) {
    return NativeSeparators(context.configuration.workflow.ExportTextsDirectory);
}

std::string JoinOrName(std::string_view directory, std::string_view name) {
    if (directory.empty()) return std::string(name);
    std::string joined(directory);
    joined += '/';
    joined.append(name);
    return joined;
}

std::string_view TrimSpaces(std::string_view text) {
    const std::size_t first = text.find_first_not_of(' ');
    if (first == std::string_view::npos) return {};
    return text.substr(first, text.find_last_not_of(' ') - first + 1);
}

std::string TextOf(const XmlNode& metadata, std::string_view name) {
    return metadata.SelectSingleNode(name).Text();
}

}  // namespace

ExportWriter WriterForFormat(std::string_view format) {
    if (format == "NewsML") return ExportWriter::NewsML;
    if (format == "NITF") return ExportWriter::NITF;
    if (format == "InDesign") return ExportWriter::InDesign;
    if (format == "XPress") return ExportWriter::XPress;
    if (format == "EditWorksQTrans") return ExportWriter::EditWorks;
    if (format == "MileniumInsert") return ExportWriter::Milenium;
    if (format == "RSS") return ExportWriter::RSS;
    return ExportWriter::TessarinML;
}

std::string BaseNameOf(std::string_view fileName) {
    const std::size_t point = fileName.rfind('.');
    return point == std::string_view::npos ? std::string() : std::string(fileName.substr(0, point));
}

std::string UpToLastPointOf(std::string_view fileName) {
    const std::size_t point = fileName.rfind('.');
    return point == std::string_view::npos ? std::string()
                                           : std::string(fileName.substr(0, point + 1));
}

std::string OutputNameFor(ExportWriter writer, std::string_view storyName) {
    switch (writer) {
        case ExportWriter::InDesign:
        case ExportWriter::XPress: {
            // Only ever given names with an extension: without one the name stays empty.
            if (storyName.find('.') == std::string_view::npos) return {};
            return BaseNameOf(storyName) + (writer == ExportWriter::InDesign ? ".txt" : ".xtg");
        }
        case ExportWriter::EditWorks:
            return UpToLastPointOf(storyName) + "txt";
        case ExportWriter::RSS:
            return UpToLastPointOf(storyName) + "xml";
        case ExportWriter::NewsML:
        case ExportWriter::NITF:
        case ExportWriter::Milenium:
        case ExportWriter::TessarinML:
            break;
    }
    return std::string(storyName);
}

const FtpServer* ChosenFtpServer(const ExportContext& context) {
    const auto& servers = context.configuration.ftpTransmission.servers;
    if (context.ftpServer < 1 || context.ftpServer > servers.size()) return nullptr;
    return &servers[context.ftpServer - 1];
}

bool MakesDeliveryFolders(ExportWriter writer, ExportMode mode) {
    return mode == ExportMode::Layout &&
           (writer == ExportWriter::InDesign || writer == ExportWriter::XPress ||
            writer == ExportWriter::TessarinML);
}

std::string FirstTargetPath(ExportWriter writer, ExportMode mode, const ExportContext& context,
                            std::string_view name, std::string_view currentTargetPath) {
    switch (mode) {
        case ExportMode::Ftp: {
            const FtpServer* server = ChosenFtpServer(context);
            return JoinOrName(server == nullptr ? std::string_view() : server->TextsDirectory,
                              name);
        }
        case ExportMode::User:
            return std::string(currentTargetPath);
        case ExportMode::Layout:
            break;
    }
    if (MakesDeliveryFolders(writer, mode)) return ExportTextsDirectory(context);
    return JoinOrName(ExportTextsDirectory(context), name);
}

std::string BeginExport(ExportState& state, ExportWriter writer, ExportMode mode,
                        const ExportContext& context) {
    std::string name = OutputNameFor(writer, state.CurrentUploadNode);
    state.TargetPath = FirstTargetPath(writer, mode, context, name, state.TargetPath);
    state.ExportedFilePath = state.UploadDirectory + name;
    return name;
}

std::vector<std::string> DeliveryFolderLevels(const XmlNode& metadata,
                                              std::string_view coldStoryName,
                                              std::string_view storyName) {
    std::vector<std::string> levels;
    const auto addWhenPresent = [&](std::string_view element) {
        const XmlNode node = metadata.SelectSingleNode(element);
        if (node) levels.push_back(node.Text());
    };
    addWhenPresent("Publication");
    if (const XmlNode date = metadata.SelectSingleNode("PublicationDate")) {
        std::string text = date.Text();
        std::replace(text.begin(), text.end(), '/', '-');
        levels.push_back(text == "0" ? std::string(coldStoryName) : text);
    }
    for (const std::string_view element : {"Classification", "SectionGeneral", "SubSectionGeneral",
                                           "SectionLocal", "SubSectionLocal"})
        addWhenPresent(element);
    std::string baseName = BaseNameOf(storyName);
    if (!baseName.empty()) levels.push_back(std::move(baseName));
    return levels;
}

void BuildDeliveryFolders(ExportState& state, const XmlNode& metadata,
                          const ExportContext& context) {
    if (ExportTextsDirectory(context).empty()) return;
    for (const std::string& level : DeliveryFolderLevels(
             metadata, context.configuration.metadata.coldStoryLabel, state.CurrentUploadNode)) {
        state.TargetPath += '/';
        state.TargetPath += level;
        std::error_code ignored;
        std::filesystem::create_directory(state.TargetPath, ignored);
    }
}

void FinishTargetPath(ExportState& state, ExportMode mode, const ExportContext& context,
                      std::string_view name) {
    state.TargetDirectory = state.TargetPath;
    if (mode != ExportMode::Layout) return;
    if (ExportTextsDirectory(context).empty()) {
        state.TargetPath = std::string(name);
    } else {
        state.TargetPath = JoinOrName(state.TargetPath, name);
    }
}

void StoreOriginalStoryPath(ExportState& state, const XmlNode& metadata) {
    state.OriginalStoryPath = metadata.SelectSingleNode("OriginalPath").Attribute("Name");
}

void FillStoryNameFields(ExportState& state, const XmlNode& metadata) {
    const auto generalElseLocal = [&](std::string_view general, std::string_view local) {
        std::string text = TextOf(metadata, general);
        return text.empty() ? TextOf(metadata, local) : text;
    };
    state.StoryNameFields = {TextOf(metadata, "Publication"), TextOf(metadata, "Classification"),
                             generalElseLocal("SectionGeneral", "SectionLocal"),
                             generalElseLocal("SubSectionGeneral", "SubSectionLocal")};
}

std::string ExportParseErrorText(std::string_view path, const XmlParseError& error,
                                 std::string_view lineWord, std::string_view positionWord) {
    std::string text = "Parsing error:";
    text.append(path);
    text.append(lineWord);
    text += std::to_string(error.line);
    text.append(positionWord);
    text += std::to_string(error.linePosition);
    text += ' ';
    text.append(TrimSpaces(error.sourceText));
    text += ' ';
    text += error.reason;
    return text;
}

std::optional<StagedStory> LoadStagedStoryOrShowError(const std::string& path,
                                                      const ExportContext& context) {
    StagedStory story;
    if (!story.document.LoadFile(path)) {
        const XmlParseError error =
            story.document.ParseError().value_or(XmlParseError{0, 0, "", "cannot read file"});
        context.user.Tell(ExportParseErrorText(path, error), MessageIcon::Critical);
        context.user.Beep();
        return std::nullopt;
    }
    story.root = story.document.DocumentElement();
    story.metadata = story.root.SelectSingleNode("Metadata");
    story.body = story.root.SelectSingleNode("Body");
    return story;
}

bool WriteExportedFile(const ExportState& state, std::string_view bytes) {
    std::error_code ignored;
    std::filesystem::remove(state.ExportedFilePath, ignored);
    return WriteFileReplacing(state.ExportedFilePath, bytes);
}

}  // namespace tessarin
