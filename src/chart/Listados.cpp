#include "chart/Listados.h"

#include "chart/Aparcar.h"
#include "chart/Conceptos.h"
#include "chart/NCuenta.h"
#include "chart/PlanCuentas.h"
#include "chart/TiposIva.h"
#include "platform/Almacen.h"
#include "platform/Impresora.h"
#include "store/Conexiones.h"
#include "store/Formato.h"
#include "store/Sesion.h"

const QString TextoPagina = QStringLiteral("Página nº ");

namespace {

// Margins of the page, in twips (about 18 mm at the sides, 14 mm at the top).
constexpr double MargenIzquierdo = 1000;
constexpr double MargenSuperior = 800;
constexpr double MargenInferior = 1100;
constexpr double HuecoColumna = 120;

Listado nuevo(const Sesion& s, const QString& titulo, QList<Columna> columnas,
              QList<double> anchos) {
    Listado l;
    l.titulo = titulo;
    l.rejilla = Rejilla(std::move(columnas));
    l.anchos = std::move(anchos);
    if (!s.NombreImprimir.trimmed().isEmpty())
        l.fuente = s.NombreImprimir.trimmed();
    if (s.TamanoImprimir > 0)
        l.tamano = s.TamanoImprimir;
    return l;
}

QString nombreEmpresa(Conexion& c) {
    const QVariant v = c.escalar(QStringLiteral("SELECT Nombre FROM Empresa LIMIT 1"));
    return v.isValid() ? v.toString().trimmed() : QString();
}

} // namespace

Listado ListadoPlan(Sesion& s, int area, bool cuentas) {
    Conexion c = AbrirDatos(s);
    Listado l = cuentas
                    ? nuevo(s, TituloListadoCuentas,
                            {{QStringLiteral("Código")}, {QStringLiteral("Cuenta")}}, {900, 8800})
                    : nuevo(s, TituloListadoSubcuentas,
                            {{QStringLiteral("Código")},
                             {QStringLiteral("Subcuenta")},
                             {QStringLiteral("Cuenta")}},
                            {1300, 3900, 4500});
    l.encabezado << QStringLiteral("Empresa: ") + nombreEmpresa(c)
                 << QStringLiteral("Area: ") + EtiquetaArea(area);
    if (cuentas) {
        for (const FilaGrupo& g : GruposDeArea(c, area))
            l.rejilla.AgregarFila(QStringList{g.codigo(), g.Grupo});
    } else {
        for (const FilaSubcuenta& f : SubcuentasDeArea(c, s, area))
            l.rejilla.AgregarFila(QStringList{f.NCuenta, f.Cuenta, f.Grupo});
    }
    return l;
}

Listado ListadoAparcar(Sesion& s, int area) {
    Listado l =
        nuevo(s, TituloListadoAparcar,
              {{QStringLiteral("CUENTA")}, {QStringLiteral("APARCADA")}, {QStringLiteral("DESDE")}},
              {5500, 1600, 1200});
    {
        Conexion c = AbrirDatos(s);
        l.encabezado << QStringLiteral("Empresa: ") + nombreEmpresa(c)
                     << QStringLiteral("Area: ") + NombreListaArea(area);
    }
    for (const FilaAparcar& f : ListaAparcar(s, area))
        l.rejilla.AgregarFila(
            QStringList{f.Cuenta, f.Aparcada ? QStringLiteral("SI") : QString(), f.Desde});
    return l;
}

Listado ListadoTiposIva(Sesion& s) {
    Listado l = nuevo(s, TituloListadoTiposIva,
                      {{QStringLiteral("Tipo"), TipoColumna::Numero},
                       {QStringLiteral("Concepto")},
                       {QStringLiteral("Clase")}},
                      {1000, 5500, 1500});
    Conexion c = AbrirDatos(s);
    l.encabezado << QStringLiteral("Empresa: ") + nombreEmpresa(c);
    for (const FilaTipoIva& f : ListaTiposIva(c))
        l.rejilla.AgregarFila(QStringList{Formato(f.Porcentaje, QStringLiteral("General Number")),
                                          f.Cuenta, f.Clase});
    return l;
}

Listado ListadoConceptos(Sesion& s) {
    Listado l =
        nuevo(s, TituloListadoConceptos,
              {{QStringLiteral("Código"), TipoColumna::Entero}, {QStringLiteral("Concepto")}},
              {1000, 8000});
    {
        Conexion c = AbrirDatos(s);
        l.encabezado << QStringLiteral("Empresa: ") + nombreEmpresa(c);
    }
    for (const FilaConcepto& f : ListaConceptos(s))
        l.rejilla.AgregarFila(QStringList{QString::number(f.Codigo), f.Nombre});
    return l;
}

void DibujarListado(Impresora& imp, const Listado& l) {
    const Rejilla& r = l.rejilla;
    QList<int> visibles;
    for (int c = 0; c < r.Columnas(); ++c)
        if (!r.columna(c).oculta)
            visibles << c;
    // Left edge of each visible column, and the right edge of the last.
    QList<double> bordes{MargenIzquierdo};
    for (int i = 0; i < visibles.size(); ++i)
        bordes << bordes.last() + l.anchos.value(i, 1500);

    auto celda = [&](int i, const QString& texto) {
        const double ancho = bordes.at(i + 1) - bordes.at(i) - HuecoColumna;
        const QString corto = imp.RecortarTexto(texto, ancho);
        if (r.Numerica(visibles.at(i))) {
            imp.EscribirADerecha(corto, bordes.at(i) + ancho);
        } else {
            imp.PonerX(bordes.at(i));
            imp.EscribirSeguido(corto);
        }
    };
    auto cabecera = [&] {
        imp.PonerFuente(l.fuente);
        imp.PonerNegrita(true);
        imp.PonerTamano(l.tamano + 4);
        imp.IrA(MargenIzquierdo, MargenSuperior);
        imp.Escribir(l.titulo);
        imp.PonerTamano(l.tamano);
        imp.PonerNegrita(false);
        imp.PonerY(imp.Y() + imp.AltoLinea() / 2);
        for (const QString& linea : l.encabezado) {
            imp.PonerX(MargenIzquierdo);
            imp.Escribir(linea);
        }
        imp.PonerY(imp.Y() + imp.AltoLinea() / 2);
        imp.PonerNegrita(true);
        const double y = imp.Y();
        for (int i = 0; i < visibles.size(); ++i) {
            imp.PonerY(y);
            celda(i, r.columna(visibles.at(i)).titulo);
        }
        imp.PonerNegrita(false);
        const double bajo = y + imp.AltoLinea() + 40;
        imp.Linea(MargenIzquierdo, bajo, bordes.last(), bajo);
        imp.IrA(MargenIzquierdo, bajo + 60);
    };
    auto pie = [&] {
        const bool negrita = imp.Negrita();
        imp.PonerNegrita(false);
        imp.IrA(MargenIzquierdo, imp.AltoPagina() - MargenInferior + 300);
        imp.Escribir(TextoPagina + QString::number(imp.Pagina()));
        imp.PonerNegrita(negrita);
    };

    imp.PonerBordeIzquierdo(MargenIzquierdo);
    cabecera();
    for (int f = 0; f < r.Filas(); ++f) {
        if (imp.Y() + imp.AltoLinea() > imp.AltoPagina() - MargenInferior) {
            pie();
            imp.NuevaPagina();
            cabecera();
        }
        const double y = imp.Y();
        for (int i = 0; i < visibles.size(); ++i) {
            imp.PonerY(y);
            imp.PonerNegrita(r.Negrita(f, visibles.at(i)));
            celda(i, r.Celda(f, visibles.at(i)));
        }
        imp.PonerNegrita(false);
        imp.IrA(MargenIzquierdo, y + imp.AltoLinea());
    }
    pie();
    imp.FinDocumento();
}
