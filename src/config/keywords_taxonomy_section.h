#pragma once

#include "app/window_state.h"
#include "common/xml_document.h"
#include "config/configuration.h"

namespace tessarin {

// Keywords: treeKeywords gets the root "K" (the section's Name) and one node per visible
// KeywordsCategory, keyed "K" and its CategoryIndex, tagged with that index, marked " [*]"
// unless its Mandatory is "false". A visible category turns the keywords on. The tree and
// the switch start from empty, so that a second load doubles nothing.
void ReadKeywords(const XmlNode& keywords, Configuration& configuration, WindowState& window);

// Taxonomy: the tag of treeTaxonomy ("invisible" unless the section is visible, "mandatory"
// added by Mandatory "true"), the taxonomy switch, and the tree: the root "T0" (the
// section's Name), then the Topic elements at any depth, each keyed by its parent's key, "/"
// and its running number within the parent. A topic with child elements has picture 7; a
// leaf has picture 6 and a check box. A node's tag holds its FormalName.
void ReadTaxonomy(const XmlNode& taxonomy, Configuration& configuration, WindowState& window);

}  // namespace tessarin
