#include "app/missing_configuration.h"

namespace tessarin {

std::string MissingConfigurationMessage(const AppPaths& paths) {
    return "No configuration document was found. Tessarin reads the newsroom's configuration "
           "from:\n" +
           paths.configurationFile.string() +
           "\n\nCopy the configuration document that your newsroom gives you to that path, or "
           "start Tessarin with its path as argument (tessarin CONFIG), which installs it "
           "there.\n\nTo try Tessarin on a demo newsroom, run:\nscripts/demo --app-dir " +
           paths.appDir.string();
}

}  // namespace tessarin
