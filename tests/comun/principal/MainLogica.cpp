// Entry point of the logic tests: a QGuiApplication (offscreen) so that font metrics,
// QPdfWriter and the SQL plugins are available, with the Spanish locale the program uses.
#include <QGuiApplication>
#include <QLocale>
#include <gtest/gtest.h>

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM",
            qgetenv("QT_QPA_PLATFORM").isEmpty() ? "offscreen" : qgetenv("QT_QPA_PLATFORM"));
    QLocale::setDefault(QLocale(QLocale::Spanish, QLocale::Spain));
    QGuiApplication app(argc, argv);
    ::testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
