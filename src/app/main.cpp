// quilmar: the desktop.

#include "platform/Ajustes.h"
#include "posting/EmpresaDemo.h"
#include "store/Instalacion.h"
#include "store/Sesion.h"

#include <QApplication>
#include <QLabel>
#include <QLocale>
#include <QMainWindow>
#include <QMessageBox>

int main(int argc, char** argv) {
    QApplication app(argc, argv);
    QLocale::setDefault(QLocale(QLocale::Spanish, QLocale::Spain));
    Sesion sesion;
    sesion.AppPath = CarpetaInstalacionPorDefecto();
    const QStringList args = app.arguments();
    const int i = args.indexOf(QStringLiteral("--datos"));
    if (i > 0 && i + 1 < args.size())
        sesion.AppPath = args.at(i + 1);
    try {
        Ajustes ajustes(sesion.AppPath);
        if (!ExistePLoc(sesion))
            EscribirPLoc(sesion, sesion.AppPath);
        sesion.DataPath = LeerPLoc(sesion);
        PrimerArranque(sesion, ajustes);
    } catch (const std::exception& e) {
        QMessageBox::critical(nullptr, QStringLiteral("Quilmar"), QString::fromStdString(e.what()));
        return 1;
    }
    QMainWindow ventana;
    ventana.setWindowTitle(QStringLiteral("Quilmar [Principal] "));
    ventana.setCentralWidget(new QLabel(QStringLiteral("Quilmar")));
    ventana.resize(900, 600);
    ventana.show();
    return app.exec();
}
