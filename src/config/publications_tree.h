#pragma once

#include <filesystem>

#include "app/window_state.h"
#include "common/xml_document.h"
#include "config/configuration.h"
#include "config/preferences.h"

namespace tessarin {

// The Publications section as the tree treePublications, its only store. Four levels:
// Publication, Classification, Section, SubSection. Each level numbers its nodes from 1 over
// the whole tree, and a node's key is the level's letter and that number: "P3", "C12", "S40",
// "T118". Tags: "P"; "CG" for a General classification, "CL" for a Local one, "C" for any
// other Type; "S"; "T" and the sub-section's code, which is Code1, or Code1 "/" Code2 when
// Code2 is not empty. Every node is expanded. A classification and the nodes below it take
// ClassificationColorLocal of the preferences when its type letter is "L", and
// ClassificationColorGeneral otherwise. In the
// preferred view an element whose Preferred is exactly "false" is left out with all that is
// below it; the full view shows everything. Keys therefore differ between the two views.

// Empties treePublications and fills it from the document element's Publications section
// for the given view. When the section or its Publication children are missing, reports
// " - missing section 'Publications'" or " - missing tag 'Publication'" in the status panel
// (see ReportConfigurationError) and returns false. Both the configuration load and
// ReloadPublications build the tree through this one function.
bool BuildPublicationsTree(const XmlNode& documentElement, const std::filesystem::path& document,
                           bool allPublications, const Preferences& preferences,
                           WindowState& window);

// The configuration load's pass: the preferred view (view flag false, its menu entry
// checked), built with BuildPublicationsTree from the document already read, and the
// general-or-local flag set from the first classification of the first publication (general
// when its tag is "CG"). False when the section or its Publication children are missing.
bool LoadPublications(const XmlNode& documentElement, const std::filesystem::path& document,
                      const Preferences& preferences, Configuration& configuration,
                      WindowState& window);

// Clears the status panel, reads the configuration document again and rebuilds the tree
// for the view that configuration.publications.allPublications names. A document that does
// not parse leaves the tree empty and shows "Parsing error: ..." with the error picture and
// a beep. Returns true when the tree was built.
bool ReloadPublications(const std::filesystem::path& document, const Preferences& preferences,
                        const Configuration& configuration, WindowState& window);

// The two view commands: check their own menu entry (mnuDisplayPublicationsPreferred,
// mnuDisplayPublicationsFull), uncheck the other, set the view flag and reload.
bool ShowPreferredPublications(const std::filesystem::path& document,
                               const Preferences& preferences, Configuration& configuration,
                               WindowState& window);
bool ShowAllPublications(const std::filesystem::path& document, const Preferences& preferences,
                         Configuration& configuration, WindowState& window);

}  // namespace tessarin
