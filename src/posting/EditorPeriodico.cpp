#include "posting/EditorPeriodico.h"

#include "chart/VistaArea.h"
#include "platform/Almacen.h"
#include "platform/Dialogo.h"
#include "store/Campos.h"
#include "store/Conexiones.h"
#include "store/Formato.h"
#include "store/Rutinas.h"
#include "store/Sesion.h"

const QString MsgCambiarFechaPeriodico =
    QStringLiteral("Está seguro de que desea cambiar la fecha de realización del Asiento?");
const QString MsgModificacionRealizada = QStringLiteral("Modificación realizada.");

namespace {

QString fmt(double v) {
    return Formato(v, QStringLiteral("standard"));
}

QString importe(double v) {
    return Centimos(v) == 0 ? QString() : fmt(v);
}

} // namespace

EditorPeriodico::EditorPeriodico(const Sesion& s, Dialogo& d) : s_(s), d_(d) {
    TextoDescuadre = fmt(0);
}

bool EditorPeriodico::Cargar(const QString& nombre) {
    std::optional<AsientoPeriodico> a;
    {
        Conexion c = AbrirBavar(s_);
        a = LeerPeriodico(c, nombre);
    }
    if (!a)
        return false;
    Rejilla.vaciar();
    VaciarLinea();
    Nombre = a->Nombre;
    FechaIni = a->FechaIni;
    Fecha = FechaCargada = FormatoFecha(a->FechaProx, QStringLiteral("short date"));
    Periodicidad = a->Periodicidad;
    Sector = a->Sector;
    Conexion datos = AbrirDatos(s_);
    for (const LineaPeriodico& l : a->Lineas) {
        const int f = Rejilla.anadirFila();
        const QVariant cuenta = datos.escalar(
            QStringLiteral("SELECT Cuenta FROM Cuentas WHERE NCuenta = ?"), {l.NCuenta});
        Rejilla.fijar(f, ColF7::Cuenta, cuenta.toString().trimmed());
        Rejilla.fijar(f, ColF7::Concepto, l.Concepto);
        Rejilla.fijar(f, ColF7::Debe, importe(l.Debe));
        Rejilla.fijar(f, ColF7::Haber, importe(l.Haber));
        Rejilla.fijar(f, ColF7::NCuenta, l.NCuenta);
        Rejilla.fijar(f, ColF7::Documento, l.Documento);
    }
    Descuadre();
    Resaltar();
    return true;
}

AsientoPeriodico EditorPeriodico::Asiento() const {
    AsientoPeriodico a;
    a.Nombre = Nombre;
    a.Periodicidad = Periodicidad;
    a.FechaIni = FechaIni;
    a.FechaProx = FechaDeTexto(Fecha);
    a.Sector = Sector.trimmed();
    for (int f = 1; f <= Rejilla.ultima(); ++f) {
        LineaPeriodico l;
        l.NCuenta = Rejilla.celda(f, ColF7::NCuenta).trimmed();
        l.Concepto = Rejilla.celda(f, ColF7::Concepto).trimmed();
        l.Debe = Centimos(Rejilla.valor(f, ColF7::Debe));
        l.Haber = Centimos(Rejilla.valor(f, ColF7::Haber));
        l.Documento = Rejilla.celda(f, ColF7::Documento).trimmed();
        a.Lineas << l;
    }
    return a;
}

void EditorPeriodico::Descuadre() {
    double debe = 0, haber = 0;
    for (int f = 1; f <= Rejilla.ultima(); ++f) {
        debe += Centimos(Rejilla.valor(f, ColF7::Debe));
        haber += Centimos(Rejilla.valor(f, ColF7::Haber));
    }
    TextoDescuadre = fmt(debe - haber);
}

bool EditorPeriodico::Cuadrado() const {
    return ValorImporte(TextoDescuadre) == 0;
}

QStringList EditorPeriodico::Areas() const {
    return VistaArea::De(s_).digitos();
}

void EditorPeriodico::ElegirArea(const QString& area) {
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

bool EditorPeriodico::ElegirSubcuenta(int indice) {
    if (Area.isEmpty()) {
        d_.Informar(QStringLiteral("Seleccione primero el Area al que pertenece la Subcuenta"));
        return false;
    }
    if (indice < 0 || indice >= Nombres.size())
        return false;
    Cuenta = Nombres.at(indice);
    NCuenta = Codigos.at(indice);
    mostrarSaldo();
    return true;
}

void EditorPeriodico::mostrarSaldo() {
    Conexion c = AbrirDatos(s_);
    QSqlQuery q = c.ejecutar(QStringLiteral("SELECT SaldoD, SaldoH FROM Mayor WHERE NCuenta = ?"),
                             {NCuenta.trimmed()});
    Saldo = q.next() ? fmt(q.value(0).toDouble() - q.value(1).toDouble()) : fmt(0);
}

void EditorPeriodico::SeleccionarLinea(int fila) {
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
    mostrarSaldo();
}

void EditorPeriodico::VaciarLinea() {
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
}

bool EditorPeriodico::lineaDeCampos(int fila) {
    if (Cuenta.trimmed().isEmpty() || NCuenta.trimmed().isEmpty()) {
        d_.Informar(QStringLiteral("No ha seleccionado una cuenta."));
        return false;
    }
    auto leer = [&](const QString& texto, double& v) {
        v = 0;
        if (texto.trimmed().isEmpty())
            return true;
        const std::optional<double> x = LeerImporte(texto);
        if (!x) {
            d_.Informar(QStringLiteral("El importe introducido no es válido."));
            return false;
        }
        v = *x;
        return true;
    };
    double debe = 0, haber = 0;
    if (!leer(Debe, debe) || !leer(Haber, haber))
        return false;
    if (debe == 0 && haber == 0) {
        d_.Informar(
            QStringLiteral("Tiene que introducir el importe, bien en el DEBE o en el HABER."));
        return false;
    }
    if (debe != 0 && haber != 0) {
        d_.Informar(
            QStringLiteral("El importe hay que introducirlo sólo en el DEBE o en el HABER."));
        return false;
    }
    QString concepto, documento;
    try {
        concepto = TextoCampo(Campo::Concepto, Concepto);
        documento = TextoCampo(Campo::Documento, Documento);
    } catch (const Rechazo& e) {
        d_.Informar(e.mensaje());
        return false;
    }
    const int f = fila > 0 ? fila : Rejilla.anadirFila();
    Rejilla.fijar(f, ColF7::Cuenta, Cuenta.trimmed());
    Rejilla.fijar(f, ColF7::Concepto, concepto);
    Rejilla.fijar(f, ColF7::Debe, importe(debe));
    Rejilla.fijar(f, ColF7::Haber, importe(haber));
    Rejilla.fijar(f, ColF7::NCuenta, NCuenta.trimmed());
    Rejilla.fijar(f, ColF7::Documento, documento);
    Descuadre();
    VaciarLinea();
    return true;
}

bool EditorPeriodico::AnadirApunte() {
    return lineaDeCampos(0);
}

bool EditorPeriodico::ModificarApunte() {
    if (FilaSeleccionada < 1 || FilaSeleccionada > Rejilla.ultima()) {
        d_.Informar(QStringLiteral("Seleccione primero en la lista el apunte que quiere "
                                   "modificar."));
        return false;
    }
    return lineaDeCampos(FilaSeleccionada);
}

bool EditorPeriodico::EliminarApunte(int fila) {
    if (fila < 1 || fila > Rejilla.ultima())
        return false;
    if (!d_.Preguntar(QStringLiteral("Está seguro de que desea eliminar el Apunte correspondiente "
                                     "a ") +
                      Rejilla.celda(fila, ColF7::Cuenta).trimmed() + QLatin1Char('?')))
        return false;
    Rejilla.quitarFila(fila);
    Descuadre();
    VaciarLinea();
    return true;
}

bool EditorPeriodico::EliminarAsiento() {
    if (!EliminarPeriodicoPreguntando(s_, d_, Nombre))
        return false;
    Rejilla.vaciar();
    VaciarLinea();
    Descuadre();
    return true;
}

bool EditorPeriodico::Aceptar() {
    Descuadre();
    if (Fecha.trimmed().isEmpty()) {
        d_.Informar(QStringLiteral("Debe cumplimentar el campo de Fecha."));
        return false;
    }
    const QDate fecha = FechaDeTexto(ValidarFecha(Fecha, d_));
    if (!fecha.isValid())
        return false;
    if (fecha != FechaDeTexto(FechaCargada)) {
        if (!d_.Preguntar(MsgCambiarFechaPeriodico)) {
            Fecha = FechaCargada;
            return false;
        }
    }
    Fecha = FormatoFecha(fecha, QStringLiteral("short date"));
    if (!Cuadrado()) {
        d_.Informar(QStringLiteral("El asiento está descuadrado."));
        return false;
    }
    if (Rejilla.ultima() < 1) {
        d_.Informar(QStringLiteral("El asiento periódico no tiene apuntes. Si quiere quitarlo, "
                                   "utilice Eliminar Asiento."));
        return false;
    }
    bool hecho = false;
    try {
        Conexion c = AbrirBavar(s_);
        hecho = ReescribirPeriodico(c, Nombre, Asiento());
    } catch (const Rechazo& e) {
        d_.Informar(e.mensaje());
        return false;
    } catch (const ErrorQuilmar&) {
        hecho = false;
    }
    if (!hecho) {
        d_.Informar(MsgNoSePudoEliminar);
        return false;
    }
    FechaCargada = Fecha;
    d_.Informar(MsgModificacionRealizada);
    return true;
}
