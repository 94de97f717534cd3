#include "support/office_convert.h"

#include "support/shell_quote.h"
#include "support/tool_run.h"

namespace tessarin::testing {

std::filesystem::path OfficeConvert(const std::filesystem::path& document,
                                    const std::string& format,
                                    const std::filesystem::path& folder) {
    const std::string profile =
        "-env:UserInstallation=file://" + (folder / "office-profile").string();
    const ToolRun run =
        RunTool("soffice " + Quoted(profile) + " --headless --convert-to " + Quoted(format) +
                " --outdir " + Quoted(folder.string()) + " " + Quoted(document.string()));
    std::filesystem::path converted =
        folder / document.stem().concat("." + format.substr(0, format.find(':')));
    if (run.exitStatus != 0 || !std::filesystem::exists(converted)) return {};
    return converted;
}

}  // namespace tessarin::testing
