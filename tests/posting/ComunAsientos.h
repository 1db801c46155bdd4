#pragma once
// Shared by the posting tests: subaccounts of the generic chart, a scripted VAT screen, and the
// journal lines of an entry as text.

#include "Entorno.h"
#include "posting/CapturaIva.h"
#include "posting/Contabilizar.h"

#include <QSqlQuery>
#include <QSqlRecord>
#include <functional>

namespace cuentas {
inline const QString Caja = "157000001", Banco = "157200003", Compras = "660000044",
                     Proveedor = "240000009", Acreedor = "241000010", IvaSop21 = "447200028",
                     IvaSop10 = "447200029", Recargo = "447200031", IvaRep21 = "247700016",
                     HPAcreedora = "247500012", Clientes = "443000022", Ventas = "370000066";
}

// What the VAT screen showed when it opened.
struct VistaIva {
    QString Encabezado, ClaseCP, Base, Porcentaje, Cuota, Clase, Factura, Contrapartida;
    QStringList Nombres;
    bool LibroIva = false, Modelo347 = false, Modelo347Visible = false;
    int FilaIVA = 0;
    CapturaIva::Foco foco = CapturaIva::Foco::Aceptar;
};

// Answers each VAT screen with the next step: the step edits the fields and calls Aceptar (or
// not, which is a cancel). With no steps left the screen is cancelled.
class PantallaGuion : public PantallaIva {
public:
    QList<std::function<void(CapturaIva&)>> pasos;
    QList<VistaIva> vistas;
    void Mostrar(CapturaIva& c) override {
        VistaIva v;
        v.foco = c.PrimeraVista();
        v.Encabezado = c.Encabezado;
        v.ClaseCP = c.ClaseCP;
        v.Base = c.Base;
        v.Porcentaje = c.Porcentaje;
        v.Cuota = c.Cuota;
        v.Clase = c.Clase;
        v.Factura = c.Factura;
        v.Contrapartida = c.Contrapartida;
        v.Nombres = c.Nombres;
        v.LibroIva = c.LibroIva;
        v.Modelo347 = c.Modelo347;
        v.Modelo347Visible = c.Modelo347Visible;
        v.FilaIVA = c.FilaIVA;
        vistas << v;
        if (!pasos.isEmpty())
            pasos.takeFirst()(c);
    }
};

// A step that picks the counterparty by code, gives the invoice number and accepts.
inline std::function<void(CapturaIva&)> AceptarCon(const QString& contra, const QString& factura) {
    return [=](CapturaIva& c) {
        c.ElegirContrapartida(static_cast<int>(c.Codigos.indexOf(contra)));
        c.Factura = factura;
        c.Aceptar();
    };
}
inline std::function<void(CapturaIva&)> Cancelar() {
    return [](CapturaIva&) {
    };
}

// "NAp NCuenta Debe/Haber IdIVA?" per line of an entry, in NAp order.
inline QStringList LineasDiario(Conexion& c, long nas) {
    QStringList r;
    QSqlQuery q = c.ejecutar("SELECT NAp, NCuenta, Debe, Haber, IdIVA FROM Diario WHERE NAs = ? "
                             "ORDER BY NAp",
                             {static_cast<qlonglong>(nas)});
    while (q.next())
        r << QStringLiteral("%1 %2 %3/%4%5")
                 .arg(q.value(0).toInt())
                 .arg(q.value(1).toString())
                 .arg(q.value(2).toDouble())
                 .arg(q.value(3).toDouble())
                 .arg(q.value(4).toLongLong() != 0 ? QStringLiteral(" iva") : QString());
    return r;
}

inline int Contar(Conexion& c, const QString& sql) {
    return c.escalar(sql).toInt();
}

// Every row of a query, its values joined by '|'.
inline QStringList Filas(Conexion& c, const QString& sql, const QVariantList& valores = {}) {
    QStringList r;
    QSqlQuery q = c.ejecutar(sql, valores);
    while (q.next()) {
        QStringList v;
        for (int i = 0; i < q.record().count(); ++i)
            v << q.value(i).toString();
        r << v.join('|');
    }
    return r;
}

// The heading and figures the VAT screen showed.
inline QStringList Textos(const VistaIva& v) {
    return {v.Encabezado, v.ClaseCP, v.Base, v.Porcentaje, v.Cuota, v.Clase};
}
