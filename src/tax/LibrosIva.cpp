#include "tax/LibrosIva.h"

#include "platform/Almacen.h"
#include "platform/Rejilla.h"
#include "reports/TextoLibro.h"
#include "store/Formato.h"
#include "store/Rutinas.h"
#include "store/Sesion.h"

#include <QSqlQuery>

QString TituloLibroIva(LibroIva libro) {
    switch (libro) {
    case LibroIva::Ingresos:
        return QStringLiteral("Libro de Ingresos");
    case LibroIva::Gastos:
        return QStringLiteral("Libro de Gastos");
    case LibroIva::Expedidas:
        return QStringLiteral("Libro de Facturas expedidas");
    case LibroIva::Recibidas:
        return QStringLiteral("Libro de Facturas recibidas");
    }
    return {};
}

QString CaptionLibroIva(LibroIva libro) {
    return QStringLiteral("Quilmar [") + TituloLibroIva(libro) + u']';
}

int NumeroFormLibroIva(LibroIva libro) {
    switch (libro) {
    case LibroIva::Ingresos:
        return 18;
    case LibroIva::Gastos:
        return 34;
    case LibroIva::Expedidas:
        return 26;
    case LibroIva::Recibidas:
        return 51;
    }
    return 0;
}

QString NombreFormLibroIva(LibroIva libro) {
    return QStringLiteral("Form") + QString::number(NumeroFormLibroIva(libro));
}

std::optional<LibroIva> LibroIvaDeTitulo(const QString& titulo) {
    for (LibroIva l :
         {LibroIva::Ingresos, LibroIva::Gastos, LibroIva::Expedidas, LibroIva::Recibidas})
        if (TituloLibroIva(l) == titulo)
            return l;
    return std::nullopt;
}

bool ValidarSeleccionLibroIva(const SeleccionLibroIva& sel, const Sesion& s, Dialogo& dialogo) {
    if (!sel.desde.isValid() || !sel.hasta.isValid()) {
        dialogo.Informar(QStringLiteral("La fecha introducida no es una fecha válida."));
        return false;
    }
    if (sel.hasta < sel.desde) {
        dialogo.Informar(MsgLibroFechas);
        return false;
    }
    if (s.FechaIniEj.isValid() && (sel.desde < s.FechaIniEj || sel.hasta > s.FechaFinEj)) {
        dialogo.Informar(MsgLibroFueraEjercicio);
        return false;
    }
    return true;
}

Rejilla RejillaLibroIva(const SeleccionLibroIva& sel) {
    const auto columna = [](const char* titulo, TipoColumna tipo = TipoColumna::Texto,
                            bool oculta = false) {
        return Columna{QString::fromUtf8(titulo), tipo, oculta};
    };
    const bool sinAsiento = !sel.verAsiento, sinNif = !sel.verNIF;
    switch (sel.libro) {
    case LibroIva::Ingresos:
    case LibroIva::Gastos:
        return Rejilla({columna("Nº Orden", TipoColumna::Numero),
                        columna("Asiento", TipoColumna::Entero, sinAsiento),
                        columna("Fecha", TipoColumna::Fecha),
                        columna(sel.libro == LibroIva::Ingresos ? "Factura" : "Expedidor"),
                        columna("Concepto"), columna("Importe", TipoColumna::Importe),
                        columna("NCuenta", TipoColumna::Texto, true)});
    case LibroIva::Expedidas:
        return Rejilla(
            {columna("Asiento", TipoColumna::Entero, sinAsiento),
             columna("Fecha", TipoColumna::Fecha), columna("Factura"),
             columna("NIF", TipoColumna::Texto, sinNif), columna("Destinatario"),
             columna("B.I. IVA", TipoColumna::Importe),
             columna("B.I. Recargo", TipoColumna::Importe), columna("Tipo", TipoColumna::Numero),
             columna("Cuota", TipoColumna::Importe), columna("NCuenta", TipoColumna::Texto, true)});
    case LibroIva::Recibidas:
        return Rejilla(
            {columna("Nº Orden", TipoColumna::Numero),
             columna("Asiento", TipoColumna::Entero, sinAsiento),
             columna("Fecha", TipoColumna::Fecha), columna("Factura"),
             columna("NIF", TipoColumna::Texto, sinNif), columna("Expedidor"),
             columna("B.I. IVA", TipoColumna::Importe), columna("Tipo", TipoColumna::Numero),
             columna("Cuota", TipoColumna::Importe), columna("NCuenta", TipoColumna::Texto, true)});
    }
    return {};
}

QString TextoSimple(float valor) {
    // %g with seven figures is how a single has always been turned into text: fixed notation
    // from 1E-4 up to ten million, an exponent outside.
    QString t = QString::number(double(valor), 'g', 7);
    t.replace(u'.', u',');
    t.replace(u'e', u'E');
    return t;
}

int ColumnaNCuentaLibroIva(LibroIva libro) {
    switch (libro) {
    case LibroIva::Expedidas:
        return ColExpNCuenta;
    case LibroIva::Recibidas:
        return ColRecNCuenta;
    default:
        return ColLibNCuenta;
    }
}

int ColumnaFechaLibroIva(LibroIva libro) {
    switch (libro) {
    case LibroIva::Expedidas:
        return ColExpFecha;
    case LibroIva::Recibidas:
        return ColRecFecha;
    default:
        return ColLibFecha;
    }
}

int ColumnaNombreLibroIva(LibroIva libro) {
    switch (libro) {
    case LibroIva::Expedidas:
        return ColExpDestinatario;
    case LibroIva::Recibidas:
        return ColRecExpedidor;
    default:
        return ColLibConcepto;
    }
}

namespace {

// How often a fill reports its progress, in rows.
constexpr int PasoProgreso = 2000;

// The sector condition and the bound values common to both queries.
QString FiltroSector(const SeleccionLibroIva& sel, QVariantList& valores) {
    if (sel.sector.isEmpty())
        return {};
    valores << sel.sector;
    return QStringLiteral(" AND Sector = ?");
}

ResultadoLibroIva LlenarCuentas(Conexion& c, const SeleccionLibroIva& sel, Rejilla& rejilla,
                                const Progreso& progreso) {
    const bool ingresos = sel.libro == LibroIva::Ingresos;
    QVariantList valores{ingresos ? QStringLiteral("_7%") : QStringLiteral("_6%")};
    const QString sector = FiltroSector(sel, valores);
    valores << FechaISO(sel.desde) << FechaISO(sel.hasta);
    // The regularisation entry moves every 6 and 7 balance to the result: never a book's line.
    // Lines of one date stand by entry and line number.
    Lector l(c,
             QStringLiteral("SELECT NAs, Fecha, NCuenta, Cuenta, Debe, Haber FROM ConDiario "
                            "WHERE NCuenta LIKE ? AND NOT Clase = 'R'") +
                 sector + QStringLiteral(" AND Fecha BETWEEN ? AND ? ORDER BY Fecha, NAs, NAp"),
             valores);
    // The first VAT record of the entry: its invoice number in the income book, its party in the
    // expense book. The lines of an entry come together, so it is looked up once per entry.
    const QString sqlIva = ingresos ? QStringLiteral("SELECT NFactura FROM ConDatosIVA WHERE NAs = "
                                                     "? AND IdIVA <> 0 ORDER BY IdIVA LIMIT 1")
                                    : QStringLiteral("SELECT Cuenta FROM ConDatosIVA WHERE NAs = ? "
                                                     "AND IdIVA <> 0 ORDER BY IdIVA LIMIT 1");
    ResultadoLibroIva res;
    qint64 nasAnterior = -1;
    QString factura;
    while (l.siguiente()) {
        const qint64 nas = l.entero(0);
        if (nas != nasAnterior) {
            nasAnterior = nas;
            QSqlQuery& q = c.preparada(sqlIva, {nas});
            factura = q.next() ? q.value(0).toString().trimmed() : QString();
            q.finish();
        }
        const double debe = l.real(4), haber = l.real(5);
        const double importe = ingresos ? haber - debe : debe - haber;
        res.total += importe;
        ++res.registros;

        QString fila;
        fila.reserve(160);
        fila += Formato(res.registros, QStringLiteral("standard"));
        fila += u'\t';
        AnadirEnteroMiles(fila, nas);
        fila += u'\t';
        AnadirFechaCorta(fila, l.vista(1));
        fila += u'\t';
        AnadirTexto(fila, factura);
        fila += u'\t';
        AnadirTexto(fila, l.vista(3).trimmed());
        fila += u'\t';
        AnadirImporte(fila, Centimos(importe));
        fila += u'\t';
        fila += l.vista(2);
        rejilla.AgregarFila(fila);
        if (progreso && res.registros % PasoProgreso == 0)
            progreso(res.registros, 0);
    }
    res.total = Centimos(res.total);
    rejilla.PonerTotal(TotalLibroIva, Formato(res.total, QStringLiteral("standard")));
    return res;
}

// The slot of a rate, made at the end when the rate is new.
TotalTipoIva& Slot(QList<TotalTipoIva>& tipos, float tipo) {
    for (TotalTipoIva& t : tipos)
        if (t.tipo == tipo)
            return t;
    tipos.append(TotalTipoIva{tipo, 0, 0});
    return tipos.last();
}

ResultadoLibroIva LlenarFacturas(Conexion& c, const SeleccionLibroIva& sel, Rejilla& rejilla,
                                 const Progreso& progreso) {
    const bool expedidas = sel.libro == LibroIva::Expedidas;
    QVariantList valores{expedidas ? QStringLiteral("C") : QStringLiteral("P")};
    const QString sector = FiltroSector(sel, valores);
    valores << FechaISO(sel.desde) << FechaISO(sel.hasta);
    // Records of one date stand by entry and then in the order they were written: the order in
    // which a rate first appears decides the order of the totals.
    Lector l(c,
             QStringLiteral("SELECT NAs, Fecha, NFactura, NIF, Cuenta, ClaseIVA, Base, "
                            "Porcentaje, Cuota, NCuenta FROM ConDatosIVA WHERE CP = ?") +
                 sector + QStringLiteral(" AND Fecha BETWEEN ? AND ? ORDER BY Fecha, NAs, IdIVA"),
             valores);
    ResultadoLibroIva res;
    const int columnas = expedidas ? int(ColumnasExpedidas) : int(ColumnasRecibidas);
    while (l.siguiente()) {
        ++res.registros;
        const bool esIva = l.vista(5) == QLatin1String("IVA");
        const double base = l.real(6), porcentaje = l.real(7), cuota = l.real(8);
        const float tipo = float(porcentaje);
        if (esIva || expedidas) {
            TotalTipoIva& t = Slot(esIva ? res.iva : res.recargo, tipo);
            t.base += float(base);
            t.cuota += float(cuota);
        }

        QStringList celdas(columnas);
        int col = 0;
        if (!expedidas)
            celdas[col++] = Formato(res.registros, QStringLiteral("standard"));
        if (sel.verAsiento)
            celdas[col] = Formato(double(l.entero(0)), QStringLiteral("#,###"));
        ++col;
        AnadirFechaCorta(celdas[col++], l.vista(1));
        celdas[col++] = l.texto(2).trimmed();
        if (sel.verNIF)
            celdas[col] = l.texto(3).trimmed();
        ++col;
        celdas[col++] = l.texto(4).trimmed();
        if (esIva)
            celdas[col] = Formato(base, QStringLiteral("standard"));
        ++col;
        if (expedidas) {
            if (l.vista(5) == QLatin1String("Recargo"))
                celdas[col] = Formato(base, QStringLiteral("standard"));
            ++col;
        }
        celdas[col++] = TextoSimple(tipo);
        celdas[col++] = Formato(cuota, QStringLiteral("standard"));
        celdas[col] = l.texto(9);
        rejilla.AgregarFila(celdas);
        if (progreso && res.registros % PasoProgreso == 0)
            progreso(res.registros, 0);
    }

    // One empty row, then the totals per rate, IVA first.
    rejilla.AgregarFila(QString());
    const int nombre = ColumnaNombreLibroIva(sel.libro);
    const int colBaseIva = expedidas ? int(ColExpBaseIva) : int(ColRecBaseIva);
    const int colTipo = expedidas ? int(ColExpTipo) : int(ColRecTipo);
    const int colCuota = expedidas ? int(ColExpCuota) : int(ColRecCuota);
    const auto total = [&](const QString& palabras, const TotalTipoIva& t, int colBase) {
        QStringList celdas(columnas);
        celdas[nombre] = palabras + TextoSimple(t.tipo) + u'%';
        celdas[colBase] = TextoSimple(t.base);
        celdas[colTipo] = TextoSimple(t.tipo);
        celdas[colCuota] = TextoSimple(t.cuota);
        const int f = rejilla.AgregarFila(celdas);
        rejilla.PonerColorFila(f, ColorTotalesIva, nombre);
    };
    for (const TotalTipoIva& t : res.iva)
        total(QStringLiteral("Total IVA al "), t, colBaseIva);
    for (const TotalTipoIva& t : res.recargo)
        total(QStringLiteral("Total Recargo al "), t, ColExpBaseRecargo);
    return res;
}

} // namespace

ResultadoLibroIva LlenarLibroIva(Conexion& c, const SeleccionLibroIva& sel, Rejilla& rejilla,
                                 const Progreso& progreso) {
    rejilla.Vaciar();
    rejilla.QuitarTotales();
    return EsLibroFacturas(sel.libro) ? LlenarFacturas(c, sel, rejilla, progreso)
                                      : LlenarCuentas(c, sel, rejilla, progreso);
}
