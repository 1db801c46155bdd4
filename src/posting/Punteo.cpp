#include "posting/Punteo.h"

#include "journal/Casaciones.h"
#include "platform/Almacen.h"
#include "platform/Dialogo.h"
#include "platform/Errores.h"
#include "store/Conexiones.h"
#include "store/Formato.h"
#include "store/Rutinas.h"
#include "store/Sesion.h"

const QString MsgNoHayInicio = QStringLiteral("No hay Inicio para esta casación.");
const QString MsgAnularCasacion =
    QStringLiteral("Está seguro de que desea anular esta partida de la casación?");
const QString MsgProcesoTerminado = QStringLiteral("Proceso terminado.");
const QString MsgYaEnCasacion =
    QStringLiteral("Este apunte ya pertenece a una casación. Anule antes esa casación.");
const QString MsgSinCasacion = QStringLiteral("Este apunte no pertenece a ninguna casación.");

QString MsgNoSeEncontro(long nas) {
    return QStringLiteral("No se encontró el Asiento nº ") +
           Formato(static_cast<double>(nas), QStringLiteral("#,##0")) + QLatin1Char('.');
}

namespace {

const QString Campos = QStringLiteral("SELECT NAs, NAp, Fecha, NCuenta, Cuenta, Concepto, Debe, "
                                      "Haber, Documento, Punteo, CasacionN, CasacionH FROM "
                                      "ConDiario");
const QString Orden = QStringLiteral(" ORDER BY NAs, NAp");

QList<LineaPunteo> leer(Conexion& c, const QString& donde, const QVariantList& valores) {
    QList<LineaPunteo> r;
    Lector l(c, Campos + donde + Orden, valores);
    while (l.siguiente()) {
        LineaPunteo x;
        x.NAs = static_cast<long>(l.entero(0));
        x.NAp = static_cast<long>(l.entero(1));
        x.Fecha = DeISO(l.texto(2));
        x.NCuenta = l.texto(3).trimmed();
        x.Cuenta = l.texto(4).trimmed();
        x.Concepto = l.texto(5);
        x.Debe = l.real(6);
        x.Haber = l.real(7);
        x.Documento = l.texto(8);
        x.Punteo = l.entero(9) != 0;
        x.CasacionN = static_cast<int>(l.entero(10));
        x.CasacionH = l.real(11);
        r << x;
    }
    return r;
}

// A line joins on the side opposite to its own: a debit line looks for starts with no debit.
QString ladoOpuesto(const LineaPunteo& l) {
    return l.Debe != 0 ? QStringLiteral(" AND Debe = 0") : QStringLiteral(" AND Haber = 0");
}

QString nasNap(const LineaPunteo& l) {
    return QStringLiteral("%1:%2").arg(l.NAs).arg(l.NAp);
}

} // namespace

QString TextoEstadoCasacion(const LineaPunteo& l) {
    if (!l.EnGrupo())
        return {};
    switch (l.CasacionN) {
    case EstadoCasacion::Inicio:
        return QStringLiteral("Inicio");
    case EstadoCasacion::InicioCasado:
        return QStringLiteral("Inicio (casado)");
    case EstadoCasacion::CasadoTotal:
        return QStringLiteral("Casado totalmente");
    default:
        return QStringLiteral("Casado parcialmente");
    }
}

QList<LineaPunteo> LeerLineasPunteo(Conexion& c, const SeleccionPunteo& sel) {
    QString donde = QStringLiteral(" WHERE 1 = 1");
    QVariantList valores;
    if (!sel.ncuenta.trimmed().isEmpty()) {
        donde += QStringLiteral(" AND NCuenta = ?");
        valores << sel.ncuenta.trimmed();
    }
    if (sel.desde.isValid()) {
        donde += QStringLiteral(" AND Fecha >= ?");
        valores << FechaISO(sel.desde);
    }
    if (sel.hasta.isValid()) {
        donde += QStringLiteral(" AND Fecha <= ?");
        valores << FechaISO(sel.hasta);
    }
    switch (sel.vista) {
    case VistaPunteo::Todos:
        break;
    case VistaPunteo::Punteados:
        donde += QStringLiteral(" AND Punteo <> 0");
        break;
    case VistaPunteo::NoPunteados:
        donde += QStringLiteral(" AND Punteo = 0");
        break;
    // An unmarked line also holds CasacionN 0: only lines of a group are matched at all.
    case VistaPunteo::CasadosTotalmente:
        donde += QStringLiteral(" AND CasacionH <> 0 AND (CasacionN = 1 OR CasacionN = 2)");
        break;
    case VistaPunteo::CasadosParcialmente:
        donde += QStringLiteral(" AND CasacionH <> 0 AND (CasacionN = 0 OR CasacionN = 3)");
        break;
    case VistaPunteo::NoCasados:
        donde += QStringLiteral(" AND CasacionH = 0");
        break;
    }
    return leer(c, donde, valores);
}

std::optional<LineaPunteo> LeerLineaPunteo(Conexion& c, long nas, long nap) {
    const QList<LineaPunteo> l = leer(c, QStringLiteral(" WHERE NAs = ? AND NAp = ?"),
                                      {static_cast<qlonglong>(nas), static_cast<qlonglong>(nap)});
    if (l.isEmpty())
        return std::nullopt;
    return l.first();
}

QList<LineaPunteo> LineasCasacion(Conexion& c, double clave) {
    if (clave == 0)
        return {};
    return leer(c, QStringLiteral(" WHERE CasacionH = ? AND CasacionH <> 0"), {clave});
}

QList<LineaPunteo> CandidatosInicio(Conexion& c, const LineaPunteo& linea,
                                    const std::optional<QString>& documento) {
    QString donde = QStringLiteral(" WHERE CasacionN = 0 AND CasacionH <> 0 AND NCuenta = ?") +
                    ladoOpuesto(linea);
    QVariantList valores{linea.NCuenta};
    if (documento) {
        donde += QStringLiteral(" AND Documento = ?");
        valores << documento->trimmed();
    }
    return leer(c, donde, valores);
}

Rejilla RejillaPunteo() {
    return Rejilla({{QStringLiteral("Nº As."), TipoColumna::Entero},
                    {QStringLiteral("NAp"), TipoColumna::Entero},
                    {QStringLiteral("Fecha"), TipoColumna::Fecha},
                    {QStringLiteral("NCuenta")},
                    {QStringLiteral("Cuenta")},
                    {QStringLiteral("Concepto")},
                    {QStringLiteral("Debe"), TipoColumna::Importe},
                    {QStringLiteral("Haber"), TipoColumna::Importe},
                    {QStringLiteral("Documento")},
                    {QStringLiteral("Punteo")},
                    {QStringLiteral("Casación")},
                    {QStringLiteral("Grupo")}});
}

void LlenarRejillaPunteo(const QList<LineaPunteo>& lineas, Rejilla& r) {
    r.Vaciar();
    r.Reservar(int(lineas.size()));
    double debe = 0, haber = 0, debeP = 0, haberP = 0;
    for (const LineaPunteo& l : lineas) {
        r.AgregarFila(QStringList{
            QString::number(l.NAs), QString::number(l.NAp),
            FormatoFecha(l.Fecha, QStringLiteral("short date")), l.NCuenta, l.Cuenta, l.Concepto,
            l.Debe != 0 ? Formato(l.Debe, QStringLiteral("standard")) : QString(),
            l.Haber != 0 ? Formato(l.Haber, QStringLiteral("standard")) : QString(), l.Documento,
            l.Punteo ? QStringLiteral("X") : QString(), TextoEstadoCasacion(l),
            l.EnGrupo() ? TextoClaveCasacion(l.CasacionH) : QString()});
        debe += l.Debe;
        haber += l.Haber;
        if (l.Punteo) {
            debeP += l.Debe;
            haberP += l.Haber;
        }
    }
    r.QuitarTotales();
    r.PonerTotal(QStringLiteral("Debe"), Formato(Centimos(debe), QStringLiteral("standard")));
    r.PonerTotal(QStringLiteral("Haber"), Formato(Centimos(haber), QStringLiteral("standard")));
    r.PonerTotal(QStringLiteral("Punteado Debe"),
                 Formato(Centimos(debeP), QStringLiteral("standard")));
    r.PonerTotal(QStringLiteral("Punteado Haber"),
                 Formato(Centimos(haberP), QStringLiteral("standard")));
}

std::optional<std::pair<long, long>> LeerNasNap(const QString& texto) {
    const QStringList partes = texto.trimmed().split(QLatin1Char(':'));
    if (partes.size() != 2)
        return std::nullopt;
    bool ok1 = false, ok2 = false;
    const long nas = partes.at(0).trimmed().toLong(&ok1);
    const long nap = partes.at(1).trimmed().toLong(&ok2);
    if (!ok1 || !ok2 || nas <= 0 || nap <= 0)
        return std::nullopt;
    return std::make_pair(nas, nap);
}

// ---- The actions ---------------------------------------------------------------------------

Punteo::Punteo(Sesion& s, Dialogo& d) : s_(s), d_(d) {}

// One transaction; a refusal or a store failure is told once the write lock is released, and
// gives nothing.
template <typename F>
auto Punteo::enTransaccion(F hacer) -> std::optional<decltype(hacer(std::declval<Conexion&>()))> {
    QString mensaje;
    try {
        Conexion c = AbrirDatos(s_);
        Transaccion t(c);
        auto r = hacer(c);
        t.confirmar();
        return r;
    } catch (const ErrorQuilmar& e) {
        mensaje = e.mensaje();
    }
    d_.Informar(mensaje);
    return std::nullopt;
}

std::optional<LineaPunteo> Punteo::buscar(Conexion& c, long nas, long nap) {
    std::optional<LineaPunteo> l = LeerLineaPunteo(c, nas, nap);
    if (!l)
        throw Rechazo(MsgNoSeEncontro(nas));
    return l;
}

void Punteo::unir(Conexion& c, const LineaPunteo& linea, const LineaPunteo& inicio) {
    c.ejecutar(QStringLiteral("UPDATE Diario SET CasacionH = ?, CasacionN = ? WHERE NAs = ? AND "
                              "NAp = ?"),
               {inicio.CasacionH, EstadoCasacion::Casado, static_cast<qlonglong>(linea.NAs),
                static_cast<qlonglong>(linea.NAp)});
}

std::optional<LineaPunteo> Punteo::Puntear(long nas, long nap) {
    return enTransaccion([&](Conexion& c) {
        LineaPunteo l = *buscar(c, nas, nap);
        l.Punteo = !l.Punteo;
        c.ejecutar(QStringLiteral("UPDATE Diario SET Punteo = ? WHERE NAs = ? AND NAp = ?"),
                   {l.Punteo ? -1 : 0, static_cast<qlonglong>(nas), static_cast<qlonglong>(nap)});
        return l;
    });
}

bool Punteo::FijarPunteo(const QList<std::pair<long, long>>& lineas, bool punteado) {
    return enTransaccion([&](Conexion& c) {
               for (const auto& [nas, nap] : lineas) {
                   buscar(c, nas, nap);
                   c.ejecutar(
                       QStringLiteral("UPDATE Diario SET Punteo = ? WHERE NAs = ? AND NAp = ?"),
                       {punteado ? -1 : 0, static_cast<qlonglong>(nas),
                        static_cast<qlonglong>(nap)});
               }
               return true;
           })
        .value_or(false);
}

QList<LineaPunteo> Punteo::ComoInicio(long nas, long nap) {
    return enTransaccion([&](Conexion& c) {
               const LineaPunteo l = *buscar(c, nas, nap);
               if (l.EnGrupo())
                   throw Rechazo(MsgYaEnCasacion);
               const double clave = NuevaClaveCasacion(c);
               c.ejecutar(
                   QStringLiteral("UPDATE Diario SET CasacionN = 0, CasacionH = ? WHERE NAs = ? "
                                  "AND NAp = ?"),
                   {clave, static_cast<qlonglong>(nas), static_cast<qlonglong>(nap)});
               return LineasCasacion(c, clave);
           })
        .value_or(QList<LineaPunteo>{});
}

QList<LineaPunteo> Punteo::ComoFinal(long nas, long nap, const ElegirInicio& elegir,
                                     bool porDocumento) {
    // The candidates are read and chosen outside any transaction: the user may take a while.
    std::optional<LineaPunteo> linea;
    QList<LineaPunteo> candidatos;
    try {
        Conexion c = AbrirDatos(s_);
        linea = LeerLineaPunteo(c, nas, nap);
        if (linea && !linea->EnGrupo())
            candidatos = CandidatosInicio(
                c, *linea, porDocumento ? std::optional<QString>(linea->Documento) : std::nullopt);
    } catch (const ErrorQuilmar& e) {
        d_.Informar(e.mensaje());
        return {};
    }
    if (!linea) {
        d_.Informar(MsgNoSeEncontro(nas));
        return {};
    }
    if (linea->EnGrupo()) {
        d_.Informar(MsgYaEnCasacion);
        return {};
    }
    // A line with no document has nothing to match by document.
    if (candidatos.isEmpty() || (porDocumento && linea->Documento.trimmed().isEmpty())) {
        d_.Informar(MsgNoHayInicio);
        return {};
    }
    int elegido = 0;
    if (candidatos.size() > 1) {
        const std::optional<int> i =
            elegir ? elegir(linea->NCuenta + QStringLiteral(" ") + linea->Cuenta, candidatos)
                   : std::nullopt;
        if (!i || *i < 0 || *i >= candidatos.size())
            return {};
        elegido = *i;
    }
    const LineaPunteo inicio = candidatos.at(elegido);
    return enTransaccion([&](Conexion& c) {
               // Both lines are read again under the write lock: another user may have moved them.
               const LineaPunteo l = *buscar(c, nas, nap);
               const std::optional<LineaPunteo> i = LeerLineaPunteo(c, inicio.NAs, inicio.NAp);
               if (l.EnGrupo())
                   throw Rechazo(MsgYaEnCasacion);
               if (!i || i->CasacionH != inicio.CasacionH || i->CasacionN != EstadoCasacion::Inicio)
                   throw Rechazo(MsgNoHayInicio);
               unir(c, l, *i);
               GraduarGrupo(c, i->CasacionH);
               return LineasCasacion(c, i->CasacionH);
           })
        .value_or(QList<LineaPunteo>{});
}

int Punteo::CasarTodosPorDocumento(const SeleccionPunteo& sel) {
    SeleccionPunteo todas = sel;
    todas.vista = VistaPunteo::NoCasados;
    return enTransaccion([&](Conexion& c) {
               int unidas = 0;
               for (const LineaPunteo& l : LeerLineasPunteo(c, todas)) {
                   if (l.Documento.trimmed().isEmpty() || (l.Debe == 0 && l.Haber == 0))
                       continue;
                   // Starts already balanced by an earlier line of this run are no longer
                   // candidates.
                   const QList<LineaPunteo> candidatos = CandidatosInicio(c, l, l.Documento);
                   if (candidatos.isEmpty())
                       continue;
                   unir(c, l, candidatos.first());
                   GraduarGrupo(c, candidatos.first().CasacionH);
                   ++unidas;
               }
               return unidas;
           })
        .value_or(-1);
}

QList<LineaPunteo> Punteo::Casar(const QList<std::pair<long, long>>& lineas) {
    if (lineas.isEmpty())
        return {};
    return enTransaccion([&](Conexion& c) {
               LineaPunteo inicio = *buscar(c, lineas.first().first, lineas.first().second);
               if (!inicio.EnGrupo()) {
                   inicio.CasacionH = NuevaClaveCasacion(c);
                   inicio.CasacionN = EstadoCasacion::Inicio;
                   c.ejecutar(
                       QStringLiteral("UPDATE Diario SET CasacionN = 0, CasacionH = ? WHERE NAs "
                                      "= ? AND NAp = ?"),
                       {inicio.CasacionH, static_cast<qlonglong>(inicio.NAs),
                        static_cast<qlonglong>(inicio.NAp)});
               } else if (lineas.size() > 1 && inicio.CasacionN != EstadoCasacion::Inicio) {
                   // Only an open start takes more lines.
                   throw Rechazo(MsgNoHayInicio);
               }
               for (int i = 1; i < lineas.size(); ++i) {
                   const LineaPunteo l = *buscar(c, lineas.at(i).first, lineas.at(i).second);
                   if (l.EnGrupo())
                       throw Rechazo(MsgYaEnCasacion + QStringLiteral(" (") + nasNap(l) +
                                     QLatin1Char(')'));
                   const bool opuesto = l.Debe != 0 ? inicio.Debe == 0 : inicio.Haber == 0;
                   if (l.NCuenta != inicio.NCuenta || !opuesto || (l.Debe == 0 && l.Haber == 0))
                       throw Rechazo(MsgNoHayInicio);
                   unir(c, l, inicio);
               }
               GraduarGrupo(c, inicio.CasacionH);
               return LineasCasacion(c, inicio.CasacionH);
           })
        .value_or(QList<LineaPunteo>{});
}

QList<LineaPunteo> Punteo::Anular(long nas, long nap) {
    std::optional<LineaPunteo> linea;
    try {
        Conexion c = AbrirDatos(s_);
        linea = LeerLineaPunteo(c, nas, nap);
    } catch (const ErrorQuilmar& e) {
        d_.Informar(e.mensaje());
        return {};
    }
    if (!linea) {
        d_.Informar(MsgNoSeEncontro(nas));
        return {};
    }
    if (!linea->EnGrupo()) {
        d_.Informar(MsgSinCasacion);
        return {};
    }
    if (!d_.Preguntar(MsgAnularCasacion))
        return {};
    return enTransaccion([&](Conexion& c) {
               const LineaPunteo l = *buscar(c, nas, nap);
               const double clave = l.CasacionH;
               c.ejecutar(
                   QStringLiteral("UPDATE Diario SET CasacionN = 0, CasacionH = 0 WHERE NAs = ? "
                                  "AND NAp = ?"),
                   {static_cast<qlonglong>(nas), static_cast<qlonglong>(nap)});
               GraduarGrupo(c, clave);
               QList<LineaPunteo> r{*LeerLineaPunteo(c, nas, nap)};
               r += LineasCasacion(c, clave);
               return r;
           })
        .value_or(QList<LineaPunteo>{});
}

int Punteo::CompCasa() {
    QString mensaje;
    try {
        Conexion c = AbrirDatos(s_);
        return ::CompCasa(c);
    } catch (const ErrorQuilmar& e) {
        mensaje = e.mensaje();
    }
    d_.Informar(mensaje);
    return -1;
}
