// The income and expense analyses and the charts from the command line: ingresos-gastos (the
// totals with their shares, the lines of one side, or the table by month), comparar-ejercicios
// (one area or subaccount across exercises) and grafico (the series of a chart as CSV, or the
// chart itself as PNG or PDF, drawn as on the desktop).

#include "chart/Sectores.h"
#include "chart/VistaArea.h"
#include "cli/Cli.h"
#include "cli/SalidaLibro.h"
#include "platform/Ajustes.h"
#include "platform/Almacen.h"
#include "platform/Dialogo.h"
#include "platform/Errores.h"
#include "platform/ExportarRejilla.h"
#include "platform/ImpresoraPintor.h"
#include "platform/Rejilla.h"
#include "reports/ComparacionAnos.h"
#include "reports/Graficos.h"
#include "reports/ImpresionIngresosGastos.h"
#include "reports/IngresosGastos.h"
#include "reports/forms/LienzoGrafico.h"
#include "store/Conexiones.h"
#include "store/Ejercicios.h"
#include "store/NombreEmpresa.h"
#include "store/Sesion.h"

#include <QDir>
#include <QFileInfo>
#include <QImageWriter>

#include <algorithm>
#include <optional>

namespace {

const QString MsgFueraEjercicio =
    QStringLiteral("La fecha introducida no pertenece al año de trabajo.");

void ComprobarSector(Sesion& s, const QString& sector) {
    if (sector.isEmpty())
        return;
    for (const FilaSector& f : ListaSectores(s))
        if (f.Sector.trimmed() == sector)
            return;
    throw Rechazo(QStringLiteral("No existe el sector %1.").arg(sector));
}

// "2024,2025,2026": the years, each of four figures.
QList<int> LeerAnos(const QString& texto) {
    QList<int> anos;
    for (const QString& parte : texto.split(u',', Qt::SkipEmptyParts)) {
        bool ok = false;
        const int ano = parte.trimmed().toInt(&ok);
        if (!ok || ano < 1900 || ano > 2999)
            throw Rechazo(QStringLiteral("Los años de --anos se dan con cuatro cifras, separados "
                                         "por comas (2024,2025)."));
        anos << ano;
    }
    if (anos.isEmpty())
        throw Rechazo(MsgCompNumeroAnos);
    return anos;
}

// The area digit of --area by the setting CArea.
QString LeerArea(const Sesion& s, const QString& area) {
    if (!VistaArea::De(s).digitos().contains(area))
        throw Rechazo(MsgCompArea);
    return area;
}

// The subaccount of --cuenta, with its name.
CuentaGrafico LeerCuenta(const Sesion& s, const QString& ncuenta) {
    Conexion c = AbrirDatos(s);
    const QVariant nombre =
        c.escalar(QStringLiteral("SELECT Cuenta FROM Cuentas WHERE NCuenta = ?"), {ncuenta});
    if (!nombre.isValid())
        throw Rechazo(MsgCompErrorCuenta);
    return {ncuenta, nombre.toString().trimmed()};
}

// ---- ingresos-gastos ----

int ingresosGastos(ContextoCli& c) {
    c.abrirEmpresa();
    Sesion& s = c.sesion;
    const QString sector = c.opcion(QStringLiteral("sector")).trimmed();
    ComprobarSector(s, sector);
    const OpcionesLibro op = OpcionesListadoIyG(c.ajustes);
    const QString empresa = NombreEmpresa(s);
    LibroCli libro;
    std::optional<Rejilla> rejilla;

    if (c.bandera(QStringLiteral("por-meses"))) {
        if (c.tiene(QStringLiteral("desde")) || c.tiene(QStringLiteral("hasta")))
            throw Rechazo(QStringLiteral("La tabla por meses es siempre del año natural del "
                                         "ejercicio: no admite --desde ni --hasta."));
        const SeleccionMesesIyG sel{s.AnoActual, sector};
        libro.titulo = TituloMesesIyG;
        libro.orientacion = OrientacionMeses;
        libro.rejilla = [&] {
            if (!rejilla) {
                rejilla = RejillaMesesIyG();
                Conexion con = AbrirDatos(s);
                LlenarMesesIyG(con, sel, *rejilla);
            }
            return *rejilla;
        };
        libro.dibujo = [&](Impresora& imp, int) {
            DibujarMesesIyG(imp, libro.rejilla(), sel, empresa, op);
        };
        return SalidaLibroCli(c, libro);
    }

    const QDate desde = FechaOpcion(c, QStringLiteral("desde"), s.FechaIniEj);
    const QDate hasta = FechaOpcion(c, QStringLiteral("hasta"), s.FechaFinEj);
    if (!ValidarFechasIyG(desde, hasta, c.dialogo))
        return 1;
    if (desde < s.FechaIniEj || hasta > s.FechaFinEj)
        throw Rechazo(MsgFueraEjercicio);

    const QString lineas = c.opcion(QStringLiteral("lineas")).trimmed().toLower();
    if (!lineas.isEmpty()) {
        if (lineas != QLatin1String("ingresos") && lineas != QLatin1String("gastos"))
            throw Rechazo(QStringLiteral("--lineas admite ingresos o gastos."));
        SeleccionListaIyG sel;
        sel.desde = desde;
        sel.hasta = hasta;
        sel.clase = lineas == QLatin1String("ingresos") ? ClaseIyG::Ingresos : ClaseIyG::Gastos;
        sel.sector = sector;
        libro.titulo = TituloListaIyG;
        libro.rejilla = [&] {
            if (!rejilla) {
                rejilla = RejillaListaIyG();
                Conexion con = AbrirDatos(s);
                LlenarListaIyG(con, sel, *rejilla);
            }
            return *rejilla;
        };
        libro.dibujo = [&](Impresora& imp, int) {
            DibujarListaIyG(imp, libro.rejilla(), sel, empresa, op);
        };
        if (libro.rejilla().Filas() == 0) {
            c.dialogo.Informar(MsgSinRegistrosIyG);
            return 0;
        }
        const int r = SalidaLibroCli(c, libro);
        const QString formato =
            c.opcion(QStringLiteral("formato"), QStringLiteral("txt")).toLower();
        // On the terminal the list ends with its total, under the amounts.
        if (r == 0 && formato == QLatin1String("txt") &&
            c.opcion(QStringLiteral("salida")).isEmpty()) {
            QStringList total(ColLisImporte);
            total[ColLisConcepto] = TotalListaIyG;
            for (const Rejilla::Total& t : rejilla->Totales())
                if (t.etiqueta == TotalListaIyG)
                    total << t.valor;
            c.salida << total.join(u'\t') << '\n';
        }
        return r;
    }

    SeleccionIyG sel;
    sel.desde = desde;
    sel.hasta = hasta;
    sel.sector = sector;
    const QString tipo = c.opcion(QStringLiteral("tipo")).trimmed().toLower();
    if (tipo == QLatin1String("ingresos"))
        sel.tipo = TipoIyG::SoloIngresos;
    else if (tipo == QLatin1String("gastos"))
        sel.tipo = TipoIyG::SoloGastos;
    else if (!tipo.isEmpty() && tipo != QLatin1String("todos"))
        throw Rechazo(QStringLiteral("--tipo admite todos, ingresos o gastos."));
    const QString orden = c.opcion(QStringLiteral("orden")).trimmed().toLower();
    if (!orden.isEmpty() && orden != QLatin1String("cuentas") && orden != QLatin1String("importes"))
        throw Rechazo(QStringLiteral("--orden admite cuentas o importes."));
    libro.titulo = TituloTotalesIyG;
    libro.rejilla = [&] {
        if (!rejilla) {
            rejilla = RejillaTotalesIyG();
            Conexion con = AbrirDatos(s);
            LlenarTotalesIyG(con, sel, *rejilla);
            if (orden == QLatin1String("importes"))
                OrdenarTotalesIyG(*rejilla, OrdenIyG::Importe);
        }
        return *rejilla;
    };
    libro.dibujo = [&](Impresora& imp, int) {
        DibujarTotalesIyG(imp, libro.rejilla(), sel, empresa, op);
    };
    return SalidaLibroCli(c, libro);
}

// ---- comparar-ejercicios ----

int compararEjercicios(ContextoCli& c) {
    c.abrirEmpresa();
    Sesion& s = c.sesion;
    SeleccionComparacion sel;
    sel.anos = LeerAnos(c.opcion(QStringLiteral("anos")));
    sel.sector = c.opcion(QStringLiteral("sector")).trimmed();
    ComprobarSector(s, sel.sector);
    sel.areaPorPlan = VistaArea::De(s).porPlan();
    const QString area = c.opcion(QStringLiteral("area")).trimmed();
    const QString cuenta = c.opcion(QStringLiteral("cuenta")).trimmed();
    if (!area.isEmpty() && !cuenta.isEmpty())
        throw Rechazo(QStringLiteral("Indique --area o --cuenta, no las dos."));
    if (cuenta.isEmpty()) {
        if (area.isEmpty())
            throw Rechazo(MsgCompArea);
        sel.porAreas = true;
        sel.area = LeerArea(s, area);
        sel.nombre = sel.area;
    } else {
        const CuentaGrafico cg = LeerCuenta(s, cuenta);
        sel.porAreas = false;
        sel.ncuenta = cg.ncuenta;
        sel.nombre = cg.nombre;
    }
    const OpcionesLibro op = OpcionesListadoIyG(c.ajustes);
    const QString empresa = NombreEmpresa(s);
    std::optional<Rejilla> rejilla;
    LibroCli libro;
    libro.titulo = TituloComparacion;
    libro.orientacion = OrientacionMeses;
    libro.rejilla = [&] {
        if (!rejilla) {
            rejilla = RejillaComparacion();
            LlenarComparacion(s, sel, *rejilla);
        }
        return *rejilla;
    };
    libro.dibujo = [&](Impresora& imp, int) {
        DibujarComparacion(imp, libro.rejilla(), sel, empresa, op);
    };
    return SalidaLibroCli(c, libro);
}

// ---- grafico ----

int grafico(ContextoCli& c) {
    if (c.posicionales.size() != 1)
        throw Rechazo(QStringLiteral("Indique el gráfico: quilmar-cli grafico TIPO (vea grafico "
                                     "--help)."));
    const EntradaGrafico* e = EntradaGraficoDeClave(c.posicionales.first());
    if (!e)
        throw Rechazo(QStringLiteral("Gráfico desconocido: %1 (vea grafico --help).")
                          .arg(c.posicionales.first()));
    c.abrirEmpresa();
    Sesion& s = c.sesion;

    AspectoGrafico aspecto = LeerAspectoGrafico(c.ajustes);
    const auto par = [&](const char* si, const char* no, bool& valor) {
        const bool conSi = c.bandera(QString::fromLatin1(si));
        const bool conNo = c.bandera(QString::fromLatin1(no));
        if (conSi && conNo)
            throw Rechazo(QStringLiteral("Indique --%1 o --%2, no las dos.")
                              .arg(QString::fromLatin1(si), QString::fromLatin1(no)));
        if (conSi || conNo)
            valor = conSi;
    };
    par("circular", "barras", aspecto.circular);
    par("3d", "2d", aspecto.tresD);
    par("cantidades", "sin-cantidades", aspecto.cantidades);

    const QString formato = c.opcion(QStringLiteral("formato"), QStringLiteral("csv")).toLower();
    const QString salida = c.opcion(QStringLiteral("salida"));
    if (formato != QLatin1String("csv") && formato != QLatin1String("png") &&
        formato != QLatin1String("pdf"))
        throw Rechazo(
            QStringLiteral("Formato desconocido: %1. Elija csv, png o pdf.").arg(formato));
    if (formato != QLatin1String("csv") && salida.isEmpty())
        throw Rechazo(QStringLiteral("Indique el fichero %1 con --salida FICHERO.").arg(formato));

    DatosGrafico datos;
    switch (e->tipo) {
    case TipoGrafico::Area: {
        Conexion con = AbrirDatos(s);
        datos = GraficoArea(con, s, *e);
        break;
    }
    case TipoGrafico::IngresosGastos: {
        Conexion con = AbrirDatos(s);
        datos = GraficoIyG(con, s, *e);
        break;
    }
    case TipoGrafico::Meses: {
        Conexion con = AbrirDatos(s);
        datos = GraficoMeses(con, s, *e);
        break;
    }
    case TipoGrafico::Cuenta: {
        const QString cuenta = c.opcion(QStringLiteral("cuenta")).trimmed();
        if (cuenta.isEmpty())
            throw Rechazo(MsgGrafCuenta);
        const CuentaGrafico cg = LeerCuenta(s, cuenta);
        Conexion con = AbrirDatos(s);
        datos = GraficoCuenta(con, s, cg.ncuenta, cg.nombre);
        break;
    }
    case TipoGrafico::Anos: {
        SeleccionAnosGrafico sel;
        QList<int> anos = LeerAnos(c.opcion(QStringLiteral("anos")));
        std::sort(anos.begin(), anos.end());
        sel.numero = int(anos.size());
        sel.primerAno = anos.first();
        const QString area = c.opcion(QStringLiteral("area")).trimmed();
        const QString cuenta = c.opcion(QStringLiteral("cuenta")).trimmed();
        if (!area.isEmpty() && !cuenta.isEmpty())
            throw Rechazo(QStringLiteral("Indique --area o --cuenta, no las dos."));
        if (cuenta.isEmpty()) {
            if (area.isEmpty())
                throw Rechazo(MsgGrafArea);
            sel.porAreas = true;
            sel.area = LeerArea(s, area);
            sel.nombre = sel.area;
        } else {
            const CuentaGrafico cg = LeerCuenta(s, cuenta);
            sel.porAreas = false;
            sel.ncuenta = cg.ncuenta;
            sel.nombre = cg.nombre;
        }
        datos = GraficoAnos(s, sel, anos);
        break;
    }
    }

    if (formato == QLatin1String("csv")) {
        const Rejilla r = RejillaGrafico(datos);
        if (salida.isEmpty())
            EscribirDelimitado(r, c.salida, u';');
        else
            ExportarRejilla(r, salida, FormatoExportacion::Csv);
        return 0;
    }
    if (formato == QLatin1String("pdf")) {
        OpcionesPdf op;
        op.titulo = datos.titulo.trimmed();
        op.orientacion = OrientacionGrafico;
        ImprimirPdf(salida, DibujoGrafico(datos, aspecto), op);
        return 0;
    }
    // Qt's own reason is in English: the user gets the file and the plain fact, as with csv.
    QImageWriter escritor(salida, "png");
    if (!escritor.write(ImagenGrafico(datos, aspecto, QSize(1200, 800))))
        throw ErrorQuilmar(
            QStringLiteral("No se pudo escribir el archivo %1.")
                .arg(QDir::toNativeSeparators(QFileInfo(salida).absoluteFilePath())));
    return 0;
}

QString ListaGraficos() {
    QString t;
    for (const EntradaGrafico& e : EntradasGraficos())
        t += QStringLiteral("  %1%2\n").arg(e.clave.leftJustified(17, u' '), e.texto);
    return t;
}

const AltaVerbo altaIngresosGastos{
    {QStringLiteral("ingresos-gastos"),
     QStringLiteral("ingresos y gastos: totales por subcuenta, apuntes o tabla por meses"),
     QStringLiteral(
         "Uso: quilmar-cli ingresos-gastos [--desde FECHA --hasta FECHA] [--sector S]\n"
         "        [--tipo todos|ingresos|gastos] [--orden cuentas|importes]\n"
         "        [--lineas ingresos|gastos] [--por-meses]\n"
         "        [--formato txt|csv|xlsx|pdf] [--salida FICHERO] [--copias N]\n\n"
         "Sin más opciones, los totales de cada subcuenta de ingresos (grupo 7) y de gastos\n"
         "(grupo 6) del periodo con su porcentaje sobre el total de su bloque, los totales de\n"
         "cada bloque y el RESULTADO POSITIVO o NEGATIVO. Nunca cuenta la regularización.\n"
         "  --tipo ingresos|gastos  sólo ese bloque\n"
         "  --orden importes        las subcuentas de cada bloque de mayor a menor importe\n"
         "  --lineas ingresos|gastos  los apuntes de ese lado en lugar de los totales\n"
         "  --por-meses             la tabla por meses del año natural del ejercicio (del 1 de\n"
         "                          enero al 31 de diciembre), con las DIFERENCIAS\n"
         "  --sector S              sólo los apuntes de ese sector\n"
         "Sin fechas, el ejercicio entero. El libro impreso (pdf) usa la fuente de impresión "
         "de la\nconfiguración.\n"),
     {QStringLiteral("por-meses")},
     ingresosGastos}};

const AltaVerbo altaComparar{
    {QStringLiteral("comparar-ejercicios"),
     QStringLiteral("un área o una subcuenta mes a mes en varios ejercicios"),
     QStringLiteral(
         "Uso: quilmar-cli comparar-ejercicios --anos A,B,... (--area D | --cuenta N)\n"
         "        [--sector S] [--formato txt|csv|xlsx|pdf] [--salida FICHERO]\n\n"
         "Una fila por año, leída de la base de datos de ese ejercicio, con los meses y el "
         "TOTAL, sin\nla regularización ni el asiento final. Un año del que la empresa no "
         "tiene ejercicio sale\ncomo \"Año AAAA (sin ejercicio)\" con las cifras en blanco.\n"
         "  --area D     el área (0 a 6; 1 a 7 si la configuración usa los grupos del plan)\n"
         "  --cuenta N   la subcuenta, con sus nueve cifras\n"),
     {},
     compararEjercicios}};

const AltaVerbo altaGrafico = [] {
    Verbo v{QStringLiteral("grafico"),
            QStringLiteral("un gráfico: sus series (csv) o el dibujo (png, pdf)"),
            QStringLiteral("Uso: quilmar-cli grafico TIPO [--cuenta N] [--area D] [--anos "
                           "A,B,...]\n"
                           "        [--barras|--circular] [--2d|--3d] "
                           "[--cantidades|--sin-cantidades]\n"
                           "        [--formato csv|png|pdf] [--salida FICHERO]\n\n"
                           "TIPO es uno de:\n") +
                ListaGraficos() +
                QStringLiteral(
                    "\n  --cuenta N     la subcuenta de \"cuenta\" (o de \"anos\")\n"
                    "  --area D       el área de \"anos\"\n"
                    "  --anos A,B,... los ejercicios de \"anos\"\n"
                    "El aspecto (barras o circular, 2D o 3D, cantidades) es el guardado en la\n"
                    "configuración salvo que se indique; no se guarda. Sólo los gráficos de un "
                    "área y el\nde una cuenta se dibujan como circulares. csv (por defecto, a la "
                    "salida estándar sin\n--salida) da las series; png (1200 x 800) y pdf (una "
                    "página) el dibujo.\n"),
            {QStringLiteral("barras"), QStringLiteral("circular"), QStringLiteral("2d"),
             QStringLiteral("3d"), QStringLiteral("cantidades"), QStringLiteral("sin-cantidades")},
            grafico};
    v.ventanas = true;
    return AltaVerbo{v};
}();

} // namespace
