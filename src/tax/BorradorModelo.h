#pragma once
// The printed draft of a return: a title, lines of text, section headings and rows of a label
// with its figures right-aligned in columns, on as many pages as it takes.
//
// Usage:
//     BorradorModelo b(imp, "Arial", 9, {imp.AnchoPagina() - 1000});   // one column of figures
//     b.Titulo("Modelo 115");
//     b.Texto("Periodo: 01/01/2026 a 31/03/2026");
//     b.Seccion("Retenciones de capital inmobiliario");
//     b.Fila("Resultado a ingresar", {TextoCasilla(m.casillas[5])});
//     b.Terminar();

#include <QList>
#include <QString>
#include <QStringList>

class Impresora;

class BorradorModelo {
public:
    // Margins of the draft, in twips: about 17 mm left and right, 12 mm at the top.
    static constexpr double Izquierda = 1000;
    static constexpr double Derecha = 1000;
    static constexpr double Arriba = 700;
    static constexpr double Abajo = 1000;

    // derechas: the right edge of each column of figures.
    BorradorModelo(Impresora& imp, const QString& fuente, double tamano, QList<double> derechas);

    // At size + 6, bold, with a rule under it.
    void Titulo(const QString& titulo);
    // A plain line.
    void Texto(const QString& texto);
    // The headings of the figure columns, bold, right-aligned.
    void Columnas(const QStringList& titulos);
    // A bold heading with some room above it.
    void Seccion(const QString& texto);
    // A label (cut before its first figure) and its figures, one per column; empty figures
    // print nothing.
    void Fila(const QString& etiqueta, const QStringList& cifras, bool negrita = false,
              double sangria = 0);
    // Ends the document.
    void Terminar();

private:
    void nuevaPaginaSiToca();

    Impresora& imp_;
    QString fuente_;
    double tamano_;
    QList<double> derechas_;
};
