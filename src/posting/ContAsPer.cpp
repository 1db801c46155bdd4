#include "posting/ContAsPer.h"

#include "journal/EjercicioAbierto.h"
#include "platform/Almacen.h"
#include "platform/Dialogo.h"
#include "posting/Contabilizar.h"
#include "posting/EstadoTablero.h"
#include "posting/RejillaAsiento.h"
#include "store/Conexiones.h"
#include "store/Formato.h"
#include "store/Rutinas.h"
#include "store/Sesion.h"

const QString MsgDocumentoPeriodico =
    QStringLiteral("Por favor introduzca el número del Documento, si lo desea.");
const QString MotivoIva = QStringLiteral("tiene líneas de IVA: hay que contabilizarlo en pantalla");
const QString MotivoFueraEjercicio = QStringLiteral("la fecha no pertenece al año de trabajo");
const QString MotivoNoContabilizado = QStringLiteral("no se pudo contabilizar");

namespace {

QString fechaCorta(const QDate& f) {
    return FormatoFecha(f, QStringLiteral("short date"));
}

// "C&ontabilizar todos": the posting screen's press, straight away. The number, or 0.
long contabilizarYa(Sesion& s, Dialogo& d, EstadoTablero& tablero, const AsientoPeriodico& a) {
    Contabilizar k(s, d, tablero);
    k.AplicarOrigen(QStringLiteral("F61"));
    CamposForm4 campos;
    {
        Conexion c = AbrirDatos(s);
        campos = CargarPeriodicoEnForm4(k.Rejilla, c, a);
    }
    // The fields are those of the last line, so the press finds nothing to change and posts.
    const ResultadoAceptar r = k.Aceptar(campos);
    return r.tipo == ResultadoAceptar::Tipo::Contabilizado ? r.numero : 0;
}

} // namespace

CamposForm4 CargarPeriodicoEnForm4(RejillaAsiento& r, Conexion& datos, const AsientoPeriodico& a) {
    r.vaciar();
    const QString fecha = fechaCorta(a.FechaProx);
    CamposForm4 campos;
    campos.Fecha = fecha;
    campos.Sector = a.Sector.trimmed();
    for (const LineaPeriodico& l : a.Lineas) {
        const int f = r.anadirFila();
        const QVariant nombre = datos.escalar(
            QStringLiteral("SELECT Cuenta FROM Cuentas WHERE NCuenta = ?"), {l.NCuenta.trimmed()});
        r.fijar(f, ColF4::Fecha, fecha);
        r.fijar(f, ColF4::Cuenta, nombre.toString().trimmed());
        r.fijar(f, ColF4::Concepto, l.Concepto.trimmed());
        if (l.Debe > 0)
            r.fijarImporte(f, ColF4::Debe, l.Debe);
        if (l.Haber > 0)
            r.fijarImporte(f, ColF4::Haber, l.Haber);
        r.fijar(f, ColF4::NCuenta, l.NCuenta.trimmed());
        r.fijar(f, ColF4::Documento, l.Documento);
        r.fijar(f, ColF4::Venc, QStringLiteral("..."));
        campos.Concepto = l.Concepto.trimmed();
        campos.Importe = Formato(l.Debe == 0 ? l.Haber : l.Debe, QStringLiteral("standard"));
        campos.Documento = l.Documento;
    }
    return campos;
}

bool TieneLineasIva(const AsientoPeriodico& a) {
    for (const LineaPeriodico& l : a.Lineas)
        if (EsLineaIva(l.NCuenta))
            return true;
    return false;
}

QList<QDate> FechasPendientes(const AsientoPeriodico& a, const QDate& hoy,
                              const QDate& finEjercicio) {
    QList<QDate> r;
    AsientoPeriodico x = a;
    while (VencePeriodico(x, hoy, finEjercicio)) {
        r << x.FechaProx;
        const QDate siguiente = AvanzarFechaProx(x.FechaIni, x.FechaProx, x.Periodicidad);
        if (siguiente <= x.FechaProx)
            break;
        x.FechaProx = siguiente;
    }
    return r;
}

ResultadoContAsPer ContAsPer(Sesion& s, Dialogo& d, EstadoTablero& tablero,
                             PantallasPeriodicos& pantallas, const QDate& hoy) {
    ResultadoContAsPer resultado;
    try {
        QStringList nombres;
        {
            Conexion c = AbrirBavar(s);
            nombres = NombresPeriodicos(c);
        }
        for (const QString& nombre : nombres) {
            // Raised by "all": the later dates of this entry are posted without asking.
            bool todos = false;
            // The same entry again while a date stays due: each date missed is its own posting.
            for (;;) {
                std::optional<AsientoPeriodico> a;
                {
                    Conexion c = AbrirBavar(s);
                    a = LeerPeriodico(c, nombre);
                }
                if (!a || !VencePeriodico(*a, hoy, s.FechaFinEj))
                    break;
                const bool iva = TieneLineasIva(*a);
                const bool dentro = a->FechaProx >= s.FechaIniEj && a->FechaProx <= s.FechaFinEj;
                AccionForm61 accion;
                if (todos) {
                    if (!dentro)
                        break;
                    accion = AccionForm61::ContabilizarTodos;
                } else {
                    accion = pantallas.Confirmar(a->Nombre, a->FechaProx, !iva);
                }
                if (accion == AccionForm61::ContabilizarTodos && iva)
                    accion = AccionForm61::NoContabilizar;

                if (accion == AccionForm61::NoContabilizar)
                    break;
                if (accion == AccionForm61::Eliminar) {
                    EliminarPeriodicoPreguntando(s, d, a->Nombre);
                    break;
                }
                if (!EjercicioAbierto(s, d)) {
                    resultado.Detenido = true;
                    return resultado;
                }
                long numero = 0;
                if (accion == AccionForm61::Contabilizar) {
                    AsientoPeriodico conDocumentos = *a;
                    for (LineaPeriodico& l : conDocumentos.Lineas)
                        if (!l.Documento.trimmed().isEmpty())
                            l.Documento = d.PedirTexto(MsgDocumentoPeriodico, l.Documento);
                    numero = pantallas.ContabilizarEnForm4(conDocumentos);
                } else {
                    if (!dentro) {
                        resultado.Pendientes
                            << PendientePeriodico{a->Nombre, a->FechaProx, MotivoFueraEjercicio};
                        break;
                    }
                    numero = contabilizarYa(s, d, tablero, *a);
                    if (numero == 0)
                        resultado.Pendientes
                            << PendientePeriodico{a->Nombre, a->FechaProx, MotivoNoContabilizado};
                }
                // Nothing posted: FechaProx stays where it was.
                if (numero == 0)
                    break;
                resultado.Contabilizados << PosteoPeriodico{a->Nombre, a->FechaProx, numero};
                std::optional<QDate> nueva;
                {
                    Conexion c = AbrirBavar(s);
                    nueva = MoverFechaProx(c, a->Nombre, a->FechaProx);
                }
                // Moved by someone else meanwhile, or a rhythm that doesn't step: not again.
                if (!nueva)
                    break;
                if (accion == AccionForm61::ContabilizarTodos)
                    todos = true;
            }
        }
    } catch (const ErrorQuilmar& e) {
        d.Informar(e.mensaje());
    }
    return resultado;
}
