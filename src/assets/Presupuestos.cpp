#include "assets/Presupuestos.h"

#include "platform/Almacen.h"
#include "platform/Errores.h"
#include "platform/Ficheros.h"
#include "platform/Rejilla.h"
#include "reports/TablaImpresa.h"
#include "store/Conexiones.h"
#include "store/Formato.h"
#include "store/Rutinas.h"
#include "store/Sesion.h"

#include <QDate>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QtEndian>
#include <cstring>

namespace {

constexpr int AnchoCuenta = 9;
constexpr int AnchoAno = 4;
constexpr int AnchoSector = 12;
constexpr int PosAnual = 13;
constexpr int PosTipo = 21;
constexpr int PosMeses = 22;
constexpr int PosSector = 126;

void ponerDoble(QByteArray& r, int pos, double v) {
    qToLittleEndian(v, r.data() + pos);
}
double leerDoble(const QByteArray& r, int pos) {
    return qFromLittleEndian<double>(r.constData() + pos);
}

// The value an amount shows in "standard", which is what the screens compare.
double Estandar(double v) {
    return ValorImporte(Formato(v, QStringLiteral("standard")));
}

} // namespace

QByteArray RegistroPresupuesto(const PartidaPresupuesto& p, const QString& ano,
                               const QString& sector) {
    QByteArray r(LongitudRegistroPresupuesto, ' ');
    r.replace(0, AnchoCuenta, CampoFijo(p.NCuenta, AnchoCuenta));
    r.replace(AnchoCuenta, AnchoAno, CampoFijo(ano, AnchoAno));
    ponerDoble(r, PosAnual, p.Anual);
    r[PosTipo] = p.Tipo;
    for (int m = 0; m <= 12; ++m)
        ponerDoble(r, PosMeses + 8 * m, p.Meses[m]);
    r.replace(PosSector, AnchoSector, CampoFijo(sector, AnchoSector));
    return r;
}

PartidaPresupuesto PartidaDeRegistro(const QByteArray& r, QString* ano, QString* sector) {
    if (r.size() < LongitudRegistroPresupuesto)
        throw ErrorAlmacen(QStringLiteral("El archivo de presupuesto está dañado."));
    PartidaPresupuesto p;
    p.NCuenta = DeCp1252(r.mid(0, AnchoCuenta)).trimmed();
    p.Anual = leerDoble(r, PosAnual);
    p.Tipo = r[PosTipo] == 'I' ? 'I' : 'G';
    for (int m = 0; m <= 12; ++m)
        p.Meses[m] = leerDoble(r, PosMeses + 8 * m);
    if (ano)
        *ano = DeCp1252(r.mid(AnchoCuenta, AnchoAno)).trimmed();
    if (sector)
        *sector = DeCp1252(r.mid(PosSector, AnchoSector)).trimmed();
    return p;
}

QString RutaPresupuesto(const Sesion& s, const QString& nombre) {
    return QDir(s.carpetaEmpresa()).filePath(nombre + QStringLiteral(".prt"));
}

QString NombreDePresupuesto(const QString& ruta) {
    const QString f = QFileInfo(ruta).fileName();
    return f.left(qMax(0, f.size() - 4));
}

QStringList ListaPresupuestos(const Sesion& s) {
    QStringList nombres;
    const QStringList ficheros =
        QDir(s.carpetaEmpresa()).entryList({QStringLiteral("*.prt")}, QDir::Files, QDir::Name);
    for (const QString& f : ficheros)
        nombres << NombreDePresupuesto(f);
    return nombres;
}

PartidaPresupuesto NuevaPartida(const Sesion& s, const QString& ncuenta, double anual) {
    PartidaPresupuesto p;
    p.NCuenta = ncuenta.trimmed();
    p.Anual = Centimos(anual);
    const QChar plan = p.NCuenta.size() == 9 ? p.NCuenta.at(1) : QChar();
    if (plan != QLatin1Char('6') && plan != QLatin1Char('7'))
        throw Rechazo(QStringLiteral("La subcuenta %1 no es de gastos (grupo 6) ni de ingresos "
                                     "(grupo 7).")
                          .arg(p.NCuenta));
    p.Tipo = plan == QLatin1Char('7') ? 'I' : 'G';
    Conexion c = AbrirDatos(s);
    Lector l(c, QStringLiteral("SELECT Cuenta FROM Cuentas WHERE NCuenta = ?"), {p.NCuenta});
    if (!l.siguiente())
        throw Rechazo(QStringLiteral("No existe la subcuenta %1.").arg(p.NCuenta));
    p.Cuenta = l.texto(0).trimmed();
    return p;
}

void RepartirPorIgual(PartidaPresupuesto& p, const MesesMarcados& marcados) {
    p.Meses.fill(0);
    int n = 0;
    int ultimo = 0;
    for (int m = 0; m < 12; ++m)
        if (marcados[m]) {
            ++n;
            ultimo = m + 1;
        }
    if (n == 0)
        return;
    const double cuota = Estandar(p.Anual / n);
    for (int m = 1; m < ultimo; ++m)
        if (marcados[m - 1])
            p.Meses[m] = cuota;
    p.Meses[ultimo] = Estandar(p.Anual - Estandar(cuota * (n - 1)));
    p.Meses[0] = n;
}

QString ComprobarReparto(PartidaPresupuesto& p, const MesesMarcados& marcados) {
    int n = 0;
    double suma = 0;
    for (int m = 1; m <= 12; ++m)
        if (marcados[m - 1] && p.Meses[m] > 0) {
            ++n;
            suma += p.Meses[m];
        }
    if (n == 0)
        return QStringLiteral("No ha marcado ningún mes en que se producirán los ") +
               (p.Tipo == 'I' ? QStringLiteral("ingresos") : QStringLiteral("gastos")) +
               QLatin1Char('.');
    if (Formato(suma, QStringLiteral("standard")) != Formato(p.Anual, QStringLiteral("standard")))
        return QStringLiteral("El reparto por meses es distinto al importe anual presupuestado.");
    // Months left unmarked keep nothing, so that the file's months add up to the year.
    for (int m = 1; m <= 12; ++m)
        if (!marcados[m - 1] || p.Meses[m] < 0)
            p.Meses[m] = 0;
    p.Meses[0] = n;
    return {};
}

namespace {

// The checks of the year, name and sector, with the screen's messages; empty when all is well.
QString comprobarCabecera(const Presupuesto& p) {
    const QString ano = p.Ano.trimmed();
    if (ano.size() < 4)
        return QStringLiteral("Por favor, introduzca el año con cuatro cifras.");
    bool ok = false;
    const int a = ano.toInt(&ok);
    if (!ok || ano.size() != 4 || a < 1990 || a > QDate::currentDate().year() + 3)
        return QStringLiteral("El año debe ser posterior a 1990 e inferior al actual más cuatro.");
    const QString nombre = p.Nombre.trimmed();
    if (nombre.isEmpty())
        return QStringLiteral("Por favor, introduzca el nombre del presupuesto.");
    // The name becomes a file name in the company folder.
    static const QString prohibidos = QStringLiteral("\\/:*?\"<>|");
    for (const QChar ch : nombre)
        if (ch.unicode() < 32 || prohibidos.contains(ch) || ch == QChar(127))
            return QStringLiteral("El nombre del presupuesto no puede llevar caracteres de "
                                  "control ni ninguno de estos: \\ / : * ? \" < > |");
    if (nombre.startsWith(QLatin1Char('.')))
        return QStringLiteral("El nombre del presupuesto no puede empezar por un punto.");
    if (p.Sector.trimmed().size() > AnchoSector)
        return QStringLiteral("El sector de un presupuesto no puede tener más de %1 caracteres.")
            .arg(AnchoSector);
    return {};
}

} // namespace

bool GuardarPresupuesto(const Sesion& s, Dialogo& d, const Presupuesto& p,
                        const Progreso& progreso) {
    if (const QString error = comprobarCabecera(p); !error.isEmpty()) {
        d.Informar(error);
        return false;
    }
    const QString nombre = p.Nombre.trimmed();
    const QString ruta = RutaPresupuesto(s, nombre);
    const QString copia = QDir(s.carpetaEmpresa()).filePath(nombre + QStringLiteral(".bak"));
    bool conCopia = false;
    if (QFile::exists(ruta)) {
        if (!d.Preguntar(QStringLiteral("Está seguro de que desea modificar el Presupuesto %1?")
                             .arg(nombre)))
            return false;
        // A stale copy left by an earlier failure does not stop this save.
        if (QFile::exists(copia) && !QFile::remove(copia))
            throw ErrorAlmacen(QStringLiteral("Error: no se pudo borrar la copia %1.").arg(copia));
        if (!QFile::rename(ruta, copia))
            throw ErrorAlmacen(QStringLiteral("Error: no se pudo hacer la copia del presupuesto "
                                              "%1 (¿está abierto en otro programa?).")
                                   .arg(nombre));
        conCopia = true;
    }
    QList<const PartidaPresupuesto*> orden;
    for (const PartidaPresupuesto& q : p.partidas)
        if (q.Tipo == 'I')
            orden << &q;
    for (const PartidaPresupuesto& q : p.partidas)
        if (q.Tipo != 'I')
            orden << &q;
    QFile f(ruta);
    try {
        if (!f.open(QIODevice::WriteOnly | QIODevice::Truncate))
            throw ErrorAlmacen(QStringLiteral("Error: no se pudo crear el archivo %1 (%2).")
                                   .arg(QDir::toNativeSeparators(ruta), f.errorString()));
        qint64 hechos = 0;
        for (const PartidaPresupuesto* q : orden) {
            const QByteArray r = RegistroPresupuesto(*q, p.Ano.trimmed(), p.Sector.trimmed());
            if (f.write(r) != r.size())
                throw ErrorAlmacen(QStringLiteral("Error: no se pudo escribir el archivo %1 (%2).")
                                       .arg(QDir::toNativeSeparators(ruta), f.errorString()));
            ++hechos;
            if (progreso)
                progreso(hechos, orden.size());
        }
        if (!f.flush())
            throw ErrorAlmacen(QStringLiteral("Error: no se pudo escribir el archivo %1 (%2).")
                                   .arg(QDir::toNativeSeparators(ruta), f.errorString()));
        f.close();
    } catch (...) {
        f.close();
        if (conCopia) {
            QFile::remove(ruta);
            QFile::rename(copia, ruta);
        } else {
            QFile::remove(ruta);
        }
        throw;
    }
    if (conCopia)
        QFile::remove(copia);
    return true;
}

Presupuesto LeerPresupuesto(const QString& ruta, const Sesion* s) {
    if (!QFileInfo::exists(ruta))
        throw ErrorAlmacen(QStringLiteral("No se encuentra el presupuesto %1.")
                               .arg(QDir::toNativeSeparators(ruta)));
    Presupuesto p;
    p.Nombre = NombreDePresupuesto(ruta);
    const QList<QByteArray> registros =
        FicheroRegistros(ruta, LongitudRegistroPresupuesto).leerTodos();
    bool primero = true;
    for (const QByteArray& r : registros) {
        QString ano, sector;
        PartidaPresupuesto q = PartidaDeRegistro(r, &ano, &sector);
        if (primero) {
            p.Ano = ano;
            p.Sector = sector;
            primero = false;
        }
        p.partidas << q;
    }
    if (s && !p.partidas.isEmpty()) {
        Sesion otra = *s;
        if (p.Ano.toInt() > 0 && ExisteEjercicio(*s, p.Ano.toInt()))
            otra.AnoActual = static_cast<qint16>(p.Ano.toInt());
        Conexion c = AbrirDatos(otra);
        for (PartidaPresupuesto& q : p.partidas)
            q.Cuenta = c.escalar(QStringLiteral("SELECT Cuenta FROM Cuentas WHERE NCuenta = ?"),
                                 {q.NCuenta})
                           .toString()
                           .trimmed();
    }
    return p;
}

QString EtiquetaPeriodo(const PeriodoPresupuesto& p) {
    if (p.anual)
        return QStringLiteral(" Anual");
    if (p.mesDesde == p.mesHasta)
        return QLatin1Char(' ') + NombresMeses().value(p.mesDesde - 1);
    return QStringLiteral(" %1 a %2")
        .arg(NombresMeses().value(p.mesDesde - 1), NombresMeses().value(p.mesHasta - 1));
}

namespace {

// The first day of the exercise that falls in calendar month m.
QDate inicioMes(const QDate& ini, int m) {
    QDate d(ini.year(), m, 1);
    if (d < QDate(ini.year(), ini.month(), 1))
        d = d.addYears(1);
    return d;
}

} // namespace

Rejilla CompararPresupuesto(const Sesion& s, const QString& ruta, const PeriodoPresupuesto& per) {
    const QList<QByteArray> registros =
        FicheroRegistros(ruta, LongitudRegistroPresupuesto).leerTodos();
    if (registros.isEmpty())
        throw ErrorAlmacen(QStringLiteral("El presupuesto %1 no tiene ninguna partida.")
                               .arg(NombreDePresupuesto(ruta)));
    QString anoTexto, sector;
    PartidaDeRegistro(registros.first(), &anoTexto, &sector);
    QList<PartidaPresupuesto> partidas;
    for (const QByteArray& r : registros)
        partidas << PartidaDeRegistro(r);

    Sesion otra = s;
    otra.AnoActual = static_cast<qint16>(anoTexto.toInt());
    if (otra.AnoActual <= 0 || !ExisteEjercicio(otra, otra.AnoActual))
        throw ErrorAlmacen(
            QStringLiteral("No existe el ejercicio %1 de la empresa.").arg(anoTexto));
    Conexion c = AbrirDatos(otra);
    const QDate ini =
        DeISO(c.escalar(QStringLiteral("SELECT FechaIni FROM Empresa")).toString().left(10));
    QDate desde = ini, hasta = ini.addYears(1).addDays(-1);
    // The whole year counts the yearly amounts; a range, the months it covers.
    const bool anual = per.anual || per.mesHasta - per.mesDesde + 1 == 12;
    if (!per.anual) {
        desde = inicioMes(ini, per.mesDesde);
        const QDate h = inicioMes(ini, per.mesHasta);
        hasta = h.addMonths(1).addDays(-1);
        if (hasta < desde)
            throw Rechazo(QStringLiteral("La fecha final debe ser mayor que la inicial"));
    }

    Rejilla r({{QStringLiteral("CUENTA")},
               {QStringLiteral("Presupuestado"), TipoColumna::Importe},
               {QStringLiteral("Realizado"), TipoColumna::Importe},
               {QStringLiteral("Diferencias"), TipoColumna::Importe},
               {QStringLiteral("NCuenta"), TipoColumna::Texto, true}});
    QString sql = QStringLiteral("SELECT SUM(Debe), SUM(Haber) FROM Diario WHERE Clase <> 'R' "
                                 "AND NCuenta = ? AND Fecha BETWEEN ? AND ?");
    if (!sector.isEmpty())
        sql += QStringLiteral(" AND Sector = ?");
    const QString std = QStringLiteral("standard");

    auto seccion = [&](const QString& titulo, const QString& patron, bool ingresos,
                       const QString& total) {
        const int t = r.AgregarFila(titulo);
        r.PonerNegritaFila(t);
        double sp = 0, sr = 0;
        QList<QPair<QString, QString>> cuentas;
        {
            Lector l(c,
                     QStringLiteral("SELECT NCuenta, Cuenta FROM Cuentas WHERE NCuenta LIKE ? "
                                    "ORDER BY NCuenta"),
                     {patron});
            while (l.siguiente())
                cuentas.append({l.texto(0).trimmed(), l.texto(1).trimmed()});
        }
        for (const auto& [ncuenta, nombre] : cuentas) {
            bool enFichero = false;
            double presupuestado = 0;
            for (const PartidaPresupuesto& p : partidas) {
                if (p.NCuenta != ncuenta)
                    continue;
                enFichero = true;
                if (anual)
                    presupuestado += p.Anual;
                else
                    for (int m = per.mesDesde; m <= per.mesHasta; ++m)
                        presupuestado += p.Meses[m];
            }
            if (!enFichero)
                continue;
            QVariantList v{ncuenta, FechaISO(desde), FechaISO(hasta)};
            if (!sector.isEmpty())
                v << sector;
            Lector l(c, sql, v);
            double debe = 0, haber = 0;
            if (l.siguiente()) {
                debe = l.real(0);
                haber = l.real(1);
            }
            const double realizado = Centimos(ingresos ? haber - debe : debe - haber);
            presupuestado = Centimos(presupuestado);
            sp += presupuestado;
            sr += realizado;
            r.AgregarFila(QStringList{nombre, Formato(presupuestado, std), Formato(realizado, std),
                                      Formato(Centimos(realizado - presupuestado), std), ncuenta});
        }
        sp = Centimos(sp);
        sr = Centimos(sr);
        const int f = r.AgregarFila(QStringList{total, Formato(sp, std), Formato(sr, std),
                                                Formato(Centimos(sr - sp), std), QString()});
        r.PonerNegritaFila(f);
    };
    seccion(QStringLiteral("INGRESOS"), QStringLiteral("_7%"), true,
            QStringLiteral("Total Ingresos"));
    seccion(QStringLiteral("GASTOS"), QStringLiteral("_6%"), false, QStringLiteral("Total Gastos"));
    return r;
}

Rejilla RejillaPresupuesto(const Presupuesto& p) {
    Rejilla r(
        {{QStringLiteral("CUENTA")}, {QStringLiteral("PRESUPUESTADO"), TipoColumna::Importe}});
    const QString std = QStringLiteral("standard");
    auto seccion = [&](char tipo, const QString& titulo, const QString& total) {
        r.PonerNegritaFila(r.AgregarFila(titulo));
        double suma = 0;
        for (const PartidaPresupuesto& q : p.partidas)
            if (q.Tipo == tipo) {
                r.AgregarFila(
                    QStringList{q.Cuenta.isEmpty() ? q.NCuenta : q.Cuenta, Formato(q.Anual, std)});
                suma += q.Anual;
            }
        r.PonerNegritaFila(r.AgregarFila(QStringList{total, Formato(Centimos(suma), std)}));
    };
    seccion('I', QStringLiteral("INGRESOS"), QStringLiteral("TOTAL INGRESOS"));
    seccion('G', QStringLiteral("GASTOS"), QStringLiteral("TOTAL GASTOS"));
    return r;
}

DisenoTabla DisenoPresupuesto(const Presupuesto& p) {
    DisenoTabla d;
    d.cabecera = {QStringLiteral("Presupuesto: ") + p.Nombre,
                  QStringLiteral("Ejercicio: ") + p.Ano};
    if (!p.Sector.isEmpty())
        d.cabecera << QStringLiteral("Sector: ") + p.Sector;
    d.columnas = {{0, 900, false, {}}, {1, 9500, true, {}}};
    return d;
}

DisenoTabla DisenoComparacion(const QString& nombre, const QString& ano, const QString& periodo) {
    DisenoTabla d;
    d.cabecera = {QStringLiteral("Presupuesto: ") + nombre,
                  QStringLiteral("Ejercicio: ") + ano + QStringLiteral("  Periodo: ") + periodo};
    d.columnas = {
        {0, 900, false, {}}, {1, 7000, true, {}}, {2, 8800, true, {}}, {3, 10600, true, {}}};
    return d;
}

QString CompletarConMes(PartidaPresupuesto& p, int mes) {
    if (p.Anual == 0)
        return QStringLiteral("No ha introducido el importe anual.");
    double otros = 0;
    for (int m = 1; m <= 12; ++m)
        if (m != mes)
            otros += p.Meses[m];
    if (Estandar(otros) > Estandar(p.Anual))
        return QStringLiteral(
            "Las cantidades mensuales introducidas superan el importe anual presupuestado.");
    p.Meses[mes] = Estandar(p.Anual - otros);
    return QStringLiteral("Distribución mensual completada.");
}
