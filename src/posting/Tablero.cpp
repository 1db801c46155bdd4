#include "posting/Tablero.h"

#include "chart/Aparcar.h"
#include "chart/NCuenta.h"
#include "platform/Ajustes.h"
#include "platform/Almacen.h"
#include "platform/Dialogo.h"
#include "platform/Errores.h"
#include "store/Conexiones.h"
#include "store/Sesion.h"

const QString MsgNoHayCuentas = QStringLiteral("No hay Cuentas creadas.");
const QString MsgSinPaginasBanco = QStringLiteral(
    "Este botón le permite acceder fácilmente a la página web de su Banco u otras que consulte "
    "con frecuencia. Todavía no ha indicado ninguna: a continuación puede escribir sus nombres y "
    "direcciones, y desde entonces le bastará con pulsar este botón y elegir la página.");
const QString MsgPreguntaAyudante =
    QStringLiteral("Desea recibir ayuda para hacer los primeros asientos?");
const QString MsgNoPreguntarMas = QStringLiteral(
    "Desea que no se le pregunte esto más? En todo caso puede ver el asistente desde el punto "
    "Ayuda para empezar, del menú Ayuda.");

namespace {

const QString Opciones = QStringLiteral("Opciones");

QString claveNombre(int n) {
    return QStringLiteral("NCCBanco(%1)").arg(n);
}
QString claveDireccion(int n) {
    return QStringLiteral("WCCBanco(%1)").arg(n);
}

// The letter a name is searched by: upper-cased, without its accent.
QChar letraBase(QChar c) {
    const QString base = QString(c).normalized(QString::NormalizationForm_D);
    return base.isEmpty() ? c.toUpper() : base.at(0).toUpper();
}

} // namespace

ListasAreas LlenarAreas(Sesion& s, Dialogo& d) {
    s.UltimaSubcuenta = 0;
    try {
        Conexion c = AbrirDatos(s);
        return LlenarAreas(c, s, d);
    } catch (const ErrorQuilmar&) {
        d.Informar(MsgNoHayCuentas);
        return {};
    }
}

ListasAreas LlenarAreas(Conexion& c, Sesion& s, Dialogo& d) {
    ListasAreas listas;
    s.UltimaSubcuenta = 0;
    QSqlQuery q = c.ejecutar(
        QStringLiteral("SELECT NCuenta, Cuenta, Aparcada, Desde FROM Cuentas ORDER BY rowid"));
    bool alguna = false;
    while (q.next()) {
        alguna = true;
        const QString ncuenta = q.value(0).toString();
        const long serie = ncuenta.trimmed().right(5).toLong();
        if (serie > s.UltimaSubcuenta)
            s.UltimaSubcuenta = serie;
        const int area = AreaDeCuenta(ncuenta);
        if (area < 0 || EstaAparcada(q.value(2), q.value(3), s.AnoActual))
            continue;
        listas[static_cast<size_t>(area)].append({q.value(1).toString().trimmed(), ncuenta});
    }
    if (!alguna)
        d.Informar(MsgNoHayCuentas);
    return listas;
}

int AreaDeCuenta(const QString& ncuenta) {
    const QString t = ncuenta.trimmed();
    if (t.isEmpty() || !t.at(0).isDigit())
        return -1;
    const int area = t.at(0).digitValue();
    return area < NumeroAreas ? area : -1;
}

int FilaPorLetra(const QList<FilaArea>& filas, const QString& letra) {
    if (letra.isEmpty())
        return -1;
    const QChar buscada = letraBase(letra.at(0));
    for (int i = 0; i < filas.size(); ++i) {
        const QString& nombre = filas.at(i).Nombre;
        if (!nombre.isEmpty() && letraBase(nombre.at(0)) >= buscada)
            return i;
    }
    return -1;
}

void TeclasCtrl::Control() {
    if (teclas_.isEmpty())
        teclas_ = QStringLiteral("^");
}

std::optional<int> TeclasCtrl::Digito(int digito) {
    if (teclas_.isEmpty() || digito < 0 || digito > 9)
        return std::nullopt;
    teclas_ += QString::number(digito);
    if (teclas_.size() < 4)
        return std::nullopt;
    const int codigo = teclas_.right(3).toInt();
    teclas_.clear();
    return codigo;
}

QList<PaginaWeb> PaginasBanco(const Ajustes& a) {
    QList<PaginaWeb> r;
    for (int n = 1;; ++n) {
        const QString nombre = a.leer(Opciones, claveNombre(n)).trimmed();
        if (nombre.isEmpty())
            break;
        r.append({nombre, a.leer(Opciones, claveDireccion(n)).trimmed()});
    }
    return r;
}

void GuardarPaginasBanco(Ajustes& a, const QList<PaginaWeb>& paginas) {
    int n = 1;
    for (const PaginaWeb& p : paginas) {
        if (p.Nombre.trimmed().isEmpty())
            continue;
        a.escribir(Opciones, claveNombre(n), p.Nombre.trimmed());
        a.escribir(Opciones, claveDireccion(n), p.Direccion.trimmed());
        ++n;
    }
    for (; a.existe(Opciones, claveNombre(n)) || a.existe(Opciones, claveDireccion(n)); ++n) {
        a.borrar(Opciones, claveNombre(n));
        a.borrar(Opciones, claveDireccion(n));
    }
}

bool PreguntarAyudante(Ajustes& a, Dialogo& d, bool asientoHecho) {
    if (asientoHecho ||
        a.leer(Opciones, QStringLiteral("Ayudante")).trimmed().toUpper() == QLatin1String("NO"))
        return false;
    if (d.Preguntar(MsgPreguntaAyudante))
        return true;
    if (d.Preguntar(MsgNoPreguntarMas))
        a.escribir(Opciones, QStringLiteral("Ayudante"), QStringLiteral("NO"));
    return false;
}
