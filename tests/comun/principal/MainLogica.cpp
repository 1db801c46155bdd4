// Entry point of the logic tests: a QGuiApplication (offscreen) so that font metrics,
// QPdfWriter and the SQL plugins are available, with the Spanish locale the program uses.
#include "ServidorPruebas.h"

#include <QGuiApplication>
#include <QLocale>
#include <gtest/gtest.h>

namespace {

// The server run of a folder's tests: without a server every test is skipped, with the reason,
// rather than run against the files and counted as passed.
class EntornoServidor : public ::testing::Environment {
public:
    void SetUp() override {
        if (PruebasEnServidor())
            SALTAR_SIN_SERVIDOR();
    }
};

} // namespace

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM",
            qgetenv("QT_QPA_PLATFORM").isEmpty() ? "offscreen" : qgetenv("QT_QPA_PLATFORM"));
    QLocale::setDefault(QLocale(QLocale::Spanish, QLocale::Spain));
    QGuiApplication app(argc, argv);
    ::testing::InitGoogleTest(&argc, argv);
    ::testing::AddGlobalTestEnvironment(new EntornoServidor);
    return RUN_ALL_TESTS();
}
