#include "posting/GestionVencimientos.h"

#include "chart/VistaArea.h"
#include "platform/Almacen.h"
#include "posting/Contabilizar.h"
#include "posting/GestionAsientos.h"
#include "store/Conexiones.h"
#include "store/Formato.h"
#include "store/Sesion.h"

namespace {

QString fechaCorta(const QDate& d) {
    return FormatoFecha(d, QStringLiteral("short date"));
}

// Puts a code in the lists when it is not offered there (a parked subaccount), so that a row
// copied to the fields still shows its name.
void asegurar(QStringList& nombres, QStringList& codigos, const QString& nombre,
              const QString& codigo) {
    if (!codigo.isEmpty() && !codigos.contains(codigo)) {
        nombres << (nombre.isEmpty() ? codigo : nombre);
        codigos << codigo;
    }
}

} // namespace

DatosVencimientoLinea VencimientoDeLineaF7(const RejillaAsiento& r, int fila, const Sesion& s,
                                           const QString& fecha) {
    DatosVencimientoLinea v;
    const bool pago = r.valor(fila, ColF7::Debe) > 0;
    v.Tipo = pago ? TipoPago : TipoCobro;
    v.NCuenta = r.celda(fila, ColF7::NCuenta).trimmed();
    v.Area = VistaArea::De(s).digitoDe(v.NCuenta);
    v.Nombre = r.celda(fila, ColF7::Cuenta);
    v.Concepto = r.celda(fila, ColF7::Concepto);
    v.Fecha = fecha;
    v.Importe = pago ? r.valor(fila, ColF7::Debe) : r.valor(fila, ColF7::Haber);
    v.Documento = r.celda(fila, ColF7::Documento);
    v.Sector = r.celda(fila, ColF7::Sector);
    return v;
}

GestionVencimientos::GestionVencimientos(Sesion& s, Dialogo& d) : s_(s), d_(d) {}

QStringList GestionVencimientos::Areas() const {
    return VistaArea::De(s_).digitos();
}

void GestionVencimientos::Cargar(const QDate& hoy) {
    CajaNombres.clear();
    CajaCodigos.clear();
    FiltroNombres.clear();
    FiltroCodigos.clear();
    if (!s_.EmpresaActual.isEmpty() && s_.AnoActual != 0) {
        Conexion c = AbrirDatos(s_);
        // Every subaccount of area 1, parked ones too: a due date may go through any of them.
        for (const SubcuentaDeLista& l : VistaArea(false).subcuentas(
                 c, s_, QStringLiteral("1"), true, OrdenSubcuentas::Nombre)) {
            CajaNombres << l.Cuenta;
            CajaCodigos << l.NCuenta;
        }
        QSqlQuery q =
            c.ejecutar(QStringLiteral("SELECT NCuenta, Cuenta FROM Cuentas ORDER BY Cuenta"));
        while (q.next()) {
            FiltroCodigos << q.value(0).toString().trimmed();
            FiltroNombres << q.value(1).toString().trimmed();
        }
    }
    Borrar(hoy);
}

void GestionVencimientos::ElegirTipo(const QString& tipo) {
    Tipo = tipo;
    // A state chosen before the type may contradict it now.
    Situacion = SituacionAdmitida(Tipo, Situacion, d_);
}

void GestionVencimientos::ElegirArea(const QString& area) {
    Area = area.trimmed();
    Nombres.clear();
    Codigos.clear();
    Cuenta.clear();
    NCuenta1.clear();
    if (Area.isEmpty())
        return;
    Conexion c = AbrirDatos(s_);
    for (const SubcuentaDeLista& l : VistaArea::De(s_).subcuentas(c, s_, Area)) {
        Nombres << l.Cuenta;
        Codigos << l.NCuenta;
    }
}

bool GestionVencimientos::ElegirSubcuenta(int indice) {
    if (indice < 0 || indice >= Codigos.size())
        return false;
    Cuenta = Nombres.at(indice);
    NCuenta1 = Codigos.at(indice);
    const QString aviso = AvisoAreaTipo(Tipo, NCuenta1);
    if (!aviso.isEmpty())
        d_.Informar(aviso);
    return true;
}

void GestionVencimientos::ElegirCaja(int indice) {
    if (indice < 0 || indice >= CajaCodigos.size())
        return;
    CajaBanco = CajaNombres.at(indice);
    NCuenta2 = CajaCodigos.at(indice);
}

void GestionVencimientos::ElegirSituacion(const QString& situacion) {
    Situacion = SituacionAdmitida(Tipo, situacion, d_);
}

void GestionVencimientos::Borrar(const QDate& hoy) {
    FechaV.clear();
    Tipo.clear();
    Area.clear();
    Nombres.clear();
    Codigos.clear();
    Cuenta.clear();
    NCuenta1.clear();
    Concepto.clear();
    FechaE = fechaCorta(hoy);
    CajaBanco.clear();
    NCuenta2.clear();
    Situacion = SituacionPendiente;
    Importe.clear();
    Documento.clear();
    Remesa.clear();
    Sector.clear();
    Forma.clear();
    IdVenc = 0;
}

void GestionVencimientos::Prellenar(const DatosVencimientoLinea& l) {
    IdVenc = 0;
    Tipo = l.Tipo;
    ElegirArea(l.Area);
    asegurar(Nombres, Codigos, l.Nombre, l.NCuenta);
    Cuenta = l.Nombre.trimmed();
    NCuenta1 = l.NCuenta;
    Concepto = l.Concepto;
    // The entry's date is the date of issue; when it falls due is the user's to say.
    FechaE = l.Fecha;
    FechaV.clear();
    Importe = l.Importe != 0 ? Formato(l.Importe, QStringLiteral("standard")) : QString();
    Documento = l.Documento;
    Sector = l.Sector;
    Situacion = l.Situacion;
}

CamposVencimiento GestionVencimientos::Campos() const {
    CamposVencimiento c;
    c.FechaV = FechaV;
    c.FechaE = FechaE;
    c.Tipo = Tipo;
    c.Forma = Forma;
    c.NCuenta1 = NCuenta1;
    c.NCuenta2 = NCuenta2;
    c.Concepto = Concepto;
    c.Situacion = Situacion;
    c.Importe = Importe;
    c.Documento = Documento;
    c.Remesa = Remesa;
    c.Sector = Sector;
    return c;
}

bool GestionVencimientos::Anadir(const QDate& hoy, const QDateTime& ahora) {
    std::optional<Vencimiento> v = ComprobarVencimiento(Campos(), AltaVenc::Alta, d_, hoy);
    if (!v)
        return false;
    {
        Conexion b = AbrirBavar(s_);
        AnadirVencimiento(b, *v, ahora);
    }
    Lista.AgregarFila(FilaVencimiento(*v, NombresSubcuentas(s_)));
    ponerTotal();
    cambiado();
    return true;
}

bool GestionVencimientos::Modificar(const QDate& hoy) {
    if (IdVenc == 0) {
        d_.Informar(
            QStringLiteral("Haga primero doble clic sobre el vencimiento que quiere modificar."));
        return false;
    }
    std::optional<Vencimiento> v = ComprobarVencimiento(Campos(), AltaVenc::Modificacion, d_, hoy);
    if (!v)
        return false;
    v->IdVenc = IdVenc;
    bool hecho = false;
    {
        Conexion b = AbrirBavar(s_);
        hecho = ModificarVencimiento(b, *v);
    }
    if (!hecho) {
        d_.Informar(MsgSinModificar);
        return false;
    }
    LlenarVenc(hoy);
    cambiado();
    return true;
}

bool GestionVencimientos::Eliminar(const QDate& hoy) {
    if (IdVenc == 0) {
        d_.Informar(
            QStringLiteral("Haga primero doble clic sobre el vencimiento que quiere eliminar."));
        return false;
    }
    if (!d_.Preguntar(QStringLiteral("Desea eliminar el vencimiento de fecha ") + FechaV +
                      QStringLiteral(" de  ") + Cuenta + QLatin1Char('?')))
        return false;
    const double id = IdVenc;
    {
        Conexion b = AbrirBavar(s_);
        EliminarVencimiento(b, id);
    }
    const int fila = filaDeClave(id);
    if (fila >= 0)
        Lista.EliminarFila(fila);
    ponerTotal();
    Borrar(hoy);
    cambiado();
    return true;
}

bool GestionVencimientos::CargarFila(int fila) {
    if (fila < 0 || fila >= Lista.Filas())
        return false;
    const std::optional<double> id = IdVencDeTexto(Lista.Celda(fila, ColV::IdVenc));
    if (!id)
        return false;
    IdVenc = *id;
    FechaV = Lista.Celda(fila, ColV::FechaV);
    Tipo = Lista.Celda(fila, ColV::Tipo);
    Forma = Lista.Celda(fila, ColV::Forma);
    const QString ncuenta = Lista.Celda(fila, ColV::NCuenta1);
    ElegirArea(VistaArea::De(s_).digitoDe(ncuenta));
    asegurar(Nombres, Codigos, Lista.Celda(fila, ColV::Subcuenta), ncuenta);
    Cuenta = Lista.Celda(fila, ColV::Subcuenta);
    NCuenta1 = ncuenta;
    Concepto = Lista.Celda(fila, ColV::Concepto);
    NCuenta2 = Lista.Celda(fila, ColV::NCuenta2);
    CajaBanco = Lista.Celda(fila, ColV::CajaBanco);
    asegurar(CajaNombres, CajaCodigos, CajaBanco, NCuenta2);
    Importe = Lista.Celda(fila, ColV::Importe);
    Situacion = Lista.Celda(fila, ColV::Situacion);
    Documento = Lista.Celda(fila, ColV::Documento);
    Remesa = Lista.Celda(fila, ColV::Remesa);
    Sector = Lista.Celda(fila, ColV::Sector);
    FechaE = Lista.Celda(fila, ColV::FechaE);
    return true;
}

bool GestionVencimientos::Ver(const FiltrosVenc& filtros, const QDate& hoy,
                              const Progreso& progreso) {
    if (!ComprobarFiltros(filtros, d_))
        return false;
    Filtros = filtros;
    LlenarVenc(hoy, progreso);
    return true;
}

void GestionVencimientos::LlenarVenc(const QDate& hoy, const Progreso& progreso) {
    // The fill yields to events, when the screen may paint the list it shows: the new rows
    // take its place only once they are all read.
    Rejilla nueva = RejillaVencimientos();
    Total = ::LlenarVenc(s_, Filtros, hoy, nueva, progreso);
    Lista = std::move(nueva);
}

int GestionVencimientos::EliminarVenc(int meses, const QDate& hoy) {
    const int n = ::EliminarVenc(s_, d_, meses, hoy);
    if (n < 0)
        return n;
    LlenarVenc(hoy);
    if (n > 0)
        cambiado();
    return n;
}

int GestionVencimientos::EliminarCobradosPagados(const QDate& hoy) {
    const int n = ::EliminarCobradosPagados(s_, d_);
    if (n < 0)
        return n;
    LlenarVenc(hoy);
    if (n > 0)
        cambiado();
    return n;
}

void GestionVencimientos::cambiado() {
    if (VencimientosCambiados)
        VencimientosCambiados();
}

void GestionVencimientos::ponerTotal() {
    Total = TotalDeLista(Lista, Filtros.Tipo);
    Lista.PonerTotal(EtiquetaTotalVenc, Formato(Total, QStringLiteral("standard")));
}

int GestionVencimientos::filaDeClave(double id) const {
    const QString texto = TextoIdVenc(id);
    for (int f = 0; f < Lista.Filas(); ++f)
        if (Lista.celda(f, ColV::IdVenc) == texto)
            return f;
    return -1;
}
