// The fixed-asset inventory from the command line: the list and its printed book, elements and
// locations, and depreciation runs.

#include "assets/Amortizacion.h"
#include "assets/Centros.h"
#include "assets/ImpresionInventario.h"
#include "assets/Inventario.h"
#include "cli/Cli.h"
#include "cli/SalidaLibro.h"
#include "platform/Almacen.h"
#include "platform/Dialogo.h"
#include "platform/Errores.h"
#include "platform/Rejilla.h"
#include "store/Conexiones.h"
#include "store/Formato.h"
#include "store/NombreEmpresa.h"
#include "store/Rutinas.h"
#include "store/Sesion.h"

#include <optional>

namespace {

struct NombreVer {
    const char* nombre;
    VerInventario ver;
};

constexpr NombreVer Vistas[] = {
    {"todos", VerInventario::Todos},
    {"bajas", VerInventario::DadosDeBaja},
    {"no-bajas", VerInventario::NoDadosDeBaja},
    {"con-amortizacion", VerInventario::ConAmortizacion},
    {"sin-amortizacion", VerInventario::SinAmortizacion},
    {"localizacion", VerInventario::ConLocalizacion},
    {"amortizables", VerInventario::Amortizables},
    {"no-amortizables", VerInventario::NoAmortizables},
    {"amortizados", VerInventario::Amortizados},
    {"no-amortizados", VerInventario::NoAmortizados},
    {"adquiridos", VerInventario::AdquiridosEntre},
};

QString nombresVer() {
    QStringList n;
    for (const NombreVer& v : Vistas)
        n << QString::fromLatin1(v.nombre);
    return n.join(QStringLiteral(", "));
}

// The element number of the first argument: "3" or "00000003".
qint64 numeroElemento(ContextoCli& c, const QString& uso) {
    bool ok = false;
    const qint64 n = c.posicionales.value(0).toLongLong(&ok);
    if (!ok || n <= 0)
        throw Rechazo(QStringLiteral("Indique el número del elemento: %1").arg(uso));
    return n;
}

Elemento elementoExistente(ContextoCli& c, qint64 n) {
    const std::optional<Elemento> e = LeerElemento(c.sesion, n);
    if (!e)
        throw Rechazo(
            QStringLiteral("No se encontró el elemento de Inventario en la base de datos."));
    return *e;
}

// The options of the element form over a starting form: only what is given changes.
void aplicarOpciones(ContextoCli& c, FichaElemento& f) {
    auto tomar = [&](const char* opcion, QString& campo) {
        const QString nombre = QString::fromLatin1(opcion);
        if (c.tiene(nombre))
            campo = c.opcion(nombre);
    };
    tomar("descripcion", f.Nombre);
    tomar("naturaleza", f.Naturaleza);
    tomar("fecha-adq", f.FechaAdq);
    tomar("importe", f.Importe);
    tomar("proveedor", f.Proveedor);
    tomar("centro", f.Localizacion);
    tomar("fecha-baja", f.FechaBaja);
    tomar("causa", f.CausaBaja);
    tomar("amortizable", f.Amortizable);
    tomar("porcentaje", f.Porcentaje);
    tomar("fin-amort", f.FinAmort);
    tomar("ultima-amort", f.UltimaAmort);
    tomar("amortizado", f.Amortizado);
    tomar("subcuenta-amort", f.SubctaAmort);
    tomar("subcuenta-dota", f.SubctaDota);
    // A rate or subaccounts make an element depreciable unless said otherwise.
    if (!c.tiene(QStringLiteral("amortizable")) && f.Amortizable.isEmpty() &&
        (c.tiene(QStringLiteral("porcentaje")) || c.tiene(QStringLiteral("subcuenta-amort")) ||
         c.tiene(QStringLiteral("subcuenta-dota"))))
        f.Amortizable = QStringLiteral("SI");
    // Saying NO drops the plan, as picking NO on the screen empties the lists.
    if (f.Amortizable.trimmed().toUpper() == QLatin1String("NO")) {
        if (!c.tiene(QStringLiteral("porcentaje")))
            f.Porcentaje.clear();
        f.SubctaAmort.clear();
        f.SubctaDota.clear();
    }
}

int inventario(ContextoCli& c) {
    c.abrirEmpresa();
    Sesion& s = c.sesion;
    FiltroInventario filtro;
    const QString ver = c.opcion(QStringLiteral("ver"), QStringLiteral("todos")).toLower();
    bool conocida = false;
    for (const NombreVer& v : Vistas)
        if (ver == QLatin1String(v.nombre)) {
            filtro.ver = v.ver;
            conocida = true;
        }
    if (!conocida)
        throw Rechazo(
            QStringLiteral("--ver no conoce '%1'. Elija una de: %2.").arg(ver, nombresVer()));
    if (filtro.ver == VerInventario::ConLocalizacion) {
        filtro.localizacion = c.opcion(QStringLiteral("centro"));
        if (CentroDeNombre(s, filtro.localizacion).NCentro == 0)
            throw Rechazo(QStringLiteral("No se encontró el Centro."));
    }
    if (filtro.ver == VerInventario::AdquiridosEntre) {
        filtro.desde = FechaOpcion(c, QStringLiteral("desde"), s.FechaIniEj);
        filtro.hasta = FechaOpcion(c, QStringLiteral("hasta"), s.FechaFinEj);
    }
    const OpcionesLibro op =
        OpcionesImpresionCli(c, ConfigFormOpciones(FormOpciones::FORM90, QStringLiteral("Invent")));

    std::optional<Rejilla> rejilla;
    auto llenar = [&]() -> const Rejilla& {
        if (!rejilla) {
            rejilla = RejillaInventario();
            LlenarInventario(s, filtro, *rejilla);
        }
        return *rejilla;
    };
    LibroCli libro;
    libro.titulo = TituloInventario;
    libro.orientacion = QPageLayout::Landscape;
    libro.rejilla = [&] {
        return llenar();
    };
    libro.dibujo = [&](Impresora& imp, int copia) {
        const QString empresa = NombreEmpresa(s);
        ImpresionInventario(llenar(), empresa, op).Dibujar(imp, copia);
    };
    return SalidaLibroCli(c, libro);
}

int elementoAnadir(ContextoCli& c) {
    c.abrirEmpresa();
    FichaElemento f;
    aplicarOpciones(c, f);
    const ResultadoFicha r = AnadirElemento(c.sesion, c.dialogo, f);
    if (!r.hecho)
        return 1;
    c.salida << FormatoElemento(r.numero) << '\n';
    return 0;
}

int elementoModificar(ContextoCli& c) {
    c.abrirEmpresa();
    const qint64 n = numeroElemento(c, QStringLiteral("quilmar-cli elemento-modificar N ..."));
    FichaElemento f = FichaDe(elementoExistente(c, n));
    aplicarOpciones(c, f);
    return ModificarElemento(c.sesion, c.dialogo, n, f).hecho ? 0 : 1;
}

int elementoBaja(ContextoCli& c) {
    c.abrirEmpresa();
    const qint64 n =
        numeroElemento(c, QStringLiteral("quilmar-cli elemento-baja N --fecha F --causa C"));
    FichaElemento f = FichaDe(elementoExistente(c, n));
    f.FechaBaja = c.opcion(QStringLiteral("fecha"));
    f.CausaBaja = c.opcion(QStringLiteral("causa"));
    return ModificarElemento(c.sesion, c.dialogo, n, f).hecho ? 0 : 1;
}

int elementoEliminar(ContextoCli& c) {
    c.abrirEmpresa();
    const qint64 n = numeroElemento(c, QStringLiteral("quilmar-cli elemento-eliminar N --si"));
    elementoExistente(c, n);
    return EliminarElemento(c.sesion, c.dialogo, n) ? 0 : 1;
}

int eliminarBajas(ContextoCli& c) {
    c.abrirEmpresa();
    const int n = EliminarDadosDeBaja(c.sesion, c.dialogo);
    if (n < 0)
        return 1;
    c.salida << n << '\n';
    return 0;
}

int centros(ContextoCli& c) {
    c.abrirEmpresa();
    for (const Centro& centro : ListaCentros(c.sesion))
        c.salida << centro.Localizacion << '\n';
    return 0;
}

int centroAnadir(ContextoCli& c) {
    c.abrirEmpresa();
    return AnadirCentro(c.sesion, c.dialogo, c.posicionales.value(0)) ? 0 : 1;
}

int centroRenombrar(ContextoCli& c) {
    c.abrirEmpresa();
    return RenombrarCentro(c.sesion, c.dialogo, c.posicionales.value(0), c.posicionales.value(1))
               ? 0
               : 1;
}

int centroEliminar(ContextoCli& c) {
    c.abrirEmpresa();
    const QString nombre = c.posicionales.value(0);
    if (CentroDeNombre(c.sesion, nombre).NCentro == 0)
        throw Rechazo(QStringLiteral("No se encontró el Centro."));
    return EliminarCentro(c.sesion, c.dialogo, nombre) ? 0 : 1;
}

int amortizar(ContextoCli& c) {
    c.abrirEmpresa();
    Sesion& s = c.sesion;
    const QString fecha = c.opcion(QStringLiteral("fecha"));
    ResultadoAmortizacion r;
    if (c.tiene(QStringLiteral("elemento"))) {
        bool ok = false;
        const qint64 n = c.opcion(QStringLiteral("elemento")).toLongLong(&ok);
        if (!ok || n <= 0)
            throw Rechazo(QStringLiteral("Indique el número del elemento con --elemento N."));
        // The screen asks the date of one element's run in a box; here --si answers it with
        // --fecha, and without --si the run ends as a cancelled box does.
        r = AmortizarElemento(s, c.dialogo, n, [&] {
            return c.dialogo.Preguntar(MsgFechaAmortizacionElemento) ? fecha : QString();
        });
    } else {
        PeticionAmortizacion p;
        p.fecha = fecha;
        p.localizacion = c.opcion(QStringLiteral("centro"));
        p.agrupar = c.bandera(QStringLiteral("agrupar"));
        r = RealizarAmortizaciones(s, c.dialogo, p);
    }
    if (!r.hecho)
        return 1;
    QList<QStringList> filas;
    for (const AsientoAmortizacion& a : r.asientos)
        for (const Apunte& l : a.Apuntes)
            filas << QStringList{
                QString::number(a.NAs),
                FormatoFecha(a.Fecha, QStringLiteral("short date")),
                l.NCuenta,
                l.Concepto,
                l.Debe != 0 ? Formato(l.Debe, QStringLiteral("standard")) : QString(),
                l.Haber != 0 ? Formato(l.Haber, QStringLiteral("standard")) : QString()};
    ImprimirFilas(c.salida, filas);
    return 0;
}

const QString AyudaFicha = QStringLiteral(
    "  --descripcion T        nombre del elemento\n"
    "  --naturaleza N         Material o Inmaterial\n"
    "  --fecha-adq F          fecha de adquisición (no posterior al fin del ejercicio)\n"
    "  --importe I            importe de adquisición\n"
    "  --centro C             localización (un Centro dado de alta: centro-anadir)\n"
    "  --proveedor T          factura / proveedor\n"
    "  --amortizable SI|NO    SI si se da --porcentaje o alguna subcuenta\n"
    "  --porcentaje P         porcentaje de amortización anual\n"
    "  --subcuenta-amort N    subcuenta de amortización acumulada (028...)\n"
    "  --subcuenta-dota N     subcuenta de dotación (668...)\n"
    "  --fin-amort F          fin de la amortización\n"
    "  --ultima-amort F       fecha de la última amortización (la lleva el programa)\n"
    "  --amortizado I         amortización acumulada (la lleva el programa)\n");

const AltaVerbo altaInventario{
    {QStringLiteral("inventario"),
     QStringLiteral("el inventario de bienes: lista o libro impreso"),
     QStringLiteral("Uso: quilmar-cli inventario [--ver FILTRO] [--centro C] [--desde F --hasta "
                    "F]\n"
                    "        [--margen MM --fuente F --tamano T --fecha-trabajo FECHA]\n"
                    "        [--formato txt|csv|xlsx|pdf] [--salida FICHERO] [--copias N]\n\n"
                    "FILTRO es uno de: %1 (por defecto todos).\n"
                    "localizacion toma el Centro de --centro; adquiridos, las fechas de --desde y\n"
                    "--hasta (por defecto las del ejercicio). Las columnas de la lista son las de\n"
                    "la pantalla, con las subcuentas de amortización y de dotación al final.\n\n")
             .arg(nombresVer()) +
         AyudaSalidaLibro,
     {},
     inventario}};

const AltaVerbo altaElementoAnadir{
    {QStringLiteral("elemento-anadir"),
     QStringLiteral("da de alta un elemento del inventario"),
     QStringLiteral("Uso: quilmar-cli elemento-anadir --descripcion T --naturaleza N --fecha-adq "
                    "F --importe I\n"
                    "        --centro C [--porcentaje P --subcuenta-amort N --subcuenta-dota N]\n"
                    "        [--fin-amort F] [--proveedor T] [--amortizable SI|NO]\n\n"
                    "Comprueba lo mismo que la pantalla, en el mismo orden y con los mismos "
                    "mensajes,\ny muestra el número del elemento nuevo.\n\n") +
         AyudaFicha,
     {},
     elementoAnadir}};

const AltaVerbo altaElementoModificar{
    {QStringLiteral("elemento-modificar"),
     QStringLiteral("modifica un elemento del inventario"),
     QStringLiteral("Uso: quilmar-cli elemento-modificar N [opciones del elemento] [--fecha-baja "
                    "F --causa C]\n\n"
                    "Cambia sólo lo que se indica. Un cambio de la última amortización o del "
                    "amortizado\npide confirmación (--si); sin ella se repone el valor "
                    "anterior.\n\n") +
         AyudaFicha,
     {},
     elementoModificar}};

const AltaVerbo altaElementoBaja{
    {QStringLiteral("elemento-baja"),
     QStringLiteral("da de baja un elemento del inventario"),
     QStringLiteral("Uso: quilmar-cli elemento-baja N --fecha F --causa C\n\n"
                    "C es una de: %1.\n"
                    "Una amortización posterior del elemento solo llega hasta la fecha de baja.")
         .arg(CausasBaja.join(QStringLiteral(", "))),
     {},
     elementoBaja}};

const AltaVerbo altaElementoEliminar{
    {QStringLiteral("elemento-eliminar"),
     QStringLiteral("elimina un elemento del inventario"),
     QStringLiteral("Uso: quilmar-cli elemento-eliminar N --si\n\n"
                    "El Diario conserva sus asientos de amortización. Pide confirmación: añada "
                    "--si."),
     {},
     elementoEliminar}};

const AltaVerbo altaEliminarBajas{
    {QStringLiteral("elementos-eliminar-bajas"),
     QStringLiteral("elimina los elementos dados de baja"),
     QStringLiteral("Uso: quilmar-cli elementos-eliminar-bajas --si\n\n"
                    "Elimina del inventario todos los elementos con fecha de baja y muestra "
                    "cuántos.\nPide confirmación: añada --si."),
     {},
     eliminarBajas}};

const AltaVerbo altaCentros{{QStringLiteral("centros"),
                             QStringLiteral("los Centros (localizaciones) del inventario"),
                             QStringLiteral("Uso: quilmar-cli centros\n\nUna localización por "
                                            "línea, por orden alfabético."),
                             {},
                             centros}};

const AltaVerbo altaCentroAnadir{{QStringLiteral("centro-anadir"),
                                  QStringLiteral("da de alta un Centro del inventario"),
                                  QStringLiteral("Uso: quilmar-cli centro-anadir NOMBRE"),
                                  {},
                                  centroAnadir}};

const AltaVerbo altaCentroRenombrar{
    {QStringLiteral("centro-renombrar"),
     QStringLiteral("cambia el nombre de un Centro"),
     QStringLiteral("Uso: quilmar-cli centro-renombrar NOMBRE NUEVO --si"),
     {},
     centroRenombrar}};

const AltaVerbo altaCentroEliminar{{QStringLiteral("centro-eliminar"),
                                    QStringLiteral("elimina un Centro sin elementos"),
                                    QStringLiteral("Uso: quilmar-cli centro-eliminar NOMBRE --si"),
                                    {},
                                    centroEliminar}};

const AltaVerbo altaAmortizar{
    {QStringLiteral("amortizar"),
     QStringLiteral("contabiliza las amortizaciones del inventario hasta una fecha"),
     QStringLiteral(
         "Uso: quilmar-cli amortizar --fecha D [--centro C] [--agrupar] [--elemento N] --si\n\n"
         "Sin --elemento, amortiza hasta D los elementos amortizables (los de --centro, si se\n"
         "indica): un asiento por elemento, o con --agrupar uno por subcuenta de amortización\n"
         "acumulada. Con --elemento, solo ese elemento (si está dado de baja antes de D, hasta\n"
         "su baja). Todos los asientos y el inventario se graban juntos o no se graba nada.\n"
         "Muestra las líneas contabilizadas: asiento, fecha, subcuenta, concepto, debe y haber.\n"
         "Pide confirmación: añada --si."),
     {QStringLiteral("agrupar")},
     amortizar}};

} // namespace
