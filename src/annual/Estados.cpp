#include "annual/Estados.h"

#include "annual/LineasEstado.h"
#include "platform/Almacen.h"
#include "platform/Dialogo.h"
#include "store/Conexiones.h"
#include "store/Formato.h"
#include "store/Sesion.h"

#include <QFileInfo>
#include <QMap>
#include <array>

Modelo ModeloEstado(TipoEstado tipo, int ano) {
    if (tipo == TipoEstado::Balance)
        return ano < 2008 ? Modelo::Form81 : Modelo::Form105;
    return ano < 2008 ? Modelo::Form82 : Modelo::Form106;
}

bool DesgloseObligado(Modelo m) {
    return m == Modelo::Form81 || m == Modelo::Form82;
}

bool ConNotas(Modelo m) {
    return m == Modelo::Form105 || m == Modelo::Form106;
}

QString ModoImpresion(Modelo m) {
    switch (m) {
    case Modelo::Form81:
        return QStringLiteral("Balance");
    case Modelo::Form105:
        return QStringLiteral("Balance2008");
    case Modelo::Form82:
        return QStringLiteral("PyG");
    case Modelo::Form106:
        break;
    }
    return QStringLiteral("PyG2008");
}

int ColNotas(Modelo m) {
    return ConNotas(m) ? 4 : -1;
}
int ColImporte(Modelo m) {
    return ConNotas(m) ? 5 : 4;
}
int ColImporteAnterior(Modelo m) {
    return ColImporte(m) + 1;
}

DatosEjercicio LeerDatosEstado(Conexion& c) {
    DatosEjercicio d;
    // The sums of Mayor as they stand before the close, read from the journal.
    Lector l(c,
             QStringLiteral("SELECT Diario.NCuenta, Cuentas.Cuenta, SUM(Diario.Debe), "
                            "SUM(Diario.Haber) FROM Diario INNER JOIN Cuentas ON "
                            "Cuentas.NCuenta = Diario.NCuenta WHERE Diario.Clase <> ? AND "
                            "Diario.Clase <> ? GROUP BY Diario.NCuenta, Cuentas.Cuenta "
                            "ORDER BY Diario.NCuenta"),
             {QStringLiteral("R"), QStringLiteral("F")});
    while (l.siguiente()) {
        SaldoEstado s{l.texto(0), l.texto(1).trimmed(), Centimos(l.real(2)), Centimos(l.real(3))};
        if (s.SaldoD != s.SaldoH)
            d.saldos.append(s);
    }
    Lector r(
        c,
        QStringLiteral("SELECT SUM(Haber) - SUM(Debe) FROM Diario WHERE (NCuenta LIKE ? OR "
                       "NCuenta LIKE ?) AND Clase <> ? AND Clase <> ?"),
        {QStringLiteral("_6%"), QStringLiteral("_7%"), QStringLiteral("R"), QStringLiteral("F")});
    if (r.siguiente())
        d.resultado = Centimos(r.real(0));
    return d;
}

Rejilla RejillaEstado(Modelo m, int ano, bool segunda) {
    QString titulo;
    switch (m) {
    case Modelo::Form81:
        titulo = segunda ? QStringLiteral("P A S I V O") : QStringLiteral("A C T I V O");
        break;
    case Modelo::Form105:
        titulo =
            segunda ? QStringLiteral("PATRIMONIO NETO Y PASIVO") : QStringLiteral("A C T I V O");
        break;
    case Modelo::Form82:
        titulo = segunda ? QStringLiteral("H A B E R") : QStringLiteral("D E B E");
        break;
    case Modelo::Form106:
        titulo = QStringLiteral("PERDIDAS Y GANANCIAS");
        break;
    }
    QList<Columna> cols{{titulo}, {QString()}, {QString()}, {QString()}};
    if (ConNotas(m))
        cols.append({QStringLiteral("Notas Mem.")});
    cols.append({QStringLiteral("Ejercicio %1").arg(ano), TipoColumna::Importe});
    cols.append({QStringLiteral("Ejercicio %1").arg(ano - 1), TipoColumna::Importe});
    return Rejilla(cols);
}

int BuscarFila(const Rejilla& r, const QString& etiqueta, int desde) {
    for (int f = desde; f < r.Filas(); ++f)
        for (int c = ColEstNivel1; c <= ColEstSubcuenta; ++c)
            if (r.Celda(f, c).trimmed() == etiqueta)
                return f;
    return -1;
}

QString TextoNota(const QString& texto) {
    QString t;
    for (const QChar ch : texto)
        t += ch.category() == QChar::Other_Control ? QChar(u' ') : ch;
    return t.trimmed().left(LargoNota).trimmed();
}

namespace {

// The key of each row of a list: the headings it stands under, its own text, and how many rows
// above carry the same, so that a subaccount keeps its note in its line even when another line
// with a subaccount of the same name comes or goes.
QStringList ClavesFilas(const Rejilla& r) {
    QStringList claves;
    QHash<QString, int> vistas;
    QStringList ruta(ColEstSubcuenta); // the heading in hand at each level column
    for (int f = 0; f < r.Filas(); ++f) {
        const auto tramo = r.Combinada(f);
        QString propio;
        if (tramo && tramo->desde < ColEstSubcuenta) {
            for (int c = tramo->desde; c < ColEstSubcuenta; ++c)
                ruta[c].clear();
            ruta[tramo->desde] = r.Celda(f, tramo->desde).trimmed();
        } else {
            propio = r.Celda(f, ColEstSubcuenta).trimmed();
        }
        const QString base = ruta.join(u'|') + u'|' + propio;
        claves << base + u'#' + QString::number(vistas[base]++);
    }
    return claves;
}

} // namespace

NotasEstado NotasDeLista(const Rejilla& r, Modelo m) {
    NotasEstado notas;
    const int col = ColNotas(m);
    if (col < 0 || r.Columnas() <= col)
        return notas;
    const QStringList claves = ClavesFilas(r);
    for (int f = 0; f < r.Filas(); ++f)
        if (!r.Celda(f, col).isEmpty())
            notas.insert(claves.at(f), r.Celda(f, col));
    return notas;
}

void PonerNotas(Rejilla& r, Modelo m, const NotasEstado& notas) {
    const int col = ColNotas(m);
    if (col < 0 || r.Columnas() <= col || notas.isEmpty())
        return;
    const QStringList claves = ClavesFilas(r);
    for (int f = 0; f < r.Filas(); ++f)
        if (const auto n = notas.constFind(claves.at(f)); n != notas.cend())
            r.PonerCelda(f, col, *n);
}

namespace {

// Prefixes whose balance may fall on either side: they enter a line only when their balance
// stands on the line's side (not below zero in the old balance sheet, above zero elsewhere).
struct Prefijo {
    QString digitos;
    bool porLado = false;
};

QList<Prefijo> Prefijos(const LineaEstado& l) {
    QList<Prefijo> p;
    for (const QString& t : QString::fromUtf16(l.cuentas).split(u',', Qt::SkipEmptyParts)) {
        if (t.endsWith(u'*'))
            p.append({t.chopped(1), true});
        else
            p.append({t, false});
    }
    return p;
}

int ColumnaNivel(int nivel) {
    return nivel <= 1 ? ColEstNivel1 : nivel - 1;
}

QString Importe(double v) {
    return Formato(Centimos(v), QStringLiteral("standard"));
}

// One list being filled: heading rows created on demand, an accumulator per level and year, the
// buffer of the subaccounts of the line in hand.
class Lista {
public:
    Lista(Rejilla& r, Modelo m, bool comparacion, bool desglose)
        : r_(r), m_(m), comparacion_(comparacion), desglose_(desglose) {}

    // A new line at its level ends the headings at that level and below.
    void Empezar(const LineaEstado& l) {
        for (int k = l.nivel; k < 4; ++k) {
            activo_[k] = false;
            fila_[k] = -1;
            acc_[0][k] = acc_[1][k] = 0;
        }
        activo_[l.nivel] = true;
        linea_[l.nivel] = &l;
        buffer_.clear();
        hubo_ = false;
        suma_[0] = suma_[1] = 0;
    }

    // An amount of the line in hand, for year a (0 the exercise, 1 the previous one).
    void Sumar(int a, const QString& ncuenta, const QString& cuenta, double importe,
               int nivelLinea) {
        for (int k = 0; k <= nivelLinea; ++k) {
            if (!activo_[k] || fila_[k] >= 0)
                continue;
            const LineaEstado& h = *linea_[k];
            const QString etiqueta = a == 1 && h.etiquetaAnterior
                                         ? QString::fromUtf16(h.etiquetaAnterior)
                                         : QString::fromUtf16(h.etiqueta);
            fila_[k] = Encabezado(etiqueta, k);
        }
        auto& b = buffer_[ncuenta];
        b.cuenta = cuenta;
        b.importe[a] += importe;
        b.en[a] = true;
        for (int k = 0; k <= nivelLinea; ++k)
            if (activo_[k])
                acc_[a][k] += importe;
        suma_[a] += importe;
        total_[a] += importe;
        hubo_ = true;
    }

    // End of the line: its subaccounts, then the amounts of every heading in use.
    void Terminar() {
        if (!hubo_)
            return;
        if (desglose_) {
            for (auto it = buffer_.cbegin(); it != buffer_.cend(); ++it) {
                const int f = r_.AgregarFila(QStringList());
                r_.PonerCelda(f, ColEstSubcuenta, it->cuenta);
                if (it->en[0])
                    r_.PonerCelda(f, ColImporte(m_), Importe(it->importe[0]));
                if (comparacion_ && it->en[1])
                    r_.PonerCelda(f, ColImporteAnterior(m_), Importe(it->importe[1]));
            }
        }
        buffer_.clear();
        for (int k = 0; k < 4; ++k)
            if (activo_[k] && fila_[k] >= 0)
                Importes(fila_[k], acc_[0][k], acc_[1][k]);
    }

    int Encabezado(const QString& etiqueta, int nivel) {
        const int f = r_.AgregarFila(QStringList());
        r_.PonerCelda(f, ColumnaNivel(nivel), etiqueta);
        // The label spans the text columns from its level on, so the list can keep the level
        // columns narrow as indents.
        r_.CombinarFila(f, ColumnaNivel(nivel), ColEstSubcuenta);
        if (nivel <= 1)
            r_.PonerNegritaFila(f);
        return f;
    }

    // A bold row with both amounts, shown even when zero (result and total rows).
    int FilaSuma(const QString& etiqueta, std::optional<double> v0, std::optional<double> v1) {
        const int f = Encabezado(etiqueta, 1);
        if (v0)
            r_.PonerCelda(f, ColImporte(m_), Importe(*v0));
        if (comparacion_ && v1)
            r_.PonerCelda(f, ColImporteAnterior(m_), Importe(*v1));
        return f;
    }

    // Amounts of a heading: a year without amount shows nothing.
    void Importes(int f, double v0, double v1) {
        r_.PonerCelda(f, ColImporte(m_), Centimos(v0) != 0 ? Importe(v0) : QString());
        if (comparacion_)
            r_.PonerCelda(f, ColImporteAnterior(m_), Centimos(v1) != 0 ? Importe(v1) : QString());
    }

    bool hubo() const { return hubo_; }
    double suma(int a) const { return suma_[a]; }
    double total(int a) const { return total_[a]; }
    Rejilla& rejilla() { return r_; }

private:
    struct EnBuffer {
        QString cuenta;
        double importe[2] = {0, 0};
        bool en[2] = {false, false};
    };
    Rejilla& r_;
    Modelo m_;
    bool comparacion_, desglose_;
    std::array<bool, 4> activo_{};
    std::array<int, 4> fila_{-1, -1, -1, -1};
    std::array<const LineaEstado*, 4> linea_{};
    double acc_[2][4] = {};
    double suma_[2] = {0, 0}, total_[2] = {0, 0};
    QMap<QString, EnBuffer> buffer_; // by NCuenta: sorted, one row per subaccount
    bool hubo_ = false;
};

// Signed balance of a subaccount on a side: debit minus credit on the assets and the debit side.
double Signo(const SaldoEstado& s, bool deudor) {
    return deudor ? s.SaldoD - s.SaldoH : s.SaldoH - s.SaldoD;
}

bool Coincide(const SaldoEstado& s, const QList<Prefijo>& prefijos, double importe,
              bool admiteCero) {
    for (const Prefijo& p : prefijos) {
        if (QStringView(s.NCuenta).mid(1, p.digitos.size()) != p.digitos)
            continue;
        if (p.porLado && !(admiteCero ? importe >= 0 : importe > 0))
            continue;
        return true;
    }
    return false;
}

struct Anos {
    const DatosEjercicio* datos[2] = {nullptr, nullptr};
    int cuantos() const { return datos[1] ? 2 : 1; }
};

// The line from its prefixes (or the year's result) over both years.
void LlenarLinea(Lista& lista, const LineaEstado& l, const Anos& anos, bool deudor,
                 bool admiteCero) {
    lista.Empezar(l);
    const QList<Prefijo> prefijos = Prefijos(l);
    for (int a = 0; a < anos.cuantos(); ++a) {
        const DatosEjercicio& d = *anos.datos[a];
        if (l.especial == Especial::Resultado) {
            if (Centimos(d.resultado) != 0)
                lista.Sumar(a, QStringLiteral("~"), QStringLiteral("Pérdidas y ganancias"),
                            d.resultado, l.nivel);
            continue;
        }
        for (const SaldoEstado& s : d.saldos) {
            const double v = Signo(s, deudor);
            if (Coincide(s, prefijos, v, admiteCero))
                lista.Sumar(a, s.NCuenta, s.Cuenta, v, l.nivel);
        }
    }
    lista.Terminar();
}

void LlenarBalance(EstadoCuentas& e, const Anos& anos) {
    const bool viejo = e.modelo == Modelo::Form81;
    const auto activo = viejo ? LineasActivo81() : LineasActivo105();
    const auto pasivo = viejo ? LineasPasivo81() : LineasPasivo105();
    struct Lado {
        std::span<const LineaEstado> lineas;
        Rejilla* r;
        double* total;
        bool deudor;
        QString rotulo;
    };
    const QString puntos = QStringLiteral(" .  .  .  .  .  .  .  .  .  .  .  .  .  .  .  .  .");
    const Lado lados[2] = {
        {activo, &e.lista1, e.total1, true,
         viejo ? QStringLiteral("TOTAL ACTIVO") + puntos : QStringLiteral("TOTAL ACTIVO (A + B)")},
        {pasivo, &e.lista2, e.total2, false,
         viejo ? QStringLiteral("TOTAL PASIVO") + puntos
               : QStringLiteral("TOTAL PATRIMONIO NETO Y PASIVO (A + B + C)")},
    };
    for (const Lado& lado : lados) {
        Lista lista(*lado.r, e.modelo, e.comparacion, e.desglose);
        for (const LineaEstado& l : lado.lineas)
            LlenarLinea(lista, l, anos, lado.deudor, viejo);
        lado.total[0] = Centimos(lista.total(0));
        lado.total[1] = Centimos(lista.total(1));
        lista.FilaSuma(lado.rotulo, lado.total[0], lado.total[1]);
    }
}

// The code of an old-layout line, "A2" of "A2. Aprovisionamientos".
QString Codigo(const LineaEstado& l) {
    const QString e = QString::fromUtf16(l.etiqueta);
    return e.left(e.indexOf(u'.'));
}

struct FormulaPyG {
    Especial bloque;
    const char* positivo;
    const char* negativo;
    const char* rotuloPositivo;
    const char* rotuloNegativo;
};

constexpr FormulaPyG Formulas82[] = {
    {Especial::Explotacion, "B1+B2+B3+B4-A1-A2-A3-A4-A5-A6", "A1+A2+A3+A4+A5+A6-B1-B2-B3-B4",
     "AI. BENEFICIOS DE EXPLOTACION (", "BI. PERDIDAS DE EXPLOTACION ("},
    {Especial::Financiero, "B5+B6+B7+B8-A7-A8-A9", "A7+A8+A9-B5-B6-B7-B8",
     "AII. RESULTADOS FINANCIEROS POSITIVOS (", "BII. RESULTADOS FINANCIEROS NEGATIVOS ("},
    {Especial::Ordinario, "AI+AII-BI-BII", "BI+BII-AI-AII",
     "AIII. BENEFICIOS DE LAS ACTIVIDADES ORDINARIAS (",
     "BIII. PERDIDAS DE LAS ACTIVIDADES ORDINARIAS ("},
    {Especial::Extraordinario, "B9+B10+B11+B12+B13-A10-A11-A12-A13-A14",
     "A10+A11+A12+A13+A14-B9-B10-B11-B12-B13", "AIV. RESULTADOS EXTRAORDINARIOS POSITIVOS (",
     "BIV. RESULTADOS EXTRAORDINARIOS NEGATIVOS ("},
    {Especial::AntesImpuestos, "AIII+AIV-BIII-BIV", "BIII+BIV-AIII-AIV",
     "AV. BENEFICIOS ANTES DE IMPUESTOS (", "BV. PERDIDAS ANTES DE IMPUESTOS ("},
    {Especial::Ejercicio, "AV-A15-A16", "BV+A15+A16", "AVI. RESULTADO DEL EJERCICIO (BENEFICIOS) (",
     "BVI. RESULTADO DEL EJERCICIO (PERDIDAS) ("},
};

void LlenarPyG82(EstadoCuentas& e, const Anos& anos) {
    Lista debe(e.lista1, e.modelo, e.comparacion, e.desglose);
    Lista haber(e.lista2, e.modelo, e.comparacion, e.desglose);
    debe.FilaSuma(QStringLiteral("A) GASTOS (A1 a A16)"), std::nullopt, std::nullopt);
    haber.FilaSuma(QStringLiteral("B) INGRESOS (B1 a B13)"), std::nullopt, std::nullopt);
    QMap<QString, double> linea[2]; // A1..A16, B1..B13 by year
    QMap<Especial, double> r[2];
    auto suma = [&](int a, std::initializer_list<const char*> codigos) {
        double t = 0;
        for (const char* c : codigos)
            t += linea[a].value(QString::fromLatin1(c));
        return t;
    };
    bool ladoDebe = true;
    QString codigo;
    for (const LineaEstado& l : LineasPyG82()) {
        if (l.especial == Especial::Ninguna) {
            if (l.nivel == 1) {
                codigo = Codigo(l);
                ladoDebe = codigo.startsWith(u'A');
            }
            Lista& lista = ladoDebe ? debe : haber;
            LlenarLinea(lista, l, anos, ladoDebe, false);
            for (int a = 0; a < 2; ++a)
                linea[a][codigo] += lista.suma(a);
            continue;
        }
        for (int a = 0; a < 2; ++a) {
            double v = 0;
            switch (l.especial) {
            case Especial::Explotacion:
                v = suma(a, {"B1", "B2", "B3", "B4"}) -
                    suma(a, {"A1", "A2", "A3", "A4", "A5", "A6"});
                break;
            case Especial::Financiero:
                v = suma(a, {"B5", "B6", "B7", "B8"}) - suma(a, {"A7", "A8", "A9"});
                break;
            case Especial::Ordinario:
                v = r[a][Especial::Explotacion] + r[a][Especial::Financiero];
                break;
            case Especial::Extraordinario:
                v = suma(a, {"B9", "B10", "B11", "B12", "B13"}) -
                    suma(a, {"A10", "A11", "A12", "A13", "A14"});
                break;
            case Especial::AntesImpuestos:
                v = r[a][Especial::Ordinario] + r[a][Especial::Extraordinario];
                break;
            case Especial::Ejercicio:
                v = r[a][Especial::AntesImpuestos] - suma(a, {"A15", "A16"});
                break;
            default:
                break;
            }
            r[a][l.especial] = Centimos(v);
        }
        const FormulaPyG* f = nullptr;
        for (const FormulaPyG& x : Formulas82)
            if (x.bloque == l.especial)
                f = &x;
        const double v0 = r[0][l.especial];
        const double v1 = e.comparacion ? r[1][l.especial] : 0;
        // A profit goes on the debit side, a loss on the credit side as a positive amount; two
        // years of different sign give one row on each side, each bearing its own year.
        auto positivo = [](double v) {
            return v > 0 ? std::optional<double>(v) : std::nullopt;
        };
        auto negativo = [](double v) {
            return v < 0 ? std::optional<double>(-v) : std::nullopt;
        };
        if (v0 > 0 || v1 > 0)
            debe.FilaSuma(QString::fromLatin1(f->rotuloPositivo) +
                              QString::fromLatin1(f->positivo) + u')',
                          positivo(v0), positivo(v1));
        if (v0 < 0 || v1 < 0)
            haber.FilaSuma(QString::fromLatin1(f->rotuloNegativo) +
                               QString::fromLatin1(f->negativo) + u')',
                           negativo(v0), negativo(v1));
    }
    e.resultado[0] = r[0][Especial::Ejercicio];
    e.resultado[1] = r[1][Especial::Ejercicio];
}

void LlenarPyG106(EstadoCuentas& e, const Anos& anos) {
    Lista lista(e.lista1, e.modelo, e.comparacion, e.desglose);
    double bloque[2] = {0, 0};
    QMap<Especial, double> r[2];
    bool otros = false; // "18. Otros resultados" has an amount in either year
    for (const LineaEstado& l : LineasPyG106()) {
        if (l.especial == Especial::Ninguna) {
            LlenarLinea(lista, l, anos, false, false);
            if (QString::fromUtf16(l.etiqueta).startsWith(QStringLiteral("18.")) && lista.hubo())
                otros = true;
            for (int a = 0; a < 2; ++a)
                bloque[a] += lista.suma(a);
            continue;
        }
        for (int a = 0; a < 2; ++a) {
            double v = bloque[a];
            if (l.especial == Especial::AntesImpuestos)
                v = r[a][Especial::Explotacion] + r[a][Especial::Financiero];
            else if (l.especial == Especial::Ejercicio)
                v = r[a][Especial::AntesImpuestos] + bloque[a];
            if (l.especial != Especial::AntesImpuestos)
                bloque[a] = 0;
            r[a][l.especial] = Centimos(v);
        }
        QString rotulo = QString::fromUtf16(l.etiqueta);
        if (l.especial == Especial::Explotacion && otros)
            rotulo = QStringLiteral("A) RESULTADO DE EXPLOTACION (1+2+3+4+5+6+7+8+9+10+11+18)");
        lista.FilaSuma(rotulo, r[0][l.especial], r[1][l.especial]);
    }
    e.resultado[0] = r[0][Especial::Ejercicio];
    e.resultado[1] = r[1][Especial::Ejercicio];
}

} // namespace

EstadoCuentas LlenarEstado(Modelo m, int ano, const DatosEjercicio& actual,
                           const std::optional<DatosEjercicio>& anterior, bool desglose) {
    EstadoCuentas e;
    e.modelo = m;
    e.ano = ano;
    e.desglose = DesgloseObligado(m) || desglose;
    e.lista1 = RejillaEstado(m, ano, false);
    e.lista2 = m == Modelo::Form106 ? Rejilla() : RejillaEstado(m, ano, true);
    e.hayMovimientos = !actual.saldos.isEmpty();
    if (!e.hayMovimientos)
        return e;
    e.comparacion = anterior && !anterior->saldos.isEmpty();
    Anos anos;
    anos.datos[0] = &actual;
    if (e.comparacion)
        anos.datos[1] = &*anterior;
    switch (m) {
    case Modelo::Form81:
    case Modelo::Form105:
        LlenarBalance(e, anos);
        break;
    case Modelo::Form82:
        LlenarPyG82(e, anos);
        break;
    case Modelo::Form106:
        LlenarPyG106(e, anos);
        break;
    }
    return e;
}

EstadoCuentas CalcularEstado(const Sesion& s, Dialogo& d, Modelo m, bool desglose) {
    DatosEjercicio actual;
    {
        Conexion c = AbrirDatos(s);
        actual = LeerDatosEstado(c);
    }
    std::optional<DatosEjercicio> anterior;
    if (ExisteEjercicio(s, s.AnoActual - 1)) {
        Conexion c = AbrirBaseEmpresa(s, s.rutaEjercicio(s.AnoActual - 1), TipoBase::Ejercicio);
        anterior = LeerDatosEstado(c);
    }
    EstadoCuentas e = LlenarEstado(m, s.AnoActual, actual, anterior, desglose);
    if (!e.hayMovimientos)
        d.Informar(MsgSinMovimientos);
    return e;
}
