#include "annual/ImpresionEstados.h"

#include "annual/Estados.h"
#include "platform/Impresora.h"
#include "reports/MotorLibro.h"
#include "store/Formato.h"

QString TituloEstado(const EstadoCuentas& e) {
    switch (e.modelo) {
    case Modelo::Form81:
        return QStringLiteral("BALANCE DE SITUACION");
    case Modelo::Form105:
        return QStringLiteral("BALANCE DE PYMES AL CIERRE DEL EJERCICIO %1").arg(e.ano);
    case Modelo::Form82:
        return QStringLiteral("CUENTA DE PERDIDAS Y GANANCIAS");
    case Modelo::Form106:
        break;
    }
    return QStringLiteral("Cuenta de Pérdidas y Ganancias de PYMES");
}

namespace {

// Page end at H - 1800, the page number at H - 1550.
constexpr double FinPagina = 1800;
constexpr double PiePagina = 1550;

DisenoLibro Diseno(Impresora& imp, const EstadoCuentas& e, const QString& empresa,
                   const QDate& desde, const QDate& hasta, const OpcionesLibro& op,
                   const QString& cabeceraLista) {
    const MargenLibro m = Margen(op.margen);
    const double W = imp.AnchoPagina();
    const double L = m.L, d = m.d;
    DisenoLibro dis;
    dis.titulo = TituloEstado(e);
    dis.cabecera = empresa;
    const QString ejercicio = QStringLiteral("Ejercicio %1 : desde %2 hasta %3")
                                  .arg(e.ano)
                                  .arg(FormatoFecha(desde, QStringLiteral("short date")),
                                       FormatoFecha(hasta, QStringLiteral("short date")));
    QList<double> textos;
    double importe1 = 0, importe2 = W - 1000, notas = -1;
    switch (e.modelo) {
    case Modelo::Form81:
        dis.subcabecera = ejercicio;
        textos = {L, 900 + d / 6, 1200 + d / 6, 1500 + d / 2};
        importe1 = W - 2800 + d / 6;
        break;
    case Modelo::Form82:
        dis.subcabecera = ejercicio;
        // Level 1, level 2 and the subaccounts.
        textos = {L, 1200 + d, 1200 + d, 1500 + d};
        importe1 = W - 2800;
        break;
    case Modelo::Form105:
        dis.desde = desde;
        dis.hasta = hasta;
        textos = {L, 1100 + d, 1400 + d, 1700 + d};
        notas = W - 4200;
        importe1 = W - 2600;
        break;
    case Modelo::Form106:
        dis.subcabecera = QStringLiteral("Correspondiente al ejercicio terminado en ") +
                          FormatoFecha(hasta, QStringLiteral("short date"));
        textos = {L, 1100 + d, 1400 + d, 1600 + d};
        notas = W - 4200;
        importe1 = W - 2600;
        break;
    }
    dis.bajadaCabecera = 250;
    dis.bajadaFila = 20;
    dis.finPagina = FinPagina;
    dis.sumas = false;
    dis.regla.reset();
    dis.totales = PiePagina;

    // Widths as the page will print them: headings bold, figures plain.
    imp.PonerFuente(op.fuente);
    imp.PonerTamano(op.tamano);
    imp.PonerNegrita(true);
    const QString tituloNotas = QStringLiteral("Notas Mem.");
    QString titulo1 = QStringLiteral("Ejercicio %1").arg(e.ano);
    QString titulo2 = QStringLiteral("Ejercicio %1").arg(e.ano - 1);
    double finNotas = 0; // the stroke between the notes and the year's figures
    if (notas > 0) {
        // The notes stand close to the figures: where "Ejercicio 2026" would run into
        // "Notas Mem." the figure columns are headed by the year alone.
        const double anchoNotas = imp.AnchoTexto(tituloNotas);
        if (notas + anchoNotas + 100 > importe1 - imp.AnchoTexto(titulo1)) {
            titulo1 = QString::number(e.ano);
            titulo2 = QString::number(e.ano - 1);
        }
        finNotas = qMax(notas + anchoNotas + 100,
                        (notas + anchoNotas + importe1 - imp.AnchoTexto(titulo1)) / 2);
    }
    imp.PonerNegrita(false);

    // Texts are cut where the first figure column begins.
    const double finTexto = (notas > 0 ? notas : importe1 - 1400);
    // The level columns are indents of one text: one heading box over them all.
    for (int i = 0; i < textos.size(); ++i)
        dis.columnas.append({i == 0 ? cabeceraLista : QString(), textos.at(i), false,
                             qMax(400.0, finTexto - textos.at(i)), -1, i == 0});
    // A note is cut at the stroke after its heading (the room of a column ends 100 twips past its
    // stroke), and again on its own row short of the figure beside it (DibujarLista).
    if (notas > 0)
        dis.columnas.append({tituloNotas, notas, false, finNotas + 100 - notas});
    dis.columnas.append({titulo1, importe1, true, 1400});
    dis.columnas.append({op.anoAnterior ? titulo2 : QString(), importe2, true, 1400});
    return dis;
}

void DibujarLista(ImpresionLibro& p, const EstadoCuentas& e, const Rejilla& r, bool anterior) {
    const int cols = r.Columnas();
    for (int f = 0; f < r.Filas(); ++f) {
        QStringList celdas = r.Fila(f);
        while (celdas.size() < cols)
            celdas.append(QString());
        if (!anterior)
            celdas[ColImporteAnterior(e.modelo)].clear();
        bool negrita = false;
        for (int c = 0; c < cols && !negrita; ++c)
            negrita = r.Negrita(f, c);
        if (const int n = ColNotas(e.modelo); n >= 0 && !celdas.at(n).isEmpty()) {
            // A long note stops 100 twips short of the year's figure on its row.
            Impresora& imp = p.imp();
            imp.PonerNegrita(negrita);
            const int i = ColImporte(e.modelo);
            const double hueco = p.diseno().columnas.at(i).x - imp.AnchoTexto(celdas.at(i)) - 100 -
                                 p.diseno().columnas.at(n).x;
            celdas[n] = imp.RecortarTexto(celdas.at(n), hueco);
            imp.PonerNegrita(false);
        }
        p.Fila(celdas, negrita);
        p.FinDePaginaSiToca();
    }
}

} // namespace

void DibujarEstado(Impresora& imp, const EstadoCuentas& e, const QString& empresa,
                   const QDate& desde, const QDate& hasta, const OpcionesLibro& op) {
    if (!e.hayMovimientos)
        return;
    QString titulos[2];
    switch (e.modelo) {
    case Modelo::Form81:
        titulos[0] = QStringLiteral("ACTIVO");
        titulos[1] = QStringLiteral("PASIVO");
        break;
    case Modelo::Form105:
        titulos[0] = QStringLiteral("ACTIVO");
        titulos[1] = QStringLiteral("PATRIMONIO NETO Y PASIVO");
        break;
    case Modelo::Form82:
        titulos[0] = QStringLiteral("DEBE");
        titulos[1] = QStringLiteral("HABER");
        break;
    case Modelo::Form106:
        break;
    }
    const bool anterior = op.anoAnterior && e.comparacion;
    QList<double> sumas;
    ImpresionLibro primera(imp, Diseno(imp, e, empresa, desde, hasta, op, titulos[0]), op, sumas);
    primera.Empezar();
    DibujarLista(primera, e, e.lista1, anterior);
    if (e.lista2.Filas() == 0) {
        primera.Terminar();
        return;
    }
    // The second list starts a page of its own, with its own head.
    primera.FinDePagina();
    ImpresionLibro segunda(imp, Diseno(imp, e, empresa, desde, hasta, op, titulos[1]), op, sumas);
    segunda.Empezar();
    DibujarLista(segunda, e, e.lista2, anterior);
    segunda.Terminar();
}
