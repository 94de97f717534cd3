#pragma once

#include <string>
#include <string_view>

#include "app/window_state.h"
#include "config/configuration.h"

namespace tessarin {

// The words a story and its messages use for a field: the caption of the field's label as the
// configuration named it, else the caption the label was designed with.

// The caption a label was designed with, in English; empty for a name not in the table.
std::string_view DesignLabelCaption(std::string_view labelName);

// The caption a label shows: the configured caption when there is one, else the design one.
std::string LabelCaption(const WindowState& window, std::string_view labelName);

// The label of the images' caption and credit fields (Interface keys ImageCaption and
// ImageCredit), with the design captions "Caption" and "Credit" when the key is not set.
std::string ImageCaptionLabel(const Configuration& configuration);
std::string ImageCreditLabel(const Configuration& configuration);

}  // namespace tessarin
