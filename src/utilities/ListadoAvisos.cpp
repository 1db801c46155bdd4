#include "utilities/ListadoAvisos.h"

#include "platform/Ajustes.h"
#include "reports/MotorLibro.h"
#include "store/Formato.h"

namespace {

// The list carries no sums: each page ends with its number alone.
constexpr double FinPagina = 1600, PiePagina = 1200;

} // namespace

Rejilla RejillaAvisos() {
    Rejilla r({{QStringLiteral("Fecha"), TipoColumna::Fecha},
               {QStringLiteral("Texto")},
               {QStringLiteral("Periodo"), TipoColumna::Numero},
               {QStringLiteral("NAviso"), TipoColumna::Entero}});
    r.OcultarColumna(ColAvNAviso);
    return r;
}

void LlenarRejillaAvisos(const QList<Aviso>& avisos, Rejilla& r) {
    r.Vaciar();
    for (const Aviso& a : avisos)
        r.AgregarFila(QStringList{FormatoFecha(a.Fecha, QStringLiteral("short date")), a.Texto,
                                  a.Periodo > 0 ? QString::number(a.Periodo) : QString(),
                                  QString::number(a.NAviso)});
}

OpcionesLibro OpcionesListaAvisos(const Ajustes& a, const QDate& hoy) {
    OpcionesLibro op;
    op.fechaTrabajo = hoy;
    op.cancelado = false;
    op.fuente = a.leer(QStringLiteral("Valores"), QStringLiteral("NFImprimir"));
    op.tamano =
        static_cast<int>(a.leerNumero(QStringLiteral("Valores"), QStringLiteral("TFImprimir"), 9));
    if (op.tamano <= 0)
        op.tamano = 9;
    op.margen = 0;
    return op;
}

DibujoLibro DibujoListaAvisos(const Rejilla& r, const OpcionesLibro& op) {
    return [&r, op](Impresora& imp, int) {
        const MargenLibro m = Margen(op.margen);
        const double W = imp.AnchoPagina();
        DisenoLibro dis;
        dis.titulo = TituloListaAvisos;
        dis.sumas = false;
        dis.finPagina = FinPagina;
        dis.regla = std::nullopt;
        dis.totales = PiePagina;
        const double texto = m.L + 1500, periodo = W - 600 - 1400;
        dis.columnas = {{QStringLiteral("Fecha"), m.L, false, texto - m.L},
                        {QStringLiteral("Texto"), texto, false, periodo - texto},
                        {QStringLiteral("Importe"), W - 600, true, 1400}};
        QList<double> sumas;
        ImpresionLibro p(imp, dis, op, sumas);
        p.Empezar();
        for (int f = 0; f < r.Filas(); ++f) {
            p.Fila({r.Celda(f, ColAvFecha), r.Celda(f, ColAvTexto), r.Celda(f, ColAvPeriodo)});
            p.FinDePaginaSiToca();
        }
        p.Terminar();
    };
}
