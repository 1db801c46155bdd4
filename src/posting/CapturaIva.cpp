#include "posting/CapturaIva.h"

#include "platform/Dialogo.h"
#include "platform/Errores.h"
#include "posting/TrabajoIva.h"
#include "store/Campos.h"
#include "store/Conexiones.h"
#include "store/Formato.h"
#include "store/Rutinas.h"
#include "store/Sesion.h"

#include <QDateTime>
#include <cmath>

CapturaIva::CapturaIva(const Sesion& s, Dialogo& d, TrabajoIva& trabajo, qint16& ultimaFilaIVA,
                       bool& ivaAceptado)
    : s_(s), d_(d), trabajo_(trabajo), ultimaFila_(ultimaFilaIVA), aceptado_(ivaAceptado) {}

QStringList CapturaIva::Areas() const {
    QStringList r{QString()};
    const bool plan = s_.CArea == QLatin1String("Plan");
    for (int i = plan ? 1 : 0; i <= (plan ? 7 : 6); ++i)
        r << QString::number(i);
    return r;
}

void CapturaIva::MarcarAbono(bool abono) {
    Abono = abono;
    QString b = Base.trimmed();
    if (abono) {
        if (!b.startsWith(QLatin1Char('-')))
            b.prepend(QLatin1Char('-'));
        Modelo347 = true;
    } else if (b.startsWith(QLatin1Char('-'))) {
        b.remove(0, 1);
    }
    Base = b;
    Cuota =
        Formato(ValorImporte(Base) * ValorImporte(Porcentaje) / 100, QStringLiteral("standard"));
}

void CapturaIva::ElegirArea(const QString& area) {
    Area = area.trimmed();
    if (Area.isEmpty())
        return;
    // By plan group the area digit is the second character of the code.
    const QString patron = s_.CArea == QLatin1String("Plan") ? QStringLiteral("_%1%").arg(Area)
                                                             : QStringLiteral("%1%").arg(Area);
    Conexion c = AbrirDatos(s_);
    QSqlQuery q = c.ejecutar(
        QStringLiteral("SELECT NCuenta, Cuenta, Aparcada, Desde FROM Cuentas WHERE NCuenta LIKE ? "
                       "ORDER BY NGrupo, Cuenta"),
        {patron});
    Nombres.clear();
    Codigos.clear();
    while (q.next()) {
        // A subaccount parked in this exercise or before is left out.
        const bool aparcada = q.value(2).toInt() != 0;
        const QDate desde = DeISO(q.value(3).toString());
        if (aparcada && (!desde.isValid() || desde.year() <= s_.AnoActual))
            continue;
        Nombres << q.value(1).toString().trimmed();
        Codigos << q.value(0).toString().trimmed();
    }
    if (Nombres.isEmpty())
        d_.Informar(QStringLiteral("No hay Cuentas creadas."));
}

void CapturaIva::ElegirContrapartida(int indice) {
    if (indice < 0 || indice >= Nombres.size())
        return;
    // The lists go in step, so the code beside the name is the subaccount chosen, even when two
    // subaccounts share a name.
    Contrapartida = Nombres.at(indice);
    CuentaContra = Codigos.value(indice);
}

bool CapturaIva::ElegirContrapartida(const QString& nombre) {
    const int i = Nombres.indexOf(nombre.trimmed());
    if (i >= 0) {
        ElegirContrapartida(i);
        return true;
    }
    Contrapartida = nombre;
    Conexion c = AbrirDatos(s_);
    const QVariant v = c.escalar(QStringLiteral("SELECT NCuenta FROM Cuentas WHERE Cuenta = ?"),
                                 {nombre.trimmed()});
    if (!v.isValid()) {
        // The code of an earlier choice must not stay behind a name that names nothing.
        CuentaContra.clear();
        d_.Informar(QStringLiteral("No se encontró el código de cuenta de ") + nombre);
        return false;
    }
    CuentaContra = v.toString().trimmed();
    return true;
}

bool CapturaIva::ElegirCodigo(const QString& ncuenta) {
    const QString codigo = ncuenta.trimmed();
    int i = static_cast<int>(Codigos.indexOf(codigo));
    if (i < 0) {
        // By plan groups the area of a code is its second character.
        ElegirArea(codigo.mid(s_.CArea == QLatin1String("Plan") ? 1 : 0, 1));
        i = static_cast<int>(Codigos.indexOf(codigo));
    }
    if (i < 0)
        return false;
    ElegirContrapartida(i);
    return true;
}

CapturaIva::Foco CapturaIva::PrimeraVista() {
    if (!CuentaDefecto.trimmed().isEmpty()) {
        Conexion c = AbrirDatos(s_);
        const QVariant v = c.escalar(QStringLiteral("SELECT Cuenta FROM Cuentas WHERE NCuenta = ?"),
                                     {CuentaDefecto.trimmed()});
        if (v.isValid()) {
            Contrapartida = v.toString().trimmed();
            CuentaContra = CuentaDefecto.trimmed();
        }
    }
    if (Factura.trimmed().isEmpty())
        return Foco::Factura;
    if (Contrapartida.trimmed().isEmpty())
        return Foco::Contrapartida;
    return Foco::Aceptar;
}

bool CapturaIva::Aceptar() {
    if (!LibroIva && !Modelo347) {
        // Nothing kept for this line, and what earlier lines kept is dropped with it.
        ultimaFila_ = 0;
        aceptado_ = true;
        return true;
    }
    // A name typed that named no subaccount leaves no code: as good as no counterparty.
    if (Contrapartida.trimmed().isEmpty() || CuentaContra.trimmed().isEmpty()) {
        d_.Informar(QStringLiteral("Debe seleccionar la Subcuenta de contrapartida."));
        return false;
    }
    if (Base.trimmed().isEmpty()) {
        d_.Informar(QStringLiteral("Debe constar el importe de la Base."));
        return false;
    }
    const std::optional<double> base = LeerImporte(Base);
    if (!base) {
        d_.Informar(MsgImporteNoValido(Base));
        return false;
    }
    std::optional<double> retencion = 0.0;
    if (RetencionVisible() && !Retencion.trimmed().isEmpty())
        retencion = LeerImporte(Retencion);
    if (!retencion) {
        d_.Informar(MsgImporteNoValido(Retencion));
        return false;
    }
    QString factura;
    try {
        factura = TextoCampo(Campo::NFactura, Factura);
    } catch (const Rechazo& e) {
        d_.Informar(e.mensaje());
        return false;
    }
    const double b = *base;
    const double p = ValorImporte(Porcentaje);
    const double q = ValorImporte(Cuota);
    // A difference of exactly 0.1 passes: the float noise of the product is taken away first.
    if (Redondear(std::fabs(q - p * b / 100), 9) > 0.1) {
        d_.Informar(QStringLiteral("La Base no se corresponde con el Porcentaje y Cuota."));
        return false;
    }
    ultimaFila_ = FilaIVA;
    trabajo_.crecer(FilaIVA);
    const int i = FilaIVA;
    trabajo_.IvaIdIVA[i] = std::floor(DiaSerie(QDateTime::currentDateTime()) * 1e6);
    trabajo_.IvaContra[i] = CuentaContra;
    trabajo_.IvaCuenta[i] = CuentaIVA;
    trabajo_.IvaFactura[i] = factura;
    trabajo_.IvaBase[i] = static_cast<float>(b);
    trabajo_.IvaPorcentaje[i] = static_cast<float>(p);
    trabajo_.IvaCuota[i] = static_cast<float>(q);
    trabajo_.IvaClase[i] = Clase.trimmed();
    trabajo_.IvaLIVA[i] = LibroIva;
    trabajo_.IvaL347[i] = Modelo347;
    trabajo_.IvaTipOp[i] = TipoOperacion;
    trabajo_.IvaRetencion[i] = static_cast<float>(*retencion);
    aceptado_ = true;
    return true;
}
