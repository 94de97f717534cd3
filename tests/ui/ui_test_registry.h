#pragma once

#include <QObject>
#include <functional>
#include <memory>
#include <vector>

namespace tessarin::testing {

// The Qt Test classes of the desktop editor, run one after the other by one program.
inline std::vector<std::function<std::unique_ptr<QObject>()>>& UiTestClasses() {
    static std::vector<std::function<std::unique_ptr<QObject>()>> classes;
    return classes;
}

struct UiTestRegistration {
    explicit UiTestRegistration(std::function<std::unique_ptr<QObject>()> make) {
        UiTestClasses().push_back(std::move(make));
    }
};

}  // namespace tessarin::testing

// Registers a Qt Test class (a QObject with private slots as test functions).
#define TESSARIN_UI_TEST(Class)                                               \
    static const ::tessarin::testing::UiTestRegistration registration##Class( \
        [] { return std::unique_ptr<QObject>(new Class); })
