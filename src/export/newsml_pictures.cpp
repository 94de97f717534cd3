#include "export/newsml_pictures.h"

#include "export/newsml_box_markup.h"

namespace tessarin {

std::string PictureNameFromHref(std::string_view href) {
    constexpr std::string_view kScheme = "file:///";
    if (href.starts_with(kScheme)) href.remove_prefix(kScheme.size());
    std::string name(href);
    ReplaceAllInText(name, "%20", " ");
    return name;
}

std::string FileUrl(std::string_view path) {
    return (path.starts_with('/') ? "file://" : "file:///") + std::string(path);
}

}  // namespace tessarin
