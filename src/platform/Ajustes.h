#pragma once
// The per-user settings store: text values by application key (QuilmarPro, and QuilmarEmp for the
// two values that live there), section and key. Kept as two INI files in the installation folder,
// which is per user, so that each --datos folder carries its own settings.

#include <QSize>
#include <QString>
#include <QVariant>
#include <memory>

class QSettings;

class Ajustes {
public:
    explicit Ajustes(const QString& carpeta);
    ~Ajustes();
    Ajustes(const Ajustes&) = delete;
    Ajustes& operator=(const Ajustes&) = delete;

    // A missing key gives the default of the table of settings (empty when it has none).
    QString leer(const QString& seccion, const QString& clave) const;
    QString leer(const QString& seccion, const QString& clave, const QString& defecto) const;
    // Reads a number; a missing or non-numeric value gives the default.
    double leerNumero(const QString& seccion, const QString& clave, double defecto) const;
    void escribir(const QString& seccion, const QString& clave, const QVariant& valor);
    void borrar(const QString& seccion, const QString& clave);
    bool existe(const QString& seccion, const QString& clave) const;

    // The same under the application key QuilmarEmp.
    QString leerEmp(const QString& seccion, const QString& clave, const QString& defecto) const;
    void escribirEmp(const QString& seccion, const QString& clave, const QVariant& valor);

    // Window size of form n (WF<n>, HF<n> under Opciones): a stored 0, or a value larger than
    // the screen, leaves that dimension as designed.
    QSize tamanoVentana(int n, QSize disenado, QSize pantalla) const;
    void guardarTamanoVentana(int n, QSize tamano);

    // Default of a key, by the table of settings.
    static QString defecto(const QString& seccion, const QString& clave);

    QString carpeta() const { return carpeta_; }

private:
    QString carpeta_;
    std::unique_ptr<QSettings> pro_;
    std::unique_ptr<QSettings> emp_;
};
