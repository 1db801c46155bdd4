#include "cli/Cli.h"

#include "platform/Ajustes.h"
#include "platform/Errores.h"
#include "store/BloqueoEmpresa.h"
#include "store/Campos.h"
#include "store/CargarEmp.h"
#include "store/Conexiones.h"
#include "store/Empresas.h"
#include "store/ListasEmpresas.h"
#include "store/Sesion.h"

#include <QDir>
#include <QFile>
#include <cstdio>
#include <unistd.h>

std::function<void(ContextoCli&)> ContextoCli::comprobarAcceso;

namespace {
QList<Verbo>& registro() {
    static QList<Verbo> r;
    return r;
}
} // namespace

const QList<Verbo>& VerbosRegistrados() {
    return registro();
}

AltaVerbo::AltaVerbo(Verbo v) {
    registro() << std::move(v);
}

QString ContextoCli::opcion(const QString& nombre, const QString& defecto) const {
    QString r = defecto;
    for (const auto& p : valores)
        if (p.first == nombre)
            r = p.second;
    return r;
}

QStringList ContextoCli::opciones(const QString& nombre) const {
    QStringList r;
    for (const auto& p : valores)
        if (p.first == nombre)
            r << p.second;
    return r;
}

QString ContextoCli::global(const QString& nombre) const {
    QString r;
    for (int i = 0; i < valores.size(); ++i)
        if (valores.at(i).first == nombre && (i < antesDelVerbo || !propias.contains(nombre)))
            r = valores.at(i).second;
    return r;
}

QString ContextoCli::propia(const QString& nombre) const {
    QString r;
    for (int i = antesDelVerbo; i < valores.size(); ++i)
        if (valores.at(i).first == nombre)
            r = valores.at(i).second;
    return r;
}

bool ContextoCli::bandera(const QString& nombre) const {
    return tiene(nombre);
}

bool ContextoCli::tiene(const QString& nombre) const {
    for (const auto& p : valores)
        if (p.first == nombre)
            return true;
    return false;
}

void ContextoCli::abrirEmpresa() {
    if (comprobarAcceso && !accesoComprobado)
        comprobarAcceso(*this);
    QString empresa = opcion(QStringLiteral("empresa"));
    if (empresa.isEmpty())
        empresa = ajustes.leer(QStringLiteral("Inicio"), QStringLiteral("Empresa"));
    if (empresa.isEmpty())
        throw Rechazo(
            QStringLiteral("Indique la empresa con --empresa EmpNNN (quilmar-cli empresas "
                           "muestra la lista)."));
    if (!empresa.startsWith(QLatin1String("Emp"), Qt::CaseInsensitive))
        empresa = QStringLiteral("Emp") + empresa;
    empresa = QStringLiteral("Emp") + empresa.mid(3);
    const QList<RegistroSelan> ejercicios = EjerciciosDe(sesion, empresa);
    if (sesion.enServidor() ? ejercicios.isEmpty() : !QDir(sesion.carpetaEmpresa(empresa)).exists())
        throw Rechazo(QStringLiteral("No existe la empresa %1.").arg(empresa));
    int ano = global(QStringLiteral("ano")).toInt();
    if (ano == 0 && empresa == ajustes.leer(QStringLiteral("Inicio"), QStringLiteral("Empresa")))
        ano = ajustes.leer(QStringLiteral("Inicio"), QStringLiteral("Año")).toInt();
    if (ano == 0)
        ano = UltimoEjercicio(sesion, empresa);
    QString nombre;
    bool anotado = false;
    for (const RegistroSelan& r : ejercicios)
        if (r.Ano.toInt() == ano) {
            nombre = r.Nombre;
            anotado = true;
        }
    sesion.EmpresaActual = empresa;
    sesion.AnoActual = static_cast<qint16>(ano);
    if (sesion.enServidor() ? !anotado : !QFile::exists(sesion.rutaEjercicio()))
        throw Rechazo(
            QStringLiteral("No existe el ejercicio %1 de la empresa %2.").arg(ano).arg(empresa));
    CargarEjercicio(sesion);
    // Held until the command ends, so that nobody compacts or restores the company meanwhile.
    MarcarEmpresaAbierta(sesion);
}

void ImprimirFilas(QTextStream& salida, const QList<QStringList>& filas) {
    for (QStringList f : filas) {
        // A text stored before control characters were kept out must not shift the columns.
        for (QString& celda : f)
            if (TieneControles(celda))
                celda = SinControles(celda);
        salida << f.join(QLatin1Char('\t')) << '\n';
    }
}

std::function<void(const QString&, qint64, qint64)> ProgresoConsola() {
    struct Estado {
        QString etapa;
        int parte = -1;
        bool abierta = false; // a line on the terminal waits for its end
        bool terminal = isatty(fileno(stderr)) != 0;
    };
    auto e = std::make_shared<Estado>();
    return [e](const QString& etapa, qint64 hecho, qint64 total) {
        const int pc = total > 0 ? static_cast<int>(std::min(hecho, total) * 100 / total) : 100;
        const int parte = e->terminal ? pc : pc / 10;
        if (etapa == e->etapa && parte == e->parte)
            return;
        const QByteArray texto = QStringLiteral("%1: %2 %").arg(etapa).arg(pc).toLocal8Bit();
        if (e->terminal) {
            if (e->abierta && etapa != e->etapa)
                std::fputc('\n', stderr);
            std::fprintf(stderr, "\r%s", texto.constData());
            e->abierta = pc < 100;
            if (!e->abierta)
                std::fputc('\n', stderr);
        } else {
            std::fprintf(stderr, "%s\n", texto.constData());
        }
        e->etapa = etapa;
        e->parte = parte;
        std::fflush(stderr);
    };
}
