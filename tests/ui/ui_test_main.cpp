#include <QApplication>
#include <QtTest>

#include "ui/ui_test_registry.h"

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    int failed = 0;
    for (const auto& make : tessarin::testing::UiTestClasses()) {
        auto test = make();
        if (QTest::qExec(test.get(), argc, argv) != 0) ++failed;
    }
    return failed == 0 ? 0 : 1;
}
