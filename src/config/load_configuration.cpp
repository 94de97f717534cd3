#include "config/load_configuration.h"

#include "common/reading_idiom.h"
#include "common/xml_document.h"
#include "config/configuration_error.h"
#include "config/keywords_taxonomy_section.h"
#include "config/metadata_section.h"
#include "config/publications_tree.h"
#include "config/story_section.h"

namespace tessarin {
namespace {

void ReadGeneralSettings(const XmlNode& root, GeneralSettings& general) {
    general.version = TextOr(root.Attribute("Version"), "???");
    general.storiesEncoding = root.Attribute("StoriesEncoding") == "UTF-8" ? "UTF-8" : "ISO-8859-1";
    general.description = root.Attribute("Description");
    general.language = root.Attribute("Language");
    general.client = root.Attribute("Client");
}

// FTPTransmission, and ExportFormats at its end unless the section has no FTPServer.
void ReadFtpAndExport(const XmlNode& root, const XmlNode& ftp,
                      const std::filesystem::path& document, Configuration& configuration,
                      WindowState& window) {
    if (ReadFtpTransmission(ftp, configuration.ftpTransmission, window) == FtpServers::Missing) {
        ReportConfigurationError(window, document, " - missing tag 'FTPServer'");
        return;
    }
    const XmlNode exportFormats = root.SelectSingleNode("ExportFormats");
    if (exportFormats) ReadExportFormats(exportFormats, configuration.exportFormats);
}

// Interface, then Messages, with the single-instance rule right after NotMultipleInstance.
// False when the rule refuses this instance.
bool ReadInterfaceAndMessages(const XmlNode& root, const LoadOptions& options,
                              Configuration& configuration, WindowState& window) {
    ReadInterface(root.SelectSingleNode("Interface"), configuration.interface, window);
    bool refused = false;
    const auto singleInstanceRule = [&] {
        if (configuration.interface.MultipleInstances) return;
        if (!options.anotherInstanceRunning || !options.anotherInstanceRunning()) return;
        refused = true;
        ++window.beeps;
        if (options.endSecondInstance) {
            options.endSecondInstance(configuration.messages.Message("NotMultipleInstance"));
        }
    };
    ReadMessages(root.SelectSingleNode("Messages"), configuration.messages, singleInstanceRule);
    return !refused;
}

void ApplyWindowTitle(const Configuration& configuration, const LoadOptions& options,
                      WindowState& window) {
    const std::string storyName =
        options.storyName.empty() ? configuration.messages.Message("NewStory") : options.storyName;
    window.title = WindowTitle(TESSARIN_VERSION, configuration.general.client, storyName);
}

}  // namespace

std::string WindowTitle(std::string_view programVersion, std::string_view client,
                        std::string_view storyName) {
    std::string title = "Tessarin " + std::string(programVersion);
    if (!client.empty()) title += " - " + std::string(client);
    title += " - " + std::string(storyName);
    return title;
}

bool LoadConfiguration(const std::filesystem::path& document, const ProfileFile& profile,
                       const Preferences& preferences, Configuration& configuration,
                       WindowState& window, const LoadOptions& options) {
    window.ClearStatus();
    window.Tree("treePublications").Clear();

    XmlDocument xml;
    if (!xml.LoadFile(document)) return false;
    const XmlNode root = xml.DocumentElement();
    ReadGeneralSettings(root, configuration.general);

    const XmlNode ftp = root.SelectSingleNode("FTPTransmission");
    if (!ftp) {
        ReportConfigurationError(window, document, "- missing section 'FTPTransmission'");
        return false;
    }
    ReadFtpAndExport(root, ftp, document, configuration, window);
    const ProfileContents preferencesFile = profile.Load();
    ReadSmtpTransmission(root.SelectSingleNode("SMTPTransmission"),
                         preferencesFile.Read(kIdentificationSection, "SMTPRecipient"),
                         configuration.smtpTransmission, window);
    ReadWorkflow(root.SelectSingleNode("Workflow"), configuration.workflow, window);
    ReadTextML(root.SelectSingleNode("TextML"), configuration.textML);

    const XmlNode metadata = root.SelectSingleNode("Metadata");
    if (!metadata) {
        ReportConfigurationError(window, document, " - missing section 'Metadata'");
        return false;
    }
    ReadMetadataItems(metadata, preferencesFile, configuration, window);
    configuration.ftpTransmission.identityAuthor = configuration.identity.author;
    ReadKeywords(root.SelectSingleNode("Keywords"), configuration, window);
    ReadTaxonomy(root.SelectSingleNode("Taxonomy"), configuration, window);
    ReadFormsStatusGenre(metadata, configuration, window);

    const XmlNode story = root.SelectSingleNode("Story");
    if (!story) {
        ReportConfigurationError(window, document, " - missing section 'Story'");
        return false;
    }
    ReadStoryAndNewsServices(story, root.SelectSingleNode("NewsServices"), configuration, window);

    if (!LoadPublications(root, document, preferences, configuration, window)) return false;

    if (!ReadInterfaceAndMessages(root, options, configuration, window)) return false;

    ApplyWindowTitle(configuration, options, window);
    if (!configuration.interface.MetadataVisible) {
        // The Story tab is shown: mnuDisplayMetadata unchecked selects it.
        window.Control("mnuDisplayMetadata").checked = false;
    }
    if (options.loadSynonyms) options.loadSynonyms(configuration, window);
    return true;
}

}  // namespace tessarin
