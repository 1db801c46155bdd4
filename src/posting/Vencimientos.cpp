#include "posting/Vencimientos.h"

#include "platform/Almacen.h"
#include "platform/Dialogo.h"
#include "platform/Errores.h"
#include "store/Campos.h"
#include "store/Conexiones.h"
#include "store/Formato.h"
#include "store/Rutinas.h"
#include "store/Sesion.h"

#include <cmath>

namespace {

// The key keeps ten decimals of a day (under a millisecond): it is counted in these units.
constexpr double UnidadesPorDia = 1e10;
constexpr qint64 DiezDecimales = 10000000000LL;

qint64 unidades(double id) {
    return std::llround(id * UnidadesPorDia);
}

double deUnidades(qint64 u) {
    return static_cast<double>(u) / UnidadesPorDia;
}

// A key is looked up within half a unit, so a value that went through text finds its row.
const QString PorClave = QStringLiteral("IdVenc > ? AND IdVenc < ?");
QVariantList clave(double id) {
    const double u = static_cast<double>(unidades(id));
    return {(u - 0.5) / UnidadesPorDia, (u + 0.5) / UnidadesPorDia};
}

QString sinAcentos(const QString& t) {
    QString r;
    for (const QChar c : t.normalized(QString::NormalizationForm_D))
        if (c.category() != QChar::Mark_NonSpacing && c.isLetterOrNumber())
            r += c.toLower();
    return r;
}

// An empty optional text is stored as nothing (NULL), as the filters of the list expect.
QVariant textoOpcional(const QString& t) {
    return t.isEmpty() ? QVariant() : QVariant(t);
}

// A typed date; empty when it is not one (the user has been told).
QDate fechaTecleada(const QString& texto, Dialogo& d) {
    const QString valida = ValidarFecha(texto, d);
    return valida.isEmpty() ? QDate() : FechaDeTexto(valida);
}

const QString Columnas = QStringLiteral("IdVenc, FechaV, FechaE, Tipo, Forma, NCuenta1, NCuenta2, "
                                        "Concepto, Situacion, Importe, Documento, Remesa, Sector");

QVariantList valores(const Vencimiento& v) {
    return {FechaISO(v.FechaV),
            FechaISO(v.FechaE),
            v.Tipo,
            v.Forma,
            v.NCuenta1,
            v.NCuenta2,
            v.Concepto,
            v.Situacion,
            Centimos(v.Importe),
            textoOpcional(v.Documento),
            textoOpcional(v.Remesa),
            textoOpcional(v.Sector)};
}

} // namespace

const QStringList& FormasVencimiento() {
    static const QStringList f{QStringLiteral("Efecto"),        QStringLiteral("Pagaré"),
                               QStringLiteral("Cheque"),        QStringLiteral("Efectivo"),
                               QStringLiteral("Transferencia"), QStringLiteral("Tarjeta"),
                               QStringLiteral("Cargo cta.")};
    return f;
}

const QStringList& SituacionesVencimiento() {
    static const QStringList s{
        QStringLiteral("Sin formalizar"), QStringLiteral("Pendiente"),  QStringLiteral("Cobrado"),
        QStringLiteral("Pagado"),         QStringLiteral("Devuelto"),   QStringLiteral("Reclamado"),
        QStringLiteral("Moroso"),         QStringLiteral("En Gestión"), QStringLiteral("Fallido")};
    return s;
}

bool Liquidado(const QString& situacion) {
    return situacion == QLatin1String("Cobrado") || situacion == QLatin1String("Pagado");
}

QString NombreDeLista(const QStringList& lista, const QString& escrito) {
    const QString buscado = sinAcentos(escrito);
    if (buscado.isEmpty())
        return {};
    for (const QString& n : lista)
        if (sinAcentos(n) == buscado)
            return n;
    return {};
}

double IdVencDeMomento(const QDateTime& momento) {
    return deUnidades(unidades(DiaSerie(momento)));
}

QString TextoIdVenc(double id) {
    const qint64 u = unidades(id);
    QString decimales = QStringLiteral("%1").arg(u % DiezDecimales, 10, 10, QLatin1Char('0'));
    // Nine decimals always, the tenth when it is not a zero.
    if (decimales.endsWith(QLatin1Char('0')))
        decimales.chop(1);
    return QString::number(u / DiezDecimales) + QLatin1Char(',') + decimales;
}

std::optional<double> IdVencDeTexto(const QString& texto) {
    QString t = texto.trimmed();
    // With a decimal comma, points can only group thousands.
    if (t.contains(QLatin1Char(','))) {
        t.remove(QLatin1Char('.'));
        t.replace(QLatin1Char(','), QLatin1Char('.'));
    }
    bool ok = false;
    const double v = t.toDouble(&ok);
    if (!ok || !std::isfinite(v) || v <= 0 || v > 1e6)
        return std::nullopt;
    return deUnidades(unidades(v));
}

std::optional<Vencimiento> ComprobarVencimiento(const CamposVencimiento& c, AltaVenc modo,
                                                Dialogo& d, const QDate& hoy) {
    Vencimiento v;
    if (c.FechaV.trimmed().isEmpty()) {
        d.Informar(MsgVencSinFecha);
        return std::nullopt;
    }
    v.FechaV = fechaTecleada(c.FechaV, d);
    if (!v.FechaV.isValid())
        return std::nullopt;
    v.FechaE = c.FechaE.trimmed().isEmpty() ? hoy : fechaTecleada(c.FechaE, d);
    if (!v.FechaE.isValid())
        return std::nullopt;

    if (modo == AltaVenc::Alta) {
        if (v.FechaV < hoy && !d.Preguntar(MsgVencAnterior))
            return std::nullopt;
        if (v.FechaV < v.FechaE) {
            d.Informar(MsgVencAntesEmision);
            return std::nullopt;
        }
    }
    v.NCuenta1 = c.NCuenta1.trimmed();
    if (v.NCuenta1.isEmpty()) {
        d.Informar(MsgVencSinSubcuenta);
        return std::nullopt;
    }
    v.Tipo = NombreDeLista({TipoCobro, TipoPago}, c.Tipo);
    if (v.Tipo.isEmpty()) {
        d.Informar(MsgVencSinTipo);
        return std::nullopt;
    }
    v.Forma = NombreDeLista(FormasVencimiento(), c.Forma);
    if (v.Forma.isEmpty()) {
        d.Informar(MsgVencSinForma);
        return std::nullopt;
    }
    v.NCuenta2 = c.NCuenta2.trimmed();
    if (v.NCuenta2.isEmpty()) {
        d.Informar(MsgVencSinCaja);
        return std::nullopt;
    }
    if (c.Concepto.trimmed().isEmpty()) {
        d.Informar(MsgVencSinConcepto);
        return std::nullopt;
    }
    const QString importe = c.Importe.trimmed();
    const std::optional<double> valor = importe.isEmpty() ? 0.0 : LeerImporte(importe);
    if (!valor) {
        d.Informar(MsgImporteNoValido(importe));
        return std::nullopt;
    }
    if (*valor == 0) {
        d.Informar(MsgVencSinImporte);
        return std::nullopt;
    }
    if (*valor < 0) {
        d.Informar(MsgVencImporteNegativo);
        return std::nullopt;
    }
    v.Importe = *valor;

    try {
        v.Concepto = TextoCampo(Campo::Concepto, c.Concepto);
        v.Documento = TextoCampo(Campo::Documento, c.Documento);
        v.Remesa = TextoCampo(Campo::Remesa, c.Remesa);
        v.Sector = TextoCampo(Campo::Sector, c.Sector);
    } catch (const Rechazo& e) {
        d.Informar(e.mensaje());
        return std::nullopt;
    }
    if (c.Situacion.trimmed().isEmpty()) {
        v.Situacion = SituacionPendiente;
    } else {
        v.Situacion = NombreDeLista(SituacionesVencimiento(), c.Situacion);
        if (v.Situacion.isEmpty()) {
            d.Informar(QStringLiteral("La situación «%1» no es ninguna de las del vencimiento.")
                           .arg(c.Situacion.trimmed()));
            return std::nullopt;
        }
    }
    // The screen resets a contradiction as it is chosen; here it can only come from elsewhere.
    if ((v.Tipo == TipoCobro && v.Situacion == QLatin1String("Pagado")) ||
        (v.Tipo == TipoPago && v.Situacion == QLatin1String("Cobrado"))) {
        d.Informar(v.Tipo == TipoCobro ? MsgCobroPagado : MsgPagoCobrado);
        return std::nullopt;
    }
    return v;
}

QString AvisoAreaTipo(const QString& tipo, const QString& ncuenta) {
    const QString n = ncuenta.trimmed();
    if (n.isEmpty())
        return {};
    const QChar area = n.at(0);
    const char* nombre = nullptr;
    if (tipo == TipoCobro && area == QLatin1Char('2'))
        nombre = "Se debe";
    else if (tipo == TipoCobro && area == QLatin1Char('6'))
        nombre = "Gastos";
    else if (tipo == TipoPago && area == QLatin1Char('4'))
        nombre = "Nos deben";
    else if (tipo == TipoPago && area == QLatin1Char('3'))
        nombre = "Ingresos";
    if (!nombre)
        return {};
    return QStringLiteral("Ha seleccionado una subcuenta del área '%1', siendo el Vencimiento del "
                          "tipo '%2'. Compruebe si es un error.")
        .arg(QLatin1String(nombre), tipo);
}

QString SituacionAdmitida(const QString& tipo, const QString& situacion, Dialogo& d) {
    if (tipo == TipoCobro && situacion == QLatin1String("Pagado")) {
        d.Informar(MsgCobroPagado);
        return SituacionPendiente;
    }
    if (tipo == TipoPago && situacion == QLatin1String("Cobrado")) {
        d.Informar(MsgPagoCobrado);
        return SituacionPendiente;
    }
    return situacion;
}

double AnadirVencimiento(Conexion& bavar, Vencimiento& v, const QDateTime& ahora) {
    Transaccion t(bavar);
    qint64 u = unidades(IdVencDeMomento(ahora));
    // Two due dates written within the same instant still get keys of their own.
    while (bavar.existe(QStringLiteral("SELECT 1 FROM Vencimientos WHERE ") + PorClave,
                        clave(deUnidades(u))))
        ++u;
    v.IdVenc = deUnidades(u);
    QVariantList vals{v.IdVenc};
    vals << valores(v);
    bavar.ejecutar(QStringLiteral("INSERT INTO Vencimientos (") + Columnas +
                       QStringLiteral(") VALUES (?,?,?,?,?,?,?,?,?,?,?,?,?)"),
                   vals);
    t.confirmar();
    return v.IdVenc;
}

bool ModificarVencimiento(Conexion& bavar, const Vencimiento& v) {
    Transaccion t(bavar);
    QVariantList vals = valores(v);
    vals << clave(v.IdVenc);
    QSqlQuery q = bavar.ejecutar(
        QStringLiteral("UPDATE Vencimientos SET FechaV = ?, FechaE = ?, Tipo = ?, Forma = ?, "
                       "NCuenta1 = ?, NCuenta2 = ?, Concepto = ?, Situacion = ?, Importe = ?, "
                       "Documento = ?, Remesa = ?, Sector = ? WHERE ") +
            PorClave,
        vals);
    if (q.numRowsAffected() <= 0)
        return false;
    t.confirmar();
    return true;
}

bool EliminarVencimiento(Conexion& bavar, double id) {
    Transaccion t(bavar);
    QSqlQuery q =
        bavar.ejecutar(QStringLiteral("DELETE FROM Vencimientos WHERE ") + PorClave, clave(id));
    if (q.numRowsAffected() <= 0)
        return false;
    t.confirmar();
    return true;
}

std::optional<Vencimiento> LeerVencimiento(Conexion& bavar, double id) {
    QSqlQuery q = bavar.ejecutar(QStringLiteral("SELECT ") + Columnas +
                                     QStringLiteral(" FROM Vencimientos WHERE ") + PorClave,
                                 clave(id));
    if (!q.next())
        return std::nullopt;
    Vencimiento v;
    v.IdVenc = q.value(0).toDouble();
    v.FechaV = DeISO(q.value(1).toString());
    v.FechaE = DeISO(q.value(2).toString());
    v.Tipo = q.value(3).toString();
    v.Forma = q.value(4).toString();
    v.NCuenta1 = q.value(5).toString().trimmed();
    v.NCuenta2 = q.value(6).toString().trimmed();
    v.Concepto = q.value(7).toString();
    v.Situacion = q.value(8).toString();
    v.Importe = q.value(9).toDouble();
    v.Documento = q.value(10).toString();
    v.Remesa = q.value(11).toString();
    v.Sector = q.value(12).toString();
    return v;
}

bool CambiarSituacion(Conexion& bavar, double id, const QString& situacion) {
    Transaccion t(bavar);
    QVariantList vals{situacion};
    vals << clave(id);
    QSqlQuery q = bavar.ejecutar(
        QStringLiteral("UPDATE Vencimientos SET Situacion = ? WHERE ") + PorClave, vals);
    if (q.numRowsAffected() <= 0)
        return false;
    t.confirmar();
    return true;
}

QDate LimitePurga(int meses, const QDate& hoy) {
    return hoy.addMonths(-meses);
}

int EliminarVencidosAntesDe(Conexion& bavar, const QDate& limite) {
    Transaccion t(bavar);
    QSqlQuery q = bavar.ejecutar(QStringLiteral("DELETE FROM Vencimientos WHERE FechaV < ?"),
                                 {FechaISO(limite)});
    const int n = q.numRowsAffected();
    t.confirmar();
    return n;
}

int EliminarLiquidados(Conexion& bavar) {
    Transaccion t(bavar);
    QSqlQuery q = bavar.ejecutar(QStringLiteral(
        "DELETE FROM Vencimientos WHERE Situacion = 'Cobrado' OR Situacion = 'Pagado'"));
    const int n = q.numRowsAffected();
    t.confirmar();
    return n;
}

int EliminarVenc(const Sesion& s, Dialogo& d, int meses, const QDate& hoy) {
    const QDate limite = LimitePurga(meses, hoy);
    if (!d.Preguntar(
            QStringLiteral(
                "Desea eliminar todos los registros con fecha de vencimiento anterior a ") +
            FormatoFecha(limite, QStringLiteral("short date")) + QLatin1Char('?')))
        return -1;
    Conexion b = AbrirBavar(s);
    const int n = EliminarVencidosAntesDe(b, limite);
    if (n == 0)
        d.Informar(MsgNoHayRegistros);
    return n;
}

int EliminarCobradosPagados(const Sesion& s, Dialogo& d) {
    if (!d.Preguntar(QStringLiteral(
            "Desea eliminar todos los vencimientos que figuren como Cobrados o Pagados?")))
        return -1;
    Conexion b = AbrirBavar(s);
    const int n = EliminarLiquidados(b);
    if (n == 0)
        d.Informar(MsgNoHayRegistros);
    return n;
}
