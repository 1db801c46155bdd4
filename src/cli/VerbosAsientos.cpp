// Verbs that post entries: one entry from its options, or many from a file.

#include "cli/Cli.h"
#include "platform/Almacen.h"
#include "platform/Dialogo.h"
#include "platform/Errores.h"
#include "posting/ComprobarAsiento.h"
#include "posting/Contabilizar.h"
#include "posting/EstadoTablero.h"
#include "posting/Importar.h"
#include "store/Campos.h"
#include "store/Conexiones.h"
#include "store/Formato.h"
#include "store/Rutinas.h"
#include "store/Sesion.h"

#include <QHash>
#include <QRegularExpression>
#include <cstdio>

namespace {

const QString MsgImporteCero = QStringLiteral("el importe es 0,00 al redondearlo al céntimo.");

// The VAT screen answered from the --iva options. A refusal of the screen ends the command (its
// message is already shown); it never lets a later line's answer post the entry.
struct IvaRechazada {};

struct OpcionIva {
    QHash<QString, QString> claves;
    bool usada = false;
};

class PantallaIvaCli : public PantallaIva {
public:
    QHash<QString, OpcionIva> opciones; // by VAT subaccount

    void Mostrar(CapturaIva& c) override {
        c.PrimeraVista();
        auto it = opciones.find(c.CuentaIVA);
        if (it != opciones.end()) {
            it->usada = true;
            aplicar(c, it->claves);
        }
        if (!c.Aceptar())
            throw IvaRechazada{};
    }

private:
    static bool siNo(const QString& clave, const QString& v) {
        if (v == QLatin1String("si") || v == QLatin1String("sí"))
            return true;
        if (v == QLatin1String("no"))
            return false;
        throw Rechazo(QStringLiteral("En --iva, %1 tiene que ser si o no.").arg(clave));
    }

    static void aplicar(CapturaIva& c, const QHash<QString, QString>& k) {
        if (k.contains(QStringLiteral("factura")))
            c.Factura = TextoCampo(Campo::NFactura, k.value(QStringLiteral("factura")));
        if (k.contains(QStringLiteral("base")))
            c.Base = k.value(QStringLiteral("base"));
        if (k.contains(QStringLiteral("libro")))
            c.LibroIva = siNo(QStringLiteral("libro"), k.value(QStringLiteral("libro")));
        if (k.contains(QStringLiteral("m347"))) {
            const bool m = siNo(QStringLiteral("m347"), k.value(QStringLiteral("m347")));
            if (m && !c.Modelo347Visible)
                throw Rechazo(QStringLiteral("La subcuenta %1 es de recargo: no admite m347=si.")
                                  .arg(c.CuentaIVA));
            c.Modelo347 = m;
        }
        if (k.contains(QStringLiteral("tipo"))) {
            const QString t = k.value(QStringLiteral("tipo")).toUpper();
            if (t != QLatin1String("N") && t != QLatin1String("S") && t != QLatin1String("A"))
                throw Rechazo(QStringLiteral("En --iva, tipo tiene que ser N, S o A."));
            c.TipoOperacion = t;
        }
        if (k.contains(QStringLiteral("retencion"))) {
            if (!c.RetencionVisible())
                throw Rechazo(QStringLiteral(
                    "La retención sólo se indica en un arrendamiento que va al 347 (m347=si, "
                    "tipo=A)."));
            c.Retencion = k.value(QStringLiteral("retencion"));
        }
        if (k.contains(QStringLiteral("contrapartida"))) {
            // Any subaccount may be chosen, as through the area filter of the screen.
            const QString codigo = k.value(QStringLiteral("contrapartida")).trimmed();
            if (!c.ElegirCodigo(codigo))
                throw Rechazo(QStringLiteral("No existe la subcuenta %1.").arg(codigo));
        }
    }
};

// "472000028:contrapartida=240000009,factura=F-1,base=100,50": a comma starts a new key only
// when a known key and "=" follow it, so amounts may carry a decimal comma.
std::pair<QString, OpcionIva> leerIva(const QString& texto) {
    static const QStringList claves{"contrapartida", "factura", "base",     "libro",
                                    "m347",          "tipo",    "retencion"};
    const int dos = static_cast<int>(texto.indexOf(QLatin1Char(':')));
    if (dos <= 0)
        throw Rechazo(
            QStringLiteral("--iva se escribe NCUENTAIVA:contrapartida=NCUENTA,factura=F,base=B"));
    const QString cuenta = texto.left(dos).trimmed();
    static const QRegularExpression corte(
        QStringLiteral(",(?=\\s*(?:%1)\\s*=)").arg(claves.join(QLatin1Char('|'))));
    OpcionIva o;
    for (const QString& parte : texto.mid(dos + 1).split(corte, Qt::SkipEmptyParts)) {
        const int igual = static_cast<int>(parte.indexOf(QLatin1Char('=')));
        const QString clave = parte.left(igual).trimmed().toLower();
        if (igual < 0 || !claves.contains(clave))
            throw Rechazo(QStringLiteral("En --iva, '%1' no es una clave conocida (%2).")
                              .arg(parte.left(igual).trimmed(), claves.join(QStringLiteral(", "))));
        o.claves.insert(clave, parte.mid(igual + 1).trimmed());
    }
    return {cuenta, o};
}

int asiento(ContextoCli& ctx) {
    ctx.abrirEmpresa();
    Sesion& s = ctx.sesion;
    const QString textoFecha = ctx.opcion(QStringLiteral("fecha"));
    QList<std::pair<bool, QString>> lineas; // (debe, "NCUENTA=IMPORTE") in the order given
    for (const auto& [nombre, valor] : ctx.valores)
        if (nombre == QLatin1String("debe") || nombre == QLatin1String("haber"))
            lineas.append({nombre == QLatin1String("debe"), valor});
    if (textoFecha.trimmed().isEmpty() || lineas.isEmpty())
        throw Rechazo(MsgCumplimentar);
    // The same checks as a line of an imported file.
    const QString concepto = ComprobarAsiento::Concepto(ctx.opcion(QStringLiteral("concepto")));
    const QString documento = ComprobarAsiento::Documento(ctx.opcion(QStringLiteral("documento")));
    QString sector;
    {
        Conexion c = AbrirDatos(s);
        sector = ComprobarAsiento(c).Sector(ctx.opcion(QStringLiteral("sector")));
    }
    const QDate fecha = FechaDeTexto(ValidarFecha(textoFecha, ctx.dialogo));
    if (!fecha.isValid())
        return 1;
    if (fecha < s.FechaIniEj || fecha > s.FechaFinEj)
        throw Rechazo(QStringLiteral("La fecha introducida no pertenece al año de trabajo."));

    EstadoTablero tablero;
    Contabilizar k(s, ctx.dialogo, tablero);
    const QString textoF = FormatoFecha(fecha, QStringLiteral("short date"));
    {
        Conexion c = AbrirDatos(s);
        for (const auto& [debe, texto] : lineas) {
            const QString opcion = debe ? QStringLiteral("--debe") : QStringLiteral("--haber");
            if (TieneControles(texto))
                throw Rechazo(MsgControles(opcion));
            const int igual = static_cast<int>(texto.indexOf(QLatin1Char('=')));
            const QString ncuenta = texto.left(igual).trimmed();
            const QString textoImporte = texto.mid(igual + 1);
            if (igual <= 0 || textoImporte.trimmed().startsWith(QLatin1Char('-')) ||
                textoImporte.trimmed().isEmpty())
                throw Rechazo(QStringLiteral("%1 se escribe NCUENTA=IMPORTE, con un importe "
                                             "mayor que 0: '%2'.")
                                  .arg(opcion, texto));
            // The line is named in front of the refusal of its amount.
            const QString linea = QStringLiteral("%1 %2: ").arg(opcion, texto);
            double importe = 0;
            try {
                importe = ComprobarAsiento::Importe(textoImporte);
            } catch (const Rechazo& r) {
                throw Rechazo(linea + r.mensaje());
            }
            if (importe <= 0)
                throw Rechazo(linea + MsgImporteCero);
            const QVariant nombre = c.escalar(
                QStringLiteral("SELECT Cuenta FROM Cuentas WHERE NCuenta = ?"), {ncuenta});
            if (!nombre.isValid())
                throw Rechazo(QStringLiteral("No existe la subcuenta %1.").arg(ncuenta));
            const int f = k.Rejilla.anadirFila();
            k.Rejilla.fijar(f, ColF4::Fecha, textoF);
            k.Rejilla.fijar(f, ColF4::Cuenta, nombre.toString().trimmed());
            k.Rejilla.fijar(f, ColF4::Concepto, concepto);
            k.Rejilla.fijarImporte(f, debe ? ColF4::Debe : ColF4::Haber, importe);
            k.Rejilla.fijar(f, ColF4::NCuenta, ncuenta);
            k.Rejilla.fijar(f, ColF4::Documento, documento);
        }
    }
    if (!CuadraCentimos(k.Rejilla))
        throw Rechazo(MsgDescuadre);
    // The screen would post an entry whose lines all cancel out as no lines under a new number;
    // here that is surely a mistake.
    CRepetidas(k.Rejilla);
    if (k.Rejilla.ultima() == 0)
        throw Rechazo(QStringLiteral("Las líneas del asiento se anulan entre sí: no queda nada que "
                                     "contabilizar."));

    PantallaIvaCli pantalla;
    for (const QString& texto : ctx.opciones(QStringLiteral("iva"))) {
        auto [cuenta, o] = leerIva(texto);
        bool esta = false;
        for (int f = 1; f <= k.Rejilla.ultima(); ++f)
            esta = esta || k.Rejilla.celda(f, ColF4::NCuenta) == cuenta;
        if (!esta || !EsLineaIva(cuenta))
            throw Rechazo(
                QStringLiteral("La subcuenta %1 de --iva no es una línea de IVA del asiento.")
                    .arg(cuenta));
        pantalla.opciones.insert(cuenta, o);
    }
    k.Pantalla = &pantalla;
    ResultadoAceptar r;
    try {
        r = k.Publicar(sector);
    } catch (const IvaRechazada&) {
        return 1;
    }
    if (r.tipo != ResultadoAceptar::Tipo::Contabilizado)
        return 1;
    ctx.salida << r.numero << '\n';
    return 0;
}

int importar(ContextoCli& ctx) {
    const QString ruta = ctx.posicionales.value(0);
    if (ruta.isEmpty())
        throw Rechazo(QStringLiteral("Indique el archivo: quilmar-cli importar FICHERO.csv"));
    ctx.abrirEmpresa();
    ResultadoImportacion r;
    bool mostrado = false;
    try {
        r = ImportarAsientos(ctx.sesion, ruta, [&](long asientos, qint64 leido, qint64 total) {
            mostrado = true;
            const int pct = total > 0 ? static_cast<int>(leido * 100 / total) : 100;
            std::fprintf(stderr, "\rImportando: %ld asientos (%d %%)", asientos, pct);
            std::fflush(stderr);
        });
    } catch (...) {
        // The message of the failure begins a line of its own, after the progress.
        if (mostrado)
            std::fputc('\n', stderr);
        throw;
    }
    std::fputc('\n', stderr);
    if (r.asientos == 0)
        ctx.salida << QStringLiteral("No se importó ningún asiento.\n");
    else
        ctx.salida << QStringLiteral("Importados %1 asientos (%2 apuntes), del nº %3 al nº %4.\n")
                          .arg(r.asientos)
                          .arg(r.lineas)
                          .arg(r.primero)
                          .arg(r.ultimo);
    return 0;
}

const AltaVerbo altaAsiento{
    {QStringLiteral("asiento"),
     QStringLiteral("contabiliza un asiento"),
     QStringLiteral(
         "Uso: quilmar-cli asiento --fecha FECHA --concepto TEXTO [--documento D] [--sector S]\n"
         "        --debe NCUENTA=IMPORTE ... --haber NCUENTA=IMPORTE ...\n"
         "        [--iva NCUENTAIVA:contrapartida=NCUENTA,factura=F,base=B[,libro=si|no]\n"
         "               [,m347=si|no][,tipo=N|S|A][,retencion=R]] ...\n\n"
         "Contabiliza un asiento como la pantalla Contabilizar: las líneas del Debe se escriben\n"
         "primero, las subcuentas repetidas se funden y cada línea de IVA (cuentas 472 y 477)\n"
         "necesita sus datos en --iva, como los pediría la pantalla de datos del IVA. La fecha\n"
         "se escribe como en las pantallas (15/03/2024, 150324, 15324). Muestra el número del\n"
         "asiento."),
     {},
     asiento}};

const AltaVerbo altaImportar{
    {QStringLiteral("importar"),
     QStringLiteral("contabiliza los asientos de un archivo CSV"),
     QStringLiteral(
         "Uso: quilmar-cli importar FICHERO.csv\n\n"
         "Contabiliza los asientos de un archivo separado por punto y coma, en UTF-8, cuya\n"
         "primera línea nombra las columnas: NAs;NAp;Fecha;NCuenta;Concepto;Debe;Haber y, si se\n"
         "quiere, Documento;Sector (NAp puede faltar). Las líneas seguidas con el mismo NAs\n"
         "forman un asiento, que toma un número nuevo. Fechas dd/mm/aaaa o aaaa-mm-dd; importes\n"
         "con punto o coma decimal, hasta 999.999.999.999,99. Cada línea pasa las comprobaciones\n"
         "de quilmar-cli asiento: concepto obligatorio, textos sin caracteres de control y no\n"
         "más largos que su campo, un sector que exista; un asiento ha de tener algún importe.\n"
         "O se contabiliza todo el archivo, o nada: el primer error se indica con su número de\n"
         "línea."),
     {},
     importar}};

} // namespace
