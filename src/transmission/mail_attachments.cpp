#include "transmission/mail_attachments.h"

#include <algorithm>
#include <vector>

#include "common/text_replace.h"
#include "common/xml_document.h"
#include "export/export_frame.h"
#include "export/uuencode.h"

namespace fs = std::filesystem;

namespace tessarin {
namespace {

// The local file an href names: "file://" and a path, "%20" standing for a blank.
fs::path HrefFile(std::string href) {
    if (href.starts_with("file://")) href.erase(0, 7);
    ReplaceAllInText(href, "%20", " ");
    std::replace(href.begin(), href.end(), '\\', '/');
    return fs::path(href);
}

std::string BareAttachedName(const std::string& href) {
    std::string name = HrefFile(href).filename().string();
    std::replace(name.begin(), name.end(), ' ', '_');
    return name;
}

}  // namespace

MailAttachments StoryMailAttachments(const fs::path& story, bool xml, bool files) {
    MailAttachments attachments;
    XmlDocument document;
    if (!document.LoadFile(story)) {
        attachments.parseError =
            ExportParseErrorText(story.string(), document.ParseError().value_or(XmlParseError{}));
        return attachments;
    }
    const XmlNode root = document.DocumentElement();
    std::vector<XmlNode> attached = root.SelectNodes("Images/ImageBag/Image");
    for (XmlNode file : root.SelectNodes("Files/FileBag/File"))
        attached.push_back(file);
    std::vector<fs::path> companions;
    for (XmlNode node : attached)
        companions.push_back(HrefFile(node.Attribute("href")));
    if (xml) {
        for (XmlNode node : attached)
            node.SetAttribute("href", BareAttachedName(node.Attribute("href")));
        attachments.text += UUEncode(story.filename().string(), document.SaveBytes());
    }
    if (files) {
        for (const fs::path& companion : companions) {
            if (std::optional<std::string> encoded = UUEncodeFile(companion))
                attachments.text += *encoded;
        }
    }
    return attachments;
}

std::string MailBodyWith(const std::string& message, const std::string& attachments) {
    return attachments.empty() ? message : message + "\r\n\r\n" + attachments;
}

}  // namespace tessarin
