#include "posting/Contabilizar.h"

#include "journal/Casaciones.h"
#include "journal/Escritor.h"
#include "platform/Almacen.h"
#include "platform/Dialogo.h"
#include "posting/EstadoTablero.h"
#include "store/Campos.h"
#include "store/Conexiones.h"
#include "store/Formato.h"
#include "store/Rutinas.h"
#include "store/Sesion.h"

#include <QDateTime>
#include <cmath>

const QString MsgCumplimentar =
    QStringLiteral("Debe cumplimentar los campos de Fecha, Concepto e Importe.");
const QString MsgImporteErroneo = QStringLiteral("El importe introducido es erróneo.");
const QString MsgDescuadre = QStringLiteral("El asiento está descuadrado. La suma de las partidas "
                                            "del Debe tienen que ser iguales a las del Haber.");

namespace {

const QString Estandar = QStringLiteral("standard");

QString fmt(double v) {
    return Formato(v, Estandar);
}

} // namespace

bool PrepararCapturaIva(CapturaIva& c, const Sesion& s, Dialogo& d, const QString& origen,
                        const LineaIva& l, bool liquidacion,
                        const std::function<double(double)>& aproxima) {
    const bool cliente = CuentaDe(l.NCuenta) == QLatin1String("477");
    c.OrigenIVA = origen;
    c.ClaseCP = cliente ? QStringLiteral("C") : QStringLiteral("P");
    c.Encabezado = cliente ? QStringLiteral("Cliente") : QStringLiteral("Proveedor");
    c.FilaIVA = static_cast<qint16>(l.fila);

    // The quota is the cell that holds the amount.
    QString cuota;
    if (!l.Debe.trimmed().isEmpty() && !l.Haber.trimmed().isEmpty())
        cuota = ValorImporte(l.Debe) == 0 ? l.Haber : l.Debe;
    else
        cuota = l.Debe.trimmed().isEmpty() ? l.Haber : l.Debe;
    c.Cuota = QLatin1Char(' ') + cuota.trimmed();
    c.CuentaIVA = l.NCuenta.trimmed();
    c.Factura = l.Factura;

    if (!l.PresetLibro.isEmpty() && !l.Preset347.isEmpty() &&
        (l.PresetLibro == QLatin1String("True") || l.Preset347 == QLatin1String("True"))) {
        c.LibroIva = l.PresetLibro == QLatin1String("True");
        c.Modelo347 = l.Preset347 == QLatin1String("True");
    }

    Conexion con = AbrirDatos(s);
    QSqlQuery t = con.ejecutar(
        QStringLiteral("SELECT Porcentaje, Clase FROM TiposIVA WHERE NCuenta = ?"), {c.CuentaIVA});
    if (!t.next()) {
        // The text between the quotes is the line's description, as the books always showed it.
        d.Informar(QStringLiteral("No están introducidos los datos de IVA de la Subcuenta '") +
                   l.Concepto + QLatin1Char('\''));
        return false;
    }
    const double porcentaje = t.value(0).toDouble();
    const QString clase = t.value(1).toString().trimmed();
    t.finish();
    c.Porcentaje = QLatin1Char(' ') + fmt(porcentaje);
    c.Clase = QLatin1Char(' ') + clase;

    if (clase == QLatin1String("Recargo")) {
        c.Modelo347 = false;
        c.Modelo347Visible = false;
    } else if (liquidacion) {
        // A tax settlement is not an invoice.
        c.LibroIva = false;
        c.Modelo347 = false;
    }

    if (!l.Base.trimmed().isEmpty()) {
        c.Base = l.Base;
    } else if (porcentaje != 0) {
        const double base = ValorImporte(fmt(ValorImporte(cuota) * 100 / porcentaje));
        c.Base = QLatin1Char(' ') + fmt(aproxima ? aproxima(base) : base);
    }

    QSqlQuery q = con.ejecutar(
        QStringLiteral(
            "SELECT NCuenta, Cuenta FROM ConCliPro WHERE NCuenta LIKE ? ORDER BY Cuenta"),
        {cliente ? QStringLiteral("4%") : QStringLiteral("2%")});
    c.Nombres.clear();
    c.Codigos.clear();
    while (q.next()) {
        c.Codigos << q.value(0).toString().trimmed();
        c.Nombres << q.value(1).toString().trimmed();
    }
    if (c.Nombres.isEmpty()) {
        d.Informar(QStringLiteral("No hay introducida ninguna Subcuenta de ") +
                   (cliente ? QStringLiteral("Clientes") : QStringLiteral("Proveedores")) +
                   QStringLiteral(". En las Subcuentas de Clientes y Proveedores tiene que "
                                  "introducir al menos el NIF o la Provincia, aunque lo "
                                  "conveniente es que introduzca ambas cosas"));
        return false;
    }
    c.CuentaDefecto = l.Contra.trimmed();
    const int i = c.CuentaDefecto.isEmpty() ? -1 : c.Codigos.indexOf(c.CuentaDefecto);
    if (i >= 0)
        c.ElegirContrapartida(i);
    return true;
}

Contabilizar::Contabilizar(Sesion& s, Dialogo& d, EstadoTablero& tablero)
    : s_(s), d_(d), tablero_(tablero) {
    AplicarOrigen(Estado.Origen);
    Rejilla.validarCelda = [this](int fila, int col, QString& texto) {
        return ValidarCelda(fila, col, texto);
    };
}

bool Contabilizar::ValidarCelda(int fila, int col, QString& texto) {
    if (col == ColF4::Debe || col == ColF4::Haber) {
        // A line's other cell stays empty; the last row's amount goes to the amount field, so
        // there an empty cell is no amount.
        if (texto.trimmed().isEmpty() && fila != Rejilla.ultima())
            return true;
        bool numero = false;
        ValorImporte(texto, &numero);
        const std::optional<double> v = LeerImporte(texto);
        if (!v) {
            d_.Informar(numero ? MsgImporteNoValido(texto) : MsgImporteErroneo);
            return false;
        }
        texto = fmt(*v);
        return true;
    }
    if (col == ColF4::Documento) {
        try {
            texto = TextoCampo(Campo::Documento, texto);
        } catch (const Rechazo& e) {
            d_.Informar(e.mensaje());
            return false;
        }
    }
    return true;
}

void Contabilizar::AplicarOrigen(const QString& origen) {
    Estado.Origen = origen;
    // Only a periodic entry being confirmed lets the user touch amounts and documents.
    Rejilla.setColumnasEditables(origen == QLatin1String("F61")
                                     ? QSet<int>{ColF4::Debe, ColF4::Haber, ColF4::Documento}
                                     : QSet<int>{});
}

void Contabilizar::CargarLineas(const QString& nombre1, const QString& ncuenta1,
                                const QString& nombre2, const QString& ncuenta2) {
    Rejilla.vaciar();
    for (const auto& [nombre, ncuenta] :
         {std::pair{nombre1, ncuenta1}, std::pair{nombre2, ncuenta2}}) {
        const int f = Rejilla.anadirFila();
        Rejilla.fijar(f, ColF4::Cuenta, nombre);
        Rejilla.fijar(f, ColF4::NCuenta, ncuenta);
        Rejilla.fijar(f, ColF4::Venc, QStringLiteral("..."));
    }
}

int Contabilizar::AnadirLinea(const QString& nombre, const QString& ncuenta) {
    const int f = Rejilla.anadirFila();
    Rejilla.fijar(f, ColF4::Fecha, Rejilla.celda(1, ColF4::Fecha));
    Rejilla.fijar(f, ColF4::Concepto, Rejilla.celda(1, ColF4::Concepto));
    Rejilla.fijar(f, ColF4::Cuenta, nombre);
    Rejilla.fijar(f, ColF4::NCuenta, ncuenta);
    Rejilla.fijar(f, ColF4::Venc, QStringLiteral("..."));
    return f;
}

void Contabilizar::MarcarInicioCasacion(int fila) {
    Rejilla.fijar(fila, ColF4::Casacion, QStringLiteral("0"));
}

ResultadoAceptar Contabilizar::Aceptar(const CamposForm4& campos) {
    ResultadoAceptar r;
    // Rounded to the cent first: an amount that rounds to nothing is no amount.
    const std::optional<double> leido = LeerImporte(campos.Importe);
    const double importe = leido.value_or(0.0);
    if (campos.Concepto.trimmed().isEmpty() || campos.Fecha.trimmed().isEmpty() ||
        campos.Importe.trimmed().isEmpty() || (leido && importe == 0)) {
        d_.Informar(MsgCumplimentar);
        return r;
    }
    if (!leido) {
        d_.Informar(MsgImporteNoValido(campos.Importe));
        r.foco = CampoForm4::Importe;
        return r;
    }
    try {
        TextoCampo(Campo::Concepto, campos.Concepto.left(TamanoCampo(Campo::Concepto)));
        TextoCampo(Campo::Documento, campos.Documento);
    } catch (const Rechazo& e) {
        d_.Informar(e.mensaje());
        r.foco = TieneControles(campos.Concepto) ? CampoForm4::Concepto : CampoForm4::Documento;
        return r;
    }
    // The date routine tells the user what is wrong with the text.
    const QDate fecha = FechaDeTexto(ValidarFecha(campos.Fecha, d_));
    if (!fecha.isValid()) {
        r.foco = CampoForm4::Fecha;
        return r;
    }
    if (fecha < s_.FechaIniEj || fecha > s_.FechaFinEj) {
        d_.Informar(QStringLiteral("La fecha introducida no pertenece al año de trabajo."));
        r.foco = CampoForm4::Fecha;
        return r;
    }
    const QString textoFecha = FormatoFecha(fecha, QStringLiteral("short date"));
    r.fecha = textoFecha;
    s_.UltimaFecha = fecha;
    Estado.UltimaFilaIVA = 0;

    const int L = Rejilla.ultima();
    if (L < 1)
        return r;
    if (Rejilla.celda(L, ColF4::Debe).isEmpty() && Rejilla.celda(L, ColF4::Haber).isEmpty()) {
        Rellenar(textoFecha, campos, importe);
        r.tipo = ResultadoAceptar::Tipo::Relleno;
        return r;
    }
    if (AplicarCambio(textoFecha, campos, importe)) {
        r.tipo = ResultadoAceptar::Tipo::Cambio;
        return r;
    }
    ResultadoAceptar p = Publicar(campos.Sector);
    p.fecha = textoFecha;
    return p;
}

void Contabilizar::Rellenar(const QString& fecha, const CamposForm4& campos, double importe) {
    const int L = Rejilla.ultima();
    const QString a = fmt(importe);
    // The balancing cell moves by the amount, so a board-built entry stays balanced.
    auto mover = [&](int fila, int col, double delta) {
        if (fila >= 1 && fila <= L)
            Rejilla.fijarImporte(fila, col, Rejilla.valor(fila, col) + delta);
    };
    auto textos = [&](int fila) {
        Rejilla.fijar(fila, ColF4::Concepto, campos.Concepto);
        Rejilla.fijar(fila, ColF4::Documento, campos.Documento);
    };
    const QString& modo = Estado.Modo;
    if (modo == QLatin1String("D") || modo == QLatin1String("D2")) {
        Rejilla.fijar(L, ColF4::Debe, a);
        textos(L);
        mover(2, ColF4::Haber, importe);
    } else if (modo == QLatin1String("H")) {
        Rejilla.fijar(L, ColF4::Haber, a);
        textos(L);
        mover(1, ColF4::Debe, importe);
    } else if (modo == QLatin1String("H2")) {
        // The debit column, on purpose: within the credit areas the new line balances row 1.
        Rejilla.fijar(L, ColF4::Debe, a);
        textos(L);
        mover(1, ColF4::Debe, -importe);
    } else if (modo == QLatin1String("DOS")) {
        Rejilla.fijar(L - 1, ColF4::Debe, a);
        Rejilla.fijar(L, ColF4::Haber, a);
        for (int f : {L - 1, L}) {
            Rejilla.fijar(f, ColF4::Fecha, fecha);
            textos(f);
        }
    }
    Estado.ImporteAnterior = importe;
}

bool Contabilizar::AplicarCambio(const QString& fecha, const CamposForm4& campos, double importe) {
    const int L = Rejilla.ultima();
    const bool dos = Estado.Modo == QLatin1String("DOS");
    auto permitir = [&] {
        if (PermitirPeriod)
            PermitirPeriod();
    };
    if (fecha != Rejilla.celda(1, ColF4::Fecha)) {
        const bool concepto = campos.Concepto != Rejilla.celda(1, ColF4::Concepto);
        for (int f = 1; f <= L; ++f) {
            Rejilla.fijar(f, ColF4::Fecha, fecha);
            if (concepto)
                Rejilla.fijar(f, ColF4::Concepto, campos.Concepto);
        }
        permitir();
        return true;
    }
    if (campos.Concepto != Rejilla.celda(L, ColF4::Concepto)) {
        if (dos)
            Rejilla.fijar(L - 1, ColF4::Concepto, campos.Concepto);
        Rejilla.fijar(L, ColF4::Concepto, campos.Concepto);
        permitir();
        return true;
    }
    const QString a = fmt(importe);
    if (a != Rejilla.celda(L, ColF4::Debe) && a != Rejilla.celda(L, ColF4::Haber)) {
        const double o = Estado.ImporteAnterior;
        const QString& modo = Estado.Modo;
        if (modo == QLatin1String("D") || modo == QLatin1String("D2")) {
            Rejilla.fijarImporte(2, ColF4::Haber, Rejilla.valor(2, ColF4::Haber) - o + importe);
            Rejilla.fijar(L, ColF4::Debe, a);
        } else if (modo == QLatin1String("H")) {
            Rejilla.fijarImporte(1, ColF4::Debe, Rejilla.valor(1, ColF4::Debe) - o + importe);
            Rejilla.fijar(L, ColF4::Haber, a);
        } else if (modo == QLatin1String("H2")) {
            Rejilla.fijarImporte(1, ColF4::Debe, Rejilla.valor(1, ColF4::Debe) + o - importe);
            Rejilla.fijar(L, ColF4::Debe, a);
        } else if (dos) {
            Rejilla.fijar(L - 1, ColF4::Debe, a);
            Rejilla.fijar(L, ColF4::Haber, a);
        }
        Estado.ImporteAnterior = importe;
        permitir();
        return true;
    }
    if (campos.Documento != Rejilla.celda(L, ColF4::Documento)) {
        if (dos)
            Rejilla.fijar(L - 1, ColF4::Documento, campos.Documento);
        Rejilla.fijar(L, ColF4::Documento, campos.Documento);
        return true;
    }
    return false;
}

ResultadoAceptar Contabilizar::Publicar(const QString& sector) {
    ResultadoAceptar r;
    if (Estado.Origen == QLatin1String("F61") && !CuadraExacto(Rejilla)) {
        d_.Informar(MsgDescuadre);
        return r;
    }
    // Taken before the merge, which may leave no line at all.
    const QDate fecha = FechaDeTexto(Rejilla.celda(1, ColF4::Fecha));
    CRepetidas(Rejilla);
    if (!CapturarIva()) {
        r.tipo = ResultadoAceptar::Tipo::Abandonado;
        return r;
    }

    QList<Apunte> apuntes;
    for (int f = 1; f <= Rejilla.ultima(); ++f) {
        Apunte a;
        a.NCuenta = Rejilla.celda(f, ColF4::NCuenta).trimmed();
        a.Concepto = Rejilla.celda(f, ColF4::Concepto);
        a.Debe = Rejilla.valor(f, ColF4::Debe);
        a.Haber = Rejilla.valor(f, ColF4::Haber);
        a.Documento = Rejilla.celda(f, ColF4::Documento);
        a.Sector = sector.trimmed();
        const QString marca = Rejilla.celda(f, ColF4::Casacion).trimmed();
        if (!marca.isEmpty())
            a.CasacionN = marca.toInt();
        // Only rows up to the last accepted one keep their VAT data.
        if (f <= Estado.UltimaFilaIVA && Iva.tieneDatos(f))
            a.Iva = Iva.datos(f);
        apuntes << a;
    }
    try {
        Conexion c = AbrirDatos(s_);
        Transaccion t(c);
        // Each line marked as a start opens a group of its own: keys drawn under the write lock.
        double clave = 0;
        for (int f = 1; f <= Rejilla.ultima(); ++f) {
            if (Rejilla.celda(f, ColF4::Casacion).trimmed().isEmpty())
                continue;
            clave = clave == 0 ? NuevaClaveCasacion(c) : RedondearClave(clave + 1e-10);
            apuntes[f - 1].CasacionH = clave;
        }
        r.numero = EscribirAsiento(c, s_, fecha, apuntes);
        t.confirmar();
    } catch (const ErrorQuilmar& e) {
        Iva.vaciar();
        d_.Informar(e.mensaje());
        r.tipo = ResultadoAceptar::Tipo::Fallo;
        return r;
    }
    ContraDinero();
    Iva.vaciar();
    if (Estado.Origen == QLatin1String("F61") && AsientoPeriodicoHecho)
        AsientoPeriodicoHecho(r.numero);
    r.tipo = ResultadoAceptar::Tipo::Contabilizado;
    return r;
}

bool Contabilizar::CapturarIva() {
    const int L = Rejilla.ultima();
    Iva.dimensionar(L);
    Estado.IVAAceptado = true;
    bool liquidacion = false;
    for (int f = 1; f <= L; ++f) {
        const QString c = CuentaDe(Rejilla.celda(f, ColF4::NCuenta));
        if (c == QLatin1String("470") || c == QLatin1String("475"))
            liquidacion = true;
    }
    for (int f = 1; f <= L; ++f) {
        if (!EsLineaIva(Rejilla.celda(f, ColF4::NCuenta)))
            continue;
        // Only the answer to the last VAT screen decides whether the entry is posted.
        Estado.IVAAceptado = false;
        CapturaIva captura(s_, d_, Iva, Estado.UltimaFilaIVA, Estado.IVAAceptado);
        LineaIva l;
        l.fila = f;
        l.NCuenta = Rejilla.celda(f, ColF4::NCuenta);
        l.Concepto = Rejilla.celda(f, ColF4::Concepto);
        l.Debe = Rejilla.celda(f, ColF4::Debe);
        l.Haber = Rejilla.celda(f, ColF4::Haber);
        l.Contra = Rejilla.celda(f, ColF4::Contra);
        l.Factura = Rejilla.celda(f, ColF4::Factura);
        l.Base = Rejilla.celda(f, ColF4::Base);
        l.PresetLibro = Rejilla.celda(f, ColF4::LibroIva);
        l.Preset347 = Rejilla.celda(f, ColF4::L347);
        if (!PrepararCapturaIva(captura, s_, d_, QStringLiteral("F4"), l, liquidacion,
                                [this](double v) { return Aproxima(Rejilla, v); }))
            return false;
        if (Pantalla)
            Pantalla->Mostrar(captura);
    }
    return Estado.IVAAceptado;
}

void Contabilizar::ContraDinero() {
    tablero_.NombreDinero.clear();
    tablero_.CuentaDinero.clear();
    for (int f = 1; f <= Rejilla.ultima(); ++f) {
        const QString ncuenta = Rejilla.celda(f, ColF4::NCuenta).trimmed();
        if (ncuenta.startsWith(QLatin1Char('1'))) {
            tablero_.CuentaDinero = ncuenta;
            tablero_.NombreDinero = Rejilla.celda(f, ColF4::Cuenta);
        }
    }
}

namespace {

// Sums in millionths: exact for every amount a user can type, blind to float noise.
void sumasMillonesimas(const RejillaAsiento& r, qint64& debe, qint64& haber) {
    debe = haber = 0;
    for (int f = 1; f <= r.ultima(); ++f) {
        debe += std::llround(r.valor(f, ColF4::Debe) * 1e6);
        haber += std::llround(r.valor(f, ColF4::Haber) * 1e6);
    }
}

} // namespace

bool CuadraExacto(const RejillaAsiento& r) {
    qint64 d = 0, h = 0;
    sumasMillonesimas(r, d, h);
    return d == h;
}

bool CuadraCentimos(const RejillaAsiento& r) {
    double d = 0, h = 0;
    for (int f = 1; f <= r.ultima(); ++f) {
        d += r.valor(f, ColF4::Debe);
        h += r.valor(f, ColF4::Haber);
    }
    return Centimos(d) == Centimos(h);
}

QDate FechaInicialForm4(const Sesion& s, const QDate& hoy) {
    // Today's year decides, even when an entry was already accepted.
    if (hoy.year() == s.AnoActual)
        return s.UltimaFecha.isValid() ? s.UltimaFecha : hoy;
    return s.FechaIniEj;
}

QString ConceptoDeCodigo(const Sesion& s, const QString& texto) {
    bool numero = false;
    const qlonglong codigo = texto.trimmed().toLongLong(&numero);
    if (!numero)
        return {};
    Conexion c = AbrirBavar(s);
    const QVariant v =
        c.escalar(QStringLiteral("SELECT Nombre FROM Conceptos WHERE Codigo = ?"), {codigo});
    return v.isValid() ? v.toString().trimmed() : QString();
}

QStringList ConceptosPredefinidos(const Sesion& s) {
    QStringList r;
    Conexion c = AbrirBavar(s);
    QSqlQuery q = c.ejecutar(QStringLiteral("SELECT Nombre FROM Conceptos ORDER BY Codigo"));
    while (q.next())
        r << q.value(0).toString().trimmed();
    return r;
}

QStringList SectoresConVacio(const Sesion& s) {
    QStringList r;
    Conexion c = AbrirDatos(s);
    QSqlQuery q = c.ejecutar(QStringLiteral("SELECT Sector FROM Sectores ORDER BY Sector"));
    while (q.next())
        r << q.value(0).toString().trimmed();
    r << QString();
    return r;
}

QString SaldoPorNaturaleza(Conexion& c, const QString& ncuenta) {
    QSqlQuery q = c.ejecutar(QStringLiteral("SELECT SaldoD, SaldoH FROM Mayor WHERE NCuenta = ?"),
                             {ncuenta.trimmed()});
    if (!q.next())
        return fmt(0);
    const double d = q.value(0).toDouble(), h = q.value(1).toDouble();
    const QChar area = ncuenta.trimmed().isEmpty() ? QChar() : ncuenta.trimmed().at(0);
    const bool acreedora =
        area == QLatin1Char('0') || area == QLatin1Char('2') || area == QLatin1Char('3');
    return fmt(acreedora ? h - d : d - h);
}

DatosVencimientoLinea VencimientoDeLinea(const RejillaAsiento& r, int fila, const Sesion& s,
                                         const QString& sector) {
    DatosVencimientoLinea v;
    const bool pago = r.valor(fila, ColF4::Debe) > 0;
    v.Tipo = pago ? QStringLiteral("Pago") : QStringLiteral("Cobro");
    v.NCuenta = r.celda(fila, ColF4::NCuenta).trimmed();
    v.Area = v.NCuenta.mid(s.CArea == QLatin1String("Plan") ? 1 : 0, 1);
    v.Nombre = r.celda(fila, ColF4::Cuenta);
    v.Concepto = r.celda(fila, ColF4::Concepto);
    v.Fecha = r.celda(fila, ColF4::Fecha);
    v.Importe = pago ? r.valor(fila, ColF4::Debe) : r.valor(fila, ColF4::Haber);
    v.Documento = r.celda(fila, ColF4::Documento);
    v.Sector = sector;
    return v;
}
