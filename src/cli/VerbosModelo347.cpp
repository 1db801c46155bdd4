// The annual declaration of third parties, Modelo 347, from the command line: the parties and
// rented properties with the summary as a list or our draft, and the file for the tax
// authority, with the same gathering, field rules and checks as the screens.

#include "cli/Cli.h"
#include "cli/SalidaLibro.h"
#include "platform/Ajustes.h"
#include "platform/Almacen.h"
#include "platform/Dialogo.h"
#include "platform/Errores.h"
#include "platform/Rejilla.h"
#include "store/Conexiones.h"
#include "store/Sesion.h"
#include "tax/Campos347.h"
#include "tax/Fichero347.h"
#include "tax/Listado347.h"

#include <QFile>
#include <algorithm>

namespace {

// Options of the summary sheet, by the field they fill.
const QList<std::pair<const char*, const char*>> OpcionesResumen{
    {"nif", "NIF"},
    {"nombre", "Nombre"},
    {"telefono", "Telefono"},
    {"contacto", "Contacto"},
    {"representante", "Representante"}};

// The file of properties: a first line naming the columns (fields of the property sheet), then
// one property per line, tab-separated, UTF-8.
QList<Inmueble347> LeerInmuebles(const QString& ruta) {
    QFile f(ruta);
    if (!f.open(QIODevice::ReadOnly | QIODevice::Text))
        throw Rechazo(QStringLiteral("No se puede leer el fichero de inmuebles %1.").arg(ruta));
    const QStringList lineas = QString::fromUtf8(f.readAll()).split(u'\n');
    QStringList columnas;
    QList<Inmueble347> r;
    for (int n = 0; n < lineas.size(); ++n) {
        QString linea = lineas.at(n);
        if (linea.endsWith(u'\r'))
            linea.chop(1);
        if (linea.trimmed().isEmpty())
            continue;
        const QStringList celdas = linea.split(u'\t');
        if (columnas.isEmpty()) {
            QStringList nombres;
            for (const Campo347& c : Campos347(Hoja347::Inmuebles))
                nombres << c.nombre;
            for (const QString& celda : celdas) {
                const QString nombre = celda.trimmed();
                if (!nombres.contains(nombre))
                    throw Rechazo(QStringLiteral("La columna «%1» del fichero de inmuebles no es "
                                                 "ninguna de: %2.")
                                      .arg(nombre, nombres.join(QStringLiteral(", "))));
                columnas << nombre;
            }
            continue;
        }
        Inmueble347 i;
        try {
            for (int c = 0; c < celdas.size() && c < columnas.size(); ++c)
                PonerInmueble347(i, columnas.at(c), celdas.at(c));
        } catch (const Rechazo& e) {
            throw Rechazo(QStringLiteral("Línea %1 del fichero de inmuebles: %2")
                              .arg(n + 1)
                              .arg(e.mensaje()));
        }
        r.append(i);
    }
    return r;
}

int modelo347(ContextoCli& c) {
    c.abrirEmpresa();
    Sesion& s = c.sesion;
    const QDate desde = FechaOpcion(c, QStringLiteral("desde"), s.FechaIniEj);
    const QDate hasta = FechaOpcion(c, QStringLiteral("hasta"), s.FechaFinEj);
    const QString textoLimite =
        c.tiene(QStringLiteral("limite"))
            ? c.opcion(QStringLiteral("limite"))
            : c.ajustes.leer(QStringLiteral("Datos"), QStringLiteral("Lim347"), LimiteDefecto347);
    double limite = 0;
    if (const auto msg = ComprobarPeriodo347(desde, hasta, textoLimite, limite))
        throw Rechazo(*msg);

    Modelo347 m;
    {
        Conexion con = AbrirDatos(s);
        m = Nuevo347(con, desde, hasta, limite);
    }
    QList<int> quitar;
    for (const QString& q : c.opciones(QStringLiteral("quitar"))) {
        bool ok = false;
        const int n = q.trimmed().toInt(&ok);
        if (!ok || n < 1 || n > m.declarados.size())
            throw Rechazo(QStringLiteral("No existe el declarado %1.").arg(q.trimmed()));
        quitar << n - 1;
    }
    std::sort(quitar.begin(), quitar.end());
    quitar.erase(std::unique(quitar.begin(), quitar.end()), quitar.end());
    for (auto it = quitar.crbegin(); it != quitar.crend(); ++it)
        m.declarados.removeAt(*it);

    for (const auto& [opcion, campo] : OpcionesResumen)
        if (c.tiene(QString::fromLatin1(opcion)))
            PonerCampo347(m, Hoja347::Resumen, -1, QString::fromLatin1(campo),
                          c.opcion(QString::fromLatin1(opcion)));
    for (const auto& [opcion, marca] : QList<std::pair<const char*, bool Modelo347::*>>{
             {"complementaria", &Modelo347::complementaria},
             {"modificacion", &Modelo347::modificacion},
             {"sustitutiva", &Modelo347::sustitutiva}}) {
        if (!c.tiene(QString::fromLatin1(opcion)))
            continue;
        m.*marca = true;
        PonerCampo347(m, Hoja347::Resumen, -1, QStringLiteral("Justificante"),
                      c.opcion(QString::fromLatin1(opcion)));
    }
    if (c.tiene(QStringLiteral("inmuebles")))
        m.inmuebles = LeerInmuebles(c.opcion(QStringLiteral("inmuebles")));
    // What the summary sheet would say of these lists.
    m.numDeclarados = QString::number(m.declarados.size());
    m.totalDeclarados = SumaDeclarados(m);
    m.numInmuebles = QString::number(m.inmuebles.size());
    m.totalInmuebles = SumaInmuebles(m);

    if (c.tiene(QStringLiteral("fichero"))) {
        const QString carpeta = c.opcion(QStringLiteral("fichero"));
        Plataforma347 p;
        p.elegirCarpeta = [carpeta] {
            return carpeta;
        };
        ResultadoEntrega r = ResultadoEntrega::Cancelado;
        if (Presentar347(s, c.ajustes, m, 1, c.dialogo, p, &r))
            return 1;
        return r == ResultadoEntrega::Copiado ? 0 : 1;
    }

    LibroCli libro;
    libro.titulo = QStringLiteral("Modelo 347");
    libro.orientacion = QPageLayout::Landscape;
    libro.rejilla = [&m] {
        return Rejilla347(m);
    };
    const QString fuente = c.ajustes.leer(QStringLiteral("Valores"), QStringLiteral("NFImprimir"),
                                          QStringLiteral("Arial"));
    const double tamano =
        c.ajustes.leerNumero(QStringLiteral("Valores"), QStringLiteral("TFImprimir"), 9);
    libro.dibujo = [&m, fuente, tamano](Impresora& imp, int) {
        DibujarBorrador347(imp, m, fuente, tamano);
    };
    return SalidaLibroCli(c, libro);
}

QString AyudaInmuebles() {
    QStringList nombres;
    for (const Campo347& c : Campos347(Hoja347::Inmuebles))
        nombres << c.nombre;
    return nombres.join(QStringLiteral(", "));
}

const AltaVerbo alta347{
    {QStringLiteral("modelo347"),
     QStringLiteral("declaración anual de operaciones con terceros, modelo 347: lista, borrador y "
                    "archivo"),
     QStringLiteral(
         "Uso: quilmar-cli modelo347 [--desde FECHA --hasta FECHA] [--limite IMPORTE]\n"
         "        [--quitar N ...] [--nif N] [--nombre N] [--telefono T] [--contacto C]\n"
         "        [--representante NIF] [--complementaria NUM | --modificacion NUM |\n"
         "        --sustitutiva NUM] [--inmuebles FICHERO]\n"
         "        [--formato txt|csv|xlsx|pdf --salida FICHERO | --fichero CARPETA]\n\n"
         "Los declarados son los clientes y proveedores cuyas operaciones del periodo (base más\n"
         "cuota de sus registros de IVA) superan el límite.\n"
         "  --desde, --hasta       periodo (por defecto el ejercicio)\n"
         "  --limite IMPORTE       límite de operaciones (por defecto el guardado en la "
         "configuración,\n"
         "                         3.005,06 si no hay ninguno; no se guarda)\n"
         "  --quitar N             quita el declarado N de la lista (1 el primero)\n"
         "Lo que en la pantalla se teclearía en la hoja resumen va en opciones (el NIF y el\n"
         "nombre, por defecto los de la empresa):\n"
         "  --nif, --nombre, --telefono, --contacto (persona de contacto), --representante\n"
         "  --complementaria NUM, --modificacion NUM, --sustitutiva NUM   tipo de declaración y\n"
         "                         número de la declaración anterior\n"
         "Los inmuebles arrendados van en un fichero de texto UTF-8 separado por tabuladores,\n"
         "cuya primera línea nombra las columnas de entre:\n  ") +
         AyudaInmuebles() +
         QStringLiteral(
             "\n"
             "  --inmuebles FICHERO    el fichero de inmuebles\n"
             "El resumen (número e importe de declarados e inmuebles) es el de las listas.\n"
             "Salida: sin --fichero, la lista (txt, csv, xlsx) o el borrador impreso (pdf):\n"
             "  --formato txt|csv|xlsx|pdf  (txt por defecto)\n"
             "  --salida FICHERO       (txt y csv van a la salida estándar si no se indica)\n"
             "  --fichero CARPETA      comprueba la declaración, genera Gen347.txt y lo copia en\n"
             "                         CARPETA como 347-<NIF>.txt; si una comprobación falla,\n"
             "                         muestra su mensaje y termina con código 1\n"),
     {},
     modelo347}};

} // namespace
