#include "assets/Inventario.h"

#include "assets/Centros.h"
#include "platform/Almacen.h"
#include "platform/Dialogo.h"
#include "platform/Errores.h"
#include "platform/Rejilla.h"
#include "store/Campos.h"
#include "store/Conexiones.h"
#include "store/Formato.h"
#include "store/Rutinas.h"
#include "store/Sesion.h"

#include <cmath>

namespace {

const QString Si = QStringLiteral("SI");
const QString No = QStringLiteral("NO");

const QString CamposElemento = QStringLiteral(
    "NElemento, Nombre, Naturaleza, Proveedor, NCentro, Localizacion, FechaAdq, Importe, "
    "Amortizable, Porcentaje, Amortizado, UltimaAmort, FinAmort, FechaBaja, CausaBaja, "
    "SubctaAmort, SubctaDota");

Elemento elementoDe(const QSqlQuery& q) {
    Elemento e;
    e.NElemento = q.value(0).toLongLong();
    e.Nombre = q.value(1).toString().trimmed();
    e.Naturaleza = q.value(2).toString().trimmed();
    e.Proveedor = q.value(3).toString().trimmed();
    e.NCentro = q.value(4).toLongLong();
    e.Localizacion = q.value(5).toString().trimmed();
    e.FechaAdq = DeISO(q.value(6).toString());
    e.Importe = q.value(7).toDouble();
    e.Amortizable = q.value(8).toInt() != 0;
    if (!q.value(9).isNull())
        e.Porcentaje = q.value(9).toDouble();
    e.Amortizado = q.value(10).toDouble();
    e.UltimaAmort = DeISO(q.value(11).toString());
    e.FinAmort = DeISO(q.value(12).toString());
    e.FechaBaja = DeISO(q.value(13).toString());
    e.CausaBaja = q.value(14).toString().trimmed();
    e.SubctaAmort = q.value(15).toString().trimmed();
    e.SubctaDota = q.value(16).toString().trimmed();
    return e;
}

QList<SubcuentaOfrecida> subcuentas(const Sesion& s, const QString& patron) {
    Conexion c = AbrirDatos(s);
    QSqlQuery q = c.ejecutar(QStringLiteral("SELECT NCuenta, Cuenta FROM Cuentas WHERE NCuenta "
                                            "LIKE ? AND Aparcada = 0 ORDER BY Cuenta"),
                             {patron});
    QList<SubcuentaOfrecida> r;
    while (q.next())
        r << SubcuentaOfrecida{q.value(0).toString().trimmed(), q.value(1).toString().trimmed()};
    return r;
}

bool ofrecida(const QList<SubcuentaOfrecida>& lista, const QString& ncuenta) {
    for (const SubcuentaOfrecida& c : lista)
        if (c.NCuenta == ncuenta)
            return true;
    return false;
}

// The value of a fixed list as the list spells it, whatever the case typed; empty when not in it.
QString deLista(const QStringList& lista, const QString& texto) {
    for (const QString& valor : lista)
        if (valor.compare(texto.trimmed(), Qt::CaseInsensitive) == 0)
            return valor;
    return {};
}

QVariant fechaSql(const QDate& f) {
    return f.isValid() ? QVariant(FechaISO(f)) : QVariant();
}

QVariant textoSql(const QString& t) {
    return t.isEmpty() ? QVariant() : QVariant(t);
}

// The values of a form, checked.
struct Valores {
    QString Nombre, Naturaleza, Proveedor, Localizacion, CausaBaja, SubctaAmort, SubctaDota;
    QDate FechaAdq, FechaBaja, FinAmort, UltimaAmort;
    double Importe = 0, Amortizado = 0;
    bool Amortizable = false;
    std::optional<double> Porcentaje;
};

// A refusal: the message has been shown; the focus goes to the field.
struct Rehusado {
    CampoElemento campo;
};

class Comprobacion {
public:
    Comprobacion(const Sesion& s, Dialogo& d) : s_(s), d_(d) {}

    [[noreturn]] void rechazar(CampoElemento campo, const QString& mensaje) {
        d_.Informar(mensaje);
        throw Rehusado{campo};
    }

    QString texto(Campo campo, const QString& t, CampoElemento foco) {
        try {
            return TextoCampo(campo, t);
        } catch (const Rechazo& r) {
            rechazar(foco, r.mensaje());
        }
    }

    // A typed date: null when empty; refused, with ValidarFecha's message, when not a date.
    QDate fecha(const QString& t, CampoElemento foco) {
        if (t.trimmed().isEmpty())
            return {};
        const QString valida = ValidarFecha(t, d_);
        if (valida.isEmpty())
            throw Rehusado{foco};
        return FechaDeTexto(valida);
    }

    std::optional<double> importe(const QString& t, CampoElemento foco) {
        if (t.trimmed().isEmpty())
            return std::nullopt;
        const std::optional<double> v = LeerImporte(t);
        if (!v)
            rechazar(foco, MsgImporteNoValido(t.trimmed()));
        return v;
    }

    // The form's checks in their order. creando: the element is being added.
    Valores comprobar(const FichaElemento& f, bool creando) {
        Valores v;
        v.Nombre = texto(Campo::NombreElemento, f.Nombre, CampoElemento::Nombre);
        if (v.Nombre.isEmpty())
            rechazar(CampoElemento::Nombre,
                     QStringLiteral("Tiene que introducir el nombre del elemento."));
        v.Naturaleza = deLista(NaturalezasElemento, f.Naturaleza);
        if (v.Naturaleza.isEmpty())
            rechazar(CampoElemento::Naturaleza,
                     QStringLiteral("Tiene que seleccionar la Naturaleza del elemento"));

        v.FechaAdq = fecha(f.FechaAdq, CampoElemento::FechaAdq);
        if (!v.FechaAdq.isValid())
            rechazar(CampoElemento::FechaAdq,
                     QStringLiteral("Tiene que introducir la fecha de adquisición del elemento."));
        // An asset bought in an earlier exercise is entered as it stands; one bought after this
        // exercise belongs to a later one.
        if (s_.FechaFinEj.isValid() && v.FechaAdq > s_.FechaFinEj)
            rechazar(CampoElemento::FechaAdq,
                     QStringLiteral("La fecha de adquisición del elemento es posterior a la de "
                                    "finalización del ejercio."));
        v.FinAmort = fecha(f.FinAmort, CampoElemento::FinAmort);
        if (v.FinAmort.isValid() && v.FinAmort <= v.FechaAdq)
            rechazar(CampoElemento::FinAmort,
                     QStringLiteral("La fecha de Fin de amortización tiene que ser posterior a la "
                                    "de adquisición del elemento."));

        const std::optional<double> adquisicion = importe(f.Importe, CampoElemento::Importe);
        if (!adquisicion || *adquisicion <= 0)
            rechazar(
                CampoElemento::Importe,
                QStringLiteral("Tiene que introducir el Importe de adquisición del elemento."));
        v.Importe = *adquisicion;
        v.Proveedor = texto(Campo::Proveedor, f.Proveedor, CampoElemento::Proveedor);

        v.Localizacion = f.Localizacion.trimmed();
        if (v.Localizacion.isEmpty())
            rechazar(CampoElemento::Localizacion,
                     QStringLiteral("Tiene que introducir el Centro donde se localiza el "
                                    "elemento. Para dar de alta un Centro, teniendo el cursor en "
                                    "el campo Localización pulse la tecla +."));

        v.FechaBaja = fecha(f.FechaBaja, CampoElemento::FechaBaja);
        v.CausaBaja = f.CausaBaja.trimmed();
        if (creando) {
            if (v.FechaBaja.isValid())
                rechazar(
                    CampoElemento::FechaBaja,
                    QStringLiteral(
                        "No introduzca la Fecha de baja del elemento cuando lo está creando."));
            // A cause without a date means nothing on a new element.
            v.CausaBaja.clear();
        } else {
            if (!v.CausaBaja.isEmpty() && !v.FechaBaja.isValid())
                rechazar(CampoElemento::FechaBaja,
                         QStringLiteral("Si el elemento se va a dar de baja debe introducir antes "
                                        "la fecha de su baja."));
            if (v.FechaBaja.isValid() && v.CausaBaja.isEmpty())
                rechazar(CampoElemento::CausaBaja,
                         QStringLiteral("Si el elemento está dado de baja debe introducir la causa "
                                        "de dicha baja."));
            if (!v.CausaBaja.isEmpty() && deLista(CausasBaja, v.CausaBaja).isEmpty())
                rechazar(CampoElemento::CausaBaja,
                         QStringLiteral("La causa de la baja tiene que ser una de estas: %1.")
                             .arg(CausasBaja.join(QStringLiteral(", "))));
            v.CausaBaja = deLista(CausasBaja, v.CausaBaja);
        }

        const QString amortizable = f.Amortizable.trimmed().toUpper();
        if (amortizable != Si && amortizable != No)
            rechazar(CampoElemento::Amortizable,
                     QStringLiteral("Tiene que seleccionar si el elemento es amortizable"));
        v.Amortizable = amortizable == Si;
        const QString porcentaje = f.Porcentaje.trimmed();
        if (v.Amortizable && porcentaje.isEmpty())
            rechazar(CampoElemento::Porcentaje,
                     QStringLiteral("Si el elemento es amortizable debe introducir el porcentaje "
                                    "de amortización anual."));
        if (!v.Amortizable && !porcentaje.isEmpty())
            rechazar(CampoElemento::Porcentaje,
                     QStringLiteral("Si el elemento no es amortizable no debe introducir el "
                                    "porcentaje de amortización anual."));
        if (v.Amortizable) {
            // A rate is a plain number, like an amount but not rounded to the cent.
            bool ok = LeerImporte(porcentaje).has_value();
            const double p = ok ? ValorImporte(porcentaje, &ok) : 0.0;
            if (!ok || !(p > 0) || p > 100)
                rechazar(CampoElemento::Porcentaje,
                         QStringLiteral("El porcentaje de amortización anual tiene que ser un "
                                        "número mayor que 0 y no mayor que 100."));
            v.Porcentaje = p;

            v.SubctaAmort = f.SubctaAmort.trimmed();
            if (v.SubctaAmort.isEmpty())
                rechazar(CampoElemento::SubctaAmort,
                         QStringLiteral("Tiene que seleccionar la Subcuenta de amortización. "
                                        "Primero seleccione el Area a la que pertenece"));
            if (!ofrecida(SubcuentasAmortizacion(s_), v.SubctaAmort))
                rechazar(CampoElemento::SubctaAmort,
                         QStringLiteral("La subcuenta %1 no es una subcuenta de amortización "
                                        "acumulada (028) sin aparcar.")
                             .arg(v.SubctaAmort));
            v.SubctaDota = f.SubctaDota.trimmed();
            if (v.SubctaDota.isEmpty())
                rechazar(CampoElemento::SubctaDota,
                         QStringLiteral("Tiene que seleccionar la Subcuenta de dotación. Primero "
                                        "seleccione el Area a la que pertenece"));
            if (!ofrecida(SubcuentasDotacion(s_), v.SubctaDota))
                rechazar(CampoElemento::SubctaDota,
                         QStringLiteral("La subcuenta %1 no es una subcuenta de dotación de "
                                        "amortización (668) sin aparcar.")
                             .arg(v.SubctaDota));
        }

        // Kept by the program; typed when an asset already partly depreciated is entered.
        v.UltimaAmort = fecha(f.UltimaAmort, CampoElemento::UltimaAmort);
        v.Amortizado = importe(f.Amortizado, CampoElemento::Amortizado).value_or(0.0);
        if (v.Amortizado < 0)
            rechazar(CampoElemento::Amortizado,
                     QStringLiteral("El importe amortizado no puede ser negativo."));
        return v;
    }

    // The location's number, inside the writing transaction.
    qint64 centro(Conexion& c, const QString& nombre) {
        QSqlQuery q = c.ejecutar(QStringLiteral("SELECT NCentro, Localizacion FROM Centros"));
        while (q.next())
            if (q.value(1).toString().trimmed().compare(nombre, Qt::CaseInsensitive) == 0)
                return q.value(0).toLongLong();
        rechazar(CampoElemento::Localizacion, QStringLiteral("No se encontró el Centro."));
    }

private:
    const Sesion& s_;
    Dialogo& d_;
};

QVariantList valoresFila(const Valores& v, qint64 centro) {
    return {v.Nombre,
            v.Naturaleza,
            v.Proveedor,
            centro,
            fechaSql(v.FechaAdq),
            v.Importe,
            v.Amortizable ? -1 : 0,
            v.Porcentaje ? QVariant(*v.Porcentaje) : QVariant(),
            Centimos(v.Amortizado),
            fechaSql(v.UltimaAmort),
            fechaSql(v.FinAmort),
            textoSql(v.Amortizable ? v.SubctaAmort : QString()),
            textoSql(v.Amortizable ? v.SubctaDota : QString()),
            fechaSql(v.FechaBaja),
            textoSql(v.CausaBaja)};
}

QString fechaCorta(const QDate& f) {
    return FormatoFecha(f, QStringLiteral("short date"));
}

} // namespace

QString FormatoElemento(qint64 n) {
    return QStringLiteral("%1").arg(n, 8, 10, QLatin1Char('0'));
}

std::optional<Elemento> LeerElemento(const Sesion& s, qint64 n) {
    Conexion c = AbrirBavar(s);
    QSqlQuery q = c.ejecutar(
        QStringLiteral("SELECT %1 FROM ConInventario WHERE NElemento = ?").arg(CamposElemento),
        {n});
    if (!q.next())
        return std::nullopt;
    return elementoDe(q);
}

QList<Elemento> ElementosDonde(Conexion& c, const QString& esquema, const QString& condicion,
                               const QVariantList& valores) {
    QString campos = CamposElemento;
    campos.replace(QStringLiteral("Localizacion"), QStringLiteral("NULL AS Localizacion"));
    QSqlQuery q = c.ejecutar(QStringLiteral("SELECT %1 FROM %2Inventario WHERE %3 ORDER BY "
                                            "NElemento")
                                 .arg(campos, esquema, condicion),
                             valores);
    QList<Elemento> r;
    while (q.next())
        r << elementoDe(q);
    return r;
}

QList<SubcuentaOfrecida> SubcuentasAmortizacion(const Sesion& s) {
    return subcuentas(s, QStringLiteral("028%"));
}

QList<SubcuentaOfrecida> SubcuentasDotacion(const Sesion& s) {
    return subcuentas(s, QStringLiteral("668%"));
}

FichaElemento FichaDe(const Elemento& e) {
    FichaElemento f;
    f.Nombre = e.Nombre;
    f.Naturaleza = e.Naturaleza;
    f.FechaAdq = fechaCorta(e.FechaAdq);
    f.Importe = Formato(e.Importe, QStringLiteral("standard"));
    f.Proveedor = e.Proveedor;
    f.Localizacion = e.Localizacion;
    f.FechaBaja = fechaCorta(e.FechaBaja);
    f.CausaBaja = e.CausaBaja;
    f.Amortizable = e.Amortizable ? Si : No;
    f.Porcentaje =
        e.Porcentaje ? Formato(*e.Porcentaje, QStringLiteral("General Number")) : QString();
    f.FinAmort = fechaCorta(e.FinAmort);
    f.UltimaAmort = fechaCorta(e.UltimaAmort);
    f.Amortizado = Formato(e.Amortizado, QStringLiteral("standard"));
    f.SubctaAmort = e.SubctaAmort;
    f.SubctaDota = e.SubctaDota;
    return f;
}

ResultadoFicha AnadirElemento(const Sesion& s, Dialogo& d, const FichaElemento& f) {
    ResultadoFicha r;
    Comprobacion k(s, d);
    try {
        const Valores v = k.comprobar(f, true);
        Conexion c = AbrirBavar(s);
        // The number is drawn under the write lock: two users never share it. The highest
        // number comes back after its element is deleted.
        Transaccion t(c);
        const qint64 centro = k.centro(c, v.Localizacion);
        r.numero = c.escalar(QStringLiteral("SELECT MAX(NElemento) AS MaxElemento FROM Inventario"))
                       .toLongLong() +
                   1;
        c.ejecutar(QStringLiteral("INSERT INTO Inventario (NElemento, Nombre, Naturaleza, "
                                  "Proveedor, NCentro, FechaAdq, Importe, Amortizable, "
                                  "Porcentaje, Amortizado, UltimaAmort, FinAmort, SubctaAmort, "
                                  "SubctaDota, FechaBaja, CausaBaja) "
                                  "VALUES (?,?,?,?,?,?,?,?,?,?,?,?,?,?,?,?)"),
                   QVariantList{r.numero} + valoresFila(v, centro));
        t.confirmar();
        r.hecho = true;
    } catch (const Rehusado& x) {
        r.foco = x.campo;
    }
    return r;
}

ResultadoFicha ModificarElemento(const Sesion& s, Dialogo& d, qint64 n, FichaElemento& f) {
    ResultadoFicha r;
    r.numero = n;
    if (n <= 0) {
        // The message speaks of a due date: the inventory's window always said so.
        d.Informar(
            QStringLiteral("Haga primero doble clic sobre el vencimiento que quiere modificar."));
        return r;
    }
    Comprobacion k(s, d);
    try {
        Valores v = k.comprobar(f, false);
        const std::optional<Elemento> antes = LeerElemento(s, n);
        if (!antes) {
            d.Informar(QStringLiteral("No se pudo hacer la modificación en la base de datos."));
            return r;
        }
        const QString numero = FormatoElemento(n);
        if (v.UltimaAmort != antes->UltimaAmort &&
            !d.Preguntar(
                QStringLiteral("Ha modificado la fecha de la última amortización realizada. Esta "
                               "fecha la controla el programa y no debe cambiarla, salvo que haya "
                               "modificado los asientos de amortización de este elemento. Está "
                               "seguro de que desea modificar la fecha de la última amortización "
                               "del elemento %1")
                    .arg(numero))) {
            v.UltimaAmort = antes->UltimaAmort;
            f.UltimaAmort = fechaCorta(antes->UltimaAmort);
            d.Informar(QStringLiteral("Se ha repuesto la fecha anterior."));
        }
        if (Centimos(v.Amortizado) != Centimos(antes->Amortizado) &&
            !d.Preguntar(QStringLiteral(
                             "Ha modificado el importe del Amortizado (amortización acumulada). "
                             "Este importe lo controla el programa y no debe cambiarlo, salvo que "
                             "haya modificado los asientos de amortización de este elemento. Está "
                             "seguro de que desea modificar el importe amortizado del elemento %1")
                             .arg(numero))) {
            v.Amortizado = antes->Amortizado;
            f.Amortizado = Formato(antes->Amortizado, QStringLiteral("standard"));
            d.Informar(QStringLiteral("Se ha repuesto el importe amortizado anterior."));
        }
        Conexion c = AbrirBavar(s);
        Transaccion t(c);
        const qint64 centro = k.centro(c, v.Localizacion);
        QSqlQuery q = c.ejecutar(
            QStringLiteral("UPDATE Inventario SET Nombre = ?, Naturaleza = ?, Proveedor = ?, "
                           "NCentro = ?, FechaAdq = ?, Importe = ?, Amortizable = ?, "
                           "Porcentaje = ?, Amortizado = ?, UltimaAmort = ?, FinAmort = ?, "
                           "SubctaAmort = ?, SubctaDota = ?, FechaBaja = ?, CausaBaja = ? "
                           "WHERE NElemento = ?"),
            valoresFila(v, centro) + QVariantList{n});
        if (q.numRowsAffected() < 1) {
            d.Informar(QStringLiteral("No se pudo hacer la modificación en la base de datos."));
            return r;
        }
        t.confirmar();
        r.hecho = true;
    } catch (const Rehusado& x) {
        r.foco = x.campo;
    }
    return r;
}

bool EliminarElemento(const Sesion& s, Dialogo& d, qint64 n) {
    const std::optional<Elemento> e = LeerElemento(s, n);
    if (!e)
        return false;
    if (!d.Preguntar(QStringLiteral("Desea eliminar el elemento de Inventario %1 de nombre  %2")
                         .arg(FormatoElemento(n), e->Nombre)))
        return false;
    Conexion c = AbrirBavar(s);
    Transaccion t(c);
    c.ejecutar(QStringLiteral("DELETE FROM Inventario WHERE NElemento = ?"), {n});
    t.confirmar();
    return true;
}

int EliminarDadosDeBaja(const Sesion& s, Dialogo& d) {
    if (!d.Preguntar(QStringLiteral(
            "Desea eliminar todos elementos del Inventario que figuren dados de Baja?")))
        return -1;
    Conexion c = AbrirBavar(s);
    Transaccion t(c);
    QSqlQuery q = c.ejecutar(QStringLiteral("DELETE FROM Inventario WHERE FechaBaja IS NOT NULL"));
    const int n = q.numRowsAffected();
    t.confirmar();
    return n;
}

QString TextoVer(VerInventario ver) {
    switch (ver) {
    case VerInventario::Todos:
        return QStringLiteral("Todos");
    case VerInventario::DadosDeBaja:
        return QStringLiteral("Dados de baja");
    case VerInventario::NoDadosDeBaja:
        return QStringLiteral("No dados de baja");
    case VerInventario::ConAmortizacion:
        return QStringLiteral("Con amortización en el ejercicio");
    case VerInventario::SinAmortizacion:
        return QStringLiteral("Sin amortización en el ejercicio");
    case VerInventario::ConLocalizacion:
        return QStringLiteral("Con localización en");
    case VerInventario::Amortizables:
        return QStringLiteral("Amortizables");
    case VerInventario::NoAmortizables:
        return QStringLiteral("No Amortizables");
    case VerInventario::Amortizados:
        return QStringLiteral("Amortizados");
    case VerInventario::NoAmortizados:
        return QStringLiteral("No Amortizados");
    case VerInventario::AdquiridosEntre:
        return QStringLiteral("Adquiridos entre fechas");
    }
    return {};
}

Rejilla RejillaInventario() {
    return Rejilla({{QStringLiteral("Nº Elemento")},
                    {QStringLiteral("Nombre")},
                    {QStringLiteral("Naturaleza")},
                    {QStringLiteral("Fecha adquis."), TipoColumna::Fecha},
                    {QStringLiteral("Importe"), TipoColumna::Importe},
                    {QStringLiteral("Fra / Proveedor")},
                    {QStringLiteral("Localización")},
                    {QStringLiteral("Fecha Baja"), TipoColumna::Fecha},
                    {QStringLiteral("Causa")},
                    {QStringLiteral("Amortizable")},
                    {QStringLiteral("Porcentaje"), TipoColumna::Numero},
                    {QStringLiteral("Fin Amortiz."), TipoColumna::Fecha},
                    {QStringLiteral("Ultima Amort."), TipoColumna::Fecha},
                    {QStringLiteral("Amortizado"), TipoColumna::Importe},
                    {QStringLiteral("SubctaAmort"), TipoColumna::Texto, true},
                    {QStringLiteral("SubctaDota"), TipoColumna::Texto, true}});
}

QStringList FilaInventario(const Elemento& e) {
    const FichaElemento f = FichaDe(e);
    return {FormatoElemento(e.NElemento),
            f.Nombre,
            f.Naturaleza,
            f.FechaAdq,
            f.Importe,
            f.Proveedor,
            f.Localizacion,
            f.FechaBaja,
            f.CausaBaja,
            f.Amortizable,
            f.Porcentaje,
            f.FinAmort,
            f.UltimaAmort,
            f.Amortizado,
            f.SubctaAmort,
            f.SubctaDota};
}

int LlenarInventario(const Sesion& s, const FiltroInventario& filtro, Rejilla& r) {
    QString donde;
    QVariantList valores;
    const QString ini = FechaISO(s.FechaIniEj), fin = FechaISO(s.FechaFinEj);
    switch (filtro.ver) {
    case VerInventario::Todos:
        break;
    case VerInventario::DadosDeBaja:
        donde = QStringLiteral("FechaBaja IS NOT NULL");
        break;
    case VerInventario::NoDadosDeBaja:
        donde = QStringLiteral("FechaBaja IS NULL");
        break;
    case VerInventario::ConAmortizacion:
        donde = QStringLiteral("UltimaAmort >= ? AND UltimaAmort <= ?");
        valores << ini << fin;
        break;
    case VerInventario::SinAmortizacion:
        donde = QStringLiteral("UltimaAmort IS NULL OR (UltimaAmort < ? OR UltimaAmort > ?)");
        valores << ini << fin;
        break;
    case VerInventario::ConLocalizacion:
        donde = QStringLiteral("NCentro = ?");
        valores << CentroDeNombre(s, filtro.localizacion).NCentro;
        break;
    case VerInventario::Amortizables:
        donde = QStringLiteral("Amortizable = -1");
        break;
    case VerInventario::NoAmortizables:
        donde = QStringLiteral("Amortizable = 0");
        break;
    case VerInventario::Amortizados:
        donde = QStringLiteral("Amortizado >= Importe");
        break;
    case VerInventario::NoAmortizados:
        donde = QStringLiteral("Amortizado <= Importe");
        break;
    case VerInventario::AdquiridosEntre:
        donde = QStringLiteral("FechaAdq BETWEEN ? AND ?");
        valores << FechaISO(filtro.desde) << FechaISO(filtro.hasta);
        break;
    }
    Conexion c = AbrirBavar(s);
    QSqlQuery q = c.ejecutar(
        QStringLiteral("SELECT %1 FROM ConInventario%2 ORDER BY NElemento")
            .arg(CamposElemento, donde.isEmpty() ? QString() : QStringLiteral(" WHERE ") + donde),
        valores);
    r.Vaciar();
    int n = 0;
    while (q.next()) {
        r.AgregarFila(FilaInventario(elementoDe(q)));
        ++n;
    }
    return n;
}
