#include <QApplication>
#include <QtTest>

#include "ui/ui_test_registry.h"

namespace tessarin::testing {

std::vector<std::function<std::unique_ptr<QObject>()>>& UiTestClasses() {
    static std::vector<std::function<std::unique_ptr<QObject>()>> classes;
    return classes;
}

}  // namespace tessarin::testing

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    int failed = 0;
    for (const auto& make : tessarin::testing::UiTestClasses()) {
        auto test = make();
        if (QTest::qExec(test.get(), argc, argv) != 0) ++failed;
    }
    return failed == 0 ? 0 : 1;
}
