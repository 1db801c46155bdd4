#include "reports/OpcionesLibro.h"

#include "platform/Ajustes.h"
#include "platform/Impresora.h"
#include "store/Rutinas.h"

#include <cmath>
#include <optional>

namespace {

const QString Valores = QStringLiteral("Valores");
const QString CourierNew = QStringLiteral("Courier New");
const QString ArialNarrow = QStringLiteral("Arial Narrow");

} // namespace

ConfigOpciones ConfigFormOpciones(FormOpciones form, const QString& variante) {
    ConfigOpciones c;
    c.form = form;
    switch (form) {
    case FormOpciones::Form77:
        c.nombre = QStringLiteral("Form77");
        c.titulo = QStringLiteral("DIARIO");
        c.grupo = QStringLiteral("Diario");
        c.numero = 77;
        c.paginaInicial = true;
        c.sumasIniciales = true;
        c.modelo = true;
        break;
    case FormOpciones::Form79:
        c.nombre = QStringLiteral("Form79");
        c.titulo = QStringLiteral("SUMAS Y SALDOS");
        c.grupo = QStringLiteral("SyS");
        c.numero = 79;
        c.fuenteSiVacia = ArialNarrow;
        break;
    case FormOpciones::Form80:
        c.nombre = QStringLiteral("Form80");
        c.titulo = QStringLiteral("MAYOR");
        c.grupo = QStringLiteral("Mayor");
        c.numero = 80;
        break;
    case FormOpciones::Form83:
        c.nombre = QStringLiteral("Form83");
        c.grupo = QStringLiteral("Anuales");
        c.numero = 83;
        c.fuenteSiVacia = ArialNarrow;
        c.guardaEnEmp = true;
        c.anoAnterior = true;
        c.modo = variante;
        if (variante == QLatin1String("Balance"))
            c.titulo = QStringLiteral("BALANCE DE SITUACION");
        else if (variante == QLatin1String("Balance2008"))
            c.titulo = QStringLiteral("BALANCE DE PYMES");
        else if (variante == QLatin1String("PyG"))
            c.titulo = QStringLiteral("CUENTA DE PERDIDAS Y GANANCIAS");
        else if (variante == QLatin1String("PyG2008"))
            c.titulo = QStringLiteral("PERDIDAS Y GANANCIAS DE PYMES");
        else
            c.titulo = QStringLiteral("CUENTAS ANUALES");
        break;
    case FormOpciones::Form85:
        c.nombre = QStringLiteral("Form85");
        c.titulo = QStringLiteral("MAYOR");
        c.grupo = QStringLiteral("Mayor");
        c.numero = 85;
        c.nuevaPagina = true;
        break;
    case FormOpciones::FORM52:
        c.nombre = QStringLiteral("FORM52");
        c.titulo = QStringLiteral("LIBROS");
        c.grupo = QStringLiteral("Libros");
        c.numero = 52;
        c.margenMinimo10 = true;
        c.paginaInicial = true;
        c.paginaInicialMenosUno = true;
        c.numeroAsiento = true;
        break;
    case FormOpciones::FORM90: {
        c.nombre = QStringLiteral("FORM90");
        c.grupo = variante.isEmpty() ? QStringLiteral("Venc") : variante;
        c.numero = 90;
        c.fuenteSiVacia = ArialNarrow;
        // A plain and a narrow font: the lists it prints are wide.
        c.fuentes = QStringList{CourierNew, ArialNarrow};
        if (c.grupo == QLatin1String("Invent"))
            c.titulo = QStringLiteral("Inventario");
        else if (c.grupo == QLatin1String("CDia"))
            c.titulo = QStringLiteral("Caja del día");
        else if (c.grupo == QLatin1String("Predi"))
            c.titulo = QStringLiteral("Asientos prediseñados");
        else
            c.titulo = QStringLiteral("Vencimientos");
        break;
    }
    }
    return c;
}

AjustesGrupo LeerAjustesGrupo(const Ajustes& ajustes, const QString& grupo) {
    // The defaults stand in the settings' own table (10, "Arial Narrow", 9).
    return {ajustes.leer(Valores, QStringLiteral("Izq") + grupo),
            ajustes.leer(Valores, QStringLiteral("NFuent") + grupo),
            ajustes.leer(Valores, QStringLiteral("TFuent") + grupo)};
}

CajasOpciones CajasIniciales(const ConfigOpciones& config, const Ajustes& ajustes,
                             const QDate& hoy) {
    const AjustesGrupo g = LeerAjustesGrupo(ajustes, config.grupo);
    CajasOpciones c;
    c.fechaTrabajo = hoy;
    c.margen = g.margen;
    c.fuente = g.fuente;
    c.tamano = g.tamano;
    return c;
}

double MilimetrosATwips(double mm) {
    return std::floor(mm * TwipsPorMm);
}

ResultadoOpciones LeerSumasIniciales(const QString& sumaDebe, const QString& sumaHaber,
                                     double& debe, double& haber) {
    const bool hayDebe = !sumaDebe.trimmed().isEmpty();
    const bool hayHaber = !sumaHaber.trimmed().isEmpty();
    if (hayDebe != hayHaber)
        return ResultadoOpciones::SumasIncompletas;
    const std::optional<double> d = hayDebe ? LeerImporte(sumaDebe) : 0.0;
    const std::optional<double> h = hayHaber ? LeerImporte(sumaHaber) : 0.0;
    if (!d || !h)
        return ResultadoOpciones::ImporteNoValido;
    debe = *d;
    haber = *h;
    return ResultadoOpciones::Aceptado;
}

QString MsgSumaNoValida(const QString& sumaDebe, const QString& sumaHaber) {
    const bool debeMalo = !sumaDebe.trimmed().isEmpty() && !LeerImporte(sumaDebe);
    return MsgImporteNoValido(debeMalo ? sumaDebe : sumaHaber);
}

ResultadoOpciones AceptarOpciones(const ConfigOpciones& config, CajasOpciones& cajas,
                                  Ajustes& ajustes, OpcionesLibro& op, bool guardar) {
    op.cancelado = true;
    if (config.sumasIniciales) {
        const ResultadoOpciones r =
            LeerSumasIniciales(cajas.sumaDebe, cajas.sumaHaber, op.sumaDebe, op.sumaHaber);
        if (r != ResultadoOpciones::Aceptado)
            return r;
    }

    QString margen = cajas.margen.trimmed();
    if (config.margenMinimo10 && (margen.isEmpty() || margen.toDouble() < 10)) {
        margen = QStringLiteral("10");
        cajas.margen = margen;
    }
    QString margenGuardado = margen;
    if (margen.isEmpty()) {
        op.margen = 0;
        margenGuardado = QStringLiteral("0");
    } else {
        op.margen = MilimetrosATwips(ValorImporte(margen));
    }

    QString fuente = cajas.fuente.trimmed();
    QString fuenteGuardada = fuente;
    if (fuente.isEmpty()) {
        fuente = CourierNew;
        fuenteGuardada = config.fuenteSiVacia;
    }
    op.fuente = fuente;

    // The size box takes free text; what is not a size above zero counts as empty.
    bool ok = false;
    const double t = NormalizarNumero(cajas.tamano).toDouble(&ok);
    op.tamano = ok && std::lround(t) > 0 ? int(std::lround(t)) : 9;
    const QString tamanoGuardado =
        ok && std::lround(t) > 0 ? cajas.tamano.trimmed() : QStringLiteral("9");

    op.fechaTrabajo = cajas.fechaTrabajo.isValid() ? cajas.fechaTrabajo : QDate::currentDate();
    if (config.paginaInicial) {
        const int p = cajas.paginaInicial.trimmed().toInt();
        op.paginaInicial = config.paginaInicialMenosUno && p > 0 ? p - 1 : p;
    }
    op.borrador = config.modelo && cajas.borrador;
    op.conDocumento = config.modelo && cajas.conDocumento;
    op.numeroAsiento = config.numeroAsiento && cajas.numeroAsiento;
    op.nuevaPaginaCuenta = config.nuevaPagina && cajas.nuevaPaginaCuenta;
    op.nuevaPaginaSubcuenta = config.nuevaPagina && cajas.nuevaPaginaSubcuenta;
    op.anoAnterior = config.anoAnterior && cajas.anoAnterior;
    op.modo = config.modo;

    if (guardar) {
        const QString izq = QStringLiteral("Izq") + config.grupo;
        const QString nombre = QStringLiteral("NFuent") + config.grupo;
        const QString tam = QStringLiteral("TFuent") + config.grupo;
        if (config.guardaEnEmp) {
            ajustes.escribirEmp(Valores, izq, margenGuardado);
            ajustes.escribirEmp(Valores, nombre, fuenteGuardada);
            ajustes.escribirEmp(Valores, tam, tamanoGuardado);
        } else {
            ajustes.escribir(Valores, izq, margenGuardado);
            ajustes.escribir(Valores, nombre, fuenteGuardada);
            ajustes.escribir(Valores, tam, tamanoGuardado);
        }
    }
    op.cancelado = false;
    return ResultadoOpciones::Aceptado;
}
