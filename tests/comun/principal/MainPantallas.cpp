// Entry point of the screen tests: a QApplication on the offscreen platform.
#include <QApplication>
#include <QLocale>
#include <gtest/gtest.h>

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM",
            qgetenv("QT_QPA_PLATFORM").isEmpty() ? "offscreen" : qgetenv("QT_QPA_PLATFORM"));
    QLocale::setDefault(QLocale(QLocale::Spanish, QLocale::Spain));
    QApplication app(argc, argv);
    ::testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
