#pragma once

#include "app/window_state.h"
#include "common/xml_document.h"
#include "config/configuration.h"
#include "config/profile_file.h"

namespace tessarin {

// The Metadata section, read in two steps because the keywords and the taxonomy are read
// between them.

// The labelled items, CreationDate to CodeLocal2, and the identity. Each item governs a
// label (caption from Name, "mandatory" in its tag from Mandatory "true") and one or more
// controls (hidden with their label by Visible "false", which puts "invisible" in the first
// control's tag; made read only by Enabled "false"). The controls are first put back as
// designed, so that a second load starts afresh. The identity values come from the
// preferences' Identification section, else from the element's text; each is shown in its
// lblTxt... label.
void ReadMetadataItems(const XmlNode& metadata, const ProfileContents& profile,
                       Configuration& configuration, WindowState& window);

// Forms (lstStoryTypes, the forms and the image size table), Status (lstStatus) and Genre
// (lstGenre). Each starts from empty. The first form is selected; the status whose
// FormalName is "Usable" and the genre whose FormalName is "Current" are chosen by default.
void ReadFormsStatusGenre(const XmlNode& metadata, Configuration& configuration,
                          WindowState& window);

}  // namespace tessarin
