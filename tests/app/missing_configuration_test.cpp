#include "app/missing_configuration.h"

#include <gtest/gtest.h>

namespace tessarin {
namespace {

TEST(MissingConfigurationTest, NamesTheDocumentAndTheDemoForThisApplicationDirectory) {
    EXPECT_EQ(MissingConfigurationMessage(MakeAppPaths("/home/ann/newsroom")),
              "No configuration document was found. Tessarin reads the newsroom's "
              "configuration from:\n/home/ann/newsroom/Tessarin.xml\n\nCopy the configuration "
              "document that your newsroom gives you to that path, or start Tessarin with its "
              "path as argument (tessarin CONFIG), which installs it there.\n\nTo try Tessarin "
              "on a demo newsroom, run:\nscripts/demo --app-dir /home/ann/newsroom");
}

}  // namespace
}  // namespace tessarin
