// Verbs on the chart of accounts and the master tables: accounts, subaccounts and their cards,
// parking, VAT subaccounts, sectors and concepts. Refusals print the system's message on
// standard error and end with 1; confirmations are answered with --si.

#include "chart/Aparcar.h"
#include "chart/CliPro.h"
#include "chart/Conceptos.h"
#include "chart/Listados.h"
#include "chart/NCuenta.h"
#include "chart/PlanCuentas.h"
#include "chart/Sectores.h"
#include "chart/TiposIva.h"
#include "cli/Cli.h"
#include "platform/Dialogo.h"
#include "platform/Errores.h"
#include "platform/ExportarRejilla.h"
#include "platform/ImpresoraPintor.h"
#include "store/Conexiones.h"
#include "store/Formato.h"
#include "store/Sesion.h"

#include <algorithm>
#include <optional>

namespace {

QString primero(ContextoCli& c, const QString& que) {
    const QString v = c.posicionales.value(0).trimmed();
    if (v.isEmpty())
        throw Rechazo(QStringLiteral("Falta %1.").arg(que));
    return v;
}

int area(ContextoCli& c) {
    bool ok = false;
    const int a = c.opcion(QStringLiteral("area")).toInt(&ok);
    if (!ok || a < 0 || a >= NumeroAreas)
        throw Rechazo(QStringLiteral("Indique el área con --area, de 0 a 6."));
    return a;
}

// The card fields given as options, over those of `base`.
FichaCliPro fichaDeOpciones(ContextoCli& c, FichaCliPro base = {}) {
    const QList<QPair<const char*, QString FichaCliPro::*>> campos{
        {"nif", &FichaCliPro::NIF},
        {"domicilio", &FichaCliPro::Domicilio},
        {"municipio", &FichaCliPro::Municipio},
        {"cpostal", &FichaCliPro::CPostal},
        {"provincia", &FichaCliPro::Provincia},
        {"pais", &FichaCliPro::Pais},
        {"tfn1", &FichaCliPro::Tfn1},
        {"tfn2", &FichaCliPro::Tfn2},
        {"contacto", &FichaCliPro::Contacto},
        {"observaciones", &FichaCliPro::Observaciones}};
    for (const auto& [nombre, campo] : campos)
        if (c.tiene(QLatin1String(nombre)))
            base.*campo = c.opcion(QLatin1String(nombre));
    return base;
}

bool hayOpcionesDeFicha(ContextoCli& c) {
    for (const char* n : {"nif", "domicilio", "municipio", "cpostal", "provincia", "pais", "tfn1",
                          "tfn2", "contacto", "observaciones"})
        if (c.tiene(QLatin1String(n)))
            return true;
    return false;
}

// A printed list as the books give it: --formato txt|csv|xlsx|pdf and --salida FICHERO (text on
// standard output when no file is given).
bool pideListado(ContextoCli& c) {
    return c.tiene(QStringLiteral("formato")) || c.tiene(QStringLiteral("salida"));
}

int sacarListado(ContextoCli& c, const Listado& l) {
    const QString nombre = c.opcion(QStringLiteral("formato"), QStringLiteral("txt"));
    const QString ruta = c.opcion(QStringLiteral("salida"));
    if (nombre.compare(QLatin1String("pdf"), Qt::CaseInsensitive) == 0) {
        if (ruta.isEmpty())
            throw Rechazo(QStringLiteral("Indique el fichero PDF con --salida."));
        OpcionesPdf o;
        o.titulo = l.titulo;
        ImprimirPdf(
            ruta, [&l](Impresora& imp, int) { DibujarListado(imp, l); }, o);
        return 0;
    }
    const std::optional<FormatoExportacion> formato = FormatoExportacionDeNombre(nombre);
    if (!formato)
        throw Rechazo(
            QStringLiteral("Formato desconocido: %1. Use txt, csv, xlsx o pdf.").arg(nombre));
    if (ruta.isEmpty()) {
        if (*formato == FormatoExportacion::Xlsx)
            throw Rechazo(QStringLiteral("Indique el fichero con --salida."));
        EscribirDelimitado(l.rejilla, c.salida, *formato == FormatoExportacion::Csv ? u';' : u'\t');
        return 0;
    }
    ExportarRejilla(l.rejilla, ruta, *formato);
    return 0;
}

int cuentas(ContextoCli& c) {
    c.abrirEmpresa();
    if (pideListado(c))
        return sacarListado(
            c, ListadoPlan(c.sesion, area(c), c.bandera(QStringLiteral("solo-cuentas"))));
    QList<int> areas;
    if (c.tiene(QStringLiteral("area")))
        areas << area(c);
    else
        for (int a = 0; a < NumeroAreas; ++a)
            areas << a;
    Conexion cx = AbrirDatos(c.sesion);
    QList<QStringList> filas{
        {QStringLiteral("Código"), QStringLiteral("Nombre"), QStringLiteral("Grupo")}};
    for (const int a : areas) {
        // Each account, then its subaccounts by code.
        const QList<FilaSubcuenta> subcuentas = SubcuentasDeArea(cx, c.sesion, a);
        for (const FilaGrupo& g : GruposDeArea(cx, a)) {
            filas << QStringList{g.NGrupo, g.Grupo, QString()};
            QList<FilaSubcuenta> suyas;
            for (const FilaSubcuenta& s : subcuentas)
                if (s.NGrupo == g.NGrupo)
                    suyas << s;
            std::sort(suyas.begin(), suyas.end(),
                      [](const FilaSubcuenta& x, const FilaSubcuenta& y) {
                          return x.NCuenta < y.NCuenta;
                      });
            for (const FilaSubcuenta& s : suyas)
                filas << QStringList{s.NCuenta, s.Cuenta, s.Grupo};
        }
    }
    ImprimirFilas(c.salida, filas);
    return 0;
}

int crearCuenta(ContextoCli& c) {
    c.abrirEmpresa();
    const ResultadoPlan r =
        AnadirCuenta(c.sesion, c.dialogo, area(c), c.opcion(QStringLiteral("codigo")),
                     c.opcion(QStringLiteral("nombre")));
    if (!r.hecho)
        return 1;
    c.salida << r.NCuenta << '\n';
    return 0;
}

int renombrarCuenta(ContextoCli& c) {
    c.abrirEmpresa();
    return ModificarCuenta(c.sesion, c.dialogo,
                           primero(c, QStringLiteral("el código de la Cuenta")),
                           c.opcion(QStringLiteral("nombre")))
                   .hecho
               ? 0
               : 1;
}

int eliminarCuenta(ContextoCli& c) {
    c.abrirEmpresa();
    return EliminarCuenta(c.sesion, c.dialogo, primero(c, QStringLiteral("el código de la Cuenta")))
                   .hecho
               ? 0
               : 1;
}

int crearSubcuenta(ContextoCli& c) {
    c.abrirEmpresa();
    NuevaSubcuenta n;
    n.area = area(c);
    const QString cuenta = c.opcion(QStringLiteral("cuenta")).trimmed();
    if (!cuenta.isEmpty())
        n.NGrupo = QString::number(n.area) + cuenta;
    n.Cuenta = c.opcion(QStringLiteral("nombre"));
    n.ficha = fichaDeOpciones(c);
    const ResultadoPlan r = AnadirSubcuenta(c.sesion, c.dialogo, n);
    if (!r.hecho)
        return 1;
    c.salida << r.NCuenta << '\n';
    return 0;
}

int renombrarSubcuenta(ContextoCli& c) {
    c.abrirEmpresa();
    const QString n = primero(c, QStringLiteral("el código de la Subcuenta"));
    QString nombre = c.opcion(QStringLiteral("nombre"));
    std::optional<FichaCliPro> ficha;
    {
        Conexion cx = AbrirDatos(c.sesion);
        if (!c.tiene(QStringLiteral("nombre")))
            nombre = cx.escalar(QStringLiteral("SELECT Cuenta FROM Cuentas WHERE NCuenta = ?"), {n})
                         .toString()
                         .trimmed();
        if (hayOpcionesDeFicha(c))
            ficha = fichaDeOpciones(c, ObtCliPro(cx, n));
    }
    return ModificarSubcuenta(c.sesion, c.dialogo, n, nombre, ficha ? &*ficha : nullptr).hecho ? 0
                                                                                               : 1;
}

int eliminarSubcuenta(ContextoCli& c) {
    c.abrirEmpresa();
    return EliminarSubcuenta(c.sesion, c.dialogo,
                             primero(c, QStringLiteral("el código de la Subcuenta")))
                   .hecho
               ? 0
               : 1;
}

int ficha(ContextoCli& c) {
    c.abrirEmpresa();
    Conexion cx = AbrirDatos(c.sesion);
    const FichaCliPro f = ObtCliPro(cx, primero(c, QStringLiteral("el código de la Subcuenta")));
    ImprimirFilas(c.salida, {{QStringLiteral("NCuenta"), f.NCuenta},
                             {QStringLiteral("Nombre"), f.Cuenta},
                             {QStringLiteral("NIF"), f.NIF},
                             {QStringLiteral("Domicilio"), f.Domicilio},
                             {QStringLiteral("Municipio"), f.Municipio},
                             {QStringLiteral("C. P."), f.CPostal},
                             {QStringLiteral("Provincia"), f.Provincia},
                             {QStringLiteral("País"), f.Pais},
                             {QStringLiteral("Tfnº 1"), f.Tfn1},
                             {QStringLiteral("Tfnº 2"), f.Tfn2},
                             {QStringLiteral("Contacto"), f.Contacto},
                             {QStringLiteral("Observaciones"), f.Observaciones}});
    return 0;
}

int aparcar(ContextoCli& c) {
    c.abrirEmpresa();
    return Aparcar(c.sesion, c.dialogo, primero(c, QStringLiteral("el código de la Subcuenta")))
               ? 0
               : 1;
}

int desaparcar(ContextoCli& c) {
    c.abrirEmpresa();
    return Desaparcar(c.sesion, c.dialogo, primero(c, QStringLiteral("el código de la Subcuenta")))
               ? 0
               : 1;
}

int aparcadas(ContextoCli& c) {
    c.abrirEmpresa();
    if (pideListado(c))
        return sacarListado(c, ListadoAparcar(c.sesion, area(c)));
    QList<QStringList> filas{{QStringLiteral("Subcuenta"), QStringLiteral("Cuenta"),
                              QStringLiteral("Aparcada"), QStringLiteral("Desde")}};
    for (int a = 0; a < NumeroAreas; ++a)
        for (const FilaAparcar& f : ListaAparcar(c.sesion, a))
            if (f.Aparcada)
                filas << QStringList{f.NCuenta, f.Cuenta, QStringLiteral("SI"), f.Desde};
    ImprimirFilas(c.salida, filas);
    return 0;
}

int tipoIva(ContextoCli& c) {
    c.abrirEmpresa();
    const QString n = primero(c, QStringLiteral("el código de la Subcuenta"));
    if (c.bandera(QStringLiteral("eliminar")))
        return EliminarTipoIva(c.sesion, c.dialogo, n) ? 0 : 1;
    return GuardarTipoIva(c.sesion, c.dialogo, n, c.opcion(QStringLiteral("porcentaje")),
                          c.opcion(QStringLiteral("clase")))
               ? 0
               : 1;
}

int tiposIva(ContextoCli& c) {
    c.abrirEmpresa();
    if (pideListado(c))
        return sacarListado(c, ListadoTiposIva(c.sesion));
    Conexion cx = AbrirDatos(c.sesion);
    QList<QStringList> filas{{QStringLiteral("Subcuenta"), QStringLiteral("Cuenta"),
                              QStringLiteral("Porcentaje"), QStringLiteral("Clase")}};
    for (const FilaTipoIva& f : ListaTiposIva(cx))
        filas << QStringList{f.NCuenta, f.Cuenta,
                             Formato(f.Porcentaje, QStringLiteral("General Number")), f.Clase};
    ImprimirFilas(c.salida, filas);
    return 0;
}

qint64 sectorPorNombre(ContextoCli& c, const QString& nombre) {
    const qint64 id = IdDeSector(c.sesion, nombre);
    if (id == 0)
        throw Rechazo(QStringLiteral("No existe el Sector '%1'.").arg(nombre));
    return id;
}

int sectorAnadir(ContextoCli& c) {
    c.abrirEmpresa();
    return GuardarSector(c.sesion, c.dialogo, 0, c.posicionales.value(0)) ? 0 : 1;
}

int sectorRenombrar(ContextoCli& c) {
    c.abrirEmpresa();
    const qint64 id = sectorPorNombre(c, primero(c, QStringLiteral("el nombre del Sector")));
    return GuardarSector(c.sesion, c.dialogo, id, c.opcion(QStringLiteral("nombre"))) ? 0 : 1;
}

int sectorEliminar(ContextoCli& c) {
    c.abrirEmpresa();
    const int n =
        EliminarSector(c.sesion, c.dialogo,
                       sectorPorNombre(c, primero(c, QStringLiteral("el nombre del Sector"))));
    if (n < 0)
        return 1;
    c.salida << QStringLiteral("Asientos eliminados: %1").arg(n) << '\n';
    return 0;
}

int sectores(ContextoCli& c) {
    c.abrirEmpresa();
    QList<QStringList> filas{{QStringLiteral("Sector")}};
    for (const FilaSector& f : ListaSectores(c.sesion))
        filas << QStringList{f.Sector};
    ImprimirFilas(c.salida, filas);
    return 0;
}

int concepto(ContextoCli& c) {
    c.abrirEmpresa();
    const QString codigo = primero(c, QStringLiteral("el código del Concepto"));
    if (c.bandera(QStringLiteral("eliminar")))
        return EliminarConcepto(c.sesion, c.dialogo, codigo.toLongLong()) ? 0 : 1;
    return GuardarConcepto(c.sesion, c.dialogo, codigo, c.opcion(QStringLiteral("nombre"))) ? 0 : 1;
}

int conceptos(ContextoCli& c) {
    c.abrirEmpresa();
    if (pideListado(c))
        return sacarListado(c, ListadoConceptos(c.sesion));
    QList<QStringList> filas{{QStringLiteral("Código"), QStringLiteral("Concepto")}};
    for (const FilaConcepto& f : ListaConceptos(c.sesion))
        filas << QStringList{QString::number(f.Codigo), f.Nombre};
    ImprimirFilas(c.salida, filas);
    return 0;
}

const QString OpcionesFicha = QStringLiteral(
    "        [--nif NIF] [--domicilio TEXTO] [--municipio TEXTO] [--cpostal CP]\n"
    "        [--provincia TEXTO] [--pais TEXTO] [--tfn1 T] [--tfn2 T] [--contacto TEXTO]\n"
    "        [--observaciones TEXTO]\n");

const AltaVerbo altas[]{
    AltaVerbo{{QStringLiteral("cuentas"),
               QStringLiteral("lista el plan de cuentas"),
               QStringLiteral("Uso: quilmar-cli cuentas [--area N]\n"
                              "       quilmar-cli cuentas --area N [--solo-cuentas] --formato "
                              "txt|csv|xlsx|pdf [--salida FICHERO]\n\nLista las Cuentas y, tras "
                              "cada una, sus Subcuentas: Código, Nombre y Grupo (el nombre de la "
                              "Cuenta de cada Subcuenta), separados por tabuladores. Con --area, "
                              "sólo las del área N (0 a 6).\nCon --formato o --salida da el "
                              "listado impreso del área: 'Listado de Subcuentas' o, con "
                              "--solo-cuentas, 'Listado de Cuentas'."),
               {QStringLiteral("solo-cuentas")},
               cuentas}},
    AltaVerbo{{QStringLiteral("crear-cuenta"),
               QStringLiteral("añade una Cuenta al plan"),
               QStringLiteral("Uso: quilmar-cli crear-cuenta --codigo NNN --area N --nombre "
                              "TEXTO\n\nAñade la Cuenta NNN (tres cifras del Plan General de "
                              "Contabilidad) en el área N y muestra su código de cuatro cifras."),
               {},
               crearCuenta}},
    AltaVerbo{{QStringLiteral("renombrar-cuenta"),
               QStringLiteral("cambia el nombre de una Cuenta"),
               QStringLiteral("Uso: quilmar-cli renombrar-cuenta NGRUPO --nombre TEXTO\n\nNGRUPO "
                              "es el código de cuatro cifras: el área y la cuenta, como 2400."),
               {},
               renombrarCuenta}},
    AltaVerbo{{QStringLiteral("eliminar-cuenta"),
               QStringLiteral("elimina una Cuenta sin Subcuentas"),
               QStringLiteral("Uso: quilmar-cli eliminar-cuenta NGRUPO --si"),
               {},
               eliminarCuenta}},
    AltaVerbo{{QStringLiteral("crear-subcuenta"),
               QStringLiteral("añade una Subcuenta"),
               QStringLiteral("Uso: quilmar-cli crear-subcuenta --cuenta NNN --area N --nombre "
                              "TEXTO\n") +
                   OpcionesFicha +
                   QStringLiteral(
                       "\nAñade la Subcuenta a la Cuenta NNN del área N y muestra su código de "
                       "nueve cifras. En las áreas 2 (SE DEBE) y 4 (NOS DEBEN) escribe además la "
                       "ficha de cliente o proveedor; si el NIF ya lo tiene otra Subcuenta, hace "
                       "falta --si."),
               {},
               crearSubcuenta}},
    AltaVerbo{
        {QStringLiteral("renombrar-subcuenta"),
         QStringLiteral("cambia el nombre o la ficha de una Subcuenta"),
         QStringLiteral("Uso: quilmar-cli renombrar-subcuenta NCUENTA [--nombre TEXTO] --si\n") +
             OpcionesFicha,
         {},
         renombrarSubcuenta}},
    AltaVerbo{{QStringLiteral("eliminar-subcuenta"),
               QStringLiteral("elimina una Subcuenta sin uso"),
               QStringLiteral("Uso: quilmar-cli eliminar-subcuenta NCUENTA --si"),
               {},
               eliminarSubcuenta}},
    AltaVerbo{{QStringLiteral("ficha"),
               QStringLiteral("muestra la ficha de un cliente o proveedor"),
               QStringLiteral("Uso: quilmar-cli ficha NCUENTA"),
               {},
               ficha}},
    AltaVerbo{{QStringLiteral("aparcar"),
               QStringLiteral("aparca una Subcuenta"),
               QStringLiteral("Uso: quilmar-cli aparcar NCUENTA --si\n\nSólo desde el último "
                              "ejercicio de la empresa."),
               {},
               aparcar}},
    AltaVerbo{{QStringLiteral("desaparcar"),
               QStringLiteral("desaparca una Subcuenta"),
               QStringLiteral("Uso: quilmar-cli desaparcar NCUENTA --si"),
               {},
               desaparcar}},
    AltaVerbo{{QStringLiteral("aparcadas"),
               QStringLiteral("lista las Subcuentas aparcadas"),
               QStringLiteral(
                   "Uso: quilmar-cli aparcadas\n       quilmar-cli aparcadas --area N --formato "
                   "txt|csv|xlsx|pdf [--salida FICHERO]\n\nSin --formato lista las "
                   "Subcuentas aparcadas; con él, el 'LISTADO DE CUENTAS' del área."),
               {},
               aparcadas}},
    AltaVerbo{
        {QStringLiteral("tipo-iva"),
         QStringLiteral("da o quita el tipo de una Subcuenta de IVA"),
         QStringLiteral("Uso: quilmar-cli tipo-iva NCUENTA --porcentaje P --clase "
                        "IVA|Recargo\n       quilmar-cli tipo-iva NCUENTA --eliminar --si\n\n"
                        "Sólo las Subcuentas de las cuentas 472 del área 4 y 477 del área 2."),
         {QStringLiteral("eliminar")},
         tipoIva}},
    AltaVerbo{{QStringLiteral("tipos-iva"),
               QStringLiteral("lista las Subcuentas de IVA"),
               QStringLiteral("Uso: quilmar-cli tipos-iva [--formato txt|csv|xlsx|pdf --salida "
                              "FICHERO]\n\nCon --formato o --salida, el listado 'Subcuentas de "
                              "IVA'."),
               {},
               tiposIva}},
    AltaVerbo{{QStringLiteral("sector-anadir"),
               QStringLiteral("añade un Sector"),
               QStringLiteral("Uso: quilmar-cli sector-anadir NOMBRE"),
               {},
               sectorAnadir}},
    AltaVerbo{{QStringLiteral("sector-renombrar"),
               QStringLiteral("cambia el nombre de un Sector"),
               QStringLiteral("Uso: quilmar-cli sector-renombrar NOMBRE --nombre NUEVO\n\nEl "
                              "nombre cambia también en vencimientos, asientos prediseñados y "
                              "periódicos; el Diario conserva el anterior."),
               {},
               sectorRenombrar}},
    AltaVerbo{{QStringLiteral("sector-eliminar"),
               QStringLiteral("elimina un Sector y los asientos en que figura"),
               QStringLiteral("Uso: quilmar-cli sector-eliminar NOMBRE --si\n\nElimina también "
                              "todos los asientos contabilizados en los que figure el Sector."),
               {},
               sectorEliminar}},
    AltaVerbo{{QStringLiteral("sectores"),
               QStringLiteral("lista los Sectores"),
               QStringLiteral("Uso: quilmar-cli sectores"),
               {},
               sectores}},
    AltaVerbo{{QStringLiteral("concepto"),
               QStringLiteral("añade, cambia o elimina un Concepto"),
               QStringLiteral("Uso: quilmar-cli concepto CODIGO --nombre TEXTO [--si]\n"
                              "       quilmar-cli concepto CODIGO --eliminar --si\n\n"
                              "Cambiar un Concepto que ya existe necesita --si."),
               {QStringLiteral("eliminar")},
               concepto}},
    AltaVerbo{{QStringLiteral("conceptos"),
               QStringLiteral("lista los Conceptos predefinidos"),
               QStringLiteral("Uso: quilmar-cli conceptos [--formato txt|csv|xlsx|pdf --salida "
                              "FICHERO]\n\nCon --formato o --salida, el listado 'Conceptos "
                              "predefinidos'."),
               {},
               conceptos}},
};

} // namespace
