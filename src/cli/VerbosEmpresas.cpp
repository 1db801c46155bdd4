// Verbs on the installation's companies: list, create, repair.

#include "cli/Cli.h"
#include "platform/Ajustes.h"
#include "platform/Dialogo.h"
#include "platform/Errores.h"
#include "store/CargarEmp.h"
#include "store/Empresas.h"
#include "store/Rutinas.h"
#include "store/Sesion.h"

#include <QDate>

namespace {

int empresas(ContextoCli& c) {
    QList<QStringList> filas{
        {QStringLiteral("Código"), QStringLiteral("Empresa"), QStringLiteral("Año")}};
    for (const FilaEmpresa& f : CargarEmp(c.sesion, c.dialogo))
        filas << QStringList{f.Codigo, f.Empresa, f.Ano};
    ImprimirFilas(c.salida, filas);
    return 0;
}

int crearEmpresa(ContextoCli& c) {
    DatosNuevaEmpresa d;
    d.Codigo = c.opcion(QStringLiteral("codigo"));
    d.Nombre = c.opcion(QStringLiteral("nombre"));
    d.NIF = c.opcion(QStringLiteral("nif"));
    d.Domicilio = c.opcion(QStringLiteral("domicilio"));
    d.Numero = c.opcion(QStringLiteral("numero"));
    d.Ciudad = c.opcion(QStringLiteral("ciudad"));
    d.CPostal = c.opcion(QStringLiteral("cpostal"));
    d.Provincia = c.opcion(QStringLiteral("provincia"));
    const QString fecha = c.opcion(QStringLiteral("fecha-inicio"));
    if (fecha.isEmpty()) {
        d.FechaIni = QDate(QDate::currentDate().year(), 1, 1);
    } else {
        const QString valida = ValidarFecha(fecha, c.dialogo);
        if (valida.isEmpty())
            return 1;
        d.FechaIni = FechaDeTexto(valida);
    }
    d.EmpresaOrigen = c.opcion(QStringLiteral("de"));
    if (!d.EmpresaOrigen.isEmpty() && !d.EmpresaOrigen.startsWith(QLatin1String("Emp")))
        d.EmpresaOrigen = QStringLiteral("Emp") + d.EmpresaOrigen;
    const QStringList copiar =
        c.opcion(QStringLiteral("copiar")).split(QLatin1Char(','), Qt::SkipEmptyParts);
    static const QStringList validas{"conceptos",  "periodicos", "predisenados",
                                     "inventario", "sectores",   "vencimientos"};
    for (const QString& t : copiar)
        if (!validas.contains(t.trimmed()))
            throw Rechazo(QStringLiteral("No se puede copiar '%1'. Elija entre: %2.")
                              .arg(t, validas.join(QStringLiteral(", "))));
    if (!copiar.isEmpty() && d.EmpresaOrigen.isEmpty())
        throw Rechazo(QStringLiteral("Para copiar tablas indique la empresa de origen con --de."));
    d.CopiarConceptos = copiar.contains(QStringLiteral("conceptos"));
    d.CopiarPeriodicos = copiar.contains(QStringLiteral("periodicos"));
    d.CopiarPredisenados = copiar.contains(QStringLiteral("predisenados"));
    d.CopiarInventario = copiar.contains(QStringLiteral("inventario"));
    d.CopiarSectores = copiar.contains(QStringLiteral("sectores"));
    d.CopiarVencimientos = copiar.contains(QStringLiteral("vencimientos"));
    CrearEmpresa(c.sesion, c.ajustes, d);
    c.salida << c.sesion.EmpresaActual << '\t' << d.Nombre.trimmed() << '\t' << c.sesion.AnoActual
             << '\n';
    return 0;
}

int reparar(ContextoCli& c) {
    const QString carpeta = c.posicionales.value(0);
    ActEjercicios(c.sesion, carpeta, c.dialogo);
    c.dialogo.Informar(QStringLiteral("Proceso terminado."));
    return 0;
}

const AltaVerbo altaEmpresas{
    {QStringLiteral("empresas"),
     QStringLiteral("lista las empresas y sus ejercicios"),
     QStringLiteral("Uso: quilmar-cli empresas\n\nLista las empresas de la instalación con sus "
                    "ejercicios: Código, Empresa y Año, separados por tabuladores."),
     {},
     empresas}};

const AltaVerbo altaCrear{
    {QStringLiteral("crear-empresa"),
     QStringLiteral("crea una empresa nueva"),
     QStringLiteral(
         "Uso: quilmar-cli crear-empresa --codigo NNN --nombre TEXTO [--nif NIF]\n"
         "        [--domicilio TEXTO] [--numero N] [--ciudad TEXTO] [--cpostal CP]\n"
         "        [--provincia TEXTO] [--fecha-inicio dd/mm/aaaa]\n"
         "        [--de EmpNNN --copiar conceptos,periodicos,predisenados,inventario,sectores,"
         "vencimientos]\n\n"
         "Crea la empresa con el plan de cuentas genérico o, con --de, con las cuentas de otra\n"
         "empresa (y las tablas indicadas en --copiar). El código 100 está reservado a la\n"
         "empresa 'De Pruebas'. Muestra la carpeta, el nombre y el ejercicio creados."),
     {},
     crearEmpresa}};

const AltaVerbo altaReparar{
    {QStringLiteral("reparar"),
     QStringLiteral("rehace la lista de ejercicios de las empresas"),
     QStringLiteral(
         "Uso: quilmar-cli reparar [EmpNNN]\n\nComprueba y actualiza los datos que se "
         "tienen de la empresa indicada o, sin ella, de todas las empresas creadas en "
         "la carpeta del programa (Selan.dat a partir de sus bases de datos; en un servidor, "
         "las listas a partir de sus esquemas)."),
     {},
     reparar}};

} // namespace
