#pragma once
// Shared by the book tests: subaccounts of the generic chart, the print options of a run, the
// whole journal's selection, and reading the recording surface.

#include "Entorno.h"
#include "platform/ImpresoraGrabadora.h"
#include "reports/Diario.h"
#include "reports/OpcionesLibro.h"
#include "store/Formato.h"

#include <QAction>

namespace cuentas {
inline const QString Caja = "157000001", Banco = "157200003", Compras = "660000044",
                     Proveedor = "240000009", IvaSop = "447200028", IvaRep = "247700016",
                     Clientes = "443000022", Ventas = "370000066";
}

inline OpcionesLibro Opciones(double margen = 567) {
    OpcionesLibro op;
    op.cancelado = false;
    op.margen = margen;
    op.fuente = QStringLiteral("Arial Narrow");
    op.tamano = 9;
    op.fechaTrabajo = QDate(2025, 1, 15);
    return op;
}

inline SeleccionDiario Todo(Entorno& e) {
    return SeleccionDiarioInicial(e.sesion, e.sesion.UltimoAsiento);
}

inline QString Std(double v) {
    return Formato(v, QStringLiteral("standard"));
}

// The texts written on the line of a write.
inline QStringList Linea(const ImpresoraGrabadora& imp, const Trazo* t) {
    QStringList r;
    for (const Trazo& o : imp.textos())
        if (o.documento == t->documento && o.pagina == t->pagina && o.y == t->y)
            r << o.texto;
    return r;
}

inline double Derecha(const Trazo* t) {
    return t->x + t->ancho;
}

// A window's toolbar by index from 1: each button's action name, "|" for a separator.
template <class Ventana> QStringList Barra(Ventana* f, int botones) {
    QStringList r;
    for (int i = 1; i <= botones; ++i) {
        const QAction* a = f->boton(i);
        r << (!a                 ? QStringLiteral("(ninguno)")
              : a->isSeparator() ? QStringLiteral("|")
                                 : a->objectName());
    }
    return r;
}
