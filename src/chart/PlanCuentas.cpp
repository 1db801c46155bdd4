#include "chart/PlanCuentas.h"

#include "chart/Aparcar.h"
#include "chart/NCuenta.h"
#include "journal/EjercicioAbierto.h"
#include "platform/Almacen.h"
#include "platform/Dialogo.h"
#include "platform/Errores.h"
#include "platform/Ficheros.h"
#include "store/Campos.h"
#include "store/Conexiones.h"
#include "store/ListasEmpresas.h"
#include "store/Sesion.h"

#include <algorithm>

const QStringList CuentasReservadas{"0100", "0120", "0121", "0129", "2400", "4430", "5219"};
const QStringList SubcuentasReservadas{"012900002", "012000103", "012100104"};
const QString TituloListadoSubcuentas = QStringLiteral("Listado de Subcuentas");
const QString TituloListadoCuentas = QStringLiteral("Listado de Cuentas");

namespace {

ResultadoPlan rechazo(Dialogo& d, const QString& mensaje, CampoPlan foco = CampoPlan::Ninguno,
                      const QString& cortado = {}) {
    d.Informar(mensaje);
    ResultadoPlan r;
    r.foco = foco;
    r.textoCortado = cortado;
    return r;
}

ResultadoPlan hecho(const QString& codigo = {}) {
    ResultadoPlan r;
    r.hecho = true;
    r.NCuenta = codigo;
    return r;
}

QString entreComillas(const QString& texto) {
    return QLatin1Char('\'') + texto + QLatin1Char('\'');
}

// The limits of an account's name; an empty optional when the name passes.
std::optional<ResultadoPlan> limitesCuenta(Dialogo& d, const QString& nombre) {
    if (nombre.size() > MaxNombreCuenta)
        return rechazo(d,
                       QStringLiteral("El nombre de la Cuenta no debe tener más de 60 caracteres."),
                       CampoPlan::NombreCuenta, nombre.left(MaxNombreCuenta));
    if (nombre.trimmed().isEmpty())
        return rechazo(d, QStringLiteral("Por favor, introduzca el nombre de la nueva Cuenta"),
                       CampoPlan::NombreCuenta);
    if (TieneControles(nombre))
        return rechazo(d, MsgControles(EtiquetaCampo(Campo::NombreCuenta)),
                       CampoPlan::NombreCuenta);
    return std::nullopt;
}

// The limits of a subaccount's name; the message for an empty name differs between adding and
// renaming.
std::optional<ResultadoPlan> limitesSubcuenta(Dialogo& d, const QString& nombre, int area,
                                              const QString& msgVacio) {
    if (nombre.size() > MaxNombreSubcuenta)
        return rechazo(
            d, QStringLiteral("El nombre de la Subcuenta no debe tener más de 30 caracteres."),
            CampoPlan::NombreSubcuenta, nombre.left(MaxNombreSubcuenta));
    if (nombre.trimmed().isEmpty())
        return rechazo(d, msgVacio, CampoPlan::NombreSubcuenta);
    if (TieneControles(nombre))
        return rechazo(d, MsgControles(EtiquetaCampo(Campo::NombreSubcuenta)),
                       CampoPlan::NombreSubcuenta);
    if (AreaConFicha(area) && TieneAcentos(nombre))
        return rechazo(d, MsgSinAcentos, CampoPlan::NombreSubcuenta);
    return std::nullopt;
}

// A card whose fields don't fit or carry control characters; empty when it passes.
std::optional<ResultadoPlan> fichaRechazada(Dialogo& d, const FichaCliPro& f) {
    try {
        ComprobarFicha(f);
    } catch (const Rechazo& e) {
        return rechazo(d, e.mensaje());
    }
    return std::nullopt;
}

const QString MsgNoSeElimina = QStringLiteral("No se puede eliminar la Subcuenta ");

// The guards that keep a subaccount in use from being deleted, in their order; the first that
// finds a row gives its message. Empty when none does.
QString guardaEliminarSubcuenta(Sesion& s, Conexion& datos, const QString& n,
                                const QString& nombre) {
    // 1. Lines in any exercise of the company: a subaccount moved in an older year stays.
    const QString msgDiario = MsgNoSeElimina + entreComillas(nombre) +
                              QStringLiteral(" porque existen asientos en los que se utiliza.");
    const QString sqlDiario = QStringLiteral("SELECT 1 FROM Diario WHERE NCuenta = ? LIMIT 1");
    if (!s.enServidor() && !FicheroLibre(s.rutaSelan()))
        return QStringLiteral("El archivo está en uso.");
    bool actualVisto = false;
    for (const RegistroSelan& e : EjerciciosDe(s, s.EmpresaActual)) {
        const int ano = e.Ano.toInt();
        if (ano == s.AnoActual) {
            actualVisto = true;
            if (datos.existe(sqlDiario, {n}))
                return msgDiario;
            continue;
        }
        Conexion otro = AbrirBaseEmpresa(s, s.rutaEjercicio(ano), TipoBase::Ejercicio);
        if (otro.existe(sqlDiario, {n}))
            return msgDiario;
    }
    if (!actualVisto && datos.existe(sqlDiario, {n}))
        return msgDiario;

    const QString prefijo = MsgNoSeElimina + nombre;
    // 2 to 4, in this exercise.
    if (datos.existe(QStringLiteral("SELECT 1 FROM DelDia WHERE NCuenta1 = ? OR NCuenta2 = ?"),
                     {n, n}))
        return prefijo + QStringLiteral(" porque se está utilizando en la Caja del Día.");
    if (datos.existe(QStringLiteral("SELECT 1 FROM TiposIVA WHERE NCuenta = ?"), {n}))
        return prefijo + QStringLiteral(" porque se utiliza en la tabla de cuentas de IVA.");
    if (datos.existe(QStringLiteral("SELECT 1 FROM DatosIVA WHERE NCuenta = ?"), {n}))
        return prefijo + QStringLiteral(" porque se utiliza en la tabla de IVA.");

    // 5 to 7, in the company database.
    Conexion bavar = AbrirBavar(s);
    if (bavar.existe(
            QStringLiteral("SELECT 1 FROM Vencimientos WHERE NCuenta1 = ? OR NCuenta2 = ?"),
            {n, n}))
        return prefijo + QStringLiteral(" porque se utiliza en la tabla de Vencimientos.");
    if (bavar.existe(
            QStringLiteral("SELECT 1 FROM Inventario WHERE SubctaAmort = ? OR SubctaDota = ?"),
            {n, n}))
        return prefijo + QStringLiteral(" porque se utiliza en la tabla de Inventario.");
    const QVariant diseno = bavar.escalar(
        QStringLiteral("SELECT Nombre FROM AsPredi WHERE NCuenta = ? OR NCliPro = ? LIMIT 1"),
        {n, n});
    if (diseno.isValid())
        return prefijo + QStringLiteral(" porque se utiliza en el Asiento Prediseñado ") +
               entreComillas(diseno.toString().trimmed()) + QLatin1Char('.');
    return {};
}

} // namespace

QList<FilaGrupo> GruposDeArea(Conexion& c, int area) {
    QList<FilaGrupo> r;
    QSqlQuery q = c.ejecutar(QStringLiteral("SELECT NGrupo, Grupo FROM Grupos WHERE NGrupo LIKE ? "
                                            "ORDER BY NGrupo"),
                             {QString::number(area) + QLatin1Char('%')});
    while (q.next())
        r << FilaGrupo{q.value(0).toString().trimmed(), q.value(1).toString().trimmed()};
    return r;
}

QList<FilaSubcuenta> SubcuentasDeArea(Conexion& c, const Sesion& s, int area, bool sinAparcadas) {
    QList<FilaSubcuenta> r;
    QSqlQuery q = c.ejecutar(
        QStringLiteral("SELECT NCuenta, Cuenta, Grupo, NGrupo, Aparcada, Desde FROM ConCtaGrp "
                       "WHERE NCuenta LIKE ? ORDER BY Grupo, Cuenta"),
        {QString::number(area) + QLatin1Char('%')});
    while (q.next()) {
        FilaSubcuenta f;
        f.NCuenta = q.value(0).toString().trimmed();
        f.Cuenta = q.value(1).toString().trimmed();
        f.Grupo = q.value(2).toString().trimmed();
        f.NGrupo = q.value(3).toString().trimmed();
        f.Aparcada = EstaAparcada(q.value(4), q.value(5), s.AnoActual);
        if (sinAparcadas && f.Aparcada)
            continue;
        r << f;
    }
    return r;
}

ResultadoPlan AnadirCuenta(Sesion& s, Dialogo& d, int area, const QString& codigo,
                           const QString& nombre) {
    Conexion c = AbrirDatos(s);
    if (!EjercicioAbierto(c, s, d))
        return {};
    if (auto r = limitesCuenta(d, nombre))
        return *r;
    const QString cod = codigo.trimmed();
    if (cod.size() != 3)
        return rechazo(
            d, QStringLiteral("Por favor, introduzca el Código de la nueva Cuenta con tres cifras"),
            CampoPlan::CodigoCuenta);
    const int suArea = NumGrupo(cod, s.AnoActual);
    if (suArea == SinArea)
        return rechazo(
            d,
            QStringLiteral(
                "Por favor utilice un número de Cuenta del Plan General de Contabilidad."),
            CampoPlan::CodigoCuenta);
    if (suArea != area)
        return rechazo(d,
                       QStringLiteral("El código de cuenta %1 debe crearlo en el área %2.")
                           .arg(cod)
                           .arg(suArea),
                       CampoPlan::CodigoCuenta);
    const QString ngrupo = QString::number(area) + cod;
    const QString nom = nombre.trimmed();
    QString error;
    CampoPlan foco = CampoPlan::Ninguno;
    {
        Transaccion t(c);
        if (c.existe(QStringLiteral("SELECT 1 FROM Grupos WHERE NGrupo = ?"), {ngrupo})) {
            error = QStringLiteral("Ya existe una Cuenta con el código ") + entreComillas(cod) +
                    QLatin1Char('.');
            foco = CampoPlan::CodigoCuenta;
        } else if (c.existe(QStringLiteral("SELECT 1 FROM Grupos WHERE Grupo = ? COLLATE NOCASE"),
                            {nom})) {
            error = QStringLiteral("Ya existe una Cuenta con el nombre ") + entreComillas(nom) +
                    QLatin1Char('.');
            foco = CampoPlan::NombreCuenta;
        } else {
            c.ejecutar(QStringLiteral("INSERT INTO Grupos (NGrupo, Grupo) VALUES (?, ?)"),
                       {ngrupo, nom});
            t.confirmar();
        }
    }
    if (!error.isEmpty())
        return rechazo(d, error, foco);
    return hecho(ngrupo);
}

ResultadoPlan ModificarCuenta(Sesion& s, Dialogo& d, const QString& ngrupo, const QString& nombre) {
    Conexion c = AbrirDatos(s);
    if (!EjercicioAbierto(c, s, d))
        return {};
    if (auto r = limitesCuenta(d, nombre))
        return *r;
    const QString g = ngrupo.trimmed();
    const QString nom = nombre.trimmed();
    QString error;
    {
        Transaccion t(c);
        const QVariant actual =
            c.escalar(QStringLiteral("SELECT Grupo FROM Grupos WHERE NGrupo = ?"), {g});
        if (actual.isValid() && actual.toString().trimmed() == nom) {
            error = QStringLiteral(
                "No se han detectado cambios, modifique antes el nombre de la Cuenta.");
        } else if (c.existe(
                       QStringLiteral(
                           "SELECT 1 FROM Grupos WHERE Grupo = ? COLLATE NOCASE AND NGrupo <> ?"),
                       {nom, g})) {
            error = QStringLiteral("Ya existe un Grupo con el nombre ") + entreComillas(nom) +
                    QLatin1Char('.');
        } else if (!actual.isValid()) {
            error = QStringLiteral("No se encontró el registro.");
        } else {
            c.ejecutar(QStringLiteral("UPDATE Grupos SET Grupo = ? WHERE NGrupo = ?"), {nom, g});
            t.confirmar();
        }
    }
    if (!error.isEmpty())
        return rechazo(d, error, CampoPlan::NombreCuenta);
    return hecho(g);
}

ResultadoPlan EliminarCuenta(Sesion& s, Dialogo& d, const QString& ngrupo) {
    Conexion c = AbrirDatos(s);
    if (!EjercicioAbierto(c, s, d))
        return {};
    const QString g = ngrupo.trimmed();
    if (CuentasReservadas.contains(g))
        return rechazo(d, QStringLiteral("Esta Cuenta no se puede eliminar."));
    const QVariant nombre =
        c.escalar(QStringLiteral("SELECT Grupo FROM Grupos WHERE NGrupo = ?"), {g});
    const QString nom = nombre.isValid() ? nombre.toString().trimmed() : QString();
    if (!d.Preguntar(QStringLiteral("Está seguro de que desea eliminar la Cuenta ") + nom))
        return {};
    QString error;
    {
        Transaccion t(c);
        if (c.existe(QStringLiteral("SELECT 1 FROM Cuentas WHERE NCuenta LIKE ? LIMIT 1"),
                     {g + QLatin1Char('%')})) {
            error = QStringLiteral("No se puede eliminar la Cuenta ") + entreComillas(nom) +
                    QStringLiteral(" porque hay Cuentas que lo utilizan.");
        } else if (c.ejecutar(QStringLiteral("DELETE FROM Grupos WHERE NGrupo = ?"), {g})
                       .numRowsAffected() < 1) {
            error = QStringLiteral("No se eliminó la Cuenta.");
        } else {
            t.confirmar();
        }
    }
    if (!error.isEmpty())
        return rechazo(d, error);
    return hecho(g);
}

ResultadoPlan AnadirSubcuenta(Sesion& s, Dialogo& d, const NuevaSubcuenta& n) {
    Conexion c = AbrirDatos(s);
    if (!EjercicioAbierto(c, s, d))
        return {};
    if (auto r = limitesSubcuenta(d, n.Cuenta, n.area,
                                  QStringLiteral("Debe introducir el nombre de la Subcuenta.")))
        return *r;
    if (n.NGrupo.trimmed().isEmpty())
        return rechazo(d,
                       QStringLiteral("Debe seleccionar la Cuenta a la que va a pertenecer la "
                                      "Subcuenta. Si no existe ninguna Cuenta debe crearlas "
                                      "primero."),
                       CampoPlan::CuentaSubcuenta);
    const bool conFicha = AreaConFicha(n.area);
    if (conFicha) {
        if (auto r = fichaRechazada(d, n.ficha))
            return *r;
        const ResultadoCompCliPro otro = CompCliPro(c, n.ficha.NIF);
        if (otro.existe) {
            const QVariant nombreOtro = c.escalar(
                QStringLiteral("SELECT Cuenta FROM Cuentas WHERE NCuenta = ?"), {otro.NCuenta});
            if (!d.Preguntar(QStringLiteral(" Ya existe la subcuenta ") +
                             nombreOtro.toString().trimmed() +
                             QStringLiteral(" de Clientes/Proveedores con ese NIF. Desea dar de "
                                            "alta la nueva Subcuenta?")))
                return {};
        }
    }
    const QString nom = n.Cuenta.trimmed();
    QString error;
    CampoPlan foco = CampoPlan::Ninguno;
    QString ncuenta;
    {
        Transaccion t(c);
        const QVariant ngrupo = c.escalar(
            QStringLiteral("SELECT NGrupo FROM Grupos WHERE NGrupo = ?"), {n.NGrupo.trimmed()});
        if (c.existe(QStringLiteral("SELECT 1 FROM Cuentas WHERE Cuenta = ? COLLATE NOCASE"),
                     {nom})) {
            error = QStringLiteral("Ya existe una Subcuenta con el nombre ") + entreComillas(nom) +
                    QLatin1Char('.');
            foco = CampoPlan::NombreSubcuenta;
        } else if (!ngrupo.isValid()) {
            error = QStringLiteral("Error en la Cuenta.");
            foco = CampoPlan::CuentaSubcuenta;
        } else {
            // The highest serial is read again here rather than trusted from the session, so
            // that a stale value can never hand out a serial that is in use.
            const long ultima = std::max(s.UltimaSubcuenta, UltimaSubcuenta(c));
            const long serie = SiguienteSerie(c, ultima);
            if (serie > 99999) {
                error = QStringLiteral("No quedan números libres para una nueva Subcuenta.");
            } else {
                ncuenta = ComponerNCuenta(ngrupo.toString(), serie);
                c.ejecutar(QStringLiteral("INSERT INTO Cuentas (NCuenta, Cuenta, NGrupo, Aparcada, "
                                          "Desde) VALUES (?, ?, ?, 0, 0)"),
                           {ncuenta, nom, ngrupo.toString().trimmed()});
                if (conFicha) {
                    FichaCliPro f = n.ficha;
                    f.NCuenta = ncuenta;
                    InsCliPro(c, f);
                }
                t.confirmar();
                s.UltimaSubcuenta = std::max(ultima, serie);
            }
        }
    }
    if (!error.isEmpty())
        return rechazo(d, error, foco);
    return hecho(ncuenta);
}

ResultadoPlan ModificarSubcuenta(Sesion& s, Dialogo& d, const QString& ncuenta,
                                 const QString& nombre, const FichaCliPro* ficha) {
    Conexion c = AbrirDatos(s);
    if (!EjercicioAbierto(c, s, d))
        return {};
    const QString n = ncuenta.trimmed();
    const int area = n.left(1).toInt();
    if (auto r = limitesSubcuenta(d, nombre, area,
                                  QStringLiteral("Debe introducir el nombre de la Subcuenta")))
        return *r;
    const QVariant actual =
        c.escalar(QStringLiteral("SELECT Cuenta FROM Cuentas WHERE NCuenta = ?"), {n});
    if (!actual.isValid())
        return rechazo(d, QStringLiteral("No se pudo hacer la modificación."));
    const QString nom = nombre.trimmed();
    const bool conFicha = ficha && AreaConFicha(area);
    if (conFicha)
        if (auto r = fichaRechazada(d, *ficha))
            return *r;
    const bool cambiaNombre = actual.toString().trimmed() != nom;
    const bool cambiaFicha = conFicha && !ObtCliPro(c, n).mismosDatos(*ficha);
    if (!cambiaNombre && !cambiaFicha)
        return rechazo(d, QStringLiteral("No se han detectado cambios"));
    if (!d.Preguntar(QStringLiteral("Desea guardar los cambios?")))
        return {};
    QString error;
    {
        Transaccion t(c);
        if (cambiaNombre &&
            c.existe(QStringLiteral(
                         "SELECT 1 FROM Cuentas WHERE Cuenta = ? COLLATE NOCASE AND NCuenta <> ?"),
                     {nom, n})) {
            error = QStringLiteral("Ya existe una Subcuenta de nombre ") + entreComillas(nom) +
                    QLatin1Char('.');
        } else if (c.ejecutar(QStringLiteral("UPDATE Cuentas SET Cuenta = ? WHERE NCuenta = ?"),
                              {nom, n})
                       .numRowsAffected() < 1) {
            error = QStringLiteral("No se pudo hacer la modificación.");
        } else {
            if (cambiaFicha) {
                FichaCliPro f = *ficha;
                f.NCuenta = n;
                InsCliPro(c, f);
            }
            t.confirmar();
        }
    }
    if (!error.isEmpty())
        return rechazo(d, error, CampoPlan::NombreSubcuenta);
    return hecho(n);
}

ResultadoPlan EliminarSubcuenta(Sesion& s, Dialogo& d, const QString& ncuenta) {
    Conexion c = AbrirDatos(s);
    if (!EjercicioAbierto(c, s, d))
        return {};
    const QString n = ncuenta.trimmed();
    if (SubcuentasReservadas.contains(n))
        return rechazo(d, QStringLiteral("Esta Subcuenta no se puede eliminar."));
    const QVariant nombre =
        c.escalar(QStringLiteral("SELECT Cuenta FROM Cuentas WHERE NCuenta = ?"), {n});
    if (!nombre.isValid())
        return rechazo(d, QStringLiteral("No se eliminó la Subcuenta."));
    const QString nom = nombre.toString().trimmed();
    if (!d.Preguntar(QStringLiteral("Está seguro de que desea eliminar la Subcuenta ") +
                     entreComillas(nom) + QLatin1Char('?')))
        return {};
    const QString guarda = guardaEliminarSubcuenta(s, c, n, nom);
    if (!guarda.isEmpty())
        return rechazo(d, guarda);
    QString error;
    {
        Transaccion t(c);
        if (c.ejecutar(QStringLiteral("DELETE FROM Cuentas WHERE NCuenta = ?"), {n})
                .numRowsAffected() < 1) {
            error = QStringLiteral("No se eliminó la Subcuenta.");
        } else {
            ElimFicha(c, n);
            // With no line in this exercise its running totals can only be zero; the row goes so
            // that a later subaccount given the same serial starts clean.
            c.ejecutar(
                QStringLiteral("DELETE FROM Mayor WHERE NCuenta = ? AND NOT EXISTS "
                               "(SELECT 1 FROM Diario WHERE Diario.NCuenta = Mayor.NCuenta)"),
                {n});
            t.confirmar();
        }
    }
    if (!error.isEmpty())
        return rechazo(d, error);
    return hecho(n);
}
