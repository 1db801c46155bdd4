#include "posting/ListadosPlantillas.h"

#include "platform/Almacen.h"
#include "posting/Periodicos.h"
#include "posting/Predisenados.h"
#include "reports/MotorLibro.h"
#include "store/Formato.h"

namespace {

void dibujar(Impresora& imp, const Rejilla& r, const QString& titulo, const QString& empresa,
             const OpcionesLibro& op, const QStringList& titulos, const QList<int>& columnas,
             const QList<double>& posiciones) {
    const MargenLibro m = Margen(op.margen);
    const double W = imp.AnchoPagina();
    DisenoLibro dis;
    dis.titulo = titulo;
    dis.cabecera = empresa;
    dis.sumas = false;
    dis.finPagina = FinPaginaListas;
    dis.regla = std::nullopt;
    dis.totales = PiePaginaListas;
    for (int i = 0; i < titulos.size(); ++i) {
        const double x = i == 0 ? m.L : posiciones[i] + m.d;
        const double fin = i + 1 < titulos.size() ? posiciones[i + 1] + m.d : W - 600;
        dis.columnas << ColumnaLibro{titulos[i], x, false, fin - x};
    }
    QList<double> sumas;
    ImpresionLibro p(imp, dis, op, sumas);
    p.Empezar();
    for (int f = 0; f < r.Filas(); ++f) {
        QStringList celdas;
        for (int c : columnas)
            celdas << r.Celda(f, c);
        p.Fila(celdas);
        p.FinDePaginaSiToca();
    }
    p.Terminar();
}

} // namespace

Rejilla RejillaPeriodicos() {
    return Rejilla({{QStringLiteral("Fecha Ini."), TipoColumna::Fecha},
                    {QStringLiteral("Fecha Prox."), TipoColumna::Fecha},
                    {QStringLiteral("Nombre Asiento")},
                    {QStringLiteral("Periodicidad")}});
}

void LlenarPeriodicos(Conexion& bavar, Rejilla& r) {
    r.Vaciar();
    const QString corta = QStringLiteral("short date");
    for (const AsientoPeriodico& a : LeerPeriodicos(bavar))
        r.AgregarFila(QStringList{FormatoFecha(a.FechaIni, corta), FormatoFecha(a.FechaProx, corta),
                                  a.Nombre, NombreRitmo(a.Periodicidad)});
}

Rejilla RejillaPredisenados() {
    return Rejilla({{QStringLiteral("Código")}, {QStringLiteral("Nombre Asiento Tipo")}});
}

void LlenarPredisenados(Conexion& bavar, Rejilla& r) {
    r.Vaciar();
    for (const ResumenPredisenado& p : ListaPredisenados(bavar))
        r.AgregarFila(QStringList{CodigoPredi(p.Codigo), p.Nombre});
}

DibujoLibro DibujoListaPeriodicos(const Rejilla& r, const QString& empresa,
                                  const OpcionesLibro& op) {
    return [&r, empresa, op](Impresora& imp, int) {
        dibujar(imp, r, TituloListaPeriodicos, empresa, op,
                {QStringLiteral("Fecha Ini."), QStringLiteral("Fecha Próx."),
                 QStringLiteral("Nombre Asiento Periódico")},
                {ColPerFechaIni, ColPerFechaProx, ColPerNombre}, {0, 2400, 4200});
    };
}

DibujoLibro DibujoListaPredisenados(const Rejilla& r, const QString& empresa,
                                    const OpcionesLibro& op) {
    return [&r, empresa, op](Impresora& imp, int) {
        dibujar(imp, r, TituloListaPredisenados, empresa, op,
                {QStringLiteral("Código"), QStringLiteral("Nombre Asiento Tipo")},
                {ColPreCodigo, ColPreNombre}, {0, 1800});
    };
}
