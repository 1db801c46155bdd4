#include "cli/SalidaLibro.h"

#include "cli/Cli.h"
#include "platform/Ajustes.h"
#include "platform/Dialogo.h"
#include "platform/Errores.h"
#include "platform/ExportarRejilla.h"
#include "platform/ImpresoraPintor.h"
#include "platform/Rejilla.h"
#include "store/Rutinas.h"

const QString AyudaSalidaLibro = QStringLiteral(
    "Salida:\n"
    "  --formato txt|csv|xlsx|pdf  txt, csv y xlsx son la lista de la pantalla; pdf es el libro\n"
    "                              impreso, las mismas páginas que recibe la impresora\n"
    "                              (txt por defecto)\n"
    "  --salida FICHERO            fichero de salida (txt y csv van a la salida estándar si no\n"
    "                              se indica; xlsx y pdf lo necesitan)\n"
    "  --copias N                  copias del libro impreso (pdf)\n"
    "Opciones de impresión (por defecto las guardadas para este libro):\n"
    "  --margen MM                 margen izquierdo en milímetros (vacío: 0)\n"
    "  --fuente F                  fuente (vacía: Courier New)\n"
    "  --tamano T                  tamaño de la fuente (vacío: 9)\n"
    "  --fecha-trabajo FECHA       fecha de la cabecera (por defecto hoy)\n");

OpcionesLibro OpcionesImpresionCli(ContextoCli& c, const ConfigOpciones& config) {
    CajasOpciones cajas = CajasIniciales(config, c.ajustes);
    if (c.tiene(QStringLiteral("margen")))
        cajas.margen = c.opcion(QStringLiteral("margen"));
    if (c.tiene(QStringLiteral("fuente")))
        cajas.fuente = c.opcion(QStringLiteral("fuente"));
    if (c.tiene(QStringLiteral("tamano")))
        cajas.tamano = c.opcion(QStringLiteral("tamano"));
    if (config.paginaInicial)
        cajas.paginaInicial = c.opcion(QStringLiteral("pagina-inicial"));
    const QString margen = cajas.margen.trimmed();
    for (const QChar ch : margen)
        if (!ch.isDigit())
            throw Rechazo(QStringLiteral("El margen se indica en milímetros, sólo con cifras."));
    for (const QChar ch : cajas.paginaInicial.trimmed())
        if (!ch.isDigit())
            throw Rechazo(QStringLiteral("La página inicial se indica sólo con cifras."));
    const QString fecha = c.opcion(QStringLiteral("fecha-trabajo"));
    if (!fecha.isEmpty()) {
        const QString valida = ValidarFecha(fecha, c.dialogo);
        if (valida.isEmpty())
            throw Rechazo(QStringLiteral("La fecha de trabajo no es válida."));
        cajas.fechaTrabajo = FechaDeTexto(valida);
    }
    OpcionesLibro op;
    AceptarOpciones(config, cajas, c.ajustes, op, false);
    return op;
}

QDate FechaOpcion(ContextoCli& c, const QString& nombre, const QDate& defecto) {
    const QString texto = c.opcion(nombre);
    if (texto.isEmpty())
        return defecto;
    const QString valida = ValidarFecha(texto, c.dialogo);
    if (valida.isEmpty())
        throw Rechazo(QStringLiteral("La fecha de --%1 no es válida.").arg(nombre));
    return FechaDeTexto(valida);
}

int SalidaLibroCli(ContextoCli& c, const LibroCli& libro) {
    const QString nombre = c.opcion(QStringLiteral("formato"), QStringLiteral("txt")).toLower();
    const QString salida = c.opcion(QStringLiteral("salida"));
    if (nombre == QLatin1String("pdf")) {
        if (salida.isEmpty())
            throw Rechazo(QStringLiteral("Indique el fichero PDF con --salida FICHERO."));
        bool ok = true;
        const int copias = c.opcion(QStringLiteral("copias"), QStringLiteral("1")).toInt(&ok);
        if (!ok || copias < 1)
            throw Rechazo(QStringLiteral("El número de copias no es válido."));
        OpcionesPdf op;
        op.titulo = libro.titulo;
        op.copias = copias;
        op.orientacion = libro.orientacion;
        if (ImprimirPdf(salida, libro.dibujo, op) == 0)
            c.dialogo.Informar(
                QStringLiteral("No hay nada que imprimir: no se ha creado %1.").arg(salida));
        return 0;
    }
    const auto formato = FormatoExportacionDeNombre(nombre);
    if (!formato)
        throw Rechazo(
            QStringLiteral("Formato desconocido: %1. Elija txt, csv, xlsx o pdf.").arg(nombre));
    const Rejilla r = libro.rejilla();
    if (salida.isEmpty()) {
        if (*formato == FormatoExportacion::Xlsx)
            throw Rechazo(QStringLiteral("Indique el fichero xlsx con --salida FICHERO."));
        EscribirDelimitado(r, c.salida, *formato == FormatoExportacion::Csv ? u';' : u'\t');
        return 0;
    }
    ExportarRejilla(r, salida, *formato);
    return 0;
}
