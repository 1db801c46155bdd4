#pragma once
// Plain files the program keeps beside its databases: fixed-record lists in the Windows-1252
// single-byte code page, and the exclusive-open test that guards their rewriting.

#include <QByteArray>
#include <QList>
#include <QString>

QByteArray ACp1252(const QString& texto);
QString DeCp1252(const QByteArray& bytes);

// One text field of a fixed record: Windows-1252, cut to width, left-justified, blank-padded.
QByteArray CampoFijo(const QString& texto, int ancho);

// A file of fixed-length records, without header or separators; records count from 1 and a
// trailing partial record is ignored.
class FicheroRegistros {
public:
    FicheroRegistros(const QString& ruta, int longitud) : ruta_(ruta), longitud_(longitud) {}
    bool existe() const;
    int cuenta() const;
    QList<QByteArray> leerTodos() const;
    // Appends one record (padded or cut to the record length). Throws ErrorAlmacen on failure.
    void anadir(const QByteArray& registro) const;
    // Replaces the whole file with these records.
    void reescribir(const QList<QByteArray>& registros) const;

private:
    QByteArray ajustar(const QByteArray& r) const;
    QString ruta_;
    int longitud_;
};

// Tries to open a file exclusively: if another process holds it, waits 300 ms and tries again,
// up to ten waits. A missing file is free. Any other failure answers false at once.
bool FicheroLibre(const QString& ruta);

// Holds a file exclusively while a list is rewritten; conseguido() tells whether it could.
class BloqueoFichero {
public:
    explicit BloqueoFichero(const QString& ruta);
    ~BloqueoFichero();
    BloqueoFichero(const BloqueoFichero&) = delete;
    BloqueoFichero& operator=(const BloqueoFichero&) = delete;
    bool conseguido() const { return ok_; }

private:
    int fd_ = -1;
    bool ok_ = false;
};
