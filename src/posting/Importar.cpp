#include "posting/Importar.h"

#include "journal/Escritor.h"
#include "platform/Almacen.h"
#include "posting/ComprobarAsiento.h"
#include "posting/Contabilizar.h"
#include "store/Campos.h"
#include "store/Conexiones.h"
#include "store/Formato.h"
#include "store/Rutinas.h"
#include "store/Sesion.h"

#include <QFile>
#include <QHash>
#include <QSet>
#include <QStringDecoder>
#include <algorithm>

namespace {

// Splits one line at the semicolons; a field in double quotes may hold semicolons and doubled
// quotes.
QStringList partir(const QString& linea) {
    if (!linea.contains(QLatin1Char('"')))
        return linea.split(QLatin1Char(';'));
    QStringList r;
    QString campo;
    bool comillas = false;
    for (int i = 0; i < linea.size(); ++i) {
        const QChar c = linea.at(i);
        if (comillas) {
            if (c == QLatin1Char('"')) {
                if (i + 1 < linea.size() && linea.at(i + 1) == QLatin1Char('"')) {
                    campo += c;
                    ++i;
                } else {
                    comillas = false;
                }
            } else {
                campo += c;
            }
        } else if (c == QLatin1Char('"') && campo.trimmed().isEmpty()) {
            campo.clear();
            comillas = true;
        } else if (c == QLatin1Char(';')) {
            r << campo;
            campo.clear();
        } else {
            campo += c;
        }
    }
    r << campo;
    return r;
}

struct LineaFichero {
    int numero = 0; // line of the file, from 1
    long nap = 0;
    QDate fecha;
    QString ncuenta, concepto, documento, sector;
    double debe = 0, haber = 0;
};

enum Columna { CNAs, CNAp, CFecha, CNCuenta, CConcepto, CDebe, CHaber, CDocumento, CSector, NCol };
const char* const NombresColumnas[NCol] = {"NAs",  "NAp",   "Fecha",     "NCuenta", "Concepto",
                                           "Debe", "Haber", "Documento", "Sector"};

class Importador {
public:
    Importador(Sesion& s, Conexion& c) : s_(s), c_(c), comprobar_(c) {
        QSqlQuery q = c_.ejecutar(QStringLiteral("SELECT NCuenta FROM Cuentas"));
        while (q.next())
            cuentas_.insert(q.value(0).toString().trimmed());
    }

    [[noreturn]] static void fallo(int linea, const QString& motivo) {
        throw Rechazo(QStringLiteral("Línea %1: %2").arg(linea).arg(motivo));
    }

    void cabecera(const QStringList& campos) {
        std::fill(std::begin(pos_), std::end(pos_), -1);
        for (int i = 0; i < campos.size(); ++i) {
            const QString n = campos.at(i).trimmed();
            int col = -1;
            for (int k = 0; k < NCol; ++k)
                if (n.compare(QLatin1String(NombresColumnas[k]), Qt::CaseInsensitive) == 0)
                    col = k;
            if (col < 0)
                fallo(1, QStringLiteral("la columna '%1' no es ninguna de las que se pueden "
                                        "importar (NAs;NAp;Fecha;NCuenta;Concepto;Debe;Haber;"
                                        "Documento;Sector).")
                             .arg(SinControles(n)));
            if (pos_[col] >= 0)
                fallo(1, QStringLiteral("la columna %1 está repetida.")
                             .arg(QLatin1String(NombresColumnas[col])));
            pos_[col] = i;
        }
        columnas_ = static_cast<int>(campos.size());
        for (int k : {CNAs, CFecha, CNCuenta, CConcepto, CDebe, CHaber})
            if (pos_[k] < 0)
                fallo(
                    1,
                    QStringLiteral("falta la columna %1.").arg(QLatin1String(NombresColumnas[k])));
    }

    // What every data line must be before its fields are read: no more fields than the header
    // has columns (a field more is a column nobody named; fields left out at the end are
    // empty), none with a control character.
    void forma(const QStringList& campos, int numero) const {
        if (campos.size() > columnas_)
            fallo(numero,
                  QStringLiteral("la línea tiene %1 campos y la cabecera sólo nombra %2 columnas.")
                      .arg(campos.size())
                      .arg(columnas_));
        for (int k = 0; k < NCol; ++k)
            if (pos_[k] >= 0 && pos_[k] < campos.size() && TieneControles(campos.at(pos_[k])))
                fallo(numero, MsgControles(etiqueta(k)));
    }

    QString nas(const QStringList& campos, int numero) const {
        const QString n = campos.value(pos_[CNAs]).trimmed();
        if (n.isEmpty())
            fallo(numero, QStringLiteral("falta el número de asiento (NAs)."));
        return n;
    }

    // Reads a data line.
    void leer(const QStringList& campos, int numero, LineaFichero& l) const {
        auto campo = [&](int k) {
            return pos_[k] < 0 ? QString() : campos.value(pos_[k]).trimmed();
        };
        l.numero = numero;
        if (pos_[CNAp] >= 0) {
            bool ok = false;
            l.nap = campo(CNAp).toLong(&ok);
            if (!ok)
                fallo(numero,
                      QStringLiteral("el número de apunte '%1' no es válido.").arg(campo(CNAp)));
        }
        const QString fecha = campo(CFecha);
        // Consecutive lines mostly share their date: parse it once.
        if (fecha != ultimoTextoFecha_) {
            ultimoTextoFecha_ = fecha;
            ultimaFecha_ = FechaDeTexto(fecha);
        }
        l.fecha = ultimaFecha_;
        if (!l.fecha.isValid())
            fallo(
                numero,
                QStringLiteral("la fecha '%1' no es válida (dd/mm/aaaa o aaaa-mm-dd).").arg(fecha));
        if (l.fecha < s_.FechaIniEj || l.fecha > s_.FechaFinEj)
            fallo(numero, QStringLiteral("La fecha introducida no pertenece al año de trabajo."));
        l.ncuenta = campo(CNCuenta);
        if (!cuentas_.contains(l.ncuenta))
            fallo(numero, QStringLiteral("No existe la subcuenta %1.").arg(l.ncuenta));
        try {
            // The checks of an entry given on the command line, field by field.
            l.concepto = ComprobarAsiento::Concepto(campo(CConcepto));
            l.documento = ComprobarAsiento::Documento(campo(CDocumento));
            const QString sector = campo(CSector);
            // Consecutive lines mostly share their sector too.
            if (sector != ultimoTextoSector_) {
                ultimoSector_ = comprobar_.Sector(sector);
                ultimoTextoSector_ = sector;
            }
            l.sector = ultimoSector_;
        } catch (const Rechazo& r) {
            fallo(numero, r.mensaje());
        }
        l.debe = importe(campo(CDebe), numero);
        l.haber = importe(campo(CHaber), numero);
    }

    long publicar(QList<LineaFichero>& lineas) {
        const int primera = lineas.first().numero;
        for (const LineaFichero& l : lineas)
            if (l.fecha != lineas.first().fecha)
                fallo(l.numero, QStringLiteral("las líneas de un asiento tienen que tener la misma "
                                               "fecha."));
        double debe = 0, haber = 0;
        for (const LineaFichero& l : lineas) {
            debe += l.debe;
            haber += l.haber;
        }
        if (Centimos(debe) != Centimos(haber))
            fallo(primera, MsgDescuadre);
        // Every amount is already rounded to the cent: an entry without one would write nothing
        // under a number of its own.
        if (debe == 0 && haber == 0)
            fallo(primera, MsgAsientoSinImportes);
        if (pos_[CNAp] >= 0)
            std::stable_sort(
                lineas.begin(), lineas.end(),
                [](const LineaFichero& a, const LineaFichero& b) { return a.nap < b.nap; });
        apuntes_.clear();
        escritos_ = 0;
        for (const LineaFichero& l : lineas) {
            // A line with both amounts writes a debit line and a credit line; one with none, none.
            escritos_ += (l.debe > 0 ? 1 : 0) + (l.haber > 0 ? 1 : 0);
            Apunte a;
            a.NCuenta = l.ncuenta;
            a.Concepto = l.concepto;
            a.Debe = l.debe;
            a.Haber = l.haber;
            a.Documento = l.documento;
            a.Sector = l.sector;
            apuntes_ << a;
        }
        try {
            // The write lock is held since the start, so each number follows the last one.
            opciones_.numero = ultimo_ > 0 ? std::optional<long>(ultimo_ + 1) : std::nullopt;
            ultimo_ = EscribirAsiento(c_, s_, lineas.first().fecha, apuntes_, opciones_);
            return ultimo_;
        } catch (const Rechazo& r) {
            fallo(primera, r.mensaje());
        }
    }

    void terminar() { SumarMayor(c_, mayor_); }

    // Journal lines the last entry posted wrote.
    long escritos() const { return escritos_; }

private:
    static QString etiqueta(int columna) { return QLatin1String(NombresColumnas[columna]); }

    static double importe(const QString& texto, int numero) {
        double v = 0;
        try {
            v = ComprobarAsiento::Importe(texto);
        } catch (const Rechazo& r) {
            fallo(numero, r.mensaje());
        }
        if (v < 0)
            fallo(numero, QStringLiteral("el importe '%1' es negativo: póngalo en la otra columna.")
                              .arg(texto));
        return v;
    }

    Sesion& s_;
    Conexion& c_;
    const ComprobarAsiento comprobar_;
    QSet<QString> cuentas_;
    mutable QString ultimoTextoFecha_;
    mutable QDate ultimaFecha_;
    mutable QString ultimoTextoSector_, ultimoSector_;
    int pos_[NCol];
    int columnas_ = 0;
    long escritos_ = 0;
    QList<Apunte> apuntes_;
    long ultimo_ = 0;
    QHash<QString, std::pair<double, double>> mayor_;
    // The whole file is one transaction, rolled back whole at the first bad line.
    OpcionesEscritura opciones_ = [this] {
        OpcionesEscritura o;
        o.transaccionPropia = false;
        o.comprobarCuentas = false; // checked above against the chart, with the line number
        o.mayorPendiente = &mayor_;
        return o;
    }();
};

} // namespace

ResultadoImportacion ImportarAsientos(Sesion& s, const QString& ruta,
                                      const ProgresoImportacion& progreso) {
    QFile f(ruta);
    if (!f.open(QIODevice::ReadOnly))
        throw Rechazo(QStringLiteral("No se puede abrir el archivo %1.").arg(ruta));
    const qint64 total = f.size();
    QStringDecoder utf8(QStringDecoder::Utf8);

    Conexion c = AbrirDatos(s);
    // One long transaction, with a cache big enough that the pages written don't spill to disk
    // before the commit.
    c.prepararEscrituraLarga();
    Transaccion t(c);
    CargarEjercicio(s, c);
    Importador imp(s, c);
    ResultadoImportacion r;

    int numero = 0;
    bool hayCabecera = false;
    QString nasActual;
    QList<LineaFichero> entrada;
    auto cerrar = [&] {
        if (entrada.isEmpty())
            return;
        const long n = imp.publicar(entrada);
        if (r.primero == 0)
            r.primero = n;
        r.ultimo = n;
        ++r.asientos;
        r.lineas += imp.escritos();
        entrada.clear();
        if (progreso && r.asientos % 1000 == 0)
            progreso(r.asientos, f.pos(), total);
    };
    while (!f.atEnd()) {
        QByteArray bruto = f.readLine();
        ++numero;
        if (numero == 1 && bruto.startsWith("\xEF\xBB\xBF"))
            bruto.remove(0, 3);
        QString linea = utf8.decode(bruto);
        if (utf8.hasError())
            throw Rechazo(QStringLiteral("Línea %1: el texto no está en UTF-8.").arg(numero));
        while (linea.endsWith(QLatin1Char('\n')) || linea.endsWith(QLatin1Char('\r')))
            linea.chop(1);
        if (linea.trimmed().isEmpty())
            continue;
        const QStringList campos = partir(linea);
        if (!hayCabecera) {
            imp.cabecera(campos);
            hayCabecera = true;
            continue;
        }
        // The exercise may have been closed since the session was loaded: read afresh above.
        if (s.EjCerrado)
            throw Rechazo(QStringLiteral("Línea %1: %2").arg(numero).arg(MsgEjercicioCerrado));
        // The entry before is posted first, so its faults come before this line's.
        const QString nas = imp.nas(campos, numero);
        if (nas != nasActual)
            cerrar();
        nasActual = nas;
        imp.forma(campos, numero);
        LineaFichero l;
        imp.leer(campos, numero, l);
        entrada << l;
    }
    cerrar();
    if (!hayCabecera)
        throw Rechazo(QStringLiteral("Línea 1: el archivo está vacío."));
    imp.terminar();
    t.confirmar();
    if (progreso)
        progreso(r.asientos, total, total);
    return r;
}
