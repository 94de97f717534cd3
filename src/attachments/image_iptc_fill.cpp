#include "attachments/image_iptc_fill.h"

#include <string>

#include "attachments/iptc_display.h"
#include "attachments/iptc_reader.h"

namespace tessarin {
namespace {

const IptcDataset& Dataset(int number) {
    return IptcDatasets()[IptcDatasetIndex(number).value_or(0)];
}

bool Mandatory(const EditorSession& session, int dataset) {
    return session.configuration.interface.Entry(Dataset(dataset).labelKey).Mandatory;
}

bool IptcWanted(const EditorSession& session) {
    const Preferences& preferences = session.preferences;
    return preferences.IPTCCaption || preferences.IPTCCredit || preferences.IPTCByline ||
           preferences.IPTCKeywords || Mandatory(session, kIptcCaptionAbstract) ||
           Mandatory(session, kIptcCredit) || Mandatory(session, kIptcKeywords);
}

void WarnMissing(EditorSession& session, int dataset) {
    session.user.Tell("IPTC - " + session.Message("MandatoryField") + "\n" +
                          IptcLabel(session.configuration.interface, Dataset(dataset)),
                      MessageIcon::Exclamation);
}

void WarnMissingMandatoryValues(EditorSession& session, const IptcData& data) {
    if (Mandatory(session, kIptcCaptionAbstract) && data.Value(kIptcCaptionAbstract).empty()) {
        WarnMissing(session, kIptcCaptionAbstract);
    }
    if (Mandatory(session, kIptcCredit) && data.Value(kIptcCredit).empty()) {
        WarnMissing(session, kIptcCredit);
    } else if (session.preferences.IPTCByline && data.Value(kIptcByline).empty()) {
        WarnMissing(session, kIptcByline);
    }
    if (Mandatory(session, kIptcKeywords) && data.Value(kIptcKeywords).empty()) {
        WarnMissing(session, kIptcKeywords);
    }
}

void FillFromIptc(const Preferences& preferences, const IptcData& data, StoryImage& image) {
    if (preferences.IPTCCaption) image.caption = data.Value(kIptcCaptionAbstract);
    if (preferences.IPTCCredit) image.credit = data.Value(kIptcCredit);
    const std::string byline = data.Value(kIptcByline);
    if (preferences.IPTCByline && !byline.empty()) image.credit = byline;
    if (preferences.IPTCKeywords) {
        if (!preferences.IPTCCollapseKeywords) {
            image.iptcKeywords = data.Entries(kIptcKeywords);
        } else if (const std::string keywords = data.Value(kIptcKeywords); !keywords.empty()) {
            image.iptcKeywords = {keywords};
        }
    }
}

// The configuration asks for the user's name as the credit by giving AuthorByDefault a text.
bool AuthorIsDefaultCredit(const EditorSession& session) {
    const InterfaceEntry& entry = session.configuration.interface.Entry("AuthorByDefault");
    return entry.Visible && !entry.caption.empty();
}

}  // namespace

StoryImage NewImageEntry(EditorSession& session, const std::filesystem::path& picture) {
    StoryImage image;
    image.path = picture.string();
    if (IptcWanted(session)) {
        const IptcData data = ReadIptc(picture);
        if (data.shortRead) session.user.Tell("Error reading file ...", MessageIcon::Exclamation);
        WarnMissingMandatoryValues(session, data);
        if (!data.Empty()) FillFromIptc(session.preferences, data, image);
    }
    if (image.credit.empty() && AuthorIsDefaultCredit(session)) {
        image.credit = session.configuration.identity.author;
    }
    return image;
}

}  // namespace tessarin
