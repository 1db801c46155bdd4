#include "yearend/Adaptacion.h"

#include "platform/Almacen.h"
#include "platform/Dialogo.h"
#include "platform/Errores.h"
#include "store/Conexiones.h"
#include "store/Ejercicios.h"
#include "store/Sesion.h"
#include "yearend/TablasPlan2007.h"
#include "yearend/TraducirCuenta.h"

#include <QDir>
#include <QFile>
#include <QHash>

const QString MsgAdaptacionConcluida = QStringLiteral(
    "Se ha concluido el proceso de adaptación de esta contabilidad al nuevo Plan General de "
    "Contabilidad. Se han creado, eliminado o modificado algunas Cuentas, ya sea de nombre como "
    "de código, y se han modificado algunas Subcuentas que hayan podido cambiar a otra Cuenta. El "
    "nombre de las Subcuentas modificadas se han marcado con (*), examínelas y compruebe si debe "
    "cambiarles el nombre, lo cual tiene que hacer manualmente en Gestión de Grupos y Cuentas, "
    "del menú Gestión Contable.");
const QString MsgAdaptacionRevisar = QStringLiteral(
    "Compruebe si en algún caso se ha acumulado el saldo de distintas Subcuentas en una sola, en "
    "cuyo caso debe desglosar manualmente entre las que corresponda. Por último realice el "
    "proceso Reorganización de datos, del menú Herramientas, para verificar que todo esté "
    "correcto.");
const QString MsgYaAdaptada = QStringLiteral(
    "La contabilidad de este ejercicio ya está adaptada al nuevo Plan General de Contabilidad.");

namespace {

const QString GrupoMarca = QStringLiteral("5219");
const QString FicheroMemoria = QStringLiteral("Fmemor8.dat");
// Codes being translated in a table are first written behind this mark, so that a code moved
// onto another that moves too is not moved twice.
const QString Marca = QStringLiteral("~");

bool adaptado(Conexion& c) {
    return c.existe(QStringLiteral("SELECT 1 FROM Grupos WHERE NGrupo = ?"), {GrupoMarca});
}

QString nombreEmpresa(Conexion& c) {
    return c.escalar(QStringLiteral("SELECT Nombre FROM Empresa")).toString().trimmed();
}

void ponerGrupos(Conexion& c, const QStringList& claves) {
    for (const QString& k : claves) {
        const QString nombre = NombreGrupo2007(k);
        if (c.existe(QStringLiteral("SELECT 1 FROM Grupos WHERE NGrupo = ?"), {k}))
            c.ejecutar(QStringLiteral("UPDATE Grupos SET Grupo = ? WHERE NGrupo = ?"), {nombre, k});
        else
            c.ejecutar(QStringLiteral("INSERT INTO Grupos (NGrupo, Grupo) VALUES (?, ?)"),
                       {k, nombre});
    }
}

// The subaccounts of groups that move: new code in the new group with the same serial, raised
// until free; the name marked for review. The exercise's own references follow the code.
QList<RegistroTransnp> moverSubcuentas(Conexion& c) {
    struct Fila {
        QString ncuenta, cuenta, ngrupo;
    };
    QList<Fila> filas;
    {
        QSqlQuery q = c.ejecutar(
            QStringLiteral("SELECT NCuenta, Cuenta, NGrupo FROM Cuentas ORDER BY NCuenta"));
        while (q.next())
            filas.append({q.value(0).toString().trimmed(), q.value(1).toString().trimmed(),
                          q.value(2).toString().trimmed()});
    }
    QList<RegistroTransnp> movidas;
    for (const Fila& f : filas) {
        const QString grupo = GrupoTraducido(f.ngrupo);
        if (grupo.isEmpty())
            continue;
        bool ok = false;
        int serie = f.ncuenta.right(5).toInt(&ok);
        if (!ok)
            serie = 0;
        QString nuevo = grupo + QStringLiteral("%1").arg(serie, 5, 10, QLatin1Char('0'));
        // A subaccount is not in the way of itself: a group that stays keeps its codes.
        while (nuevo != f.ncuenta &&
               c.existe(QStringLiteral("SELECT 1 FROM Cuentas WHERE NCuenta = ?"), {nuevo})) {
            if (++serie > 99999)
                throw Rechazo(QStringLiteral("No queda ningún código libre en la cuenta %1 para "
                                             "la subcuenta %2.")
                                  .arg(grupo, f.ncuenta));
            nuevo = grupo + QStringLiteral("%1").arg(serie, 5, 10, QLatin1Char('0'));
        }
        if (nuevo == f.ncuenta && grupo == f.ngrupo)
            continue;
        c.ejecutar(QStringLiteral("UPDATE Cuentas SET NCuenta = ?, NGrupo = ?, Cuenta = ? "
                                  "WHERE NCuenta = ?"),
                   {nuevo, grupo, QStringLiteral("(*) ") + f.cuenta.left(26), f.ncuenta});
        for (const char* tabla : {"Diario", "Mayor", "DatosIVA", "CliPro", "TiposIVA"})
            c.ejecutar(QStringLiteral("UPDATE %1 SET NCuenta = ? WHERE NCuenta = ?")
                           .arg(QLatin1String(tabla)),
                       {nuevo, f.ncuenta});
        movidas.append({f.ncuenta, nuevo});
    }
    return movidas;
}

// Translates one column of a table through the records and the group translation. With
// marcar, the rows changed get "(*) " before their Subcuenta text.
void traducirColumna(Conexion& c, const QString& tabla, const QString& columna,
                     const QList<RegistroTransnp>& registros, bool marcar = false) {
    QStringList codigos;
    {
        QSqlQuery q = c.ejecutar(
            QStringLiteral("SELECT DISTINCT %1 FROM %2 WHERE %1 IS NOT NULL").arg(columna, tabla));
        while (q.next())
            codigos << q.value(0).toString();
    }
    bool alguno = false;
    for (const QString& codigo : codigos) {
        if (codigo.trimmed().isEmpty())
            continue;
        const QString nuevo = TraducirCon(registros, codigo);
        if (nuevo == codigo.trimmed())
            continue;
        const QString marcaSubcuenta =
            marcar ? QStringLiteral(", Subcuenta = '(*) ' || COALESCE(Subcuenta, '')") : QString();
        c.ejecutar(QStringLiteral("UPDATE %1 SET %2 = ?%3 WHERE %2 = ?")
                       .arg(tabla, columna, marcaSubcuenta),
                   {Marca + nuevo, codigo});
        alguno = true;
    }
    if (alguno)
        c.ejecutar(
            QStringLiteral("UPDATE %1 SET %2 = SUBSTR(%2, 2) WHERE %2 LIKE ?").arg(tabla, columna),
            {Marca + QLatin1Char('%')});
}

// Restores Transnp.dat as it was before an adaptation that did not go through.
struct CopiaTransnp {
    QString ruta;
    bool existia;
    QList<RegistroTransnp> antes;
    bool confirmada = false;
    explicit CopiaTransnp(const QString& r)
        : ruta(r), existia(QFile::exists(r)), antes(LeerTransnp(r)) {}
    ~CopiaTransnp() {
        if (confirmada)
            return;
        try {
            if (existia)
                EscribirTransnp(ruta, antes);
            else
                QFile::remove(ruta);
        } catch (...) {
        }
    }
};

ResultadoAdaptacion adaptar(Sesion& s, Dialogo& d, bool preguntando) {
    {
        Conexion c = AbrirDatos(s);
        AnadirCuentaResultadosNegativos(c);
        if (adaptado(c))
            return {ResultadoAdaptacion::YaAdaptada, {}};
        const QString texto = MsgAdaptar(nombreEmpresa(c), s.AnoActual, preguntando);
        if (preguntando) {
            if (!d.Preguntar(texto))
                return {ResultadoAdaptacion::NoConfirmada, {}};
        } else {
            d.Informar(texto);
        }
    }

    Conexion c = AbrirDatos(s);
    AdjuntarBavar(c, s);
    CopiaTransnp copia(RutaTransnp(s));
    QList<RegistroTransnp> movidas;
    {
        Transaccion t(c);
        // Another user may have adapted it while the question was on screen.
        if (adaptado(c))
            return {ResultadoAdaptacion::YaAdaptada, {}};
        ponerGrupos(c, GruposAnadirPrimero());
        ponerGrupos(c, GruposAnadirSegundo());
        movidas = moverSubcuentas(c);
        for (const QString& k : GruposEliminar())
            c.ejecutar(QStringLiteral("DELETE FROM Grupos WHERE NGrupo = ?"), {k});

        const QList<RegistroTransnp> registros = copia.antes + movidas;
        traducirColumna(c, QStringLiteral("Bavar.AsPredi"), QStringLiteral("NCuenta"), registros,
                        true);
        traducirColumna(c, QStringLiteral("Bavar.Inventario"), QStringLiteral("SubctaAmort"),
                        registros);
        traducirColumna(c, QStringLiteral("Bavar.Inventario"), QStringLiteral("SubctaDota"),
                        registros);
        traducirColumna(c, QStringLiteral("DelDia"), QStringLiteral("NCuenta1"), registros);
        traducirColumna(c, QStringLiteral("DelDia"), QStringLiteral("NCuenta2"), registros);

        if (!movidas.isEmpty())
            EscribirTransnp(copia.ruta, registros);
        // The formulas of the notes under the new chart, unless the company has its own.
        const QString memoria = QDir(s.AppPath).filePath(FicheroMemoria);
        const QString destino = QDir(s.carpetaEmpresa()).filePath(FicheroMemoria);
        if (QFile::exists(memoria) && !QFile::exists(destino) && !QFile::copy(memoria, destino))
            throw ErrorAlmacen(MsgNoSeEscribe(destino));
        t.confirmar();
        copia.confirmada = true;
    }
    d.Informar(preguntando ? MsgAdaptacionConcluida + QLatin1Char(' ') + MsgAdaptacionRevisar
                           : MsgAdaptacionConcluida);
    return {ResultadoAdaptacion::Hecha, movidas};
}

} // namespace

QString MsgAdaptar(const QString& empresa, int ano, bool preguntando) {
    QString t = QStringLiteral("Se va a adaptar la contabilidad de ") + empresa +
                QStringLiteral(", Ejercicio de ") + QString::number(ano) +
                QStringLiteral(", al nuevo Plan General de Contabilidad para PYMES. Tras realizar "
                               "el proceso deberá realizar algunos ajustes manualmente.");
    if (preguntando)
        t += QStringLiteral(" Sería conveniente que dispusiese de copia de seguridad de los "
                            "datos. Desea continuar?");
    return t;
}

bool PlanAdaptado(const Sesion& s) {
    Conexion c = AbrirDatos(s);
    return adaptado(c);
}

ResultadoAdaptacion AdaptarPlan(Sesion& s, Dialogo& d) {
    return adaptar(s, d, false);
}

ResultadoAdaptacion AdaptarPlanPreguntando(Sesion& s, Dialogo& d) {
    return adaptar(s, d, true);
}

void InstalarAdaptacionPlan() {
    AdaptacionPlan() = [](Sesion& s, Dialogo& d, int anoAnterior) {
        if (s.AnoActual < 2008)
            return;
        // A failure leaves the exercise as it was (made or chosen all the same) and is told;
        // the next time it is chosen the question comes again.
        try {
            if (anoAnterior != 0) {
                // A new exercise: only one made from an exercise of the old chart.
                if (anoAnterior < 2008)
                    AdaptarPlan(s, d);
                return;
            }
            if (!PlanAdaptado(s))
                AdaptarPlanPreguntando(s, d);
        } catch (const ErrorQuilmar& e) {
            d.Informar(e.mensaje());
        }
    };
}
