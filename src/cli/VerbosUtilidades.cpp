// Verbs of the utilities: reminders, backup, restore and compaction.

#include "cli/Cli.h"
#include "cli/SalidaLibro.h"
#include "platform/Ajustes.h"
#include "platform/Almacen.h"
#include "platform/Dialogo.h"
#include "platform/Errores.h"
#include "store/Conexiones.h"
#include "store/Formato.h"
#include "store/Sesion.h"
#include "utilities/Avisos.h"
#include "utilities/CalendarioAvisos.h"
#include "utilities/Compactar.h"
#include "utilities/Copias.h"
#include "utilities/ListadoAvisos.h"

#include <cstdio>

namespace {

QDate hoyDe(ContextoCli& c) {
    return FechaOpcion(c, QStringLiteral("hoy"), QDate::currentDate());
}

QString corta(const QDate& f) {
    return FormatoFecha(f, QStringLiteral("short date"));
}

long numeroAviso(const QString& texto, const QString& uso) {
    bool ok = false;
    const long n = texto.trimmed().toLong(&ok);
    if (!ok || n <= 0)
        throw Rechazo(QStringLiteral("Indique el número del aviso: %1").arg(uso));
    return n;
}

// Progress of long work on standard error, one line per step.
Progreso progresoCli(const char* que) {
    return [que](qint64 hecho, qint64 total) {
        std::fprintf(stderr, "%s: %lld de %lld\n", que, static_cast<long long>(hecho),
                     static_cast<long long>(total));
        std::fflush(stderr);
    };
}

int avisos(ContextoCli& c) {
    const QDate hoy = hoyDe(c);
    Sesion& s = c.sesion;
    if (c.bandera(QStringLiteral("pendientes"))) {
        QList<QStringList> filas{{QStringLiteral("NAviso"), QStringLiteral("Fecha"),
                                  QStringLiteral("Texto"), QStringLiteral("Periodo")}};
        for (const Aviso& a : AvisosPendientes(s, c.ajustes, hoy))
            filas << QStringList{QString::number(a.NAviso), corta(a.Fecha), a.Texto,
                                 a.Periodo > 0 ? QString::number(a.Periodo) : QString()};
        ImprimirFilas(c.salida, filas);
        return 0;
    }
    // As the reminders' screen opens: past reminders go first when ElimAuto says so.
    EliminarAvisosVencidos(s, c.ajustes, hoy);
    Rejilla r = RejillaAvisos();
    {
        Conexion bavis = AbrirAvisos(s);
        LlenarRejillaAvisos(LeerAvisos(bavis), r);
    }
    r.OcultarColumna(ColAvNAviso, false);
    const OpcionesLibro op = OpcionesListaAvisos(c.ajustes, hoy);
    Rejilla impresa = r;
    LibroCli libro;
    libro.titulo = TituloListaAvisos;
    libro.rejilla = [&] {
        return r;
    };
    libro.dibujo = DibujoListaAvisos(impresa, op);
    return SalidaLibroCli(c, libro);
}

DatosAviso datosDe(ContextoCli& c, const std::optional<Aviso>& antes) {
    DatosAviso d;
    if (antes) {
        d.Fecha = antes->Fecha;
        d.Texto = antes->Texto;
        d.Periodico = antes->Periodo > 0;
        d.Periodo = QString::number(antes->Periodo);
    }
    if (c.tiene(QStringLiteral("fecha")))
        d.Fecha = FechaOpcion(c, QStringLiteral("fecha"), QDate());
    if (c.tiene(QStringLiteral("texto")))
        d.Texto = c.opcion(QStringLiteral("texto"));
    if (c.tiene(QStringLiteral("periodo"))) {
        d.Periodo = c.opcion(QStringLiteral("periodo"));
        // 0 makes it a one-off again.
        d.Periodico = d.Periodo.trimmed() != QLatin1String("0");
    }
    return d;
}

int avisoAnadir(ContextoCli& c) {
    const QDate hoy = hoyDe(c);
    const long n = GuardarAviso(c.sesion, c.dialogo, datosDe(c, std::nullopt), true, 0, hoy);
    if (n == 0)
        return 1;
    c.salida << QStringLiteral("Se añadió el Aviso número %1.\n").arg(n);
    return 0;
}

int avisoModificar(ContextoCli& c) {
    const long n = numeroAviso(c.posicionales.value(0),
                               QStringLiteral("quilmar-cli aviso-modificar N [--fecha F] "
                                              "[--texto T] [--periodo P]"));
    const QDate hoy = hoyDe(c);
    std::optional<Aviso> antes;
    {
        Conexion bavis = AbrirAvisos(c.sesion);
        antes = LeerAviso(bavis, n);
    }
    if (!antes) {
        c.dialogo.Informar(MsgAvisoNoEncontrado);
        return 1;
    }
    if (GuardarAviso(c.sesion, c.dialogo, datosDe(c, antes), false, n, hoy) == 0)
        return 1;
    c.salida << QStringLiteral("Se modificó el Aviso número %1.\n").arg(n);
    return 0;
}

int avisoEliminar(ContextoCli& c) {
    const long n =
        numeroAviso(c.posicionales.value(0), QStringLiteral("quilmar-cli aviso-eliminar N --si"));
    if (!EliminarAvisoPreguntando(c.sesion, c.dialogo, n))
        return 1;
    c.salida << QStringLiteral("Se eliminó el Aviso número %1.\n").arg(n);
    return 0;
}

int avisosOpciones(ContextoCli& c) {
    const QString valores = QStringLiteral("Valores");
    const QString dias = c.tiene(QStringLiteral("dias")) ? c.opcion(QStringLiteral("dias"))
                                                         : QString::number(DiasAviso(c.ajustes));
    QString elim = c.tiene(QStringLiteral("eliminar-vencidos"))
                       ? c.opcion(QStringLiteral("eliminar-vencidos"))
                       : c.ajustes.leer(valores, QStringLiteral("ElimAuto"));
    elim = elim.trimmed().toUpper();
    if (elim != QLatin1String("SI") && elim != QLatin1String("NO"))
        throw Rechazo(QStringLiteral("--eliminar-vencidos admite SI o NO."));
    if (!GuardarOpcionesAvisos(c.ajustes, c.dialogo, dias, elim == QLatin1String("SI")))
        return 1;
    c.salida << QStringLiteral("DiasAv\t%1\nElimAuto\t%2\n")
                    .arg(c.ajustes.leer(valores, QStringLiteral("DiasAv")),
                         c.ajustes.leer(valores, QStringLiteral("ElimAuto")));
    return 0;
}

int calendarioAvisos(ContextoCli& c) {
    const QDate hoy = hoyDe(c);
    int mes = hoy.month(), ano = hoy.year();
    if (c.tiene(QStringLiteral("mes"))) {
        const QString t = c.opcion(QStringLiteral("mes")).trimmed();
        const QDate f = QDate::fromString(QStringLiteral("01/") + t, QStringLiteral("dd/M/yyyy"));
        if (!f.isValid())
            throw Rechazo(QStringLiteral("Indique el mes como MM/AAAA: --mes 03/2026"));
        mes = f.month();
        ano = f.year();
    }
    EliminarAvisosVencidos(c.sesion, c.ajustes, hoy);
    QList<Aviso> lista;
    {
        Conexion bavis = AbrirAvisos(c.sesion);
        lista = LeerAvisos(bavis);
    }
    const MesCalendario celdas = LlenarCalendario(lista, ano, mes, hoy);
    c.salida << NombresMeses().at(mes - 1) << ' ' << ano << '\n'
             << NombresDias().join(QLatin1Char('\t')) << '\n';
    for (int semana = 0; semana < 6; ++semana) {
        QStringList fila;
        for (int d = 0; d < 7; ++d) {
            const CeldaCalendario& k = celdas[static_cast<size_t>(semana * 7 + d)];
            fila << (k.dia.isValid() ? QString::number(k.dia.day()) +
                                           (k.marca ? QStringLiteral("*") : QString())
                                     : QString());
        }
        c.salida << fila.join(QLatin1Char('\t')) << '\n';
    }
    for (const CeldaCalendario& k : celdas)
        if (k.marca)
            for (const Aviso& a : AvisosDelDia(lista, k.dia, hoy))
                c.salida << corta(k.dia) << '\t' << a.Texto << '\n';
    return 0;
}

int copiaSeguridad(ContextoCli& c) {
    const bool todas = c.bandera(QStringLiteral("todas"));
    if (!c.tiene(QStringLiteral("carpeta")))
        throw Rechazo(MsgCopiaSinCarpeta);
    if (!todas)
        c.abrirEmpresa();
    return HacerCopiaSeguridad(c.sesion, c.ajustes, c.dialogo, c.opcion(QStringLiteral("carpeta")),
                               todas ? AlcanceCopia::Todas : AlcanceCopia::EmpresaAbierta,
                               progresoCli("Copiando"))
               ? 0
               : 1;
}

int restaurar(ContextoCli& c) {
    return RestaurarCopia(c.sesion, c.dialogo, c.opcion(QStringLiteral("carpeta")),
                          progresoCli("Restaurando"))
               ? 0
               : 1;
}

int compactar(ContextoCli& c) {
    c.abrirEmpresa();
    return CompactarBasesDatos(c.sesion, c.dialogo, progresoCli("Compactando")) ? 0 : 1;
}

const AltaVerbo altas[]{
    AltaVerbo{{QStringLiteral("avisos"),
               QStringLiteral("los avisos: lista, o los que se mostrarían al arrancar"),
               QStringLiteral(
                   "Uso: quilmar-cli avisos [--hoy FECHA] [--formato txt|csv|xlsx|pdf] "
                   "[--salida FICHERO]\n"
                   "     quilmar-cli avisos --pendientes [--hoy FECHA]\n\n"
                   "Sin opciones, la lista por fechas: Fecha, Texto, Periodo (veces al año) y "
                   "NAviso. Como\nal abrir la pantalla de avisos, si está puesto eliminar "
                   "automáticamente los vencidos\n(ElimAuto SI, lo normal), antes se eliminan los "
                   "avisos de fecha anterior a hoy.\n"
                   "--pendientes muestra los avisos que saldrían al arrancar el programa (desde "
                   "DiasAv días\nantes de su fecha hasta ese día), contando el paso adelante de "
                   "los periódicos atrasados,\nsin cambiar nada. --hoy sustituye la fecha de "
                   "hoy.\n\n") +
                   AyudaSalidaLibro,
               {QStringLiteral("pendientes")},
               avisos}},
    AltaVerbo{{QStringLiteral("aviso-anadir"),
               QStringLiteral("añade un aviso"),
               QStringLiteral("Uso: quilmar-cli aviso-anadir --fecha FECHA --texto TEXTO "
                              "[--periodo N] [--hoy FECHA]\n\n"
                              "N es el número de veces al año que se repite (1 anual, 12 "
                              "mensual); sin él, el aviso\nes de una vez. La fecha no puede ser "
                              "anterior a hoy."),
               {},
               avisoAnadir}},
    AltaVerbo{{QStringLiteral("aviso-modificar"),
               QStringLiteral("cambia un aviso"),
               QStringLiteral("Uso: quilmar-cli aviso-modificar N [--fecha FECHA] [--texto TEXTO] "
                              "[--periodo P] [--hoy FECHA]\n\n"
                              "Cambia lo indicado del aviso número N; --periodo 0 lo deja de una "
                              "sola vez."),
               {},
               avisoModificar}},
    AltaVerbo{{QStringLiteral("aviso-eliminar"),
               QStringLiteral("elimina un aviso"),
               QStringLiteral("Uso: quilmar-cli aviso-eliminar N --si"),
               {},
               avisoEliminar}},
    AltaVerbo{{QStringLiteral("avisos-opciones"),
               QStringLiteral("días de antelación de los avisos y eliminación de los vencidos"),
               QStringLiteral("Uso: quilmar-cli avisos-opciones [--dias N] "
                              "[--eliminar-vencidos SI|NO] [--si]\n\n"
                              "Los avisos salen desde N días antes de su fecha (7 si no se ha "
                              "indicado); más de 30\npide confirmación. Sin opciones muestra los "
                              "valores."),
               {},
               avisosOpciones}},
    AltaVerbo{{QStringLiteral("calendario-avisos"),
               QStringLiteral("el calendario de un mes con los días de aviso marcados"),
               QStringLiteral("Uso: quilmar-cli calendario-avisos [--mes MM/AAAA] [--hoy FECHA]\n\n"
                              "Seis semanas de lunes a domingo; un * señala los días con aviso, "
                              "cuyos textos\nsiguen debajo."),
               {},
               calendarioAvisos}},
    AltaVerbo{{QStringLiteral("copia-seguridad"),
               QStringLiteral("copia de seguridad de la empresa o de todas"),
               QStringLiteral(
                   "Uso: quilmar-cli copia-seguridad --carpeta CARPETA [--todas] --si\n\n"
                   "Copia Bavis.db y la carpeta de la empresa (--empresa, o la última elegida), o "
                   "las de\ntodas con --todas, dentro de CARPETA, que no puede ser la del "
                   "programa. Cada empresa se\ncopia aparte y sustituye a su copia anterior solo "
                   "cuando está completa."),
               {QStringLiteral("todas")},
               copiaSeguridad}},
    AltaVerbo{{QStringLiteral("restaurar"),
               QStringLiteral("restaura una empresa desde una copia de seguridad"),
               QStringLiteral(
                   "Uso: quilmar-cli restaurar --carpeta CARPETA/EmpNNN --si\n\n"
                   "Comprueba la copia entera y, si está sana, sustituye la empresa por ella (y "
                   "Bavis.db por\nel de CARPETA, si lo hay). Se rechaza mientras la empresa está "
                   "abierta en otro puesto."),
               {},
               restaurar}},
    AltaVerbo{{QStringLiteral("compactar"),
               QStringLiteral("compacta las bases de datos de la empresa"),
               QStringLiteral(
                   "Uso: quilmar-cli compactar --si\n\n"
                   "Guarda una copia del ejercicio, Bavar.db y Bavis.db en la carpeta Copbas y "
                   "compacta\ncada una. Se rechaza mientras la empresa está abierta en otro "
                   "puesto."),
               {},
               compactar}},
};

} // namespace
