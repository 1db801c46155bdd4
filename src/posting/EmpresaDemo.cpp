#include "posting/EmpresaDemo.h"

#include "journal/Escritor.h"
#include "platform/Ajustes.h"
#include "platform/Almacen.h"
#include "posting/Vencimientos.h"
#include "store/CargarEmp.h"
#include "store/Conexiones.h"
#include "store/Empresas.h"
#include "store/Instalacion.h"
#include "store/Plantilla.h"
#include "store/Sesion.h"

#include <QDate>

namespace {

double numero(const QString& t) {
    return t.trimmed().isEmpty() ? 0.0 : t.trimmed().toDouble();
}

void publicarAsientos(Conexion& c, Sesion& s, const TablaTsv& t) {
    const int ano = s.AnoActual;
    int i = 0;
    while (i < t.filas.size()) {
        const QString asiento = t.valor(i, QStringLiteral("Asiento"));
        const QDate fecha = QDate::fromString(
            QStringLiteral("%1-%2").arg(ano).arg(t.valor(i, QStringLiteral("Fecha"))),
            QStringLiteral("yyyy-MM-dd"));
        QList<Apunte> apuntes;
        for (; i < t.filas.size() && t.valor(i, QStringLiteral("Asiento")) == asiento; ++i) {
            Apunte a;
            a.NCuenta = t.valor(i, QStringLiteral("NCuenta"));
            a.Concepto = t.valor(i, QStringLiteral("Concepto"));
            a.Debe = numero(t.valor(i, QStringLiteral("Debe")));
            a.Haber = numero(t.valor(i, QStringLiteral("Haber")));
            a.Documento = t.valor(i, QStringLiteral("Documento"));
            a.Sector = t.valor(i, QStringLiteral("Sector"));
            if (!t.valor(i, QStringLiteral("IvaContra")).isEmpty()) {
                DatosIvaApunte v;
                v.Contra = t.valor(i, QStringLiteral("IvaContra"));
                v.Factura = t.valor(i, QStringLiteral("IvaFactura"));
                v.Base = numero(t.valor(i, QStringLiteral("IvaBase")));
                v.Porcentaje = numero(t.valor(i, QStringLiteral("IvaPorcentaje")));
                v.Cuota = a.Debe != 0 ? a.Debe : a.Haber;
                v.Clase = t.valor(i, QStringLiteral("IvaClase"));
                v.LIVA = t.valor(i, QStringLiteral("IvaLIVA")) == QLatin1String("1");
                v.L347 = t.valor(i, QStringLiteral("IvaL347")) == QLatin1String("1");
                v.TipOp = t.valor(i, QStringLiteral("IvaTipOp"));
                v.Retencion = numero(t.valor(i, QStringLiteral("IvaRetencion")));
                a.Iva = v;
            }
            apuntes << a;
        }
        EscribirAsiento(c, s, fecha, apuntes);
    }
}

} // namespace

void InstalarEmpresaDemo(Sesion& s, Ajustes& a) {
    const TablaTsv empresa = LeerTsv(QStringLiteral(":/data/demo/empresa.tsv"));
    auto campo = [&](const char* nombre) {
        for (int i = 0; i < empresa.filas.size(); ++i)
            if (empresa.valor(i, QStringLiteral("Campo")) == QLatin1String(nombre))
                return empresa.valor(i, QStringLiteral("Valor"));
        return QString();
    };
    DatosNuevaEmpresa d;
    d.Codigo = QStringLiteral("100");
    d.Nombre = campo("Nombre");
    d.NIF = campo("NIF");
    d.Domicilio = campo("Domicilio");
    d.Numero = campo("Nº");
    d.Ciudad = campo("Ciudad");
    d.CPostal = campo("CPostal");
    d.Provincia = campo("Provincia");
    d.FechaIni = QDate(QDate::currentDate().year(), 1, 1);
    CrearEmpresa(s, a, d, true);

    {
        Conexion c = AbrirDatos(s);
        Transaccion t(c);
        CargarCuentas(c, LeerTsv(QStringLiteral(":/data/demo/cuentas.tsv")));
        CargarFichas(c, LeerTsv(QStringLiteral(":/data/demo/clipro.tsv")));
        const TablaTsv sectores = LeerTsv(QStringLiteral(":/data/demo/sectores.tsv"));
        for (int i = 0; i < sectores.filas.size(); ++i)
            c.ejecutar(QStringLiteral("INSERT INTO Sectores (Sector) VALUES (?)"),
                       {sectores.valor(i, QStringLiteral("Sector"))});
        publicarAsientos(c, s, LeerTsv(QStringLiteral(":/data/demo/asientos.tsv")));
        t.confirmar();
    }
    {
        Conexion b = AbrirBavar(s);
        Transaccion t(b);
        const TablaTsv conceptos = LeerTsv(QStringLiteral(":/data/demo/conceptos.tsv"));
        for (int i = 0; i < conceptos.filas.size(); ++i)
            b.ejecutar(QStringLiteral("INSERT INTO Conceptos (Codigo, Nombre) VALUES (?, ?)"),
                       {conceptos.valor(i, QStringLiteral("Codigo")).toInt(),
                        conceptos.valor(i, QStringLiteral("Nombre"))});
        // Due dates around the day of installation, so that the board's lights show.
        const TablaTsv vencimientos = LeerTsv(QStringLiteral(":/data/demo/vencimientos.tsv"));
        const QDate hoy = QDate::currentDate();
        const QDateTime ahora = QDateTime::currentDateTime();
        for (int i = 0; i < vencimientos.filas.size(); ++i) {
            auto valor = [&](const char* nombre) {
                return vencimientos.valor(i, QString::fromLatin1(nombre));
            };
            Vencimiento v;
            v.FechaV = hoy.addDays(valor("Dias").toInt());
            v.FechaE = hoy.addDays(valor("Emision").toInt());
            v.Tipo = valor("Tipo");
            v.Forma = valor("Forma");
            v.NCuenta1 = valor("NCuenta1");
            v.NCuenta2 = valor("NCuenta2");
            v.Concepto = valor("Concepto");
            v.Situacion = valor("Situacion");
            v.Importe = numero(valor("Importe"));
            v.Documento = valor("Documento");
            v.Remesa = valor("Remesa");
            AnadirVencimiento(b, v, ahora);
        }
        t.confirmar();
    }
    CargarEjercicio(s);
}

void PrimerArranque(Sesion& s, Ajustes& a) {
    const bool nueva = PrepararInstalacion(s);
    if (nueva && !s.DataPath.isEmpty() && CarpetasEmpresa(s.DataPath).isEmpty())
        InstalarEmpresaDemo(s, a);
}
