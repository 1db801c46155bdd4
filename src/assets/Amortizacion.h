#pragma once
// Depreciation runs: each element's share of its yearly rate for the days since it was last
// depreciated, posted to the journal through the journal writer, and the element brought up
// (UltimaAmort, Amortizado). A run is one transaction over the exercise database and the
// company database attached to it: every entry and every change to the inventory are written
// together, or nothing is.
//
// Usage:
//     PeticionAmortizacion p;                 // Form101, or quilmar-cli amortizar
//     p.fecha = "31/12/2024"; p.agrupar = false;
//     const ResultadoAmortizacion r = RealizarAmortizaciones(s, dialogo, p);
//     AmortizarElemento(s, dialogo, 3);       // the "..." cell of one element: asks the date

#include "assets/Inventario.h"
#include "journal/Escritor.h"

#include <QDate>
#include <QList>
#include <QString>
#include <functional>

class Dialogo;
struct Sesion;

// How a share is rounded. A batch run takes it to the cent ("standard") before it is capped and
// summed; the run of one element keeps every decimal ("General Number") until it is written.
enum class RedondeoCuota { Lote, Elemento };

struct CuotaAmortizacion {
    QDate inicio;       // S: the latest of the exercise's first day, FechaAdq and UltimaAmort
    qint16 dias = 0;    // from S (not counted) to the date (counted)
    double importe = 0; // Importe x Porcentaje x dias / 36500, capped at Importe - Amortizado
};
// The share of an element at a date. A year counts 365 days, leap years included. A share of 0
// or less posts nothing.
CuotaAmortizacion CalcularCuota(const Elemento& e, const QDate& fecha, const QDate& inicioEjercicio,
                                RedondeoCuota redondeo);

struct PeticionAmortizacion {
    QString fecha;        // "Fecha hasta la que se realizará la amortización", as typed
    QString localizacion; // "Sólo los localizados en"; empty: every element
    // One entry per accumulated-depreciation subaccount, with a debit line per charge
    // subaccount, instead of one entry per element.
    bool agrupar = false;
};

// An entry of a run, as it was written.
struct AsientoAmortizacion {
    long NAs = 0;
    QDate Fecha;
    QList<Apunte> Apuntes; // debit lines first
};

struct ResultadoAmortizacion {
    bool hecho = false; // the run was written (false: refused, not confirmed or failed)
    QList<AsientoAmortizacion> asientos;
    QList<qint64> elementos; // the elements brought up
};

// The batch run (Form101): the checks, the question, the selection and the entries. Refusals and
// the end are told through the Dialogo; store failures throw ErrorAlmacen, having written nothing.
ResultadoAmortizacion RealizarAmortizaciones(Sesion& s, Dialogo& d, const PeticionAmortizacion& p);

// The question of one element's run, whose answer is the date.
extern const QString MsgFechaAmortizacionElemento;
// Leaving Form101's date outside the exercise.
extern const QString MsgFechaFueraDelEjercicio;

// The run of one element (the grid's "..." cell). The date is asked after the element's own
// checks: by pedirFecha when given, else through the Dialogo; an empty answer ends quietly. A
// retirement earlier than the date ends the run at the retirement.
ResultadoAmortizacion AmortizarElemento(Sesion& s, Dialogo& d, qint64 n,
                                        const std::function<QString()>& pedirFecha = {});
