#include "posting/GestionAsientos.h"

#include "chart/VistaArea.h"
#include "journal/EjercicioAbierto.h"
#include "platform/Almacen.h"
#include "platform/Dialogo.h"
#include "platform/Errores.h"
#include "store/Campos.h"
#include "store/Conexiones.h"
#include "store/Formato.h"
#include "store/Rutinas.h"
#include "store/Sesion.h"

#include <QBrush>
#include <QColor>

const QString CaptionAceptar = QStringLiteral("&Aceptar");
const QString CaptionAnadir = QStringLiteral("&Añadir");
const QString CaptionModificar = QStringLiteral("&Modificar");

namespace {

const QString Estandar = QStringLiteral("standard");

QString fmt(double v) {
    return Formato(v, Estandar);
}

// A zero amount shows as nothing, as in every book.
QString importe(double v) {
    return Centimos(v) == 0 ? QString() : fmt(v);
}

QString numero(long n) {
    return Formato(static_cast<double>(n), QStringLiteral("#,##0"));
}

QString fechaCorta(const QDate& f) {
    return FormatoFecha(f, QStringLiteral("short date"));
}

QStringList cabecerasF7() {
    return {QStringLiteral("Cuenta"),    QStringLiteral("Concepto"),  QStringLiteral("Debe"),
            QStringLiteral("Haber"),     QStringLiteral("NCuenta"),   QStringLiteral("IdIVA"),
            QStringLiteral("Documento"), QStringLiteral("CasacionN"), QStringLiteral("CasacionH"),
            QStringLiteral("Sector"),    QStringLiteral("Cas."),      QStringLiteral("Punteo"),
            QStringLiteral("Contra"),    QStringLiteral("Factura"),   QStringLiteral("Base"),
            QStringLiteral("LibroIVA"),  QStringLiteral("Mod347"),    QStringLiteral("Venc.")};
}

} // namespace

ColumnasAsiento ColumnasF7() {
    ColumnasAsiento c;
    c.Cuenta = ColF7::Cuenta;
    c.Concepto = ColF7::Concepto;
    c.NCuenta = ColF7::NCuenta;
    c.Debe = ColF7::Debe;
    c.Haber = ColF7::Haber;
    c.Casacion = ColF7::CasacionN;
    c.Imagen = ColF7::Imagen;
    return c;
}

RejillaF7::RejillaF7(QObject* padre) : RejillaAsiento(cabecerasF7(), ColumnasF7(), padre) {}

void RejillaF7::Resaltar() {
    resaltada_ = true;
    if (filas() > 1)
        Q_EMIT dataChanged(index(0, 0), index(filas() - 2, ColF7::Haber), {Qt::BackgroundRole});
}

QVariant RejillaF7::data(const QModelIndex& indice, int rol) const {
    if (rol == Qt::BackgroundRole && resaltada_ && indice.isValid() &&
        indice.column() <= ColF7::Haber)
        return QBrush(QColor(0xE0, 0xE0, 0xE0));
    return RejillaAsiento::data(indice, rol);
}

GestionAsientos::GestionAsientos(Sesion& s, Dialogo& d) : s_(s), d_(d) {
    TextoDescuadre = fmt(0);
}

double GestionAsientos::Aproxima(double v) const {
    return ::Aproxima(Rejilla, v, ColumnasF7());
}

QList<int> GestionAsientos::AdImagen() const {
    return ::AdImagen(Rejilla, ColumnasF7());
}

void GestionAsientos::CRepetidas() {
    ::CRepetidas(Rejilla, ColumnasF7());
}

bool GestionAsientos::HacerPeriodico() {
    Descuadre();
    if (!Cuadrado()) {
        d_.Informar(QStringLiteral("El asiento está descuadrado"));
        return false;
    }
    if (AccionPeriodico)
        AccionPeriodico();
    return true;
}

void GestionAsientos::Descuadre() {
    double debe = 0, haber = 0;
    for (int f = 1; f <= Rejilla.ultima(); ++f) {
        // Each line as it will be written, to the cent, so that the difference is the one the
        // journal would show.
        const double d = Centimos(Rejilla.valor(f, ColF7::Debe));
        const double h = Centimos(Rejilla.valor(f, ColF7::Haber));
        if (d != 0)
            debe += d;
        if (h != 0)
            haber += h;
    }
    TextoDescuadre = fmt(debe - haber);
}

bool GestionAsientos::Cuadrado() const {
    // The difference as the field shows it: half a cent or less rounds to "0,00".
    return ValorImporte(TextoDescuadre) == 0;
}

bool GestionAsientos::VMAsiento(long nas) {
    Conexion c = AbrirDatos(s_);
    QSqlQuery q = c.ejecutar(
        QStringLiteral("SELECT Cuenta, Concepto, Debe, Haber, NCuenta, IdIVA, Documento, "
                       "CasacionN, CasacionH, Sector, Fecha, Clase, Punteo FROM ConDiario "
                       "WHERE NAs = ? ORDER BY NAp"),
        {static_cast<qlonglong>(nas)});
    if (!q.next()) {
        d_.Informar(QStringLiteral("No se encontró el Asiento nº ") + numero(nas) +
                    QLatin1Char('.'));
        return false;
    }
    Rejilla.vaciar();
    Iva.vaciar();
    VaciarLinea();
    Numero = QString::number(nas);
    Label2 = numero(nas);
    NumeroAsiento = nas;
    Fecha = Label8 = fechaCorta(DeISO(q.value(10).toString()));
    EsNuevo = false;
    LineasCambiadas = false;
    FechaCambiada = false;
    Sector = q.value(9).toString().trimmed();
    ClaseAsiento = q.value(11).toString().trimmed();
    do {
        const int f = Rejilla.anadirFila();
        Rejilla.fijar(f, ColF7::Cuenta, q.value(0).toString().trimmed());
        Rejilla.fijar(f, ColF7::Concepto, q.value(1).toString());
        Rejilla.fijar(f, ColF7::Debe, importe(q.value(2).toDouble()));
        Rejilla.fijar(f, ColF7::Haber, importe(q.value(3).toDouble()));
        Rejilla.fijar(f, ColF7::NCuenta, q.value(4).toString().trimmed());
        const qint64 id = q.value(5).toLongLong();
        Rejilla.fijar(f, ColF7::IdIVA, id != 0 ? QString::number(id) : QString());
        Rejilla.fijar(f, ColF7::Documento, q.value(6).toString());
        // A line belongs to a reconciliation group when it carries the group's key.
        const double grupo = q.value(8).toDouble();
        if (grupo != 0) {
            Rejilla.fijar(f, ColF7::CasacionN, QString::number(q.value(7).toInt()));
            Rejilla.fijar(f, ColF7::CasacionH, QString::number(grupo, 'g', 17));
        }
        Rejilla.fijar(f, ColF7::Sector, q.value(9).toString().trimmed());
        Rejilla.fijar(f, ColF7::Punteo,
                      q.value(12).toInt() != 0 ? QStringLiteral("-1") : QStringLiteral("0"));
    } while (q.next());
    Descuadre();
    Resaltar();
    return true;
}

bool GestionAsientos::TeclaNumero(const QString& tecla) {
    if (tecla == QLatin1String("+")) {
        Siguiente();
        return false;
    }
    if (tecla.size() == 1 && tecla.at(0).isDigit())
        return true;
    d_.Informar(QStringLiteral("Debe introducir sólo cifras."));
    return false;
}

void GestionAsientos::Siguiente() {
    Vaciar();
}

bool GestionAsientos::IntroNumero() {
    const QString texto = Numero.trimmed();
    if (texto.isEmpty())
        return false;
    bool ok = false;
    const long nas = texto.toLong(&ok);
    bool existe = false;
    if (ok && nas >= 0) {
        Conexion c = AbrirDatos(s_);
        existe = c.existe(QStringLiteral("SELECT 1 FROM Diario WHERE NAs = ?"),
                          {static_cast<qlonglong>(nas)});
    }
    if (!existe) {
        d_.Informar(texto + QStringLiteral(" no es un número de Asiento válido."));
        return false;
    }
    if (!VMAsiento(nas))
        return false;
    Descuadre();
    return true;
}

QStringList GestionAsientos::Areas() const {
    return VistaArea::De(s_).digitos();
}

void GestionAsientos::ElegirArea(const QString& area) {
    Area = area.trimmed();
    Nombres.clear();
    Codigos.clear();
    Cuenta.clear();
    NCuenta.clear();
    Saldo.clear();
    if (Area.isEmpty())
        return;
    Conexion c = AbrirDatos(s_);
    for (const SubcuentaDeLista& l : VistaArea::De(s_).subcuentas(c, s_, Area)) {
        Nombres << l.Cuenta;
        Codigos << l.NCuenta;
    }
}

bool GestionAsientos::ElegirSubcuenta(int indice) {
    if (Area.isEmpty()) {
        d_.Informar(QStringLiteral("Seleccione primero el Area al que pertenece la Subcuenta"));
        return false;
    }
    if (indice < 0 || indice >= Nombres.size())
        return false;
    // The lists go in step: the code beside the name is the one chosen, even for equal names.
    Cuenta = Nombres.at(indice);
    NCuenta = Codigos.at(indice);
    mostrarSaldo();
    LineaTocada();
    return true;
}

bool GestionAsientos::ElegirSubcuenta(const QString& nombre) {
    if (Area.isEmpty()) {
        d_.Informar(QStringLiteral("Seleccione primero el Area al que pertenece la Subcuenta"));
        return false;
    }
    const int i = static_cast<int>(Nombres.indexOf(nombre.trimmed()));
    if (i < 0) {
        // A name that names nothing leaves no code behind it.
        Cuenta = nombre;
        NCuenta.clear();
        Saldo.clear();
        return false;
    }
    return ElegirSubcuenta(i);
}

void GestionAsientos::mostrarSaldo() {
    Conexion c = AbrirDatos(s_);
    QSqlQuery q = c.ejecutar(QStringLiteral("SELECT SaldoD, SaldoH FROM Mayor WHERE NCuenta = ?"),
                             {NCuenta.trimmed()});
    Saldo = q.next() ? fmt(q.value(0).toDouble() - q.value(1).toDouble()) : fmt(0);
}

void GestionAsientos::LineaTocada() {
    if (Caption == CaptionAceptar)
        Caption = CaptionAnadir;
}

void GestionAsientos::SeleccionarLinea(int fila) {
    if (fila < 1 || fila > Rejilla.ultima())
        return;
    const QString codigo = Rejilla.celda(fila, ColF7::NCuenta).trimmed();
    ElegirArea(VistaArea::De(s_).digitoDe(codigo));
    FilaSeleccionada = fila;
    Cuenta = Rejilla.celda(fila, ColF7::Cuenta);
    NCuenta = codigo;
    Concepto = Rejilla.celda(fila, ColF7::Concepto);
    Debe = Rejilla.celda(fila, ColF7::Debe);
    Haber = Rejilla.celda(fila, ColF7::Haber);
    Documento = Rejilla.celda(fila, ColF7::Documento);
    Sector = Rejilla.celda(fila, ColF7::Sector);
    mostrarSaldo();
    Caption = CaptionModificar;
}

bool GestionAsientos::QuitarLinea(int fila) {
    if (fila < 1 || fila > Rejilla.ultima())
        return false;
    if (!d_.Preguntar(QStringLiteral("Está seguro de que desea eliminar el Apunte correspondiente "
                                     "a ") +
                      Rejilla.celda(fila, ColF7::Cuenta).trimmed() + QLatin1Char('?')))
        return false;
    Rejilla.quitarFila(fila);
    Descuadre();
    LineasCambiadas = true;
    VaciarLinea();
    return true;
}

void GestionAsientos::VaciarLinea() {
    Area.clear();
    Nombres.clear();
    Codigos.clear();
    Cuenta.clear();
    NCuenta.clear();
    Concepto.clear();
    Debe.clear();
    Haber.clear();
    Documento.clear();
    Saldo.clear();
    FilaSeleccionada = 0;
    Caption = CaptionAceptar;
}

void GestionAsientos::camposAFila(int fila) {
    Rejilla.fijar(fila, ColF7::Cuenta, Cuenta.trimmed());
    Rejilla.fijar(fila, ColF7::Concepto, Concepto);
    Rejilla.fijar(fila, ColF7::Debe, importe(ValorImporte(Debe)));
    Rejilla.fijar(fila, ColF7::Haber, importe(ValorImporte(Haber)));
    Rejilla.fijar(fila, ColF7::NCuenta, NCuenta.trimmed());
    Rejilla.fijar(fila, ColF7::Documento, Documento);
    Rejilla.fijar(fila, ColF7::Sector, Sector.trimmed());
}

int GestionAsientos::anadirFilaDeCampos() {
    const int f = Rejilla.anadirFila();
    camposAFila(f);
    Rejilla.fijar(f, ColF7::Punteo, QStringLiteral("0"));
    return f;
}

ResultadoF7 GestionAsientos::Pulsar() {
    ResultadoF7 r;
    r.tipo = ResultadoF7::Tipo::Aviso;
    // 1. A closed exercise is read again from the books: another user may have closed it.
    if (!EjercicioAbierto(s_, d_))
        return r;
    // 2.
    Descuadre();
    // 3.
    if (Fecha.trimmed().isEmpty()) {
        d_.Informar(QStringLiteral("Debe cumplimentar el campo de Fecha."));
        r.foco = ResultadoF7::Foco::Fecha;
        return r;
    }
    const QDate fecha = FechaDeTexto(ValidarFecha(Fecha, d_));
    if (!fecha.isValid()) {
        r.foco = ResultadoF7::Foco::Fecha;
        return r;
    }
    if (fecha < s_.FechaIniEj || fecha > s_.FechaFinEj) {
        d_.Informar(QStringLiteral("La fecha introducida no pertenece al año de trabajo."));
        r.foco = ResultadoF7::Foco::Fecha;
        return r;
    }
    Fecha = fechaCorta(fecha);
    r.fecha = fecha;
    // 4. A loaded entry whose date was changed.
    if (!EsNuevo && !Label8.isEmpty() && fecha != FechaDeTexto(Label8) && Rejilla.ultima() >= 1) {
        if (!d_.Preguntar(QStringLiteral("Está seguro de que desea guardar los cambios?"))) {
            r.tipo = ResultadoF7::Tipo::Nada;
            return r;
        }
        FechaCambiada = true;
    }
    // 6. Adding or replacing a line.
    if (Caption == CaptionAnadir || Caption == CaptionModificar) {
        if (Cuenta.trimmed().isEmpty() || NCuenta.trimmed().isEmpty()) {
            d_.Informar(QStringLiteral("No ha seleccionado una cuenta."));
            r.foco = ResultadoF7::Foco::Area;
            return r;
        }
        // Each amount rounded to the cent as it will be written; an empty field is 0.
        const std::optional<double> leidoDebe = Debe.trimmed().isEmpty() ? 0.0 : LeerImporte(Debe);
        const std::optional<double> leidoHaber =
            Haber.trimmed().isEmpty() ? 0.0 : LeerImporte(Haber);
        if (!leidoDebe || !leidoHaber) {
            d_.Informar(MsgImporteNoValido(!leidoDebe ? Debe : Haber));
            return r;
        }
        try {
            TextoCampo(Campo::Concepto, Concepto.left(TamanoCampo(Campo::Concepto)));
            TextoCampo(Campo::Documento, Documento);
        } catch (const Rechazo& e) {
            d_.Informar(e.mensaje());
            return r;
        }
        const double debe = *leidoDebe, haber = *leidoHaber;
        if (debe == 0 && haber == 0) {
            d_.Informar(
                QStringLiteral("Tiene que introducir el importe, bien en el DEBE o en el HABER."));
            return r;
        }
        if (debe != 0 && haber != 0) {
            d_.Informar(
                QStringLiteral("El importe hay que introducirlo sólo en el DEBE o en el HABER."));
            return r;
        }
        // The selected row is the one replaced; its VAT key and reconciliation marks stay.
        Debe = importe(debe);
        Haber = importe(haber);
        if (Caption == CaptionModificar && FilaSeleccionada >= 1 &&
            FilaSeleccionada <= Rejilla.ultima())
            camposAFila(FilaSeleccionada);
        else
            anadirFilaDeCampos();
        Descuadre();
        LineasCambiadas = true;
        VaciarLinea();
        r.tipo = ResultadoF7::Tipo::Linea;
        r.foco = Cuadrado() ? ResultadoF7::Foco::Boton : ResultadoF7::Foco::Area;
        return r;
    }
    // 7. Saving: balanced as the difference field shows it.
    if (!Cuadrado()) {
        d_.Informar(QStringLiteral("El asiento está descuadrado."));
        return r;
    }
    // 8. Nothing changed (and a new entry without lines has nothing to write).
    if ((!LineasCambiadas && !FechaCambiada && !EsNuevo) || (EsNuevo && Rejilla.ultima() < 1)) {
        Vaciar();
        r.tipo = ResultadoF7::Tipo::Vaciado;
        r.foco = ResultadoF7::Foco::Numero;
        return r;
    }
    // 9. Only the date: changed in place.
    if (FechaCambiada && !LineasCambiadas && !EsNuevo) {
        Conexion c = AbrirDatos(s_);
        if (CambiarFechaAsiento(c, d_, NumeroAsiento, fecha, Sector) == 0) {
            d_.Informar(QStringLiteral("No se pudo hacer la modificación."));
            r.tipo = ResultadoF7::Tipo::Fallo;
            return r;
        }
        r.tipo = ResultadoF7::Tipo::Fecha;
        r.numero = NumeroAsiento;
        Iva.vaciar();
        Vaciar();
        if (LibrosCambiados)
            LibrosCambiados();
        return r;
    }
    // 10. The VAT data of the 472/477 lines, preset from their records.
    if (!capturarIva()) {
        Iva.vaciar();
        r.tipo = ResultadoF7::Tipo::Abandonado;
        return r;
    }
    // 11 to 14. Deleted and written again in one transaction.
    try {
        Conexion c = AbrirDatos(s_);
        r.numero =
            ReescribirAsiento(c, s_, EsNuevo ? std::nullopt : std::optional<long>(NumeroAsiento),
                              fecha, apuntes(), ClaseAsiento);
    } catch (const ErrorQuilmar& e) {
        Iva.vaciar();
        d_.Informar(e.mensaje());
        r.tipo = ResultadoF7::Tipo::Fallo;
        return r;
    }
    // 15.
    Iva.vaciar();
    Vaciar();
    if (LibrosCambiados)
        LibrosCambiados();
    r.tipo = ResultadoF7::Tipo::Guardado;
    r.foco = ResultadoF7::Foco::Numero;
    return r;
}

bool GestionAsientos::capturarIva() {
    const int L = Rejilla.ultima();
    Iva.dimensionar(L);
    UltimaFilaIVA = 0;
    IVAAceptado = true;
    bool liquidacion = false;
    for (int f = 1; f <= L; ++f) {
        const QString c = CuentaDe(Rejilla.celda(f, ColF7::NCuenta));
        if (c == QLatin1String("470") || c == QLatin1String("475"))
            liquidacion = true;
    }
    for (int f = 1; f <= L; ++f) {
        if (!EsLineaIva(Rejilla.celda(f, ColF7::NCuenta)))
            continue;
        // As on the posting screen, only the answer to the last VAT screen decides.
        IVAAceptado = false;
        CapturaIva captura(s_, d_, Iva, UltimaFilaIVA, IVAAceptado);
        LineaIva l;
        l.fila = f;
        l.NCuenta = Rejilla.celda(f, ColF7::NCuenta);
        l.Concepto = Rejilla.celda(f, ColF7::Concepto);
        l.Debe = Rejilla.celda(f, ColF7::Debe);
        l.Haber = Rejilla.celda(f, ColF7::Haber);
        // A line made elsewhere offers what it was given.
        l.Contra = Rejilla.celda(f, ColF7::Contra);
        l.Factura = Rejilla.celda(f, ColF7::Factura);
        l.Base = Rejilla.celda(f, ColF7::Base);
        l.PresetLibro = Rejilla.celda(f, ColF7::LibroIva);
        l.Preset347 = Rejilla.celda(f, ColF7::L347);
        // A line that had VAT data offers its invoice, operation type and counterparty again.
        QString tipo;
        const qint64 id = Rejilla.celda(f, ColF7::IdIVA).toLongLong();
        if (id != 0) {
            Conexion c = AbrirDatos(s_);
            QSqlQuery q = c.ejecutar(
                QStringLiteral("SELECT NFactura, TipOp, NCuenta FROM DatosIVA WHERE IdIVA = ?"),
                {id});
            if (q.next()) {
                l.Factura = q.value(0).toString();
                tipo = q.value(1).toString().trimmed();
                l.Contra = q.value(2).toString().trimmed();
            }
        }
        if (!PrepararCapturaIva(captura, s_, d_, QStringLiteral("F7"), l, liquidacion,
                                [this](double v) { return Aproxima(v); }))
            return false;
        if (tipo == QLatin1String("N") || tipo == QLatin1String("S") || tipo == QLatin1String("A"))
            captura.TipoOperacion = tipo;
        if (Pantalla)
            Pantalla->Mostrar(captura);
    }
    return IVAAceptado;
}

QList<Apunte> GestionAsientos::apuntes() const {
    QList<Apunte> r;
    for (int f = 1; f <= Rejilla.ultima(); ++f) {
        Apunte a;
        a.NCuenta = Rejilla.celda(f, ColF7::NCuenta).trimmed();
        a.Concepto = Rejilla.celda(f, ColF7::Concepto);
        a.Debe = Rejilla.valor(f, ColF7::Debe);
        a.Haber = Rejilla.valor(f, ColF7::Haber);
        a.Documento = Rejilla.celda(f, ColF7::Documento);
        // The sector of the entry is the sector field's, as on the posting screen.
        a.Sector = Sector.trimmed();
        a.CasacionH = Rejilla.celda(f, ColF7::CasacionH).toDouble();
        if (a.CasacionH != 0)
            a.CasacionN = Rejilla.celda(f, ColF7::CasacionN).toInt();
        a.Punteo = Rejilla.celda(f, ColF7::Punteo).toInt() != 0;
        if (f <= UltimaFilaIVA && Iva.tieneDatos(f))
            a.Iva = Iva.datos(f);
        r << a;
    }
    return r;
}

bool GestionAsientos::EliminarAsiento() {
    if (EsNuevo || NumeroAsiento < 0)
        return false;
    if (!EjercicioAbierto(s_, d_))
        return false;
    const long nas = NumeroAsiento;
    if (!d_.Preguntar(QStringLiteral("Está seguro de que desea eliminar el asiento número ") +
                      QString::number(nas) + QLatin1Char('?')))
        return false;
    bool hecho = false;
    try {
        Conexion c = AbrirDatos(s_);
        hecho = ElimAsiento(c, s_, nas);
    } catch (const ErrorQuilmar&) {
        hecho = false;
    }
    if (!hecho) {
        d_.Informar(QStringLiteral("No se pudo eliminar el Asiento."));
        return false;
    }
    Vaciar();
    d_.Informar(QStringLiteral("Se eliminó el Asiento número ") + QString::number(nas) +
                QLatin1Char('.'));
    if (LibrosCambiados)
        LibrosCambiados();
    return true;
}

bool GestionAsientos::Predisenado() {
    if (!AccionPredisenado)
        return false;
    const QString codigo = Pred.trimmed();
    bool cifras = codigo.size() == 3;
    for (const QChar ch : codigo)
        cifras = cifras && ch.isDigit();
    if (!cifras) {
        d_.Informar(QStringLiteral("Los asientos prediseñados deben tener tres dígitos"));
        return false;
    }
    AccionPredisenado(codigo);
    return true;
}

void GestionAsientos::Vaciar() {
    Rejilla.vaciar();
    Iva.vaciar();
    VaciarLinea();
    EsNuevo = true;
    LineasCambiadas = false;
    FechaCambiada = false;
    NumeroAsiento = 0;
    Label8.clear();
    Sector.clear();
    ClaseAsiento.clear();
    Pred.clear();
    TextoDescuadre = fmt(0);
    const long n = SiguienteNumero();
    Numero = QString::number(n);
    Label2 = numero(n);
}

void GestionAsientos::NuevoConLineas(const QList<LineaF7>& lineas, const QDate& fecha) {
    Vaciar();
    Conexion c = AbrirDatos(s_);
    for (const LineaF7& l : lineas) {
        const int f = Rejilla.anadirFila();
        const QVariant nombre = c.escalar(
            QStringLiteral("SELECT Cuenta FROM Cuentas WHERE NCuenta = ?"), {l.NCuenta.trimmed()});
        Rejilla.fijar(f, ColF7::Cuenta, nombre.toString().trimmed());
        Rejilla.fijar(f, ColF7::Concepto, l.Concepto);
        Rejilla.fijar(f, ColF7::Debe, importe(l.Debe));
        Rejilla.fijar(f, ColF7::Haber, importe(l.Haber));
        Rejilla.fijar(f, ColF7::NCuenta, l.NCuenta.trimmed());
        Rejilla.fijar(f, ColF7::Documento, l.Documento);
        Rejilla.fijar(f, ColF7::Sector, l.Sector.trimmed());
        Rejilla.fijar(f, ColF7::Punteo, QStringLiteral("0"));
        Rejilla.fijar(f, ColF7::Contra, l.Contra.trimmed());
        Rejilla.fijar(f, ColF7::Factura, l.Factura);
        Rejilla.fijar(f, ColF7::Base, l.Base);
        Rejilla.fijar(f, ColF7::LibroIva, l.LibroIva);
        Rejilla.fijar(f, ColF7::L347, l.L347);
    }
    if (!lineas.isEmpty())
        Sector = lineas.first().Sector.trimmed();
    EsNuevo = true;
    LineasCambiadas = true;
    Fecha = Label8 = fechaCorta(fecha);
    Descuadre();
}

long GestionAsientos::SiguienteNumero() const {
    Conexion c = AbrirDatos(s_);
    const QVariant m = c.escalar(QStringLiteral("SELECT MAX(NAs) FROM Diario"));
    return (m.isNull() ? 0 : m.toLongLong()) + 1;
}

int CambiarFechaAsiento(Conexion& c, Dialogo& d, long nas, const QDate& fecha,
                        const QString& sector) {
    const QString iso = FechaISO(fecha);
    int filas = 0, perdidos = 0;
    {
        Transaccion t(c);
        QSqlQuery q = c.ejecutar(QStringLiteral("SELECT IdIVA FROM Diario WHERE NAs = ?"),
                                 {static_cast<qlonglong>(nas)});
        QList<qint64> ids;
        while (q.next()) {
            ++filas;
            if (const qint64 id = q.value(0).toLongLong(); id != 0)
                ids << id;
        }
        q.finish();
        for (const qint64 id : ids) {
            const int n =
                c.ejecutar(QStringLiteral("UPDATE DatosIVA SET Fecha = ? WHERE IdIVA = ?"),
                           {iso, id})
                    .numRowsAffected();
            if (n == 0)
                ++perdidos;
        }
        // The amounts did not change: Mayor stays as it is.
        c.ejecutar(QStringLiteral("UPDATE Diario SET Fecha = ?, Sector = ? WHERE NAs = ?"),
                   {iso, sector.trimmed(), static_cast<qlonglong>(nas)});
        t.confirmar();
    }
    // Told once the books are written, so that no message box waits under the write lock.
    for (int i = 0; i < perdidos; ++i)
        d.Informar(QStringLiteral(
            "Error en los datos de IVA. Debería anular el asiento y hacerlo de nuevo."));
    return filas;
}

long ReescribirAsiento(Conexion& c, Sesion& s, std::optional<long> nas, const QDate& fecha,
                       const QList<Apunte>& lineas, const QString& clase) {
    const float antes = s.UltimoAsiento;
    try {
        Transaccion t(c);
        if (nas && !ElimAsiento(c, s, *nas))
            throw Rechazo(QStringLiteral("No se pudo hacer la modificación."));
        OpcionesEscritura o;
        o.numero = nas;
        o.pasada = PasadaImportes::NoCero;
        o.Clase = clase;
        const long n = EscribirAsiento(c, s, fecha, lineas, o);
        t.confirmar();
        return n;
    } catch (...) {
        s.UltimoAsiento = antes;
        throw;
    }
}
