#pragma once
// The process-wide values of a session, by their names. The application owns one; logic receives
// it by reference; a test builds its own over a temporary folder.

#include <QDate>
#include <QDir>
#include <QString>

struct Sesion {
    // Installation folder (program folder) and the folder that holds the company folders: equal on
    // a main installation, the content of PLoc.dat on a client.
    QString AppPath;
    QString DataPath;

    // The books on a PostgreSQL server (postgresql://usuario@host:puerto/base); empty: the files
    // of DataPath. The program folder keeps the settings and pictures either way.
    QString UrlServidor;

    QString UsuarioActual;
    QString ClaveActual;
    QString EmpresaActual; // company folder, "Emp001"
    qint16 AnoActual = 0;  // exercise year

    QDate FechaIniEj;
    QDate FechaFinEj;
    bool EjCerrado = false;
    long NAsReg = 0;
    long NAsFin = 0;
    // Highest entry number, held as a 32-bit float (exact up to 16,777,216).
    float UltimoAsiento = 0;
    long UltimaSubcuenta = 0;
    QDate UltimaFecha;

    bool PuntoDecimal = false;
    double CambioPeseta = 166.386;
    double EscalaBoard = 1.0;
    QString CArea = QStringLiteral("Imagenes");
    QString NombreLetra = QStringLiteral("Arial");
    qint16 TamanoLetra = 9;
    QString NombreImprimir = QStringLiteral("Arial");
    qint16 TamanoImprimir = 9;

    QString carpetaEmpresa() const { return QDir(DataPath).filePath(EmpresaActual); }
    QString carpetaEmpresa(const QString& empresa) const {
        return QDir(DataPath).filePath(empresa);
    }
    QString rutaEjercicio() const { return rutaEjercicio(AnoActual); }
    QString rutaEjercicio(int ano) const {
        return QDir(carpetaEmpresa()).filePath(QStringLiteral("Quilmar%1.db").arg(ano));
    }
    QString rutaBavar() const {
        return QDir(carpetaEmpresa()).filePath(QStringLiteral("Bavar.db"));
    }
    QString rutaSelan() const {
        return QDir(carpetaEmpresa()).filePath(QStringLiteral("Selan.dat"));
    }
    QString rutaBavis() const { return QDir(AppPath).filePath(QStringLiteral("Bavis.db")); }
    QString rutaVias() const { return QDir(AppPath).filePath(QStringLiteral("VIAS.db")); }
    QString rutaNemp() const { return QDir(AppPath).filePath(QStringLiteral("Nemp.dat")); }
    QString rutaPLoc() const { return QDir(AppPath).filePath(QStringLiteral("PLoc.dat")); }
    // Main installation: nobody else can be posting into these books. On a server anybody may.
    bool esPrincipal() const { return !enServidor() && QDir(DataPath) == QDir(AppPath); }
    bool enServidor() const { return !UrlServidor.isEmpty(); }
    // The company code, "001" of "Emp001".
    QString codigoEmpresa() const { return EmpresaActual.mid(3); }
};
