#pragma once
// The printed journal, "LIBRO DIARIO": the official layout ("Modelo oficial", a continuous table,
// with or without the handwriting column "DOCUM.") and the draft ("Borrador", each entry a block
// with its total, its VAT data and a separating row). Each copy reruns the query; the running
// sums are not reset between copies, so the second copy starts from the totals of the first.
//
// Usage:
//     ImpresionDiario diario(sesion, seleccion, opciones);     // opciones from Form77
//     ImprimirLibro(ventana, diario.Dibujo(), {...});          // desktop: preview, printer
//     ImprimirPdf(ruta, diario.Dibujo());                      // command line
//     ImpresoraGrabadora imp; diario.Dibujar(imp, 1);           // tests
// A copy may be drawn more than once (a preview, then the printer): each drawing of copy n
// starts from the sums at the end of copy n - 1, drawing the earlier copies off paper when they
// were not drawn yet.

#include "platform/Impresora.h"
#include "reports/Diario.h"
#include "reports/MotorLibro.h"
#include "reports/OpcionesLibro.h"

#include <QMap>

// The constants of the journal's page end and foot.
constexpr double FinPaginaDiario = 2150, ReglaDiario = 1985, TotalesDiario = 1835;

inline const QString TituloDiario = QStringLiteral("LIBRO DIARIO");
inline const QString TextoTotalAsiento = QStringLiteral("Total Asiento .  .  .  .  .");
inline const QString SeparadorAsientos = QStringLiteral("--  --  --  --  x  --  --  --  --");

// Columns of the official layout: "Nº As.", "FECHA", ["DOCUM."], "CUENTA", "CONCEPTO", "DEBE",
// "HABER"; d is the shift, W the page width.
QList<ColumnaLibro> ColumnasDiarioOficial(double d, double W, bool conDocumento);
// Columns of the draft: ["DOCUM."], "FECHA", "SUBCUENTA", "CONCEPTO", "DEBE", "HABER".
QList<ColumnaLibro> ColumnasDiarioBorrador(double L, double d, double W, bool conDocumento);

// The VAT line of the draft: "[Base Iva: …;  Cuota: …;  Cli/Pro.: …;  Fra.: …]".
QString LineaIvaBorrador(double base, double cuota, const QString& imputado,
                         const QString& factura);

class ImpresionDiario {
public:
    // The selection and options are copied; the session must outlive the object.
    ImpresionDiario(const Sesion& s, const SeleccionDiario& sel, const OpcionesLibro& op);

    // Draws copy n (from 1): the official layout, or the draft when op.borrador.
    void Dibujar(Impresora& imp, int copia);
    DibujoLibro Dibujo();

    // The running sums after the last copy drawn.
    double SumaDebe() const { return sumas_.value(0); }
    double SumaHaber() const { return sumas_.value(1); }

private:
    void dibujarOficial(Impresora& imp);
    void dibujarBorrador(Impresora& imp);
    DisenoLibro diseno(double L, double d, double W, const QString& empresa) const;
    QString empresa();

    const Sesion& s_;
    SeleccionDiario sel_;
    OpcionesLibro op_;
    QList<double> sumas_;
    QMap<int, QList<double>> finDeCopia_;
    QString empresa_;
    bool empresaLeida_ = false;
};
